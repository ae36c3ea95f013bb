// The record at the start of the process, the empty model, and the clearing of results.
#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "core/parameters.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class TheModel : public Fixture {};

TEST_F(TheModel, AfterInitializeTheStepsAreMinus435AndTheLimitsDisagree) {
    Initialize();
    EXPECT_EQ(Model.NSteps, -435);
    EXPECT_EQ(Model.ThetaStart, 45.0);
    EXPECT_EQ(Model.ThetaEnd, 405.0);
    EXPECT_EQ(Model.ThetaStep, 10.0);
    EXPECT_EQ(Model.ThetaStartRad, 45.0);
    EXPECT_EQ(Model.ThetaEndRad, static_cast<double>(7.0685834715F));
    EXPECT_NEAR(Model.ThetaStepRad, 5 * 0.017453292522222223, 1e-8);
}

TEST_F(TheModel, ClearingWithNegativeStepsOnlyDropsTheImportedTorqueAndPhase) {
    Initialize();
    Model.RunTable.Theta(0, 0) = 12;
    Model.TorqueImported = true;
    Model.Delta2 = 7;
    Clear_RunTable();
    EXPECT_EQ(Model.RunTable.Theta(0, 0), 12.0);
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_EQ(Model.Delta2, 0.0);
}

TEST_F(TheModel, ClearingOfAFullTableReachesIndex2880) {
    Model.NSteps = 2880;
    auto& table = Model.RunTable;
    for (int step : {0, 1440, 2880}) {
        table.Theta(step, 3) = 1;
        table.Alpha(step, 2) = 1;
        table.PointXY(step, 3, 1) = 1;
        table.AccXY(step, 4, 1) = 1;
        table.AccXY(step, 5, 1) = 1;
        table.VelXY(step, 4, 0) = 1;
        table.MovingCentrode(step, 0, 1) = 1;
        table.ImportedTorque(step) = 1;
    }
    Clear_RunTable();
    for (int step : {0, 1440, 2880}) {
        EXPECT_EQ(table.Theta(step, 3), 0.0);
        EXPECT_EQ(table.Alpha(step, 2), 0.0);
        EXPECT_EQ(table.PointXY(step, 3, 1), 0.0);
        EXPECT_EQ(table.AccXY(step, 4, 1), 0.0);
        EXPECT_EQ(table.MovingCentrode(step, 0, 1), 0.0);
        EXPECT_EQ(table.ImportedTorque(step), 0.0);
        EXPECT_EQ(table.AccXY(step, 5, 1), 1.0) << "the centres of gravity are left";
        EXPECT_EQ(table.VelXY(step, 4, 0), 1.0);
    }
}

TEST_F(TheModel, DefaultsAreThoseOfTheDefaultLinkage) {
    Initialize();
    EXPECT_EQ(Model.L1, static_cast<double>(2.667F));
    EXPECT_EQ(Model.L2, static_cast<double>(1.115F));
    EXPECT_EQ(Model.L3, 2.5);
    EXPECT_EQ(Model.L4, 2.5);
    EXPECT_EQ(Model.Rpa, static_cast<double>(1.697F));
    EXPECT_EQ(Model.DeltaStr, "-92.7");
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_EQ(Model.FigureTitle, "A Grashof Crank-Rocker Linkage");
    EXPECT_EQ(Model.ModuloMode, "abs");
    EXPECT_EQ(Model.CircuitName, "Open");
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_EQ(Model.Calctype, 3);
    EXPECT_EQ(Model.Omega2Input, 10.0);
    EXPECT_EQ(Model.Alpha2, -5.0);
    EXPECT_EQ(Model.TimeStep, static_cast<double>(0.05F));
    EXPECT_EQ(Model.PrintStep, 10);
    EXPECT_EQ(Model.AnimateDelay, 16383);
    EXPECT_EQ(Model.LinkArray(0), Model.Rpa);
    EXPECT_EQ(Model.LinkArray(4), Model.L4);
    EXPECT_EQ(Model.CG(3, 1), static_cast<double>(-0.8726646261111112F));
    EXPECT_EQ(Model.LinkInertia(4), static_cast<double>(0.129F));
    EXPECT_EQ(Model.SynXi, static_cast<double>(194.98F));
    EXPECT_TRUE(Model.ScreenReturn);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_EQ(Model.DateStr, desktop.Date_Text());
}

TEST_F(TheModel, NewModelDropsEveryFlagAndTheTitle) {
    Initialize();
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Transform_Holds();
    Model_Saved();
    Model.Synthesized = Model.DiskFile = Model.CamDriven = Model.LinkDriven = true;
    New_Model();
    for (bool flag :
         std::initializer_list<bool>{Model.Calculated, Model.DynamicsDone, Model.BalanceDone, Model.Synthesized,
                                     Model.FFTDone, Model.DiskFile, Model.CamDriven, Model.LinkDriven, Model.SavedFlag})
        EXPECT_FALSE(flag);
    EXPECT_EQ(Model.FigureTitle, "");
}

TEST_F(TheModel, CircuitIndexOtherThanOneOrTwoLeavesBoth) {
    Integer sign = 9;
    std::string name = "as it was";
    Set_Circuit(3, sign, name);
    EXPECT_EQ(sign, 9);
    EXPECT_EQ(name, "as it was");
    Set_Circuit(2, sign, name);
    EXPECT_EQ(sign, 1);
    EXPECT_EQ(name, "Crossed");
    Set_Circuit(1, sign, name);
    EXPECT_EQ(sign, -1);
    EXPECT_EQ(name, "Open");
}

TEST_F(TheModel, LengthsAreMetresInCentimetresAndMillimetres) {
    Model.Units = 5;
    EXPECT_EQ(Shown_Factor(), 1000);
    Model.Units = 4;
    EXPECT_EQ(Shown_Factor(), 100);
    Model.Units = 3;
    EXPECT_EQ(Shown_Factor(), 1);
}

}  // namespace
}  // namespace verlink::test
