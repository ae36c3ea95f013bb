// A number box under a real hand: what was read is shown, what could not be read is framed in red until it is mended.
#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>

#include "desktop/line_box.h"
#include "desktop/theme.h"
#include "dynamics/typed_units.h"
#include "dynamics/units.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class frm_Sample : public Screen {
   public:
    frm_Sample() : Screen("frm_Sample") {
        for (const auto& box : txt_Box) {
            Reads_As(*box, Model, Quantity::kLength);
            box->Tip = "A length";
            box->OnLostFocus = [this, entry = box.get()] {
                if (entry->Touched()) taken += entry->Text.Get() + ";";
                entry->Settle();
            };
            box->OnGotFocus = [entry = box.get()] { entry->SelectAll(); };
        }
        cmd_Go.OnClick = [this] { taken += "go;"; };
    }

    ControlArray<TextBox> txt_Box{*this, "txt_Box", {{0, "2.5"}, {1, "3"}}};
    CommandButton cmd_Go{*this, "cmd_Go", "&Go"};
    std::string taken;
};

class TypedTest : public DesktopTest {
   protected:
    TypedTest() : form(qt.formOf(screen)) {
        Use_Units(1);
        form.resize(400, 300);
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
        screen.txt_Box[0].SetFocus();
    }
    ~TypedTest() override { qt.discardForms(); }

    desktop::LineBox& Edit() { return Find<desktop::LineBox>(form, "txt_Box_0"); }
    void Leave() { QTest::keyClick(form.focusWidget(), Qt::Key_Tab); }
    /// Whether the colour of a refusal stands at the edge of the box.
    bool Red() {
        const QImage image = Edit().grab().toImage();
        const QColor red = desktop::refusalColor(form.palette());
        int found = 0;
        for (int x = 4; x < image.width() - 4; ++x) found += image.pixelColor(x, 0) == red ? 1 : 0;
        return found > image.width() / 2;
    }

    frm_Sample screen;
    desktop::Form& form;
};

TEST_F(TypedTest, What_was_read_is_shown_when_the_box_is_left) {
    for (const auto& [typed, shown] : {std::pair{"1,5", "1.5"}, {"1/4", "0.25"}, {"3 mm", "0.1181102"}}) {
        Type(form, "txt_Box_0", QString::fromLatin1(typed));
        EXPECT_EQ(Edit().text(), typed);
        Leave();
        EXPECT_EQ(Edit().text(), shown);
        EXPECT_FALSE(Edit().refused());
    }
    EXPECT_EQ(screen.taken, "1.5;0.25;0.1181102;");
}

TEST_F(TypedTest, A_text_with_two_meanings_is_framed_in_red_and_told_and_the_value_before_stays) {
    EXPECT_FALSE(Red());
    Type(form, "txt_Box_0", QStringLiteral("1,500"));
    EXPECT_FALSE(Red()) << "not while it is being typed";
    Leave();
    EXPECT_TRUE(Red());
    EXPECT_EQ(Edit().text(), "1,500");
    EXPECT_TRUE(Edit().toolTip().startsWith(QStringLiteral("Only the beginning, 1, could be read")));
    EXPECT_TRUE(Edit().toolTip().endsWith(QStringLiteral("\nA length")));
    EXPECT_EQ(Edit().accessibleDescription(), Edit().toolTip()) << "who does not see the frame is told";
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); })) << "told at once";
    EXPECT_EQ(screen.txt_Box[0].Text, "2.5");
    Click(form, "cmd_Go");
    EXPECT_EQ(screen.taken, "go;") << "a button works with what is in force";
    EXPECT_EQ(Edit().text(), "1,500");

    QTest::mouseClick(&Edit(), Qt::LeftButton);
    QTest::keyClick(&Edit(), Qt::Key_End);
    QTest::keyClick(&Edit(), Qt::Key_Backspace);
    EXPECT_EQ(Edit().text(), "1,50") << "it can be mended where it stands";
    EXPECT_FALSE(Red());
    EXPECT_EQ(Edit().toolTip(), "A length");
    Leave();
    EXPECT_EQ(Edit().text(), "1.5");
    EXPECT_EQ(screen.taken, "go;1.5;");
}

TEST_F(TypedTest, Left_again_the_beginning_is_taken) {
    Type(form, "txt_Box_0", QStringLiteral("12 kg"));
    Leave();
    EXPECT_TRUE(Red());
    QTest::mouseClick(&Edit(), Qt::LeftButton);
    EXPECT_TRUE(Red());
    Leave();
    EXPECT_FALSE(Red());
    EXPECT_EQ(Edit().text(), "12");
    EXPECT_EQ(screen.taken, "12;");
}

TEST_F(TypedTest, A_letter_that_presses_a_button_leaves_the_box_once) {
    Type(form, "txt_Box_0", QStringLiteral("7 apples"));
    QTest::keyClick(&Edit(), Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(screen.txt_Box[0].Refused());
    EXPECT_EQ(screen.taken, "go;");
}

TEST_F(TypedTest, On_a_dark_desktop_the_frame_is_lighter) {
    QPalette dark = QApplication::palette();
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    EXPECT_GT(desktop::refusalColor(dark).lightness(), desktop::refusalColor(QPalette(Qt::white)).lightness());
}

}  // namespace

}  // namespace verlink::test
