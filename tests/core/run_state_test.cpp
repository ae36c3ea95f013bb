// What a run sets, drops and clears besides its results.
#include <cmath>

#include "core/classification.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class RunState : public Fixture {
   protected:
    RunState() { Take_Crank_Rocker(); }

    /// What the run before may have left.
    static void Soil() {
        Model.CamDriven = Model.LinkDriven = Model.TorqueImported = Model.NoConnectSeen = true;
        Forces_Hold();
        Balance_Holds();
        Transform_Holds();
        Model.Delta2 = 5;
        Model.RunTable.ImportedTorque(3) = 5;
        Model.RunTable.Theta(3, 3) = 500;
        Run_Dropped();
    }

    Integer result = kIgnoring;
};

TEST_F(RunState, AnAngleRunForcesTheAccelerationToZeroAndIsNotCamDriven) {
    Soil();
    Model.Alpha2 = -5;
    Crankangle(result);
    EXPECT_EQ(Model.Alpha2, 0);
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_TRUE(Model.LinkDriven);
    EXPECT_FALSE(Model.NoConnectSeen);
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_EQ(Model.Delta2, 0);
    EXPECT_EQ(Model.RunTable.ImportedTorque(3), 0);
    EXPECT_EQ(result, kRetrying) << "ignoring does not carry over";
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(RunState, ATimeRunKeepsTheAccelerationAndIsNotCamDriven) {
    Soil();
    Model.Calctype = 2;
    Model.Alpha2 = -5;
    Model.TimeStep = 0.01;
    Model.NSteps = 10;
    Timestep(result);
    EXPECT_EQ(Model.Alpha2, -5);
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_EQ(result, kRetrying);
}

TEST_F(RunState, OnePositionKeepsTheAccelerationAndTheCamsFlag) {
    Soil();
    Model.Calctype = 1;
    Model.Alpha2 = -5;
    Model.ThetaZero = 33.36;
    Oneposition(result);
    EXPECT_EQ(Model.NSteps, 0);
    EXPECT_EQ(Model.Alpha2, -5);
    EXPECT_EQ(Model.RunTable.Alpha(0, 0), -5);
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.ThetaStartStr, "33.4");
    EXPECT_EQ(Model.ThetaEndStr, "33.4");
    EXPECT_EQ(Model.ThetaStepStr, "0");
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), 33.36, 1e-4);
}

TEST_F(RunState, AnImportedRunClearsNothingOfTheImport) {
    Model.NSteps = 4;
    Model.Calctype = 5;
    Soil();
    Model.Delta2 = 5;
    for (int step = 0; step <= 4; ++step) {
        Model.RunTable.DriveTheta(step) = 10 * step;
        Model.RunTable.Omega(step, 0) = 2;
        Model.RunTable.Alpha(step, 0) = 3;
    }
    Imported_Run(result);
    EXPECT_EQ(Model.RunTable.ImportedTorque(3), 5);
    EXPECT_EQ(Model.RunTable.DriveTheta(4), 40);
    EXPECT_EQ(Model.RunTable.Omega(4, 0), 2);
    EXPECT_EQ(Model.RunTable.Alpha(4, 0), 3);
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.Delta2, 5);
    EXPECT_FALSE(Model.NoConnectSeen);
    EXPECT_EQ(result, kRetrying);
}

TEST_F(RunState, EveryRunDropsDynamicsBalancingAndTransform) {
    for (int type = 1; type <= 3; ++type) {
        Soil();
        Model.Calctype = type;
        Model.NSteps = 3;
        Calc_Setup(type, result);
        EXPECT_FALSE(Model.DynamicsDone) << type;
        EXPECT_FALSE(Model.BalanceDone) << type;
        EXPECT_FALSE(Model.FFTDone) << type;
    }
    Soil();
    Model.Calctype = 4;
    Imported_Run(result);
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.BalanceDone);
    EXPECT_FALSE(Model.FFTDone);
}

TEST_F(RunState, LengthsThatCannotCloseDropTheResultsAndRunNothing) {
    Take_Lengths(10, 1, 1, 1);
    Soil();
    Run_Holds();
    Forces_Hold();
    Transform_Holds();
    desktop.Expect_Message_With("Your link lengths are incompatible\r");
    Calc_Setup(3, result);
    EXPECT_FALSE(Model.RunStands || Model.Calculated);
    EXPECT_FALSE(Model.DynamicsDone);
    EXPECT_FALSE(Model.FFTDone);
    EXPECT_EQ(result, kIgnoring);
    EXPECT_EQ(Model.RunTable.Theta(3, 3), 500);
}

TEST_F(RunState, SetupTakesTheCircuitFromItsIndex) {
    Model.CircuitIndex = 2;
    Model.CircuitSign = -1;
    Calc_Setup(3, result);
    EXPECT_EQ(Model.CircuitSign, 1);
    EXPECT_EQ(Model.CircuitName, "Crossed");
}

TEST_F(RunState, SetupOfAnotherRunTypeRunsNothing) {
    Soil();
    Calc_Setup(4, result);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_EQ(Model.RunTable.Theta(3, 3), 500);
    EXPECT_EQ(result, kIgnoring);
    EXPECT_FALSE(Model.DynamicsDone);
}

