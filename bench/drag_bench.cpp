// A move of a shift-drag: the run solved anew and the linkage drawn, without any window.
#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/drag.h"
#include "bench/program.h"
#include "core/linkage_model.h"
#include "platform/screen.h"

namespace verlink::bench {

frm_Animate& Animate_Screen(int steps) {
    Take_Default_Linkage(steps);
    Model.ShowCouplerFlag = "Y";
    Run();
    auto& screen = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    screen.Form_Activate();
    screen.chk_Coupler.Value = true;
    screen.opt_Shift_Drag[0].Value = true;
    screen.Timer1.Tick();
    return screen;
}

SmallCircle::SmallCircle()
    : centre_{Model.RunTable.PointXY(0, 2, 0), Model.FlipSum - Model.RunTable.PointXY(0, 2, 1)},
      radius_(Model.Rpa / 10.0) {}

Place SmallCircle::Next() {
    const double turn = 0.1 * ++count_;
    return {centre_.x + radius_ * std::cos(turn), centre_.y + radius_ * std::sin(turn)};
}

void Drag_Once(benchmark::State& state, frm_Animate& screen, SmallCircle& mouse) {
    const Place place = mouse.Next();
    const double angle = Model.DeltaRad, length = Model.Rpa;
    screen.Picture1.OnMouseMove(1, 1, place.x, place.y);
    if ((Model.DeltaRad == angle && Model.Rpa == length) || !Model.Calculated)
        state.SkipWithError("nothing was dragged");
}

namespace {

void Drag_Move(benchmark::State& state) {
    frm_Animate& screen = Animate_Screen(static_cast<int>(state.range(0)));
    SmallCircle mouse;
    for (auto _ : state) Drag_Once(state, screen, mouse);
    state.counters["primitives"] = static_cast<double>(screen.Picture1.Drawing().Alive());
}
BENCHMARK(Drag_Move)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
