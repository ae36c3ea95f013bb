// Burmester's curves of a task of four positions: drawn, picked on, and the linkages that a picked link admits.
#pragma once

#include <optional>
#include <vector>

#include "design/search.h"
#include "platform/surface.h"

namespace verlink::design {

/// Pieces without gaps; of each dyad the fixed pivot lies on the centre point curve and the moving one, with the body
/// in position 1, on the circle point curve.
using Curves = std::vector<std::vector<Dyad>>;
enum class Curve { kCentres, kCirclePoints };

/// Empty but for four positions in which nothing is wrong.
Curves Curves_Of(const Task& task);

/// Cut to the window that is seen.
void Draw_Curve(platform::Surface& surface, const Curves& curves, Curve which, const Box& seen);

/// The exact dyad whose pivot lies nearest on that curve, within a reach; none beyond.
std::optional<Dyad> Nearest_Dyad(const Curves& curves, Curve which, Point at, double reach);

/// The linkages that have this link as one of their sides, paired with dyads all along the curves; as `Find` gives
/// them, the best first, without neighbours, twins of another crank as linkages of their own.
Found Find_With(const Task& task, const Curves& curves, const Dyad& dyad, std::size_t best);

}  // namespace verlink::design
