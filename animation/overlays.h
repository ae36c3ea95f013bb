// What the view menu lays over the picture of a linkage.
#pragma once

#include "core/linkage_model.h"
#include "platform/overlay.h"

namespace verlink {

/// What is to be seen.
struct View_Wishes {
    bool poles = false, velocities = false, accelerations = false, pin_forces = false, shaking_force = false;
    bool curvature = false, grid = false, names = false, ghosts = false;

    bool Any() const {
        return poles || velocities || accelerations || pin_forces || shaking_force || curvature || grid || names ||
               ghosts;
    }
};

/// What goes by the run as a whole, and by the window: found once for all its frames.
struct Overlay_Scales {
    /// Shown units in one of the world's; 0 where nothing moves, or nothing pulls, in the whole run.
    double velocity = 0, acceleration = 0, pin_force = 0, shaking_force = 0;
    /// Where the joints come least.
    platform::Overlay::Corner legend = platform::Overlay::Corner::kTopLeft;
    int first = 0, last = -1;  ///< the positions at both ends that close
};
/// For the run in the table and the window that it is drawn in.
Overlay_Scales Find_Scales(const LinkageModel& model, const View_Wishes& wishes);

/// What lies over the picture at a step of the run, in coordinates as the drawing has them. Of a position that does not
/// close there is nothing but the grid. Arrows are in the units of the table; forces are those of the last solve, and
/// the legend says so where there is none.
platform::Overlay Overlay_At(const LinkageModel& model, int step, const View_Wishes& wishes,
                             const Overlay_Scales& scales);

}  // namespace verlink
