// Links as lines, pivots as pins, a cloud as dots.
#include "study/drawing.h"

#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "platform/overlay.h"

namespace verlink::study {

namespace {

using platform::Color;
using platform::Surface;

constexpr Color Rgb(int red, int green, int blue) { return red + 256 * (green + 256 * blue); }
constexpr Color kCurve = Rgb(0, 255, 0), kLinks = Rgb(255, 0, 255), kGround = Rgb(0, 0, 255),
                kGhost = Rgb(195, 195, 205), kDot = Rgb(215, 110, 20), kModel = Rgb(0, 0, 0), kPicked = Rgb(0, 90, 160);

void Line(Surface& surface, Spot from, Spot to, Color color) {
    surface.Line(from.real(), from.imag(), to.real(), to.imag(), color);
}

Spot Drawn_At(const Cloud_Point& point, Spot nominal, double enlarged) {
    return nominal + (Spot(point.x, point.y) - nominal) * enlarged;
}

}  // namespace

Mechanism::Mechanism(Design design) {
    Motion motion;
    motion.Solve(design, Wanted::kPoints);
    const Spot turn = std::polar(1.0, design.Link1Angle * kDegToRad);
    const Spot O4 = turn * (design.L1 * design.shown);
    const RunResults& table = motion.Table();
    for (int step = 0; step <= motion.Last(); ++step) {
        const auto place = [&](int row) {
            return Spot(table.PointXY(step, row, 0), table.PointXY(step, row, 1)) * turn;
        };
        const bool closed = motion.Closed(step);
        poses_.push_back(closed ? std::optional(Joints{0, O4, place(0), place(1), place(2)}) : std::nullopt);
        crank_.push_back(closed ? double{table.Theta(step, 0)} : 0);
    }
}

bool Mechanism::Closes() const {
    return std::ranges::any_of(poses_, [](const std::optional<Joints>& pose) { return pose.has_value(); });
}

Window Window_Of(const Mechanism& mechanism) {
    constexpr double kAir = 1.2;
    if (!mechanism.Closes()) return {};
    double left = 0, right = 0, low = 0, high = 0;
    for (int step = 0; step <= mechanism.Last(); ++step) {
        if (const auto& joints = mechanism.At(step))
            for (const Spot spot : {joints->O4, joints->A, joints->B, joints->P}) {
                left = std::min(left, spot.real());
                right = std::max(right, spot.real());
                low = std::min(low, spot.imag());
                high = std::max(high, spot.imag());
            }
    }
    const Spot middle((left + right) / 2, (low + high) / 2);
    const double side = std::max({right - left, high - low, 1e-6}) * kAir / 2;
    return {middle - Spot(side, side), middle + Spot(side, side)};
}

void Draw_Mechanism(Surface& surface, const Mechanism& mechanism, int step, const Window& window, bool ghost) {
    const auto color = [ghost](Color own) { return ghost ? kGhost : own; };
    for (int i = 1; i <= mechanism.Last(); ++i)
        if (mechanism.At(i - 1) && mechanism.At(i))
            Line(surface, mechanism.At(i - 1)->P, mechanism.At(i)->P, color(kCurve));
    if (step > mechanism.Last() || !mechanism.At(step)) return;
    const Joints& joints = *mechanism.At(step);
    const double pin = 0.009 * window.Side();
    const Color links = color(kLinks), ground = color(kGround);
    Line(surface, joints.A, joints.B, links);
    Line(surface, joints.A, joints.P, links);
    Line(surface, joints.B, joints.P, links);
    Line(surface, joints.O2, joints.A, links);
    Line(surface, joints.O4, joints.B, links);
    for (const Spot spot : {joints.A, joints.B}) surface.Pin(spot.real(), spot.imag(), pin, links);
    for (const Spot spot : {joints.O2, joints.O4}) {
        surface.Pin(spot.real(), spot.imag(), pin, ground);
        surface.Pin(spot.real(), spot.imag(), 2 * pin, ground);
    }
}

double Enlargement(const std::vector<Cloud_Point>& cloud, Spot nominal, const Window& window) {
    constexpr double kSeen = 0.16;
    double farthest = 0;
    for (const Cloud_Point& point : cloud) farthest = std::max(farthest, std::abs(Spot(point.x, point.y) - nominal));
    const double wanted = kSeen * window.Side() / farthest;
    return std::isfinite(wanted) ? std::max(1.0, platform::Round_Down_1_2_5(wanted)) : 1;
}

void Draw_Cloud(Surface& surface, const std::vector<Cloud_Point>& cloud, Spot nominal, double enlarged,
                std::optional<Number> picked, const Window& window) {
    const double dot = 0.0022 * window.Side(), ring = 0.012 * window.Side();
    for (const Cloud_Point& point : cloud) {
        const Spot at = Drawn_At(point, nominal, enlarged);
        surface.Pin(at.real(), at.imag(), dot, kDot);
    }
    surface.Pin(nominal.real(), nominal.imag(), 3 * dot, kModel);
    for (const Cloud_Point& point : cloud) {
        if (point.linkage != picked) continue;
        const Spot at = Drawn_At(point, nominal, enlarged);
        surface.Pin(at.real(), at.imag(), ring, kPicked);
    }
}

std::optional<Number> Nearest_In(const std::vector<Cloud_Point>& cloud, Spot nominal, double enlarged, Spot place) {
    if (cloud.empty()) return std::nullopt;
    return std::ranges::min_element(
               cloud, {},
               [&](const Cloud_Point& point) { return std::abs(Drawn_At(point, nominal, enlarged) - place); })
        ->linkage;
}

}  // namespace verlink::study
