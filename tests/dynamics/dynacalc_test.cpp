// What a solve takes in, leaves out, stores and refuses.
#include "dynamics/dynacalc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

class ForceSolution : public Fixture {
   protected:
    ForceSolution() { Initialize(); }
    RunResults& table = Model.RunTable;

    /// The results of a solve, of steps First to Last.
    void Fill_Steps(int first, int last, double value) {
        For_Steps(first, last, [value](Single& place) { place = value; });
    }
    void Expect_Steps(int first, int last, double value) {
        For_Steps(first, last, [value](const Single& place) { EXPECT_EQ(place, value); });
    }
    template <class Action>
    void For_Steps(int first, int last, Action action) {
        for (int step = first; step <= last; ++step) {
            for (int axis = 0; axis <= 1; ++axis) {
                for (int row = 0; row <= 7; ++row) action(table.PinForce(step, row, axis));
                for (int row = 3; row <= 5; ++row) action(table.VelXY(step, row, axis));
                for (int row = 5; row <= 7; ++row) action(table.AccXY(step, row, axis));
            }
            for (int row = 0; row <= 3; ++row) action(table.LinkTorque(step, row));
        }
    }
    static void Clear_Masses() {
        for (const int link : {2, 3, 4}) Model.LinkMass(link) = Model.LinkInertia(link) = 0;
    }
    static void Expect_Vector(Vector found, Vector expected, double tolerance) {
        EXPECT_NEAR(found.real(), expected.real(), tolerance);
        EXPECT_NEAR(found.imag(), expected.imag(), tolerance);
    }
    /// Forces and torques of all steps, one after the other.
    std::vector<double> Forces_And_Torques() const {
        std::vector<double> all;
        for (int step = 0; step <= Model.NSteps; ++step) {
            for (int row = 0; row <= 7; ++row)
                for (int axis = 0; axis <= 1; ++axis) all.push_back(table.PinForce(step, row, axis));
            for (int row = 0; row <= 3; ++row) all.push_back(table.LinkTorque(step, row));
        }
        return all;
    }
};

}  // namespace

TEST_F(ForceSolution, WithoutMassesTheExternalLoadsAloneAreLeft) {
    Run_Scenario({.name = "loads", .loads = true});
    Clear_Masses();
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        for (const int row : {2, 3, 4}) EXPECT_EQ(At(table.PinForce, step, row), Vector{}) << step << " " << row;
        EXPECT_EQ(At(table.PinForce, step, 5), -At(table.PinForce, step, 0)) << step;
        const Motion at(step);
        const Vector loads = Load_On_3(at.l3).force + Load_On_4(at.l4).force;
        Expect_Vector(At(table.PinForce, step, 7), loads, 1e-4);
        EXPECT_NEAR(table.LinkTorque(step, 1), Load_On_3(at.l3).Moment(), 1e-5);
        EXPECT_NEAR(table.LinkTorque(step, 2), Load_On_4(at.l4).Moment(), 1e-5);
    }
}

TEST_F(ForceSolution, WithoutMassesAndLoadsNothingIsLeft) {
    Run_Scenario({.name = "nothing"});
    Clear_Masses();
    for (const int link : {2, 3, 4}) Model.CG(link, 0) = 0;
    Solve_Forces();
    for (const double value : Forces_And_Torques()) EXPECT_EQ(value, 0);
}

TEST_F(ForceSolution, WithoutLoadsInTheSystemTheyStillCountInTheNetTorques) {
    Run_Scenario({.name = "loads", .loads = true, .friction = 2});
    Solve_Forces();
    std::vector<double> torque3, torque4;
    for (int step = 0; step <= Model.NSteps; ++step) {
        torque3.push_back(table.LinkTorque(step, 1));
        torque4.push_back(table.LinkTorque(step, 2));
    }
    Dynacalc(Model, -1, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        Expect_Vector(At(table.PinForce, step, 7), -at.Inertia_Force(), 2e-4);
        EXPECT_EQ(table.LinkTorque(step, 1), torque3[static_cast<std::size_t>(step)]);
        EXPECT_EQ(table.LinkTorque(step, 2), torque4[static_cast<std::size_t>(step)]);
        EXPECT_GT(std::fabs(table.LinkTorque(step, 2) + at.l4.Moment()), 0.1);
    }
}

