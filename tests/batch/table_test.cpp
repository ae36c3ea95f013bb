// The table of a run: its layout to the letter, and every column against an exact solution.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/batch/batch_fixture.h"
#include "tests/batch/exact_linkage.h"

namespace verlink::test {

namespace {

const ExactLinkage kLever{2.667L, 1.115L, 2.5L, 2.5L, 1.697L, -92.66L};

struct Table : BatchFixture {
    /// The angle between two directions, degrees.
    static double Apart(double a, Exact b) { return std::abs(std::remainder(a - static_cast<double>(b), 360.0)); }

    static void Expect_Vector(const CsvTable& table, int row, const std::string& name, Point exact, double scale) {
        const double close = 3e-6 * scale;
        EXPECT_NEAR(table.At(row, name + " X"), static_cast<double>(exact.real()), close) << name << " " << row;
        EXPECT_NEAR(table.At(row, name + " Y"), static_cast<double>(exact.imag()), close) << name << " " << row;
        EXPECT_NEAR(table.At(row, name + " Mag"), static_cast<double>(std::abs(exact)), close) << name << " " << row;
        if (std::abs(exact) > 0.01L * static_cast<Exact>(scale)) {
            EXPECT_LT(Apart(table.At(row, name + " Ang"), Degrees(std::arg(exact))), 0.02) << name << " " << row;
        }
    }

    static void Expect_Centrode(const CsvTable& table, int row, const std::string& name, Point exact) {
        // Far away the pole hangs on the small difference of two directions.
        const double close = 2e-5 * (1 + static_cast<double>(std::norm(exact)));
        EXPECT_NEAR(table.At(row, name + " X"), static_cast<double>(exact.real()), close) << name << " " << row;
        EXPECT_NEAR(table.At(row, name + " Y"), static_cast<double>(exact.imag()), close) << name << " " << row;
    }

