// The pane of live plots in a real window: the hand in its graphs, and its width.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSplitter>
#include <algorithm>

#include "core/parameters.h"
#include "core/runs.h"
#include "desktop/graph_widget.h"
#include "platform/settings.h"
#include "screens/frm_animate.h"
#include "shell/initialize.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;
using desktop::GraphWidget;

namespace {

class LivePlotsTest : public DesktopTest {
   protected:
    LivePlotsTest() {
        Initialize();
        The_Settings().Open(qt.Settings_Folder());
        Run();
    }
    static void Run() {
        Model.Calctype = 3;
        Model.ThetaStart = 0;
        Model.ThetaEnd = 360;
        Model.ThetaStep = 10;
        Derive_Angle_Limits();
        Model.NSteps = 36;
        Integer result;
        Calc_Setup(3, result);
    }
    static frm_Animate& Screen_Of() { return static_cast<frm_Animate&>(Screens::Get("frm_Animate")); }

    /// The animate screen comes up in a window of that size, the user acts, and leaves.
    void Inside(std::function<void(QWidget&)> user, QSize size = {1366, 768}) {
        Then("frm_Animate", [user, size](QWidget& window) {
            auto& timer = Screen_Of().Timer1;
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            window.resize(size);
            Settle();
            user(window);
            Screen_Of().Hide();
        });
        Screen_Of().ShowModal();
    }
    static void Settle() {
        for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    }
    static void Choose_Preset(QWidget& window, int item) {
        auto& preset = Find<QComboBox>(window, "cmb_LivePreset");
        preset.setFocus(Qt::MouseFocusReason);
        preset.setCurrentIndex(item);
        Q_EMIT preset.activated(item);
        Settle();
    }
    static GraphWidget& Graph_Of(QWidget& window, int number) {
        auto* found = dynamic_cast<GraphWidget*>(
            window.findChild<QWidget*>(QStringLiteral("grf_Live_") + QString::number(number)));
        if (!found) throw std::runtime_error("no graph");
        return *found;
    }
    static QWidget& Plot_Of(GraphWidget& graph) {
        return *graph.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).constFirst();
    }
    static QPoint Middle_At(GraphWidget& graph, int point) { return {graph.place(point, 0).x(), graph.height() / 2}; }
    static void Send(QWidget& plot, QEvent::Type type, const QPoint& at, Qt::MouseButtons down) {
        QMouseEvent event(type, at, plot.mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          down, {});
        QCoreApplication::sendEvent(&plot, &event);
    }
    static std::string Read_Out(QWidget& window) { return Find<QLabel>(window, "lbl_StepNumber").text().toStdString(); }
    static void Move_Handle(QWidget& window, int by) {
        QWidget* handle = Find<QSplitter>(window, "qt_split_Drawing").handle(1);
        const QPoint at = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, at);
        Send(*handle, QEvent::MouseMove, at + QPoint(by, 0), Qt::LeftButton);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, at + QPoint(by, 0));
        Settle();
    }
};

TEST_F(LivePlotsTest, A_click_and_a_drag_in_a_graph_show_the_position_there) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Choose_Preset(window, 0);
        GraphWidget& graph = Graph_Of(window, 2);
        ASSERT_TRUE(graph.isVisible());
        QWidget& plot = Plot_Of(graph);
        QTest::mouseClick(&plot, Qt::LeftButton, {}, Middle_At(graph, 18));
        EXPECT_EQ(Read_Out(window), "180.0");
        EXPECT_EQ(Find<QScrollBar>(window, "hsc_step").value(), 18);
        EXPECT_EQ(Screen_Of().live.grf_Live[1].Cursor, 19) << "in the other graphs as well";

        Send(plot, QEvent::MouseButtonPress, Middle_At(graph, 9), Qt::LeftButton);
        EXPECT_EQ(Read_Out(window), "90.0");
        Send(plot, QEvent::MouseMove, Middle_At(graph, 27), Qt::LeftButton);
        EXPECT_EQ(Read_Out(window), "270.0");
        // Beyond the end of the axis stands the last.
        Send(plot, QEvent::MouseMove, {plot.width() + 40, 5}, Qt::LeftButton);
        EXPECT_EQ(Read_Out(window), "360.0");
        EXPECT_EQ(Find<QScrollBar>(window, "hsc_step").value(), 36);
        Send(plot, QEvent::MouseButtonRelease, {plot.width() + 40, 5}, Qt::NoButton);
        Send(plot, QEvent::MouseMove, Middle_At(graph, 5), Qt::NoButton);
        EXPECT_EQ(Find<QScrollBar>(window, "hsc_step").value(), 36) << "the hand has let go";
    });
}

TEST_F(LivePlotsTest, A_window_that_grows_with_the_pane_stays_on_the_display) {
    const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
    if (display.width() < 1366) GTEST_SKIP() << "no room for it";
    Inside(
        [&](QWidget& window) {
            const QRect small = window.frameGeometry();
            window.move(display.right() - small.width() - 9, window.y());
            Settle();
            const int gap = display.right() - window.frameGeometry().right();
            ASSERT_GT(gap, 0);
            Pick(window, "mnu_ViewLive");
            Settle();
            const int grown = window.width() - small.width();
            ASSERT_GT(grown, gap) << "else there is nothing to see";
            EXPECT_EQ(window.frameGeometry().right(), display.right());
            // Where a hand has put it beyond the edge it is not fetched back.
            const QPoint beyond(display.right() - 100, window.y());
            window.move(beyond);
            Settle();
            EXPECT_EQ(window.pos(), beyond);
        },
        {600, 600});
}

