// What the Calculate button of the input screen runs, and what it refuses.
#include "core/runs.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

using Calc = InputScreen;

constexpr char kTooManyTimes[] = "Your time steps are too small - Have > 2880 Points - Increase Delta Time";
constexpr char kTooManyTimesInRun[] =
    "Your time steps are too small - Have > 2880 Points - Increase Delta Time or Reduce Finish Time";
constexpr char kZeroStep[] = "Cannot have a zero step size - Please check your data.";

double Distance(int step, int from, int to) {
    const auto& points = Model.RunTable.PointXY;
    return std::hypot(points(step, from, 0) - points(step, to, 0), points(step, from, 1) - points(step, to, 1));
}

TEST_F(Calc, ARunHasTheListsOfFunctionsFilledAnew) {
    Show([&] {
        Model.ScreenReturn = false;
        Calculate_Now();
        EXPECT_TRUE(Model.ScreenReturn);
    });
}

TEST_F(Calc, AnAngleRunClosesAtEveryStepAndShowsTheSecondPosition) {
    Show([&] {
        Calculate_Now();
        for (int step = 0; step <= 36; ++step) {
            ASSERT_TRUE(Model.RunTable.Assembled(step)) << step;
            const double theta = (45 + 10 * step) * M_PI / 180;
            EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 0), 1.115 * std::cos(theta), 2e-6);
            EXPECT_NEAR(Model.RunTable.PointXY(step, 0, 1), 1.115 * std::sin(theta), 2e-6);
            EXPECT_NEAR(Distance(step, 0, 1), 2.5, 2e-6);
            EXPECT_NEAR(Distance(step, 0, 2), 1.697, 2e-6);
            EXPECT_NEAR(std::hypot(Model.RunTable.PointXY(step, 1, 0) - 2.667, Model.RunTable.PointXY(step, 1, 1)), 2.5,
                        2e-6);
        }
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Model.ScreenReturn);
        EXPECT_EQ(Model.CurrentStep, 2);
        EXPECT_EQ(input.hsc_step.Value(), 1);
        EXPECT_EQ(input.txt_Thetazero.Text, "55.0");
        EXPECT_TRUE(input.hsc_step.Enabled);
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
        Expect_Ways_On(true, true);
    });
}

TEST_F(Calc, TheBarIsOffWhileARunIsMadeAndThePointerComesBack) {
    Show([&] {
        std::vector<bool> on;
        input.hsc_step.Enabled.Event = [this, &on] { on.push_back(input.hsc_step.Enabled); };
        desktop.Set_Pointer(Pointer::kHourglass);
        Calculate_Now();
        input.hsc_step.Enabled.Event = nullptr;
        EXPECT_EQ(on, (std::vector<bool>{false, true}));
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    });
}

TEST_F(Calc, ALengthOfZeroOrAnEmptiedBoxIsToldOnceForTheWholeRun) {
    Show([&] {
        for (const int box : {1, 2, 3})
            for (const char* text : {"0", ""}) {
                SCOPED_TRACE(std::to_string(box) + text);
                const std::string before = input.txt_Linkout[box].Text;
                desktop.Expect_Message(
                    "Error 11   (Division by zero)  has occurred in Calculate\r\n\r\n"
                    "It has occurred 37 times in this run.",
                    Answer::kOk, Icon::kInformation);
                Enter_Link(box, text);
                desktop.Verify();
                Enter_Link(box, before.c_str());
                EXPECT_TRUE(Model.RunTable.Assembled(0));
            }
    });
}

TEST_F(Calc, ATimeRunFollowsTheConstantAcceleration) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        Enter_Limit(1, "1");
        Enter_Limit(2, "0.25");
        Enter_Limit(3, "2");
        Enter_Limit(4, "3");
        Enter(input, "txt_Thetazero", kNoIndex, "20");
        ASSERT_EQ(Model.NSteps, 4);
        for (int step = 0; step <= 4; ++step) {
            const double t = step / 4.0;
            EXPECT_NEAR(Model.RunTable.Omega(step, 0), 2 + 3 * t, 1e-6);
            EXPECT_NEAR(Model.RunTable.Theta(step, 0), 20 + (2 * t + 3 * t * t / 2) * 180 / M_PI, 1e-4);
        }
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_EQ(Model.ThetaStepStr, "0.25");
        Expect_Ways_On(true, true);
        EXPECT_EQ(animate.Text("txt_initial", 2).Text, "0.25");
    });
}

