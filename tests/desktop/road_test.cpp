// The whole road of a first session through real windows: start, name, home, input, animate, save, open, quit.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <cmath>
#include <set>

#include "desktop/picture_widget.h"
#include "files/in_hand.h"
#include "platform/file_system.h"
#include "platform/graph.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class RoadTest : public DesktopTest {
   protected:
    static QString TextOf(QWidget& window, const char* box) { return Find<QLineEdit>(window, box).text(); }
    static bool Drawn(QWidget& window) {
        const QImage image = Find<QWidget>(window, "Picture1").grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == qRgb(255, 0, 255)) return true;
        return false;
    }
    /// How many colours a widget is painted with.
    static int InksOf(QWidget& window, const char* name) {
        const QImage image = Find<QWidget>(window, name).grab().toImage();
        std::set<QRgb> inks;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) inks.insert(image.pixel(x, y));
        return static_cast<int>(inks.size());
    }
    void ThenQuit() {
        Then("frm_Quit", [](QWidget& window) {
            EXPECT_EQ(window.focusWidget(), &Find<QWidget>(window, "cmd_NoQuit"));
            Click(window, "cmd_YesQuit");
        });
    }
};

TEST_F(RoadTest, From_the_start_to_a_moving_linkage_into_a_file_and_back) {
    const std::string file = Path("press.vlk");
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Animate").isEnabled());
        EXPECT_TRUE(Find<QWidget>(window, "lbl_Status_0").isHidden());
        Click(window, "cmd_Input");
        EXPECT_TRUE(Find<QWidget>(window, "cmd_Animate").isEnabled());
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_0").isHidden());
        EXPECT_EQ(Find<QLabel>(window, "lbl_Status_0").text(), "Calculated");
        EXPECT_TRUE(Drawn(window));
        Pick(window, "mnu_Save");
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_8").isHidden());
        Pick(window, "mnu_Open");
        EXPECT_EQ(Model.ModelName, "press") << "a model that was read leads through the input screen and back";
        EXPECT_EQ(Model.UserName, "A designer");
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(TextOf(window, "txt_Linkout_1"), "1.115");
        Type(window, "txt_Linkout_1", QStringLiteral("1.25"));
        Type(window, "txt_initial_2", QStringLiteral("5"));
        EXPECT_EQ(Model.L2, 1.25) << "leaving the box has taken it over";
        Click(window, "cmd_Calc");
        EXPECT_EQ(Model.NSteps, 72);
        EXPECT_TRUE(Drawn(window));
        Type(window, "txt_Figure", QStringLiteral("A press"));
        Click(window, "cmd_Done");
    });
    Then("frm_Animate", [](QWidget& window) {
        auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
        EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
        EXPECT_TRUE(Drawn(window));
        EXPECT_EQ(TextOf(window, "txt_Linkout_1"), "1.25");
        const QString start = Find<QLabel>(window, "lbl_StepNumber").text();
        Click(window, "cmd_Step");
        EXPECT_NE(Find<QLabel>(window, "lbl_StepNumber").text(), start);
        QTest::keyClick(&Find<QWidget>(window, "hsc_speed"), Qt::Key_End);
        Click(window, "cmd_Animate");
        EXPECT_TRUE(Find<QWidget>(window, "lbl_StepNumber").isHidden()) << "a run shows no read-out";
        EXPECT_TRUE(Drawn(window));
        Click(window, "cmd_Done");
    });
    ThenFile(file);
    ThenMessage("File was successfully written to \n" + file, QStringLiteral("OK"));
    ThenFile(file);
    ThenMessage("File " + file + " successfully read.", QStringLiteral("OK"));
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(TextOf(window, "txt_Linkout_1"), "1.25");
        EXPECT_EQ(TextOf(window, "txt_Figure"), "A press");
        Click(window, "cmd_Calc");
        EXPECT_EQ(Model.NSteps, 72);
        Click(window, "cmd_Cancel");
    });
    ThenQuit();

    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
    EXPECT_EQ(Read_File(qt.Documents_Folder() + "/VERLINK/Run_Check.txt").substr(0, 13), "\"Normal Exit\"");
    EXPECT_EQ(Read_File(file).substr(0, 9), "\"VERLINK\"");
}

