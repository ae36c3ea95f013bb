// One position: closure on both circuits, wrapping, ratios, imported motion, and the positions that do not close.
#include "core/solver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <vector>

#include "core/linkage_model.h"
#include "core/runs.h"
#include "shell/initialize.h"
#include "tests/core/linkages.h"

namespace verlink::test {
namespace {

class OnePosition : public Fixture {
   protected:
    OnePosition() {
        Initialize();
        Model.NSteps = 10;
        Clear_RunTable();
    }

    /// Solves at a local crank angle in degrees.
    void Solve(double degrees, int step = 0) {
        Model.Theta2Rad = degrees * kDegToRad;
        Integer result = kRetrying;
        Calculate(step, result);
    }

    static double Closure() {
        const double x = Model.L2 * std::cos(Model.Theta2Rad) + Model.L3 * std::cos(Model.Theta3Rad) -
                         Model.L4 * std::cos(Model.Theta4Rad) - Model.L1;
        const double y = Model.L2 * std::sin(Model.Theta2Rad) + Model.L3 * std::sin(Model.Theta3Rad) -
                         Model.L4 * std::sin(Model.Theta4Rad);
        return std::hypot(x, y);
    }

    void Lengths(double L1, double L2, double L3, double L4) {
        Model.L1 = L1;
        Model.L2 = L2;
        Model.L3 = L3;
        Model.L4 = L4;
        LoadLinkArray();
    }
};

TEST_F(OnePosition, DefaultLinkageClosesOnBothCircuitsWithDifferentAngles) {
    Solve(45);
    EXPECT_TRUE(Model.RunTable.Assembled(0));
    EXPECT_LT(Closure(), 1e-6);
    const double open3 = Model.Theta3Rad, open4 = Model.Theta4Rad;
    EXPECT_GT(Model.By, 0.0);
    Model.CircuitSign = 1;
    Solve(45, 1);
    EXPECT_LT(Closure(), 1e-6);
    EXPECT_LT(Model.By, 0.0);
    EXPECT_NE(open3, Model.Theta3Rad);
    EXPECT_NE(open4, Model.Theta4Rad);
}

/// The crank angles at which the leading coefficient of one of the quadratics vanishes, degrees.
std::vector<double> Without_Leading_Coefficient() {
    const auto& m = Model;
    const double L1 = m.L1, L2 = m.L2, L3 = m.L3, L4 = m.L4;
    const double K3 = (L2 * L2 - L3 * L3 + L4 * L4 + L1 * L1) / (2 * L2 * L4);
    const double K5 = (L4 * L4 - L1 * L1 - L2 * L2 - L3 * L3) / (2 * L2 * L3);
    std::vector<double> angles;
    for (const double cosine : {(L1 / L2 - K3) / (1 - L1 / L4), (L1 / L2 - K5) / (L1 / L3 + 1)})
        if (std::fabs(cosine) < 1)
            for (const int side : {1, -1}) angles.push_back(side * std::acos(cosine) * kRadToDeg);
    return angles;
}

TEST_F(OnePosition, ClosesAsWellWhereALeadingCoefficientNearlyVanishes) {
    int solved = 0;
    double worst = 0;
    for (const auto& [L1, L2, L3, L4] : {std::array{6.0, 3.0, 5.0, 7.0}, {2.0, 5.0, 6.0, 4.5}, {5.0, 6.0, 3.5, 7.0}}) {
        Lengths(L1, L2, L3, L4);
        for (const double vanishes : Without_Leading_Coefficient())
            for (int sign : {1, -1})
                for (double beside = 8; beside > 1e-6; beside *= 0.7) {
                    Model.CircuitSign = sign;
                    Solve(vanishes + sign * beside);
                    if (!Model.RunTable.Assembled(0)) continue;
                    ++solved;
                    worst = std::max(worst, Closure() / Model.L1);
                }
    }
    std::cout << "[  closure ] " << worst << " of the ground at most, " << solved << " positions\n";
    EXPECT_GT(solved, 300);
    EXPECT_LT(worst, 1.5e-6);
}

TEST_F(OnePosition, HasTheSinesOfItsAnglesAndTheSquaresOfItsSpeeds) {
    Model.Omega2 = 3;
    Solve(70);
    const auto& m = Model;
    const double angles[] = {m.Theta2Rad, m.Theta3Rad, m.Theta4Rad, m.Theta3Rad + m.DeltaRad};
    const double sines[] = {m.SinTheta2, m.SinTheta3, m.SinTheta4, m.SinDelta3};
    const double cosines[] = {m.CosTheta2, m.CosTheta3, m.CosTheta4, m.CosDelta3};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(sines[i], std::sin(angles[i]), 1e-6) << i;
        EXPECT_NEAR(cosines[i], std::cos(angles[i]), 1e-6) << i;
    }
    EXPECT_EQ(m.Omega2Sq, 9.0);
    EXPECT_NEAR(m.Omega3Sq, m.Omega3 * m.Omega3, 1e-6);
    EXPECT_NEAR(m.Omega4Sq, m.Omega4 * m.Omega4, 1e-6);
    EXPECT_GT(m.Omega3Sq, 1e-3);
    EXPECT_GT(m.Omega4Sq, 1e-3);
}

TEST_F(OnePosition, CrankAtRestHasNoSpeedsAndRepeatsThePreviousRatio) {
    Solve(40, 0);
    const double ratio = Model.RunTable.OmegaRatio(0);
    EXPECT_NE(ratio, 0.0);
    Model.Omega2 = 0;
    Model.Alpha2 = 0;
    Model.RunTable.MechAdvantage(1) = 7;
    Solve(50, 1);
    EXPECT_TRUE(Model.RunTable.Assembled(1));
    for (int point = 0; point <= 2; ++point)
        for (int axis = 0; axis <= 1; ++axis) {
            EXPECT_EQ(Model.RunTable.VelXY(1, point, axis), 0.0);
            EXPECT_EQ(Model.RunTable.AccXY(1, point, axis), 0.0);
        }
    EXPECT_EQ(Model.RunTable.OmegaRatio(1), ratio);
    EXPECT_EQ(Model.RunTable.MechAdvantage(1), 7.0) << "nothing is carried forward, and nothing is written";
}

TEST_F(OnePosition, CouplerAndRockerInOneLineAreRejectedAsIndeterminate) {
    // The crank lies along the ground, 5 short of O4; coupler 8 and rocker 3 are folded over those 5. Every constant
    // of this position is exact, so that both angles come out as 0.
    Lengths(6, 1, 8, 3);
    Model.RunTable.PointXY(0, 1, 0) = 9;
    Solve(0);
    EXPECT_FALSE(Model.RunTable.Assembled(0));
    EXPECT_TRUE(Model.NoConnectSeen);
    EXPECT_EQ(Model.Theta3Rad, 0.0);
    EXPECT_EQ(Model.Theta4Rad, 0.0);
    EXPECT_EQ(Model.RunTable.PointXY(0, 1, 0), 0.0);
}

TEST_F(OnePosition, AbsoluteModeAddsOneTurnOnce) {
    Solve(-10);
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), 350, 1e-4);
    Solve(-370);
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), -10, 1e-4);
}

