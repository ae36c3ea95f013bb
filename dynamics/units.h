// The five unit systems: labels, decimals, conversion of the model's inputs.
#pragma once

#include <string>

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// Pounds of mass to kilograms by way of blobs: the inch system's weight of a unit of mass over the pounds in a
/// kilogram.
inline constexpr double kBlobToKg = 386.0 / 2.2046225;
inline constexpr double kInchToMetre = 0.0254;
inline constexpr double kPoundToNewton = 4.448222;
inline constexpr double kInchPoundToNewtonMetre = 0.1129848388;

/// Entries that `Set_Unit_Labels` is asked for.
inline constexpr int kUnitLabels = 18;

/// Labels 1 to Count for a unit system; failure 9 for a Count above 25.
void Set_Unit_Labels(Integer Units, Array<std::string, 0, 25>& UnitLabel, Integer Count);
/// The six decimals of the record; a number outside 1 to 5 leaves them.
void Set_Decimals(Integer Units);

void Factors_In_To_SI();
void Factors_SI_To_In();
void Factors_In_To_Ft();
void Factors_Ft_To_In();

/// Rescales every dimensional input of the model, rounded to the decimals in force, and then packs `LinkArray`.
/// Between foot and metric systems by way of inches, so that such a change rounds twice. False, with the model as it
/// was, when a number overflows. What a way there and back loses is the rounding: tests/dynamics/conversion_test.cpp.
bool Convert_Units(Integer OldUnits, Integer NewUnits);
bool Do_Conversion(Single LengthFactor, Single ForceFactor, Single TorqueFactor, Single MassFactor,
                   Single InertiaFactor);

/// The unit system of the record with its labels and decimals.
void Use_Units(Integer Units);

}  // namespace verlink
