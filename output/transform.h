// The discrete Fourier transform of an output function, and its graphs.
#pragma once

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

/// Transforms the function of slot 1 over samples 1 to N (sample 0 is not used) into `DFTTable` and `FFTResult`:
/// index 0 the mean, each higher harmonic doubled, phase included. Running sums below `DFTSmall` are cut to 0.
void Do_DFT(Integer& N);

void FFT_Plot_Setup(platform::Screen& screen);
void FFT_Plot(platform::Screen& screen);

}  // namespace verlink
