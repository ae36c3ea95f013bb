// A vector function as a locus about the origin.
#pragma once

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

void MyPolarPlotSetup(platform::Screen& screen);
void MyPolarPlot(platform::Screen& screen, platform::Screen& selectionScreen);
/// One vector, with its values.
void MyPolarStep(platform::Screen& screen, Integer step);

}  // namespace verlink
