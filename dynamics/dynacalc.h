// Inverse dynamics of a run: the forces and torques that its known motion takes.
#pragma once

#include <span>

#include "core/array.h"
#include "core/number.h"
#include "core/record/run_table.h"

namespace verlink {

/// For steps 0 to `NSteps` of the last run: pin forces, driving torque, shaking force and moment, by Newton's and
/// Euler's equations of the three moving links about their mass centres, nine unknowns to a step. `Mass` and
/// `Inertia` by link 2 to 4; `CG` by link, 0 distance as a link length, 1 angle in the link's frame in radians.
/// `LoadFlag` 0 takes the external forces, torques and friction of the record in, -1 leaves them out of the system;
/// rows 1 and 2 of `Torques` take them in either way. No weight. Angles and forces are relative to the ground link.
/// Also fills rows 3 to 5 of `VelXY` and rows 5 to 7 of `AccXY`, the mass centres, in the shown unit.
/// Fills `frm_Matrix` at step 0. A singular system is told with its step and ends the procedure; steps done stay.
/// Gives back whether all steps were solved.
bool Dynacalc(Integer LoadFlag, const Array<Single, 0, 4>& Mass, const Array<Single, 0, 4>& Inertia,
              const Table<Single, 0, 4, 2>& CG, ForceTable& Forces, TorqueTable& Torques);

/// `ExtForce3X` to `ExtForce4Y` from magnitudes and angles, which are what a model keeps.
void Resolve_Forces();

/// The 9 x 9 system, row by row, and its right side into the labels of `frm_Matrix`: `lbl_A1` to `lbl_A9`, a control
/// array for each row with an index 1 to 9 by column, and `lbl_B` 1 to 9. Grey where a value rounds to 0, else red.
void PrintAmatrix(std::span<const double> A, std::span<const double> C);

}  // namespace verlink
