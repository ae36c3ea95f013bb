// How a linkage found is drawn.
#include "design/drawing.h"

#include <algorithm>

#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/shown_length.h"
#include "platform/picture.h"

namespace verlink::design {

namespace {

using platform::Color;
using platform::Rgb;
using platform::Surface;

constexpr Color kCurve = Rgb(160, 160, 160), kGhost = Rgb(190, 205, 225), kBody = Rgb(200, 120, 40),
                kCrank = Rgb(200, 40, 40), kCoupler = Rgb(30, 90, 180), kOther = Rgb(30, 130, 60),
                kGround = Rgb(40, 40, 40);

struct Links_Colors {
    Color crank, coupler, other;
};

void Line(Surface& surface, Point from, Point to, Color color) {
    surface.Line(from.real(), from.imag(), to.real(), to.imag(), color);
}

void Draw_Linkage(Surface& surface, const FourBar& linkage, const Pose& pose, const Links_Colors& colors) {
    Line(surface, pose.A, pose.B, colors.coupler);
    Line(surface, pose.A, pose.P, colors.coupler);
    Line(surface, pose.B, pose.P, colors.coupler);
    Line(surface, linkage.crank.fixed, pose.A, colors.crank);
    Line(surface, linkage.other.fixed, pose.B, colors.other);
}

/// A corner with its long leg along the body's direction.
void Draw_Body(Surface& surface, const Place& place, double size) {
    const Point along = std::polar(size, place.angle * kDegree);
    Line(surface, place.at, place.at + along, kBody);
    Line(surface, place.at, place.at + Left_Of(along) / 2.0, kBody);
}

double Turn_At(const Task& task, const Judgement& judgement, double part) {
    return (judgement.crank[task.positions.size() - 1] - judgement.crank[0]) * part;
}

std::string Text(double x, double y, const std::string& words, bool bold) {
    return "<text x=\"" + Text_Of(x) + "\" y=\"" + Text_Of(y) + "\"" + (bold ? " font-weight=\"bold\"" : "") + ">" +
           words + "</text>\n";
}

/// What is drawn, without the document around it: not every program shows a document within a document.
std::string Inside_Of(const std::string& svg) {
    const auto begin = svg.find(">\n") + 2;
    return svg.substr(begin, svg.rfind("</svg>") - begin);
}

}  // namespace

namespace {

/// Square, with a margin.
Box Seen_With(const Task& task, Box box, double margin) {
    auto [low, high] = box;
    for (const Place& place : Absolute_Positions(task)) {
        low = {std::min(low.real(), place.at.real()), std::min(low.imag(), place.at.imag())};
        high = {std::max(high.real(), place.at.real()), std::max(high.imag(), place.at.imag())};
    }
    const double half =
        std::max({high.real() - low.real(), high.imag() - low.imag(), 1e-9 * Span_Of(task)}) * (0.5 + margin);
    const Point middle = (low + high) / 2.0;
    return {middle - Point(half, half), middle + Point(half, half)};
}

}  // namespace

Box Seen_Of(const Task& task, const Solution& solution) {
    constexpr double kMargin = 0.08;
    return Seen_With(task, solution.judgement.room, kMargin);
}

Box Seen_Of(const Task& task) {
    constexpr double kMargin = 0.4;
    const Point first = Absolute_Positions(task).front().at;
    return Seen_With(task, {first, first}, kMargin);
}

double Body_Size(const Box& seen) {
    constexpr double kPart = 0.08;
    return kPart * (seen.high.real() - seen.low.real());
}

void Draw_Positions(Surface& surface, const Task& task, const Box& seen) {
    for (const Place& place : Absolute_Positions(task)) Draw_Body(surface, place, Body_Size(seen));
}

void Draw_Solution(Surface& surface, const Task& task, const Solution& solution, double part) {
    Draw_Solution(surface, task, solution, part, Seen_Of(task, solution));
}

void Draw_Solution(Surface& surface, const Task& task, const Solution& solution, double part, const Box& seen) {
    constexpr int kSteps = 120;
    constexpr double kPin = 0.012;
    const FourBar& linkage = solution.linkage;
    const Judgement& judgement = solution.judgement;
    const double side = seen.high.real() - seen.low.real();
    const auto pose = [&](double at) { return Pose_Of(linkage, judgement.open, Turn_At(task, judgement, at)); };
    std::optional<Pose> before = pose(0);
    for (int i = 1; i <= kSteps; ++i) {
        const auto now = pose(static_cast<double>(i) / kSteps);
        if (before && now) Line(surface, before->P, now->P, kCurve);
        before = now;
    }
    // By its dyads, so that one that jumps between positions is seen in each of them.
    for (const Carried& carried : Carried_Through(Absolute_Positions(task)))
        Draw_Linkage(surface, linkage,
                     {carried.Of(linkage.crank.moving), carried.Of(linkage.other.moving), carried.Of(linkage.coupler)},
                     {kGhost, kGhost, kGhost});
    Draw_Positions(surface, task, seen);
    Line(surface, linkage.crank.fixed, linkage.other.fixed, kGround);
    const auto shown = pose(part);
    if (!shown) return;
    Draw_Linkage(surface, linkage, *shown, {kCrank, kCoupler, kOther});
    for (const Point pin : {linkage.crank.fixed, linkage.other.fixed, shown->A, shown->B, shown->P})
        surface.Pin(pin.real(), pin.imag(), kPin * side, kGround);
}

std::string Gallery_Svg(const Task& task, const Found& found) {
    constexpr int kColumns = 4, kSide = 280, kCaption = 56, kGap = 16;
    const int count = static_cast<int>(found.solutions.size());
    const int rows = std::max(1, (count + kColumns - 1) / kColumns);
    const std::string wide = Text_Of(kGap + kColumns * (kSide + kGap));
    const std::string high = Text_Of(kGap + rows * (kSide + kCaption + kGap));
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + wide + "\" height=\"" + high +
                      "\" font-family=\"sans-serif\" font-size=\"12\" fill=\"#222222\">\n<rect width=\"" + wide +
                      "\" height=\"" + high + "\" fill=\"#ffffff\"/>\n";
    for (int i = 0; i < count; ++i) {
        const Solution& solution = found.solutions[static_cast<std::size_t>(i)];
        const int x = kGap + i % kColumns * (kSide + kGap), y = kGap + i / kColumns * (kSide + kCaption + kGap);
        platform::Picture picture;
        const Box seen = Seen_Of(task, solution);
        picture.Scale(seen.low.real(), seen.high.imag(), seen.high.real(), seen.low.imag());
        Draw_Solution(picture, task, solution, 0);
        svg += "<g transform=\"translate(" + Text_Of(x) + " " + Text_Of(y) + ")\">\n" + Inside_Of(picture.Svg(kSide));
        const Judgement& j = solution.judgement;
        svg += Text(0, kSide + 16, Text_Of(i + 1) + "  " + Words_Of(j.kind), true);
        const ShownLength shown = Shown_Length(task.units);
        svg += Text(
            0, kSide + 32,
            "score " + Text_Of(FNRound(j.score, 1)) + ", transmission " + Text_Of(FNRound(j.transmission, 1)) + " deg",
            false);
        svg += Text(0, kSide + 48,
                    "room " + Text_Of(FNRound(Distance(j.room.low, j.room.high), shown.decimals)) + " " + shown.unit,
                    false);
        svg += "</g>\n";
    }
    return svg + "</svg>\n";
}

}  // namespace verlink::design
