// Calculation runs: `Calculate` over the steps of the chosen mode.
#pragma once

#include "core/number.h"
#include "core/record/drive.h"

namespace verlink {

struct LinkageModel;

/// A run's result code: the answer to the message about a position that does not close. Runs start at 4.
inline constexpr int kAborted = 3;
inline constexpr int kRetrying = 4;
inline constexpr int kIgnoring = 5;

// Every run drops what is known of the one before, and holds when it was made to its end and closes somewhere.

/// Classifies the linkage and runs mode 1, 2 or 3. Lengths that cannot close at all are refused with a message, the
/// buttons of the input screen go off, and Result stands.
void Calc_Setup(Integer Calctype, Integer& Result);

/// The run of mode 1, 2 or 3 as it stands; false for any other mode, and nothing is done.
bool Generated_Run(Integer Calctype, Integer& Result);

/// The run of the model as it stands, by its mode, without a word about positions that do not close; flags of the
/// drive and the screens are as before it.
void Run_Unasked(LinkageModel& model);

/// `ThetaZero` alone, with `Omega2Input` and `Alpha2`.
void Oneposition(Integer& Result);
/// `NSteps` + 1 positions by time from `TimeStart`, at constant `Alpha2`; time adds up in single precision.
void Timestep(Integer& Result);
/// Positions by angle at constant `Omega2Input`, backwards when that is negative; the last step is rewritten at the
/// limit when it overshoots.
void Crankangle(Integer& Result);
/// Positions by the imported drive table, for `Calctype` 4 and 5; goes on to the end also after an abort.
void Imported_Run(Integer& Result);

/// A position that does not close: clears the step but for the crank's global angle, to two decimals, and, on the
/// input screen or in imported runs, asks about that angle whether to abort, retry or ignore. ThetaRad is local,
/// radians.
void Noconnect(Single& ThetaRad, Integer& step, Integer& LastPoint, Integer& Result);

/// Crank speed in rad/s and global crank angle in radians at time t, seconds.
double Time_Omega(Single t);
double Time_Theta(Single t);

/// Last step index for a range and an increment, any unit: the whole number nearest to their ratio.
double Steps_Of(double First, double Last, double Increment);
/// Whether `NSteps` increments lead from the first limit to the last, to the precision of stored numbers. The limits of
/// a linkage that was just synthesised are divided when its boxes are read; run types without an increment always are.
bool Divided_Into_Steps(const Drive& drive);

}  // namespace verlink
