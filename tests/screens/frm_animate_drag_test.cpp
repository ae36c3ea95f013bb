// Shift-drag on the picture of the animate screen.
#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "files/in_hand.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

class AnimateDrag : public AnimateScreen {
   protected:
    static constexpr int kLeft = 1;
    static constexpr int kShift = 1;
    /// Drags to a world point, y upward.
    void Drag(double x, double y) { form.Picture1.OnMouseMove(kLeft, kShift, x, Model.FlipSum - y); }
    double Value_In(int box) { return Val(Text_In(box)); }
    /// The position in the picture.
    int Shown() { return form.hsc_step.Value(); }
    double A_x() { return Model.RunTable.PointXY(Shown(), 0, 0); }
    double A_y() { return Model.RunTable.PointXY(Shown(), 0, 1); }
    static double Degrees(double x, double y) { return std::atan2(y, x) * 180 / M_PI; }
};

TEST_F(AnimateDrag, OptionsChooseTheTarget) {
    Inside([&] {
        const int targets[] = {2, 0, 1, 3, 4};
        for (int option : {1, 2, 3, 4, 0}) {
            Choose_Option(form, "opt_Shift_Drag", option);
            EXPECT_EQ(Model.ShiftDragTarget, targets[option]) << option;
        }
    });
}

TEST_F(AnimateDrag, TheTargetOutlastsTheNextPicture) {
    After_First_Picture([&] {
        const int targets[] = {2, 0, 1, 3, 4};
        for (int option : {1, 2, 3, 4, 0}) {
            Choose_Option(form, "opt_Shift_Drag", option);
            Press(form, "cmd_Step");
            EXPECT_EQ(Model.ShiftDragTarget, targets[option]) << option;
        }
    });
}

TEST_F(AnimateDrag, OnlyTheLeftButtonWithTheShiftKeyAloneDrags) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        const std::pair<int, int> others[] = {{1, 0}, {1, 2}, {1, 3}, {1, 5}, {0, 1}, {2, 1}, {3, 1}};
        for (const auto& [button, keys] : others) {
            form.Picture1.OnMouseMove(button, keys, 1, 1);
            EXPECT_EQ(Text_In(1), "1.115") << button << ' ' << keys;
        }
        EXPECT_TRUE(Model.SavedFlag);
        form.Picture1.OnMouseMove(1, 1, 1, 1);
        EXPECT_NE(Text_In(1), "1.115");
    });
}

TEST_F(AnimateDrag, TheCrankTakesTheDistanceFromO2) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(0.6, 0.8004);
        EXPECT_EQ(Text_In(1), "1");
        EXPECT_EQ(Model.L2, 1);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 1, 1e-6);
    });
}

TEST_F(AnimateDrag, TheCrankShowsItsCircleUntilTheRedraw) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        LogSurface log;
        form.Picture1.Redirect(&log);
        const double flip = Model.FlipSum;
        Drag(0.6, 0.8);
        Expect_Rows({log.Calls[0]}, {Row("Circle", {0, flip, 1}, 0xFF0000)});
        EXPECT_NE(std::find(log.Calls.begin() + 1, log.Calls.end(), "BackColor FFFFFF"), log.Calls.end());
        form.Picture1.Redirect(nullptr);
    });
}

TEST_F(AnimateDrag, TheRockerTakesTheDistanceFromO4) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 2);
        Drag(2.667 + 1.5, 2);
        EXPECT_EQ(Text_In(3), "2.5");
        Drag(2.667 + 0.7, 2.4);
        EXPECT_EQ(Text_In(3), "2.5");
        Drag(2.667, 2.25);
        EXPECT_EQ(Text_In(3), "2.25");
        EXPECT_EQ(Model.L4, 2.25);
    });
}

TEST_F(AnimateDrag, TheCouplerPointGoesWhereTheMouseIs) {
    After_First_Picture([&] {
        Press(form, "cmd_Step");
        Choose_Option(form, "opt_Shift_Drag", 0);
        // The position measured at is the one in the picture, not the next to be shown.
        const int step = Shown();
        EXPECT_EQ(step, 1);
        EXPECT_EQ(Model.CurrentStep, 2);
        const double dx = 1.45 - A_x();
        const double dy = -1.2 - A_y();
        const double angle = Degrees(dx, dy) - Model.RunTable.Theta(step, 1);
        Drag(1.45, -1.2);
        EXPECT_NEAR(Value_In(4), std::hypot(dx, dy), 0.00051);
        EXPECT_NEAR(std::remainder(Model.Delta - angle, 360), 0, 0.00051);
        EXPECT_EQ(Model.Delta, Single(FNRound(Model.Delta, 3))) << "the picture tells no more decimals";
        EXPECT_NEAR(Model.RunTable.PointXY(step, 2, 0), 1.45, 0.002);
        EXPECT_NEAR(Model.RunTable.PointXY(step, 2, 1), -1.2, 0.002);
        EXPECT_EQ(Shown(), step);
        EXPECT_EQ(Model.CurrentStep, 2);
    });
}

