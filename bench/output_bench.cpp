// The transform of a full run beside its floor, and a table of a full run from the button to the filled grid.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "bench/program.h"
#include "core/linkage_model.h"
#include "core/runs.h"
#include "output/catalogue.h"
#include "output/transform.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

double Seconds_Since(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Take_A_Run() {
    Take_Default_Linkage(kSteps);
    Integer result;
    Calc_Setup(3, result);
    Select_Variable("Omega4", 1);
}

/// The sums alone, as many multiplications and additions, with the sines and cosines given.
double Floor(const std::vector<double>& x, const std::vector<double>& sines, const std::vector<double>& cosines) {
    double all = 0;
    for (std::size_t k = 0; k < x.size(); ++k) {
        double re = 0, im = 0;
        for (std::size_t n = 0; n < x.size(); ++n) {
            re += x[n] * cosines[n];
            im -= x[n] * sines[n];
        }
        benchmark::DoNotOptimize(re);
        benchmark::DoNotOptimize(im);
        all += re + im;
    }
    return all;
}

void Transform_2880_Samples(benchmark::State& state) {
    Take_A_Run();
    std::vector<double> x, sines, cosines;
    for (int n = 1; n < kSteps; ++n) {
        x.push_back(Model.RunTable.Omega(n, 2));
        sines.push_back(std::sin(n));
        cosines.push_back(std::cos(n));
    }
    // The floor is measured in turns with the transform, so that a busy machine slows both.
    double transform = 0, floor = 0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        Do_DFT(Model.NSteps);
        const double took = Seconds_Since(start);
        state.SetIterationTime(took);
        transform += took;
        start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(Floor(x, sines, cosines));
        floor += Seconds_Since(start);
    }
    if (Model.HalfSamples != 1440) state.SkipWithError("not a full run");
    state.counters["ratio_to_floor"] = transform / floor;
}
BENCHMARK(Transform_2880_Samples)->UseManualTime()->Unit(benchmark::kMillisecond);

/// From the press of the button on the selection screen to the last cell.
void Table_2881_Rows(benchmark::State& state) {
    Take_A_Run();
    Model.ScreenReturn = true;
    auto& select = dynamic_cast<frm_PrintSelect&>(platform::Screens::Get("frm_PrintSelect"));
    auto& table = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));
    select.Form_Activate();
    select.cmb_Step.Choose(0);
    select.cmb_Preset.Choose(5);
    double took = 0;
    std::chrono::steady_clock::time_point start;
    table.grd_Data.Watcher = [&] { took = Seconds_Since(start); };
    for (auto _ : state) {
        took = 0;
        start = std::chrono::steady_clock::now();
        select.cmd_Done.Click();
        if (took == 0 || table.grd_Data.Rows() != kSteps + 6) state.SkipWithError("no table");
        state.SetIterationTime(std::max(took, 1e-9));
    }
    table.grd_Data.Watcher = nullptr;
}
BENCHMARK(Table_2881_Rows)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
