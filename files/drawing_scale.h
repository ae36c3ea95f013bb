// How large drawings for CAD programs are, and what they say of themselves.
#pragma once

#include <string>

#include "core/linkage_model.h"
#include "files/dxf.h"

namespace verlink {

/// Inches in the two systems of inches and feet, millimetres in the metric ones.
Dxf_Unit Drawing_Unit(const UnitSystem& units);
/// Units of the drawing in one of the lengths that results have, and in one that is stored.
double Drawing_Factor(const UnitSystem& units);
double Drawing_Factor_Of_Stored(const UnitSystem& units);
/// Name and design of the model, in words.
std::string Drawing_Remark(const LinkageModel& model);

}  // namespace verlink
