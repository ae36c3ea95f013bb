// The balance of a run as its screen finds it, but from the model's own values.
#pragma once

#include <string>

namespace verlink {

/// After a solve: counterweights at half the lengths of their links, unrounded, and a flywheel that leaves 0.05 of the
/// torque's pulses. False when the run is of a kind that is not balanced, which has been told.
bool Balance();

/// What full balance takes of links 2 and 4, a header line and a row each: mass-radius product, its angle in the
/// link's frame in degrees, and the counterweight at half the link's length. Masses and lengths as the model stores
/// them. Nothing, after a message, when there is no such thing.
std::string Balance_Report();

}  // namespace verlink
