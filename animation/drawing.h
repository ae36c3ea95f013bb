// The linkage, its pivots, axes and curves, drawn on the surface of a screen's `Picture1`.
#pragma once

#include "platform/screen.h"

namespace verlink {

// World coordinates are global; y is drawn at `FlipSum` - y. None of these changes the model but for the start of
// the coupler curve.

/// The moving parts at a step, in `PenColor`, with the overlays of mass centres and balance weights when their
/// results exist.
void Drawsub(int step, platform::Screen& form);
void Axes(platform::Screen& form);
void Drawpivots(platform::Screen& form);
/// A line for angle steps, dots for time steps and driven runs, in pieces where positions do not close.
void DrawCouplerCurve(platform::Screen& form);
/// The coupler lines: through the coupler point at each step, at `LineAngle` to the coupler.
void DrawCentrodeCurves(platform::Screen& form);
/// One point of the fixed and one of the moving centrode, unless the fixed one is far outside the window.
void PlotCentrodeCircles(int step, platform::Screen& form);

}  // namespace verlink
