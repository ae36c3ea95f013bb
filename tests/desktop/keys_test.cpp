// Keys on real widgets: what they do, and where they only write, choose or press.
#include "desktop/keys.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include "core/window_sizes.h"
#include "desktop/pace.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

class KeysTest : public ScreensTest {
   protected:
    static void Key(QWidget& window, int key, Qt::KeyboardModifiers with = {}) {
        // No window manager makes it the active one when a dialog over it has gone.
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QWidget* target = window.focusWidget() ? window.focusWidget() : &window;
        QTest::keyClick(target, static_cast<Qt::Key>(key), with);
    }
    static void Focus(QWidget& window, const char* name, Qt::FocusReason reason = Qt::MouseFocusReason) {
        Find<QWidget>(window, name).setFocus(reason);
    }
    static QString Shown(QWidget& window, const char* entry) {
        return Find<QAction>(window, entry).shortcut().toString(QKeySequence::PortableText);
    }
    /// The animate screen with a run of 73 positions.
    void OnAnimate(std::function<void(QWidget&)> user) {
        Set_Identity();
        Initialize();
        Then("frm_Inputnew", [](QWidget& window) {
            Type(window, "txt_initial_0", QStringLiteral("0"));
            Type(window, "txt_initial_1", QStringLiteral("360"));
            Type(window, "txt_initial_2", QStringLiteral("5"));
            Click(window, "cmd_Calc");
            Click(window, "cmd_Done");
        });
        Then("frm_Animate", [user](QWidget& window) {
            auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            user(window);
            if (window.isVisible()) Click(window, "cmd_Done");
        });
        Show_Centered("frm_Inputnew");
    }
    static int Step(QWidget& window) { return Find<QScrollBar>(window, "hsc_step").value(); }
    static std::string ReadOut(QWidget& window) { return Find<QLabel>(window, "lbl_StepNumber").text().toStdString(); }
};

TEST_F(KeysTest, Every_key_is_one_that_a_keyboard_has_and_stands_beside_its_entry) {
    ForEach([](Screen& screen, desktop::Form& form) {
        for (const Control* control : screen.Controls()) {
            std::string keys;
            if (const auto* entry = dynamic_cast<const MenuEntry*>(control)) keys = entry->Keys;
            if (const auto* button = dynamic_cast<const CommandButton*>(control)) keys = button->Keys;
            if (const auto* shortcut = dynamic_cast<const Shortcut*>(control)) keys = shortcut->Keys;
            for (const QKeySequence& sequence : desktop::sequences(keys)) {
                EXPECT_EQ(sequence.count(), 1) << keys;
                EXPECT_NE(sequence[0].key(), Qt::Key_unknown) << keys;
            }
            if (dynamic_cast<const MenuEntry*>(control) && !keys.empty()) {
                EXPECT_EQ(static_cast<QAction*>(form.objectOf(*control))->shortcuts(), desktop::sequences(keys));
            }
        }
    });
}

TEST_F(KeysTest, The_entries_show_their_keys) {
    QWidget& home = qt.formOf(Screens::Get("frm_HomeScreen"));
    EXPECT_EQ(Shown(home, "mnu_New"), "Ctrl+N");
    EXPECT_EQ(Shown(home, "mnu_Saveas"), "Ctrl+Shift+S");
    QWidget& animate = qt.formOf(Screens::Get("frm_Animate"));
    EXPECT_EQ(Shown(animate, "mnu_Plus"), "Ctrl++");
    EXPECT_EQ(Shown(animate, "mnu_Normal"), "Ctrl+0");
    EXPECT_EQ(Shown(animate, "mnu_Minus"), "Ctrl+-");
    EXPECT_EQ(Shown(animate, "mnu_Quit"), "Ctrl+Q");
}

TEST_F(KeysTest, The_arrows_step_and_end_joins_beginning) {
    OnAnimate([](QWidget& window) {
        Click(window, "cmd_Reset");
        Key(window, Qt::Key_Right);
        EXPECT_EQ(Step(window), 1);
        EXPECT_EQ(ReadOut(window), "5.0");
        Key(window, Qt::Key_Right);
        EXPECT_EQ(ReadOut(window), "10.0");
        Key(window, Qt::Key_Left);
        EXPECT_EQ(ReadOut(window), "5.0");
        Key(window, Qt::Key_Left);
        EXPECT_EQ(ReadOut(window), "0.0");
        Key(window, Qt::Key_Left);
        EXPECT_EQ(ReadOut(window), "360.0");
        EXPECT_EQ(Step(window), 72);
        Key(window, Qt::Key_Right);
        EXPECT_EQ(ReadOut(window), "0.0");
        Click(window, "cmd_Step");
        EXPECT_EQ(ReadOut(window), "5.0") << "the button goes on from there";
        Focus(window, "hsc_step");
        Key(window, Qt::Key_Right);
        EXPECT_EQ(ReadOut(window), "10.0") << "on the bar of the steps too";
    });
}

