// A full run of 2881 steps, beside the time that its sines, cosines and arc tangents alone take.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "bench/program.h"
#include "core/linkage_model.h"
#include "core/runs.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

void Run() {
    Integer result;
    Calc_Setup(3, result);
    benchmark::DoNotOptimize(Model.RunTable.PointXY(Model.NSteps, 2, 0));
}

/// The arguments of one step's calls, taken from a run.
struct Angles {
    double crank, coupler, rocker, point, ratio3, ratio4, slope;
};

std::vector<Angles> Angles_Of_A_Run() {
    Take_Default_Linkage(kSteps);
    Run();
    std::vector<Angles> all;
    const auto& table = Model.RunTable;
    for (int step = 0; step < kSteps; ++step) {
        Angles angles{};
        angles.crank = step * double{Model.ThetaStepRad};
        angles.coupler = table.Theta(step, 1) * kDegToRad;
        angles.rocker = table.Theta(step, 2) * kDegToRad;
        angles.point = Model.DeltaRad + angles.coupler;
        angles.ratio3 = std::tan(angles.coupler / 2);
        angles.ratio4 = std::tan(angles.rocker / 2);
        angles.slope = table.AccXY(step, 2, 1) / table.AccXY(step, 2, 0);
        all.push_back(angles);
    }
    return all;
}

/// What core/solver.cpp needs, step by step, on the arguments that it has, from the C library: sine and cosine of
/// crank, coupler, rocker, coupler point and turned acceleration, three sines of differences, three arc tangents.
double Floor(const std::vector<Angles>& all) {
    double sum = 0;
    for (const Angles& a : all) {
        sum += std::sin(a.crank) + std::cos(a.crank);
        sum += std::atan(a.ratio4);
        sum += std::sin(a.rocker) + std::cos(a.rocker);
        sum += std::atan(a.ratio3);
        sum += std::sin(a.coupler) + std::cos(a.coupler);
        sum += std::sin(a.point) + std::cos(a.point);
        sum += std::sin(a.coupler - a.rocker);
        sum += std::sin(a.rocker - a.crank) + std::sin(a.crank - a.coupler);
        const double turned = std::atan(a.slope) - a.coupler;
        sum += std::sin(turned) + std::cos(turned);
    }
    return sum;
}

void Run_2881_Steps(benchmark::State& state) {
    const std::vector<Angles> angles = Angles_Of_A_Run();
    Take_Default_Linkage(kSteps);
    // The floor is measured in turns with the run, so that whatever slows the one slows the other.
    double run = 0, floor = 0;
    for (auto _ : state) {
        const double start = Processor_Time();
        Run();
        const double middle = Processor_Time();
        benchmark::DoNotOptimize(Floor(angles));
        const double end = Processor_Time();
        state.SetIterationTime(middle - start);
        run += middle - start;
        floor += end - middle;
    }
    state.counters["ratio_to_floor"] = run / floor;
}
BENCHMARK(Run_2881_Steps)->UseManualTime()->Unit(benchmark::kMillisecond);

void Floor_2881_Steps(benchmark::State& state) {
    const std::vector<Angles> angles = Angles_Of_A_Run();
    for (auto _ : state) benchmark::DoNotOptimize(Floor(angles));
}
BENCHMARK(Floor_2881_Steps)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
