// The live plots of the animate screen in a real window: a move of a drag, and a run that plays, each with four
// functions beside the drawing. Beside it the plain filling of as many pixels as the graphs and the picture have.
#include <benchmark/benchmark.h>

#include <algorithm>

#include "bench/beside.h"
#include "bench/drag.h"
#include "bench/windows.h"
#include "core/linkage_model.h"
#include "dynamics/dynacalc.h"

namespace verlink::bench {

namespace {

constexpr const char* kForces = "Force of Link 1 on 2  -  X, Y, Mag, Ang Coordinates";
constexpr const char* kVelocities = "Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates";

/// The window with the pane open and that preset in it.
frm_Animate& Live_Window(Windows& windows, int steps, const char* preset) {
    frm_Animate& screen = Animate_Screen(steps);
    for (int link = 2; link <= 4; ++link) {
        Model.LinkMass(link) = 0.1 * link;
        Model.LinkInertia(link) = 0.05 * link;
        Model.CG(link, 0) = 0.4;
    }
    Solve_Forces(Model);
    desktop::Form& form = windows.Open("frm_Animate");
    form.resize(1366, 768);
    screen.mnu_ViewLive.Choose(true);
    screen.live.Arrived();
    const auto& presets = screen.live.cmb_LivePreset.Items();
    screen.live.cmb_LivePreset.Choose(
        static_cast<int>(std::find(presets.begin(), presets.end(), preset) - presets.begin()));
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    return screen;
}

/// Steps of the run, and whether the functions are forces, which are solved anew at each move.
void Live_Drag_Move(benchmark::State& state) {
    Windows windows;
    const bool forces = state.range(1) != 0;
    frm_Animate& screen = Live_Window(windows, static_cast<int>(state.range(0)), forces ? kForces : kVelocities);
    SmallCircle mouse;
    const Times times = Beside(
        state,
        [&] {
            Drag_Once(state, screen, mouse);
            QApplication::processEvents();
        },
        Fill<1366, 768>);
    if (screen.live.grf_Live[4].NumPoints() != state.range(0) || forces != Model.DynamicsDone)
        state.SkipWithError("four functions were not shown");
    state.counters["ratio_to_floor"] = times.all / static_cast<double>(state.iterations()) / times.least_floor;
    screen.mnu_ViewLive.Choose(false);
}
BENCHMARK(Live_Drag_Move)
    ->ArgNames({"steps", "forces"})
    ->Args({361, 0})
    ->Args({361, 1})
    ->Args({2881, 0})
    ->Args({2881, 1})
    ->UseManualTime()
    ->MinTime(0.3)
    ->Unit(benchmark::kMillisecond);

/// A run at no delay with coupler path, centrodes and live plots; frames a second of this thread's processor time.
void Live_Run(benchmark::State& state) {
    Windows windows;
    const int steps = static_cast<int>(state.range(0));
    frm_Animate& screen = Live_Window(windows, steps, kVelocities);
    screen.chk_Centrodes.Value = true;
    screen.hsc_speed.SetValue(32767);
    screen.txt_Cycles.Text = "1";
    const Times times = Beside(
        state, [&] { Play_Once(screen); }, Fill<1366, 768>);
    const double frames = static_cast<double>(state.iterations()) * steps;
    state.counters["frames_per_s"] = frames / times.all;
    state.counters["ratio_to_floor"] = times.all / frames / times.least_floor;
    if (screen.live.grf_Live[4].Cursor != steps) state.SkipWithError("the cursor did not go along");
    screen.mnu_ViewLive.Choose(false);
    screen.chk_Centrodes.Value = false;
}
BENCHMARK(Live_Run)->Arg(361)->Arg(2881)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