TEST_F(Calc, AsManyTimeStepsAsTheTableHoldsAreRun) {
    Without_Autocalc();
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        input.txt_initial[1].Type("2.88");
        input.txt_initial[2].Type("0.001");
        Calculate_Now();
        EXPECT_EQ(Model.NSteps, 2880);
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(Calc, TheTimeRunItselfTakesItsLimitsFromTheirBoxes) {
    Without_Autocalc();
    Model.Calctype = 2;
    Show([&] {
        const char* limits[] = {"0.5", "1.5", "0.25"};
        for (int box = 0; box <= 2; ++box) input.txt_initial[box].Type(limits[box]);
        Integer Result = kRetrying;
        EXPECT_TRUE(input.TimeStepDone(Result));
        EXPECT_EQ(Model.TimeStart, 0.5);
        EXPECT_EQ(Model.TimeEnd, 1.5);
        EXPECT_EQ(Model.TimeStep, 0.25);
        EXPECT_EQ(Model.ThetaStartStr, "0.5");
        EXPECT_EQ(Model.ThetaEndStr, "1.5");
        EXPECT_EQ(Model.ThetaStepStr, "0.25");
        EXPECT_EQ(Model.NSteps, 4);
        EXPECT_TRUE(Screens::Get("frm_HomeScreen").Get<CommandButton>("cmd_Plot").Enabled);
    });
}

TEST_F(Calc, AFailureOfTheTimeRunIsReportedUnderItsNameAndShowsNoRun) {
    Without_Autocalc();
    Model.Calctype = 2;
    Show([&] {
        Calculate_Now();
        ASSERT_TRUE(Model.Calculated);
        input.txt_initial[3].Type("1e60");
        log.Calls.clear();
        desktop.Expect_Message_With("has occurred in frm_Input.TimeStepDone");
        Calculate_Now();
        EXPECT_FALSE(Model.Calculated);
        EXPECT_TRUE(log.Calls.empty());
        Expect_Ways_On(false, false);
    });
}

TEST_F(Calc, OnePositionEndsWithTheResetAndAnimateStaysDisabled) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 1);
        Enter(input, "txt_Thetazero", kNoIndex, "75");
        EXPECT_EQ(Model.ThetaZero, 75.0);
        EXPECT_EQ(Model.NSteps, 0);
        EXPECT_NEAR(Model.RunTable.Theta(0, 0), 75, 1e-4);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_EQ(input.hsc_step.Value(), 0);
        EXPECT_FALSE(Picture_Is_Empty());
        Expect_Ways_On(true, false);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_EQ(animate.Get<Label>("lbl_Initial", 1).Caption, "End Time");
        input.txt_Thetazero.Type("80");
        Calculate_Now();
        EXPECT_EQ(input.txt_initial[0].Text, "80") << "both hold the one position";
    });
}

TEST_F(Calc, TheAngleOfOnePositionMayBeTypedInBox0AsWell) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 1);
        Enter_Limit(0, "60");
        EXPECT_EQ(Model.ThetaZero, 60.0);
        EXPECT_EQ(input.txt_Thetazero.Text, "60");
        EXPECT_EQ(input.txt_initial[1].Text, "60");
        EXPECT_NEAR(Model.RunTable.Theta(0, 0), 60, 1e-4);
    });
}

TEST_F(Calc, TheModuloOptionWrapsTheAngles) {
    Show([&] {
        Choose_Option(input, "opt_Modulo", 0);
        EXPECT_EQ(Model.ModuloMode, "180");
        Calculate_Now();
        EXPECT_NEAR(Model.RunTable.Theta(20, 0), 245 - 360, 1e-3);
        Choose_Option(input, "opt_Modulo", 1);
        EXPECT_EQ(Model.ModuloMode, "abs");
        Calculate_Now();
        EXPECT_NEAR(Model.RunTable.Theta(20, 0), 245, 1e-3);
    });
}