TEST_F(AnimateDrag, AtTheLastStepItIsMeasuredThere) {
    After_First_Picture([&] {
        form.hsc_step.Drag(36);
        form.hsc_step.Drop();
        Press(form, "cmd_Step");
        EXPECT_EQ(Model.CurrentStep, 37);
        const double x = 1;
        const double y = -1;
        Drag(x, y);
        EXPECT_NEAR(Model.RunTable.PointXY(36, 2, 0), x, 0.002);
        EXPECT_NEAR(Model.RunTable.PointXY(36, 2, 1), y, 0.002);
    });
}

TEST_F(AnimateDrag, TheCouplerTakesTheDistanceFromA) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 4);
        const double length = std::hypot(3 - A_x(), 1.5 - A_y());
        Drag(3, 1.5);
        EXPECT_NEAR(Value_In(2), length, 0.00051);
        EXPECT_NEAR(Model.L3, length, 0.00051);
    });
}

TEST_F(AnimateDrag, TheGroundTakesO4InCartesianCoordinates) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 3);
        Drag(2.5, 0.51234);
        EXPECT_EQ(Text_In(15), "2.5");
        EXPECT_EQ(Text_In(16), "0.512");
        EXPECT_NEAR(Model.L1, std::hypot(2.5, 0.512), 1e-6);
    });
}

TEST_F(AnimateDrag, TheGroundTakesLengthAndAngleInPolarCoordinates) {
    Model.PolarCoords = true;
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 3);
        Drag(2, 1);
        EXPECT_EQ(Text_In(0), "2.236");
        EXPECT_EQ(Text_In(6), "26.57");
        EXPECT_NEAR(Model.Link1Angle, 26.57, 1e-5);
    });
}

TEST_F(AnimateDrag, InPolarCoordinatesTheNewAngleIsMeasuredFromTheXAxisWhateverTheOldOne) {
    Turn_Ground(30);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 3);
        Drag(2.5 * std::cos(50 * M_PI / 180), 2.5 * std::sin(50 * M_PI / 180));
        EXPECT_EQ(Text_In(0), "2.5");
        EXPECT_EQ(Text_In(6), "50");
        EXPECT_EQ(Model.Link1Angle, 50);
    });
}

TEST_F(AnimateDrag, OnATurnedGroundTheMouseIsTakenIntoTheLocalFrame) {
    Turn_Ground(30);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 4);
        const double x = 3 * std::cos(M_PI / 6) + 1.5 * std::sin(M_PI / 6);
        const double y = -3 * std::sin(M_PI / 6) + 1.5 * std::cos(M_PI / 6);
        const double length = std::hypot(x - A_x(), y - A_y());
        Drag(3, 1.5);
        EXPECT_NEAR(Value_In(2), length, 0.00051);
    });
}

TEST_F(AnimateDrag, OnATurnedGroundTheRockerIsMeasuredFromWhereO4IsDrawn) {
    Turn_Ground(30);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 2);
        const double length = std::hypot(3 - 2.667 * std::cos(M_PI / 6), 3 - 2.667 * std::sin(M_PI / 6));
        Drag(3, 3);
        EXPECT_NEAR(Value_In(3), length, 0.00051);
    });
}

TEST_F(AnimateDrag, OnATurnedGroundO4GoesWhereTheMouseIsInItsCoordinatesToo) {
    Turn_Ground(30);
    Model.PolarCoords = false;
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 3);
        Drag(2.5, 0.51234);
        EXPECT_EQ(Text_In(15), "2.5");
        EXPECT_EQ(Text_In(16), "0.512");
    });
}

TEST_F(AnimateDrag, AStillHandAsksForTheSameAgain) {
    for (const bool autoscale : {true, false}) {
        By_Angle(0, 360, 10);
        After_First_Picture([&] {
            form.chk_autoscale.Value = autoscale;
            for (int option = 0; option <= 4; ++option) {
                Choose_Option(form, "opt_Shift_Drag", option);
                const double X = Model.AnimMin + 0.7 * (Model.AnimMax - Model.AnimMin);
                const double Y = Model.AnimMin + 0.45 * (Model.AnimMax - Model.AnimMin);
                form.Picture1.OnMouseMove(kLeft, kShift, X, Y);
                const std::string first = What_Counts();
                for (int i = 0; i < 5; ++i) form.Picture1.OnMouseMove(kLeft, kShift, X, Y);
                EXPECT_EQ(What_Counts(), first) << "option " << option;
                EXPECT_TRUE(form.cmd_Animate.Enabled);
            }
        });
    }
}

TEST_F(AnimateDrag, TheCrankAt135DegreesStaysThere) {
    By_Angle(0, 360, 5);
    After_First_Picture([&] {
        form.hsc_step.Drag(27);
        form.hsc_step.Drop();
        Choose_Option(form, "opt_Shift_Drag", 1);
        const double side = std::sqrt(0.5);
        Drag(-1.25 * side, 1.25 * side);
        EXPECT_EQ(Text_In(1), "1.25");
        EXPECT_EQ(Number(), "135.0");
        EXPECT_NEAR(A_x(), -1.25 * side, 1e-5);
        EXPECT_NEAR(A_y(), 1.25 * side, 1e-5);
    });
}