TEST_F(KeysTest, In_a_box_the_keys_write_and_move_the_cursor) {
    OnAnimate([](QWidget& window) {
        Click(window, "cmd_Reset");
        const double zoom = Model.ZoomFactor;
        Focus(window, "txt_Figure");
        auto& title = Find<QLineEdit>(window, "txt_Figure");
        title.selectAll();
        QTest::keyClicks(&title, QStringLiteral("a + b - c = 0"));
        EXPECT_EQ(title.text(), "a + b - c = 0");
        Key(window, Qt::Key_Left);
        EXPECT_EQ(title.cursorPosition(), 12);
        Key(window, Qt::Key_Right);
        EXPECT_EQ(title.cursorPosition(), 13);
        Focus(window, "txt_Linkout_5");
        QTest::keyClicks(&Find<QLineEdit>(window, "txt_Linkout_5"), QStringLiteral("-61"));
        EXPECT_EQ(Find<QLineEdit>(window, "txt_Linkout_5").text(), "-61");
        EXPECT_EQ(Model.ZoomFactor, zoom);
        EXPECT_EQ(Step(window), 0);
        EXPECT_FALSE(desktop::inPause());
        Focus(window, "cmb_wait");
        Find<QComboBox>(window, "cmb_wait").lineEdit()->selectAll();
        QTest::keyClicks(&Find<QComboBox>(window, "cmb_wait"), QStringLiteral("1 2"));
        EXPECT_EQ(Find<QComboBox>(window, "cmb_wait").currentText(), "1 2");
        Find<QComboBox>(window, "cmb_wait").lineEdit()->selectAll();
        QTest::keyClicks(&Find<QComboBox>(window, "cmb_wait"), QStringLiteral("10"));
        Click(window, "cmd_Recalc");
    });
}

TEST_F(KeysTest, A_letter_with_Alt_that_no_mnemonic_takes_writes_nothing) {
    OnAnimate([](QWidget& window) {
        Focus(window, "txt_Linkout_5");
        auto& box = Find<QLineEdit>(window, "txt_Linkout_5");
        const QString before = box.text();
        QTest::keyClick(&box, 'q', Qt::AltModifier);
        EXPECT_EQ(box.text(), before);
        QTest::keyClick(&box, Qt::Key_Home);
        QTest::keyClick(&box, '5');
        EXPECT_EQ(box.text(), QStringLiteral("5") + before);
        box.setText(before);
        Focus(window, "cmb_wait");
        auto& list = *Find<QComboBox>(window, "cmb_wait").lineEdit();
        const QString wait = list.text();
        QTest::keyClick(&list, 'q', Qt::AltModifier);
        EXPECT_EQ(list.text(), wait);
        Click(window, "cmd_Recalc");
    });
}

TEST_F(KeysTest, A_double_click_takes_a_whole_number_but_one_word_of_several) {
    OnAnimate([](QWidget& window) {
        auto& box = Find<QLineEdit>(window, "txt_Linkout_5");
        ASSERT_EQ(box.text(), "-92.66");
        QTest::mouseDClick(&box, Qt::LeftButton, {}, QPoint(box.width() - 10, box.height() / 2));
        EXPECT_EQ(box.selectedText(), "-92.66");
        auto& title = Find<QLineEdit>(window, "txt_Figure");
        title.setText(QStringLiteral("one two"));
        QTest::mouseDClick(&title, Qt::LeftButton, {}, QPoint(6, title.height() / 2));
        EXPECT_EQ(title.selectedText(), "one");
        Click(window, "cmd_Recalc");
    });
}

TEST_F(KeysTest, Choices_ticks_and_bars_keep_the_keys_that_work_them) {
    OnAnimate([](QWidget& window) {
        Click(window, "cmd_Reset");
        auto& trace = Find<QCheckBox>(window, "chk_Trace");
        const bool ticked = trace.isChecked();
        Focus(window, "chk_Trace");
        Key(window, Qt::Key_Space);
        EXPECT_NE(trace.isChecked(), ticked);
        Key(window, Qt::Key_Space);
        Focus(window, "opt_Shift_Drag_0");
        Key(window, Qt::Key_Right);
        EXPECT_TRUE(Find<QRadioButton>(window, "opt_Shift_Drag_1").isChecked());
        Key(window, Qt::Key_Left);
        auto& speed = Find<QScrollBar>(window, "hsc_speed");
        const int before = speed.value();
        Focus(window, "hsc_speed");
        Key(window, Qt::Key_Right);
        EXPECT_EQ(speed.value(), before + 100);
        EXPECT_EQ(Step(window), 0);
    });
}

TEST_F(KeysTest, The_space_bar_runs_and_stops) {
    OnAnimate([](QWidget& window) {
        Type(window, "txt_Cycles", QStringLiteral("20"));
        Click(window, "cmd_Reset");
        Click(window, "cmd_Step");
        bool ran = false;
        QTimer::singleShot(200, &window, [&] {
            ran = desktop::inPause();
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
            QCoreApplication::sendEvent(window.focusWidget(), &held);
            QTimer::singleShot(100, &window, [&] {
                EXPECT_TRUE(desktop::inPause()) << "a key that is held down stops nothing";
                Key(window, Qt::Key_Space);
            });
        });
        QElapsedTimer clock;
        clock.start();
        Key(window, Qt::Key_Space);
        EXPECT_TRUE(ran);
        EXPECT_LT(clock.elapsed(), 6000);
        EXPECT_FALSE(desktop::inPause());
        QTest::qWait(20);
        EXPECT_FALSE(desktop::inPause()) << "what stopped it does not start it again";
    });
}