TEST_F(RoadTest, From_masses_to_forces_to_balance_to_a_plot_of_the_shaking_force) {
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Dynamics").isEnabled());
        Click(window, "cmd_Input");
        Click(window, "cmd_Dynamics");
        EXPECT_EQ(Find<QLabel>(window, "lbl_Status_3").text(), "Dynamics");
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_3").isHidden());
        Click(window, "cmd_Balance");
        EXPECT_FALSE(Find<QWidget>(window, "lbl_Status_4").isHidden());
        Click(window, "cmd_Plot");
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        Type(window, "txt_initial_2", QStringLiteral("5"));
        Click(window, "cmd_Calc");
        Click(window, "cmd_Done");
    });
    Then("frm_Animate", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_MassProp", [](QWidget& window) {
        EXPECT_EQ(TextOf(window, "txt_Mass_3"), "0.0060");
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Done").isEnabled());
        Type(window, "txt_Mass_3", QStringLiteral("0.5"));
        Type(window, "txt_MagForce_4", QStringLiteral("2"));
        QTest::keyClick(&Find<QWidget>(window, "txt_MagForce_4"), Qt::Key_Return);
        EXPECT_EQ(Model.LinkMass(3), 0.5) << "Return solves";
        EXPECT_EQ(Model.ExtForceMag(4), 2.0);
        EXPECT_EQ(window.focusWidget(), &Find<QWidget>(window, "cmd_Done"));
        Click(window, "cmd_Matrix");
        EXPECT_TRUE(Find<QWidget>(window, "cmd_Done").isEnabled());
        Click(window, "cmd_Done");
    });
    Then("frm_Matrix", [](QWidget& window) {
        auto& entry = Find<QLabel>(window, "lbl_A1_1");
        EXPECT_EQ(entry.text(), "1.000");
        EXPECT_EQ(entry.palette().color(QPalette::WindowText), QColor(255, 0, 0));
        auto& nothing = Find<QLabel>(window, "lbl_A1_2");
        EXPECT_EQ(nothing.palette().color(QPalette::WindowText), QColor(128, 128, 128));
        Click(window, "cmd_Done");
    });
    Then("frm_Balance", [](QWidget& window) {
        EXPECT_TRUE(Find<QWidget>(window, "grf_Plot_0").isHidden());
        Click(window, "cmd_Calc");
        for (const char* graph : {"grf_Plot_0", "grf_Plot_1"}) {
            EXPECT_FALSE(Find<QWidget>(window, graph).isHidden());
            EXPECT_GT(InksOf(window, graph), 3) << "axes, texts and two curves";
        }
        EXPECT_GT(InksOf(window, "pct_Pict1"), 1) << "the sheet of pulses is printed on";
        Type(window, "txt_BerkMass_2", QStringLiteral("2"));
        QTest::keyClick(&Find<QWidget>(window, "txt_BerkMass_2"), Qt::Key_Return);
        EXPECT_EQ(Model.BerkMass(2), 2.0);
        Click(window, "cmd_Done");
    });
    Then("frm_PlotType", [](QWidget& window) {
        Click(window, "opt_PickPlot_0");
        Click(window, "cmd_PickPlotDone");
    });
    Then("frm_PlotSelect1", [](QWidget& window) {
        Click(window, "opt_PrintSet_1");
        auto& functions = Find<QComboBox>(window, "cmb_Var1");
        const int shaking = functions.findText(QStringLiteral("F Shaking"));
        ASSERT_GE(shaking, 0);
        functions.setCurrentIndex(shaking);
        Q_EMIT functions.activated(shaking);
        auto& components = Find<QComboBox>(window, "cmb_Com1");
        components.setCurrentIndex(2);
        Q_EMIT components.activated(2);
        Click(window, "cmd_OK1");
        Click(window, "cmd_Done");
    });
    Then("frm_Plot1", [](QWidget& window) {
        const auto& set = Screens::Get("frm_Plot1").Get<Graph>("grf_Plot", 0).Sets().at(0);
        EXPECT_EQ(set.legend, "F Shaking Mag lb");
        const auto& force = Model.RunTable.PinForce;
        EXPECT_NEAR(set.values.at(20), std::hypot(double(force(20, 7, 0)), double(force(20, 7, 1))), 1e-3);
        EXPECT_GT(InksOf(window, "grf_Plot_0"), 3);
        Click(window, "cmd_Done");
    });
    ThenQuit();
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

