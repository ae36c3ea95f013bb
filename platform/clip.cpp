// A segment by Liang and Barsky; a circle by the angle under which its centre sees the box.
#include "platform/clip.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace verlink::platform {

namespace {

bool Finite(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

/// Narrows the part of the way from `start` along `along` that lies between two edges.
bool Narrow(double start, double along, double low, double high, double& first, double& last) {
    if (along == 0) return start >= low && start <= high;
    double in = (low - start) / along, out = (high - start) / along;
    if (in > out) std::swap(in, out);
    first = std::max(first, in);
    last = std::min(last, out);
    return first <= last;
}

}  // namespace

bool Clip_Segment(const ClipBox& box, Point& from, Point& to) {
    if (!Finite(from) || !Finite(to)) return false;
    if (box.Holds(from) && box.Holds(to)) return true;
    // Halves, since the distance of two numbers may be more than a number holds.
    const double along_x = to.x / 2 - from.x / 2, along_y = to.y / 2 - from.y / 2;
    double first = 0, last = 2;
    if (!Narrow(from.x, along_x, box.left, box.right, first, last) ||
        !Narrow(from.y, along_y, box.top, box.bottom, first, last))
        return false;
    const auto at = [&](double halves) {
        return Point{std::clamp(from.x + halves * along_x, box.left, box.right),
                     std::clamp(from.y + halves * along_y, box.top, box.bottom)};
    };
    if (last < 2) to = at(last);
    from = at(first);
    return true;
}

bool Circle_Seen(const ClipBox& box, Point centre, double radius) {
    if (!Finite(centre) || !std::isfinite(radius)) return false;
    const auto away = [](double value, double low, double high) { return std::max({low - value, 0.0, value - high}); };
    const auto far = [](double value, double low, double high) { return std::max(value - low, high - value); };
    const double nearest = std::hypot(away(centre.x, box.left, box.right), away(centre.y, box.top, box.bottom));
    const double farthest = std::hypot(far(centre.x, box.left, box.right), far(centre.y, box.top, box.bottom));
    return nearest <= radius && radius <= farthest;
}

std::vector<Point> Seen_Arc(const ClipBox& box, Point centre, double radius, double off) {
    if (!Circle_Seen(box, centre, radius) || radius == 0) return {};
    const Point middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    const double reach = std::hypot(box.right - box.left, box.bottom - box.top) / 2;
    const double x = middle.x - centre.x, y = middle.y - centre.y;
    const double away = std::hypot(x, y);
    // Where the way from the centre to the middle of the box meets the circle, and how far to both sides of that the
    // circle stays within reach of the middle.
    const Point out = away > 0 ? Point{x / away, y / away} : Point{1, 0};
    const double rest = radius - away;
    const Point foot{middle.x + rest * out.x, middle.y + rest * out.y};
    const double chord = (reach - rest) * (reach + rest) / (4 * radius * away);
    if (chord <= 0) return {};
    // Around the middle itself, or well within reach of it, that is all of it.
    const double half = 2 * std::asin(std::sqrt(std::min(1.0, chord)));
    const double step = std::sqrt(8 * off / radius);
    constexpr double kMostPoints = 4000;
    const int pieces = std::max(1, static_cast<int>(std::min(std::ceil(2 * half / step), kMostPoints)));
    std::vector<Point> arc(static_cast<std::size_t>(pieces) + 1);
    for (int i = 0; i <= pieces; ++i) {
        const double turn = half * (2.0 * i / pieces - 1);
        // From the foot, so that nothing is lost where the centre is far away.
        const double inward = 2 * radius * std::sin(turn / 2) * std::sin(turn / 2), aside = radius * std::sin(turn);
        arc[static_cast<std::size_t>(i)] = {foot.x - inward * out.x - aside * out.y,
                                            foot.y - inward * out.y + aside * out.x};
    }
    return arc;
}

}  // namespace verlink::platform
