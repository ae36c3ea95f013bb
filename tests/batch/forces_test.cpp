// Forces, balance and its report from the command line, by the laws that their columns have to obey.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Vector = std::complex<double>;

const std::vector<std::string> kForceColumns = {
    "Force 12 X",   "Force 32 Y",   "Force 43 Mag",   "Force 14 Ang",   "F Shaking X",    "Torque 12",
    "M Shaking",    "Torque L3",    "Torque L4",      "F Inertia L2 X", "F Inertia L3 Y", "F Inertia L4 Mag",
    "Veloc CG 2 X", "Veloc CG 3 Y", "Veloc CG 4 Mag", "Accel CG 2 Ang", "Accel CG 3 X",   "Accel CG 4 Y"};
const std::vector<std::string> kBalancedColumns = {"F Shk Balcd X", "MShk Balcd", "F12 Balcd Y", "F14 Balcd Mag",
                                                   "Flywl Torque"};

struct Forces : BatchFixture {
    Forces() { model.Set(kFirstMass, "0.003").Set(kFirstMass + 1, "0.006").Set(kFirstMass + 2, "0.0075"); }
    /// The rest of the masses, by the names of the fields.
    static std::vector<std::string> With_Masses(const std::vector<std::string>& options) {
        std::vector<std::string> all;
        for (const char* field : {"LinkMass(2)=0.003", "LinkMass(3)=0.006", "LinkMass(4)=0.0075",
                                  "LinkInertia(2)=0.028", "LinkInertia(3)=0.22", "LinkInertia(4)=0.129", "CG(2,0)=0.5",
                                  "CG(3,0)=0.9", "CG(4,0)=1", "CG(2,1)=0.1", "CG(3,1)=-0.8726646", "CG(4,1)=0.3"})
            all.insert(all.end(), {"--set", field});
        all.insert(all.end(), options.begin(), options.end());
        return all;
    }
    Outcome Solved(const std::vector<std::string>& options) const { return Run(model, With_Masses(options)); }

    static Vector At(const CsvTable& table, int row, const std::string& variable) {
        return {table.At(row, variable + " X"), table.At(row, variable + " Y")};
    }
    static double Dot(Vector a, Vector b) { return (std::conj(a) * b).real(); }
    static bool Has(const CsvTable& table, const std::string& column) {
        const auto& header = table.Header();
        return std::find(header.begin(), header.end(), column) != header.end();
    }
    static void Expect_Near(Vector found, Vector expected, double tolerance) {
        EXPECT_NEAR(found.real(), expected.real(), tolerance);
        EXPECT_NEAR(found.imag(), expected.imag(), tolerance);
    }
    ModelText model;
};

}  // namespace

TEST_F(Forces, AreNoColumnsUntilTheyAreAskedFor) {
    const CsvTable table = Solved({}).Table();
    for (const auto& column : kForceColumns) EXPECT_FALSE(Has(table, column)) << column;
    const CsvTable solved = Solved({"--dynamics"}).Table();
    for (const auto& column : kForceColumns) EXPECT_TRUE(Has(solved, column)) << column;
    for (const auto& column : kBalancedColumns) EXPECT_FALSE(Has(solved, column)) << column;
    const CsvTable balanced = Solved({"--balance"}).Table();
    for (const auto& column : kForceColumns) EXPECT_TRUE(Has(balanced, column)) << column;
    for (const auto& column : kBalancedColumns) EXPECT_TRUE(Has(balanced, column)) << column;
}

