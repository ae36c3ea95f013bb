// What of a line or of a circle lies within a rectangle, however far it reaches.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace verlink::platform {

struct Point {
    double x, y;
    bool operator==(const Point&) const = default;
};

/// Edges in any unit, `left` below `right` and `top` below `bottom`.
struct ClipBox {
    double left, top, right, bottom;
    bool Holds(Point p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
    /// By so much on each side.
    ClipBox Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
    /// The area that two of them have in common.
    double Shared(const ClipBox& other) const {
        const double wide = std::min(right, other.right) - std::max(left, other.left);
        const double high = std::min(bottom, other.bottom) - std::max(top, other.top);
        return std::max(0.0, wide) * std::max(0.0, high);
    }
};

/// Cuts a segment to what lies in the box. False, with the points as they were, when nothing does, and for points that
/// are not finite. Ends within the box keep their bits.
bool Clip_Segment(const ClipBox& box, Point& from, Point& to);

/// Whether any of the line of a circle lies in the box; not for one that is not finite.
bool Circle_Seen(const ClipBox& box, Point centre, double radius);

/// The arc of a circle around what is seen of it, as points that are nowhere further than `off` from it; none when
/// nothing is seen. Good for circles of any size: near the box a vast one is its tangent.
std::vector<Point> Seen_Arc(const ClipBox& box, Point centre, double radius, double off);

/// Calls `action(from, to)` for each piece of such an arc.
template <class Action>
void Each_Piece(const std::vector<Point>& arc, Action action) {
    for (std::size_t i = 1; i < arc.size(); ++i) action(arc[i - 1], arc[i]);
}

}  // namespace verlink::platform
