// The hand on plots that are drawn as pictures: the same read-out, enlarging and return as on graphs.
#include "desktop/plot_hand.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QSvgRenderer>
#include <QWheelEvent>
#include <cmath>

#include "desktop/caption.h"
#include "desktop/picture_menu.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_pane.h"
#include "platform/graph.h"
#include "platform/plot_box.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

namespace {

constexpr platform::Color kBlue = 0xFF0000;

/// A plot as the program draws one: over 0 to 360 and -2 to 2 with room at the sides, with a label at 2.
class PlotHandTest : public DesktopTest {
   protected:
    platform::Screen screen{"frm_Plots"};
    platform::PlotBox box{screen, "pct_Plot"};
    QWidget window;
    desktop::PictureWidget* picture = new desktop::PictureWidget(box.Drawing(), &window);
    desktop::PictureMenu* menu =
        new desktop::PictureMenu(box, *picture, "plot", [this] { return desktop::sourceOf(*picture); });
    desktop::PlotHand* hand = new desktop::PlotHand(box, picture);
    desktop::Caption* label = new desktop::Caption(&window);

    void Open(bool polar = false) {
        if (!polar) picture->fill();
        auto* pane = new desktop::PlotPane(picture, &window);
        label->setText(QStringLiteral("two"));
        pane->add(label, 0.2, 0.5, desktop::PlotPane::Side::kLeft);
        pane->setGeometry(0, 0, 802, polar ? 802 : 402);
        window.resize(pane->size());
        Draw(polar);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        Settle();
    }
    void Draw(bool polar) {
        auto& drawing = box.Drawing();
        drawing.Cls();
        drawing.Scale(polar ? -2.5 : -60, 2.5, polar ? 2.5 : 380, -2.5);
        platform::Plot_Reading reading;
        reading.polar = polar;
        reading.across = "Crank Angle (Deg)";
        reading.color = kBlue;
        reading.values = {{"Omega4 Mag", "Rad/Sec", {}}};
        for (int i = 0; i <= 36; ++i) {
            const double a = i * 10 * 0.017453292519943295;
            reading.labels.push_back(std::to_string(10 * i));
            reading.x.push_back(polar ? 2 * std::cos(a) : 10 * i);
            reading.y.push_back(polar ? 2 * std::sin(a) : 2 * std::cos(a));
            reading.values[0].at.push_back(reading.y.back());
            if (i) drawing.Line(reading.x[i - 1], reading.y[i - 1], reading.x[i], reading.y[i], kBlue);
        }
        box.Read(reading);
        hand->follow();
    }
    static void Settle() {
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }
    void Wheel(const QPointF& at, int delta) {
        QWheelEvent event(at, hand->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(hand, &event);
    }
    void Drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(hand, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, hand->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(hand, &move);
        QTest::mouseRelease(hand, Qt::LeftButton, {}, to);
    }
    void Expect_View(double left, double top, double wide, double high) {
        EXPECT_NEAR(hand->view().left(), left, 1e-9);
        EXPECT_NEAR(hand->view().top(), top, 1e-9);
        EXPECT_NEAR(hand->view().width(), wide, 1e-9);
        EXPECT_NEAR(hand->view().height(), high, 1e-9);
    }
    QImage Shot() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    /// The highest and the lowest row with the curve's colour.
    static QPoint Rows(const QImage& image) {
        QPoint rows(-1, -1);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == qRgb(0, 0, 255)) rows = {rows.x() < 0 ? y : rows.x(), y};
        return rows;
    }
};

}  // namespace

TEST_F(PlotHandTest, Reads_the_point_under_the_pointer_with_its_unit) {
    Open();
    // 800 by 400 pixels over 440 degrees and 5 units.
    EXPECT_EQ(hand->size(), QSize(800, 400));
    const QPointF at = hand->place(92, 1.5);
    EXPECT_NEAR(at.x(), (92 + 60) * 800 / 440.0, 1e-9);
    EXPECT_NEAR(at.y(), (2.5 - 1.5) * 400 / 5.0, 1e-9);
    EXPECT_EQ(hand->readOut(hand->place(182, 1.5)), (QStringList{"Crank Angle (Deg) 180", "Omega4 Mag -2 Rad/Sec"}));
    EXPECT_EQ(hand->readOut(hand->place(118, -2)), (QStringList{"Crank Angle (Deg) 120", "Omega4 Mag -1 Rad/Sec"}));
    EXPECT_TRUE(hand->readOut(hand->place(-20, 0)).isEmpty()) << "beside the curve";
    EXPECT_TRUE(hand->readOut({900, 10}).isEmpty());
    box.Read({});
    EXPECT_TRUE(hand->readOut(at).isEmpty()) << "nothing is drawn";
}

TEST_F(PlotHandTest, Reads_the_tip_next_to_the_pointer_of_a_polar_plot) {
    Open(true);
    EXPECT_EQ(hand->readOut(hand->place(0.1, 1.2)).constFirst(), "Crank Angle (Deg) 90");
    EXPECT_EQ(hand->readOut(hand->place(-1.5, -0.1)).constFirst(), "Crank Angle (Deg) 180");
}

TEST_F(PlotHandTest, The_wheel_enlarges_about_the_pointer_and_never_shows_more_than_all) {
    Open();
    Wheel({200, 300}, 120);
    Expect_View(0.25 * 0.15, 0.75 * 0.15, 0.85, 0.85);
    EXPECT_NEAR(hand->place(50, -1.25).x(), 200, 1e-9) << "what was under the pointer is there still";
    Wheel({200, 300}, -120);
    Expect_View(0, 0, 1, 1);
    Wheel({200, 300}, -1200);
    Expect_View(0, 0, 1, 1);
}

