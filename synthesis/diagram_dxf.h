// The diagrams of cognates and dyads as drawings for CAD programs and cutters.
#pragma once

#include <string>

#include "core/linkage_model.h"
#include "synthesis/dyad_diagram.h"

namespace verlink {

/// Cayley's diagram as it is laid out on its screen, with O2 at the origin and the ground line of the first linkage
/// along x: layers COGNATE_1 to COGNATE_3 with the links of each, PIVOTS with circles around O2, O4, O6 and the moving
/// joints, COUPLER_POINT.
std::string Cayley_Dxf(const LinkageModel& model);

/// Two dyads in their positions, the coupler point of position 1 at P1 where pivots were specified, else at the
/// origin: layers LEFT_DYAD and RIGHT_DYAD
/// with a path from the pivot to the coupler point for each position, COUPLER with a line between the moving pins,
/// LINK_1, PIVOTS with circles around fixed pivots and moving pins, COUPLER_POINT.
std::string Dyads_Dxf(const LinkageModel& model, const DyadFigure& figure);

}  // namespace verlink
