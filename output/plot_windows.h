// Windows, axes and tic marks of the plots that the program draws for itself, and the grid style of graphs.
#pragma once

#include <string>

#include "core/numeric.h"
#include "platform/screen.h"

namespace verlink {

// Surfaces are the screen's `pct_Plot`(i); y grows upward, in the function's unit; x is in that of the x axis.

/// `GridStyle` and `GraphStyle` of the first graphs `grf_Plot` from the screen's check boxes.
void SetGridstyle(platform::Screen& screen, int GraphWindows);

/// Scales window i for a half height of ymax (0 becomes 0.0001) and x from xmin to xmax, with the margins for 2 or 4
/// windows; mid is the sum of top and bottom. When the surface cannot take the scale a message names the function,
/// and `WindowFailed` is set.
void SetWindow(platform::Screen& screen, int i, Single& ymax, Single xmin, Single xmax, const std::string& name,
               Single& mid, int windows);
void SetPolarWindow(platform::Screen& screen, int i, Single& ymax, const std::string& name, Single& mid);

void CartesianAxes(platform::Screen& screen, int i, Single ymax, Single xmin, Single xmax);
void PolarAxes(platform::Screen& screen, int i, Single r);
void XticMarks(platform::Screen& screen, int i, Single ymax, Single xmin, Single xmax);
void YticMarks(platform::Screen& screen, int i, Single ymax, int n, Single xmin, Single xmax);
void PolarTicmarks(platform::Screen& screen, int i, Single r, int n);
void Vertical_lines(platform::Screen& screen, int i, Single ymax, Single xmin, Single xmax);

/// Decimals of the numbers along an axis of that half height: none from 100 up, 1 from 10, 2 from 1, else 3.
int Decimals_Of(Single ymax);

/// The largest magnitude from first to last.
void CartesianMax(const Element& arr, int first, int last, Single& ymax);

}  // namespace verlink
