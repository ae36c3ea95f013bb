// Which unit goes with which system.
#include "files/drawing_scale.h"

#include "core/text.h"

namespace verlink {

Dxf_Unit Drawing_Unit(const UnitSystem& units) { return units.Units > 2 ? Dxf_Unit::kMillimetre : Dxf_Unit::kInch; }

double Drawing_Factor_Of_Stored(const UnitSystem& units) { return units.Units > 2 ? 1000 : units.Units == 2 ? 12 : 1; }

double Drawing_Factor(const UnitSystem& units) { return Drawing_Factor_Of_Stored(units) / Shown_Factor(units); }

std::string Drawing_Remark(const LinkageModel& model) {
    return "Verlink " + model.RevNumber + ", model " + model.ModelName + ", design " + Text_Of(model.DesignNumber);
}

}  // namespace verlink