TEST_F(RoadTest, Shift_and_the_mouse_reshape_the_coupler_curve) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        Click(window, "cmd_Input");
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        Click(window, "cmd_Calc");
        Click(window, "cmd_Done");
    });
    Then("frm_Animate", [](QWidget& window) {
        auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
        EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
        Click(window, "opt_Shift_Drag_0");
        auto& picture = static_cast<desktop::PictureWidget&>(Find<QWidget>(window, "Picture1"));
        const auto move = [&](const QPointF& at, Qt::KeyboardModifiers keys) {
            QMouseEvent event(QEvent::MouseMove, at, picture.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, keys);
            QApplication::sendEvent(&picture, &event);
        };
        const double before = Model.Rpa;
        const QPointF at = picture.area().center();
        move(at, Qt::ShiftModifier | Qt::ControlModifier);
        move(at, Qt::NoModifier);
        EXPECT_EQ(Model.Rpa, before) << "shift alone drags";

        // The window's scale follows the curve, so the place in it is read before the move.
        const auto& drawing = Screens::Get("frm_Animate").Get<PictureBox>("Picture1").Drawing();
        const double x = (drawing.Left() + drawing.Right()) / 2, y = -(drawing.Top() + drawing.Bottom()) / 2;
        const double flip = drawing.Top() + drawing.Bottom();
        const int step = Screens::Get("frm_Animate").Get<platform::ScrollBar>("hsc_step").Value();
        const double ax = Model.RunTable.PointXY(step, 0, 0), ay = Model.RunTable.PointXY(step, 0, 1);
        move(at, Qt::ShiftModifier);
        EXPECT_NEAR(Model.Rpa, std::hypot(x - ax, flip + y - ay), 6e-4) << "rounded to three decimals in its box";
        EXPECT_TRUE(Drawn(window));
        Click(window, "cmd_Done");
    });
    ThenQuit();
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

TEST_F(RoadTest, From_two_positions_to_a_linkage_that_moves_and_is_plotted) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        Pick(window, "mnu_Twopos1");
        EXPECT_TRUE(Find<QWidget>(window, "cmd_Plot").isEnabled());
        Click(window, "cmd_Plot");
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Synth2A", [](QWidget& window) {
        EXPECT_EQ(TextOf(window, "txt_P21x"), "-0.575");
        Type(window, "txt_P21x", QStringLiteral("-0.6"));
        EXPECT_FALSE(Find<QWidget>(window, "cmd_Done").isEnabled());
        Click(window, "cmd_Calc");
        EXPECT_EQ(Model.P21x, Single(-0.6));
        EXPECT_EQ(Find<QLabel>(window, "lbl_P21mag").text(), "1.002");
        Click(window, "cmd_Done");
    });
    Then("message", [](QWidget& window) {
        auto& box = static_cast<QMessageBox&>(window);
        EXPECT_TRUE(box.text().startsWith(QStringLiteral(" The resulting link lengths")));
        const auto& report = Find<QLabel>(box, "qt_msgbox_label");
        EXPECT_TRUE(report.textInteractionFlags() & Qt::TextSelectableByMouse) << "the report can be copied";
        EXPECT_EQ(box.focusWidget(), box.button(QMessageBox::Ok));
        box.button(QMessageBox::Ok)->click();
    });
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_TRUE(Find<QRadioButton>(window, "opt_Polar_1").isChecked());
        EXPECT_EQ(TextOf(window, "txt_initial_0"), "30");
        EXPECT_EQ(TextOf(window, "txt_initial_1"), "75");
        Type(window, "txt_initial_2", QStringLiteral("1"));
        Click(window, "cmd_Calc");
        EXPECT_EQ(Model.NSteps, 45);
        EXPECT_TRUE(Drawn(window));
        // From the first to the last step the coupler point goes as far as the two positions are apart.
        const auto& points = Model.RunTable.PointXY;
        EXPECT_NEAR(std::hypot(points(45, 2, 0) - points(0, 2, 0), points(45, 2, 1) - points(0, 2, 1)),
                    std::hypot(0.6, 0.803), 2e-3);
        Click(window, "cmd_Done");
    });
    Then("frm_Animate", [](QWidget& window) {
        auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
        EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
        QTest::keyClick(&Find<QWidget>(window, "hsc_speed"), Qt::Key_End);
        Click(window, "cmd_Animate");
        EXPECT_TRUE(Drawn(window));
        Click(window, "cmd_Done");
    });
    Then("frm_PlotType", [](QWidget& window) {
        Click(window, "opt_PickPlot_0");
        Click(window, "cmd_PickPlotDone");
    });
    Then("frm_PlotSelect1", [](QWidget& window) {
        auto& presets = Find<QComboBox>(window, "cmb_Preset");
        Q_EMIT presets.activated(6);
        Click(window, "cmd_Done");
    });
    Then("frm_Plot1", [](QWidget& window) {
        const auto& graph = Screens::Get("frm_Plot1").Get<Graph>("grf_Plot", 0);
        EXPECT_EQ(graph.NumPoints(), 46);
        Click(window, "cmd_Done");
    });
    ThenQuit();
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

}  // namespace

}  // namespace verlink::test
