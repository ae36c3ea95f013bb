// The calculation runs: which positions they visit, how they end, and what happens where the linkage does not close.
#include "core/runs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>

#include "core/linkage_model.h"
#include "shell/initialize.h"
#include "tests/core/question.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::CommandButton;
using platform::Icon;
using platform::Screens;

class Runs : public Fixture {
   protected:
    Runs() {
        Initialize();
        Angles(0, 360, 10);
    }
    static void Angles(double first, double last, double step) {
        Model.ThetaStartRad = first * kDegToRad;
        Model.ThetaEndRad = last * kDegToRad;
        Model.ThetaStepRad = step * kDegToRad;
        Model.NSteps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
    }
    static void Lengths(double L1, double L2, double L3, double L4) {
        Model.L1 = L1;
        Model.L2 = L2;
        Model.L3 = L3;
        Model.L4 = L4;
        LoadLinkArray();
    }
    static double Theta2(int step) { return Model.RunTable.Theta(step, 0); }
    Integer result = kRetrying;
};

TEST_F(Runs, AngleRunVisitsItsRangeInOrderAtConstantSpeed) {
    Crankangle(result);
    EXPECT_EQ(Model.NSteps, 36);
    for (int step = 0; step < 36; ++step) EXPECT_NEAR(Theta2(step), 10 * step, 1e-3);
    EXPECT_EQ(Model.Alpha2, 0.0);
    EXPECT_EQ(Model.RunTable.Omega(20, 0), 10.0);
    EXPECT_EQ(result, kRetrying);
}

TEST_F(Runs, CrankAtRestHoldsTheLastAngleAtEveryStep) {
    Angles(20, 100, 10);
    Model.Omega2Input = 0;
    Crankangle(result);
    for (int step = 0; step <= Model.NSteps; ++step) EXPECT_NEAR(Theta2(step), 100, 1e-4) << step;
}

TEST_F(Runs, NegativeSpeedRunsFromTheMaximumDown) {
    Angles(20, 100, 10);
    Model.Omega2Input = -10;
    Crankangle(result);
    EXPECT_NEAR(Theta2(0), 100, 1e-4);
    EXPECT_NEAR(Theta2(8), 20, 1e-3);
}

TEST_F(Runs, ASlowCrankRunsForwardsAsAnyOther) {
    Angles(20, 100, 10);
    Model.Omega2Input = 0.5;
    Crankangle(result);
    for (int step = 0; step <= 8; ++step) EXPECT_NEAR(Theta2(step), 20 + 10 * step, 1e-3) << step;
}

TEST_F(Runs, ARunUnaskedIsThatOfItsKindAsksNothingAndLeavesWhatDrivesTheModel) {
    Lengths(4, 2, 3, 2);
    Model.ThetaZero = 180;
    Model.TimeStart = 0;
    Model.TimeStep = 0.01;
    Model.CamDirection = 1;
    Model.CamPhase = Model.Delta2 = Model.Alpha2 = 0;
    // The first angle of each kind, at which it does not close, and the last one.
    const double last[] = {180, 180 + 5 * 10 * 0.01 * kRadToDeg, 170, 330, 150};
    for (int type = 1; type <= 5; ++type) {
        Angles(120, 170, 10);
        for (int step = 0; step <= 5; ++step) Model.RunTable.DriveTheta(step) = type == 4 ? 30 * step : 100 + 10 * step;
        Model.Calctype = type;
        Model.CamDriven = Model.LinkDriven = Model.InputScreenOpen = true;
        Model.Link1Angle = 0;
        Run_Unasked(Model);
        EXPECT_TRUE(Model.NoConnectSeen);
        EXPECT_TRUE(Model.CamDriven && Model.LinkDriven && Model.InputScreenOpen);
        EXPECT_EQ(Model.NSteps, type == 1 ? 0 : 5);
        EXPECT_NEAR(std::remainder(Theta2(Model.NSteps) - last[type - 1], 360), 0, 0.01) << type;
    }
}