TEST_F(Forces, TheColumnsObeyTheLawsOfMomentumAndPower) {
    const Outcome outcome = Solved({"--dynamics"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 37);
    const double masses[] = {0.003, 0.006, 0.0075}, inertias[] = {0.028, 0.22, 0.129};
    for (int row = 0; row < table.Rows(); ++row) {
        Vector momentum;
        double power = 0;
        for (int link = 2; link <= 4; ++link) {
            const std::string number = std::to_string(link);
            const Vector force = masses[link - 2] * At(table, row, "Accel CG " + number);
            Expect_Near(At(table, row, "F Inertia L" + number), -force, 1e-5);
            momentum += force;
            power += Dot(force, At(table, row, "Veloc CG " + number));
            power += inertias[link - 2] * table.At(row, "Alpha" + number) * table.At(row, "Omega" + number);
        }
        Expect_Near(At(table, row, "F Shaking"), -momentum, 1e-4);
        EXPECT_NEAR(table.At(row, "Torque 12") * table.At(row, "Omega2"), power, 2e-3);
    }
}

TEST_F(Forces, ExternalForcesAreThoseOfTheirMagnitudesAndAngles) {
    const CsvTable without = Solved({"--dynamics"}).Table();
    const CsvTable with = Solved({"--dynamics", "--set", "ExtForceMag(3)=5", "--set", "ExtForceAng(3)=40", "--set",
                                  "ExtForceMag(4)=3", "--set", "ExtForceAng(4)=-115"})
                              .Table();
    const double degree = std::numbers::pi / 180;
    const Vector load = std::polar(5.0, 40 * degree) + std::polar(3.0, -115 * degree);
    for (int row = 0; row < with.Rows(); ++row)
        Expect_Near(At(with, row, "F Shaking") - At(without, row, "F Shaking"), load, 1e-4);
}

TEST_F(Forces, AnImportedTorqueReplacesTheOneOnLink4StepByStep) {
    model.Drive(5, {"50,2,0", "60,2,0", "70,2,0"}).Set(94, "#TRUE#");
    const std::string path = Write("torque.vlk", model.Content() + "2\r\n-1\r\n0.5\r\n");
    const Outcome outcome =
        Run(With_Masses({path, "--dynamics", "--set", "ExtTorque(4)=9", "--set", "LinkInertia(4)=0"}));
    EXPECT_EQ(outcome.status, 0);
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 3);
    EXPECT_NEAR(table.At(0, "Torque L4"), 2, 1e-6);
    EXPECT_NEAR(table.At(1, "Torque L4"), -1, 1e-6);
    EXPECT_NEAR(table.At(2, "Torque L4"), 0.5, 1e-6);
}

