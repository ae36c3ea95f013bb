// Inverse dynamics of a run: the forces and torques that its known motion takes.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "core/array.h"
#include "core/number.h"
#include "core/record/geometry.h"
#include "core/record/mass.h"
#include "core/record/run_table.h"

namespace verlink {

struct LinkageModel;

/// A run as a solve takes it: the linkage, what loads it, and its motion, to which that of the mass centres is added.
struct LoadedRun {
    LoadedRun(LinkageModel& model);
    /// One that no record has: `shown` as below, the loads with their components.
    LoadedRun(const Geometry& geometry, const MassProperties& masses, int last, double shown_factor,
              RunResults& results)
        : linkage(geometry),
          loads(masses),
          torque_imported(false),
          last_step(last),
          shown(shown_factor),
          table(results) {}

    const Geometry& linkage;
    const MassProperties& loads;
    bool torque_imported;  ///< the torque on link 4 follows the imported table, step by step
    int last_step;
    double shown;  ///< factor between a stored length and a shown one
    RunResults& table;
};

/// The system of nine equations of a position, as it stands before it is solved.
struct ForceEquations {
    std::array<double, 81> A{};  ///< row by row, the equation first
    std::array<double, 9> C{};   ///< right side
};

/// What a solve tells beside its tables.
struct ForceSolve {
    bool solved = false;                  ///< all steps
    std::optional<ForceEquations> first;  ///< of step 0; none where that was not reached
    explicit operator bool() const { return solved; }
};

/// For steps 0 to `last_step` of the run: pin forces, driving torque, shaking force and moment, by Newton's and
/// Euler's equations of the three moving links about their mass centres, nine unknowns to a step. `Mass` and
/// `Inertia` by link 2 to 4; `CG` by link, 0 distance as a link length, 1 angle in the link's frame in radians.
/// `LoadFlag` 0 takes the external forces, torques and friction of the run in, -1 leaves them out of the system;
/// rows 1 and 2 of `Torques` take them in either way. No weight. Angles and forces are relative to the ground link.
/// Also fills rows 3 to 5 of `VelXY` and rows 5 to 7 of `AccXY`, the mass centres, in the shown unit.
/// Measured against 40 digits (tests/dynamics/reference_test.cpp): 12 units in the last place of a single of the sum of
/// the pin forces, that times the longest link for torques; where the sine of the angle between links 3 and 4 is below
/// 0.3, up to (0.3 / sine)^3 times that.
/// A singular system is told with its step and ends the procedure, as a failure does: steps done stay, and what an
/// earlier solve had in the others is zeroed.
ForceSolve Dynacalc(const LoadedRun& run, Integer LoadFlag, const Array<Single, 0, 4>& Mass,
                    const Array<Single, 0, 4>& Inertia, const Table<Single, 0, 4, 2>& CG, ForceTable& Forces,
                    TorqueTable& Torques);

/// The closed steps of a run under its own masses and loads, into `PinForce` and `LinkTorque` of its table; nobody is
/// told, and a step that cannot be solved does not keep the others from it. The equations are those of `Dynacalc`, with
/// the pin of links 3 and 4 found first, from the moments of both about their other pins, and the rest link by link:
/// what single precision holds is the same but for the last place. By step, `solved` tells where there was a solution.
void Solve_Closed_Steps(const LoadedRun& run, std::span<char> solved);

/// The same for counterweights alone, into `BerkForce` and `BerkTorque`, at the steps that `solved` names; where it
/// cannot be done the step is struck off. The motion of the mass centres stays that of the run's own masses.
void Solve_Closed_Steps(const LoadedRun& run, const BalanceWeights& weights, std::span<char> solved);

/// `ExtForce3X` to `ExtForce4Y` from magnitudes and angles, which are what a model keeps.
void Resolve_Forces(MassProperties& loads);

/// The model's own masses under its own loads, into `PinForce` and `LinkTorque`. The forces hold, also where the solve
/// stopped half-way: from there on they are 0.
ForceSolve Solve_Forces(LinkageModel& model);

}  // namespace verlink
