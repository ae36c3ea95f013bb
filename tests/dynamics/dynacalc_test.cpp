// What a solve takes in, leaves out, stores and refuses.
#include "dynamics/dynacalc.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "shell/initialize.h"
#include "tests/dynamics/matrix_screen.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

class ForceSolution : public Fixture {
   protected:
    ForceSolution() { Initialize(); }
    RunResults& table = Model.RunTable;

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
    /// A run of three steps whose last does not close, with the crank on the ground link.
    static void Run_To_A_Singular_Step() {
        auto& m = Model;
        Run_Scenario({.name = "backwards", .omega2 = -10});
        m.L1 = 3;
        m.L2 = 2.5;
        m.L3 = 4;
        m.L4 = 2;
        m.ThetaStart = m.ThetaStartRad = 0;
        m.ThetaEnd = 120;
        m.ThetaStep = 60;
        m.ThetaEndRad = m.ThetaEnd * kDegToRad;
        m.ThetaStepRad = m.ThetaStep * kDegToRad;
        m.NSteps = 2;
        Derive_Linkage(Leading::kInForce);
        Integer result;
        Calc_Setup(3, result);
    }
};

std::string Three_Decimals(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.3f", std::fabs(value) < 0.0005 ? 0.0 : value);
    return text;
}

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
    Dynacalc(-1, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        Expect_Vector(At(table.PinForce, step, 7), -at.Inertia_Force(), 2e-4);
        EXPECT_EQ(table.LinkTorque(step, 1), torque3[static_cast<std::size_t>(step)]);
        EXPECT_EQ(table.LinkTorque(step, 2), torque4[static_cast<std::size_t>(step)]);
        EXPECT_GT(std::fabs(table.LinkTorque(step, 2) + at.l4.Moment()), 0.1);
    }
}

TEST_F(ForceSolution, WithoutLoadsInTheSystemItsRightSideHoldsInertiaAlone) {
    const MatrixOnShow show;
    Run_Scenario({.name = "loads", .loads = true, .friction = 2});
    Dynacalc(-1, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque);
    const Motion at(0);
    const double expected[] = {at.l2.Force().real(), at.l2.Force().imag(), at.l2.Moment(),
                               at.l3.Force().real(), at.l3.Force().imag(), at.l3.Moment(),
                               at.l4.Force().real(), at.l4.Force().imag(), at.l4.Moment()};
    for (int i = 1; i <= 9; ++i) EXPECT_EQ(show.B(i).Caption, Three_Decimals(expected[i - 1])) << i;
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
    Run_To_A_Singular_Step();
    ASSERT_TRUE(table.Assembled(1));
    ASSERT_FALSE(table.Assembled(2));
    for (int step = 0; step <= 2; ++step) table.LinkTorque(step, 0) = -77;
    desktop.Expect_Message("There is a zero value on diagonal in column 7")
        .Expect_Message("Error in Computing Simultaneous Equations at step    2", platform::Answer::kOk,
                        platform::Icon::kQuestion, platform::Buttons::kOk);
    EXPECT_FALSE(Dynacalc(0, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque));
    EXPECT_NE(table.LinkTorque(0, 0), -77);
    EXPECT_NE(table.LinkTorque(1, 0), -77);
    EXPECT_EQ(table.LinkTorque(2, 0), -77);
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
    EXPECT_EQ(Model.ExtTorque(4), table.ImportedTorque(Model.NSteps));
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

TEST_F(ForceSolution, InMillimetresTheVelocityOfLink3sMassCentreAddsTwoUnits) {
    Run_Scenario({.name = "millimetres", .units = 5});
    Solve_Forces();
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Motion at(step);
        const Vector of_a = kQuarter * at.l2.w * at.A;
        const Vector found = At(table.VelXY, step, 5);
        Expect_Vector(found, 1000.0 * (at.l3.velocity - of_a + 1000.0 * of_a), 1e-5 * std::abs(found) + 1);
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

TEST_F(ForceSolution, TheMatrixOfTheFirstPositionIsShownWithItsZerosInGrey) {
    const MatrixOnShow show;
    Run_Scenario({.name = "ground turned", .ground = 30});
    Solve_Forces();
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
    constexpr platform::Color kGray = 0x808080, kRed = 0x0000FF;
    for (int j = 1; j <= 9; ++j)
        for (int i = 1; i <= 9; ++i) {
            const double value = expected[j - 1][i - 1];
            EXPECT_EQ(show.A(j, i).Caption, Three_Decimals(value)) << j << " " << i;
            EXPECT_EQ(show.A(j, i).ForeColor, value == 0 ? kGray : kRed) << j << " " << i;
        }
    EXPECT_EQ(show.B(3).Caption, "0.000");  // the crank turns evenly
    EXPECT_EQ(show.B(3).ForeColor, kGray);
    EXPECT_EQ(show.B(6).Caption, Three_Decimals(at.l3.Moment()));
    EXPECT_EQ(show.B(6).ForeColor, kRed);
}

TEST_F(ForceSolution, TheMatrixIsShownWithTheDecimalsOfShownLengthsAndGreyFromThreeOn) {
    const MatrixOnShow show;
    Use_Units(5);
    std::vector<double> A(81, 0.0004999), C(9, -0.00051);
    PrintAmatrix(A, C);
    EXPECT_EQ(show.A(4, 7).Caption, "0.00");
    EXPECT_EQ(show.A(4, 7).ForeColor, 0x808080);
    EXPECT_EQ(show.B(9).Caption, "0.00");
    EXPECT_EQ(show.B(9).ForeColor, 0x0000FF);
}

TEST_F(ForceSolution, AnOverflowIsReportedUnderItsName) {
    Run_Scenario({.name = "heavy"});
    Model.LinkMass(3) = 3e38;
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Dynacalc\r\n\r\n");
    EXPECT_FALSE(Dynacalc(0, Model.LinkMass, Model.LinkInertia, Model.CG, table.PinForce, table.LinkTorque));
}

TEST_F(ForceSolution, ComponentsOfTheExternalForcesFollowFromMagnitudeAndAngle) {
    Model.ExtForceMag(3) = 10;
    Model.ExtForceAng(3) = 120;
    Model.ExtForceMag(4) = 4;
    Model.ExtForceAng(4) = -90;
    Resolve_Forces();
    EXPECT_NEAR(Model.ExtForce3X, -5, 1e-6);
    EXPECT_NEAR(Model.ExtForce3Y, 8.660254, 1e-6);
    EXPECT_NEAR(Model.ExtForce4X, 0, 1e-6);
    EXPECT_NEAR(Model.ExtForce4Y, -4, 1e-6);
}

}  // namespace verlink::test
