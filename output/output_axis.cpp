// How the axis of an output follows from the run and the function.
#include "output/output_axis.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "output/reading.h"

namespace verlink {

Axis Output_Axis() {
    if (Model.FFTFunction) return Axis::kHarmonic;
    return Model.Calctype == 1 || Model.Calctype == 3 ? Axis::kAngle : Axis::kTime;
}

int Last_Point() { return Model.FFTFunction ? Model.Harmonics : Model.NSteps; }

std::string Point_Text(int point, int decimals) {
    switch (Output_Axis()) {
        case Axis::kHarmonic: return Text_Of(point);
        case Axis::kAngle: return FNRoundStr(Model.RunTable.Theta(point, 0), decimals);
        default: return FNRoundStr(point * Model.TimeStep + Model.TimeStart, decimals);
    }
}

bool Slot_Is_Angle(int slot) {
    constexpr int kAngle = 3;
    const FunctionSlots& slots = Model;
    const int group = slots.FuncGroup(slot);
    return slots.FuncComponent(slot) == kAngle && (Group_Has_Components(group) || group == kTransformGroup);
}

std::string Variable_Unit(int slot) {
    constexpr int kAngles = 1;
    const LinkageModel& model = Model;
    return model.UnitLabel(Slot_Is_Angle(slot) ? kAngles : Unit_Of_Group(model.FuncGroup(slot)));
}

std::string Slot_Unit(int slot, const char* degrees) {
    if (Slot_Is_Angle(slot)) return degrees;
    const LinkageModel& model = Model;
    return model.FFTFunction ? model.FFTUnitLabel : Variable_Unit(slot);
}

}  // namespace verlink
