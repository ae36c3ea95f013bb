// Full balance of the shaking force by counterweights on links 2 and 4, after Berkof and Lowen.
#pragma once

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// `MRNeeded` and `MRAngle` of links 2 and 4 from the masses and mass centres of the record.
void Berkof_Setup();

/// The same, and the counterweights of links 2 and 4 that give it at half the length of their link. False after a
/// failure, which has been reported.
bool Default_Weights();

/// Completes the counterweights in the record, solves for them alone, and sums with the last solve into
/// `BalancedForce` and `BalancedMoment`; sets `BalanceDone`. A run of other than constant Omega2 is refused with a
/// message; the sums are made all the same.
void Berkof_Calc(Array<Single, 0, 4>& BerkMass, Array<Single, 0, 4>& BerkRadius);

}  // namespace verlink
