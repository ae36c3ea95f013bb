// Positions of a run in fours; built for machines with AVX2, and called on them alone.
#include <cmath>

#include "core/steps_at_once.h"

namespace verlink::at_once {

#ifdef __AVX2__
namespace {

/// No angle is further from these than a few turns.
bool Is_Moderate(double angle) { return std::abs(angle) < kTrigonometryLimit / 2; }

bool Solve_By_Fours(const Run& run, int step, const double* theta2, const double* omega2) {
    bool moderate = Is_Moderate(run.shape.DeltaRad);
    for (int i = 0; i < kSteps; ++i) moderate = moderate && Is_Moderate(theta2[i]);
    return moderate && Solve_All<Quad>(run, step, theta2, omega2);
}

}  // namespace

const Solver kSolveByFours = Solve_By_Fours;
#else
const Solver kSolveByFours = nullptr;
#endif

}  // namespace verlink::at_once