TEST_F(ForceSolution, WithoutLoadsInTheSystemItsRightSideHoldsInertiaAlone) {
    Run_Scenario({.name = "loads", .loads = true, .friction = 2});
    const ForceSolve solve =
        Dynacalc(Model, -1, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    ASSERT_TRUE(solve.first);
    const Motion at(0);
    const double expected[] = {at.l2.Force().real(), at.l2.Force().imag(), at.l2.Moment(),
                               at.l3.Force().real(), at.l3.Force().imag(), at.l3.Moment(),
                               at.l4.Force().real(), at.l4.Force().imag(), at.l4.Moment()};
    for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(solve.first->C[i], expected[i], 1e-4) << i;
}

TEST_F(ForceSolution, AtRestFrictionActsAlongMinusX) {
    Run_Scenario({.name = "at rest", .friction = 2, .omega2 = 0});
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        ASSERT_EQ(At(table.VelXY, step, 2), Vector{});
        Expect_Vector(At(table.PinForce, step, 7), -2.0, 1e-5);
    }
}

TEST_F(ForceSolution, FrictionTurnsWithTheDirectionOfTravel) {
    Run_Scenario({.name = "friction", .friction = 2});
    Clear_Masses();
    Solve_Forces();
    const int last = Model.NSteps;
    std::vector<Vector> forward;
    for (int step = 0; step <= last; ++step) forward.push_back(At(table.PinForce, step, 5));
    Run_Scenario({.name = "friction backwards", .friction = 2, .omega2 = -10});
    Solve_Forces();
    ASSERT_EQ(Model.NSteps, last);
    for (int step = 0; step <= last; ++step) {
        // The same positions from the other end.
        const Vector before = forward[static_cast<std::size_t>(last - step)];
        Expect_Vector(At(table.PinForce, step, 5), -before, 2e-4 * std::abs(before) + 1e-4);
    }
}

TEST_F(ForceSolution, ASingularStepIsToldWithItsNumberAndEndsTheSolve) {
    Run_To_An_Open_Step(false);
    ASSERT_TRUE(table.Assembled(1));
    ASSERT_FALSE(table.Assembled(2));
    for (int step = 0; step <= 2; ++step) table.LinkTorque(step, 0) = -77;
    desktop.Expect_Message("There is a zero value on diagonal in column 7")
        .Expect_Message("Error in Computing Simultaneous Equations at step    2", platform::Answer::kOk,
                        platform::Icon::kQuestion, platform::Buttons::kOk);
    const ForceSolve solve =
        Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    EXPECT_FALSE(solve);
    EXPECT_TRUE(solve.first);
    EXPECT_NE(table.LinkTorque(0, 0), -77);
    EXPECT_NE(table.LinkTorque(1, 0), 0);
}

TEST_F(ForceSolution, BehindASingularStepNothingOfAnEarlierSolveIsLeft) {
    Run_To_An_Open_Step(false);
    Fill_Steps(0, 3, -77);
    desktop.Expect_Message_With("zero value on diagonal").Expect_Message_With("Error in Computing");
    Solve_Forces();
    EXPECT_NE(table.PinForce(1, 0, 0), -77);
    Expect_Steps(2, 2, 0);
    Expect_Steps(3, 3, -77);  // beyond the run
}

