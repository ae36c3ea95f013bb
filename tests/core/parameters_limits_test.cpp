// Run limits between the boxes of a screen and the model, and the refusal of bad ones.
#include <cmath>

#include "core/parameters.h"
#include "core/results.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;

constexpr char kMinBelowMax[] =
    "Minimum angle must be smaller than maximum angle.\rTo rotate CW from max to min, use a negative Omega2.";
constexpr char kBadStep[] =
    "Cannot have a zero or negative step size\rTo rotate CW from max to min, use a negative Omega2.";
constexpr char kSomethingWrong[] =
    "Something is wrong. \rStart and end theta are too close together\r or delta theta is too large.";
constexpr char kTooManyAngles[] = "Your angle steps are too small - Have > 2880 Points - Increase Delta Theta";
constexpr char kTooManyTimes[] = "Your time steps are too small - Have > 2880 Points - Increase Delta Time";

class ParametersLimits : public Fixture {
   protected:
    ParametersLimits() {
        Initialize();
        Use_Units(1);
        Put_Linkage_Geometry(input);
    }
    std::string Box(int index) { return input.Text("txt_initial", index).Text; }
    bool Read(const char* first, const char* last, const char* step) {
        input.Text("txt_initial", 0).Type(first);
        input.Text("txt_initial", 1).Type(last);
        input.Text("txt_initial", 2).Type(step);
        return Get_Initial_Conditions(input);
    }
    void Expect_Boxes(const char* first, const char* last, const char* step) {
        EXPECT_EQ(Box(0), first);
        EXPECT_EQ(Box(1), last);
        EXPECT_EQ(Box(2), step);
    }
    void Expect_Angles(double start, double end, double step, int steps) {
        EXPECT_EQ(Model.ThetaStart, start);
        EXPECT_EQ(Model.ThetaEnd, end);
        EXPECT_EQ(Model.ThetaStep, step);
        EXPECT_EQ(Model.NSteps, steps);
    }
    Screen& input = Screens::Get("frm_Inputnew");
    Screen& animate = Screens::Get("frm_Animate");
};

TEST_F(ParametersLimits, OnePositionReadsItsAngleAndCopiesTheTextIntoBox1) {
    Model.Calctype = 1;
    EXPECT_TRUE(Read("62.50", "", ""));
    EXPECT_EQ(Model.ThetaZero, 62.5);
    EXPECT_EQ(Box(1), "62.50");
}

TEST_F(ParametersLimits, TheRunFallsWithAnotherAngleOfOnePositionAndStaysWithTheSame) {
    Model.Calctype = 1;
    ASSERT_TRUE(Read("62.5", "", ""));
    Run_Holds();
    ASSERT_TRUE(Read("62.50", "", ""));
    EXPECT_TRUE(Model.RunStands);
    ASSERT_TRUE(Read("62.6", "", ""));
    EXPECT_FALSE(Model.RunStands);
}

TEST_F(ParametersLimits, AngleLimitsAreTakenWithTheirTextsAndRadians) {
    Model.Alpha2 = 4;
    EXPECT_TRUE(Read("0", "360", "2.5"));
    Expect_Angles(0, 360, 2.5, 144);
    EXPECT_EQ(Model.ThetaStartStr, "0");
    EXPECT_EQ(Model.ThetaEndStr, "360");
    EXPECT_EQ(Model.ThetaStepStr, "2.5");
    EXPECT_NEAR(Model.ThetaEndRad, 2 * M_PI, 1e-5);
    EXPECT_NEAR(Model.ThetaStepRad, M_PI / 72, 1e-7);
    EXPECT_EQ(Model.Alpha2, 0.0);
}

TEST_F(ParametersLimits, ARangeThatIsNoMultipleOfTheStepRoundsToTheNearestCount) {
    EXPECT_TRUE(Read("0", "100", "30"));
    EXPECT_EQ(Model.NSteps, 3);
    EXPECT_TRUE(Read("0", "110", "30"));
    EXPECT_EQ(Model.NSteps, 4);
}

