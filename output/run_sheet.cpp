// The columns of the sheet.
#include "output/run_sheet.h"

#include <array>
#include <cmath>
#include <utility>

#include "core/numeric.h"
#include "output/output_axis.h"
#include "output/reading.h"
#include "output/series.h"

namespace verlink {

namespace {

/// What is counted, and a length as a sheet shows them.
constexpr int kWhole = 0, kDecimals = 4;

/// The column with the statistics of what it has.
Sheet_Column Counted_Up(Sheet_Column column) {
    double sum = 0;
    int count = 0;
    for (const double value : column.values) {
        if (std::isnan(value)) continue;
        column.least = std::fmin(column.least, value);
        column.most = std::fmax(column.most, value);
        sum += value;
        ++count;
    }
    if (count > 0) column.mean = Decimal_Of(Single(sum / count));
    return column;
}

template <class Value>
Sheet_Column Column_Of(const LinkageModel& model, const std::string& name, const std::string& unit, int decimals,
                       Value value) {
    Sheet_Column column{.name = name, .component = "", .unit = unit, .decimals = decimals};
    for (int step = 0; step <= model.NSteps; ++step) column.values.push_back(value(step));
    return Counted_Up(std::move(column));
}

Sheet_Column Variable_Column(const LinkageModel& model, const Output_Function& function) {
    Sheet_Column column{.name = function.variable,
                        .component = Has_Components(function) ? function.component : "",
                        .unit = Unit_Of(function, model),
                        .decimals = kDecimals};
    for (const double value : Series(function, model.RunTable, model.Link1Angle, model.NSteps))
        column.values.push_back(std::isnan(value) ? kNoNumber : Decimal_Of(Single(value)));
    return Counted_Up(std::move(column));
}

bool Is_There(const LinkageModel& model, const Output_Function& function) {
    switch (Needs_Of(function)) {
        case Needs::kForces: return model.DynamicsDone;
        case Needs::kBalance: return model.BalanceDone;
        default: return true;
    }
}

/// Stored lengths as shown ones.
Sheet_Column Centrode_Column(const LinkageModel& model, const char* name, const StepArray<Single, 1, 2>& points,
                             int axis) {
    const double shown = Shown_Factor(model);
    Sheet_Column column = Column_Of(model, name, model.UnitLabel(6), kDecimals, [&](int step) {
        if (!model.RunTable.Assembled(step)) return kNoNumber;
        std::array<Single, 2> turned;
        Rotate(points(step, 0, 0), points(step, 0, 1), model.Link1Angle, 1, turned[0], turned[1]);
        return Decimal_Of(Single(turned.at(static_cast<std::size_t>(axis)) * shown));
    });
    column.component = axis == 0 ? "X" : "Y";
    return column;
}

}  // namespace

Sheet Run_Sheet(const LinkageModel& model, bool local) {
    Sheet sheet{.name = "Run", .columns = {}, .statistics = true};
    auto& columns = sheet.columns;
    columns.push_back(Column_Of(model, "Step", "", kWhole, [](int step) { return double(step); }));
    columns.push_back(
        Column_Of(model, "Closes", "", kWhole, [&](int step) { return model.RunTable.Assembled(step) ? 1.0 : 0.0; }));
    if (Steps_Are_Times(model))
        columns.push_back(Column_Of(model, "Time", "sec", kDecimals, [&](int step) {
            return Decimal_Of(Single(step * model.TimeStep + model.TimeStart));
        }));
    for (const std::string& variable : Variables_Up_To(Needs::kBalance)) {
        const Output_Function function{variable, "Mag", local};
        if (!Is_There(model, function)) continue;
        if (!Has_Components(function)) {
            columns.push_back(Variable_Column(model, function));
            continue;
        }
        for (const char* component : {"X", "Y", "Mag", "Ang"})
            columns.push_back(Variable_Column(model, {function.variable, component, local}));
    }
    for (const int axis : {0, 1})
        columns.push_back(Centrode_Column(model, "Fixed Centrode", model.RunTable.FixedCentrode, axis));
    for (const int axis : {0, 1})
        columns.push_back(Centrode_Column(model, "Moving Centrode", model.RunTable.MovingCentrode, axis));
    return sheet;
}

}  // namespace verlink
