// One number of a run, read by what the catalogue knows of a variable: without the slots that plots and tables go by.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/number.h"

namespace verlink {

struct RunResults;

/// What plots and tables cut components at.
inline constexpr double kSmall = 0.0001;

/// Since when there is a variable.
enum class Needs { kRun, kForces, kBalance };

/// What there is to know of a variable by itself.
struct Variable_Facts {
    int number;      ///< from 1
    int group;       ///< which array of the run
    int row;         ///< of that array
    bool vector;     ///< it has components
    bool in_frames;  ///< which can be taken in either frame
    Needs needs;
};
/// The name of a variable by its number; failure 9 for one that there is not.
std::string Variable_Name(int number);
/// The names of all variables that there are by then, in the catalogue's order; not the current transform.
std::vector<std::string> Variables_Up_To(Needs most);
/// The names of those that come with it and have components, as a polar plot takes them.
std::vector<std::string> Vectors_That_Need(Needs needs);
/// Whether the variables of a group are vectors.
bool Group_Has_Components(int group);
/// The index into `UnitLabel` of a group's values. A flywheel's torque is a torque like others; what has its group's
/// number there is the unit of areas under torques.
int Unit_Of_Group(int group);
/// The group of the current transform, which goes by harmonics and not by steps.
inline constexpr int kTransformGroup = 14;
/// Of the variable of that exact name.
std::optional<Variable_Facts> Facts_Of(const std::string& name);

/// Where a vector's component is taken: X and Y nearer to 0 than `small` are 0.
struct Reading_Frame {
    Single link1_angle;  ///< degrees, from the ground link's frame to the global one
    bool local;          ///< turned back by the angle of the vector's own link
    Single small;
};
/// A number of the run: the variable of that group and row at a step, of a vector the component 0 X, 1 Y, 2 magnitude,
/// 3 angle in degrees. The local frame is that of `Theta`'s row `link`. Nothing for an unknown group, and for a
/// transform.
std::optional<Single> Read_Run(const RunResults& table, int group, int row, int step, int link, int component,
                               const Reading_Frame& frame);
/// Row of `Theta` whose link turns the local frame of a variable's row; 0 for the rows of mass centres.
int Frame_Link(int row);

}  // namespace verlink
