// What a session begins with, whatever was in the record before.
#include "shell/initialize.h"

#include <cmath>

#include "core/linkage_model.h"
#include "core/results.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class InitializeTest : public Fixture {
   protected:
    /// As after a session of work.
    static void Use_Up() {
        Model.ScreenReturn = false;
        Model.Omega2Input = Model.Omega2 = Model.Alpha2 = 7;
        Model.CircuitSign = 1;
        Model.CircuitName = "Crossed";
        Model.CircuitIndex = 2;
        Model.ThetaStartStr = Model.ThetaEndStr = Model.ThetaStepStr = "7";
        Model.ThetaStartRad = Model.ThetaEndRad = Model.ThetaStepRad = 7;
        Model.ThetaZero = Model.TimeStart = Model.TimeEnd = Model.TimeStep = 7;
        Model.CamDriven = Model.LinkDriven = Model.PolarCoords = Model.Parallelogram = true;
        Model.Calctype = 1;
        Model.PrintStep = Model.Cycles = Model.AnimateWait = 7;
        Model.CurrentStep = 7;
        Model.AnimateDelay = 7;
        Model.Units = 5;
        Model.ZoomFactor = Model.LineAngle = Model.Link1Angle = Model.Link1AngleRad = 7;
        Model.ModuloMode = Model.ModelName = Model.DateStr = Model.TimeStr = Model.DesignTask = "used";
        Model.DesignNumber = 7;
        Model.LinkMass(2) = 7;
    }
};

TEST_F(InitializeTest, TheCrankTurnsFrom45To405DegreesInStepsOfTenAtTenRadiansASecond) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.Omega2Input, 10);
    EXPECT_EQ(Model.Omega2, 10);
    EXPECT_EQ(Model.Alpha2, -5);
    EXPECT_EQ(Model.ThetaZero, 0);
    EXPECT_EQ(Model.ThetaStartStr, "45");
    EXPECT_EQ(Model.ThetaEndStr, "405");
    EXPECT_EQ(Model.ThetaStepStr, "10");
    EXPECT_EQ(Model.Calctype, 3);
    EXPECT_EQ(Model.ModuloMode, "abs");
    EXPECT_EQ(Model.CurrentStep, 0);
}

TEST_F(InitializeTest, TheStartIsInDegreesAndTheEndAndAStepOfFiveDegreesInRadians) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.ThetaStartRad, 45);
    EXPECT_NEAR(Model.ThetaEndRad, 405 * M_PI / 180, 1e-6);
    EXPECT_NEAR(Model.ThetaStepRad, 5 * M_PI / 180, 1e-8);
    EXPECT_EQ(Model.NSteps, std::lround((405 * M_PI / 180 - 45) / (5 * M_PI / 180)));
}

TEST_F(InitializeTest, ARunInTimeWouldTakeFiveSecondsInHundredSteps) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.TimeStart, 0);
    EXPECT_EQ(Model.TimeEnd, 5);
    EXPECT_EQ(Model.TimeStep, Single(0.05));
}

TEST_F(InitializeTest, TheLinkageIsTheOpenOneOfNoSpecialKindOnLevelGround) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.CircuitIndex, 1);
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_EQ(Model.CircuitName, "Open");
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_FALSE(Model.LinkDriven);
    EXPECT_FALSE(Model.PolarCoords);
    EXPECT_FALSE(Model.Parallelogram);
    EXPECT_EQ(Model.Link1Angle, 0);
    EXPECT_EQ(Model.Link1AngleRad, 0);
    EXPECT_EQ(Model.LineAngle, 90);
    EXPECT_EQ(Model.LinkMass(2), Single(0.003));
}

TEST_F(InitializeTest, TheAnimationPlaysOnceInFullSize) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.AnimateDelay, 16383);
    EXPECT_EQ(Model.AnimateWait, 10);
    EXPECT_EQ(Model.Cycles, 1);
    EXPECT_EQ(Model.ZoomFactor, 1);
    EXPECT_EQ(Model.PrintStep, 10);
    EXPECT_TRUE(Model.ScreenReturn);
}

TEST_F(InitializeTest, TheModelIsTheFirstInInchesWithTodaysDateAndNoTasks) {
    Use_Up();
    Initialize();
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_EQ(Model.DesignNumber, 1);
    EXPECT_EQ(Model.DateStr, desktop.Date_Text());
    EXPECT_EQ(Model.TimeStr, desktop.Time_Text());
    EXPECT_EQ(Model.DesignTask, "");
}

TEST_F(InitializeTest, TheCognatesAreThoseOfItsLinkage) {
    Use_Up();
    Model.CognatesDue = Model.CognateEdit = true;
    Model.CognateNumber = 2;
    Initialize();
    EXPECT_EQ(Model.Cognates(1, 1), Model.L1);
    EXPECT_EQ(Model.Cognates(1, 2), Model.L2);
    EXPECT_EQ(Model.Cognates(1, 3), Model.L3);
    EXPECT_EQ(Model.Cognates(1, 4), Model.L4);
    EXPECT_EQ(Model.Cognates(1, 5), Model.Rpa);
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_FALSE(Model.CognatesDue);
    EXPECT_FALSE(Model.CognateEdit);
}

TEST_F(InitializeTest, TheOutputVariablesHaveTheirNames) {
    Model.VariableNames(1).clear();
    Model.ComponentNames(3).clear();
    Initialize();
    EXPECT_EQ(Model.VariableNames(1), "Theta2");
    EXPECT_EQ(Model.ComponentNames(3), "Mag");
}

TEST_F(InitializeTest, TheHomeScreenShowsThatANewModelHasNoResults) {
    Initialize();
    platform::Screen& home = platform::Screens::Get("frm_HomeScreen");
    home.Get<platform::Label>("lbl_Status", 10).Caption = "as before";
    home.Get<platform::CommandButton>("cmd_Plot").Enabled = true;
    New_Model();
    EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 10).Caption.Get(), "in-lb-bl-s");
    EXPECT_FALSE(home.Get<platform::CommandButton>("cmd_Plot").Enabled);
}

TEST_F(InitializeTest, ANewModelHasNoTitleOfItsFigureNoImportedTorqueAndNoRun) {
    Initialize();
    EXPECT_NE(Model.FigureTitle, "");
    Model.TorqueImported = true;
    Run_Holds();
    New_Model();
    EXPECT_EQ(Model.FigureTitle, "");
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_FALSE(Model.RunStands);
    EXPECT_FALSE(Model.Calculated);
}

}  // namespace
}  // namespace verlink::test
