// The diagrams in real windows: names and values find their places, and boxes that only show cannot be typed into.
#include <QLabel>
#include <QLineEdit>
#include <vector>

#include "desktop/picture_widget.h"
#include "desktop/theme.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class DiagramTest : public DesktopTest {
   protected:
    DiagramTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        SeedCognate();
    }

    /// Shows the screen and does something there.
    void Show(const char* screen, std::function<void(QWidget&)> deed) {
        Then(screen, [deed = std::move(deed)](QWidget& window) {
            QTest::qWait(20);  // the places follow what was drawn, in a turn of events of their own
            deed(window);
            Screen::Active()->Hide();
        });
        Screens::Get(screen).ShowModal();
    }
    /// The labels that lie upon a picture.
    static std::vector<QLabel*> Upon(QWidget& window, const char* picture) {
        std::vector<QLabel*> labels;
        for (QLabel* label : Find<QWidget>(window, picture).parentWidget()->findChildren<QLabel*>())
            if (!label->isHidden() && !label->text().isEmpty()) labels.push_back(label);
        return labels;
    }
    static void Expect_Places(QWidget& window, const char* picture, std::size_t least) {
        auto& widget = static_cast<desktop::PictureWidget&>(Find<QWidget>(window, picture));
        const QRectF area = widget.area().translated(widget.pos());
        const auto labels = Upon(window, picture);
        EXPECT_GE(labels.size(), least);
        for (const QLabel* a : labels) {
            EXPECT_TRUE(area.contains(QRectF(a->geometry()))) << a->text().toStdString();
            EXPECT_GE(a->width(), a->sizeHint().width()) << a->text().toStdString();
            for (const QLabel* b : labels)
                if (a != b) {
                    EXPECT_FALSE(a->geometry().intersects(b->geometry()))
                        << a->text().toStdString() << " and " << b->text().toStdString();
                }
        }
    }
};

TEST_F(DiagramTest, Names_and_values_stand_apart_upon_the_picture_before_and_after_a_calculation) {
    const std::pair<const char*, int> screens[] = {{"frm_Synth2A", 1}, {"frm_Synth2B", 1}, {"frm_Synth3", 2}};
    for (const auto& [screen, positions] : screens) {
        SCOPED_TRACE(screen);
        Model.SynPositions = positions;
        Then(screen, [](QWidget& window) {
            QTest::qWait(20);
            Expect_Places(window, "Image1", 25);
            Click(window, "cmd_Calc");
            QTest::qWait(20);
            Expect_Places(window, "Image1", 30);
            Click(window, "cmd_Cancel");
        });
        Then("message", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
        Screens::Get(screen).ShowModal();
    }
}

TEST_F(DiagramTest, A_value_stands_behind_its_name) {
    Show("frm_Synth2A", [](QWidget& window) {
        const auto& name = Find<QLabel>(window, "lbl_Symbol_14");
        const auto& value = Find<QLabel>(window, "lbl_Beta2");
        EXPECT_EQ(name.text(), "Beta2 =");
        EXPECT_EQ(value.text(), "45.00");
        EXPECT_EQ(name.y(), value.y());
        EXPECT_GT(value.x(), name.geometry().right());
        EXPECT_LT(value.x(), name.geometry().right() + 10);
    });
}

TEST_F(DiagramTest, Names_go_with_the_picture_when_the_window_grows) {
    Show("frm_Synth3", [](QWidget& window) {
        const QPoint before = Find<QLabel>(window, "lbl_Symbol_3").pos();
        window.resize(window.width() + 300, window.height() + 200);
        QTest::qWait(20);
        EXPECT_NE(Find<QLabel>(window, "lbl_Symbol_3").pos(), before);
        Expect_Places(window, "Image1", 25);
    });
}

TEST_F(DiagramTest, The_names_of_the_Cayley_diagram_stand_apart_at_every_zoom) {
    Show("frm_Cayley", [](QWidget& window) {
        Expect_Places(window, "Picture1", 7);
        auto& screen = *Screen::Active();
        for (int i = 0; i < 4; ++i) screen.Get<MenuEntry>("mnu_Minus").Click();
        QTest::qWait(20);
        Expect_Places(window, "Picture1", 7);
    });
}

TEST_F(DiagramTest, A_name_of_what_lies_beyond_the_picture_is_not_there) {
    Show("frm_Cayley", [](QWidget& window) {
        auto& screen = *Screen::Active();
        for (int i = 0; i < 12; ++i) screen.Get<MenuEntry>("mnu_Plus").Click();
        QTest::qWait(20);
        EXPECT_TRUE(Find<QLabel>(window, "lbl_Point_0").geometry().isEmpty());
        EXPECT_FALSE(Find<QLabel>(window, "lbl_Point_3").geometry().isEmpty()) << "the coupler point is in its middle";
        for (int i = 0; i < 12; ++i) screen.Get<MenuEntry>("mnu_Minus").Click();
        QTest::qWait(20);
        EXPECT_FALSE(Find<QLabel>(window, "lbl_Point_0").geometry().isEmpty());
    });
}

TEST_F(DiagramTest, A_box_that_only_shows_is_cyan_and_takes_no_typing_but_gives_its_text) {
    Model.SpecifiedPivots = true;
    Show("frm_Synth3", [](QWidget& window) {
        auto& shown = Find<QLineEdit>(window, "txt_Beta2");
        EXPECT_TRUE(shown.isReadOnly());
        EXPECT_EQ(shown.palette().color(QPalette::Active, QPalette::Base),
                  desktop::backColor(desktop::kCyan, window.palette()));
        Type(window, "txt_Beta2", QStringLiteral("12"));
        EXPECT_EQ(shown.text(), "");
        auto& typed = Find<QLineEdit>(window, "txt_P21x");
        EXPECT_FALSE(typed.isReadOnly());
        EXPECT_EQ(typed.palette().color(QPalette::Active, QPalette::Base),
                  desktop::backColor(desktop::kYellow, window.palette()));
        auto& result = Find<QLineEdit>(window, "txt_Linkout_1");
        result.setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(result.hasSelectedText());
    });
}

TEST_F(DiagramTest, With_free_pivots_the_boxes_of_turns_are_typed_into) {
    Show("frm_Synth3", [](QWidget& window) {
        EXPECT_FALSE(Find<QLineEdit>(window, "txt_Beta2").isReadOnly());
        EXPECT_TRUE(Find<QWidget>(window, "fra_Pivot_0").isHidden());
    });
}

}  // namespace

}  // namespace verlink::test