    struct Rates {
        Exact om2, al2;
    };
    /// Every column of a row against the exact position at the crank angle that the row itself gives. `factor`
    /// is the shown unit over the stored one, for lengths but those of the centrodes.
    static void Expect_Row(const CsvTable& table, int row, const ExactLinkage& linkage, Rates rates, double factor = 1,
                           bool centrodes = true) {
        const Exact f = factor;
        const auto p = linkage.At(table.At(row, "Theta2"), rates.om2, rates.al2);
        ASSERT_TRUE(p.closes);
        const double om = std::abs(static_cast<double>(rates.om2)), al = std::abs(static_cast<double>(rates.al2));
        const double length = factor * static_cast<double>(linkage.L1 + linkage.L3), speed = length * (om + 1),
                     rate = length * (om * om + al + 1);
        EXPECT_EQ(table.Text(row, "Assembled"), "1");
        EXPECT_LT(Apart(table.At(row, "Theta3"), Degrees(p.th3)), 1e-4);
        EXPECT_LT(Apart(table.At(row, "Theta4"), Degrees(p.th4)), 1e-4);
        const Exact between = std::abs(std::remainder(Degrees(p.th4 - p.th3), 180.0L));
        EXPECT_NEAR(table.At(row, "Trans Ang"), static_cast<double>(between), 2e-4);
        EXPECT_NEAR(table.At(row, "Omega2"), static_cast<double>(rates.om2), 2e-6 * (om + 1));
        EXPECT_NEAR(table.At(row, "Omega3"), static_cast<double>(p.om3), 3e-6 * (om + 1));
        EXPECT_NEAR(table.At(row, "Omega4"), static_cast<double>(p.om4), 3e-6 * (om + 1));
        EXPECT_NEAR(table.At(row, "Alpha2"), static_cast<double>(rates.al2), 2e-6 * (al + 1));
        EXPECT_NEAR(table.At(row, "Alpha3"), static_cast<double>(p.al3), 1e-5 * (om * om + al + 1));
        EXPECT_NEAR(table.At(row, "Alpha4"), static_cast<double>(p.al4), 1e-5 * (om * om + al + 1));
        Expect_Vector(table, row, "Veloc I 2,3", f * p.vA, speed);
        Expect_Vector(table, row, "Veloc I 3,4", f * p.vB, speed);
        Expect_Vector(table, row, "Veloc CP", f * p.vP, speed);
        Expect_Vector(table, row, "Accel I 2,3", f * p.aA, rate);
        Expect_Vector(table, row, "Accel I 3,4", f * p.aB, rate);
        Expect_Vector(table, row, "Accel CP", f * p.aP, rate);
        Expect_Vector(table, row, "Coupler Pt", f * p.P, length);
        if (rates.om2 != 0) {
            EXPECT_NEAR(table.At(row, "w4 / w2"), static_cast<double>(p.om4 / rates.om2), 3e-6);
            EXPECT_NEAR(1 / table.At(row, "T4 / T2"), static_cast<double>(p.om4 / rates.om2), 3e-6);
        }
        if (!centrodes) return;
        const auto first = linkage.At(table.At(0, "Theta2"), rates.om2, rates.al2);
        Expect_Centrode(table, row, "Fixed Centrode", p.pole);
        const Point carried = ExactLinkage::Carried(p, first);
        Expect_Centrode(table, row, "Moving Centrode", carried);
    }
};

constexpr char kHeader[] =
    "Step,Assembled,Theta2,Theta3,Theta4,Trans Ang,Omega2,Omega3,Omega4,Alpha2,Alpha3,Alpha4,"
    "\"Veloc I 2,3 X\",\"Veloc I 2,3 Y\",\"Veloc I 2,3 Mag\",\"Veloc I 2,3 Ang\","
    "\"Veloc I 3,4 X\",\"Veloc I 3,4 Y\",\"Veloc I 3,4 Mag\",\"Veloc I 3,4 Ang\","
    "Veloc CP X,Veloc CP Y,Veloc CP Mag,Veloc CP Ang,"
    "\"Accel I 2,3 X\",\"Accel I 2,3 Y\",\"Accel I 2,3 Mag\",\"Accel I 2,3 Ang\","
    "\"Accel I 3,4 X\",\"Accel I 3,4 Y\",\"Accel I 3,4 Mag\",\"Accel I 3,4 Ang\","
    "Accel CP X,Accel CP Y,Accel CP Mag,Accel CP Ang,"
    "Coupler Pt X,Coupler Pt Y,Coupler Pt Mag,Coupler Pt Ang,w4 / w2,T4 / T2,"
    "Fixed Centrode X,Fixed Centrode Y,Moving Centrode X,Moving Centrode Y";

}  // namespace

TEST_F(Table, StartsWithItsHeaderLine) {
    const std::string out = Run(ModelText()).out;
    EXPECT_EQ(out.substr(0, out.find('\n')), kHeader);
    EXPECT_EQ(out.find('\r'), std::string::npos);
}

TEST_F(Table, HasARowForEachStepFromZeroToTheLast) {
    const CsvTable table = Run(ModelText()).Table();
    ASSERT_EQ(table.Rows(), 37);
    for (int row = 0; row < table.Rows(); ++row) EXPECT_EQ(table.Text(row, "Step"), std::to_string(row));
}

TEST_F(Table, OfARunInTimeHasATimeForEachStepOthersHaveNone) {
    const std::string by_angle = Run(ModelText().Set(kTimeStart, "-2.5").Set(kTimeStep, "0.1")).out;
    EXPECT_EQ(by_angle.substr(0, 22), "Step,Assembled,Theta2,");
    const std::string one_position = Run(ModelText().Set(kCalctype, "1")).out;
    EXPECT_EQ(one_position.substr(0, 22), "Step,Assembled,Theta2,");

    ModelText model;
    const std::string in_time = Run(model.Times("-2.5", "1.1", "0.1")).out;
    EXPECT_EQ(in_time.substr(0, 27), "Step,Assembled,Time,Theta2,");
    const CsvTable table = Run(model).Table();
    ASSERT_EQ(table.Rows(), 37);
    EXPECT_EQ(table.Text(0, "Time"), "-2.5");
    EXPECT_EQ(table.Text(25, "Time"), "3.7252903e-08");  // what is left of 25 times the single nearest 0.1
    EXPECT_EQ(table.At(36, "Time"), 1.1F);
}

TEST_F(Table, AgreesWithTheExactSolutionOnTheOpenCircuit) {
    const CsvTable table = Run(ModelText()).Table();
    for (int row = 0; row < table.Rows(); ++row) {
        EXPECT_LT(Apart(table.At(row, "Theta2"), 45 + 10 * row), 2e-4);
        Expect_Row(table, row, kLever, {10, 0});
    }
}

TEST_F(Table, AgreesWithTheExactSolutionOnTheCrossedCircuit) {
    const CsvTable table = Run(ModelText().Set(kCircuit, "2")).Table();
    ExactLinkage crossed = kLever;
    crossed.crossed = true;
    for (int row = 0; row < table.Rows(); ++row) Expect_Row(table, row, crossed, {10, 0});
}

TEST_F(Table, VectorsAndCentrodesAreGlobalOnARotatedGround) {
    ModelText polar;
    polar.Set(kPolar, "#TRUE#").Set(kLink1Angle, "30").Set(kLink1AngleRad, "0.5235988");
    const CsvTable table = Run(polar).Table();
    ExactLinkage turned = kLever;
    turned.Ground = 30;
    for (int row = 0; row < table.Rows(); ++row) Expect_Row(table, row, turned, {10, 0});
}

TEST_F(Table, TakesTheGroundLinkFromItsPolarFormWhenTheModelSaysSo) {
    ModelText model;
    model.Set(kPolar, "#TRUE#").Set(kL1, "3").Set(kLink1Angle, "-20").Set(kLink1X, "9").Set(kLink1Y, "9");
    const CsvTable table = Run(model).Table();
    ExactLinkage expected = kLever;
    expected.L1 = 3;
    expected.Ground = -20;
    for (int row = 0; row < table.Rows(); ++row) Expect_Row(table, row, expected, {10, 0});
}

TEST_F(Table, TakesTheGroundLinkFromThePivotWhenTheModelSaysSo) {
    ModelText model;
    model.Set(kL1, "9").Set(kLink1Angle, "77").Set(kLink1X, "-2").Set(kLink1Y, "2");
    const CsvTable table = Run(model).Table();
    ExactLinkage expected = kLever;
    expected.L1 = std::hypot(2.0L, 2.0L);
    expected.Ground = 135;
    for (int row = 0; row < table.Rows(); ++row) Expect_Row(table, row, expected, {10, 0});
}

TEST_F(Table, TakesTheModelsOwnNumbersAndNoneThatABoxHasRounded) {
    // A box would show 1.115 for both lengths.
    const CsvTable plain = Run(ModelText()).Table();
    const CsvTable longer = Run(ModelText().Set(kL2, "1.11504")).Table();
    EXPECT_NE(plain.Text(0, "Coupler Pt X"), longer.Text(0, "Coupler Pt X"));
    ExactLinkage expected = kLever;
    expected.L2 = 1.11504L;
    Expect_Row(longer, 7, expected, {10, 0});
}

TEST_F(Table, RunsBackwardsAtANegativeSpeed) {
    const CsvTable table = Run(ModelText().Set(kOmega2, "-4")).Table();
    ASSERT_EQ(table.Rows(), 37);
    for (int row = 0; row < table.Rows(); ++row) {
        EXPECT_LT(Apart(table.At(row, "Theta2"), 405 - 10 * row), 2e-4);
        Expect_Row(table, row, kLever, {-4, 0});
    }
}

TEST_F(Table, AtSpeedZeroEveryStepRepeatsTheLastAngle) {
    const CsvTable table = Run(ModelText().Set(kOmega2, "0")).Table();
    ASSERT_EQ(table.Rows(), 37);
    for (int row = 0; row < table.Rows(); ++row) {
        EXPECT_LT(Apart(table.At(row, "Theta2"), 405), 1e-4);
        EXPECT_EQ(table.Text(row, "Omega4"), table.Text(0, "Omega4"));
        EXPECT_EQ(table.At(row, "Omega4"), 0);
    }
}

TEST_F(Table, ARangeThatIsNoMultipleOfTheStepEndsAtItsLimit) {
    const CsvTable table = Run(ModelText().Angles("0", "100", "40")).Table();
    ASSERT_EQ(table.Rows(), 4);
    EXPECT_LT(Apart(table.At(2, "Theta2"), 80), 1e-4);
    EXPECT_LT(Apart(table.At(3, "Theta2"), 100), 1e-4);
}

TEST_F(Table, TimeStepsTurnTheCrankWithConstantAcceleration) {
    ModelText model;
    model.Times("0", "2", "0.1").Set(kThetaZero, "25").Set(kOmega2, "3").Set(kAlpha2, "1.5");
    const CsvTable table = Run(model).Table();
    ASSERT_EQ(table.Rows(), 21);
    for (int row = 0; row < table.Rows(); ++row) {
        const Exact t = 0.1L * row;
        EXPECT_NEAR(table.At(row, "Time"), static_cast<double>(t), 1e-6);
        EXPECT_LT(Apart(table.At(row, "Theta2"), 25 + Degrees(3 * t + 0.75L * t * t)), 3e-4);
        Expect_Row(table, row, kLever, {3 + 1.5L * t, 1.5L});
    }
}

TEST_F(Table, OnePositionIsOneRow) {
    const CsvTable table = Run(ModelText().Set(kCalctype, "1").Set(kThetaZero, "60").Set(kAlpha2, "7")).Table();
    ASSERT_EQ(table.Rows(), 1);
    EXPECT_LT(Apart(table.At(0, "Theta2"), 60), 1e-4);
    Expect_Row(table, 0, kLever, {10, 7});
}

TEST_F(Table, InMetricSystemsLengthsAreInTheShownUnitAndCentrodesInMetres) {
    const std::pair<const char*, double> systems[] = {{"1", 1}, {"2", 1}, {"3", 1}, {"4", 100}, {"5", 1000}};
    for (const auto& [units, factor] : systems) {
        SCOPED_TRACE(units);
        ModelText model;
        model.Linkage({"0.2667", "0.1115", "0.25", "0.25"}, "0.1697", "-92.66").Set(kUnits, units);
        const CsvTable table = Run(model).Table();
        ExactLinkage small{0.2667L, 0.1115L, 0.25L, 0.25L, 0.1697L, -92.66L};
        for (int row = 0; row < table.Rows(); ++row) Expect_Row(table, row, small, {10, 0}, factor);
    }
}

TEST_F(Table, AParallelogramHasNoCentrodes) {
    ModelText model;
    model.Linkage({"3", "1", "3", "1"}, "1", "20").Angles("10", "100", "10");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    for (int row = 0; row < table.Rows(); ++row)
        for (const char* column : {"Fixed Centrode X", "Fixed Centrode Y", "Moving Centrode X", "Moving Centrode Y"})
            EXPECT_EQ(table.Text(row, column), "0");
}

TEST_F(Table, AVerticalRockerIsSaidAndLeavesTheFixedCentrodeAtZero) {
    ModelText model;
    model.Linkage({"2", "1", "1.25", "0.75"}, "1", "20").Set(kCalctype, "1").Set(kThetaZero, "0");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "Line 2 is vertical, has infinite slope\n");
    EXPECT_EQ(outcome.Table().Text(0, "Fixed Centrode X"), "0");
}

