// What the tests of a graph's widget start from: a graph of sine curves, shown in a window.
#pragma once

#include <QImage>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>
#include <memory>
#include <string>

#include "desktop/graph_widget.h"
#include "platform/graph.h"
#include "tests/desktop/user.h"

namespace verlink::test {

class GraphWidgetTest : public DesktopTest {
   protected:
    platform::Screen screen{"frm_Graphs"};
    platform::Graph graph{screen, "grf_Plot", 0};
    std::unique_ptr<desktop::GraphWidget> widget;

    void Fill(int sets, int last) {
        graph.SetNumSets(sets);
        graph.SetNumPoints(last + 1);
        for (graph.ThisSet = 1; graph.ThisSet <= sets; ++graph.ThisSet) {
            const int set = graph.ThisSet;
            for (int i = 0; i <= last; ++i) {
                graph.ThisPoint = i + 1;
                graph.SetGraphData(set * std::sin(i * 6.283185307 / last));
                graph.SetLabelText(std::to_string(i));
            }
            graph.SetLegendText(std::string("Function ").append(std::to_string(set)));
            graph.SetPatternData(set - 1);
        }
        graph.PatternedLines = 1;
        graph.LabelEvery = 12;
        graph.TickEvery = 6;
        graph.BottomTitle = "Crank Angle (Deg)";
    }

    void Open(QSize size = {900, 500}) {
        widget = std::make_unique<desktop::GraphWidget>(graph, nullptr);
        graph.Watcher = [this] { widget->follow(); };
        widget->resize(size);
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
        Settle();
    }
    ~GraphWidgetTest() override { graph.Watcher = nullptr; }

    void Draw() {
        graph.Draw();
        Settle();
    }
    static void Settle() {
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }

    QImage Shot() { return widget->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    static int Pixels(const QImage& image, QRgb color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == color) ++count;
        return count;
    }
    static QRgb Rgb(platform::Color color) { return qRgb(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF); }
    QWidget* Plot() { return widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly).constFirst(); }

    void Wheel(const QPoint& at, int delta) {
        QWheelEvent event(at, widget->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(Plot(), &event);
        Settle();
    }
    void Drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(Plot(), Qt::LeftButton, {}, from);
        for (const QPoint& at : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, at, Plot()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(Plot(), &move);
        }
        QTest::mouseRelease(Plot(), Qt::LeftButton, {}, to);
        Settle();
    }
};

}  // namespace verlink::test
