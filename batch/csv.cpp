// How the table of a run is gathered from the catalogue and written.
#include "batch/csv.h"

#include <array>
#include <charconv>
#include <vector>

#include "batch/functions.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "output/catalogue.h"

namespace verlink {

namespace {

/// The function slot through which the variables are read.
constexpr int kSlot = 1;

struct Column {
    std::string label;
    std::vector<Single> values;
};

template <class Value>
void Add_Column(std::vector<Column>& columns, const std::string& label, Value value) {
    Column column{label, {}};
    for (int step = 0; step <= Model.NSteps; ++step) column.values.push_back(value(step));
    columns.push_back(std::move(column));
}

void Add_Chosen(std::vector<Column>& columns, const std::string& label) {
    Add_Column(columns, label, [](int step) {
        Single value;
        Transform_XY(step, kSlot, value);
        return value;
    });
}

void Add_Variable(std::vector<Column>& columns, const std::string& name) {
    Select_Variable(name, kSlot);
    if (Model.ScalarFunction || name == "Flywl Torque") {
        Add_Chosen(columns, name);
        return;
    }
    for (int component = 1; component <= 4; ++component) {
        const std::string& words = Model.ComponentNames(component);
        Set_Component(words, kSlot);
        Add_Chosen(columns, name + " " + words);
    }
}

void Add_Centrode(std::vector<Column>& columns, const std::string& name, const StepArray<Single, 1, 2>& points) {
    for (int axis = 0; axis <= 1; ++axis)
        Add_Column(columns, name + (axis == 0 ? " X" : " Y"), [&](int step) {
            std::array<Single, 2> turned;
            Rotate(points(step, 0, 0), points(step, 0, 1), Model.Link1Angle, 1, turned[0], turned[1]);
            return turned[static_cast<std::size_t>(axis)];
        });
}

}  // namespace

std::string Shortest(Single value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
    return {digits.data(), end};
}

std::string Csv_Field(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string field = "\"";
    for (const char letter : text) {
        if (letter == '"') field += '"';
        field += letter;
    }
    return field + '"';
}

std::string Run_Table_Csv(bool local) {
    Use_Frame(local, kSlot);
    std::vector<Column> columns;
    Add_Column(columns, "Time", [](int step) { return Single(step * Model.TimeStep + Model.TimeStart); });
    const int last = Last_Variable(Model.DynamicsDone, Model.BalanceDone);
    for (int number = 1; number <= last; ++number) Add_Variable(columns, Model.VariableNames(number));
    Add_Centrode(columns, "Fixed Centrode", Model.RunTable.FixedCentrode);
    Add_Centrode(columns, "Moving Centrode", Model.RunTable.MovingCentrode);

    std::string table = "Step,Assembled";
    for (const Column& column : columns) table += "," + Csv_Field(column.label);
    table += '\n';
    for (int step = 0; step <= Model.NSteps; ++step) {
        table += std::to_string(step) + (Model.RunTable.Assembled(step) ? ",1" : ",0");
        for (const Column& column : columns) table += "," + Shortest(column.values[static_cast<std::size_t>(step)]);
        table += '\n';
    }
    return table;
}

int Closed_Positions() {
    int closed = 0;
    for (int step = 0; step <= Model.NSteps; ++step) closed += Model.RunTable.Assembled(step) ? 1 : 0;
    return closed;
}

}  // namespace verlink
