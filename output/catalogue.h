// The output variables by number: their names, where they lie, and how a component is resolved.
#pragma once

#include <string>

#include "core/number.h"

namespace verlink {

/// Fills `VariableNames`, `ComponentNames` and both lists of presets.
void Load_Catalogue();

/// Puts the variable of that exact name into a slot 1 to 4 and sets the three function flags; an unknown name only
/// clears the flags.
void Select_Variable(const std::string& name, Integer slot);
/// "X", "Y", "Mag" or "Ang" into a slot; any other name changes nothing.
void Set_Component(const std::string& name, Integer slot);

/// Row of `Theta` whose link turns the local frame, from the row of the slot that is being drawn.
void Local_Link(Integer& link);
/// The slot's component at a step, in the frame of `CoordSystem`; an unknown group leaves the value.
void Transform_XY(Integer step, Integer slot, Single& value);
void Resolve_Vector(Integer step, Integer link, Integer slot, Single x, Single y, Single& value);
/// Magnitude and angle in degrees of the slot's vector; scalars and unknown groups leave both.
void Select_PolarVariable(Integer step, Integer slot, Single& mag, Single& ang);
void Resolve_Polar(Integer step, Integer link, Single x, Single y, Single& mag, Single& ang);

}  // namespace verlink