TEST_F(ParametersLimits, AngleLimitsGoToTheAnimateScreen) {
    EXPECT_TRUE(Read("10", "370", "5"));
    EXPECT_EQ(animate.Text("txt_initial", 0).Text, "10");
    EXPECT_EQ(animate.Text("txt_initial", 1).Text, "370");
    EXPECT_EQ(animate.Text("txt_initial", 2).Text, "5");
    EXPECT_EQ(animate.Text("txt_Linkout", 1).Text, "1.115");
    EXPECT_EQ(animate.Get<Label>("lbl_StepLabel").Caption, "Theta2");
}

TEST_F(ParametersLimits, AMinimumThatIsNotBelowTheMaximumIsRefusedAndBothBoxesAreRestored) {
    ASSERT_TRUE(Read("10", "370", "5"));
    for (const char* min : {"380", "370"}) {
        desktop.Expect_Message(kMinBelowMax, Answer::kOk, Icon::kExclamation, Buttons::kOk);
        EXPECT_FALSE(Read(min, "370", "5"));
        Expect_Angles(10, 370, 5, 72);
        Expect_Boxes("10", "370", "5");
        desktop.Verify();
    }
}

TEST_F(ParametersLimits, AZeroOrNegativeAngleStepIsRefusedAndItsBoxIsRestored) {
    ASSERT_TRUE(Read("10", "370", "5"));
    for (const char* step : {"0", "-5", "five"}) {
        desktop.Expect_Message(kBadStep, Answer::kOk, Icon::kNone, Buttons::kOk);
        EXPECT_FALSE(Read("10", "370", step));
        Expect_Angles(10, 370, 5, 72);
        Expect_Boxes("10", "370", "5");
        desktop.Verify();
    }
}

TEST_F(ParametersLimits, AnAngleStepOf98PercentOfTheRangeIsRefusedAndTheLimitsStand) {
    ASSERT_TRUE(Read("10", "370", "5"));
    for (const char* step : {"400", "367.4"}) {
        desktop.Expect_Message(kSomethingWrong, Answer::kOk, Icon::kExclamation, Buttons::kOk);
        EXPECT_FALSE(Read("0", "360", step));
        Expect_Angles(10, 370, 5, 72);
        EXPECT_EQ(Model.ThetaStepStr, "5");
        EXPECT_NEAR(Model.ThetaStepRad, 5 * M_PI / 180, 1e-7);
        Expect_Boxes("10", "370", "5");
        desktop.Verify();
    }
}

TEST_F(ParametersLimits, AnAngleStepOf367Over360DegreesPassesWithOneStep) {
    EXPECT_TRUE(Read("0", "360", "367"));
    EXPECT_EQ(Model.NSteps, 1);
}

TEST_F(ParametersLimits, MoreThan2880AngleStepsAreRefusedAndTheLimitsStand) {
    ASSERT_TRUE(Read("10", "370", "5"));
    desktop.Expect_Message(kTooManyAngles, Answer::kOk, Icon::kNone, Buttons::kOk);
    EXPECT_FALSE(Read("0", "360", "0.1"));  // 3600 steps
    Expect_Angles(10, 370, 5, 72);
    Expect_Boxes("10", "370", "5");
    EXPECT_EQ(input.Focus(), &input.Text("txt_initial", 2));
}

TEST_F(ParametersLimits, ACountThatNoIntegerHoldsIsRefusedInTheSameWords) {
    ASSERT_TRUE(Read("10", "370", "5"));
    desktop.Expect_Message(kTooManyAngles);
    EXPECT_FALSE(Read("0", "360", "0.001"));  // 360000 steps
    EXPECT_EQ(Model.NSteps, 72);
}

TEST_F(ParametersLimits, Exactly2880AngleStepsPass) {
    EXPECT_TRUE(Read("0", "360", "0.125"));
    EXPECT_EQ(Model.NSteps, 2880);
}

