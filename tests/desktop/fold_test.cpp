// Columns that fold beside the drawing, and the locks beside the boxes, in real windows.
#include "desktop/fold.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>

#include "core/results.h"
#include "desktop/picture_widget.h"
#include "desktop/text.h"
#include "platform/settings.h"
#include "screens/linkage_screen.h"
#include "screens/register.h"
#include "shell/initialize.h"
#include "tests/desktop/screens.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using namespace platform;

namespace {

class FoldTest : public ScreensTest {
   protected:
    FoldTest() {
        Initialize();
        The_Settings().Open(qt.Settings_Folder());
    }
    /// Plays the user of the screen, which is left afterwards.
    void Show(const char* name, std::function<void(QWidget&)> user) {
        Then(name, [name, user](QWidget& window) {
            user(window);
            Screens::Get(name).Hide();
        });
        Screens::Get(name).ShowModal();
    }
    static desktop::FoldHandle& Handle(QWidget& window, const char* name) {
        return dynamic_cast<desktop::FoldHandle&>(Find<QAbstractButton>(window, name));
    }
    static bool Seen(QWidget& window, const char* name) { return Find<QWidget>(window, name).isVisible(); }
    static double Side(QWidget& window) {
        return dynamic_cast<desktop::PictureWidget&>(Find<QWidget>(window, "Picture1")).area().width();
    }
    static void Press_Mouse(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    /// The next session of the same user.
    void StartAgain() {
        The_Settings().Save();
        qt.discardForms();
        Screens::Discard();
        Reset_Model();
        Initialize();
        The_Settings().Open(qt.Settings_Folder());
    }
};

TEST_F(FoldTest, A_click_on_a_handle_folds_its_column_away_and_another_brings_it_back) {
    struct Column {
        const char *screen, *handle, *inside, *holds;
    };
    const Column columns[] = {
        {"frm_Animate", "fold_Play", "hsc_speed", "the column with speed, settings and circuit"},
        {"frm_Animate", "fold_Data", "txt_Linkout_1", "the column with the linkage and its initial conditions"},
        {"frm_Inputnew", "fold_Linkage", "txt_Linkout_1", "the column with the linkage and its initial conditions"},
        {"frm_Inputnew", "fold_Drive", "cmd_Calc", "the column with the drive, circuit and Calculate"}};
    for (const char* name : {"frm_Animate", "frm_Inputnew"})
        Show(name, [&](QWidget& window) {
            for (const Column& column : columns) {
                if (column.screen != std::string(name)) continue;
                SCOPED_TRACE(column.handle);
                desktop::FoldHandle& handle = Handle(window, column.handle);
                const QString holds = QString::fromLatin1(column.holds);
                EXPECT_EQ(handle.toolTip(), QStringLiteral("Fold away ") + holds);
                EXPECT_EQ(handle.accessibleName(), handle.toolTip());
                const int width = Find<QWidget>(window, "Picture1").width();
                Press_Mouse(handle);
                EXPECT_FALSE(Seen(window, column.inside));
                EXPECT_TRUE(Seen(window, "Picture1"));
                EXPECT_GT(Find<QWidget>(window, "Picture1").width(), width);
                EXPECT_EQ(handle.toolTip(), QStringLiteral("Show ") + holds);
                Press_Mouse(handle);
                EXPECT_TRUE(Seen(window, column.inside));
                EXPECT_EQ(Find<QWidget>(window, "Picture1").width(), width);
            }
        });
}

TEST_F(FoldTest, The_space_bar_and_Return_turn_a_handle_and_start_nothing) {
    Show("frm_Animate", [](QWidget& window) {
        desktop::FoldHandle& handle = Handle(window, "fold_Data");
        EXPECT_TRUE(handle.focusPolicy() & Qt::TabFocus);
        handle.setFocus(Qt::TabFocusReason);
        const Integer step = Model.CurrentStep;
        QTest::keyClick(&handle, Qt::Key_Space);
        EXPECT_FALSE(Seen(window, "txt_Linkout_1"));
        QTest::keyClick(&handle, Qt::Key_Return);
        EXPECT_TRUE(Seen(window, "txt_Linkout_1"));
        EXPECT_EQ(Model.CurrentStep, step);
    });
}

TEST_F(FoldTest, The_tab_key_comes_to_the_handles) {
    Show("frm_Animate", [](QWidget& window) {
        std::set<QWidget*> reached;
        for (int presses = 0; presses < 100; ++presses) {
            QWidget* at = window.focusWidget();
            if (at && !reached.insert(at).second) break;
            QTest::keyClick(at ? at : &window, Qt::Key_Tab);
        }
        for (const char* name : {"fold_Play", "fold_Data"})
            EXPECT_TRUE(reached.contains(&Handle(window, name))) << name;
    });
}

TEST_F(FoldTest, What_is_folded_is_so_in_the_next_session_and_on_its_own_screen_only) {
    Show("frm_Animate", [](QWidget& window) { Press_Mouse(Handle(window, "fold_Play")); });
    StartAgain();
    Show("frm_Animate", [](QWidget& window) {
        EXPECT_FALSE(Seen(window, "hsc_speed"));
        EXPECT_TRUE(Seen(window, "txt_Linkout_1"));
        Press_Mouse(Handle(window, "fold_Play"));
    });
    StartAgain();
    Show("frm_Animate", [](QWidget& window) { EXPECT_TRUE(Seen(window, "hsc_speed")); });
    Show("frm_Inputnew", [](QWidget& window) { EXPECT_TRUE(Seen(window, "cmd_Calc")); });
}

TEST_F(FoldTest, What_was_typed_is_not_lost_by_folding_and_counts_when_it_is_left) {
    Show("frm_Animate", [](QWidget& window) {
        Type(window, "txt_Linkout_1", QStringLiteral("1.25"));
        EXPECT_NE(Model.L2, 1.25);
        Press_Mouse(Handle(window, "fold_Data"));
        auto& box = Find<QLineEdit>(window, "txt_Linkout_1");
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(box.text(), QStringLiteral("1.25"));
        Press_Mouse(Handle(window, "fold_Data"));
        EXPECT_EQ(box.text(), QStringLiteral("1.25"));
        Press_Mouse(Handle(window, "fold_Data"));
        Find<QCheckBox>(window, "chk_Trace").setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(Model.L2, 1.25);
    });
}

TEST_F(FoldTest, A_box_that_gets_the_focus_from_the_program_comes_into_sight) {
    Show("frm_Animate", [](QWidget& window) {
        Press_Mouse(Handle(window, "fold_Data"));
        ASSERT_FALSE(Seen(window, "txt_initial_2"));
        Screens::Get("frm_Animate").Text("txt_initial", 2).SetFocus();
        EXPECT_TRUE(Seen(window, "txt_initial_2"));
        EXPECT_TRUE(Find<QWidget>(window, "txt_initial_2").hasFocus());
    });
}

TEST_F(FoldTest, With_both_columns_folded_a_narrow_window_is_wide_enough) {
    Show("frm_Animate", [](QWidget& window) {
        const auto& room = Find<QWidget>(window, "room");
        const QSize least = room.minimumSizeHint();
        Press_Mouse(Handle(window, "fold_Play"));
        Press_Mouse(Handle(window, "fold_Data"));
        EXPECT_LT(room.minimumSizeHint().width(), least.width() - 300);
        Press_Mouse(Handle(window, "fold_Play"));
        Press_Mouse(Handle(window, "fold_Data"));
        EXPECT_EQ(room.minimumSizeHint(), least);
    });
}

class LockWidgetTest : public FoldTest {};

TEST_F(LockWidgetTest, A_lock_stands_right_beside_its_box_and_is_told_by_name) {
    for (const char* name : {"frm_Animate", "frm_Inputnew"})
        Show(name, [&](QWidget& window) {
            auto& screen = static_cast<Linkage_Screen&>(Screens::Get(name));
            for (const int index : {0, 1, 2, 3, 4, 5, 6, 15, 16}) {
                const std::string at = "_" + std::to_string(index);
                auto& lock = Find<QCheckBox>(window, ("chk_Lock" + at).c_str());
                const auto& box = Find<QLineEdit>(window, ("txt_Linkout" + at).c_str());
                const int gap = lock.mapTo(&window, QPoint()).x() - box.mapTo(&window, QPoint()).x() - box.width();
                EXPECT_TRUE(gap >= 0 && gap <= 4) << gap;
                EXPECT_EQ(lock.accessibleName(), desktop::toQt(screen.chk_Lock[index].Caption));
                EXPECT_EQ(lock.toolTip(), QStringLiteral("Lock this value, so that no drag changes it"));
            }
        });
}

TEST_F(LockWidgetTest, It_is_locked_by_the_mouse_and_by_the_space_bar_and_looks_other_then) {
    Show("frm_Animate", [](QWidget& window) {
        auto& screen = static_cast<Linkage_Screen&>(Screens::Get("frm_Animate"));
        auto& lock = Find<QCheckBox>(window, "chk_Lock_3");
        const QImage open = lock.grab().toImage();
        Press_Mouse(lock);
        EXPECT_TRUE(screen.Held(3));
        EXPECT_TRUE(lock.isChecked());
        EXPECT_NE(lock.grab().toImage(), open);
        EXPECT_TRUE(lock.toolTip().startsWith(QStringLiteral("Locked")));
        lock.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&lock, Qt::Key_Space);
        EXPECT_FALSE(screen.Held(3));
    });
}

TEST_F(LockWidgetTest, The_tab_key_goes_from_box_to_box_and_comes_to_the_locks_after_them) {
    Show("frm_Animate", [](QWidget& window) {
        QWidget* at = &Find<QWidget>(window, "txt_Linkout_1");
        at->setFocus(Qt::TabFocusReason);
        QTest::keyClick(at, Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("txt_Linkout_2"));
        Find<QWidget>(window, "txt_Linkout_6").setFocus(Qt::TabFocusReason);
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("chk_Lock_1"));
    });
}

class QuietLineTest : public FoldTest {};

TEST_F(QuietLineTest, It_has_its_place_whether_it_says_something_or_not) {
    for (const char* name : {"frm_Animate", "frm_Inputnew"})
        Show(name, [&](QWidget& window) {
            auto& line = Find<QLabel>(window, "lbl_Why");
            const QRect place = line.geometry(), picture = Find<QWidget>(window, "Picture1").geometry();
            const char* longest =
                "No position closes. At Theta2 = 120.0 deg coupler and rocker are 0.144 in too short; a coupler over "
                "5.144 in, a rocker over 4.644 in or 116.8 deg would do.";
            for (const char* words : {"", "Transmission angle 30.2 deg, under 40.", longest}) {
                Screens::Get(name).Get<Label>("lbl_Why").Caption = words;
                QCoreApplication::processEvents();
                EXPECT_EQ(line.geometry(), place) << words;
                EXPECT_EQ(Find<QWidget>(window, "Picture1").geometry(), picture) << words;
            }
        });
}

}  // namespace

}  // namespace verlink::test
