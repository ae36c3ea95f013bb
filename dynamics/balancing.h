// Full balance of the shaking force by counterweights on links 2 and 4, after Berkof and Lowen.
#pragma once

#include <span>

#include "core/array.h"
#include "core/number.h"
#include "dynamics/dynacalc.h"

namespace verlink {

/// What balancing takes, and the counterweights that it finds.
struct Balancing {
    Balancing(LinkageModel& model);
    Balancing(const LoadedRun& loaded, int type, BalanceWeights& found) : run(loaded), calctype(type), weights(found) {}

    LoadedRun run;
    int calctype;
    BalanceWeights& weights;
};

/// `MRNeeded` and `MRAngle` of links 2 and 4 from the masses and mass centres of the model.
void Berkof_Setup(const Balancing& balancing);

/// The counterweights of links 2 and 4 that give this at half the length of their link; failure 11 for one without
/// length.
void Place_Weights(const Balancing& balancing);

/// Both. False after a failure, which has been reported.
bool Default_Weights(const Balancing& balancing);

/// Completes the counterweights, solves for them alone, and sums with the last solve into `BalancedForce` and
/// `BalancedMoment`; sets `BalanceDone`. A run of other than constant Omega2 is refused with a message, and its solve
/// has no first equations; the sums are made all the same.
ForceSolve Berkof_Calc(const Balancing& balancing, Array<Single, 0, 4>& BerkMass, Array<Single, 0, 4>& BerkRadius);

/// `BalancedForce` and `BalancedMoment` of a run whose closed steps were solved, with the counterweights of
/// `Default_Weights`: nobody is told, and a step that `solved` does not name, or that cannot be balanced, does not keep
/// the others from it; the latter is struck off. By the formulas of `Berkof_Calc` but for the solver's last place.
/// Failure 11 for a linkage without a link.
void Balance_Closed_Steps(const LoadedRun& run, std::span<char> solved);

}  // namespace verlink
