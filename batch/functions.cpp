// How functions get from the command line into the slots and into the transform.
#include "batch/functions.h"

#include "batch/csv.h"
#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/transform.h"

namespace verlink {

namespace {

constexpr int kGlobal = 0, kLocalRotating = 2;
constexpr int kTransformed = 1;

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

void Use_Frame(bool local, int slot) {
    Model.CoordSystem = local ? kLocalRotating : kGlobal;
    Model.PlotSlot = slot;
}

std::string Transform_Csv(const FunctionChoice& choice, bool local) {
    Take_Function(choice, kTransformed);
    Use_Frame(local, kTransformed);
    Do_DFT(Model.NSteps);
    std::string table = "Harmonic,Real,Imag,Mag,Phase\n";
    for (int i = 0; i < Model.HalfSamples; ++i) {
        table += std::to_string(i);
        for (int row = 0; row <= 3; ++row) table += "," + Shortest(Model.FFTResult(i, row));
        table += '\n';
    }
    return table;
}

}  // namespace verlink
