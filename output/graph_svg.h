// A graph as an SVG document, for where there is no display.
#pragma once

#include <string>

#include "platform/graph.h"

namespace verlink {

/// Titles, legends, axes with their ticks and labels, grid and curves of what the graph holds now; width and height
/// in pixels.
std::string Graph_Svg(const platform::Graph& graph, int width = 960, int height = 600);

}  // namespace verlink