TEST_F(ForceSolution, AnImportedTorqueActsOnLink4StepByStep) {
    Run_Scenario({.name = "loads", .loads = true});
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) table.ImportedTorque(step) = 0.25 * step - 3;
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        Load load4 = Load_On_4(at.l4);
        load4.torque = 0.25 * step - 3;
        EXPECT_NEAR(table.LinkTorque(step, 2), -at.l4.Moment() + load4.Moment(), 1e-4);
        const double power =
            at.l2.Power() + at.l3.Power() + at.l4.Power() - Load_On_3(at.l3).Power(at.l3) - load4.Power(at.l4);
        EXPECT_NEAR(table.LinkTorque(step, 0) * at.l2.w, power, 5e-3);
    }
}

TEST_F(ForceSolution, ChangesNoneOfTheMassesAndLoadsThatItReads) {
    Run_Scenario({.name = "loads", .loads = true, .friction = 2});
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) table.ImportedTorque(step) = 0.25 * step - 3;
    const Masses_And_Loads before;
    Solve_Forces();
    EXPECT_EQ(Masses_And_Loads(), before);
    EXPECT_EQ(Model.ExtTorque(4), -2.25);
}

TEST_F(ForceSolution, InCentimetresAccelerationsAreShownInThemAndForcesAreNewtons) {
    Run_Scenario({.name = "centimetres", .units = 4});
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        const double close = 1e-5 * std::abs(at.l2.acceleration) + 1e-3;
        Expect_Vector(At(table.AccXY, step, 5), 100.0 * at.l3.acceleration, 100 * close);
        Expect_Vector(At(table.AccXY, step, 6), 100.0 * at.l2.acceleration, 100 * close);
        Expect_Vector(At(table.AccXY, step, 7), 100.0 * at.l4.acceleration, 100 * close);
        Expect_Vector(At(table.PinForce, step, 2), -at.l3.Force(), close);
    }
}

TEST_F(ForceSolution, InMillimetresVelocitiesOfMassCentresAreShownInThem) {
    Run_Scenario({.name = "millimetres", .units = 5});
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        Expect_Vector(At(table.VelXY, step, 5), 1000.0 * at.l3.velocity, 0.5);
        Expect_Vector(At(table.VelXY, step, 3), 1000.0 * at.l2.velocity, 0.1);
        Expect_Vector(At(table.VelXY, step, 4), 1000.0 * at.l4.velocity, 0.5);
    }
}

TEST_F(ForceSolution, TurningTheGroundWithTheCrankLeavesTheForcesInItsFrame) {
    Run_Scenario({.name = "level"});
    Solve_Forces();
    const std::vector<double> level = Forces_And_Torques();
    Run_Scenario({.name = "turned", .ground = 30});
    Model.ThetaStart = 75;
    Model.ThetaEnd = 435;
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Integer result;
    Calc_Setup(3, result);
    Solve_Forces();
    const std::vector<double> turned = Forces_And_Torques();
    ASSERT_EQ(turned.size(), level.size());
    for (std::size_t i = 0; i < level.size(); ++i) EXPECT_NEAR(turned[i], level[i], 2e-4) << i;
}

