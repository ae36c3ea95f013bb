// The quiet line under the picture, and the locks beside the boxes.
#include "core/linkage_door.h"
#include "core/parameters.h"
#include "core/why_words.h"
#include "screens/frm_inputnew.h"
#include "tests/screens/frm_inputnew_fixture.h"
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {

namespace {

std::string Line(platform::Screen& screen) { return screen.Get<platform::Label>("lbl_Why").Caption; }

/// On the animate screen: a triple rocker, from 90 to 130 degrees in steps of 10.
class WhyLine : public JointHand {
   protected:
    WhyLine() {
        Fresh();
        Make(7, 4, 5, 4.5);
        By_Angle(90, 130, 10);
    }
    static void Make(double L1, double L2, double L3, double L4) {
        Model.PolarCoords = true;
        Model.L1 = L1;
        Model.L2 = L2;
        Model.L3 = L3;
        Model.L4 = L4;
        Model.Link1Angle = 0;
        Derive_Linkage(Leading::kInForce);
    }
    std::string Line() { return test::Line(form); }
    void Lock(int box) { form.chk_Lock[box].Click(); }
};

constexpr const char* kAt110 = "Transmission angle 30.2 deg, under 40; 6.8 deg from the toggle at Theta2 = 116.8 deg.";
constexpr const char* kAt120 =
    "Coupler and rocker cannot meet at Theta2 = 120.0 deg: they are 0.144 in too short. Nearest angle that closes: "
    "116.8 deg.";

TEST_F(WhyLine, Goes_with_Step_the_bar_and_Reset) {
    After_First_Picture([&] {
        EXPECT_EQ(Line(), "");
        Show_Step(2);
        EXPECT_EQ(Line(), kAt110);
        Show_Step(3);
        EXPECT_EQ(Line(), kAt120);
        Press(form, "cmd_Reset");
        EXPECT_EQ(Line(), "");
        Press(form, "cmd_Step");
        Press(form, "cmd_Step");
        EXPECT_EQ(Line(), kAt110);
    });
}

TEST_F(WhyLine, Says_nothing_of_a_linkage_that_waits_for_a_calculation) {
    After_First_Picture([&] {
        Show_Step(2);
        Enter(form, "txt_Linkout", 2, "5.1");
        EXPECT_EQ(Line(), "");
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Line(), "");
    });
}

TEST_F(WhyLine, Says_what_length_would_do_before_and_after_the_calculation_is_refused) {
    After_First_Picture([&] {
        constexpr const char* kRefused =
            "Link 3 (Coupler) is 4.5 in longer than the other three together; it closes under 15.5 in.";
        Enter(form, "txt_Linkout", 2, "20");
        EXPECT_EQ(Line(), kRefused);
        desktop.Expect_Message(kCannotClose);
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Line(), kRefused);
        Enter(form, "txt_Linkout", 2, "5");
        EXPECT_EQ(Line(), "");
    });
}

TEST_F(WhyLine, Of_a_linkage_that_closes_nowhere_is_said_as_the_screen_comes_up) {
    Inside([] {});
    Make(7, 4, 20, 4.5);
    Run_Dropped();
    Inside([&] {
        EXPECT_EQ(Line(), "Link 3 (Coupler) is 4.5 in longer than the other three together; it closes under 15.5 in.");
    });
}

TEST_F(WhyLine, Says_why_a_joint_does_not_follow_and_forgets_it_when_it_does_again) {
    After_First_Picture([&] {
        Show_Step(2);
        const Spot A = Where(Joint::kA);
        ASSERT_TRUE(Press_At(A));
        Move(A * 1.3);
        EXPECT_EQ(Line(),
                  "Not followed: with 5.2 in of link 2 coupler and rocker cannot meet at Theta2 = 110.0 deg; under "
                  "4.46 in would do.");
        EXPECT_EQ(Model.L2, 4);
        Move(A * 1.01);
        EXPECT_TRUE(Line().starts_with("Transmission angle")) << Line();
        Move(A * 1.3);
        Release();
        EXPECT_TRUE(Line().starts_with("Transmission angle")) << Line();
    });
}

