// Frames and transforms of verlink-batch, against the plain table and an exact transform.
#include "batch/functions.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "core/linkage_model.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Exact = long double;
constexpr Exact kTurn = 2 * std::numbers::pi_v<Exact>;

struct Functions : BatchFixture {
    static Outcome Refused_Usage(const Outcome& outcome, const std::string& fault) {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "verlink-batch: " + fault);
        EXPECT_NE(outcome.err.find("\nusage: verlink-batch MODEL.vlk"), std::string::npos);
        return outcome;
    }

    /// The rows of a transform beside an exact one of the rows 1 to the last of a column.
    static void Expect_Transform_Of(const CsvTable& table, const std::string& column, const CsvTable& spectrum) {
        EXPECT_EQ(spectrum.Header(), (std::vector<std::string>{"Harmonic", "Real", "Imag", "Mag", "Phase"}));
        const int N = table.Rows() - 1;
        ASSERT_EQ(spectrum.Rows(), (N + 1) / 2);
        Exact largest = 0;
        for (int n = 1; n <= N; ++n) largest = std::max<Exact>(largest, std::fabs(table.At(n, column)));
        const auto close = static_cast<double>(2e-5L + 3e-6L * largest);
        for (int k = 0; k < spectrum.Rows(); ++k) {
            Exact re = 0, im = 0;
            for (int n = 1; n <= N; ++n) {
                const Exact angle = kTurn * (k * (n - 1) % N) / N;
                re += table.At(n, column) * std::cos(angle) / N;
                im -= table.At(n, column) * std::sin(angle) / N;
            }
            const Exact times = k == 0 ? 1 : 2;
            EXPECT_EQ(spectrum.Text(k, "Harmonic"), std::to_string(k));
            EXPECT_NEAR(spectrum.At(k, "Real"), static_cast<double>(times * re), close) << k;
            EXPECT_NEAR(spectrum.At(k, "Imag"), static_cast<double>(times * im), close) << k;
            EXPECT_NEAR(spectrum.At(k, "Mag"), static_cast<double>(times * std::hypot(re, im)), close) << k;
            if (std::hypot(re, im) < 1000 * close) continue;
            const Exact phase = times * std::atan(im / re) * 360 / kTurn;
            EXPECT_NEAR(spectrum.At(k, "Phase"), static_cast<double>(phase), 0.2) << k;
        }
    }
};

}  // namespace

TEST_F(Functions, TheRecordHasTheNumberOfTheFrame) {
    Use_Frame(true);
    EXPECT_EQ(Model.CoordSystem, 2);
    EXPECT_EQ(Model.PlotSlot, kSlot);
    Use_Frame(false);
    EXPECT_EQ(Model.CoordSystem, 0);
}

TEST_F(Functions, TheFrameIsGlobalUnlessItIsGiven) {
    EXPECT_EQ(Run(ModelText(), {"--frame", "global"}).out, Run(ModelText()).out);
}

TEST_F(Functions, InTheLocalFrameEachVectorIsTurnedBackByItsOwnLink) {
    ModelText model;
    model.Set(kPolar, "#TRUE#").Set(kLink1Angle, "30").Set(kLink1AngleRad, "0.5235988");
    const CsvTable global = Run(model).Table();
    const CsvTable local = Run(model, {"--frame", "local"}).Table();
    ASSERT_EQ(local.Rows(), global.Rows());
    EXPECT_EQ(local.Header(), global.Header());
    const std::array<std::pair<const char*, const char*>, 7> links{{{"Veloc I 2,3", "Theta2"},
                                                                    {"Veloc I 3,4", "Theta4"},
                                                                    {"Veloc CP", "Theta3"},
                                                                    {"Accel I 2,3", "Theta2"},
                                                                    {"Accel I 3,4", "Theta4"},
                                                                    {"Accel CP", "Theta3"},
                                                                    {"Coupler Pt", "Theta3"}}};
    for (int row = 0; row < global.Rows(); ++row)
        for (const auto& [vector, angle] : links) {
            SCOPED_TRACE(std::string(vector) + " " + std::to_string(row));
            const Exact x = global.At(row, std::string(vector) + " X"), y = global.At(row, std::string(vector) + " Y");
            const Exact a = -global.At(row, angle) * kTurn / 360;
            const auto close = static_cast<double>(2e-4L + 1e-6L * std::hypot(x, y));
            EXPECT_NEAR(local.At(row, std::string(vector) + " X"),
                        static_cast<double>(x * std::cos(a) - y * std::sin(a)), close);
            EXPECT_NEAR(local.At(row, std::string(vector) + " Y"),
                        static_cast<double>(x * std::sin(a) + y * std::cos(a)), close);
            EXPECT_NEAR(local.At(row, std::string(vector) + " Mag"), static_cast<double>(std::hypot(x, y)), close);
        }
}