TEST_F(OnePosition, HalfTurnModeTakesOneTurnOffAbove180Only) {
    Model.ModuloMode = "180";
    Solve(270);
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), -90, 1e-4);
    Solve(180);
    EXPECT_EQ(Model.RunTable.Theta(0, 0), 180.0);
}

TEST_F(OnePosition, OtherModesWrapNothing) {
    Model.ModuloMode = "none";
    Solve(-370);
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), -370, 1e-4);
    Solve(500);
    EXPECT_NEAR(Model.RunTable.Theta(0, 0), 500, 1e-4);
}

TEST_F(OnePosition, ExactTurnIsMendedAtTheFirstStepAlone) {
    Model.Theta2Rad = 360 * kDegToRad;
    Model.Link1Angle = 360 - Model.Theta2Rad * kRadToDeg;  // so that the sum is 360 as a single
    Integer result = kRetrying;
    Calculate(0, result);
    EXPECT_EQ(Model.RunTable.Theta(0, 0), 0.0);
    Calculate(3, result);
    EXPECT_EQ(Model.RunTable.Theta(3, 0), 360.0);
}

TEST_F(OnePosition, CentimetresScaleTheTableAndLeaveTheScratchInMetres) {
    Model.Units = 4;
    Solve(45);
    EXPECT_EQ(Model.RunTable.PointXY(0, 0, 0), static_cast<double>(Single(Model.Ax * 100)));
    EXPECT_NEAR(Model.Ax, 1.115 * std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(Model.RunTable.AccXY(0, 3, 0), -Model.L4 * Model.Omega4Sq * 100, 1e-3);
}

TEST_F(OnePosition, TransmissionAngleLiesWithinARightAngle) {
    for (int degrees = 0; degrees < 360; degrees += 7) {
        Solve(degrees);
        const double between = std::fabs(Model.Theta4Rad - Model.Theta3Rad) * 180 / std::acos(-1.0);
        const double folded = std::fmod(between, 180.0);
        EXPECT_NEAR(Model.RunTable.Theta(0, 3), std::min(folded, 180 - folded), 1e-3) << degrees;
    }
}

TEST_F(OnePosition, ImportedMotionKeepsItsOwnSpeedAndEndsWithItsAcceleration) {
    Model.Calctype = 4;
    Model.RunTable.Omega(2, 0) = 3;
    Model.RunTable.Alpha(2, 0) = 4;
    Model.Omega2 = 3;
    Model.Alpha2 = 100;  // left by the step before
    Model.ImportedAlpha2 = 4;
    Solve(60, 2);
    EXPECT_EQ(Model.RunTable.Omega(2, 0), 3.0);
    EXPECT_EQ(Model.RunTable.Alpha(2, 0), 4.0);
    EXPECT_EQ(Model.Alpha2, 4.0);
    EXPECT_EQ(Model.RunTable.FixedCentrode(2, 0, 0), 0.0) << "driven runs have no centrodes";
}

TEST_F(OnePosition, ImportedMotionTakesOneTermFromThePreviousStepsAcceleration) {
    Model.Calctype = 5;
    Model.Omega2 = 3;
    Model.ImportedAlpha2 = 4;
    Model.Alpha2 = 4;
    Solve(60, 2);
    const double settled = Model.Alpha3;
    Model.Alpha2 = 100;
    Solve(60, 2);
    // The x row of the loop holds 100 and the y row 4: solved anew in double.
    const double s2 = std::sin(Model.Theta2Rad), c2 = std::cos(Model.Theta2Rad);
    const double s3 = std::sin(Model.Theta3Rad), c3 = std::cos(Model.Theta3Rad);
    const double s4 = std::sin(Model.Theta4Rad), c4 = std::cos(Model.Theta4Rad);
    const double w2 = 3, w3 = Model.Omega3, w4 = Model.Omega4;
    const double a11 = -Model.L3 * s3, a12 = Model.L4 * s4, a21 = Model.L3 * c3, a22 = -Model.L4 * c4;
    const double b1 = 100 * Model.L2 * s2 + w2 * w2 * Model.L2 * c2 + w3 * w3 * Model.L3 * c3 - w4 * w4 * Model.L4 * c4;
    const double b2 = -4 * Model.L2 * c2 + w2 * w2 * Model.L2 * s2 + w3 * w3 * Model.L3 * s3 - w4 * w4 * Model.L4 * s4;
    const double alpha3 = (b1 * a22 - a12 * b2) / (a11 * a22 - a12 * a21);
    EXPECT_NEAR(Model.Alpha3, alpha3, std::fabs(alpha3) * 1e-5);
    EXPECT_NE(Model.Alpha3, settled);
}

TEST_F(OnePosition, ZeroLeadingCoefficientOfTheCouplerIsReportedAsADivisionByZeroAndTheStepStaysZeroed) {
    // L4 = L1 - L2 + L3: at angle 0 the coupler's leading coefficient is exactly 0, while the rocker's is not, since
    // its constants are rounded.
    Lengths(4, 1, 2, 5);
    Model.RunTable.PointXY(0, 1, 0) = 5;
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Calculate\r\n\r\n");
    Solve(0);
    EXPECT_FALSE(Model.RunTable.Assembled(0));
    EXPECT_EQ(Model.RunTable.PointXY(0, 1, 0), 0.0);
    EXPECT_EQ(Model.Ax, 1.0) << "the crank pin was stored before";
}

TEST_F(OnePosition, ZeroLengthIsADivisionByZero) {
    Lengths(3, 0, 2, 4);
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Calculate\r\n\r\n");
    Solve(30);
    EXPECT_FALSE(Model.RunTable.Assembled(0));
}

TEST_F(OnePosition, AtAnySpeedResultsAreNumbersOrTheFailureIsTold) {
    int told = 0;
    for (const double speed : {1e18, 8e18, 1.2e19, 1.5e19, 1.8e19})
        for (int degrees = 0; degrees < 360; degrees += 15) {
            Model.Omega2 = speed;
            Model.Alpha2 = 0;
            Model.Alpha3 = Model.Alpha4 = 9;
            Notes notes(desktop);
            Solve(degrees);
            EXPECT_EQ(notes.Messages().empty(), Model.RunTable.Assembled(0)) << speed << " " << degrees;
            EXPECT_TRUE(std::isfinite(double{Model.Alpha3}) && std::isfinite(double{Model.Alpha4}));
            told += Model.RunTable.Assembled(0) ? 0 : 1;
        }
    EXPECT_GT(told, 10);
    EXPECT_LT(told, 110);
}

TEST_F(OnePosition, LengthsWhoseRatioNoNumberHoldsAreReportedAsAnOverflow) {
    Lengths(1e20, 1e-20, 1e20, 1e-20);
    for (const double degrees : {0.0, 60.0, 180.0}) {
        desktop.Expect_Message("Error 6   (Overflow)  has occurred in Calculate\r\n\r\n");
        Solve(degrees);
        EXPECT_FALSE(Model.RunTable.Assembled(0));
    }
}

TEST_F(OnePosition, RowsOfTheMassCentresStand) {
    auto& table = Model.RunTable;
    for (int axis = 0; axis <= 1; ++axis) {
        for (int row = 3; row <= 5; ++row) table.VelXY(1, row, axis) = 7;
        for (int row = 5; row <= 7; ++row) table.AccXY(1, row, axis) = 7;
        table.PointXY(1, 3, axis) = 7;
    }
    Model.Units = 5;
    Solve(30, 1);
    EXPECT_TRUE(table.Assembled(1));
    for (int axis = 0; axis <= 1; ++axis) {
        for (int row = 3; row <= 5; ++row) EXPECT_EQ(table.VelXY(1, row, axis), 7);
        for (int row = 5; row <= 7; ++row) EXPECT_EQ(table.AccXY(1, row, axis), 7);
        EXPECT_EQ(table.PointXY(1, 3, axis), 7);
    }
}

TEST_F(OnePosition, StepOutsideTheTableIsASubscriptFailure) {
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Calculate\r\n\r\n");
    Solve(30, 2881);
}

}  // namespace
}  // namespace verlink::test
