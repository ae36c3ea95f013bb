// Positions of a run in fours; built for machines with AVX2, and called on them alone.
#include <algorithm>
#include <cmath>

#include "core/steps_at_once.h"

namespace verlink::at_once {

#ifdef __AVX2__
namespace {

/// No angle is further from these than a few turns.
bool Is_Moderate(double angle) { return std::abs(angle) < kTrigonometryLimit / 2; }

bool Solve_By_Fours(const Run& run, int step, const double* theta2, const double* omega2) {
    return Is_Moderate(run.shape.DeltaRad) && std::all_of(theta2, theta2 + kSteps, Is_Moderate) &&
           Solve_All<Quad>(run, step, theta2, omega2);
}

}  // namespace

const Solver kSolveByFours = Solve_By_Fours;
#else
const Solver kSolveByFours = nullptr;
#endif

}  // namespace verlink::at_once
