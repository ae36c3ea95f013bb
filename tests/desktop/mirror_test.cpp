// Each kind of control is shown by its widget, and the hand on the widget reaches the control.
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/frame_box.h"
#include "desktop/theme.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

/// A screen with one of each kind; it has no layout of its own.
class frm_Mirrored : public Screen {
   public:
    frm_Mirrored() : Screen("frm_Mirrored") { DefaultButton = &cmd_Go; }

    Label lbl_Text{*this, "lbl_Text", "Link 2 (Crank)"};
    Frame fra_Group{*this, "fra_Group", "Group"};
    ControlArray<TextBox> txt_Box{*this, "txt_Box", {{0, "one"}, {5, "two"}}};
    CommandButton cmd_Go{*this, "cmd_Go", "&Go"};
    CommandButton cmd_Stay{*this, "cmd_Stay", "Stay"};
    ControlArray<OptionButton> opt_Kind{*this, "opt_Kind", {{0, "A"}, {1, "B"}, {2, "C"}}};
    ControlArray<OptionButton> opt_Other{*this, "opt_Other", {{0, "D"}, {1, "E"}}};
    CheckBox chk_Flag{*this, "chk_Flag", "Flag"};
    ComboBox cmb_Wait{*this, "cmb_Wait", "10"};
    ScrollBar hsc_step{*this, "hsc_step"};
    PictureBox Picture1{*this, "Picture1"};
    platform::Timer Timer1{*this, "Timer1"};
    MenuEntry mnu_Top{*this, "mnu_Top", "&Top"};
    MenuEntry mnu_Sub{mnu_Top, "mnu_Sub", "Sub"};
    MenuEntry mnu_Bar{mnu_Top, "mnu_Bar", ""};
    MenuEntry mnu_Direct{*this, "mnu_Direct", "Direct"};
};

class MirrorTest : public DesktopTest {
   protected:
    MirrorTest() : form(qt.formOf(screen)) {
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
    }
    ~MirrorTest() override { qt.discardForms(); }

    template <class Widget>
    Widget& Of(const char* name) {
        return Find<Widget>(form, name);
    }

    frm_Mirrored screen;
    desktop::Form& form;
};

TEST_F(MirrorTest, A_control_is_named_as_its_object_name) {
    EXPECT_EQ(form.objectOf(screen.txt_Box[5])->objectName(), "txt_Box_5");
    EXPECT_EQ(form.objectOf(screen.cmd_Go)->objectName(), "cmd_Go");
    EXPECT_EQ(form.widget("txt_Box", 5), form.widget("txt_Box_5"));
    EXPECT_TRUE(form.has("txt_Box", 0));
    EXPECT_FALSE(form.has("txt_Box", 1));
}

TEST_F(MirrorTest, A_label_shows_its_caption_with_all_line_ends_alike) {
    auto& label = Of<QLabel>("lbl_Text");
    EXPECT_EQ(label.text(), "Link 2 (Crank)");
    screen.lbl_Text.Caption = " a\rb\r\nc\nd ";
    EXPECT_EQ(label.text(), " a\nb\nc\nd ");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST_F(MirrorTest, A_label_has_its_own_colour_once_it_is_given_one) {
    auto& label = Of<QLabel>("lbl_Text");
    const auto text = [&] { return label.palette().color(QPalette::Active, QPalette::WindowText); };
    EXPECT_EQ(text(), form.palette().color(QPalette::Active, QPalette::WindowText));
    screen.lbl_Text.ForeColor = 0x0000FF;
    EXPECT_EQ(text(), QColor(255, 0, 0));
    screen.lbl_Text.ForeColor = 0x808080;
    EXPECT_EQ(text(), QColor(128, 128, 128));
}

TEST_F(MirrorTest, Lines_of_text_are_painted_on_a_picture_until_they_are_taken_off) {
    auto& picture = Of<QWidget>("Picture1");
    const QImage empty = picture.grab().toImage();
    screen.Picture1.Print(" Order   Pos Area   Neg Area");
    const QImage one = picture.grab().toImage();
    EXPECT_NE(one, empty);
    screen.Picture1.Print("    1   8.5      -11 ");
    EXPECT_NE(picture.grab().toImage(), one);
    screen.Picture1.Lines = {};
    EXPECT_EQ(picture.grab().toImage(), empty);
}

TEST_F(MirrorTest, Enabled_visible_and_tip_are_shown) {
    auto& button = Of<QPushButton>("cmd_Go");
    screen.cmd_Go.Enabled = false;
    EXPECT_FALSE(button.isEnabled());
    screen.cmd_Go.Tip = "Calculate first";
    EXPECT_EQ(button.toolTip(), "Calculate first");
    screen.cmd_Go.Visible = false;
    EXPECT_TRUE(button.isHidden());
    EXPECT_TRUE(button.sizePolicy().retainSizeWhenHidden());
    screen.cmd_Go.Visible = true;
    EXPECT_TRUE(button.isVisible());
}

TEST_F(MirrorTest, A_frame_shows_its_title) {
    EXPECT_EQ(Of<QWidget>("fra_Group").accessibleName(), "Group");
    screen.fra_Group.Caption = "Other";
    EXPECT_EQ(static_cast<desktop::FrameBox&>(Of<QWidget>("fra_Group")).title(), "Other");
}

TEST_F(MirrorTest, What_is_typed_reaches_the_box_letter_by_letter) {
    std::vector<std::string> seen;
    screen.txt_Box.OnTextChange([&](int index) { seen.push_back(screen.txt_Box[index].Text); });
    auto& edit = Of<QLineEdit>("txt_Box_0");
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, "1.5");
    EXPECT_EQ(seen, (std::vector<std::string>{"1", "1.", "1.5"}));
    screen.txt_Box[0].Text = "7";
    EXPECT_EQ(edit.text(), "7");
    EXPECT_EQ(seen.size(), 4u);
}