TEST_F(Table, ACamDrivenModelReplaysItsDriveTable) {
    ModelText model;
    model.Drive(4, {"10,2,5", "12.5,2.25,5", "20,3,5", "31,4,5"});
    model.Set(kCamDirection, "-1").Set(kCamPhase, "100").Set(kThetaZero, "15").Set(kDelta2, "5").Set(kAlpha2, "5");
    model.Set(kCamDriven, "#TRUE#");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 4);
    const double angles[] = {10, 12.5, 20, 31}, speeds[] = {2, 2.25, 3, 4};
    for (int row = 0; row < 4; ++row) {
        EXPECT_LT(Apart(table.At(row, "Theta2"), static_cast<Exact>(-angles[row] + 100 + 15 - 5)), 1e-4);
        Expect_Row(table, row, kLever, {static_cast<Exact>(speeds[row]), 5}, 1, false);
        EXPECT_EQ(table.Text(row, "Fixed Centrode X"), "0");
    }
}

TEST_F(Table, ALinkDrivenModelReplaysItsDriveTable) {
    ModelText model;
    model.Drive(5, {"30,1,0", "40,1,0", "50,1,0"}).Set(kDelta2, "7").Set(kAlpha2, "0");
    const CsvTable table = Run(model).Table();
    ASSERT_EQ(table.Rows(), 3);
    for (int row = 0; row < 3; ++row) {
        EXPECT_LT(Apart(table.At(row, "Theta2"), 37 + 10 * row), 1e-4);
        Expect_Row(table, row, kLever, {1, 0}, 1, false);
    }
}