TEST_F(Calc, LengthsThatCannotCloseLeaveTheWaysOnDisabledAndShowTheMessage) {
    Show([&] {
        Calculate_Now();
        Expect_Ways_On(true, true);
        desktop.Expect_Message(kCannotClose, Answer::kOk, Icon::kNone, Buttons::kOk);
        Enter_Link(1, "20");
        Expect_Ways_On(false, false);
        EXPECT_FALSE(Model.Calculated);
        EXPECT_EQ(Model.Grashof_Code, "NL");
        EXPECT_EQ(input.lbl_Grashof.Caption, "Can't Connect");
        EXPECT_TRUE(input.hsc_step.Enabled);
        Enter_Link(1, "1");
        Expect_Ways_On(true, true);
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(Calc, ANonGrashofLinkageShowsItsTogglesAndHasNoTimeStepsUntilItTurnsAgain) {
    Show([&] {
        desktop.Expect_Message_With(kNoConnect, Answer::kIgnore);
        Enter_Link(1, "3");
        // The crank stands at its toggle when coupler and rocker are in line: cosine rule on sides 2.667, 3 and 5.
        const double toggle = std::acos((2.667 * 2.667 + 9 - 25) / (2 * 2.667 * 3)) * 180 / M_PI;
        EXPECT_NEAR(std::stod(input.lbl_Toggle[0].Caption.Get()), toggle, 0.05);
        EXPECT_TRUE(input.fra_toggle.Visible);
        EXPECT_FALSE(input.opt_Calctype[2].Enabled);
        EXPECT_EQ(input.lbl_Grashof.Caption, "Linkage is Non-Grashof");
        Enter_Link(1, "1");
        EXPECT_FALSE(input.fra_toggle.Visible);
        EXPECT_TRUE(input.opt_Calctype[2].Enabled);
    });
}

TEST_F(Calc, AnAbortedRunShowsWhereItStoppedAndDoesNotCount) {
    Show([&] {
        desktop.Expect_Message_With(kNoConnect, Answer::kAbort);
        Enter_Link(1, "3");
        EXPECT_TRUE(Model.NoConnectSeen);
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(Model.RunStands);
        Expect_Ways_On(false, false);
        desktop.Expect_Message_With(kNoConnect, Answer::kIgnore);
        Calculate_Now();
        EXPECT_TRUE(Model.Calculated);
        Expect_Ways_On(true, true);
    });
}

TEST_F(Calc, TooManyAngleStepsAreRefusedAndTheRunIsThatOfThePreviousLimits) {
    Show([&] {
        desktop.Expect_Message(kTooManyAngles);
        Enter_Limit(2, "0.1");
        EXPECT_EQ(input.txt_initial[2].Text, "10");
        EXPECT_EQ(Model.NSteps, 36);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_EQ(input.Focus(), &input.txt_initial[2]);
    });
}

TEST_F(Calc, RefusedLimitsAreNotRun) {
    Without_Autocalc();
    Show([&] {
        Calculate_Now();
        ASSERT_TRUE(Model.Calculated);
        // A model whose own limits are the bad ones, so that the box holds them after the refusal too.
        Model.ThetaStart = 500;
        input.txt_initial[0].Type("500");
        desktop.Expect_Message(
            "Minimum angle must be smaller than maximum angle.\rTo rotate CW from max to min, use a negative Omega2.");
        Calculate_Now();
        EXPECT_FALSE(Model.Calculated);
        EXPECT_EQ(Model.NSteps, 36);
        Expect_Ways_On(false, false);
        EXPECT_TRUE(input.hsc_step.Enabled);
    });
}

TEST_F(Calc, TooManyTimeStepsAreToldByTheLimitsAndThenByTheRunWhichStaysUndone) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        Calculate_Now();
        ASSERT_EQ(Model.NSteps, 100);
        input.txt_initial[2].Type("0.001");
        desktop.Expect_Message(kTooManyTimes, Answer::kOk, Icon::kNone)
            .Expect_Message(kTooManyTimesInRun, Answer::kOk, Icon::kNone, Buttons::kOk);
        Calculate_Now();
        EXPECT_EQ(Model.NSteps, 100);
        EXPECT_EQ(Model.TimeStep, Single(0.05));
        EXPECT_EQ(input.txt_initial[2].Text, "0.001");
        EXPECT_FALSE(Model.Calculated);
        Expect_Ways_On(false, false);
    });
}

TEST_F(Calc, OnePositionLooksAtTheTimeLimitsToo) {
    Without_Autocalc();
    Model.Calctype = 1;
    Model.TimeStep = 0;
    Show([&] {
        desktop.Expect_Message(kTooManyTimesInRun);
        Calculate_Now();
        EXPECT_FALSE(Model.Calculated);
    });
}

