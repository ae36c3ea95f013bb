// How the columns are gathered from the catalogue.
#include "batch/columns.h"

#include <array>

#include "batch/functions.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/reading.h"
#include "output/series.h"
#include "output/transform.h"

namespace verlink {

namespace {

constexpr int kDegrees = 1, kLength = 6;  ///< of `UnitLabel`

/// Centimetres and millimetres are stored as metres.
std::string Stored_Length_Unit() {
    const bool shown_otherwise = Shown_Factor(Model.Units) != 1;
    return shown_otherwise ? "m" : Model.UnitLabel(kLength);
}

template <class Value>
void Add_Column(std::vector<Column>& columns, const std::string& name, const std::string& unit, Value value,
                bool where_closed = true) {
    Column column{name, unit, {}, where_closed};
    for (int step = 0; step <= Model.NSteps; ++step) column.values.push_back(value(step));
    columns.push_back(std::move(column));
}

void Add_Chosen(std::vector<Column>& columns, const std::string& name, const std::string& unit) {
    Add_Column(columns, name, unit, [](int step) {
        Single value;
        Transform_XY(step, kSlot, value);
        return value;
    });
}

void Add_Variable(std::vector<Column>& columns, const std::string& name) {
    Select_Variable(name, kSlot);
    if (!Has_Components({name, ""})) {
        Add_Chosen(columns, name, Unit_Of({name, "Mag"}, Model));
        return;
    }
    for (int component = 1; component <= 4; ++component) {
        const std::string& words = Model.ComponentNames(component);
        Set_Component(words, kSlot);
        Add_Chosen(columns, name + " " + words, Unit_Of({name, words}, Model));
    }
}

void Add_Centrode(std::vector<Column>& columns, const std::string& name, const StepArray<Single, 1, 2>& points) {
    for (int axis = 0; axis <= 1; ++axis)
        Add_Column(columns, name + (axis == 0 ? " X" : " Y"), Stored_Length_Unit(), [&](int step) {
            std::array<Single, 2> turned;
            Rotate(points(step, 0, 0), points(step, 0, 1), Model.Link1Angle, 1, turned[0], turned[1]);
            return turned[static_cast<std::size_t>(axis)];
        });
}

}  // namespace

std::vector<Column> Run_Columns(bool local) {
    Use_Frame(local);
    std::vector<Column> columns;
    Add_Column(
        columns, "Step", "", [](int step) { return Single(step); }, false);
    Add_Column(
        columns, "Assembled", "", [](int step) { return Single(Model.RunTable.Assembled(step) ? 1 : 0); }, false);
    const auto time = [](int step) { return Single(step * Model.TimeStep + Model.TimeStart); };
    if (Steps_Are_Times(Model)) Add_Column(columns, "Time", "sec", time, false);
    const int last = Last_Variable(Model.DynamicsDone, Model.BalanceDone);
    for (int number = 1; number <= last; ++number) Add_Variable(columns, Model.VariableNames(number));
    Add_Centrode(columns, "Fixed Centrode", Model.RunTable.FixedCentrode);
    Add_Centrode(columns, "Moving Centrode", Model.RunTable.MovingCentrode);
    return columns;
}

std::vector<Column> Transform_Columns(const FunctionChoice& choice, bool local) {
    Take_Function(choice, kSlot);
    Use_Frame(local);
    Do_DFT(Model.NSteps);
    const std::string unit = Unit_Of({choice.label, choice.component}, Model), degrees = Model.UnitLabel(kDegrees);
    std::vector<Column> columns{
        {"Harmonic", "", {}}, {"Real", unit, {}}, {"Imag", unit, {}}, {"Mag", unit, {}}, {"Phase", degrees, {}}};
    for (int harmonic = 0; harmonic < Model.HalfSamples; ++harmonic) {
        columns[0].values.emplace_back(harmonic);
        for (int row = 0; row <= 3; ++row)
            columns[static_cast<std::size_t>(row) + 1].values.push_back(Model.FFTResult(harmonic, row));
    }
    return columns;
}

}  // namespace verlink