TEST_F(LivePlotsTest, The_pane_takes_room_only_while_it_is_open_and_keeps_its_width) {
    int wide = 0;
    Inside(
        [&](QWidget& window) {
            QWidget& picture = Find<QWidget>(window, "Picture1");
            QWidget& pane = Find<QWidget>(window, "fra_Live");
            const QRect before(picture.mapTo(&window, QPoint(0, 0)), picture.size());
            EXPECT_FALSE(pane.isVisible());
            Pick(window, "mnu_ViewLive");
            Settle();
            EXPECT_TRUE(pane.isVisible());
            EXPECT_GE(pane.width(), 260);
            const int usual = pane.width();
            Move_Handle(window, 60);
            wide = pane.width();
            EXPECT_NE(wide, usual);
            EXPECT_EQ(The_Settings().Number("live.width"), wide);
            Pick(window, "mnu_ViewLive");
            Settle();
            EXPECT_FALSE(pane.isVisible());
            EXPECT_EQ(QRect(picture.mapTo(&window, QPoint(0, 0)), picture.size()), before);
            Pick(window, "mnu_ViewLive");
            Settle();
            EXPECT_NEAR(pane.width(), wide, 2);
        },
        {1700, 900});
    // The next session.
    The_Settings().Save();
    qt.discardForms();
    Screens::Discard();
    The_Settings().Open(qt.Settings_Folder());
    Inside(
        [&](QWidget& window) {
            EXPECT_TRUE(Find<QWidget>(window, "fra_Live").isVisible());
            EXPECT_NEAR(Find<QWidget>(window, "fra_Live").width(), wide, 2);
        },
        {1700, 900});
}

TEST_F(LivePlotsTest, The_graphs_stand_in_line_over_one_axis) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Choose_Preset(window, 5);
        const int first = Graph_Of(window, 1).place(9, 0).x();
        for (const int number : {2, 3, 4}) EXPECT_EQ(Graph_Of(window, number).place(9, 0).x(), first) << number;
        EXPECT_TRUE(Graph_Of(window, 1).labels().isEmpty() || Graph_Of(window, 4).labels().size() > 1);
    });
}

/// At the least height of the window as well.
TEST_F(LivePlotsTest, Four_curves_have_the_same_height_under_heads_that_are_whole) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Choose_Preset(window, 5);
        for (const int height : {768, 0}) {
            window.resize(1366, height);
            Settle();
            EXPECT_LE(window.height(), 768);
            const auto curve = [&](int number) {
                const GraphWidget& graph = Graph_Of(window, number);
                const QRectF view = graph.view();
                EXPECT_GE(graph.place(0, view.bottom()).y(), graph.fontMetrics().height()) << number;
                return graph.place(0, view.top()).y() - graph.place(0, view.bottom()).y();
            };
            const int first = curve(1);
            EXPECT_GE(first, 20);
            for (const int number : {2, 3, 4}) EXPECT_NEAR(curve(number), first, 4) << number;
        }
    });
}

TEST_F(LivePlotsTest, A_text_that_is_longer_than_its_list_shows_its_beginning) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Choose_Preset(window, 5);
        auto& preset = Find<QComboBox>(window, "cmb_LivePreset");
        EXPECT_GT(preset.fontMetrics().horizontalAdvance(preset.currentText()), preset.width());
        EXPECT_EQ(preset.lineEdit()->cursorPosition(), 0) << "picked from the list";
        QTest::keyClick(&preset, Qt::Key_End);
        EXPECT_GT(preset.lineEdit()->cursorPosition(), 0);
        Find<QWidget>(window, "Picture1").setFocus();
        EXPECT_EQ(preset.lineEdit()->cursorPosition(), 0) << "left";
    });
}

TEST_F(LivePlotsTest, A_narrow_pane_has_room_for_the_words_of_its_choices) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Settle();
        Move_Handle(window, 2000);
        for (const char* option : {"opt_LiveScale_0", "opt_LiveScale_1", "opt_LiveX_0", "opt_LiveX_1"}) {
            const QWidget& choice = Find<QWidget>(window, option);
            EXPECT_GE(choice.width(), choice.sizeHint().width()) << option;
        }
    });
}

TEST_F(LivePlotsTest, A_typed_length_empties_the_graphs_and_calculating_fills_them) {
    Inside([](QWidget& window) {
        Pick(window, "mnu_ViewLive");
        Choose_Preset(window, 0);
        Type(window, "txt_Linkout_1", QStringLiteral("1.05"));
        Find<QWidget>(window, "txt_Linkout_2").setFocus();
        Settle();
        EXPECT_FALSE(Graph_Of(window, 1).isVisible());
        EXPECT_EQ(Find<QLabel>(window, "lbl_LiveNote").text().toStdString(),
                  "Nothing is calculated for this linkage as it stands.");
        Click(window, "cmd_Recalc");
        Settle();
        EXPECT_TRUE(Graph_Of(window, 1).isVisible());
    });
}

}  // namespace

}  // namespace verlink::test