TEST_F(ForceSolution, TheEquationsOfTheFirstPositionAreGivenBackAsTheyStandBeforeTheyAreSolved) {
    Run_Scenario({.name = "ground turned", .ground = 30});
    Model.NSteps = 5;  // elsewhere than where the run begins
    Forces_Dropped();
    const ForceSolve solve = verlink::Solve_Forces(Model);
    EXPECT_TRUE(solve);
    EXPECT_TRUE(Model.DynamicsDone);
    ASSERT_TRUE(solve.first);
    const Motion at(0);
    const Vector r2 = at.l2.centre, q2 = at.A - r2;
    const Vector r3 = at.l3.centre - at.A, q3 = at.B - at.l3.centre;
    const Vector r4 = at.l4.centre - at.O4, q4 = at.B - at.l4.centre;
    const double expected[9][9] = {
        {1, 0, 1, 0, 0, 0, 0, 0, 0},
        {0, 1, 0, 1, 0, 0, 0, 0, 0},
        {r2.imag(), -r2.real(), -q2.imag(), q2.real(), 0, 0, 0, 0, 1},
        {0, 0, -1, 0, 1, 0, 0, 0, 0},
        {0, 0, 0, -1, 0, 1, 0, 0, 0},
        {0, 0, -r3.imag(), r3.real(), -q3.imag(), q3.real(), 0, 0, 0},
        {0, 0, 0, 0, -1, 0, 1, 0, 0},
        {0, 0, 0, 0, 0, -1, 0, 1, 0},
        {0, 0, 0, 0, q4.imag(), -q4.real(), r4.imag(), -r4.real(), 0},
    };
    for (std::size_t j = 0; j < 9; ++j)
        for (std::size_t i = 0; i < 9; ++i) {
            const double found = solve.first->A[9 * j + i];
            EXPECT_NEAR(found, expected[j][i], 1e-6) << j << " " << i;
            EXPECT_EQ(found == 0, expected[j][i] == 0) << j << " " << i;
        }
    EXPECT_EQ(solve.first->C[2], 0);  // the crank turns evenly
    EXPECT_NEAR(solve.first->C[5], at.l3.Moment(), 1e-4);
}

TEST_F(ForceSolution, LinkByLinkItIsTheSameAsByElimination) {
    for (const Scenario& scenario : kScenarios) {
        SCOPED_TRACE(scenario.name);
        Run_Scenario(scenario);
        Solve_Forces();
        const std::vector<double> eliminated = Forces_And_Torques();
        const double centre = table.AccXY(3, 5, 0);
        Fill_Steps(0, Model.NSteps, -77);
        table.Assembled(1) = false;
        std::vector<char> solved(static_cast<std::size_t>(Model.NSteps) + 1, 7);
        Solve_Closed_Steps(Model, solved);
        const std::vector<double> by_links = Forces_And_Torques();
        double most = 0;
        for (const double number : eliminated) most = std::max(most, std::abs(number));
        const std::size_t of_a_step = eliminated.size() / solved.size();
        for (std::size_t i = 0; i < eliminated.size(); ++i)
            EXPECT_NEAR(by_links[i], i / of_a_step == 1 ? -77 : eliminated[i], 1e-6 * most) << i;
        for (std::size_t step = 0; step < solved.size(); ++step) EXPECT_EQ(solved[step], step != 1) << step;
        EXPECT_EQ(table.AccXY(3, 5, 0), centre);
    }
}

TEST_F(ForceSolution, WhatCannotBeSolvedLinkByLinkIsSaidOfItsStepAlone) {
    Run_To_An_Open_Step(false);
    table.Assembled(2) = true;
    std::vector<char> solved(3, 7);
    Solve_Closed_Steps(Model, solved);
    EXPECT_EQ(solved, (std::vector<char>{1, 1, 0}));
}

TEST_F(ForceSolution, AnOverflowIsReportedUnderItsName) {
    Run_Scenario({.name = "heavy"});
    Model.LinkMass(3) = 3e38;
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Dynacalc\r\n\r\n");
    Fill_Steps(0, 0, -77);
    const ForceSolve solve =
        Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    EXPECT_FALSE(solve);
    EXPECT_FALSE(solve.first);
    Expect_Steps(0, 0, 0);
}

TEST_F(ForceSolution, ComponentsOfTheExternalForcesFollowFromMagnitudeAndAngle) {
    Model.ExtForceMag(3) = 10;
    Model.ExtForceAng(3) = 120;
    Model.ExtForceMag(4) = 4;
    Model.ExtForceAng(4) = -90;
    Resolve_Forces(Model);
    EXPECT_NEAR(Model.ExtForce3X, -5, 1e-6);
    EXPECT_NEAR(Model.ExtForce3Y, 8.660254, 1e-6);
    EXPECT_NEAR(Model.ExtForce4X, 0, 1e-6);
    EXPECT_NEAR(Model.ExtForce4Y, -4, 1e-6);
}

}  // namespace verlink::test
