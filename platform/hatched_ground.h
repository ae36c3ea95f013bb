// A ground pivot as it is drawn: a triangle under its pin, upon hatched ground.
#pragma once

#include <array>

#include "platform/clip.h"

namespace verlink::platform {

struct Ground_Stroke {
    Point from, to;
};

/// The strokes of one of size 1, from the pin, y downward as on the screen.
inline constexpr std::array<Ground_Stroke, 9> kHatchedGround{{
    {{0, 0}, {-0.8, 1.5}},
    {{0, 0}, {0.8, 1.5}},
    {{-1.2, 1.5}, {1.2, 1.5}},
    {{-1.2, 1.5}, {-1.55, 1.95}},
    {{-0.72, 1.5}, {-1.07, 1.95}},
    {{-0.24, 1.5}, {-0.59, 1.95}},
    {{0.24, 1.5}, {-0.11, 1.95}},
    {{0.72, 1.5}, {0.37, 1.95}},
    {{1.2, 1.5}, {0.85, 1.95}},
}};

/// Calls line(from, to) for each stroke of one of a size at a place.
template <class Line>
void Each_Ground_Stroke(Point at, double size, Line line) {
    for (const Ground_Stroke& stroke : kHatchedGround)
        line(Point{at.x + stroke.from.x * size, at.y + stroke.from.y * size},
             Point{at.x + stroke.to.x * size, at.y + stroke.to.y * size});
}

}  // namespace verlink::platform