TEST_F(MirrorTest, A_long_text_from_the_program_shows_its_beginning) {
    auto& edit = Of<QLineEdit>("txt_Box_5");
    screen.cmd_Go.SetFocus();
    screen.txt_Box[5].Text = std::string(500, 'x');
    EXPECT_EQ(edit.cursorPosition(), 0);
}

TEST_F(MirrorTest, A_change_handler_that_rewrites_the_text_is_shown_and_ends) {
    int raised = 0;
    screen.txt_Box[0].Text.Event = [&] {
        ++raised;
        screen.txt_Box[0].Text = "fixed";
    };
    auto& edit = Of<QLineEdit>("txt_Box_0");
    edit.setFocus();
    QTest::keyClicks(&edit, "x");
    EXPECT_EQ(edit.text(), "fixed");
    EXPECT_EQ(raised, 2);
}

TEST_F(MirrorTest, Return_in_a_box_is_its_own_and_not_the_default_button_s) {
    int returns = 0, clicks = 0;
    screen.cmd_Go.OnClick = [&] { ++clicks; };
    screen.txt_Box[0].OnReturn = [&] { ++returns; };
    auto& edit = Of<QLineEdit>("txt_Box_0");
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(returns, 1);
    EXPECT_EQ(clicks, 0);
    auto& other = Of<QLineEdit>("txt_Box_5");
    other.setFocus();
    QTest::keyClick(&other, Qt::Key_Return);
    EXPECT_EQ(clicks, 1) << "a box without an own Return leaves it to the default button";
}

TEST_F(MirrorTest, Return_presses_the_button_with_the_focus_and_Escape_the_cancelling_one) {
    int go = 0, stay = 0;
    screen.cmd_Go.OnClick = [&] { ++go; };
    screen.cmd_Stay.OnClick = [&] { ++stay; };
    Of<QWidget>("cmd_Stay").setFocus();
    QTest::keyClick(&Of<QWidget>("cmd_Stay"), Qt::Key_Return);
    EXPECT_EQ(stay, 1);
    EXPECT_EQ(go, 0);
    QTest::keyClick(&Of<QWidget>("cmd_Stay"), Qt::Key_Escape);
    EXPECT_EQ(stay, 1);
    screen.CancelButton = &screen.cmd_Go;
    QTest::keyClick(&Of<QWidget>("cmd_Stay"), Qt::Key_Escape);
    EXPECT_EQ(go, 1);
}

TEST_F(MirrorTest, The_default_button_is_marked) { EXPECT_TRUE(Of<QPushButton>("cmd_Go").isDefault()); }

TEST_F(MirrorTest, A_box_is_pale_yellow_where_typed_and_pale_cyan_where_derived) {
    auto& edit = Of<QLineEdit>("txt_Box_0");
    EXPECT_EQ(edit.palette().color(QPalette::Active, QPalette::Base), QColor(0xFF, 0xF8, 0xCC));
    screen.txt_Box[0].BackColor = 0xFFFF00;
    EXPECT_EQ(edit.palette().color(QPalette::Active, QPalette::Base), QColor(0xDD, 0xF6, 0xF8));
    EXPECT_EQ(edit.palette().color(QPalette::Disabled, QPalette::Base), QColor(0xDD, 0xF6, 0xF8));
    screen.txt_Box[0].BackColor = 0x00FFFF;
    EXPECT_EQ(edit.palette().color(QPalette::Active, QPalette::Base), QColor(0xFF, 0xF8, 0xCC));
}

