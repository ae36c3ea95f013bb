// A body dragged on the screen of linkages for a task, and the first row of its gallery, to the painted window.
#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/windows.h"
#include "screens/frm_explore.h"

namespace verlink::bench {

namespace {

design::Task Task_Of(std::size_t positions) {
    design::Task task;
    task.positions = {{{0, 0}, 0}, {{3, 1}, 20}, {{5, 2.5}, 45}, {{6, 4.5}, 75}, {{6.2, 6}, 95}};
    task.positions.resize(positions);
    return task;
}

frm_Explore& Screen_With(std::size_t positions) {
    auto& screen = dynamic_cast<frm_Explore&>(platform::Screens::Get("frm_Explore"));
    screen.Take_Task(Task_Of(positions));
    return screen;
}

/// A move of a hand, every picture painted.
void Drag_A_Body(benchmark::State& state) {
    Windows windows;
    frm_Explore& screen = Screen_With(static_cast<std::size_t>(state.range(0)));
    desktop::Form& form = windows.Open("frm_Explore");
    const platform::Picture& drawing = screen.Picture1.Drawing();
    const double pixel = (drawing.Right() - drawing.Left()) / 400;
    if (!screen.Picture1.OnSeize({3, 1, 0, pixel})) return state.SkipWithError("no body lies there");
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        screen.Picture1.OnDrag({3 + 0.3 * std::sin(0.1 * turn), 1 + 0.3 * std::cos(0.1 * turn), 0, pixel});
        form.repaint();
        QApplication::processEvents();
    }
    screen.Picture1.OnRelease();
}
BENCHMARK(Drag_A_Body)->DenseRange(2, 5)->UseRealTime()->Unit(benchmark::kMillisecond);

/// From the change of a number until the gallery has its first pictures.
void First_Row_Of_The_Gallery(benchmark::State& state) {
    Windows windows;
    frm_Explore& screen = Screen_With(static_cast<std::size_t>(state.range(0)));
    desktop::Form& form = windows.Open("frm_Explore");
    int turn = 0;
    for (auto _ : state) {
        screen.txt_Angle[2].Type(std::to_string(20 + ++turn % 3));
        screen.txt_Angle[2].OnReturn();
        form.repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(First_Row_Of_The_Gallery)->DenseRange(2, 5)->UseRealTime()->Unit(benchmark::kMillisecond);

/// Playing, with all small pictures.
void A_Frame_Of_The_Gallery(benchmark::State& state) {
    Windows windows;
    frm_Explore& screen = Screen_With(3);
    desktop::Form& form = windows.Open("frm_Explore");
    int turn = 0;
    for (auto _ : state) {
        screen.hsc_Stroke.SetValue(++turn % frm_Explore::kStroke);
        form.repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(A_Frame_Of_The_Gallery)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
