// Positions of a run in pairs, as any machine solves them.
#include "core/look_ahead.h"

namespace verlink::ahead {

bool Solve_By_Pairs(const Run& run, int step, const double* theta2, const double* omega2) {
    return Solve_All<Pair>(run, step, theta2, omega2);
}

}  // namespace verlink::ahead
