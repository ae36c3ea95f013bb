// Masses, inertias, mass centres and loads between the boxes of the dynamics screen and the record.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// The boxes of `frm_MassProp` from the record; lengths in the shown unit, angles in degrees.
void Put_Mass_Properties(platform::Screen& screen);

/// The record from the boxes, with the global components of the two forces. A text counts by its leading number, 0
/// when it has none; but the friction must be a number as a whole, else failure 13 once all other boxes are taken.
void Get_Mass_Properties(platform::Screen& screen);

}  // namespace verlink