TEST_F(MirrorTest, On_a_dark_desktop_the_boxes_are_dark_yellow_and_dark_cyan) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
    const QColor yellow = desktop::backColor(desktop::kYellow, dark), cyan = desktop::backColor(desktop::kCyan, dark);
    EXPECT_LT(yellow.lightness(), 90);
    EXPECT_LT(cyan.lightness(), 90);
    EXPECT_NEAR(yellow.hue(), 50, 15);
    EXPECT_NEAR(cyan.hue(), 187, 15);
    screen.txt_Box[0].Text = "here before the palette changes";
    form.setPalette(dark);
    EXPECT_EQ(Of<QLineEdit>("txt_Box_0").palette().color(QPalette::Active, QPalette::Base), yellow);
}

TEST_F(MirrorTest, A_button_clicks_once_and_not_while_disabled) {
    int clicks = 0;
    screen.cmd_Go.OnClick = [&] { ++clicks; };
    Click(form, "cmd_Go");
    EXPECT_EQ(clicks, 1);
    screen.cmd_Go.Enabled = false;
    Click(form, "cmd_Go");
    EXPECT_EQ(clicks, 1);
    screen.cmd_Go.Caption = "Other";
    EXPECT_EQ(Of<QPushButton>("cmd_Go").text(), "Other");
}

TEST_F(MirrorTest, Options_of_one_array_are_one_group_and_another_array_is_not_in_it) {
    std::vector<int> clicked;
    screen.opt_Kind.On(&OptionButton::OnClick, [&](int index) { clicked.push_back(index); });
    Of<QRadioButton>("opt_Kind_1").click();
    Of<QRadioButton>("opt_Other_0").click();
    EXPECT_TRUE(screen.opt_Kind[1].Value);
    EXPECT_TRUE(Of<QRadioButton>("opt_Kind_1").isChecked());
    EXPECT_TRUE(Of<QRadioButton>("opt_Other_0").isChecked());
    screen.opt_Kind[2].Value = true;
    EXPECT_TRUE(Of<QRadioButton>("opt_Kind_2").isChecked());
    EXPECT_FALSE(Of<QRadioButton>("opt_Kind_1").isChecked());
    Of<QRadioButton>("opt_Kind_2").click();
    EXPECT_EQ(clicked, (std::vector<int>{1, 2}));
    screen.opt_Kind[2].Value = false;
    EXPECT_FALSE(Of<QRadioButton>("opt_Kind_2").isChecked()) << "code may put all of a group off";
}

TEST_F(MirrorTest, An_option_handler_that_chooses_another_is_shown) {
    screen.opt_Kind.On(&OptionButton::OnClick, [&](int index) {
        if (index == 1) screen.opt_Kind[0].Value = true;
    });
    Of<QRadioButton>("opt_Kind_1").click();
    EXPECT_TRUE(Of<QRadioButton>("opt_Kind_0").isChecked());
    EXPECT_FALSE(Of<QRadioButton>("opt_Kind_1").isChecked());
}

TEST_F(MirrorTest, A_tick_goes_both_ways) {
    int clicks = 0;
    screen.chk_Flag.OnClick = [&] { ++clicks; };
    Of<QCheckBox>("chk_Flag").click();
    EXPECT_TRUE(screen.chk_Flag.Value);
    EXPECT_EQ(clicks, 1);
    screen.chk_Flag.Value = false;
    EXPECT_FALSE(Of<QCheckBox>("chk_Flag").isChecked());
    EXPECT_EQ(clicks, 2);
}

TEST_F(MirrorTest, A_combo_box_takes_items_choices_and_typed_text) {
    std::vector<std::string> said;
    screen.cmb_Wait.OnChange = [&] { said.push_back("change " + screen.cmb_Wait.Text.Get()); };
    screen.cmb_Wait.OnClick = [&] { said.push_back("click " + screen.cmb_Wait.Text.Get()); };
    auto& combo = Of<QComboBox>("cmb_Wait");
    EXPECT_EQ(combo.currentText(), "10");
    for (const char* item : {"10", "20", "40"}) screen.cmb_Wait.AddItem(item);
    EXPECT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.currentText(), "10");
    EXPECT_TRUE(said.empty());

    combo.setFocus();
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(said, (std::vector<std::string>{"click 10"}));
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(screen.cmb_Wait.Text.Get(), "20");
    EXPECT_EQ(combo.currentText(), "20");

    said.clear();
    combo.lineEdit()->selectAll();
    QTest::keyClicks(combo.lineEdit(), "33");
    EXPECT_EQ(said, (std::vector<std::string>{"change 3", "change 33"}));
    EXPECT_EQ(screen.cmb_Wait.ListIndex(), -1);

    screen.cmb_Wait.Choose(2);
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_EQ(combo.currentText(), "40");
}