TEST_F(Calc, TheAngleRunItselfRefusesAZeroStep) {
    Without_Autocalc();
    Show([&] {
        input.txt_initial[2].Type("0");
        desktop.Expect_Message(kZeroStep, Answer::kOk, Icon::kExclamation, Buttons::kOk);
        Integer Result = kRetrying;
        EXPECT_FALSE(input.AngleStepDone(Result));
        EXPECT_EQ(Model.ThetaStep, 10.0);
        EXPECT_EQ(Model.NSteps, -435);
    });
}

TEST_F(Calc, TheAngleRunItselfRefusesTooManySteps) {
    Without_Autocalc();
    Show([&] {
        input.txt_initial[2].Type("0.1");
        desktop.Expect_Message(kTooManyAngles, Answer::kOk, Icon::kNone, Buttons::kOk);
        Integer Result = kRetrying;
        EXPECT_FALSE(input.AngleStepDone(Result));
        EXPECT_EQ(Model.ThetaStep, 10.0);
        EXPECT_FALSE(Model.Calculated);
    });
}

TEST_F(Calc, AFailureOfTheAngleRunIsReportedUnderItsName) {
    Without_Autocalc();
    Show([&] {
        input.txt_initial[3].Type("1e60");
        desktop.Expect_Message_With("has occurred in frm_Input.AngleStepDone");
        Calculate_Now();
        EXPECT_FALSE(Model.Calculated);
        Expect_Ways_On(false, false);
    });
}

TEST_F(Calc, ARunPutsItsLimitsOnTheAnimateScreen) {
    Show([&] {
        Enter_Limit(0, "0");
        Enter_Limit(1, "360");
        Enter_Link(2, "2.75");
        EXPECT_EQ(animate.Text("txt_initial", 1).Text, "360");
        EXPECT_EQ(animate.Text("txt_Linkout", 2).Text, "2.75");
    });
}

class DrivenCalc : public InputScreen {
   protected:
    DrivenCalc() {
        Model.Calctype = 4;
        Model.CamDriven = true;
        Model.CamDirection = 1;
        Model.ThetaZero = 15;
        Model.NSteps = 3;
        for (int step = 0; step <= 3; ++step) {
            Model.RunTable.DriveTheta(step) = 10 * step;
            Model.RunTable.Omega(step, 0) = 2;
        }
    }
};

TEST_F(DrivenCalc, AModelFromFileTakesTheLinkBoxesThatAreTypedInto) {
    Without_Autocalc();
    Model.DiskFile = true;
    Show([&] {
        input.txt_Linkout[1].Type("1.5");
        Calculate_Now();
        EXPECT_EQ(Model.L2, 1.5);
        EXPECT_EQ(Model.L3, 2.5) << "as the file has it";
        EXPECT_EQ(input.txt_Thetazero.Text, "15");
        EXPECT_NEAR(Model.RunTable.Theta(2, 0), 35, 1e-4);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_EQ(Model.CurrentStep, 1);
        Model.DiskFile = false;
        input.txt_Linkout[1].Type("1.5");
        Calculate_Now();
        EXPECT_EQ(Model.L2, 1.5);
    });
}

TEST_F(DrivenCalc, AModelFromFileTakesThePhaseThatIsTypedAsWell) {
    Without_Autocalc();
    Model.Calctype = 5;
    Model.DiskFile = true;
    Show([&] {
        input.txt_initial[4].Type("5");
        Calculate_Now();
        EXPECT_EQ(Model.Delta2, 5.0);
        EXPECT_NEAR(Model.RunTable.Theta(2, 0), 25, 1e-4);
    });
}

TEST_F(DrivenCalc, ALinkDrivenRunTakesThePhaseThatIsTyped) {
    Model.Calctype = 5;
    Show([&] {
        Enter_Limit(4, "5");
        EXPECT_EQ(Model.Delta2, 5.0);
        EXPECT_NEAR(Model.RunTable.Theta(2, 0), 25, 1e-4);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_TRUE(Picture_Is_Empty()) << "a link-driven run's step button draws nothing";
        input.hsc_step.Drag(2);
        EXPECT_FALSE(Picture_Is_Empty());
        EXPECT_EQ(input.txt_initial[4].Text, "5");
        EXPECT_EQ(input.lbl_Initial[4].Caption, "Delta 2");
    });
}

}  // namespace
}  // namespace verlink::test
