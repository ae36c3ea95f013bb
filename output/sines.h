// Sines and cosines of many angles at once.
#pragma once

#include <span>

namespace verlink {

/// The sine and the cosine of each angle, radians. The three spans have one length. At most a few units in the last
/// place of a double away from the scalar functions, since several angles are computed at once where the machine
/// can; the same input gives the same output on the same machine.
void Sines_And_Cosines(std::span<const double> angles, std::span<double> sines, std::span<double> cosines);

}  // namespace verlink