TEST_F(WhyLine, Says_which_lock_holds_a_joint) {
    After_First_Picture([&] {
        Show_Step(1);
        Lock(1);
        const Spot A = Where(Joint::kA);
        ASSERT_TRUE(Press_At(A));
        Move(A * 0.9);
        EXPECT_EQ(Line(), "Not followed: link 2 is locked.");
        EXPECT_EQ(Model.L2, 4);
        Release();
        EXPECT_EQ(Line(), "Not followed: link 2 is locked.") << "it can be read when the hand has let go";
        Lock(1);
        ASSERT_TRUE(Press_At(A));
        Move(A * 0.9);
        EXPECT_NEAR(Model.L2, 3.6, 0.02);
        EXPECT_EQ(Line(), "");
        Release();
    });
}

TEST_F(WhyLine, With_one_of_two_locked_a_joint_goes_where_the_other_lets_it) {
    After_First_Picture([&] {
        Lock(4);
        const double arm = Model.Rpa, angle = Model.Delta;
        const Spot P = Where(Joint::kP), A = Where(Joint::kA);
        ASSERT_TRUE(Press_At(P));
        Move(A + (P - A) * std::polar(2.0, 0.2));
        EXPECT_EQ(Model.Rpa, arm);
        EXPECT_NEAR(Model.Delta, angle + 0.2 * 180 / M_PI, 0.05);
        EXPECT_EQ(Line(), "");
        Release();
        Lock(5);
        ASSERT_TRUE(Press_At(Where(Joint::kP)));
        Move(P * 1.4);
        EXPECT_EQ(Line(),
                  "Not followed: the distance to the coupler point and the angle to the coupler point are locked.");
        Release();
    });
}

TEST_F(WhyLine, A_shift_drag_on_a_locked_length_says_so) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 2);
        Lock(3);
        form.Picture1.OnMouseMove(1, kShift, 3, Model.FlipSum - 3);
        EXPECT_EQ(Model.L4, 4.5);
        EXPECT_EQ(Line(), "Not followed: link 4 is locked.");
    });
}

TEST_F(WhyLine, A_shift_drag_is_held_where_all_that_it_changes_is_locked) {
    const struct {
        int option;
        bool polar;
        std::vector<int> locks;
        const char* words;
    } cases[] = {{0, true, {4, 5}, "the distance to the coupler point and the angle to the coupler point are"},
                 {1, true, {1}, "link 2 is"},
                 {3, true, {0, 6}, "the length of link 1 and the angle of link 1 are"},
                 {3, false, {15, 16}, "x of O4 and y of O4 are"},
                 {4, true, {2}, "link 3 is"}};
    After_First_Picture([&] {
        const auto drag = [&] { form.Picture1.OnMouseMove(1, kShift, 3, Model.FlipSum - 3); };
        for (const auto& held : cases) {
            SCOPED_TRACE(held.words);
            Choose_Option(form, "opt_Polar", held.polar ? 1 : 0);
            Choose_Option(form, "opt_Shift_Drag", held.option);
            for (const int box : held.locks) Lock(box);
            drag();
            EXPECT_EQ(Line(), "Not followed: " + std::string(held.words) + " locked.");
            for (const int box : held.locks) Lock(box);
        }
    });
}

TEST_F(WhyLine, A_run_that_plays_is_told_as_it_goes_and_its_last_position_stays) {
    Make(7, 4, 5, 4.5);
    By_Angle(100, 115, 5);
    After_First_Picture([&] {
        Press(form, "cmd_Animate");
        EXPECT_EQ(Line(), Why_Shown(Model, 3));
        EXPECT_EQ(Line(), "Transmission angle 15.2 deg, under 40; 1.8 deg from the toggle at Theta2 = 116.8 deg.");
    });
}

class LockTest : public WhyLine {};

TEST_F(LockTest, Both_screens_share_the_locks_and_nothing_of_the_model_changes) {
    auto& input = static_cast<Linkage_Screen&>(platform::Screens::Get("frm_Inputnew"));
    Inside([&] {
        for (const int box : {0, 1, 2, 3, 4, 5, 6, 15, 16}) {
            EXPECT_FALSE(form.Held(box));
            Lock(box);
            EXPECT_TRUE(form.Held(box) && input.Held(box));
            EXPECT_EQ(form.chk_Lock[box].Tip, "Locked: no drag changes this value; press to unlock it");
        }
        EXPECT_TRUE(Model.SavedFlag);
    });
    input.chk_Lock[5].Click();
    EXPECT_FALSE(form.Held(5) || input.Held(5));
    EXPECT_EQ(form.chk_Lock[5].Tip, "Lock this value, so that no drag changes it");
}

