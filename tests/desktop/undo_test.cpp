// Undo and redo by the keys of real windows, and what the windows say of the model in hand.
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

#include "desktop/picture_widget.h"
#include "files/in_hand.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class UndoTest : public DesktopTest {
   protected:
    static void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QWidget* focus = window.focusWidget();
        QTest::keyClick(focus ? focus : &window, key, modifiers);
    }
    void Quit() {
        Then("frm_HomeScreen", [](QWidget& window) { Click(window, "cmd_Quit"); });
        Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
        Sub_Main("");
        EXPECT_TRUE(qt.Ending());
    }
};

TEST_F(UndoTest, The_keys_undo_typing_first_and_then_the_model_and_the_title_tells) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Model_1 - VERLINK")))
            << window.windowTitle().toStdString();
        Click(window, "cmd_Input");
    });
    Then("frm_Inputnew", [](QWidget& window) {
        auto& crank = Find<QLineEdit>(window, "txt_Linkout_1");
        auto& coupler = Find<QLineEdit>(window, "txt_Linkout_2");
        const QString before = crank.text(), shown = coupler.text();
        const Single L2 = Model.L2;
        Type(window, "txt_Linkout_1", QStringLiteral("1.25"));
        QTest::keyClick(&crank, Qt::Key_Return);
        EXPECT_EQ(Model.L2, Single(1.25));
        EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Model_1* - Input Screen")));
        EXPECT_TRUE(Find<QLabel>(window, "lbl_Model").text().endsWith(QStringLiteral("   modified")));

        Type(window, "txt_Linkout_2", QStringLiteral("9"));
        EXPECT_EQ(coupler.text(), QStringLiteral("9"));
        for (int i = 0; i < 4 && coupler.text() != shown; ++i) Key(window, Qt::Key_Z);
        EXPECT_EQ(coupler.text(), shown);
        EXPECT_EQ(Model.L2, Single(1.25));

        for (int i = 0; i < 2 && Model.L2 != L2; ++i) Key(window, Qt::Key_Z);
        EXPECT_EQ(Model.L2, L2);
        EXPECT_EQ(crank.text(), before);
        EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Model_1 - Input Screen")));
        Key(window, Qt::Key_Y);
        EXPECT_EQ(Model.L2, Single(1.25));
        Key(window, Qt::Key_Z);
        EXPECT_EQ(Model.L2, L2);
        Key(window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Model.L2, Single(1.25));
        Pick(window, "mnu_Undo");
        EXPECT_EQ(Model.L2, L2);
        EXPECT_FALSE(Modified());
        Click(window, "cmd_Cancel");
    });
    Quit();
}

TEST_F(UndoTest, A_drag_of_many_moves_is_one_step) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) { Click(window, "cmd_Input"); });
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Animate"); });
    Then("frm_Animate", [](QWidget& window) {
        auto& picture = Find<desktop::PictureWidget>(window, "Picture1");
        const Single Rpa = Model.Rpa;
        const std::size_t steps = The_History().Steps();
        const QPoint middle = picture.rect().center();
        QTest::mousePress(&picture, Qt::LeftButton, Qt::ShiftModifier, middle);
        for (int i = 1; i <= 5; ++i) {
            QMouseEvent move(QEvent::MouseMove, middle + QPoint(8 * i, 3 * i),
                             picture.mapToGlobal(middle + QPoint(8 * i, 3 * i)), Qt::NoButton, Qt::LeftButton,
                             Qt::ShiftModifier);
            QApplication::sendEvent(&picture, &move);
        }
        QTest::mouseRelease(&picture, Qt::LeftButton, Qt::ShiftModifier, middle + QPoint(40, 15));
        EXPECT_NE(Model.Rpa, Rpa);
        EXPECT_EQ(The_History().Steps(), steps + 1);
        Key(window, Qt::Key_Z);
        EXPECT_EQ(Model.Rpa, Rpa);
        Click(window, "cmd_Done");
    });
    Quit();
}

}  // namespace

}  // namespace verlink::test
