// A move of a shift-drag with what the desktop adds: the painting, and the whole window.
#include <benchmark/benchmark.h>

#include <QMouseEvent>
#include <QPainter>

#include "bench/drag.h"
#include "bench/windows.h"
#include "desktop/picture_widget.h"

namespace verlink::bench {

void Start_Qt() {
    static int argc = 1;
    static char name[] = "verlink-bench";
    static char* argv[] = {name, nullptr};
    static auto* app = new QApplication(argc, argv);  // not to be taken down after main
    benchmark::DoNotOptimize(app);
}

namespace {

constexpr int kSide = 700;

void Drag_Move_Painted(benchmark::State& state) {
    Start_Qt();
    frm_Animate& screen = Animate_Screen(static_cast<int>(state.range(0)));
    SmallCircle mouse;
    QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        const Place place = mouse.Next();
        screen.Picture1.OnMouseMove(1, 1, place.x, place.y);
        QPainter painter(&image);
        desktop::paintPicture(painter, screen.Picture1.Drawing(), kSide);
    }
}
BENCHMARK(Drag_Move_Painted)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

/// From the mouse event to the painted window, boxes and labels included.
void Drag_Move_In_Window(benchmark::State& state) {
    Windows windows;
    frm_Animate& screen = Animate_Screen(static_cast<int>(state.range(0)));
    desktop::Form& form = windows.Open("frm_Animate");
    SmallCircle mouse;
    desktop::PictureWidget* widget = form.picture("Picture1");
    const platform::Picture& picture = screen.Picture1.Drawing();
    for (auto _ : state) {
        const Place place = mouse.Next();
        const QRectF square = widget->area();
        const double scale = square.width() / (picture.Right() - picture.Left());
        const QPointF at(square.x() + (place.x - picture.Left()) * scale,
                         square.y() + (place.y - picture.Top()) * scale);
        const double angle = Model.DeltaRad, length = Model.Rpa;
        QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         Qt::ShiftModifier);
        QApplication::sendEvent(widget, &move);
        QApplication::processEvents();
        if (Model.DeltaRad == angle && Model.Rpa == length) state.SkipWithError("nothing was dragged");
    }
}
BENCHMARK(Drag_Move_In_Window)->Arg(361)->Arg(2881)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