TEST_F(Table, ADriveTableOfOneRowIsOneRow) {
    const Outcome outcome = Run(ModelText().Drive(5, {"30,1,0"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 1);
    EXPECT_LT(Apart(table.At(0, "Theta2"), 30), 1e-4);
}

TEST_F(Table, RowsThatDoNotCloseStandAsTheRunLeftThem) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Angles("-60", "100", "20");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.status, 0);
    const CsvTable table = outcome.Table();
    const ExactLinkage watt{2.5L, 1.25L, 0.625L, 1.25L, 0.3125L, 0};
    ASSERT_EQ(table.Rows(), 9);
    int gaps = 0;
    for (int row = 0; row < 9; ++row) {
        SCOPED_TRACE(row);
        const bool closes = watt.At(-60 + 20 * row).closes;
        EXPECT_EQ(table.Text(row, "Assembled"), closes ? "1" : "0");
        if (closes) continue;
        ++gaps;
        EXPECT_NEAR(table.At(row, "Theta2"), -60 + 20 * row, 0.005);  // two decimals, not wrapped
        for (const char* column : {"Theta3", "Omega2", "Alpha4", "Veloc I 2,3 Mag", "Accel CP Ang", "Coupler Pt X",
                                   "w4 / w2", "T4 / T2", "Moving Centrode Y"})
            EXPECT_EQ(table.At(row, column), 0) << column;
    }
    EXPECT_GT(gaps, 0);
    EXPECT_EQ(outcome.err, "verlink-batch: " + std::to_string(gaps) + " of 9 positions do not close\n");
}

