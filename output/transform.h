// The discrete Fourier transform of an output function, and its graphs.
#pragma once

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

/// Transforms the function of slot 1 over samples 1 to N (sample 0 is not used) into `DFTTable` and `FFTResult`:
/// index 0 the mean, each higher harmonic doubled, phase included. Running sums below `DFTSmall` are cut to 0.
/// By the plain double sum, within 4e-5 and 6e-6 of the largest sample of what 40 digits give
/// (tests/output/transform_reference_test.cpp). A failure is told; what the table holds then is of no use.
void Do_DFT(Integer& N);

void FFT_Plot_Setup(platform::Screen& screen);
void FFT_Plot(platform::Screen& screen);

}  // namespace verlink
