// A plot and a table of a full run, from the button's work to the painted window.
#include <benchmark/benchmark.h>

#include "bench/drag.h"
#include "bench/windows.h"
#include "core/linkage_model.h"
#include "output/cartesian.h"
#include "platform/grid.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

void Plot_Of_Four_Functions(benchmark::State& state) {
    Animate_Screen(kSteps);
    Windows windows;
    auto& choice = platform::Screens::Get("frm_PlotSelect1");
    auto& plot = platform::Screens::Get("frm_Plot1");
    choice.Get<platform::ComboBox>("cmb_Preset").Text = "Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates";
    choice.Get<platform::ComboBox>("cmb_Preset").OnClick();
    Model.GraphWindows = 1;
    Model.PlotStyle = 1;
    desktop::Form& form = windows.Open("frm_Plot1");
    for (auto _ : state) {
        Plot_Setup(plot, 1);
        MultiPlot(plot, choice);
        form.repaint();
        QApplication::processEvents();
    }
    if (Model.PlotCount != 4) state.SkipWithError("no four functions were chosen");
}
BENCHMARK(Plot_Of_Four_Functions)->Unit(benchmark::kMillisecond);

void Table_Painted(benchmark::State& state) {
    Windows windows;
    auto& grid = platform::Screens::Get("frm_PrintData").Get<platform::Grid>("grd_Data");
    grid.SetCols(5);
    desktop::Form& form = windows.Open("frm_PrintData");
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        grid.SetRows(kSteps + 6);
        for (int row = 0; row < grid.Rows(); ++row)
            for (int col = 0; col < grid.Cols(); ++col) grid.SetCell(row, col, std::to_string(row * col + turn));
        grid.Refresh();
        form.repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(Table_Painted)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
