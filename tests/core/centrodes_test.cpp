// The pole's paths, and the positions at which a crank or rocker stands upright.
#include "core/centrodes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/linkage_model.h"
#include "core/runs.h"
#include "core/solver.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

class Poles : public Fixture {
   protected:
    Poles() {
        Initialize();
        Model.NSteps = 4;
        Clear_RunTable();
    }
    void Solve(double degrees, int step) {
        Model.Theta2Rad = degrees * kDegToRad;
        Integer result = kRetrying;
        Calculate(step, result);
    }
};

TEST_F(Poles, FixedPoleHasNoSpeedAsAPointOfTheCoupler) {
    Solve(50, 0);
    // v of the pole = v of A + omega3 x (pole - A)
    const double dx = Model.RunTable.FixedCentrode(0, 0, 0) - Model.Ax;
    const double dy = Model.RunTable.FixedCentrode(0, 0, 1) - Model.Ay;
    EXPECT_NEAR(Model.RunTable.VelXY(0, 0, 0) - Model.Omega3 * dy, 0, 1e-3);
    EXPECT_NEAR(Model.RunTable.VelXY(0, 0, 1) + Model.Omega3 * dx, 0, 1e-3);
}

TEST_F(Poles, BothPolesAgreeAtTheFirstStep) {
    Solve(50, 0);
    for (int axis = 0; axis <= 1; ++axis)
        EXPECT_NEAR(Model.RunTable.FixedCentrode(0, 0, axis), Model.RunTable.MovingCentrode(0, 0, axis), 1e-4);
}

TEST_F(Poles, UprightCrankIsToldAndTheFixedPointKeepsItsZero) {
    Solve(50, 0);
    Model.Ax = 0;  // a crank straight up in the local frame
    Model.Ay = Model.L2;
    desktop.Expect_Message("Line 1 is vertical, has infinite slope", platform::Answer::kOk, platform::Icon::kNone);
    Centrodes(1);
    EXPECT_EQ(Model.RunTable.FixedCentrode(1, 0, 0), 0.0);
    EXPECT_EQ(Model.RunTable.FixedCentrode(1, 0, 1), 0.0);
    EXPECT_NE(Model.RunTable.MovingCentrode(1, 0, 1), 0.0) << "the pole by the steep slope enters the moving one";
}

TEST_F(Poles, UprightCrankIsToldOnceDuringARunAtItsOwnStep) {
    // A crank so short that its x rounds to 0 when it is upright, and nowhere else.
    Model.L1 = 2.667e-21;
    Model.L2 = 1e-39;
    Model.L3 = Model.L4 = 2.5e-21;
    Model.ThetaStartRad = 80 * kDegToRad;
    Model.ThetaEndRad = 100 * kDegToRad;
    Model.ThetaStepRad = 5 * kDegToRad;
    desktop.Expect_Message("Line 1 is vertical, has infinite slope", platform::Answer::kOk, platform::Icon::kNone);
    Integer result;
    Crankangle(result);
    for (int step = 0; step <= 4; ++step) {
        EXPECT_TRUE(Model.RunTable.Assembled(step));
        EXPECT_EQ(Model.RunTable.FixedCentrode(step, 0, 0) == 0, step == 2) << step;
    }
}

TEST_F(Poles, UprightRockerIsToldDuringARunAtItsOwnStep) {
    // At angle 0 links 3 and 4 close the triangle of 5, 12 and 13.
    Model.L1 = 16;
    Model.L2 = 4;
    Model.L3 = 13;
    Model.L4 = 5;
    desktop.Expect_Message("Line 2 is vertical, has infinite slope", platform::Answer::kOk, platform::Icon::kNone);
    Model.ThetaStartRad = 0;
    Model.ThetaEndRad = 40 * kDegToRad;
    Model.ThetaStepRad = 10 * kDegToRad;
    Integer result;
    Crankangle(result);
    EXPECT_EQ(Model.RunTable.FixedCentrode(0, 0, 0), 0);
    EXPECT_NE(Model.RunTable.MovingCentrode(0, 0, 0), 0);
    EXPECT_NE(Model.RunTable.FixedCentrode(1, 0, 0), 0);
}

TEST_F(Poles, ParallelCrankAndRockerAreToldWithThePoleAtTheOrigin) {
    Solve(50, 0);
    Model.L1 = 3;
    Model.Ax = 1;
    Model.Ay = 1;
    Model.Bx = 5;
    Model.By = 2;
    desktop.Expect_Message("The lines are parallel - No intersection", platform::Answer::kOk, platform::Icon::kNone);
    Centrodes(1);
    EXPECT_EQ(Model.IC13x, 0.0);
    EXPECT_EQ(Model.RunTable.FixedCentrode(1, 0, 0), 0.0);
}

TEST_F(Poles, ParallelogramHasNoMessagesAndNoPoles) {
    Model.L1 = Model.L3 = 3;
    Model.L2 = Model.L4 = 2;
    Model.Parallelogram = true;
    Solve(90, 0);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    for (int axis = 0; axis <= 1; ++axis) {
        EXPECT_EQ(Model.RunTable.FixedCentrode(0, 0, axis), 0.0);
        EXPECT_EQ(Model.RunTable.MovingCentrode(0, 0, axis), 0.0);
    }
}

TEST_F(Poles, RunOfAParallelogramHasNoMessagesAndNoPoles) {
    Model.L1 = Model.L3 = 3;
    Model.L2 = Model.L4 = 2;
    Model.Parallelogram = true;
    Model.NSteps = 40;
    Model.ThetaStartRad = 5 * kDegToRad;
    Model.ThetaEndRad = 405 * kDegToRad;
    Model.ThetaStepRad = 10 * kDegToRad;
    Integer result;
    Crankangle(result);
    for (int step = 0; step <= 40; ++step)
        for (int axis = 0; axis <= 1; ++axis) {
            EXPECT_EQ(Model.RunTable.FixedCentrode(step, 0, axis), 0);
            EXPECT_EQ(Model.RunTable.MovingCentrode(step, 0, axis), 0);
        }
}

TEST_F(Poles, MovingCentrodeRollsOnTheFixedOne) {
    // Both arcs between two positions are equally long, as the paths roll on each other without slip.
    Model.NSteps = 720;
    Model.ThetaStartRad = 140 * kDegToRad;
    Model.ThetaEndRad = 200 * kDegToRad;
    Model.ThetaStepRad = kDegToRad / 12;
    Integer result;
    Crankangle(result);
    const auto arc = [](const auto& path) {
        double length = 0;
        for (int step = 1; step <= 720; ++step)
            length += std::hypot(path(step, 0, 0) - path(step - 1, 0, 0), path(step, 0, 1) - path(step - 1, 0, 1));
        return length;
    };
    const double fixed = arc(Model.RunTable.FixedCentrode);
    EXPECT_GT(fixed, 1);
    EXPECT_NEAR(arc(Model.RunTable.MovingCentrode) / fixed, 1, 1e-4);
}

TEST_F(Poles, PolesStayInMetresInMillimetres) {
    Solve(50, 0);
    const double x = Model.RunTable.FixedCentrode(0, 0, 0);
    Model.Units = 5;
    Solve(50, 0);
    EXPECT_EQ(Model.RunTable.FixedCentrode(0, 0, 0), x);
}

}  // namespace
}  // namespace verlink::test
