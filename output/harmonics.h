// The sums of a transform, several harmonics side by side.
#pragma once

#include <span>

#include "core/lanes.h"

namespace verlink {

/// The running sums of all harmonics k from 0 to N - 1, where N is the length of all spans:
///     re[k] = sum of x[n] cos(a) / N,  im[k] = -sum of x[n] sin(a) / N,  a = (k * two_pi) * n / N in double,
/// in the order of n. After each term a sum whose magnitude, rounded to a single, is below `small`, a single above 0,
/// starts again from 0. Sines and cosines are within 2 units in the last place of those of a; `two_pi` is within 1e-8
/// of the turn, N at most 2880.
struct HarmonicSums {
    std::span<const double> x;
    double two_pi;
    float small;
    std::span<double> re, im;
};

/// To the same bits with any lanes that the machine has.
void Sum_Harmonics(const HarmonicSums& sums, Lanes lanes = Widest_Lanes());

}  // namespace verlink
