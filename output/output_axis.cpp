// How the axis of an output follows from the run and the function.
#include "output/output_axis.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"

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
    return Model.FuncComponent(slot) == kAngle;
}

std::string Slot_Unit(int slot, const char* degrees) {
    if (Slot_Is_Angle(slot)) return degrees;
    return Model.FFTFunction ? Model.FFTUnitLabel : Model.UnitLabel(Model.FuncGroup(slot));
}

}  // namespace verlink
