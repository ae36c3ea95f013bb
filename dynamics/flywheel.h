// Pulses of the crank torque over a cycle, and the torque that a flywheel leaves.
#pragma once

#include <span>

#include "core/array.h"
#include "core/number.h"
#include "core/numeric.h"
#include "core/record/run_table.h"
#include "platform/screen.h"

namespace verlink {

struct LinkageModel;

/// Of each sign, in a cycle.
constexpr int kMostPulses = 10;

/// The coefficient of fluctuation where none was chosen.
constexpr double kUsualFluct = 0.05;

using PulseAreas = Array<Single, 0, kMostPulses>;

/// A run as a flywheel takes it.
struct FlywheelRun {
    FlywheelRun(LinkageModel& model);

    int last_step;
    Single step_size;               ///< radians
    const std::string& unit;        ///< of torque
    const TorqueTable& unbalanced;  ///< its row 0 is the driving torque
    StepArray<Single>& smoothed;    ///< `FlywheelTorque`
};

/// Pulses of row 0 of `Torque` about its average as a table on `pct_Pict1` of the screen, in the unit of torque times
/// radians, and `FlywheelTorque` from the unbalanced driving torque and that average. `Fluct` is the coefficient of
/// fluctuation.
void Fly(const FlywheelRun& run, platform::Screen& Form, Single Fluct, const TorqueTable& Torque);

// The method is the usual one for flywheels: areas of pulses about the mean torque, by trapezoids. The areas are those
// of the samples; how far they are from those of the curve depends on the steps, and is nowhere corrected.

/// `FlywheelTorque`: the unbalanced driving torque, its distance from the average of row 0 of `Torque` times `Fluct`.
void Smooth_Torque(const FlywheelRun& run, Single Fluct, const TorqueTable& Torque);

/// The same of a run with forces at some of its steps alone: the average of row 0 of `BalancedMoment` is over those up
/// to `last` that `solved` names, and all that it names are smoothed.
void Smooth_Solved_Steps(RunResults& table, int last, Single Fluct, std::span<const char> solved);

/// Areas between a function and its average from step `Start` to `End`, a pulse to an entry, by the trapezoid rule
/// from the second interval on; one pulse ends where the sign changes. `FirstSign` is that of the first pulse.
/// More than ten pulses of a sign are failure 9.
void Flywheel(const Element& Array, Integer Start, Integer End, Single StepSize, Single Average, PulseAreas& NegArea,
              PulseAreas& PosArea, Integer& PulseCount, Integer& FirstSign);

}  // namespace verlink
