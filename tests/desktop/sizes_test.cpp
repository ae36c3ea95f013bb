// Windows in the design's size and in the largest one, on whatever display the process has: CMakeLists.txt runs these
// tests on several.
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "desktop/picture_widget.h"
#include "platform/controls.h"
#include "shell/startup.h"
#include "tests/desktop/looks.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

using SizesTest = ScreensTest;

void Expect_On_Display(const QWidget& window) {
    const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_GE(window.x(), display.left());
    EXPECT_GE(window.y(), display.top());
    EXPECT_LE(window.x() + window.width(), display.right() + 1);
    EXPECT_LE(window.y() + window.height(), display.bottom() + 1);
}

double Proportion(const QWidget& window) { return static_cast<double>(window.width()) / window.height(); }

TEST_F(SizesTest, Every_screen_stands_on_the_display_with_all_its_words_at_both_sizes) {
    Screen& home = Screens::Get("frm_HomeScreen");
    Maximize_Screen(home, kHomeWidth, kHomeHeight);
    ForEach([](Screen& screen, desktop::Form& form) {
        const long width = screen.Width(), height = screen.Height();
        Reset_Screen(screen, width, height);
        form.applyShape();
        form.show();
        QCoreApplication::processEvents();
        const QSize standard = form.size();
        Expect_On_Display(form);
        Expect_Nothing_Clipped(form);

        Maximize_Screen(screen, width, height);
        QCoreApplication::processEvents();
        EXPECT_GE(form.width(), standard.width());
        Expect_On_Display(form);
        Expect_Nothing_Clipped(form);

        Reset_Screen(screen, width, height);
        QCoreApplication::processEvents();
        EXPECT_EQ(form.size(), standard);
        form.hide();
    });
}

TEST_F(SizesTest, Toggles_over_a_turned_ground_have_room_and_move_nothing) {
    for (const char* name : {"frm_Inputnew", "frm_Animate"}) {
        SCOPED_TRACE(name);
        Screen& screen = Screens::Get(name);
        desktop::Form& form = qt.formOf(screen);
        form.applyShape();
        form.show();
        const auto tell = [&](const char* angle, const char* unit) {
            screen.Get<Frame>("fra_toggle").Visible = true;
            for (const int i : {0, 1}) {
                screen.Get<Label>("lbl_Toggle", i).Visible = true;
                screen.Get<Label>("lbl_Toggle", i).Caption = i == 0 ? angle : unit;
            }
            QCoreApplication::processEvents();
            Expect_Nothing_Clipped(form);
            return form.widget("Picture1")->geometry();
        };
        const QRect picture = tell("108.2", "deg");
        EXPECT_EQ(tell("108.2", "deg to link 1"), picture);
        form.hide();
    }
}

TEST_F(SizesTest, In_a_maximised_window_the_drawing_of_the_animate_screen_is_the_hero) {
    const QSize display = QGuiApplication::primaryScreen()->availableGeometry().size();
    if (display.width() < 1366 || display.height() < 768) GTEST_SKIP() << "a display that nobody was promised";
    desktop::Form& form = qt.formOf(Screens::Get("frm_Animate"));
    form.applyShape();
    form.show();
    constexpr int kTitleBar = 28;
    form.resize(display - QSize(0, kTitleBar));
    QCoreApplication::processEvents();
    EXPECT_EQ(form.size(), display - QSize(0, kTitleBar));
    const double side = form.picture("Picture1")->area().width();
    EXPECT_GE(side, display.height() >= 1080 ? 820 : 520);
    Expect_Nothing_Clipped(form);
    form.hide();
}

TEST_F(SizesTest, Windows_come_up_with_room_for_the_drawing_and_may_be_made_smaller) {
    if (QGuiApplication::primaryScreen()->availableGeometry().width() < 1366) GTEST_SKIP() << "no room for it";
    for (const char* name : {"frm_Inputnew", "frm_Animate"}) {
        SCOPED_TRACE(name);
        desktop::Form& form = qt.formOf(Screens::Get(name));
        form.applyShape();
        form.show();
        QCoreApplication::processEvents();
        // 460 with its frame.
        EXPECT_GE(form.picture("Picture1")->area().width(), 458);
        const QSize came = form.size();
        form.resize(1, 1);
        QCoreApplication::processEvents();
        EXPECT_LE(form.width(), came.width() - 40);
        EXPECT_LE(form.height(), came.height() - 40);
        Expect_Nothing_Clipped(form);
        form.hide();
    }
}

TEST_F(SizesTest, Maximize_standard_and_aspect_ratio_are_the_home_screen_s) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
        const QSize standard = window.size();
        Pick(window, "mnu_Fullscreen");
        EXPECT_TRUE(Model.FullScreen);
        EXPECT_GE(window.width(), standard.width());
        EXPECT_GT(std::max(static_cast<double>(window.width()) / display.width(),
                           static_cast<double>(window.height()) / display.height()),
                  0.9);
        EXPECT_NEAR(Proportion(window), 1.25, 0.1);
        Expect_On_Display(window);

        Pick(window, "mnu_Aspect");
        EXPECT_TRUE(Model.AspectActive);
        EXPECT_NEAR(Model.AspectCorrection, 1.6 * display.height() / display.width(), 1e-6);
        EXPECT_NEAR(Proportion(window), 1.25 / Model.AspectCorrection, 0.1);
        Expect_On_Display(window);

        Pick(window, "mnu_Aspect");
        EXPECT_FALSE(Model.AspectActive);
        EXPECT_NEAR(Proportion(window), 1.25, 0.1);
        Pick(window, "mnu_Standardsize");
        EXPECT_FALSE(Model.FullScreen);
        EXPECT_EQ(window.size(), standard);
        Click(window, "cmd_Quit");
    });
    for (const auto button : {QMessageBox::Ok, QMessageBox::Cancel})
        Then("message", [button](QWidget& window) {
            auto& box = static_cast<QMessageBox&>(window);
            EXPECT_TRUE(box.text().startsWith(QStringLiteral("Screen aspect ratio")));
            box.button(button)->click();
        });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

}  // namespace

}  // namespace verlink::test