TEST_F(Runs, RangeThatRoundsDownEndsByCountShortOfTheLimit) {
    Angles(0, 94, 10);
    EXPECT_EQ(Model.NSteps, 9);
    Crankangle(result);
    EXPECT_NEAR(Theta2(9), 90, 1e-3);
}

TEST_F(Runs, RangeThatRoundsUpRewritesTheLastStepAtTheLimit) {
    Angles(0, 96, 10);
    EXPECT_EQ(Model.NSteps, 10);
    Crankangle(result);
    EXPECT_NEAR(Theta2(9), 90, 1e-3);
    EXPECT_NEAR(Theta2(10), 96, 1e-3);
    Model.Omega2Input = -10;
    Crankangle(result);
    EXPECT_NEAR(Theta2(10), 0, 1e-3);
}

TEST_F(Runs, TurnedGroundShiftsTheLocalAngleAndNotTheStoredOne) {
    Model.Link1Angle = 30;
    Model.Link1AngleRad = 30 * kDegToRad;
    Angles(40, 80, 10);
    Crankangle(result);
    EXPECT_NEAR(Theta2(0), 40, 1e-3);
    EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 1.115 * std::cos(10 * kDegToRad), 1e-5);
}

TEST_F(Runs, OnePositionHasNoStepsAndLeavesItsAngleRoundedInTheLimits) {
    Model.ThetaZero = 33.26;
    Oneposition(result);
    EXPECT_EQ(Model.NSteps, 0);
    EXPECT_EQ(Model.ThetaStartStr, "33.3");
    EXPECT_EQ(Model.ThetaEndStr, "33.3");
    EXPECT_EQ(Model.ThetaStepStr, "0");
    EXPECT_NEAR(Theta2(0), 33.26, 1e-4);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    EXPECT_TRUE(Model.RunStands);
}

TEST_F(Runs, TimeRunFollowsTheConstantAccelerationWithTimeAddedInSingle) {
    Model.Calctype = 2;
    Model.ThetaZero = 15;
    Model.Omega2Input = 2;
    Model.Alpha2 = -0.5;
    Model.TimeStart = 0.25;
    Model.TimeStep = 0.1;
    Model.NSteps = 50;
    Timestep(result);
    EXPECT_TRUE(Model.RunStands);
    float t = 0.25F;
    for (int step = 0; step <= 50; ++step) {
        const double seconds = static_cast<double>(t);
        EXPECT_NEAR(Model.RunTable.Omega(step, 0), 2 - 0.5 * seconds, 1e-6) << step;
        double degrees = (-0.5 * seconds * seconds / 2 + 2 * seconds) * 57.29577950560105 + 15;
        degrees = degrees < 0 ? degrees + 360 : degrees;
        EXPECT_NEAR(Theta2(step), degrees, 1e-3) << step;
        t = static_cast<float>(static_cast<double>(0.1F) + seconds);
    }
    EXPECT_EQ(Model.RunTable.Alpha(3, 0), -0.5);
}