TEST_F(ParametersLimits, ARefusalLeavesTheButtonsAndAnAcceptanceDisablesThem) {
    auto& run = input.Get<CommandButton>("cmd_Animate");
    auto& next = input.Get<CommandButton>("cmd_Done");
    run.Enabled = true;
    next.Enabled = true;
    Model.RedrawFlag = "N";
    desktop.Expect_Message(kMinBelowMax);
    Read("5", "5", "1");
    EXPECT_TRUE(run.Enabled);
    EXPECT_TRUE(next.Enabled);
    EXPECT_EQ(Model.RedrawFlag, "N");
    Put_Angle_Initial_Conditions(animate);
    EXPECT_TRUE(Get_Initial_Conditions(animate));
    EXPECT_FALSE(run.Enabled);
    EXPECT_FALSE(next.Enabled);
    EXPECT_EQ(Model.RedrawFlag, "Y");
}

TEST_F(ParametersLimits, TimeLimitsAreTakenAndTheStringsHoldTimes) {
    Model.Calctype = 2;
    EXPECT_TRUE(Read("0.5", "2.5", "0.01"));
    EXPECT_EQ(Model.TimeStart, 0.5);
    EXPECT_EQ(Model.TimeEnd, 2.5);
    EXPECT_EQ(Model.TimeStep, Single(0.01));
    EXPECT_EQ(Model.ThetaStartStr, "0.5");
    EXPECT_EQ(Model.ThetaEndStr, "2.5");
    EXPECT_EQ(Model.ThetaStepStr, "0.01");
    EXPECT_EQ(Model.NSteps, 200);
    EXPECT_EQ(animate.Text("txt_initial", 2).Text, "0.01");
    EXPECT_EQ(animate.Get<Label>("lbl_StepLabel").Caption, "Time");
    EXPECT_EQ(animate.Get<Label>("lbl_StepUnit").Caption, "sec");
}

TEST_F(ParametersLimits, AStartTimeThatIsNotBelowTheEndIsRefusedAndBothBoxesAreRestored) {
    Model.Calctype = 2;
    ASSERT_TRUE(Read("0.5", "2.5", "0.01"));
    for (const auto& [start, end] : {std::pair{"3", "2.5"}, {"2.5", "2.5"}, {"0.5", "0.25"}}) {
        desktop.Expect_Message("Start time must be smaller than end time - will reset.", Answer::kOk,
                               Icon::kExclamation, Buttons::kOk);
        EXPECT_FALSE(Read(start, end, "0.01"));
        EXPECT_EQ(Model.TimeStart, 0.5);
        Expect_Boxes("0.5", "2.5", "0.01");
        desktop.Verify();
    }
}

TEST_F(ParametersLimits, ANegativeTimeStepIsMadePositiveAndTheRoutineGoesOn) {
    Model.Calctype = 2;
    desktop.Expect_Message("Time steps must be positive - will reset", Answer::kOk, Icon::kNone, Buttons::kOk);
    EXPECT_TRUE(Read("0", "2", "-0.25"));
    EXPECT_EQ(Model.TimeStep, 0.25);
    EXPECT_EQ(Box(2), "0.25");
    EXPECT_EQ(Model.ThetaStepStr, "0.25");
    EXPECT_EQ(Model.NSteps, 8);
}

TEST_F(ParametersLimits, AZeroTimeStepLeavesTheOneInForce) {
    Model.Calctype = 2;
    desktop.Expect_Message("Time steps must be positive - will reset");
    EXPECT_TRUE(Read("0", "2", "0"));
    EXPECT_EQ(Model.TimeStep, Single(0.05));
    EXPECT_EQ(Box(2), "0.05");
    EXPECT_EQ(Model.NSteps, 40);
}

