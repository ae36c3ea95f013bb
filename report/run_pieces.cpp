// Functions of the run: their extremes in a table, and their graphs.
#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "output/graph_svg.h"
#include "output/plot_windows.h"
#include "output/reading.h"
#include "platform/graph.h"
#include "platform/screen.h"
#include "report/pieces.h"
#include "report/svg_picture.h"

namespace verlink::report {

namespace {

constexpr double kTextWide = 165;  ///< millimetres, on the narrower of the two papers
constexpr double kPlotHigh = 52;
constexpr int kFirstOfForces = 26, kLastOfForces = 37, kLastOfBalance = 42;  ///< numbers of the catalogue

/// Steps of a run by angle and one position stand at angles, all others at times: so plots and tables have it.
Abscissa Abscissa_Of(const Drive& drive) {
    constexpr int kPosition = 1, kAngles = 3;
    return drive.Calctype == kPosition || drive.Calctype == kAngles ? Abscissa::kAngle : Abscissa::kTime;
}

Stations Stations_In(const LinkageModel& model) {
    return Stations_Of(Abscissa_Of(model), model, model.RunTable, model.Link1Angle);
}

std::vector<double> Values_Of(const LinkageModel& model, const Output_Function& function) {
    return Series(function, model.RunTable, model.Link1Angle, model.NSteps);
}

struct Spread {
    int least = -1, most = -1;  ///< steps; below 0 where no position closes
    Single mean;
};

Spread Spread_Of(const std::vector<double>& values) {
    Spread spread;
    double sum = 0;
    int count = 0;
    for (int step = 0; step < static_cast<int>(values.size()); ++step) {
        const double value = values[static_cast<std::size_t>(step)];
        if (!std::isfinite(value)) continue;
        const auto at = [&](int other) { return values[static_cast<std::size_t>(other)]; };
        if (spread.least < 0 || value < at(spread.least)) spread.least = step;
        if (spread.most < 0 || value > at(spread.most)) spread.most = step;
        sum += value;
        ++count;
    }
    if (count > 0) spread.mean = sum / count;
    return spread;
}

/// A label at each round part of a turn, where the steps have one.
int Labels_Of(const Drive& drive) {
    constexpr double kApart = 30;
    constexpr int kSteps = 10;
    if (Abscissa_Of(drive) != Abscissa::kAngle) return kSteps;
    const double steps = kApart / double{drive.ThetaStep};  // infinite, and no round number, where there is no step
    const bool round = steps >= 1 && std::abs(steps - std::round(steps)) < 1e-3;
    return round ? static_cast<int>(std::round(steps)) : kSteps;
}

struct Graph_Sheet : platform::Screen {
    Graph_Sheet() : Screen("Report_Graph") {}
    platform::Graph graph{*this, "grf_Report"};
};

}  // namespace

Report_Table Extremes(const LinkageModel& model, const std::vector<Output_Function>& functions) {
    const Stations stations = Stations_In(model);
    const bool by_angle = Abscissa_Of(model) == Abscissa::kAngle;
    const std::string at = by_angle ? "at deg" : "at sec";
    Report_Table table{{"Function", "Min", at, "Avg", "Max", at, "Peak to Peak", "Unit"}, {}, 1, 6};
    for (const Output_Function& function : functions) {
        const std::vector<double> values = Values_Of(model, function);
        const Spread spread = Spread_Of(values);
        if (spread.least < 0) continue;
        const auto value = [&](int step) { return Single(values[static_cast<std::size_t>(step)]); };
        const auto label = [&](int step) { return stations.labels[static_cast<std::size_t>(step)]; };
        const Single least = value(spread.least), most = value(spread.most);
        const int decimals = Decimals_Of(Single(std::max(std::abs(least), std::abs(most))));
        const auto text = [decimals](double number) { return FNRoundStr(number, decimals); };
        table.rows.push_back({Words_Of(function), text(least), label(spread.least), text(spread.mean), text(most),
                              label(spread.most), text(Single(most - least)), Unit_Of(function, model)});
    }
    return table;
}

Report_Picture Plot_Of(const LinkageModel& model, const Output_Function& function) {
    constexpr int kGrid = 3;
    Graph_Sheet sheet;
    platform::Graph& graph = sheet.graph;
    const Stations stations = Stations_In(model);
    const std::vector<double> values = Values_Of(model, function);
    graph.SetNumPoints(static_cast<int>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i) {
        graph.ThisPoint = static_cast<int>(i) + 1;
        if (std::isfinite(values[i])) graph.SetGraphData(values[i]);
        graph.SetLabelText(stations.labels[i]);
    }
    graph.GridStyle = kGrid;
    graph.LabelEvery = graph.TickEvery = Labels_Of(model);
    graph.BottomTitle = stations.title;
    const auto pixels = [](double millimetres) {
        constexpr double kSmaller = 1.45;  // than on a screen: letters, and what is between two of them
        return static_cast<int>(kSmaller * millimetres / kMillimetresOfPixel);
    };
    const std::string unit = Unit_Of(function, model);
    return {Graph_Svg(graph, pixels(kTextWide), pixels(kPlotHigh)), kTextWide, kPlotHigh,
            Words_Of(function) + (unit.empty() ? "" : ", " + unit)};
}

std::vector<Output_Function> There(const LinkageModel& model, const std::vector<Output_Function>& functions) {
    std::vector<Output_Function> there;
    for (const Output_Function& function : functions) {
        if (!model.RunStands || !Can_Be_Read(function)) continue;
        const Needs needs = Needs_Of(function);
        if (needs == Needs::kRun || (needs == Needs::kForces ? model.DynamicsDone : model.BalanceDone))
            there.push_back(function);
    }
    return there;
}

std::vector<Output_Function> Functions_Of(Needs needs) {
    const bool forces = needs == Needs::kForces;
    std::vector<Output_Function> functions;
    for (int number = forces ? kFirstOfForces : kLastOfForces + 1; number <= (forces ? kLastOfForces : kLastOfBalance);
         ++number) {
        const std::string name = Variable_Name(number);
        functions.push_back({name, Facts_Of(name)->vector ? "Mag" : "", false});
    }
    return functions;
}

}  // namespace verlink::report