TEST_F(Runs, DrivenRunsReplayTheirTable) {
    Model.Calctype = 4;
    Model.CamDirection = -1;
    Model.CamPhase = 5;
    Model.ThetaZero = 100;
    Model.Delta2 = 7;
    Model.NSteps = 3;
    for (int step = 0; step <= 3; ++step) {
        Model.RunTable.DriveTheta(step) = 10 * step;
        Model.RunTable.Omega(step, 0) = 1 + step;
        Model.RunTable.Alpha(step, 0) = 2 * step;
    }
    Imported_Run(result);
    EXPECT_TRUE(Model.RunStands);
    for (int step = 0; step <= 3; ++step) {
        EXPECT_NEAR(Theta2(step), -10 * step + 5 + 100 - 7, 1e-3);
        EXPECT_EQ(Model.RunTable.Omega(step, 0), 1.0 + step);
        EXPECT_EQ(Model.RunTable.Alpha(step, 0), 2.0 * step);
        EXPECT_NEAR(std::hypot(Model.RunTable.AccXY(step, 0, 0), Model.RunTable.AccXY(step, 0, 1)),
                    Model.L2 * std::hypot((1.0 + step) * (1.0 + step), 2.0 * step), 1e-4);
    }
    Model.Calctype = 5;
    Model.Link1Angle = 20;
    Imported_Run(result);
    EXPECT_NEAR(Theta2(2), 20 + 7, 1e-3) << "DriveTheta - Link1Angle + Delta2, and Link1Angle again when stored";
    Model.NSteps = -1;
    Run_Dropped();
    Imported_Run(result);
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(Runs, ADrivenRunLeavesTheAccelerationOfTheModelAsItWas) {
    Model.Calctype = 5;
    Model.Alpha2 = 2.5;
    Model.NSteps = 2;
    for (int step = 0; step <= 2; ++step) {
        Model.RunTable.DriveTheta(step) = 10 * step;
        Model.RunTable.Omega(step, 0) = Model.RunTable.Alpha(step, 0) = 1 + step;
    }
    Imported_Run(result);
    EXPECT_EQ(Model.Alpha2, 2.5);
}

TEST_F(Runs, EachRunBeginsAnewWithWhatWasAnsweredAndFoundBefore) {
    using OneOfThem = void (*)(Integer&);
    for (const OneOfThem run : std::initializer_list<OneOfThem>{Oneposition, Timestep, Crankangle, Imported_Run}) {
        Angles(0, 360, 10);
        Run_Holds();
        Forces_Hold();
        Model.NoConnectSeen = true;
        result = kIgnoring;
        run(result);
        EXPECT_EQ(result, kRetrying);
        EXPECT_FALSE(Model.NoConnectSeen);
        EXPECT_TRUE(Model.RunStands);
        EXPECT_FALSE(Model.DynamicsDone);
    }
}

TEST_F(Runs, NothingOfTheRunBeforeIsInOneAtRest) {
    const auto expect_clear = [] {
        const auto& table = Model.RunTable;
        EXPECT_EQ(table.OmegaRatio(0), 0);
        EXPECT_EQ(table.MechAdvantage(0), 0);
        EXPECT_FALSE(Model.TorqueImported);
        EXPECT_EQ(Model.Delta2, 0);
    };
    using OneOfThem = void (*)(Integer&);
    for (const OneOfThem run : std::initializer_list<OneOfThem>{Oneposition, Timestep, Crankangle}) {
        Model.Omega2Input = 10;
        Crankangle(result);
        EXPECT_NE(Model.RunTable.OmegaRatio(0), 0);
        Model.TorqueImported = true;
        Model.Delta2 = 5;
        Model.Omega2Input = 0;
        Model.Alpha2 = 0;
        run(result);
        expect_clear();
    }
}

TEST_F(Runs, ARunHoldsWhichClosesAtOneStepAndNoneThatClosesNowhere) {
    Lengths(4, 2, 3, 2);  // closes up to 104 degrees
    Model.Calctype = 3;
    for (const auto& [first, last] : {std::pair{100.0, 140.0}, {220.0, 260.0}}) {
        Angles(first, last, 20);
        Crankangle(result);
        EXPECT_TRUE(Model.RunStands) << first;
    }
    Angles(120, 160, 20);
    Crankangle(result);
    EXPECT_FALSE(Model.RunStands);
}

TEST_F(Runs, NewRunDropsDynamicsAndBalancing) {
    Forces_Hold();
    Balance_Holds();
    Calc_Setup(3, result);
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.BalanceDone);
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(Runs, LengthsThatCannotCloseAreRefusedAndTurnTheInputScreensButtonsOff) {
    Lengths(5, 1, 1, 1);
    auto& input = Screens::Get("frm_Inputnew");
    auto& animate = Screens::Get("frm_Animate");
    for (const char* name : {"cmd_Done", "cmd_Step", "cmd_Animate"}) input.Get<CommandButton>(name).Enabled = true;
    animate.Get<CommandButton>("cmd_Step").Enabled = true;
    const std::string words =
        "Your link lengths are incompatible\rand cannot reach to close the linkage \r\r"
        "The computation will now be aborted.\rPlease correct your link lengths.\r\r"
        "If you were shift-click-dragging a joint,just \rshift-click in a new location until linkage reappears.";
    desktop.Expect_Message(words, Answer::kOk, Icon::kNone, Buttons::kOk);
    result = 99;
    Calc_Setup(3, result);
    EXPECT_EQ(result, 99) << "no run takes place";
    EXPECT_EQ(Model.MessageText, words);
    for (const char* name : {"cmd_Done", "cmd_Step", "cmd_Animate"})
        EXPECT_FALSE(input.Get<CommandButton>(name).Enabled) << name;
    EXPECT_TRUE(animate.Get<CommandButton>("cmd_Step").Enabled) << "other screens keep theirs";
}

TEST_F(Runs, PositionsBeyondTheTogglesAreAskedAboutUntilIgnored) {
    Lengths(4, 2, 3, 2);
    Angles(0, 360, 60);
    Model.InputScreenOpen = true;
    desktop.Expect_Message(Question("120"), Answer::kRetry, Icon::kExclamation, Buttons::kAbortRetryIgnore)
        .Expect_Message(Question("180"), Answer::kIgnore);
    Crankangle(result);
    EXPECT_EQ(result, kIgnoring);
    EXPECT_TRUE(Model.NoConnectSeen);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    for (int step : {2, 3, 4}) EXPECT_FALSE(Model.RunTable.Assembled(step)) << step;
    EXPECT_EQ(Theta2(4), 240.0);
    EXPECT_TRUE(Model.RunTable.Assembled(6)) << "the run went on";
    desktop.Verify();
    // Ignoring does not carry over to the next run.
    desktop.Expect_Message(Question("120"), Answer::kAbort);
    Crankangle(result);
    EXPECT_EQ(result, kAborted);
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(Runs, OtherScreensPassOverPositionsThatDoNotCloseInSilence) {
    Lengths(4, 2, 3, 2);
    Angles(0, 360, 60);
    Crankangle(result);
    EXPECT_EQ(result, kRetrying);
    EXPECT_FALSE(Model.RunTable.Assembled(3));
    EXPECT_TRUE(Model.NoConnectSeen);
}

TEST_F(Runs, DrivenRunsAskWhereverTheyStartAndGoOnAfterAnAbort) {
    Lengths(4, 2, 3, 2);
    Model.Calctype = 5;
    Model.LinkDriven = true;
    Model.NSteps = 2;
    const double angles[] = {0, 180, 20};
    for (int step = 0; step <= 2; ++step) {
        Model.RunTable.DriveTheta(step) = angles[step];
        Model.RunTable.Omega(step, 0) = 5;
    }
    desktop.Expect_Message(Question("180"), Answer::kAbort);
    Imported_Run(result);
    EXPECT_EQ(result, kAborted);
    EXPECT_FALSE(Model.RunTable.Assembled(1));
    EXPECT_EQ(Model.RunTable.Omega(1, 0), 5.0) << "the imported element stays";
    EXPECT_TRUE(Model.RunTable.Assembled(2));
}

TEST_F(Runs, AFailureThatRepeatsInARunIsToldOnceWithItsCount) {
    Lengths(4, 2, 3, 0);
    const std::string once = "Error 11   (Division by zero)  has occurred in Calculate\r\n\r\n";
    Model.Calctype = 3;
    desktop.Expect_Message(once + "It has occurred 37 times in this run.");
    Calc_Setup(3, result);
    desktop.Expect_Message(once);
    Calc_Setup(1, result);
    Model.Calctype = 5;
    Model.LinkDriven = true;
    Model.NSteps = 3;
    desktop.Expect_Message(once + "It has occurred 4 times in this run.");
    Imported_Run(result);
}

TEST_F(Runs, FullTableOf2881PositionsFitsAndOneMoreDoesNot) {
    Angles(0, 720, 0.25);
    EXPECT_EQ(Model.NSteps, 2880);
    Crankangle(result);
    EXPECT_TRUE(Model.RunTable.Assembled(2880));
    Model.NSteps = 2881;
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in ");
    Timestep(result);
}

}  // namespace
}  // namespace verlink::test
