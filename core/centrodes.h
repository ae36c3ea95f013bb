// The paths of the pole of the coupler relative to the ground.
#pragma once

#include "core/number.h"

namespace verlink {

/// Fixed and moving centrode of `step` from the current position (Kennedy's theorem: crank and rocker meet in
/// instant centre 1-3); local frame, stored length units, the moving one on the coupler as it lies at step 0. A
/// vertical crank or rocker, or parallel ones, show a message and leave the fixed point unwritten. Its error is told
/// with that of `Calculate`.
void Centrodes(int step);

}  // namespace verlink