TEST_F(Functions, InTheLocalFrameScalarsAndCentrodesStay) {
    const CsvTable global = Run(ModelText()).Table();
    const CsvTable local = Run(ModelText(), {"--frame", "local"}).Table();
    for (int row = 0; row < global.Rows(); ++row)
        for (const char* column :
             {"Theta3", "Trans Ang", "Omega4", "Alpha3", "w4 / w2", "T4 / T2", "Fixed Centrode X", "Moving Centrode Y"})
            EXPECT_EQ(local.Text(row, column), global.Text(row, column)) << column;
}

TEST_F(Functions, ATransformHasARowForEachHarmonicBelowHalfTheSteps) {
    const CsvTable table = Run(ModelText()).Table();
    Expect_Transform_Of(table, "Omega4", Run(ModelText(), {"--fft", "Omega4"}).Table());
    Expect_Transform_Of(table, "Accel CP Mag", Run(ModelText(), {"--fft", "Accel CP:Mag"}).Table());
    Expect_Transform_Of(table, "Veloc I 2,3 Y", Run(ModelText(), {"--fft", "Veloc I 2,3:Y"}).Table());
}

TEST_F(Functions, ATransformTakesComponentXWhenNoneIsGiven) {
    const std::string given = Run(ModelText(), {"--fft", "Veloc CP:X"}).out;
    EXPECT_EQ(Run(ModelText(), {"--fft", "Veloc CP"}).out, given);
    Expect_Transform_Of(Run(ModelText()).Table(), "Veloc CP X", CsvTable(given));
}

TEST_F(Functions, ATransformIsTakenInTheFrameThatIsGiven) {
    const CsvTable local = Run(ModelText(), {"--frame", "local"}).Table();
    Expect_Transform_Of(local, "Accel I 3,4 X", Run(ModelText(), {"--frame", "local", "--fft", "Accel I 3,4"}).Table());
}

TEST_F(Functions, ATransformOfTimeStepsAndOfAnOddNumberOfThem) {
    ModelText model;
    model.Times("0", "1.5", "0.1").Set(kThetaZero, "25").Set(kOmega2, "3");
    Expect_Transform_Of(Run(model).Table(), "Theta4", Run(model, {"--fft", "Theta4"}).Table());
}

TEST_F(Functions, ATransformGoesToTheFileOfTheTable) {
    const std::string path = Path("harmonics.csv");
    const Outcome outcome = Run(ModelText(), {"--fft", "Omega4", "--csv", path});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(Read(path), Run(ModelText(), {"--fft", "Omega4"}).out);
    const Outcome saved = Run(ModelText(), {"--fft", "Omega4", "--csv", path, "--save", Path("b.vlk")});
    EXPECT_EQ(saved.status, 0);
    EXPECT_EQ(CsvTable(Read(path)).Rows(), 18);
}

TEST_F(Functions, OnePositionHasNoTransform) {
    const Outcome outcome = Run(ModelText().Set(kCalctype, "1"), {"--fft", "Omega4"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "verlink-batch: one position has no transform\n");
}

TEST_F(Functions, EachColumnOfATableIsAFunctionOfItsRunByItsLabel) {
    for (const bool forces : {false, true}) {
        std::vector<std::string> options{"--set", "LinkMass(3)=1.5"};
        if (forces) options.emplace_back("--dynamics");
        const Outcome outcome = Run(ModelText(), options);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        const CsvTable table = outcome.Table();
        int known = 0;
        for (const std::string& column : table.Header()) {
            const bool variable = column != "Step" && column != "Assembled" && column.find("Centrode") == column.npos;
            const int last = Last_Variable(forces, false);
            // A vector's has its component behind its label.
            EXPECT_EQ(Is_Variable(column, last) || Is_Variable(column.substr(0, column.rfind(' ')), last), variable)
                << column;
            known += variable ? 1 : 0;
        }
        EXPECT_GT(known, 19);
    }
}

TEST_F(Functions, AFunctionThatTheRunDoesNotHaveIsRefused) {
    Refused_Usage(Run(ModelText(), {"--fft", "Omega5"}), "there is no function \"Omega5\"");
    Refused_Usage(Run(ModelText(), {"--fft", "omega4"}), "there is no function \"omega4\"");
    Refused_Usage(Run(ModelText(), {"--fft", "Force 12"}), "there is no function \"Force 12\"");
    Refused_Usage(Run(ModelText(), {"--fft", "Current FFT"}), "there is no function \"Current FFT\"");
}

TEST_F(Functions, HelpTellsOfFramesTransformsAndPlots) {
    const Outcome outcome = Run({"--help"});
    for (const char* words :
         {"[--frame global|local]", "[--fft \"LABEL[:COMPONENT]\"]", "[--plot \"LABEL[:COMPONENT]\"]...",
          "  --frame global|local ", "  --fft FUNCTION ", "  --plot FUNCTION "})
        EXPECT_NE(outcome.out.find(words), std::string::npos) << words;
}

}  // namespace verlink::test
