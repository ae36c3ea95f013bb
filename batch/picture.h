// The picture of a run.
#pragma once

#include <string>

namespace verlink {

/// The linkage at step 0 with its coupler curve, pivots and axes, as an SVG document of 700 by 700 pixels; without
/// the linkage when step 0 does not close.
std::string Picture_Svg();

}  // namespace verlink
