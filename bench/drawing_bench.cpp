// What takes longest to draw, each from the program's own drawing to the painted window; the worst of all drawings of a
// case counts, in the time that this thread had a processor. Beside it the time that the plain filling of as many
// pixels takes.
#include <benchmark/benchmark.h>

#include <QWheelEvent>
#include <functional>
#include <string>

#include "bench/beside.h"
#include "bench/windows.h"
#include "core/linkage_model.h"
#include "desktop/picture_widget.h"
#include "output/cartesian.h"
#include "output/polar.h"
#include "screens/frm_cayley.h"
#include "synthesis/cognates.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

/// A run over so many turns of the crank, by angle (3) or by time (2).
void Run_Of(int mode, int turns, int steps = kSteps) {
    Take_Default_Linkage(steps, turns);
    if (mode == 2) {
        Model.Omega2Input = 6.2831853;
        Model.Alpha2 = 0;
        Model.TimeStart = 0;
        Model.TimeEnd = turns;
        Model.TimeStep = static_cast<double>(turns) / (steps - 1);
        Model.NSteps = steps - 1;
    }
    Run(mode);
    Model.ZoomFactor = 1;
    Model.TraceFlag = "N";
    Model.ShowCouplerFlag = "Y";
    Model.ShowCouplerLinesFlag = "N";
    Model.ShowCentrodesFlag = "N";
    Model.HideLinksFlag = "N";
    Model.AnimateWait = 0;
    Model.Cycles = 1;
}

frm_Animate& Animate_Window(Windows& windows) {
    auto& screen = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    windows.Open("frm_Animate").resize(1366, 768);
    screen.Form_Activate();
    screen.chk_autoscale.Value = true;
    screen.chk_Coupler.Value = true;
    screen.txt_Cycles.Text = "1";
    screen.cmb_wait.Text = "0";
    QApplication::processEvents();
    return screen;
}

/// The worst of all turns is what counts.
void Worst(benchmark::State& state, const std::function<void()>& draw) {
    const Times times = Beside(state, draw, Fill<700, 700>);
    state.counters["worst_ms"] = 1e3 * times.worst;
    state.counters["ratio_to_floor"] = times.worst / times.least_floor;
}

void Painted(const char* screen, const std::function<void()>& draw, Windows& windows) {
    draw();
    windows.qt.formOf(platform::Screens::Get(screen)).repaint();
}