TEST_F(LockTest, A_screen_that_is_made_later_has_the_locks_of_the_other) {
    Lock(3);
    auto& input = static_cast<Linkage_Screen&>(platform::Screens::Get("frm_Inputnew"));
    EXPECT_TRUE(input.Held(3));
    EXPECT_FALSE(input.Held(2));
}

TEST_F(LockTest, A_locked_box_can_be_typed_into) {
    Inside([&] {
        Lock(3);
        Enter(form, "txt_Linkout", 3, "4.25");
        EXPECT_EQ(Model.L4, 4.25);
    });
}

/// On the input screen, whose linkage is the one of `Initialize`.
class WhyInput : public InputScreen {
   protected:
    std::string Line() { return test::Line(input); }
};

TEST_F(WhyInput, A_linkage_that_is_refused_is_told_with_what_would_do) {
    Show([&] {
        Calculate_Now();
        EXPECT_EQ(Line(), "");
        desktop.Expect_Message(kCannotClose);
        Enter_Link(2, "20");
        EXPECT_EQ(Line(),
                  "Link 3 (Coupler) is 13.718 in longer than the other three together; it closes under 6.282 in.");
        Enter_Link(2, "2.5");
        EXPECT_EQ(Line(), "");
    });
}

TEST_F(WhyInput, A_linkage_that_waits_for_its_calculation_is_told_as_the_screen_comes_up) {
    Without_Autocalc();
    Model.L3 = 20;
    LoadLinkArray();
    Show([&] {
        EXPECT_EQ(Line(),
                  "Link 3 (Coupler) is 13.718 in longer than the other three together; it closes under 6.282 in.");
    });
}

TEST_F(WhyInput, A_run_without_a_position_is_told_also_after_the_screen_has_settled) {
    Model.L2 = 4;
    Model.L1 = 7;
    Model.L3 = 5;
    Model.L4 = 4.5;
    Model.Link1Angle = 0;
    Model.PolarCoords = true;
    Derive_Linkage(Leading::kInForce);
    constexpr const char* kRefused =
        "No position closes. At Theta2 = 120.0 deg coupler and rocker are 0.144 in too short; a coupler over 5.144 in, "
        "a rocker over 4.644 in or 116.8 deg would do.";
    Model.ThetaStart = 120;
    Model.ThetaEnd = 200;
    Model.ThetaStep = 40;
    Derive_Angle_Limits();
    desktop.Expect_Message_With(kNoConnect, platform::Answer::kIgnore);
    Show([&] {
        EXPECT_EQ(Line(), kRefused);
        input.Timer1.Tick();
        EXPECT_EQ(Line(), kRefused);
        desktop.Expect_Message_With(kNoConnect, platform::Answer::kIgnore);
        Calculate_Now();
        EXPECT_EQ(Line(), kRefused);
        desktop.Expect_Message_With(kNoConnect, platform::Answer::kIgnore);
        Enter_Limit(0, "100");
        EXPECT_FALSE(Line().starts_with("No position")) << Line();
    });
}

TEST_F(WhyInput, A_run_that_the_user_ends_is_told_where_it_could_not_go_on) {
    Model.L2 = 4;
    Model.L1 = 7;
    Model.L3 = 5;
    Model.L4 = 4.5;
    Model.Link1Angle = 0;
    Model.PolarCoords = true;
    Derive_Linkage(Leading::kInForce);
    Without_Autocalc();
    Model.ThetaStart = 90;
    Model.ThetaEnd = 200;
    Model.ThetaStep = 10;
    Derive_Angle_Limits();
    Show([&] {
        desktop.Expect_Message_With(kNoConnect, platform::Answer::kAbort);
        Calculate_Now();
        EXPECT_EQ(Line(), kAt120);
    });
}

}  // namespace

}  // namespace verlink::test