TEST_F(ParametersLimits, MoreThan2880TimeStepsAreToldAndTheRoutineGoesOnWithTheModelsOwn) {
    Model.Calctype = 2;
    ASSERT_TRUE(Read("0", "2", "0.5"));
    input.Get<CommandButton>("cmd_Done").Enabled = true;
    desktop.Expect_Message(kTooManyTimes, Answer::kOk, Icon::kNone, Buttons::kOk);
    EXPECT_TRUE(Read("0", "2", "0.0001"));
    EXPECT_EQ(Model.TimeStep, 0.5);
    EXPECT_EQ(Model.ThetaStepStr, "0.5");
    EXPECT_EQ(Model.NSteps, 4);
    Expect_Boxes("0", "2", "0.0001");
    for (int box = 0; box <= 2; ++box) EXPECT_TRUE(input.Text("txt_initial", box).Touched()) << "it is read again";
    EXPECT_EQ(animate.Text("txt_initial", 2).Text, "0.5");
    EXPECT_FALSE(input.Get<CommandButton>("cmd_Done").Enabled);
}

TEST_F(ParametersLimits, Exactly2880TimeStepsPass) {
    Model.Calctype = 2;
    EXPECT_TRUE(Read("0", "2880", "1"));
    EXPECT_EQ(Model.NSteps, 2880);
}

TEST_F(ParametersLimits, ATimeStepOf0InTheModelItselfIsToldAsTooSmall) {
    Model.Calctype = 2;
    Model.TimeStep = 0;
    desktop.Expect_Message("Time steps must be positive - will reset").Expect_Message(kTooManyTimes);
    EXPECT_TRUE(Read("0", "2", "0"));
    EXPECT_EQ(Model.NSteps, -435);
}

TEST_F(ParametersLimits, DrivenRunsReadNoLimits) {
    for (int mode : {4, 5}) {
        Model.Calctype = mode;
        EXPECT_TRUE(Read("7", "3", "0"));
        Expect_Angles(45, 405, 10, -435);
    }
}

TEST_F(ParametersLimits, AnOverflowWhileReadingIsReportedAndCountsAsRefused) {
    desktop.Expect_Message_With("has occurred in Get_Initial_Conditions");
    EXPECT_FALSE(Read("0", "1e60", "5"));
    EXPECT_EQ(Box(1), "405");
    Expect_Angles(45, 405, 10, -435);
}

TEST_F(ParametersLimits, AngleLabels) {
    Model.Omega2Input = 12.5;
    for (int i = 0; i < 6; ++i)
        input.Get<Label>("lbl_Initial", i).Caption = input.Get<Label>("lbl_Unit", i).Caption.Get() + " before";
    Put_Angle_Initial_Conditions(input);
    Expect_Boxes("45", "405", "10");
    const char* names[] = {"Min Theta", "Max Theta", "Delta Theta", "Omega2", "Alpha2", "Theta Zero"};
    const char* units[] = {"deg", "deg", "deg", "rad/s", "rad/s^2", "deg"};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(input.Get<Label>("lbl_Initial", i).Caption, names[i]);
        EXPECT_EQ(input.Get<Label>("lbl_Unit", i).Caption, units[i]);
    }
    EXPECT_EQ(animate.Get<Label>("lbl_StepLabel").Caption, "Theta2");
    EXPECT_EQ(animate.Get<Label>("lbl_StepUnit").Caption, "deg");
    EXPECT_EQ(animate.Get<Label>("lbl_Omega").Caption, "12.5");
    Model.Calctype = 1;
    Put_Angle_Initial_Conditions(animate);
    EXPECT_EQ(animate.Get<Label>("lbl_StepLabel").Caption, "Alpha2");
    EXPECT_EQ(animate.Get<Label>("lbl_StepUnit").Caption, "rad/s^2");
}

