// Linkages found, drawn: one on a surface, and many as a page.
#pragma once

#include <string>

#include "design/search.h"
#include "platform/surface.h"

namespace verlink::design {

/// What a linkage and the task's positions take of the plane, made square with a margin.
Box Seen_Of(const Task& task, const Solution& solution);

/// What the positions alone take of it.
Box Seen_Of(const Task& task);
/// How long a body is drawn in such a window: a leg along its angle, and half of that across.
double Body_Size(const Box& seen);
/// The body at each position.
void Draw_Positions(platform::Surface& surface, const Task& task, const Box& seen);

/// The coupler curve over the stroke, the body at each position, the linkage at each of them thin, and at a part of the
/// stroke (0 at the first position, 1 at the last) thick. The window of the surface is the caller's.
void Draw_Solution(platform::Surface& surface, const Task& task, const Solution& solution, double part);
/// The same in a window that shows another part of the plane.
void Draw_Solution(platform::Surface& surface, const Task& task, const Solution& solution, double part,
                   const Box& seen);

/// All solutions in rows, each in a window of its own with rank, class, transmission angle and size; an SVG document.
std::string Gallery_Svg(const Task& task, const Found& found);

}  // namespace verlink::design
