// How a magnifier moves and how far.
#include "platform/glass.h"

#include <algorithm>
#include <cmath>

namespace verlink::platform {

namespace {

/// What was drawn beside the window may be looked at too.
double Kept(double part) { return std::clamp(part, -0.5, 1.5); }

}  // namespace

Glass Zoomed(const Glass& glass, double by, double seen_across, double seen_down) {
    Glass zoomed = glass;
    zoomed.factor = std::clamp(glass.factor * by, kLeastGlass, kMostGlass);
    // Back at the whole picture, but for roundings, it is just that.
    if (std::fabs(zoomed.factor - 1) < 1e-9) zoomed.factor = 1;
    zoomed.across = Kept(glass.Part_Across(seen_across) - (seen_across - 0.5) / zoomed.factor);
    zoomed.down = Kept(glass.Part_Down(seen_down) - (seen_down - 0.5) / zoomed.factor);
    return zoomed;
}

Glass Moved(const Glass& glass, double right, double below) {
    return {glass.factor, Kept(glass.across - right / glass.factor), Kept(glass.down - below / glass.factor)};
}

}  // namespace verlink::platform