TEST_F(KeysTest, A_button_that_was_walked_to_is_pressed_by_the_space_bar) {
    OnAnimate([](QWidget& window) {
        Click(window, "cmd_Reset");
        Focus(window, "cmd_Step", Qt::TabFocusReason);
        Key(window, Qt::Key_Space);
        EXPECT_EQ(Step(window), 1);
        EXPECT_FALSE(desktop::inPause());
    });
}

TEST_F(KeysTest, Zoom_has_its_keys) {
    OnAnimate([](QWidget& window) {
        Click(window, "cmd_Reset");
        const double first = Model.ZoomFactor;
        Key(window, Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_NEAR(Model.ZoomFactor, first / 1.1, 1e-6);
        // Which sign a key gives with Shift is known to the display alone, and the one of the tests has no keyboard.
        Key(window, Qt::Key_Plus);
        EXPECT_NEAR(Model.ZoomFactor, first / 1.21, 1e-6);
        Key(window, Qt::Key_Equal, Qt::ControlModifier);
        EXPECT_NEAR(Model.ZoomFactor, first / 1.331, 1e-6);
        Key(window, Qt::Key_Minus);
        Key(window, Qt::Key_Minus);
        Key(window, Qt::Key_Minus, Qt::KeypadModifier);
        Key(window, Qt::Key_Minus, Qt::ControlModifier);
        EXPECT_NEAR(Model.ZoomFactor, first * 1.1, 1e-6);
        Key(window, Qt::Key_0, Qt::ControlModifier);
        EXPECT_EQ(Model.ZoomFactor, 1.0);
        Find<QCheckBox>(window, "chk_autoscale").click();
        Key(window, Qt::Key_Plus);
        EXPECT_EQ(Model.ZoomFactor, 1.0) << "the menu is closed without autoscale";
    });
}

TEST_F(KeysTest, Save_and_open_by_their_keys_from_a_box_that_is_being_typed_in) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) { Key(window, Qt::Key_I, Qt::AltModifier); });
    Then("frm_Inputnew", [](QWidget& window) {
        Type(window, "txt_Linkout_1", QStringLiteral("1.4"));
        Key(window, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(window.focusWidget(), &Find<QWidget>(window, "txt_Linkout_1"));
        EXPECT_TRUE(Model.SavedFlag);
        // The screen comes up again before the key has returned.
        QTimer::singleShot(0, &window, [&window] { Key(window, Qt::Key_O, Qt::ControlModifier); });
    });
    ThenFile(Path("kept.vlk"));
    ThenMessage("File was successfully written to \n" + Path("kept.vlk"), QStringLiteral("OK"));
    ThenFile(Path("kept.vlk"));
    ThenMessage("File " + Path("kept.vlk") + " successfully read.", QStringLiteral("OK"));
    Then("frm_Inputnew", [](QWidget& window) {
        EXPECT_EQ(Find<QLineEdit>(window, "txt_Linkout_1").text(), "1.4");
        Key(window, Qt::Key_Q, Qt::ControlModifier);
    });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

TEST_F(KeysTest, Alt_and_F_opens_File_and_FFT_when_pressed_again) {
    QWidget& home = qt.formOf(Screens::Get("frm_HomeScreen"));
    Then("frm_HomeScreen", [](QWidget& window) {
        auto* bar = static_cast<QMainWindow&>(window).menuBar();
        const auto press = [&] {
            QWidget* popup = QApplication::activePopupWidget();
            QTest::keyClick(popup ? popup : window.focusWidget(), Qt::Key_F, Qt::AltModifier);
            QCoreApplication::processEvents();
            return bar->activeAction() ? bar->activeAction()->objectName() : QString();
        };
        const auto close = [&] {
            while (QWidget* popup = QApplication::activePopupWidget()) QTest::keyClick(popup, Qt::Key_Escape);
            bar->setActiveAction(nullptr);
            QCoreApplication::processEvents();
        };
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(press(), "mnu_File");
            EXPECT_TRUE(Find<QAction>(window, "mnu_File").menu()->isVisible());
            EXPECT_EQ(press(), "mnu_FFT");
            EXPECT_TRUE(Find<QAction>(window, "mnu_FFT").menu()->isVisible());
            EXPECT_FALSE(Find<QAction>(window, "mnu_File").menu()->isVisible());
            close();
            EXPECT_EQ(press(), "mnu_File") << "which was closed and is opened anew";
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Alt);
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the key by itself closes it";
            close();
        }
        Screens::Get("frm_HomeScreen").Hide();
    });
    Screens::Get("frm_HomeScreen").ShowModal();
    EXPECT_FALSE(home.isVisible());
}

}  // namespace

}  // namespace verlink::test