/// A still picture: mode, turns, and how often Zoom In (or, below zero, Out) was pressed.
void Still_Picture(benchmark::State& state) {
    Run_Of(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Windows windows;
    frm_Animate& screen = Animate_Window(windows);
    screen.chk_CouplerLines.Value = state.range(3) != 0;
    for (int i = 0; i < state.range(2); ++i) screen.zoom.mnu_Plus.OnClick();
    for (int i = 0; i > state.range(2); --i) screen.zoom.mnu_Minus.OnClick();
    Worst(state, [&] {
        Painted(
            "frm_Animate", [&] { screen.cmd_Reset.OnClick(); }, windows);
    });
    state.counters["primitives"] = static_cast<double>(screen.Picture1.Drawing().Alive());
}
BENCHMARK(Still_Picture)
    ->ArgNames({"mode", "turns", "zoomed", "lines"})
    ->Args({3, 1, 0, 0})
    ->Args({3, 58, 0, 0})
    ->Args({3, 58, 0, 1})
    ->Args({3, 58, 30, 0})
    ->Args({3, 58, 200, 0})
    ->Args({3, 58, -30, 0})
    ->Args({3, 977, 0, 0})
    ->Args({3, 977, 30, 0})
    ->Args({2, 1, 0, 0})
    ->Args({2, 58, 0, 0})
    ->Args({2, 58, 0, 1})
    ->Args({2, 58, 30, 0})
    ->Args({2, 58, 200, 0})
    ->Args({2, 58, -30, 0})
    ->UseManualTime()
    ->MinTime(0.2)
    ->Unit(benchmark::kMillisecond);

/// A run that is played with Trace: the whole, and its longest frame.
void Trace(benchmark::State& state) {
    Run_Of(3, 1, static_cast<int>(state.range(0)) + 1);
    Windows windows;
    frm_Animate& screen = Animate_Window(windows);
    screen.chk_Trace.Value = true;
    screen.chk_Coupler.Value = state.range(1) != 0;
    screen.chk_Centrodes.Value = state.range(1) != 0;
    Beside(
        state, [&] { Play_Once(screen); }, [] {});
    // What a window that has another size costs afterwards, and how long it does not answer.
    desktop::Form& form = windows.qt.formOf(screen);
    const auto* picture = form.picture("Picture1");
    double longest = 0, whole = 0;
    form.resize(1360, 760);
    do {
        const double start = Processor_Time();
        QApplication::processEvents();
        const double took = Processor_Time() - start;
        longest = std::max(longest, took);
        whole += took;
    } while (!picture->paintedAll());
    state.counters["longest_turn_ms"] = 1e3 * longest;
    state.counters["afresh_ms"] = 1e3 * whole;
    state.counters["primitives"] = static_cast<double>(screen.Picture1.Drawing().Alive());
}
BENCHMARK(Trace)
    ->ArgNames({"frames", "curve"})
    ->Args({360, 0})
    ->Args({360, 1})
    ->Args({2880, 0})
    ->Args({2880, 1})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// A run at no delay with the path of the coupler point and the centrodes, each frame painted in the window.
void Play(benchmark::State& state) {
    const int frames = static_cast<int>(state.range(0));
    Run_Of(3, 1, frames);
    Windows windows;
    frm_Animate& screen = Animate_Window(windows);
    screen.chk_Centrodes.Value = true;
    const Times times = Beside(
        state, [&] { Play_Once(screen); }, Fill<700, 700>);
    state.counters["frames_per_second"] = frames / times.least;
    state.counters["frame_to_floor"] = times.least / frames / times.least_floor;
}
BENCHMARK(Play)->ArgName("frames")->Arg(361)->Arg(2881)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Cayley's diagram, so often enlarged (or, below zero, made smaller).
void Cayley(benchmark::State& state) {
    Run_Of(3, 1);
    Windows windows;
    SeedCognate();
    auto& screen = static_cast<frm_Cayley&>(platform::Screens::Get("frm_Cayley"));
    windows.Open("frm_Cayley");
    screen.Form_Activate();
    for (int i = 0; i < state.range(0); ++i) screen.zoom.mnu_Plus.OnClick();
    for (int i = 0; i > state.range(0); --i) screen.zoom.mnu_Minus.OnClick();
    Worst(state, [&] {
        Painted(
            "frm_Cayley", [&] { screen.zoom.mnu_Plus.OnClick(); }, windows);
        Painted(
            "frm_Cayley", [&] { screen.zoom.mnu_Minus.OnClick(); }, windows);
    });
    Model.ZoomFactor = 1;
}
BENCHMARK(Cayley)->Arg(0)->Arg(30)->Arg(150)->Arg(-30)->UseManualTime()->MinTime(0.2)->Unit(benchmark::kMillisecond);

void Turn_Wheel(QWidget& plot) {
    const QPointF at(plot.width() * 0.41, plot.height() * 0.6);
    QWheelEvent turn(at, plot.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&plot, &turn);
}

/// Four functions of 2881 points: sticks or lines, thick or thin, dashed or not, how many turns, how far enlarged.
void Graph_Of_Four(benchmark::State& state) {
    Run_Of(3, static_cast<int>(state.range(3)));
    Windows windows;
    auto& choice = platform::Screens::Get("frm_PlotSelect1");
    auto& plot = platform::Screens::Get("frm_Plot1");
    choice.Get<platform::ComboBox>("cmb_Preset").Text = "Velocity of Coupler Point  -  X, Y, Mag, Ang Coordinates";
    choice.Get<platform::ComboBox>("cmb_Preset").OnClick();
    Model.GraphWindows = 1;
    Model.PlotStyle = 1;
    windows.Open("frm_Plot1");
    auto& graph = plot.Get<platform::Graph>("grf_Plot", 0);
    QWidget* widget = windows.qt.formOf(plot).widget("grf_Plot", 0);
    const auto set = [&] {
        graph.GraphStyle = static_cast<int>(state.range(0));
        graph.ThickLines = static_cast<int>(state.range(1));
        graph.PatternedLines = static_cast<int>(state.range(2));
    };
    Worst(state, [&] {
        Painted(
            "frm_Plot1",
            [&] {
                Plot_Setup(plot, 1);
                MultiPlot(plot, choice);
                set();
                graph.Draw();
            },
            windows);
        QApplication::processEvents();
        for (int i = 0; i < state.range(4); ++i) Turn_Wheel(*widget->findChild<QWidget*>());
        QApplication::processEvents();
        widget->repaint();
    });
}
BENCHMARK(Graph_Of_Four)
    ->ArgNames({"style", "thick", "patterned", "turns", "wheel"})
    ->Args({4, 0, 0, 2, 0})
    ->Args({4, 1, 1, 2, 0})
    ->Args({6, 1, 1, 2, 0})
    ->Args({4, 0, 0, 2, 40})
    ->Args({4, 1, 1, 2, 40})
    ->Args({4, 0, 0, 58, 0})
    ->Args({6, 1, 1, 58, 0})
    ->Args({6, 1, 1, 58, 40})
    ->Args({4, 0, 0, 977, 0})
    ->Args({6, 1, 1, 977, 0})
    ->UseManualTime()
    ->MinTime(0.2)
    ->Unit(benchmark::kMillisecond);

/// The polar plot of 2881 vectors: path, vectors or both.
void Polar(benchmark::State& state) {
    Run_Of(3, static_cast<int>(state.range(1)));
    Windows windows;
    auto& choice = platform::Screens::Get("frm_PlotSelect4");
    auto& plot = platform::Screens::Get("frm_MyPlot4");
    windows.Open("frm_PlotSelect4");
    choice.Form_Activate();
    auto& variable = choice.Get<platform::ComboBox>("cmb_Var1");
    variable.Text = variable.Items().front();
    variable.OnClick();
    windows.Open("frm_MyPlot4");
    plot.Get<platform::CheckBox>("chk_Envelope").Value = state.range(0) != 2;
    plot.Get<platform::CheckBox>("chk_Vectors").Value = state.range(0) != 1;
    auto& picture = plot.Get<platform::PictureBox>("pct_Plot").Drawing();
    Worst(state, [&] {
        Painted(
            "frm_MyPlot4",
            [&] {
                MyPolarPlotSetup(plot);
                MyPolarPlot(plot, choice);
            },
            windows);
    });
    state.counters["primitives"] = static_cast<double>(picture.Alive());
    if (picture.Alive() < 1000) state.SkipWithError("there was no plot");
}
BENCHMARK(Polar)
    ->ArgNames({"what", "turns"})
    ->Args({1, 2})
    ->Args({3, 2})
    ->Args({1, 58})
    ->Args({3, 58})
    ->UseManualTime()
    ->MinTime(0.2)
    ->Unit(benchmark::kMillisecond);

/// Two or four aligned windows.
void Aligned(benchmark::State& state) {
    Run_Of(3, static_cast<int>(state.range(1)));
    Windows windows;
    const bool two = state.range(0) == 2;
    auto& choice = platform::Screens::Get(two ? "frm_PlotSelect2" : "frm_PlotSelect3");
    auto& plot = platform::Screens::Get(two ? "frm_Myplot2" : "frm_MyPlot3");
    windows.Open(choice.Name().c_str());
    choice.Form_Activate();
    auto& preset = choice.Get<platform::ComboBox>("cmb_Preset");
    preset.Text = preset.Items().at(two ? 0 : preset.Items().size() - 1);
    preset.OnClick();
    windows.Open(plot.Name().c_str());
    Worst(state, [&] {
        Painted(
            plot.Name().c_str(),
            [&] {
                MyPlotSetup(plot, static_cast<int>(state.range(0)));
                MyPlot(plot, choice, static_cast<int>(state.range(0)));
            },
            windows);
    });
    const std::size_t drawn = plot.Get<platform::PictureBox>("pct_Plot", 0).Drawing().Alive();
    if (drawn < 1000) state.SkipWithError("there was no plot");
}
BENCHMARK(Aligned)
    ->ArgNames({"windows", "turns"})
    ->Args({2, 2})
    ->Args({4, 2})
    ->Args({2, 58})
    ->Args({4, 58})
    ->UseManualTime()
    ->MinTime(0.2)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
