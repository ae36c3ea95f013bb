// A solve for the forces of 2881 steps beside the time that as many dense systems take; balancing; a drag with forces.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include "bench/beside.h"
#include "bench/drag.h"
#include "core/linkage_model.h"
#include "core/results.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/flywheel.h"
#include "platform/screen.h"
#include "screens/frm_animate.h"
#include "screens/frm_balance.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;
constexpr int kUnknowns = 9;

struct DenseSystem {
    double a[kUnknowns][kUnknowns];
    double b[kUnknowns];
};

/// Systems without any zero, so many that none is foreseen, so few that they stay in the cache.
std::vector<DenseSystem> Dense_Systems() {
    constexpr int kCount = 32;
    std::mt19937 random(9);
    std::uniform_real_distribution<double> number(-1, 1);
    std::vector<DenseSystem> all(kCount);
    for (DenseSystem& system : all) {
        for (auto& row : system.a)
            for (double& entry : row) entry = number(random);
        for (double& entry : system.b) entry = number(random);
    }
    return all;
}

/// Lower and upper factors with the largest pivot of each column, applied to the right side on the way.
void Factor_And_Solve(DenseSystem& s) {
    for (int k = 0; k < kUnknowns; ++k) {
        int pivot = k;
        for (int i = k + 1; i < kUnknowns; ++i)
            if (std::fabs(s.a[i][k]) > std::fabs(s.a[pivot][k])) pivot = i;
        if (pivot != k) {
            std::swap(s.a[k], s.a[pivot]);
            std::swap(s.b[k], s.b[pivot]);
        }
        const double reciprocal = 1 / s.a[k][k];
        for (int i = k + 1; i < kUnknowns; ++i) {
            const double factor = s.a[i][k] * reciprocal;
            for (int j = k + 1; j < kUnknowns; ++j) s.a[i][j] -= factor * s.a[k][j];
            s.b[i] -= factor * s.b[k];
        }
    }
    for (int i = kUnknowns - 1; i >= 0; --i) {
        double sum = s.b[i];
        for (int j = i + 1; j < kUnknowns; ++j) sum -= s.a[i][j] * s.b[j];
        s.b[i] = sum / s.a[i][i];
    }
}

double Floor(const std::vector<DenseSystem>& systems) {
    double sum = 0;
    for (int step = 0; step < kSteps; ++step) {
        DenseSystem system = systems[static_cast<std::size_t>(step) % systems.size()];
        Factor_And_Solve(system);
        sum += system.b[0];
    }
    return sum;
}

void Solve() {
    Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, Model.RunTable.PinForce, Model.RunTable.LinkTorque);
    benchmark::DoNotOptimize(Model.RunTable.LinkTorque(Model.NSteps, 0));
}

/// The default linkage with its masses, run; loads on links 3 and 4 besides, and friction.
void Take_Loaded_Linkage(bool loads) {
    Take_Default_Linkage(kSteps);
    Model.FrictionForce = loads ? 2 : 0;
    for (const int link : {3, 4}) {
        Model.ExtForceMag(link) = loads ? 5 : 0;
        Model.ExtForceAng(link) = loads ? 40 : 0;
        Model.ExtTorque(link) = loads ? 1.5 : 0;
    }
    Model.ForceDist3 = Model.ForceDist4 = loads ? 0.8 : 0;
    Model.ForceAng3 = Model.ForceAng4 = loads ? 35 : 0;
    Resolve_Forces(Model);
    Run();
}

void Solve_2881_Steps(benchmark::State& state) {
    const std::vector<DenseSystem> systems = Dense_Systems();
    Take_Loaded_Linkage(state.range(0) != 0);
    const Times times = Beside(state, Solve, [&] { benchmark::DoNotOptimize(Floor(systems)); });
    state.counters["ratio_to_floor"] = times.all / times.all_floor;
}
BENCHMARK(Solve_2881_Steps)->Arg(0)->Arg(1)->ArgName("loads")->UseManualTime()->Unit(benchmark::kMillisecond);

void Floor_2881_Dense_Systems(benchmark::State& state) {
    const std::vector<DenseSystem> systems = Dense_Systems();
    for (auto _ : state) benchmark::DoNotOptimize(Floor(systems));
}
BENCHMARK(Floor_2881_Dense_Systems)->Unit(benchmark::kMillisecond);

/// From the button on the balancing screen to its tables, its list of pulses and its two graphs.
void Balance_Button(benchmark::State& state) {
    Take_Default_Linkage(static_cast<int>(state.range(0)));
    Run();
    Solve();
    auto& screen = static_cast<frm_Balance&>(platform::Screens::Get("frm_Balance"));
    screen.Form_Activate();
    for (auto _ : state) {
        Balance_Dropped();
        screen.cmd_Calc.OnClick();
        if (!Model.BalanceDone || screen.pct_Pict1.Lines.Get().empty()) state.SkipWithError("nothing was balanced");
    }
}
BENCHMARK(Balance_Button)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

/// The same without the screen: counterweights solved, sums, averages, smoothed torque.
void Balance_Tables(benchmark::State& state) {
    Take_Default_Linkage(static_cast<int>(state.range(0)));
    Run();
    Solve();
    for (auto _ : state) {
        Default_Weights(Model);
        Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        Smooth_Torque(Model, 0.05, Model.RunTable.BalancedMoment);
    }
}
BENCHMARK(Balance_Tables)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

/// One move of a shift-drag and a solve behind it.
void Drag_Move_And_Solve(benchmark::State& state) {
    frm_Animate& screen = Animate_Screen(static_cast<int>(state.range(0)));
    SmallCircle mouse;
    for (auto _ : state) {
        Drag_Once(state, screen, mouse);
        Solve();
    }
}
BENCHMARK(Drag_Move_And_Solve)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
