// What the points of a plot or table stand at.
#pragma once

#include <string>

namespace verlink {

struct LinkageModel;

/// Whether the steps of the run are moments: not those of a run by angle, nor one position.
bool Steps_Are_Times(const LinkageModel& model);

/// Times of runs by time and of driven ones; crank angles, degrees, of runs by angle and of one position; the harmonics
/// of a transform, whatever the run.
enum class Axis { kTime, kAngle, kHarmonic };

/// Of the function that was picked last.
Axis Output_Axis();
/// The last point: a step of the run, or a harmonic.
int Last_Point();
/// Where a point stands, to so many decimals; a harmonic has none.
std::string Point_Text(int point, int decimals);
/// The same for the hand that reads a point: to 4 decimals of a degree and 6 of a second, as far as they are not zero.
std::string Point_Reading(int point);

/// Whether a slot's values are the angles of a vector.
bool Slot_Is_Angle(int slot);
/// The unit of the variable in a slot, for the component in force.
std::string Variable_Unit(int slot);
/// The unit of a slot's values: that of its variable, or of what was transformed; an angle has `degrees`.
std::string Slot_Unit(int slot, const char* degrees);

}  // namespace verlink
