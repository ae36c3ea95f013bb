// The pairs of group code and value that such a file is made of.
#include "files/dxf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/failure.h"

namespace verlink {

namespace {

/// Parts of a path's extent within which its ends are one point.
constexpr double kOnePoint = 1e-5;

std::string Pair(int code, const std::string& value) { return std::to_string(code) + "\r\n" + value + "\r\n"; }

/// Eight decimals at most, without an exponent, which not every reader knows.
std::string Number(double value) {
    // What is not finite, or larger than any part, has no place in a drawing.
    constexpr double kLargest = 1e15;
    if (!(std::abs(value) < kLargest)) platform::Raise(platform::kOverflow);
    std::array<char, 64> digits;
    auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 8).ptr;
    while (end[-1] == '0' && end[-2] != '.') --end;
    const std::string text(digits.data(), end);
    return text == "-0.0" ? "0.0" : text;
}

/// A remark is one line of plain letters.
std::string In_Ascii(std::string text) {
    for (char& letter : text)
        if (letter < ' ' || letter > '~') letter = '?';
    return text;
}

double Extent(const std::vector<Dxf::Spot>& spots) {
    double extent = 0;
    for (const Dxf::Spot spot : spots) extent = std::max(extent, std::abs(spot - spots.front()));
    return extent;
}

}  // namespace

Dxf::Dxf(Dxf_Unit unit, const std::string& about, double cross) : unit_(unit), about_(In_Ascii(about)), cross_(cross) {}

void Dxf::Put(int code, const std::string& value) { entities_ += Pair(code, value); }
void Dxf::Put(int code, double value) { Put(code, Number(value)); }

/// The second coordinate has the code of the first and 10 more.
void Dxf::Put_Spot(int code, Spot at) {
    Put(code, at.real());
    Put(code + 10, at.imag());
    left_ = empty_ ? at.real() : std::min(left_, at.real());
    right_ = empty_ ? at.real() : std::max(right_, at.real());
    bottom_ = empty_ ? at.imag() : std::min(bottom_, at.imag());
    top_ = empty_ ? at.imag() : std::max(top_, at.imag());
    empty_ = false;
}

void Dxf::Begin(const char* entity) {
    Put(0, entity);
    Put(8, layer_);
}

void Dxf::Layer(const std::string& name, int color) {
    layer_ = name;
    layers_ +=
        Pair(0, "LAYER") + Pair(2, name) + Pair(70, "0") + Pair(62, std::to_string(color)) + Pair(6, "CONTINUOUS");
    ++layer_count_;
}

void Dxf::Line(Spot from, Spot to) {
    Begin("LINE");
    Put_Spot(10, from);
    Put_Spot(11, to);
}

void Dxf::Circle(Spot center, double radius) {
    Begin("CIRCLE");
    Put_Spot(10, center);
    Put(40, radius);
}

void Dxf::Point(Spot at) {
    Begin("POINT");
    Put_Spot(10, at);
}

void Dxf::Path(std::vector<Spot> spots) {
    if (spots.size() < 2) return;
    const bool closed = spots.size() > 3 && std::abs(spots.back() - spots.front()) <= kOnePoint * Extent(spots);
    if (closed) spots.pop_back();
    Begin("POLYLINE");
    Put(66, "1");  // vertices follow
    Put(10, 0.0);
    Put(20, 0.0);
    Put(30, 0.0);
    Put(70, closed ? "1" : "0");
    for (const Spot spot : spots) {
        Begin("VERTEX");
        Put_Spot(10, spot);
    }
    Begin("SEQEND");
}

std::string Dxf::Content() const {
    const auto section = [](const char* name, const std::string& content) {
        return Pair(0, "SECTION") + Pair(2, name) + content + Pair(0, "ENDSEC");
    };
    const auto corner = [](const char* name, double x, double y) {
        return Pair(9, name) + Pair(10, Number(x)) + Pair(20, Number(y)) + Pair(30, "0.0");
    };
    const bool metric = unit_ == Dxf_Unit::kMillimetre;
    const std::string header = Pair(9, "$ACADVER") + Pair(1, "AC1009") + Pair(9, "$INSUNITS") +
                               Pair(70, std::to_string(static_cast<int>(unit_))) + Pair(9, "$MEASUREMENT") +
                               Pair(70, metric ? "1" : "0") + corner("$EXTMIN", left_, bottom_) +
                               corner("$EXTMAX", right_, top_) + Pair(9, "$PDMODE") + Pair(70, "3") +
                               Pair(9, "$PDSIZE") + Pair(40, Number(cross_));
    const std::string lines = Pair(0, "TABLE") + Pair(2, "LTYPE") + Pair(70, "1") + Pair(0, "LTYPE") +
                              Pair(2, "CONTINUOUS") + Pair(70, "0") + Pair(3, "Solid line") + Pair(72, "65") +
                              Pair(73, "0") + Pair(40, "0.0") + Pair(0, "ENDTAB");
    const std::string layers =
        Pair(0, "TABLE") + Pair(2, "LAYER") + Pair(70, std::to_string(layer_count_)) + layers_ + Pair(0, "ENDTAB");
    return Pair(999, about_) + Pair(999, metric ? "Lengths are in millimetres" : "Lengths are in inches") +
           section("HEADER", header) + section("TABLES", lines + layers) + section("ENTITIES", entities_) +
           Pair(0, "EOF");
}

}  // namespace verlink
