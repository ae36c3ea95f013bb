// The output variables by number: their names, where they lie, and how a component is resolved.
#pragma once

#include <optional>
#include <string>

#include "core/number.h"

namespace verlink {

struct RunResults;

/// Fills `VariableNames`, `ComponentNames` and both lists of presets.
void Load_Catalogue();

/// Puts the variable of that exact name into a slot 1 to 4 and sets the three function flags; an unknown name only
/// clears the flags.
void Select_Variable(const std::string& name, Integer slot);
/// "X", "Y", "Mag" or "Ang" into a slot; any other name changes nothing.
void Set_Component(const std::string& name, Integer slot);

/// What there is to know of a variable by itself.
struct Variable_Facts {
    int number;      ///< from 1
    int group;       ///< which array of the run, and the index into `UnitLabel`
    int row;         ///< of that array
    bool vector;     ///< it has components
    bool in_frames;  ///< which can be taken in either frame
};
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

/// Row of `Theta` whose link turns the local frame, from the row of the slot that is being drawn.
void Local_Link(Integer& link);
/// The slot's component at a step, in the frame of `CoordSystem`; an unknown group leaves the value.
void Transform_XY(Integer step, Integer slot, Single& value);
void Resolve_Vector(Integer step, Integer link, Integer slot, Single x, Single y, Single& value);
/// Magnitude and angle in degrees of the slot's vector; scalars and unknown groups leave both.
void Select_PolarVariable(Integer step, Integer slot, Single& mag, Single& ang);
void Resolve_Polar(Integer step, Integer link, Single x, Single y, Single& mag, Single& ang);

}  // namespace verlink