TEST_F(AnimateDrag, InMillimetresTheBoxTakesWhatTheMouseShows) {
    Use_Units(5);
    for (Single* length : {&Model.L2, &Model.L3, &Model.L4, &Model.Rpa, &Model.Link1X}) *length /= 1000;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(0.6, 0.8);
        EXPECT_EQ(Text_In(1), "1");
        EXPECT_NEAR(Model.L2, 0.001, 1e-9);
    });
}

TEST_F(AnimateDrag, EachMoveSolvesTheRunAndLeavesTheScreenReady) {
    After_First_Picture([&] {
        Forces_Hold();
        Choose_Option(form, "opt_Shift_Drag", 1);
        for (double length : {1.0, 0.9, 0.8}) {
            Drag(length, 0);
            EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), length, 1e-6);
        }
        EXPECT_TRUE(Model.Calculated);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        EXPECT_FALSE(form.cmd_Recalc.Enabled);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_GT(Alive(), 40U);
    });
}

TEST_F(AnimateDrag, ADragIsNotCountedAsANewDesign) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        Drag(1, 0);
        Press(form, "cmd_Done");
    });
    EXPECT_EQ(Model.DesignNumber, 1);
}

TEST_F(AnimateDrag, ALinkageThatCannotCloseIsToldAndReappears) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        desktop.Expect_Message(
            "Your link lengths are incompatible\rand cannot reach to close the linkage \r\r"
            "The computation will now be aborted.\rPlease correct your link lengths.\r\r"
            "If you were shift-click-dragging a joint,just \rshift-click in a new location until linkage reappears.",
            platform::Answer::kOk, platform::Icon::kNone, platform::Buttons::kOk);
        Drag(50, 12.345);
        EXPECT_EQ(Model.Grashof_Code, "NL");
        EXPECT_EQ(Number(), "13.9") << "where the hand is, with one decimal";
        Drag(1, 0);
        EXPECT_EQ(Model.Grashof_Code, "Y");
        EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 1, 1e-6);
    });
}

TEST_F(AnimateDrag, StepsThatWereTypedAreRunWithIt) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        Enter(form, "txt_initial", 2, "20");
        ASSERT_FALSE(Model.RunStands);
        Drag(1, 0);
        EXPECT_TRUE(Model.RunStands);
        EXPECT_EQ(Model.NSteps, 18);
        EXPECT_EQ(form.hsc_step.Max(), 18);
    });
}

TEST_F(AnimateDrag, OneThatIsHeldOnIsToldOnceAndFollowsFromTheNextPressOn) {
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 1);
        const auto press = [&] { return form.Picture1.OnSeize({1, 0, kShift, form.Picture1.Pixel()}); };
        ASSERT_TRUE(press());
        desktop.Expect_Message_With("Your link lengths are incompatible");
        Drag(50, 0);
        Drag(60, 0);
        Drag(1, 0);
        EXPECT_EQ(Model.Grashof_Code, "NL");
        EXPECT_EQ(Model.L2, 50);
        form.Picture1.OnRelease();
        ASSERT_TRUE(press());
        Drag(1, 0);
        EXPECT_EQ(Model.Grashof_Code, "Y");
        form.Picture1.OnRelease();
    });
}

TEST_F(AnimateDrag, ABoxWithTheFocusIsNotChangedByADrag) {
    After_First_Picture([&] {
        form.txt_Linkout[1].SetFocus();
        form.opt_Shift_Drag[1].Value = true;
        Drag(1, 0);
        form.cmd_Animate.SetFocus();
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(AnimateDrag, TheAngleOfTheCouplerPointIsTypedInThousandthsOfADegree) {
    After_First_Picture([&] {
        int finer = 0;
        for (const double x : {0.9, 1.1, 1.3, 1.5}) {
            Drag(x, 1);
            // A single has five decimals of it.
            EXPECT_NEAR(std::remainder(Model.Delta * 1000.0, 1), 0, 0.03);
            finer += std::abs(std::remainder(Model.Delta * 100.0, 1)) > 0.05;
        }
        EXPECT_GT(finer, 0);
    });
}

TEST_F(AnimateDrag, OnATurnedGroundTheCouplerPointGoesWhereTheMouseIsToo) {
    Turn_Ground(30);
    By_Angle(0, 360, 10);
    After_First_Picture([&] {
        Choose_Option(form, "opt_Shift_Drag", 0);
        Drag(1.5, -1.25);
        // Points of the run are in the frame of the ground.
        const double cosine = std::cos(M_PI / 6), sine = std::sin(M_PI / 6);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 2, 0), 1.5 * cosine - 1.25 * sine, 0.002);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 2, 1), -1.5 * sine - 1.25 * cosine, 0.002);
    });
}

}  // namespace
}  // namespace verlink::test
