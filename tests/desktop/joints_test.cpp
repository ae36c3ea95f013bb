// Joints under the hand in the windows of the animate and input screens, and the glass over the program's pictures.
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QWheelEvent>

#include "desktop/picture_widget.h"
#include "files/in_hand.h"
#include "screens/joint_drag.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class JointsTest : public DesktopTest {
   protected:
    static desktop::PictureWidget& Picture(QWidget& window) { return Find<desktop::PictureWidget>(window, "Picture1"); }
    static int Step(const char* screen) { return Screens::Get(screen).Get<platform::ScrollBar>("hsc_step").Value(); }
    /// Where a joint is seen on the widget.
    static QPointF Seen(QWidget& window, Joint joint, int step) {
        auto& widget = Picture(window);
        const platform::Picture& drawing = widget.picture();
        const auto place = *Place_Of(joint, Model, step);
        const double across = (place.x - drawing.Left()) / (drawing.Right() - drawing.Left());
        const double down = (Model.FlipSum - place.y - drawing.Top()) / (drawing.Bottom() - drawing.Top());
        const QRectF area = widget.area();
        return {area.x() + widget.glass().Seen_Across(across) * area.width(),
                area.y() + widget.glass().Seen_Down(down) * area.height()};
    }
    static void Mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons,
                      Qt::KeyboardModifiers keys = {}) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, keys);
        QApplication::sendEvent(&widget, &event);
    }
    static void Press(QWidget& widget, QPointF at) {
        Mouse(widget, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    }
    static void Move(QWidget& widget, QPointF at, Qt::MouseButtons buttons = Qt::LeftButton) {
        Mouse(widget, QEvent::MouseMove, at, Qt::NoButton, buttons);
    }
    static void Release(QWidget& widget, QPointF at) {
        Mouse(widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    }
    static void Wheel(QWidget& widget, QPointF at, int notches) {
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
    static void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focus = window.focusWidget();
        QTest::keyClick(focus ? focus : &window, key, modifiers);
    }
    static double Off(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

    void On_Animate(std::function<void(QWidget&)> deed) {
        ThenArrive();
        Then("frm_HomeScreen", [](QWidget& window) { Click(window, "cmd_Input"); });
        Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Animate"); });
        Then("frm_Animate", [deed = std::move(deed)](QWidget& window) {
            auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            deed(window);
            Click(window, "cmd_Done");
        });
        Then("frm_HomeScreen", [](QWidget& window) {
            Model_Saved();
            Model_Kept();
            Click(window, "cmd_Quit");
        });
        Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
        Sub_Main("");
        EXPECT_TRUE(qt.Ending());
    }
};

TEST_F(JointsTest, A_plain_drag_takes_the_joint_under_the_pointer_and_is_one_step) {
    On_Animate([](QWidget& window) {
        auto& picture = Picture(window);
        const QPointF P = Seen(window, Joint::kP, 0);
        Move(picture, P + QPointF(3, 0), Qt::NoButton);
        EXPECT_EQ(picture.cursor().shape(), Qt::OpenHandCursor);
        const std::string before = What_Counts();
        const std::size_t steps = The_History().Steps();
        Press(picture, P);
        EXPECT_EQ(picture.cursor().shape(), Qt::ClosedHandCursor);
        QPointF at = P;
        for (int i = 0; i < 8; ++i) {
            at += QPointF(4, -3);
            Move(picture, at);
            EXPECT_LE(Off(Seen(window, Joint::kP, 0), at), 1);
            EXPECT_EQ(Single(Find<QLineEdit>(window, "txt_Linkout_4").text().toDouble()), Model.Rpa);
        }
        Release(picture, at);
        EXPECT_EQ(The_History().Steps(), steps + 1);
        EXPECT_NE(What_Counts(), before);
        Key(window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(What_Counts(), before);
    });
}

TEST_F(JointsTest, A_press_on_a_joint_that_only_trembles_changes_nothing) {
    On_Animate([](QWidget& window) {
        auto& picture = Picture(window);
        const QPointF A = Seen(window, Joint::kA, 0) + QPointF(4, 4);
        const std::string before = What_Counts();
        Press(picture, A);
        Move(picture, A + QPointF(1, 0));
        Move(picture, A);
        Release(picture, A);
        EXPECT_EQ(What_Counts(), before);
        EXPECT_EQ(picture.glass(), Glass{});
    });
}

TEST_F(JointsTest, Under_the_glass_the_joint_stays_under_the_pointer_too) {
    On_Animate([](QWidget& window) {
        auto& picture = Picture(window);
        Wheel(picture, Seen(window, Joint::kO4, 0), 12);
        EXPECT_NEAR(picture.glass().factor, std::pow(1.2, 12), 1e-6);
        QPointF at = Seen(window, Joint::kO4, 0);
        Press(picture, at);
        for (int i = 0; i < 5; ++i) {
            at += QPointF(9, 5);
            Move(picture, at);
            EXPECT_LE(Off(Seen(window, Joint::kO4, 0), at), 1);
        }
        Release(picture, at);
        // On empty ground the same hand moves the picture.
        const std::string after = What_Counts();
        const QPointF joint = Seen(window, Joint::kO4, Step("frm_Animate"));
        const QPointF empty = joint + QPointF(0, 60);
        Press(picture, empty);
        Move(picture, empty + QPointF(20, 10));
        Release(picture, empty + QPointF(20, 10));
        EXPECT_LE(Off(Seen(window, Joint::kO4, Step("frm_Animate")), joint + QPointF(20, 10)), 0.01);
        EXPECT_EQ(What_Counts(), after);
        EXPECT_EQ(Model.ZoomFactor, 1) << "the program's own zoom is another thing";
    });
}

TEST_F(JointsTest, By_the_keys_a_joint_is_taken_and_moved_and_else_the_run_is_stepped) {
    On_Animate([](QWidget& window) {
        auto& picture = Picture(window);
        picture.setFocus(Qt::TabFocusReason);
        Key(window, Qt::Key_Right);
        EXPECT_EQ(Step("frm_Animate"), 1);
        const QPointF P = Seen(window, Joint::kP, 1);
        Key(window, Qt::Key_P);
        for (int i = 0; i < 4; ++i) Key(window, Qt::Key_Right);
        Key(window, Qt::Key_Up, Qt::ShiftModifier);
        EXPECT_EQ(Step("frm_Animate"), 1);
        EXPECT_LE(Off(Seen(window, Joint::kP, 1), P + QPointF(4, -10)), 1);
        Key(window, Qt::Key_Escape);
        Key(window, Qt::Key_Right);
        EXPECT_EQ(Step("frm_Animate"), 2);
        EXPECT_TRUE(window.isVisible());
    });
}

TEST_F(JointsTest, A_number_typed_while_a_joint_is_held_is_taken) {
    On_Animate([](QWidget& window) {
        auto& picture = Picture(window);
        picture.setFocus(Qt::MouseFocusReason);
        const QPointF P = Seen(window, Joint::kP, 0);
        Press(picture, P);
        Move(picture, P + QPointF(10, 0));
        Key(window, Qt::Key_2);
        EXPECT_EQ(window.focusWidget(), &Find<QLineEdit>(window, "txt_Linkout_4"));
        Key(window, Qt::Key_Period);
        Key(window, Qt::Key_5);
        Key(window, Qt::Key_Return);
        EXPECT_EQ(Model.Rpa, 2.5);
        Move(picture, P + QPointF(30, 30));
        EXPECT_EQ(Model.Rpa, 2.5);
        Release(picture, P + QPointF(30, 30));
        EXPECT_TRUE(Model.RunStands);
    });
}

TEST_F(JointsTest, On_the_input_screen_joints_are_dragged_as_well) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) { Click(window, "cmd_Input"); });
    Then("frm_Inputnew", [](QWidget& window) {
        auto& timer = Screens::Get("frm_Inputnew").Get<platform::Timer>("Timer1");
        EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
        auto& picture = Picture(window);
        Click(window, "cmd_Step");
        const int step = Step("frm_Inputnew");
        QPointF at = Seen(window, Joint::kB, step);
        const QPointF A = Seen(window, Joint::kA, step);
        const Single L4 = Model.L4;
        const std::size_t steps = The_History().Steps();
        Press(picture, at);
        for (int i = 0; i < 5; ++i) {
            // On the circle around A.
            const QPointF arm = at - A;
            at += QPointF(-arm.y(), arm.x()) * 0.02;
            Move(picture, at);
            EXPECT_LE(Off(Seen(window, Joint::kB, step), at), 1);
        }
        Release(picture, at);
        EXPECT_NE(Model.L4, L4);
        EXPECT_EQ(The_History().Steps(), steps + 1);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Find<QWidget>(window, "cmd_Animate").isEnabled());
        // Escape lets the joint go before it leads back.
        picture.setFocus(Qt::OtherFocusReason);
        Key(window, Qt::Key_O);
        Key(window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        Key(window, Qt::Key_Escape);
    });
    Then("frm_HomeScreen", [](QWidget& window) {
        Model_Saved();
        Model_Kept();
        Click(window, "cmd_Quit");
    });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

TEST_F(JointsTest, Every_picture_of_a_mechanism_or_diagram_has_the_glass) {
    const std::pair<const char*, const char*> pictures[] = {
        {"frm_HomeScreen", "Picture1"}, {"frm_Inputnew", "Picture1"}, {"frm_Animate", "Picture1"},
        {"frm_Cayley", "Picture1"},     {"frm_Synth2A", "Image1"},    {"frm_Synth2B", "Image1"},
        {"frm_Synth3", "Image1"}};
    for (const auto& [screen, name] : pictures) {
        SCOPED_TRACE(screen);
        auto& box = Screens::Get(screen).Get<PictureBox>(name);
        auto& form = qt.formOf(Screens::Get(screen));
        auto& widget = Find<desktop::PictureWidget>(form, name);
        EXPECT_TRUE(widget.magnifies());
        widget.resize(402, 402);
        // As the window does when it comes up.
        QResizeEvent resized(widget.size(), {});
        QApplication::sendEvent(&widget, &resized);
        EXPECT_NEAR(box.Across, widget.area().width(), 1e-9);
        Wheel(widget, widget.area().center(), 3);
        EXPECT_NEAR(box.Through.Get().factor, 1.728, 1e-9);
        EXPECT_EQ(widget.glass(), box.Through.Get());
        box.Through = Glass{};
        EXPECT_EQ(widget.glass(), Glass{});
    }
}

TEST_F(JointsTest, The_names_of_a_diagram_go_with_the_glass_and_stand_whole_on_paper) {
    Set_Identity();
    Initialize();
    SeedCognate();
    Then("frm_Cayley", [](QWidget& window) {
        QTest::qWait(20);
        auto& picture = Picture(window);
        const auto names = [&] {
            std::vector<QRect> places;
            for (const QLabel* label : picture.parentWidget()->findChildren<QLabel*>())
                if (!label->isHidden()) places.push_back(label->geometry());
            return places;
        };
        const auto whole = names();
        Wheel(picture, picture.area().center(), 6);
        const auto near = names();
        EXPECT_NE(near, whole);
        {
            const desktop::WholePictures all(window);
            EXPECT_EQ(picture.glass(), Glass{});
            EXPECT_EQ(names(), whole);
        }
        EXPECT_EQ(names(), near);
        Screen::Active()->Hide();
    });
    Screens::Get("frm_Cayley").ShowModal();
}

}  // namespace

}  // namespace verlink::test