TEST_F(ParametersLimits, ALimitThatIsWrittenOtherwiseOrAnotherCountDropsTheRunAndTheSave) {
    ASSERT_TRUE(Get_Initial_Conditions(input));
    const auto stands = [this] {
        Run_Holds();
        Model_Saved();
        EXPECT_TRUE(Get_Initial_Conditions(input));
        EXPECT_EQ(Model.RunStands, Model.SavedFlag);
        return bool{Model.RunStands};
    };
    EXPECT_TRUE(stands());
    for (std::string* text : {&Model.ThetaStartStr, &Model.ThetaEndStr, &Model.ThetaStepStr}) {
        *text += ".0";
        EXPECT_FALSE(stands());
        EXPECT_TRUE(stands());
    }
    Model.NSteps = 35;
    EXPECT_FALSE(stands());
    EXPECT_EQ(Model.NSteps, 36);
    Model.Alpha2 = 1;
    EXPECT_FALSE(stands());
}

TEST_F(ParametersLimits, TimeLimitsGoToTheAnimateScreenWithTheLengthsOfTheModel) {
    Model.Calctype = 2;
    Model.L2 = 1.25;
    LoadLinkArray();
    ASSERT_TRUE(Read("0", "2", "0.5"));
    EXPECT_EQ(animate.Text("txt_Linkout", 1).Text, "1.25");
    EXPECT_EQ(animate.Text("txt_initial", 1).Text, "2");
}

TEST_F(ParametersLimits, ALinkDrivenRunShowsItsPhaseWhereOthersHaveTheAcceleration) {
    Model.Alpha2 = 3;
    Model.Delta2 = 7;
    for (const int type : {2, 3, 4, 5}) {
        Model.Calctype = type;
        Put_Time_Initial_Conditions(input);
        EXPECT_EQ(Box(4), type == 5 ? "7" : "3");
        EXPECT_EQ(input.Get<Label>("lbl_Initial", 4).Caption, type == 5 ? "Delta 2" : "Alpha2");
        EXPECT_EQ(input.Get<Label>("lbl_Unit", 4).Caption, type == 5 ? "deg" : "rad/s^2");
        EXPECT_EQ(input.Get<Label>("lbl_Initial", 5).Caption, type < 4 ? "ThetaZero" : "Thetazero");
    }
}

TEST_F(ParametersLimits, TextsAndRadiansFollowFromTheLimitsOfTheModel) {
    Model.TimeStart = 0.25;
    Model.TimeEnd = 2.5;
    Model.TimeStep = 0.125;
    Derive_Time_Limits();
    EXPECT_EQ(Model.ThetaStartStr, "0.25");
    EXPECT_EQ(Model.ThetaEndStr, "2.5");
    EXPECT_EQ(Model.ThetaStepStr, "0.125");
    Model.ThetaStart = -30;
    Model.ThetaEnd = 60;
    Model.ThetaStep = 15;
    Derive_Angle_Limits();
    EXPECT_EQ(Model.ThetaStartStr, "-30");
    EXPECT_EQ(Model.ThetaEndStr, "60");
    EXPECT_EQ(Model.ThetaStepStr, "15");
    EXPECT_NEAR(Model.ThetaStartRad, -M_PI / 6, 1e-7);
    EXPECT_NEAR(Model.ThetaEndRad, M_PI / 3, 1e-7);
    EXPECT_NEAR(Model.ThetaStepRad, M_PI / 12, 1e-7);
}

TEST_F(ParametersLimits, ABoxThatNoHandHasTouchedShowsTheLimitOfTheModel) {
    for (const char* text : {"99", "", "45.0"}) {
        input.Text("txt_initial", 0).Text = text;
        EXPECT_TRUE(Get_Initial_Conditions(input));
        EXPECT_EQ(Box(0), std::string(text) == "45.0" ? "45.0" : "45");
        Expect_Angles(45, 405, 10, 36);
    }
}

