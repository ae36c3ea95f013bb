// The closed-form solution of one position.
#pragma once

#include "core/lanes.h"
#include "core/number.h"
#include "core/steps_at_once.h"

namespace verlink {

/// Solves angles (Freudenstein's equation on the circuit of `CircuitSign`), speeds, accelerations, points, ratios
/// and centrodes at `Theta2Rad`, `Omega2`, `Alpha2`, and stores them in `RunTable` at `step`. Vectors are in the
/// local frame, `Theta` is global and wrapped by `ModuloMode`, lengths are in the shown unit. No memory between
/// steps but that of imported runs, whose first acceleration term holds the previous step's `Alpha2`. A position
/// that does not close goes to `Noconnect` with Result; one that fails is told and counts as not closed.
/// Measured against 40 digits (tests/core/reference_test.cpp), in units in the last place of a single of the largest
/// term that a result is made of: angles 3, points 8, speeds and centrodes 12, accelerations 32; where the sine of the
/// angle between links 3 and 4 is below 0.3, up to (0.3 / sine)^2 times that.
void Calculate(Integer step, Integer& Result);

/// Solves the positions of a run side by side, so many at a time, where nothing out of the ordinary happens.
class StepsAtOnce {
   public:
    static constexpr int kSteps = at_once::kSteps;

    /// For the linkage and the `Alpha2` of the record as they stand; to the same bits with any lanes that the machine
    /// has.
    explicit StepsAtOnce(Lanes lanes = Widest_Lanes());

    /// `Calculate` for steps `step` to `step` + 7, to the same bits, but for the fields of the current position, which
    /// stay. `motion` tells crank angle (local, radians) and speed of one step after the other, before they are
    /// rounded, and false where the run would end. False, with nothing touched, for what needs the care of a single
    /// solution: the first and the last step of a run, an imported run, a position that does not close, a message
    /// that is due, an overflow. After a failed try as many steps are left to single solutions.
    template <class Motion>
    bool Solve(int step, Motion motion) {
        if (!Is_Possible(step)) return false;
        double theta2[kSteps], omega2[kSteps];
        bool goes_on = true;
        for (int i = 0; i < kSteps && goes_on; ++i) goes_on = motion(theta2[i], omega2[i]);
        if (goes_on && Solve_All(step, theta2, omega2)) return true;
        resume_ = step + kSteps;
        return false;
    }

   private:
    bool Is_Possible(int step) const;
    bool Solve_All(int step, const double* theta2, const double* omega2);

    at_once::Run run_;
    at_once::Solver solve_;
    int resume_ = 1;
};

/// Multiplies points First to Last of the array at one step, both axes. False after a failure, which has been reported.
bool Scale_Positions(int step, double factor, int First, int Last);
bool Scale_Velocities(int step, double factor, int First, int Last);
bool Scale_Accelerations(int step, double factor, int First, int Last);

}  // namespace verlink
