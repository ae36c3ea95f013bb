// The page's strokes, and the few objects around them.
#include "files/picture_pdf.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

#include "platform/clip.h"

namespace verlink {

namespace {

using platform::ClipBox;
using platform::Color;
using platform::Picture;
using platform::Point;

std::string Number(double value) {
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.3f", value);
    return text.data();
}

std::string Pair(Point at) { return Number(at.x) + " " + Number(at.y); }

std::string Parts(Color color) {
    std::string parts;
    for (int shift = 0; shift < 24; shift += 8) parts += Number(((color >> shift) & 0xFF) / 255.0) + " ";
    return parts;
}

/// Goes through the list with y upward, as paper has it.
class Page {
   public:
    Page(const Picture& picture, double side) : picture_(picture), side_(side), seen_(ClipBox{0, 0, side, side}) {}

    std::string Strokes() {
        text_ = Parts(picture_.Back()) + "rg 0 0 " + Pair({side_, side_}) + " re f\n" + "1 J 1 j " +
                Number(side_ / 400) + " w\n";
        for (const Picture::Primitive& primitive : picture_.Primitives()) {
            if (!primitive.alive) continue;
            Take(primitive.color);
            const Point at = Place(primitive.x1 + primitive.dx1, primitive.y1 + primitive.dy1);
            switch (primitive.kind) {
                case Picture::Primitive::Kind::kSegment:
                case Picture::Primitive::Kind::kMark:
                    Segment(at, Place(primitive.x2 + primitive.dx2, primitive.y2 + primitive.dy2));
                    break;
                case Picture::Primitive::Kind::kDot: Segment(at, at); break;
                default: Round(at, std::abs(primitive.x2 / (picture_.Right() - picture_.Left())) * side_);
            }
        }
        return text_;
    }

   private:
    Point Place(double x, double y) const {
        return {(x - picture_.Left()) / (picture_.Right() - picture_.Left()) * side_,
                (picture_.Bottom() - y) / (picture_.Bottom() - picture_.Top()) * side_};
    }
    void Take(Color color) {
        if (color == color_) return;
        color_ = color;
        text_ += Parts(color) + "RG\n";
    }
    /// A round cap makes a dot of a line without length.
    void Segment(Point from, Point to) {
        if (Clip_Segment(seen_, from, to)) text_ += Pair(from) + " m " + Pair(to) + " l S\n";
    }
    void Round(Point at, double radius) {
        constexpr double kOff = 0.02;
        const std::vector<Point> arc = Seen_Arc(seen_, at, radius, kOff);
        for (std::size_t i = 0; i < arc.size(); ++i) text_ += Pair(arc[i]) + (i == 0 ? " m " : " l ");
        if (!arc.empty()) text_ += "S\n";
    }

    const Picture& picture_;
    double side_;
    ClipBox seen_;
    std::optional<Color> color_;  ///< of the strokes so far
    std::string text_;
};

}  // namespace

std::string Picture_Pdf(const platform::Picture& picture, int side) {
    const std::string strokes = Page(picture, side).Strokes();
    const std::string objects[] = {
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + std::to_string(side) + " " + std::to_string(side) +
            "] /Resources << >> /Contents 4 0 R >>",
        "<< /Length " + std::to_string(strokes.size()) + " >>\nstream\n" + strokes + "\nendstream",
        "<< /Producer (Verlink) >>"};
    std::string file = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n", places;
    int number = 0;
    for (const std::string& object : objects) {
        std::array<char, 32> place;
        std::snprintf(place.data(), place.size(), "%010zu 00000 n \n", file.size());
        places += place.data();
        file += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const std::string count = std::to_string(number + 1);
    const std::string table = std::to_string(file.size());
    return file + "xref\n0 " + count + "\n0000000000 65535 f \n" + places + "trailer\n<< /Size " + count +
           " /Root 1 0 R /Info 5 0 R >>\nstartxref\n" + table + "\n%%EOF\n";
}

}  // namespace verlink