TEST_F(Table, ADrivenModelAsksOnceAndIsToldToIgnore) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0");
    model.Drive(4, {"0,1,0", "90,1,0", "120,1,0"}).Set(kCamDirection, "1").Set(kCamDriven, "#TRUE#");
    const Outcome outcome = Run(model);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err,
              "Linkage cannot connect or is indeterminate at Theta2 =  90 Deg.\n\n\n"
              " ABORT - terminates further calculations beyond current position.\n\n"
              " RETRY - continues calculating and reports new problem positions.\n\n"
              "IGNORE - continues calculating with no further messages.\n\n"
              "verlink-batch: 2 of 3 positions do not close\n");
    EXPECT_EQ(outcome.Table().Text(1, "Omega2"), "1");  // imported, so kept
}

TEST_F(Table, TheLargestRunHas2881Rows) {
    const Outcome outcome = Run(ModelText().Angles("0", "360", "0.125"));
    EXPECT_EQ(outcome.status, 0);
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 2881);
    EXPECT_EQ(table.Text(2880, "Step"), "2880");
    EXPECT_EQ(table.Text(2880, "Assembled"), "1");
}

TEST_F(Table, EveryNumberIsTheShortestThatReadsBack) {
    const CsvTable table = Run(ModelText()).Table();
    for (int row = 0; row < table.Rows(); ++row)
        for (const std::string& column : table.Header()) {
            const std::string& text = table.Text(row, column);
            const float value = std::strtof(text.c_str(), nullptr);
            // Printed with ever more digits, the first that reads back must not be fewer than are there.
            int digits = 1;
            char shorter[64];
            do std::snprintf(shorter, sizeof shorter, "%.*g", digits, static_cast<double>(value));
            while (std::strtof(shorter, nullptr) != value && ++digits < 12);
            int there = 0;
            bool leading = true;
            for (const char c : text.substr(0, text.find('e'))) {
                if (c == '0' && leading) continue;
                if (c < '0' || c > '9') continue;
                leading = false;
                ++there;
            }
            if (text.find('.') == std::string::npos) continue;
            EXPECT_LE(there, digits) << text;
        }
}

}  // namespace verlink::test