TEST_F(MirrorTest, The_wheel_changes_no_box) {
    for (const char* item : {"10", "20", "40"}) screen.cmb_Wait.AddItem(item);
    screen.cmb_Wait.Choose(1);
    for (const char* name : {"cmb_Wait", "txt_Box_0"}) {
        auto& widget = Of<QWidget>(name);
        widget.setFocus();
        const QPointF middle = widget.rect().center();
        QWheelEvent wheel(middle, widget.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &wheel);
    }
    EXPECT_EQ(screen.cmb_Wait.Text.Get(), "20");
    EXPECT_EQ(screen.txt_Box[0].Text.Get(), "one");
}

TEST_F(MirrorTest, A_scroll_bar_takes_limits_and_value_from_the_control) {
    screen.hsc_step.SetMax(360);
    screen.hsc_step.SetValue(12);
    auto& bar = Of<QScrollBar>("hsc_step");
    EXPECT_EQ(bar.maximum(), 360);
    EXPECT_EQ(bar.value(), 12);
    screen.hsc_step.SetMax(5);
    EXPECT_EQ(bar.value(), 5);
}

TEST_F(MirrorTest, The_arrows_of_a_scroll_bar_change_its_value_and_its_thumb_scrolls) {
    std::string said;
    screen.hsc_step.SetMax(100);
    screen.hsc_step.LargeChange = 20;
    screen.hsc_step.OnChange = [&] { said += "change " + std::to_string(screen.hsc_step.Value()) + ";"; };
    screen.hsc_step.OnScroll = [&] { said += "scroll " + std::to_string(screen.hsc_step.Value()) + ";"; };
    screen.hsc_step.Notify();
    auto& bar = Of<QScrollBar>("hsc_step");
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(said, "change 1;change 21;");

    said.clear();
    bar.setSliderDown(true);
    bar.setSliderPosition(30);
    bar.triggerAction(QAbstractSlider::SliderMove);
    bar.setSliderPosition(31);
    bar.triggerAction(QAbstractSlider::SliderMove);
    bar.setSliderDown(false);
    EXPECT_EQ(said, "scroll 30;scroll 31;change 31;");
    EXPECT_EQ(bar.value(), 31);
}

TEST_F(MirrorTest, A_timer_ticks_while_it_is_enabled) {
    int ticks = 0;
    screen.Timer1.OnTimer = [&] {
        if (++ticks == 2) screen.Timer1.Enabled = false;
    };
    screen.Timer1.Interval = 1;
    QTest::qWait(10);
    EXPECT_EQ(ticks, 0);
    screen.Timer1.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
    QTest::qWait(20);
    EXPECT_EQ(ticks, 2);
}

TEST_F(MirrorTest, Menus_follow_their_entries) {
    ASSERT_EQ(form.menuBar()->actions().size(), 2);
    QAction* top = form.menuBar()->actions()[0];
    ASSERT_NE(top->menu(), nullptr);
    QAction* sub = top->menu()->actions()[0];
    EXPECT_EQ(sub->objectName(), "mnu_Sub");
    EXPECT_TRUE(top->menu()->actions()[1]->isSeparator());
    QAction* direct = form.menuBar()->actions()[1];
    EXPECT_EQ(direct->menu(), nullptr);

    int clicks = 0;
    screen.mnu_Sub.OnClick = [&] { ++clicks; };
    screen.mnu_Direct.OnClick = [&] { clicks += 10; };
    sub->trigger();
    direct->trigger();
    EXPECT_EQ(clicks, 11);
    screen.mnu_Sub.Enabled = false;
    sub->trigger();
    EXPECT_EQ(clicks, 11);
    screen.mnu_Sub.Checked = true;
    EXPECT_TRUE(sub->isChecked());
    screen.mnu_Sub.Enabled = true;
    sub->trigger();
    EXPECT_TRUE(sub->isChecked()) << "only the program sets the mark";
    screen.mnu_Top.Visible = false;
    EXPECT_FALSE(top->isVisible());
}

}  // namespace

}  // namespace verlink::test
