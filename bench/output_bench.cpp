// The transform of a full run beside its floor, and a table of a full run from the button to the filled grid.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "bench/beside.h"
#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/transform.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

void Take_A_Run() {
    Take_Default_Linkage(kSteps);
    Run();
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
    const Times times = Beside(
        state, [] { Do_DFT(Model.NSteps); }, [&] { benchmark::DoNotOptimize(Floor(x, sines, cosines)); });
    if (Model.HalfSamples != 1440) state.SkipWithError("not a full run");
    state.counters["ratio_to_floor"] = times.all / times.all_floor;
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
    double took = 0, start = 0;
    table.grd_Data.Watcher = [&] { took = Processor_Time() - start; };
    for (auto _ : state) {
        took = 0;
        start = Processor_Time();
        select.cmd_Done.Click();
        if (took == 0 || table.grd_Data.Rows() != kSteps + 6) state.SkipWithError("no table");
        state.SetIterationTime(std::max(took, 1e-9));
    }
    table.grd_Data.Watcher = nullptr;
}
BENCHMARK(Table_2881_Rows)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
