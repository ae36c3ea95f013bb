// The linkage at a position of its run as a drawing for CAD programs and cutters.
#pragma once

#include <string>

#include "core/linkage_model.h"

namespace verlink {

/// In the global frame with O2 at the origin. Layers LINK_1 to LINK_4 with the links at `step`, PIVOTS with circles
/// around O2, O4, A and B, COUPLER_POINT, COUPLER_CURVE with a polyline for each stretch of the run that closes,
/// FIXED_CENTRODE and MOVING_CENTRODE likewise, the latter on the coupler as it lies at step 0, and POLES with I13 and
/// I24. Centrodes are left out where they are farther away than ten times all links together, poles likewise; so are
/// the moving links where the position does not close. The run is that of the table.
std::string Linkage_Dxf(const LinkageModel& model, int step);

}  // namespace verlink
