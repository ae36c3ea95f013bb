// The record at the start of the process, the empty model, and the clearing of results.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/linkage_model.h"
#include "core/parameters.h"
#include "dynamics/units.h"
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

/// Fills all rows of a result, and tells which of them a clearing takes, by step.
template <class T, int Rows, int Axes>
class Rows_Cleared {
   public:
    explicit Rows_Cleared(StepArray<T, Rows, Axes>& table) : table_(table) {
        Each([this](int step, int row, int axis) { table_(step, row, axis) = T(1); });
    }
    std::vector<int> At(int step) const {
        std::vector<int> rows;
        for (int row = 0; row < Rows; ++row) {
            int cleared = 0;
            for (int axis = 0; axis < Axes; ++axis) cleared += table_(step, row, axis) == T(0);
            if (cleared > 0) rows.push_back(cleared == Axes ? row : -row);
        }
        return rows;
    }

   private:
    template <class Action>
    void Each(const Action& action) {
        for (int step = 0; step <= kLastStep; ++step)
            for (int row = 0; row < Rows; ++row)
                for (int axis = 0; axis < Axes; ++axis) action(step, row, axis);
    }
    StepArray<T, Rows, Axes>& table_;
};

TEST_F(TheModel, ClearingTakesTheRowsOfTheMotionToTheLastStepAndNoOthers) {
    using Rows = std::vector<int>;
    auto& t = Model.RunTable;
    const Rows_Cleared assembled(t.Assembled);
    const Rows_Cleared points(t.PointXY);
    const Rows_Cleared theta(t.Theta);
    const Rows_Cleared velocity(t.VelXY);
    const Rows_Cleared acceleration(t.AccXY);
    const Rows_Cleared omega(t.Omega);
    const Rows_Cleared alpha(t.Alpha);
    const Rows_Cleared ratio(t.OmegaRatio);
    const Rows_Cleared advantage(t.MechAdvantage);
    const Rows_Cleared fixed(t.FixedCentrode);
    const Rows_Cleared moving(t.MovingCentrode);
    const Rows_Cleared torque(t.ImportedTorque);
    const Rows_Cleared drive(t.DriveTheta);
    Model.NSteps = 4;
    const auto expect = [&](int step, bool cleared, bool driven) {
        const auto when = [](bool so, Rows rows) { return so ? std::move(rows) : Rows{}; };
        EXPECT_EQ(assembled.At(step), when(cleared, {0}));
        EXPECT_EQ(points.At(step), when(cleared, {0, 1, 2, 3}));
        EXPECT_EQ(theta.At(step), when(cleared, {0, 1, 2, 3}));
        EXPECT_EQ(velocity.At(step), when(cleared, {0, 1, 2, 3}));
        EXPECT_EQ(acceleration.At(step), when(cleared, {0, 1, 2, 3, 4}));
        EXPECT_EQ(omega.At(step), driven ? Rows({0, 1, 2}) : when(cleared, {1, 2}));
        EXPECT_EQ(alpha.At(step), driven ? Rows({0, 1, 2}) : when(cleared, {1, 2}));
        for (const Rows& rows : {ratio.At(step), advantage.At(step), fixed.At(step), moving.At(step)})
            EXPECT_EQ(rows, when(cleared, {0}));
        EXPECT_EQ(torque.At(step), when(driven, {0}));
        EXPECT_EQ(drive.At(step), Rows{});
    };
    Clear_Motion();
    for (const int step : {0, 1, 4, 5}) {
        SCOPED_TRACE(step);
        expect(step, step <= 4, false);
    }
    Clear_RunTable();
    for (const int step : {0, 1, 4, 5}) {
        SCOPED_TRACE(step);
        expect(step, step <= 4, step <= 4);
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

TEST_F(TheModel, NewModelHasNoLoadsOfTheOneBefore) {
    Initialize();
    Use_Units(5);
    Model.ExtForceMag(4) = 183;
    Model.ExtForceAng(4) = 270;
    Model.ExtForce4Y = -183;
    Model.ForceDist3 = 0.1;
    Model.ForceAng4 = 20;
    Model.FrictionForce = 7;
    New_Model();
    for (const Single load : {Model.ExtForceMag(4), Model.ExtForceAng(4), Model.ExtForce4Y, Model.ForceDist3,
                              Model.ForceAng4, Model.FrictionForce})
        EXPECT_EQ(load, 0);
    EXPECT_EQ(Model.LinkMass(2), Single(0.003));
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

TEST_F(TheModel, ThePackedLinkageHoldsNineFieldsInTheirOrder) {
    Single* const fields[] = {&Model.Rpa,    &Model.L1,     &Model.L2,          &Model.L3,         &Model.L4,
                              &Model.Link1X, &Model.Link1Y, &Model.Link1LocalX, &Model.Link1LocalY};
    for (int i = 0; i <= 8; ++i) *fields[i] = 10 + i;
    LoadLinkArray();
    for (int i = 0; i <= 8; ++i) EXPECT_EQ(Model.LinkArray(i), 10 + i);
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
