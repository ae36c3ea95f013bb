// What the user can do while a run plays: stop it, and nothing else.
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

#include "core/window_sizes.h"
#include "desktop/pace.h"
#include "shell/initialize.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class PlayingTest : public DesktopTest {
   protected:
    /// A run of 73 frames of 16 ms, played 20 times.
    static constexpr int kWhole = 23'000;

    /// Goes to the animate screen and starts a run, does that while it plays, and then this.
    void Play(std::function<void(QWidget&)> meanwhile, std::function<void(QWidget&)> then, const char* cycles = "20") {
        Initialize();
        Then("frm_Inputnew", [](QWidget& window) {
            Type(window, "txt_initial_0", QStringLiteral("0"));
            Type(window, "txt_initial_2", QStringLiteral("5"));
            Click(window, "cmd_Calc");
            Click(window, "cmd_Done");
        });
        Then("frm_Animate", [this, meanwhile, then, cycles](QWidget& window) {
            auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            Type(window, "txt_Cycles", QString::fromLatin1(cycles));
            QTimer::singleShot(200, &window, [&] {
                EXPECT_TRUE(desktop::inPause());
                meanwhile(window);
            });
            QElapsedTimer clock;
            clock.start();
            Click(window, "cmd_Animate");
            played = clock.elapsed();
            EXPECT_FALSE(desktop::inPause());
            then(window);
        });
        Show_Centered("frm_Inputnew");
    }

    static void Nothing_Is_Down(QWidget& window) {
        for (const QPushButton* button : window.findChildren<QPushButton*>())
            EXPECT_FALSE(button->isDown()) << button->objectName().toStdString();
    }

    static std::string Read_Out(QWidget& window) {
        auto& label = Find<QLabel>(window, "lbl_StepNumber");
        return label.isHidden() ? "" : label.text().toStdString();
    }

    qint64 played = 0;
};

TEST_F(PlayingTest, Escape_ends_the_run_and_the_screen_goes_on_from_there) {
    Play([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
         [this](QWidget& window) {
             EXPECT_LT(played, kWhole / 4);
             QTest::qWait(20);
             EXPECT_TRUE(window.isVisible());
             Nothing_Is_Down(window);
             const int step = Model.CurrentStep;
             EXPECT_GT(step, 1);
             EXPECT_LT(step, Model.NSteps);
             EXPECT_EQ(Read_Out(window), "") << "as after the end of a run";
             Click(window, "cmd_Step");
             EXPECT_EQ(Read_Out(window), std::to_string(5 * step) + ".0");
             Click(window, "cmd_Reset");
             EXPECT_EQ(Read_Out(window), "0.0");
             Click(window, "cmd_Done");
             EXPECT_FALSE(window.isVisible());
         });
}

TEST_F(PlayingTest, Reset_ends_the_run_and_shows_the_first_position) {
    Play(
        [](QWidget& window) {
            auto& reset = Find<QPushButton>(window, "cmd_Reset");
            QTest::mousePress(&reset, Qt::LeftButton);
        },
        [this](QWidget& window) {
            EXPECT_LT(played, kWhole / 4);
            QTest::qWait(20);
            QTest::mouseRelease(&Find<QPushButton>(window, "cmd_Reset"), Qt::LeftButton);
            QTest::qWait(20);
            Nothing_Is_Down(window);
            EXPECT_EQ(Read_Out(window), "0.0");
            EXPECT_EQ(Model.CurrentStep, 1);
            EXPECT_EQ(window.focusWidget(), &Find<QWidget>(window, "cmd_Reset"));
            Click(window, "cmd_Done");
        });
}

TEST_F(PlayingTest, The_mnemonic_of_Reset_ends_the_run_as_its_button_does) {
    Play([](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_T, Qt::AltModifier); },
         [this](QWidget& window) {
             EXPECT_LT(played, kWhole / 4);
             QTest::qWait(20);
             Nothing_Is_Down(window);
             EXPECT_EQ(Read_Out(window), "0.0");
             Click(window, "cmd_Done");
         });
}

TEST_F(PlayingTest, Closing_the_window_ends_the_run_and_then_closes) {
    bool closed = true;
    Play(
        [&](QWidget& window) {
            window.close();
            closed = !window.isVisible();
        },
        [this](QWidget& window) {
            EXPECT_LT(played, kWhole / 4);
            EXPECT_TRUE(window.isVisible()) << "not before the handler has returned";
        });
    EXPECT_FALSE(closed);
    EXPECT_FALSE(Screens::Get("frm_Animate").Visible());
}

TEST_F(PlayingTest, The_window_system_s_own_events_stop_a_run) {
    Play(
        [](QWidget& window) {
            window.resize(1200, 900);
            QCoreApplication::processEvents();
            const QWidget& reset = Find<QWidget>(window, "cmd_Reset");
            const QPoint place = reset.mapTo(&window, reset.rect().center());
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
        },
        [this](QWidget& window) {
            EXPECT_LT(played, kWhole / 4);
            QTest::qWait(20);
            Nothing_Is_Down(window);
            EXPECT_EQ(Read_Out(window), "0.0");
            QTimer::singleShot(100, &window, [&window] { window.windowHandle()->close(); });
            QElapsedTimer clock;
            clock.start();
            Click(window, "cmd_Animate");
            EXPECT_LT(clock.elapsed(), kWhole / 4);
        });
    EXPECT_FALSE(Screens::Get("frm_Animate").Visible());
}

TEST_F(PlayingTest, Whatever_else_the_user_does_is_lost_and_the_run_plays_on) {
    Play(
        [](QWidget& window) {
            const auto speed = Find<QScrollBar>(window, "hsc_speed").value();
            for (const char* button :
                 {"cmd_Step", "cmd_Animate", "cmd_Done", "cmd_Back", "cmd_PlotPrint", "chk_Trace", "opt_OpenCross_1"})
                Click(window, button);
            QTest::mouseClick(&Find<QWidget>(window, "cmd_Reset"), Qt::RightButton);
            Type(window, "txt_Linkout_1", QStringLiteral("9"));
            QTest::keyClick(&window, Qt::Key_Return);
            QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
            Find<QScrollBar>(window, "hsc_speed").triggerAction(QAbstractSlider::SliderToMaximum);
            EXPECT_EQ(Find<QScrollBar>(window, "hsc_speed").value(), speed);
            EXPECT_TRUE(window.isVisible());
            Nothing_Is_Down(window);
        },
        [](QWidget& window) {
            QTest::qWait(20);
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(Model.CurrentStep, 0) << "the run has come to its end";
            EXPECT_EQ(Read_Out(window), "");
            EXPECT_EQ(Model.TraceFlag, "N");
            EXPECT_NE(Find<QLineEdit>(window, "txt_Linkout_1").text(), "9");
            Nothing_Is_Down(window);
            Click(window, "cmd_Done");
        },
        "1");
    EXPECT_GT(played, 1000);
}

}  // namespace

}  // namespace verlink::test
