// The closed-form solution of one position.
#pragma once

#include "core/number.h"

namespace verlink {

/// Solves angles (Freudenstein's equation on the circuit of `CircuitSign`), speeds, accelerations, points, ratios
/// and centrodes at `Theta2Rad`, `Omega2`, `Alpha2`, and stores them in `RunTable` at `step`. Vectors are in the
/// local frame, `Theta` is global and wrapped by `ModuloMode`, lengths are in the shown unit. No memory between
/// steps but that of imported runs, whose first acceleration term holds the previous step's `Alpha2`. A position
/// that does not close goes to `Noconnect` with Result; every one that closes sets `Calculated`.
void Calculate(Integer step, Integer& Result);

/// Multiplies points First to Last of the array at one step, both axes.
void Scale_Positions(int step, double factor, int First, int Last);
void Scale_Velocities(int step, double factor, int First, int Last);
void Scale_Accelerations(int step, double factor, int First, int Last);

}  // namespace verlink
