// The values of a function over a run, and where they stand along an axis: what a plot beside the drawing is made of.
#pragma once

#include <string>
#include <vector>

#include "core/number.h"
#include "core/record/drive.h"
#include "core/record/run_table.h"
#include "core/record/units.h"
#include "output/reading.h"

namespace verlink {

/// A variable of the catalogue, which of its components, and in which frame.
struct Output_Function {
    std::string variable;   ///< its name; empty for no function
    std::string component;  ///< "X", "Y", "Mag" or "Ang"; of a scalar it does not count
    bool local = false;     ///< in the local rotating frame, where the variable has the choice

    bool operator==(const Output_Function&) const = default;
};

/// False for a name that the catalogue does not have, for the current transform, which has no positions, and for a
/// vector without a component.
bool Can_Be_Read(const Output_Function& function);
/// The rest takes a function that can be read.
Needs Needs_Of(const Output_Function& function);
bool Has_Components(const Output_Function& function);
bool Has_Frames(const Output_Function& function);
/// In words: "Veloc CP X", with "local" behind it in the local frame.
std::string Words_Of(const Output_Function& function);
/// The unit in force of its values; of a vector's angle that of all angles.
std::string Unit_Of(const Output_Function& function, const UnitSystem& units);

/// The value at each step from 0 to `last`, as plots and tables have it; not a number where the position does not
/// close. `link1_angle` is that of the ground link, degrees.
std::vector<double> Series(const Output_Function& function, const RunResults& table, Single link1_angle, int last);

/// What a run's positions are told apart by.
enum class Abscissa { kAngle, kTime };

/// Where the steps of a run stand.
struct Stations {
    std::string title;                ///< with its unit
    std::vector<std::string> labels;  ///< by step
    std::vector<double> places;       ///< by step; empty for equal distances
};
/// By the global crank angle in degrees, which goes on beyond a full turn, or by the time in seconds. Angles of a run
/// by time and of a driven one stand where they are, the others at equal distances. A run by angle has its times from
/// the speed of the crank, counted from its first position; both its labels go by `drive` alone.
Stations Stations_Of(Abscissa wished, const Drive& drive, const RunResults& table, Single link1_angle);
/// What can be had of that: a run by angle at no speed has no times, one position neither.
Abscissa Abscissa_In_Force(Abscissa wished, const Drive& drive);

}  // namespace verlink
