// How functions get from the command line into the slots.
#include "batch/functions.h"

#include "core/linkage_model.h"
#include "output/catalogue.h"

namespace verlink {

namespace {

constexpr int kGlobal = 0, kLocalRotating = 2;

}  // namespace

int Last_Variable(bool dynamics, bool balance) {
    if (balance) return 42;
    return dynamics ? 37 : 19;
}

bool Is_Variable(const std::string& label, int last) {
    for (int number = 1; number <= last; ++number)
        if (Model.VariableNames(number) == label) return true;
    return false;
}

void Take_Function(const FunctionChoice& choice, int slot) {
    Select_Variable(choice.label, slot);
    Set_Component(Model.ScalarFunction ? "Mag" : choice.component, slot);
}

void Use_Frame(bool local) {
    Model.CoordSystem = local ? kLocalRotating : kGlobal;
    Model.PlotSlot = kSlot;
}

}  // namespace verlink