TEST_F(RunState, SetupOfANonGrashofLinkageShowsItsTogglesBeforeItRuns) {
    Take_Lengths(4, 2, 3, 2);
    Model.InputScreenOpen = false;
    Calc_Setup(3, result);
    EXPECT_EQ(Model.Grashof_Code, "N");
    auto& input = platform::Screens::Get("frm_Inputnew");
    EXPECT_EQ(input.Get<platform::Label>("lbl_Toggle", 0).Caption.Get(), "108.2");  // acos(-5 / 16)
    EXPECT_FALSE(input.Get<platform::OptionButton>("opt_Calctype", 2).Enabled.Get());
}

TEST_F(RunState, ARunBeyondTheTableStopsBeforeItsFirstStep) {
    Model.NSteps = 2881;
    desktop.Expect_Message(Report(9, "Subscript out of range", "Crankangle"));
    Crankangle(result);
    EXPECT_FALSE(Model.RunTable.Assembled(0));
    EXPECT_FALSE(Model.Calculated);
    desktop.Expect_Message(Report(9, "Subscript out of range", "Timestep"));
    Timestep(result);
}

TEST_F(RunState, ClearingBeyondTheTableZeroesTheTableAndFails) {
    Model.NSteps = 2900;
    Model.TorqueImported = true;
    Model.RunTable.Theta(2880, 0) = 1;
    Model.RunTable.ImportedTorque(2880) = 1;
    EXPECT_FAILURE(9, Clear_RunTable());
    EXPECT_EQ(Model.RunTable.Theta(2880, 0), 0);
    EXPECT_EQ(Model.RunTable.ImportedTorque(2880), 0);
    EXPECT_TRUE(Model.TorqueImported) << "the failure comes before";
}

TEST_F(RunState, ARunAtAnExactFinishEndsByItsCount) {
    Take_Angles(0, 90, 30);
    Crankangle(result);
    EXPECT_EQ(Model.NSteps, 3);
    EXPECT_NEAR(Model.RunTable.Theta(3, 0), 90, 1e-4);
}

TEST_F(RunState, SpeedAndAngleAtATimeFollowTheConstantAcceleration) {
    Model.Omega2Input = 4;
    Model.Alpha2 = -3;
    Model.ThetaZero = 90;
    EXPECT_DOUBLE_EQ(Time_Omega(2), -2);
    EXPECT_NEAR(Time_Theta(2), M_PI / 2 + 4 * 2 - 3 * 4 / 2.0, 1e-8);
}

TEST_F(RunState, StepsAreTheWholeNumberNearestToRangeOverIncrement) {
    EXPECT_EQ(Steps_Of(0, 360, 10), 36);
    EXPECT_EQ(Steps_Of(0, 360, 100), 4);
    EXPECT_EQ(Steps_Of(0, 340, 100), 3);
    EXPECT_EQ(Steps_Of(0, 350, 100), 4);
    EXPECT_EQ(Steps_Of(45, 7.0685834715, 0.0872664626), -435);
    EXPECT_FAILURE(11, Steps_Of(0, 1, 0));
}

TEST_F(RunState, ARangeIsDividedWhenItsStepsLeadFromLimitToLimitInDegreesAndRadians) {
    Drive drive{};
    drive.Calctype = 3;
    drive.NSteps = 4;
    drive.ThetaStart = 20, drive.ThetaEnd = 100, drive.ThetaStep = 20;
    drive.ThetaStartRad = 20 * kDegToRad, drive.ThetaEndRad = 100 * kDegToRad, drive.ThetaStepRad = 20 * kDegToRad;
    EXPECT_TRUE(Divided_Into_Steps(drive));
    drive.ThetaStepRad = 80 * kDegToRad;
    EXPECT_FALSE(Divided_Into_Steps(drive));
    drive.ThetaStepRad = 20 * kDegToRad;
    drive.NSteps = 10;
    EXPECT_FALSE(Divided_Into_Steps(drive));
    // Half a step more or less, and a thousandth for the digits.
    drive.NSteps = 4;
    for (const auto& [last, divided] :
         {std::pair{90.0, true}, {110.0, true}, {89.985, true}, {110.015, true}, {89.976, false}, {110.024, false}}) {
        drive.ThetaEnd = last, drive.ThetaEndRad = last * kDegToRad;
        EXPECT_EQ(Divided_Into_Steps(drive), divided) << last;
    }
    drive.NSteps = 10;
    drive.ThetaStep = drive.ThetaStepRad = 0;
    EXPECT_FALSE(Divided_Into_Steps(drive));
    drive.Calctype = 2;
    drive.TimeEnd = 1, drive.TimeStep = 0.1;
    EXPECT_TRUE(Divided_Into_Steps(drive));
    drive.TimeStep = 0.2;
    EXPECT_FALSE(Divided_Into_Steps(drive));
    // Just as far off as may be.
    drive.NSteps = 0;
    drive.TimeEnd = 501, drive.TimeStep = 1000;
    EXPECT_TRUE(Divided_Into_Steps(drive));
    drive.Calctype = 5;
    EXPECT_TRUE(Divided_Into_Steps(drive));
}

}  // namespace

}  // namespace verlink::test
