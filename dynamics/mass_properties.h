// Masses, inertias, mass centres and loads between the boxes of the dynamics screen and the record.
#pragma once

#include "core/record/mass.h"
#include "core/record/units.h"
#include "platform/screen.h"

namespace verlink {

/// The boxes of `frm_MassProp` from the masses and loads; lengths in the shown unit, angles in degrees.
void Put_Mass_Properties(platform::Screen& screen, const MassProperties& masses, const UnitSystem& units);

/// Masses and loads from the boxes, with the global components of the two forces. A box that shows what there is leaves
/// it as it is, with all its digits. Another text counts by its leading number, 0 when it has none; but the friction
/// must be a number as a whole, else failure 13 once all other boxes are taken.
void Get_Mass_Properties(platform::Screen& screen, MassProperties& masses, const UnitSystem& units);

}  // namespace verlink