TEST_F(PlotHandTest, A_frame_shows_that_part_and_a_double_click_all) {
    Open();
    Drag({600, 300}, {400, 100});
    Expect_View(0.5, 0.25, 0.25, 0.5);
    Drag({400, 100}, {405, 300});
    Expect_View(0.5, 0.25, 0.25, 0.5);
    Drag({40, 20}, {440, 220});
    Expect_View(0.5125, 0.275, 0.125, 0.25);
    QTest::mouseDClick(hand, Qt::LeftButton, {}, {10, 10});
    Expect_View(0, 0, 1, 1);
    QTest::mouseRelease(hand, Qt::LeftButton, {}, {300, 300});
    Expect_View(0, 0, 1, 1);
}

TEST_F(PlotHandTest, A_frame_on_a_polar_plot_keeps_its_shape) {
    Open(true);
    Drag({200, 200}, {400, 300});
    Expect_View(0.25, 0.1875, 0.25, 0.25);
}

TEST_F(PlotHandTest, What_is_enlarged_covers_the_labels_and_moves_the_curve) {
    Open();
    const QImage whole = Shot();
    // The curve goes from 2 to -2 of 2.5: from row 40 to row 360.
    EXPECT_NEAR(Rows(whole).x(), 41, 3);
    EXPECT_NEAR(Rows(whole).y(), 361, 3);
    Drag({0, 100}, {800, 300});
    const QImage part = Shot();
    EXPECT_LE(Rows(part).x(), 4) << "it runs out of the part at both sides";
    EXPECT_GE(Rows(part).y(), 396);
    EXPECT_NE(part.copy(label->geometry()), whole.copy(label->geometry()));
    hand->showAll();
    EXPECT_EQ(Shot(), whole);
}

TEST_F(PlotHandTest, Each_part_is_painted_anew) {
    Open();
    Drag({300, 100}, {500, 300});
    EXPECT_GE(Rows(Shot()).x(), 0);
    hand->showAll();
    Drag({20, 20}, {70, 70});
    EXPECT_EQ(Rows(Shot()).x(), -1) << "no curve passes there";
}

TEST_F(PlotHandTest, The_part_stays_while_the_plot_is_drawn_anew_over_the_same_window) {
    Open();
    Drag({400, 100}, {600, 300});
    Draw(false);
    Expect_View(0.5, 0.25, 0.25, 0.5);
    box.Drawing().Scale(-60, 5, 380, -5);
    hand->follow();
    Expect_View(0, 0, 1, 1);
}

TEST_F(PlotHandTest, Files_have_what_is_seen_with_the_labels_and_without_the_pointer) {
    Open();
    platform::Picture_Maker& maker = menu->maker();
    EXPECT_EQ(maker.Wide(), 800);
    EXPECT_EQ(maker.High(), 400);
    QImage image;
    ASSERT_TRUE(image.loadFromData(QByteArray::fromStdString(maker.File(platform::Picture_Kind::kPng, 2))));
    EXPECT_EQ(image.size(), QSize(1600, 800));
    EXPECT_NEAR(Rows(image.convertToFormat(QImage::Format_RGB32)).x(), 80, 4);
    const std::string vectors = maker.File(platform::Picture_Kind::kSvg, 1);
    EXPECT_NE(vectors.find(">two<"), std::string::npos);
    EXPECT_EQ(vectors.find("<image"), std::string::npos);
    EXPECT_TRUE(QSvgRenderer(QByteArray::fromStdString(vectors)).isValid());
    EXPECT_EQ(maker.File(platform::Picture_Kind::kPdf, 1).substr(0, 5), "%PDF-");

    const platform::Pixels whole = maker.Paint(1);
    Drag({400, 100}, {600, 300});
    const platform::Pixels part = maker.Paint(1);
    EXPECT_EQ(part.wide, 800);
    EXPECT_NE(part.colors, whole.colors);
    hand->showAll();
    QTest::mouseMove(hand, {300, 200});
    EXPECT_EQ(maker.Paint(1).colors, whole.colors);
}

class PlotScreensTest : public ScreensTest {};

TEST_F(PlotScreensTest, Every_plot_has_a_hand_and_a_line_that_tells_of_it) {
    int graphs = 0, pictures = 0;
    ForEach([&](platform::Screen& plots, desktop::Form& form) {
        for (platform::Control* control : plots.Controls()) {
            const auto* graph = dynamic_cast<platform::Graph*>(control);
            const auto* drawn = dynamic_cast<platform::PlotBox*>(control);
            if (!graph && !drawn) continue;
            const auto* visual = static_cast<const platform::Visual*>(control);
            for (const char* word : {"wheel", "frame", "double click", "right click"})
                if (!graph || !graph->OnSeek) {
                    EXPECT_NE(visual->Tip.Get().find(word), std::string::npos) << control->ObjectName() << " " << word;
                }
            EXPECT_EQ(visual->Tip.Get().find('\n'), std::string::npos);
            graphs += graph != nullptr;
            if (!drawn) continue;
            ++pictures;
            int hands = 0;
            const auto* picture = static_cast<QWidget*>(form.objectOf(*control));
            for (QWidget* widget : picture->parentWidget()->findChildren<QWidget*>())
                hands += dynamic_cast<desktop::PlotHand*>(widget) != nullptr;
            EXPECT_EQ(hands, 1) << control->ObjectName();
        }
    });
    EXPECT_EQ(pictures, 2 + 4 + 1);
    EXPECT_GE(graphs, 1 + 2 + 4);
}

}  // namespace verlink::test