TEST_F(Forces, BalanceLeavesNoShakingForceAndATwentiethOfTheTorquesPulses) {
    const Outcome outcome = Solved({"--balance"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const CsvTable table = outcome.Table();
    for (int row = 0; row < table.Rows(); ++row) {
        EXPECT_LT(table.At(row, "F Shk Balcd Mag"), 1e-4 * table.At(row, "F Shaking Mag"));
        EXPECT_NEAR(table.At(row, "Flywl Torque") - table.At(0, "Flywl Torque"),
                    0.05 * (table.At(row, "Torque 12") - table.At(0, "Torque 12")), 1e-5);
    }
    EXPECT_EQ(Solved({"--balance", "--dynamics"}).out, outcome.out);
}

TEST_F(Forces, AfterBalancingTheMassCentresAreThoseOfTheCounterweights) {
    const CsvTable report = Solved({"--balance-report"}).Table();
    const CsvTable table = Solved({"--balance"}).Table();
    for (int row = 0; row < table.Rows(); ++row) {
        EXPECT_NEAR(table.At(row, "Veloc CG 2 Mag"), report.At(0, "BerkRadius") * std::fabs(table.At(row, "Omega2")),
                    1e-4);
        EXPECT_NEAR(table.At(row, "Veloc CG 4 Mag"), report.At(1, "BerkRadius") * std::fabs(table.At(row, "Omega4")),
                    1e-4);
    }
}

TEST_F(Forces, TheReportIsWhatBalanceTakesUnrounded) {
    const Outcome outcome = Solved({"--balance-report"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("Link,MRNeeded,MRAngleDegrees,BerkMass,BerkRadius\n2,")) << outcome.out;
    const CsvTable report = outcome.Table();
    ASSERT_EQ(report.Rows(), 2);
    EXPECT_EQ(report.Text(1, "Link"), "4");
    // Link 3 shared between its two pins: complex masses there, which the counterweights hold on links 2 and 4.
    const double l2 = 1.115, l3 = 2.5, l4 = 2.5, degree = 180 / std::numbers::pi;
    const Vector at_b = 0.006 * std::polar(0.9, -0.8726646) / l3, at_a = 0.006 - at_b;
    const Vector need2 = -at_a * l2 - 0.003 * std::polar(0.5, 0.1);
    const Vector need4 = -at_b * l4 - 0.0075 * std::polar(1.0, 0.3);
    int row = 0;
    for (const auto& [need, length] : {std::pair(need2, l2), std::pair(need4, l4)}) {
        EXPECT_NEAR(report.At(row, "MRNeeded"), std::abs(need), 2e-8);
        EXPECT_NEAR(std::remainder(report.At(row, "MRAngleDegrees") - std::arg(need) * degree, 360), 0, 1e-4);
        EXPECT_NEAR(report.At(row, "BerkRadius"), length / 2, 1e-7);
        EXPECT_NEAR(report.At(row, "BerkMass"), std::abs(need) / (length / 2), 2e-8);
        ++row;
    }
}

TEST_F(Forces, TheReportRunsNothingAndStandsBehindTheClassification) {
    model.Angles("90", "45", "10");  // limits that no run would take
    const Outcome outcome = Solved({"--balance-report", "--classify"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out.starts_with("Grashof_Code,LongText,ToggleDegrees\nY,Linkage is Grashof,\nLink,MRNeeded,"))
        << outcome.out;
}

TEST_F(Forces, TheReportHasItsRadiusAsTheFileStoresLengths) {
    model.Linkage({"0.2", "0.06", "0.175", "0.14"}, "0.11", "28.25").Set(kUnits, "5");
    const CsvTable report = Solved({"--balance-report"}).Table();
    EXPECT_EQ(report.Text(0, "BerkRadius"), "0.03");
    EXPECT_EQ(report.Text(1, "BerkRadius"), "0.07");
}

TEST_F(Forces, ALinkWithoutLengthHasNoReport) {
    const Outcome outcome = Solved({"--balance-report", "--set", "L3=0"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "Error 11   (Division by zero)  has occurred in Berkof_Setup\n\n");
}

TEST_F(Forces, ABalanceWhoseCounterweightsNoSingleHoldsIsNoTable) {
    const Outcome outcome = Solved({"--balance", "--set", "LinkMass(3)=3E+38"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.ends_with("Error 6   (Overflow)  has occurred in Berkof_Setup\n\n")) << outcome.err;
}

TEST_F(Forces, OtherRunsThanByAngleAreNotBalanced) {
    const auto expect_refused = [&](const ModelText& text, const std::string& words) {
        const Outcome outcome = Run(text, With_Masses({"--balance"}));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, words);
    };
    ModelText one = model, timed = model, driven = model;
    one.Set(kCalctype, "1");
    expect_refused(one, "Cannot balance a linkage for one position.\nPlease recalculate for multi-positions.\n");
    timed.Times("0", "1", "0.1");
    expect_refused(timed, "Cannot balance a linkage for Time Steps.\nPlease recalculate for multi-positions.\n");
    driven.Drive(5, {"10,2,0", "20,2,0", "30,2,0"});
    expect_refused(driven, "Cannot balance a cam- or linkage-driven linkage.\n");
    EXPECT_EQ(Run(one, With_Masses({"--dynamics"})).status, 0);
}

TEST_F(Forces, AStepThatCannotBeSolvedIsToldAndSpoilsTheStatus) {
    // With the crank on the ground link, coupler and rocker do not meet: all angles are then 0.
    model.Linkage({"3", "2.5", "4", "2"}, "1", "0").Angles("0", "120", "60").Set(kOmega2, "-10");
    const Outcome outcome = Solved({"--dynamics"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "verlink-batch: 1 of 3 positions do not close\n"
              "There is a zero value on diagonal in column 7\n"
              "Error in Computing Simultaneous Equations at step    2\n");
    const CsvTable table = outcome.Table();
    ASSERT_EQ(table.Rows(), 3);
    EXPECT_GT(table.At(1, "Force 12 Mag"), 1);
    EXPECT_EQ(table.At(2, "Force 12 Mag"), 0);
}

TEST_F(Forces, AreFunctionsToTransformAndPlotOnceTheyAreSolvedFor) {
    for (const char* function : {"Force 12", "Torque 12", "Accel CG 3"}) {
        EXPECT_EQ(Solved({"--fft", function}).status, 2) << function;
        EXPECT_EQ(Solved({"--dynamics", "--fft", function}).status, 0) << function;
    }
    EXPECT_EQ(Solved({"--dynamics", "--fft", "F Shk Balcd"}).status, 2);
    EXPECT_EQ(Solved({"--balance", "--fft", "F Shk Balcd"}).status, 0);
    EXPECT_EQ(Solved({"--balance", "--svg", Path("t.svg"), "--plot", "Torque 12", "--plot", "Flywl Torque"}).status, 0);
    EXPECT_NE(Read(Path("t.svg")).find("<svg"), std::string::npos);
}

TEST_F(Forces, ThePictureHasTheMassCentresAndTheCounterweights) {
    const auto circles = [&](const std::vector<std::string>& options) {
        EXPECT_EQ(Solved(options).status, 0);
        const std::string svg = Read(Path("p.svg"));
        int count = 0;
        for (std::size_t at = svg.find("<circle"); at != std::string::npos; at = svg.find("<circle", at + 1)) ++count;
        return count;
    };
    const int plain = circles({"--svg", Path("p.svg")});
    EXPECT_EQ(circles({"--dynamics", "--svg", Path("p.svg")}), plain + 4);  // a dot at A among them
    EXPECT_EQ(circles({"--balance", "--svg", Path("p.svg")}), plain + 6);
}

}  // namespace verlink::test
