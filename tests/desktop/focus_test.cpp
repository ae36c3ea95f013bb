// The focus is the screen's as much as the window's, and a question on the way from a box to a button does no harm.
#include <QLineEdit>
#include <QPushButton>

#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class frm_Focused : public Screen {
   public:
    frm_Focused() : Screen("frm_Focused") {
        for (const auto& box : txt_Box) {
            TextBox* one = box.get();
            one->OnGotFocus = [this, one] {
                said += "got " + one->ObjectName() + ";";
                one->SelectAll();
            };
            one->OnLostFocus = [this, one] { said += "lost " + one->ObjectName() + ";"; };
        }
        cmd_Go.OnGotFocus = [this] { said += "got go;"; };
        cmd_Go.OnClick = [this] { said += "click;"; };
    }

    ControlArray<TextBox> txt_Box{*this, "txt_Box", {{0, "one"}, {1, "two"}}};
    CommandButton cmd_Go{*this, "cmd_Go", "&Go"};
    std::string said;
};

class FocusTest : public DesktopTest {
   protected:
    FocusTest() : form(qt.formOf(screen)) {
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
        screen.txt_Box[0].SetFocus();
        screen.said.clear();
    }
    ~FocusTest() override { qt.discardForms(); }

    frm_Focused screen;
    desktop::Form& form;
};

TEST_F(FocusTest, The_first_control_of_a_window_that_comes_up_gets_the_focus) {
    frm_Focused fresh;
    desktop::Form& window = qt.formOf(fresh);
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(fresh.Focus(), &fresh.txt_Box[0]);
    EXPECT_EQ(fresh.said, "got txt_Box_0;");
    qt.discardForms();
}

TEST_F(FocusTest, Tab_moves_it_with_both_events) {
    QTest::keyClick(&Find<QWidget>(form, "txt_Box_0"), Qt::Key_Tab);
    EXPECT_EQ(screen.Focus(), &screen.txt_Box[1]);
    EXPECT_EQ(screen.said, "lost txt_Box_0;got txt_Box_1;");
}

TEST_F(FocusTest, Code_moves_it) {
    screen.cmd_Go.SetFocus();
    EXPECT_TRUE(Find<QWidget>(form, "cmd_Go").hasFocus());
    EXPECT_EQ(screen.said, "lost txt_Box_0;got go;");
}

TEST_F(FocusTest, It_stays_when_the_window_is_left_and_comes_back) {
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    form.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(screen.Focus(), &screen.txt_Box[0]);
    EXPECT_EQ(screen.said, "");
}

TEST_F(FocusTest, A_button_by_its_mnemonic_or_by_the_mouse_leaves_the_box_first) {
    QTest::keyClick(&form, Qt::Key_G, Qt::AltModifier);
    QTest::qWait(150);
    EXPECT_EQ(screen.said, "lost txt_Box_0;got go;click;");
    screen.txt_Box[0].SetFocus();
    screen.said.clear();
    Click(form, "cmd_Go");
    EXPECT_EQ(screen.said, "lost txt_Box_0;got go;click;");
}

TEST_F(FocusTest, A_message_on_leaving_a_box_leaves_no_button_pressed) {
    screen.txt_Box[0].OnLostFocus = [this] {
        Tell("No.", Icon::kExclamation);
        screen.txt_Box[0].SetFocus();
    };
    ThenMessage("No.", "OK");
    auto& button = Find<QPushButton>(form, "cmd_Go");
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isDown());
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(screen.Focus(), &screen.txt_Box[0]);
    EXPECT_EQ(form.focusWidget(), &Find<QWidget>(form, "txt_Box_0"));
    EXPECT_EQ(Find<QLineEdit>(form, "txt_Box_0").selectedText(), "one") << "a refused text stays, selected";
    EXPECT_EQ(screen.said.find("click"), std::string::npos);

    screen.txt_Box[0].OnLostFocus = nullptr;
    form.activateWindow();
    Click(form, "cmd_Go");
    EXPECT_NE(screen.said.find("click"), std::string::npos) << "the next press counts";
}

TEST_F(FocusTest, A_box_entered_by_the_mouse_is_selected_whole_once) {
    auto& edit = Find<QLineEdit>(form, "txt_Box_1");
    QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(edit.width() - 4, edit.height() / 2));
    EXPECT_EQ(edit.selectedText(), "two");
    QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(edit.width() - 4, edit.height() / 2));
    EXPECT_EQ(edit.selectedText(), "") << "a second click puts the cursor";
}

TEST_F(FocusTest, Typing_into_a_selected_box_replaces_its_text) {
    auto& edit = Find<QLineEdit>(form, "txt_Box_1");
    edit.setFocus();
    EXPECT_TRUE(screen.txt_Box[1].SelectedAll);
    QTest::keyClicks(&edit, "9");
    EXPECT_EQ(screen.txt_Box[1].Text.Get(), "9");
    EXPECT_FALSE(screen.txt_Box[1].SelectedAll);
}

TEST_F(FocusTest, A_control_that_is_disabled_passes_it_on) {
    screen.txt_Box[0].Enabled = false;
    EXPECT_EQ(screen.Focus(), &screen.txt_Box[1]);
    EXPECT_EQ(screen.said, "lost txt_Box_0;got txt_Box_1;");
}

TEST_F(FocusTest, A_button_that_is_disabled_by_leaving_the_box_does_not_click) {
    screen.txt_Box[0].OnLostFocus = [this] { screen.cmd_Go.Enabled = false; };
    Click(form, "cmd_Go");
    EXPECT_EQ(screen.said.find("click"), std::string::npos);
    EXPECT_FALSE(Find<QPushButton>(form, "cmd_Go").isDown());
}

TEST_F(FocusTest, A_failure_in_a_handler_is_reported_under_the_control_s_name) {
    screen.cmd_Go.OnClick = [] { Raise(kDivisionByZero); };
    ThenMessage("Error 11   (Division by zero)  has occurred in cmd_Go\n\n", "OK");
    Click(form, "cmd_Go");
}

}  // namespace

}  // namespace verlink::test
