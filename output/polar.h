// A vector function as a locus about the origin.
#pragma once

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

/// Clears the picture, and takes panels, header and `PolarMode` from the model and the boxes; with neither box set the
/// mode stays.
void MyPolarPlotSetup(platform::Screen& screen);
/// The vector of slot 1 over the whole run, drawn by `PolarMode`. A transform is refused with a message.
void MyPolarPlot(platform::Screen& screen, platform::Screen& selectionScreen);
/// One vector of the present plot alone, with its values.
void MyPolarStep(platform::Screen& screen, Integer step);

}  // namespace verlink
