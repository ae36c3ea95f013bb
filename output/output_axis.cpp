// How the axis of an output follows from the run and the function.
#include "output/output_axis.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "output/reading.h"

namespace verlink {

bool Steps_Are_Times(const LinkageModel& model) {
    return model.Calctype != run::kOnePosition && model.Calctype != run::kByAngle;
}

Axis Output_Axis() {
    if (Model.FFTFunction) return Axis::kHarmonic;
    return Steps_Are_Times(Model) ? Axis::kTime : Axis::kAngle;
}

int Last_Point() { return Model.FFTFunction ? Model.Harmonics : Model.NSteps; }

namespace {

/// Degrees or seconds; a harmonic's number.
double Place_Of(int point) {
    switch (Output_Axis()) {
        case Axis::kHarmonic: return point;
        case Axis::kAngle: return Model.RunTable.Theta(point, 0);
        default: return point * Model.TimeStep + Model.TimeStart;
    }
}

}  // namespace

std::string Point_Text(int point, int decimals) {
    return Output_Axis() == Axis::kHarmonic ? Text_Of(point) : FNRoundStr(Place_Of(point), decimals);
}

std::string Point_Reading(int point) {
    const int decimals = Output_Axis() == Axis::kTime ? 6 : 4;
    return Text_Of(Single(FNRound(Place_Of(point), decimals)));
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
