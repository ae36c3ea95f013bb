// How the numbers of tables are gathered.
#include "output/table_sheet.h"

#include <algorithm>

#include "core/numeric.h"
#include "output/output_axis.h"
#include "output/reading.h"

namespace verlink {

namespace {

std::vector<Single> Values_Of_Slot(const LinkageModel& model, int slot, bool local, int last) {
    const int group = model.FuncGroup(slot), row = model.FuncRow(slot), component = model.FuncComponent(slot);
    const Reading_Frame frame{model.Link1Angle, local, kSmall};
    std::vector<Single> values;
    for (int i = 0; i <= last; ++i)
        values.push_back(
            group == kTransformGroup
                ? model.FFTResult(i, component)
                : Read_Run(model.RunTable, group, row, i, Frame_Link(row), component, frame).value_or(Single(0)));
    return values;
}

void Put_Statistics(Sheet_Column& column, const std::vector<Single>& values) {
    const Element2 value = [&values](int from, int i) { return values.at(static_cast<std::size_t>(from + i)); };
    const int last = static_cast<int>(values.size()) - 1;
    Single max, min, mean;
    Integer max_at, min_at;
    MaxMin2(value, 0, 0, last, max, min, max_at, min_at);
    Average2(0, last, value, "Pointer_I", 0, mean);
    column.least = Decimal_Of(min);
    column.mean = Decimal_Of(mean);
    column.most = Decimal_Of(max);
}

/// Where the rows stand.
Sheet_Column Lead_Column(const LinkageModel& model, int every, int last, int decimals) {
    Sheet_Column lead;
    const Axis axis = Output_Axis();
    lead.decimals = axis == Axis::kHarmonic ? 0 : decimals;
    if (axis == Axis::kHarmonic)
        lead.name = "Harmonic", lead.component = "Number";
    else if (axis == Axis::kAngle)
        lead.name = "Crank", lead.component = "Angle", lead.unit = "deg";
    else
        lead.name = "Time", lead.unit = "sec";
    for (int i = 0; i <= last; i += every)
        lead.values.push_back(axis == Axis::kHarmonic ? i
                              : axis == Axis::kAngle  ? Decimal_Of(model.RunTable.Theta(i, 0))
                                                      : Decimal_Of(Single(i * model.TimeStep + model.TimeStart)));
    return lead;
}

bool All_Close(const LinkageModel& model, int last) {
    for (int i = 0; i <= last; ++i)
        if (!model.RunTable.Assembled(i)) return false;
    return true;
}

/// Whether the positions close, of which some do not.
Sheet_Column Closing(const LinkageModel& model, int every, int last) {
    Sheet_Column closing{.name = "Closes", .component = "1 or 0", .unit = "", .decimals = 0};
    std::vector<Single> values;
    for (int i = 0; i <= last; ++i) values.emplace_back(model.RunTable.Assembled(i) ? 1 : 0);
    for (int i = 0; i <= last; i += every) closing.values.push_back(values[static_cast<std::size_t>(i)]);
    Put_Statistics(closing, values);
    return closing;
}

}  // namespace

Sheet Table_Sheet(const LinkageModel& model, const std::array<std::string, 4>& captions, const Table_Wish& wish) {
    const int last = Last_Point(), every = std::max(wish.every, 1);
    Sheet sheet{.name = "Table", .columns = {Lead_Column(model, every, last, wish.decimals)}, .statistics = true};
    for (int slot = 1; slot <= model.PrintCount; ++slot) {
        const std::vector<Single> values = Values_Of_Slot(model, slot, wish.local, last);
        Sheet_Column column{.name = captions[static_cast<std::size_t>(slot - 1)],
                            .component = model.ComponentNames(model.FuncComponent(slot) + 1),
                            .unit = Slot_Unit(slot, "deg"),
                            .decimals = wish.decimals};
        for (int i = 0; i <= last; i += every) column.values.push_back(Decimal_Of(values[static_cast<std::size_t>(i)]));
        Put_Statistics(column, values);
        sheet.columns.push_back(std::move(column));
    }
    if (Output_Axis() != Axis::kHarmonic && !All_Close(model, last))
        sheet.columns.push_back(Closing(model, every, last));
    return sheet;
}

Sheet Transform_Sheet(const LinkageModel& model, const std::string& function, int last) {
    constexpr const char* kParts[] = {"Real", "Imaginary", "Magnitude", "Phase"};
    constexpr int kPhase = 3;
    Sheet sheet{.name = "Transform",
                .columns = {{.name = "Harmonic", .component = "Number", .unit = "", .decimals = 0}}};
    for (int i = 0; i <= last; ++i) sheet.columns[0].values.push_back(i);
    for (int part = 0; part <= kPhase; ++part) {
        Sheet_Column column{
            .name = function, .component = kParts[part], .unit = part == kPhase ? "deg" : model.FFTUnitLabel};
        for (int i = 0; i <= last; ++i) column.values.push_back(Decimal_Of(model.FFTResult(i, part)));
        sheet.columns.push_back(std::move(column));
    }
    return sheet;
}

}  // namespace verlink
