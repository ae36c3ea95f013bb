// The built-in linkages. Each overwrites the record's linkage, range, and synthesis data with fixed numbers, and the
// initial values on the input screen; lengths in whatever length unit is in force, unless said otherwise.
#pragma once

#include "core/number.h"

namespace verlink {

/// The default linkage: a Grashof crank-rocker, with mass and synthesis data. Its starting angle in radians is
/// stored as the number 45, unconverted, and its step in radians is left as it was.
void Testlinkage();
/// The linkage of the synthesis test, with masses by `Set_Default_Masses`; leaves the ground pivot as it was.
void Testlinkagevlnk();
/// The Grashof test linkage of the menu.
void Testlinkage_old();

/// Straight line linkages. Their `ThetaStepRad` holds the step in degrees; `Watts` leaves the synthesis data.
void Roberts();
void Watts();
void Chebychev();
/// In inches: sets the unit system and its labels.
void Hoekens();

/// Masses of links 2 to 4, inertias of 2 m and mass centres at mid-link for links 2 to n; link 3's at the coupler
/// point.
void Set_Default_Masses(Integer n);

}  // namespace verlink
