// Clicks and double clicks on pictures and combo boxes, and what a disabled or hidden frame does to its contents.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/picture_widget.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class frm_Clicks : public Screen {
   public:
    frm_Clicks() : Screen("frm_Clicks") {}

    Frame fra_Group{*this, "fra_Group", "Group"};
    CommandButton cmd_Inside{*this, "cmd_Inside", "Inside"};
    ComboBox cmb_List{*this, "cmb_List"};
    PictureBox Picture1{*this, "Picture1"};
    int ScreenClicks = 0;
    void Form_Click() override { ++ScreenClicks; }
};

class ClicksTest : public DesktopTest {
   protected:
    ClicksTest() : form(qt.formOf(screen)) {
        form.resize(600, 700);
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
    }
    ~ClicksTest() override { qt.discardForms(); }

    static void Settle() {
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }

    frm_Clicks screen;
    desktop::Form& form;
};

TEST_F(ClicksTest, A_picture_tells_of_a_click_and_of_a_double_click_once_each) {
    int clicks = 0, doubles = 0;
    screen.Picture1.OnClick = [&] { ++clicks; };
    screen.Picture1.OnDblClick = [&] { ++doubles; };
    QWidget& picture = Find<QWidget>(form, "Picture1");
    QTest::mouseClick(&picture, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(doubles, 0);
    // As the platform sends it: the first click, then the second press as a double click with its release.
    QTest::mouseClick(&picture, Qt::LeftButton);
    QTest::mouseDClick(&picture, Qt::LeftButton);
    Settle();
    EXPECT_EQ(doubles, 1);
    EXPECT_EQ(screen.ScreenClicks, 0) << "clicks that the picture takes are not the screen's";
}

TEST_F(ClicksTest, A_picture_that_takes_no_clicks_leaves_them_to_the_screen) {
    QTest::mouseClick(&Find<QWidget>(form, "Picture1"), Qt::LeftButton);
    EXPECT_EQ(screen.ScreenClicks, 1);
}

TEST_F(ClicksTest, A_double_click_on_the_line_of_a_combo_box_reaches_it) {
    screen.cmb_List.AddItem("one");
    screen.cmb_List.Choose(0);
    int doubles = 0;
    screen.cmb_List.OnDblClick = [&] { ++doubles; };
    QLineEdit* line = Find<QComboBox>(form, "cmb_List").lineEdit();
    QTest::mouseDClick(line, Qt::LeftButton);
    Settle();
    EXPECT_EQ(doubles, 1);
    screen.cmb_List.Enabled = false;
    QTest::mouseDClick(line, Qt::LeftButton);
    Settle();
    EXPECT_EQ(doubles, 1);
}

TEST_F(ClicksTest, Selecting_all_of_a_combo_box_marks_its_text) {
    screen.cmb_List.Text = "typed";
    screen.cmb_List.SelectAll();
    EXPECT_EQ(Find<QComboBox>(form, "cmb_List").lineEdit()->selectedText(), "typed");
}

TEST_F(ClicksTest, What_was_disabled_stays_so_when_its_frame_is_enabled_again) {
    form.frame("fra_Group")->setContent(desktop::rowOf({form.widget("cmd_Inside")}));
    auto& button = Find<QPushButton>(form, "cmd_Inside");
    screen.fra_Group.Enabled = false;
    EXPECT_FALSE(button.isEnabled());
    screen.cmd_Inside.Enabled = false;
    screen.fra_Group.Enabled = true;
    EXPECT_FALSE(button.isEnabled());
    screen.cmd_Inside.Enabled = true;
    EXPECT_TRUE(button.isEnabled());
}

TEST_F(ClicksTest, A_frame_with_a_back_colour_is_painted_in_it) {
    screen.fra_Group.BackColor = 128 << 16;
    EXPECT_EQ(form.frame("fra_Group")->back(), QColor(0, 0, 128));
}

TEST_F(ClicksTest, A_picture_fills_its_widget_when_told_to) {
    desktop::PictureWidget* picture = form.picture("Picture1");
    picture->resize(300, 100);
    EXPECT_EQ(picture->area().width(), 98);
    picture->fill();
    EXPECT_EQ(picture->area(), QRectF(1, 1, 298, 98));
}

}  // namespace

}  // namespace verlink::test
