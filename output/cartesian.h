// Plots of up to four functions against time, crank angle or harmonic number.
#pragma once

#include "platform/screen.h"

namespace verlink {

// The annotated family: graphs `grf_Plot` of the screen; captions come from the selection screen's labels.

/// Titles, ticks and fonts of the first `windows` graphs.
void Plot_Setup(platform::Screen& screen, int windows);
/// All functions in graph 0. `last` is the last index of the points.
void MultiPlot(platform::Screen& screen, platform::Screen& selectionScreen, int last);
/// One function in each graph.
void Plot(platform::Screen& screen, platform::Screen& selectionScreen, int windows);

// The aligned family: picture boxes `pct_Plot` of the screen.

void MyPlotSetup(platform::Screen& screen, int windows);
void MyPlot(platform::Screen& screen, platform::Screen& selectionScreen, int windows);

}  // namespace verlink
