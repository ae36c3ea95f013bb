// Plots of up to four functions against time, crank angle or harmonic number.
#pragma once

#include "platform/graph.h"
#include "platform/screen.h"

namespace verlink {

// The annotated family: graphs `grf_Plot` of the screen; captions come from the selection screen's labels.

/// Titles, ticks and fonts of the first `windows` graphs.
void Plot_Setup(platform::Screen& screen, int windows);
/// Ticks, labels, fonts and the title of the x axis of one graph, by the run.
void Set_Up_Axes(platform::Graph& graph);
/// All functions in one graph, over the steps of the run or the harmonics of a transform.
void MultiPlot(platform::Screen& screen, platform::Screen& selectionScreen, int window = 0);
/// One function in each graph, over the steps of the run or the harmonics of a transform.
void Plot(platform::Screen& screen, platform::Screen& selectionScreen, int windows);

// The aligned family: picture boxes `pct_Plot` of the screen.

/// Header, bottom titles and panels.
void MyPlotSetup(platform::Screen& screen, int windows);
/// One function in each of 2 or 4 windows, over the crank angle; half the window's height is the function's largest
/// magnitude. A window that cannot be scaled is left empty, and its numbers are shown all the same.
void MyPlot(platform::Screen& screen, platform::Screen& selectionScreen, int windows);

}  // namespace verlink