TEST_F(ParametersLimits, AnotherSpeedDropsTheRunAndTheSaveAndTheSameKeepsThem) {
    Model.Omega2Input = 10;
    Run_Holds();
    Model_Saved();
    TextBox& speed = input.Text("txt_initial", 3);
    speed.Type("10.0");
    Take_Motion(speed, Model.Omega2Input);
    EXPECT_TRUE(Model.RunStands);
    EXPECT_TRUE(Model.SavedFlag);
    speed.Type("11");
    Take_Motion(speed, Model.Omega2Input);
    EXPECT_EQ(Model.Omega2Input, 11);
    EXPECT_FALSE(Model.RunStands);
    EXPECT_FALSE(Model.SavedFlag);
}

TEST_F(ParametersLimits, TimeLabels) {
    Model.Calctype = 2;
    Put_Time_Initial_Conditions(input);
    Expect_Boxes("0", "5", "0.05");
    EXPECT_EQ(Box(4), "-5");
    const char* names[] = {"Start Time", "End Time", "Delta Time", "Omega Zero", "Alpha2", "ThetaZero"};
    const char* units[] = {"sec", "sec", "sec", "rad/s", "rad/s^2", "deg"};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(input.Get<Label>("lbl_Initial", i).Caption, names[i]);
        EXPECT_EQ(input.Get<Label>("lbl_Unit", i).Caption, units[i]);
    }
}

TEST_F(ParametersLimits, TheSettingsOfTheAnimateScreenAreReadWithTheLinksFlagInverted) {
    animate.Get<ScrollBar>("hsc_speed").SetValue(30000);
    animate.Text("txt_Cycles").Text = "3";
    animate.Text("txt_LineAngle").Type("45");
    Model.AnimateStepSize = 7;
    for (const bool ticked : {true, false}) {
        for (const char* box : {"chk_Showlinks", "chk_Coupler", "chk_Centrodes", "chk_Trace"})
            animate.Get<CheckBox>(box).Value = ticked;
        for (std::string* flag :
             {&Model.HideLinksFlag, &Model.ShowCouplerFlag, &Model.ShowCentrodesFlag, &Model.TraceFlag})
            *flag = "another's";
        Check_Parameters(animate);
        EXPECT_EQ(Model.HideLinksFlag, ticked ? "N" : "Y");
        for (const std::string& flag : {Model.ShowCouplerFlag, Model.ShowCentrodesFlag, Model.TraceFlag})
            EXPECT_EQ(flag, ticked ? "Y" : "N");
    }
    EXPECT_EQ(Model.AnimateDelay, 2767);
    EXPECT_EQ(Model.Cycles, 3);
    EXPECT_EQ(Model.LineAngle, 45.0);
    EXPECT_EQ(Model.AnimateStepSize, 1);
}

TEST_F(ParametersLimits, TheCouplerLinesFlagFollowsItsBox) {
    animate.Get<CheckBox>("chk_CouplerLines").Value = true;
    Check_Parameters(animate);
    EXPECT_EQ(Model.ShowCouplerLinesFlag, "Y");
    animate.Get<CheckBox>("chk_CouplerLines").Value = false;
    Check_Parameters(animate);
    EXPECT_EQ(Model.ShowCouplerLinesFlag, "N");
}

TEST_F(ParametersLimits, TheDragTargetIsReadFromTheFirstFourOptions) {
    const int targets[] = {2, 0, 1, 3};
    for (int option = 0; option < 4; ++option) {
        animate.Get<OptionButton>("opt_Shift_Drag", option).Value = true;
        Model.ShiftDragTarget = 9;
        Check_Parameters(animate);
        EXPECT_EQ(Model.ShiftDragTarget, targets[option]);
    }
}

TEST_F(ParametersLimits, AScreenWithoutASettingLeavesItAlone) {
    Model.TraceFlag = "Y";
    Model.Cycles = 5;
    Check_Parameters(input);
    EXPECT_EQ(Model.TraceFlag, "Y");
    EXPECT_EQ(Model.Cycles, 5);
}

}  // namespace
}  // namespace verlink::test
