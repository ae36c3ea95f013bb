// The plot of functions of a run.
#pragma once

#include <string>
#include <vector>

#include "batch/options.h"

namespace verlink {

/// Up to four functions in one graph, as an SVG document.
std::string Plot_Svg(const std::vector<FunctionChoice>& choices, bool local);

}  // namespace verlink
