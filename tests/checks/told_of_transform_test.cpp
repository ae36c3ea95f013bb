// The inverse of a transform, added up harmonic by harmonic, beside the functions of the run.
#include "tests/checks/told.h"

namespace verlink::test {

namespace {

class Told_Of_Transform : public Told {
   protected:
    void Take_Run(int steps) {
        Take_Linkage(1);
        Model.L1 = 0.2667;
        Model.Omega2Input = 9;
        Take_Angles(0, 360, 360.0 / steps);
        Run_And_Balance();
        ASSERT_EQ(Model.NSteps, steps);
    }
    void Transform(const std::string& variable, const std::string& component = "X", bool local = false) {
        Select_Variable(variable, 1);
        Set_Component(component, 1);
        Model.CoordSystem = local ? 1 : 0;
        Model.PlotSlot = 1;
        Model.FFTUnitLabel = "its unit";
        Do_DFT(Model.NSteps);
        Transform_Holds();
    }
    /// Sum of all harmonics at a sample.
    double Inverse(int sample) const {
        const int N = Model.NSteps;
        double sum = f(0, 0);
        for (int k = 1; k < Model.HalfSamples; ++k) {
            const double turn = 2 * M_PI * k * (sample - 1) / N;
            sum += f(k, 0) * std::cos(turn) - f(k, 1) * std::sin(turn);
        }
        // The one at half the rate of sampling stands in the table that it was made in.
        if (N % 2 == 0) sum += (sample % 2 == 1 ? 1 : -1) * Model.DFTTable(N / 2 + 1, 0);
        return sum;
    }
    double Rounding() const {
        const int N = Model.NSteps;
        double sizes = std::abs(f(0, 0));
        for (int k = 1; k < Model.HalfSamples; ++k) sizes += std::abs(f(k, 0)) + std::abs(f(k, 1));
        if (N % 2 == 0) sizes += std::abs(Model.DFTTable(N / 2 + 1, 0)) + std::abs(Model.DFTTable(N / 2 + 1, 1));
        return sizes * (4 * kHalf + 1e-9 * N);
    }
    double Cutting() const {
        double passes = 1;
        for (int sample = 1; sample <= Model.NSteps; ++sample) {
            const double x = std::abs(Inverse(sample));
            passes += std::min(1.0, Model.NSteps * 1e-5 / (x + 1e-5));
        }
        return 120 * 1e-5 * std::sqrt(Model.NSteps * passes);
    }
    static double f(int k, int row) { return Model.FFTResult(k, row); }
    static Check Told_Now() { return Found("Inverse of the transform"); }
};

}  // namespace

TEST_F(Told_Of_Transform, NamesEachFunctionThatItGivesBack) {
    Take_Run(48);
    const std::tuple<const char*, const char*, bool, const char*> functions[] = {
        {"Theta3", "X", false, "Theta3"},
        {"Trans Ang", "X", false, "Trans Ang"},
        {"Omega4", "X", false, "Omega4"},
        {"Alpha3", "X", false, "Alpha3"},
        {"Veloc CP", "X", false, "Veloc CP X"},
        {"Veloc CP", "Y", false, "Veloc CP Y"},
        {"Veloc I 3,4", "Mag", false, "Veloc I 3,4 Mag"},
        {"Veloc I 3,4", "Ang", false, "Veloc I 3,4 Ang"},
        {"Accel CP", "X", true, "Accel CP X local"},
        {"Veloc I 3,4", "Y", true, "Veloc I 3,4 Y local"},
        {"w4 / w2", "X", false, "w4 / w2"},
        {"Force 14", "Y", false, "Force 14 Y"},
        {"Torque 12", "X", false, "Torque 12"},
        {"MShk Balcd", "X", false, "MShk Balcd"},
        {"Theta2", "X", false, "Theta2"},
    };
    for (const auto& [variable, component, local, words] : functions) {
        Transform(variable, component, local);
        const Check check = Told_Now();
        EXPECT_NE(check.verdict, Verdict::kFails) << words;
        EXPECT_EQ(check.where, words);
        EXPECT_EQ(check.unit, "its unit");
    }
}

TEST_F(Told_Of_Transform, ExpectsWhatTheCoefficientsRound) {
    for (const int steps : {48, 45, 24}) {
        Take_Run(steps);
        Transform("Omega4");
        Check check = Told_Now();
        EXPECT_NE(check.verdict, Verdict::kFails);
        EXPECT_NEAR(check.expected / Rounding(), 1, 1e-6);
        // A harmonic that is more is told by its size, beside what was told.
        const double off = check.worst;
        for (const int row : {0, 1}) {
            Model.FFTResult(1, row) += 1;
            Model.FFTResult(1, 2) = std::hypot(f(1, 0), f(1, 1));
            check = Told_Now();
            EXPECT_EQ(check.verdict, Verdict::kFails);
            double most = 0;
            for (int sample = 1; sample <= steps; ++sample)
                most = std::max(most, std::abs(Inverse(sample) - Model.RunTable.Omega(sample, 2)));
            EXPECT_NEAR(check.worst, most, 1e-5);
            EXPECT_GT(check.worst, 10 * off);
            Model.FFTResult(1, row) -= 1;
        }
    }
}

TEST_F(Told_Of_Transform, AMeanThatIsAnotherIsTold) {
    Take_Run(48);
    Transform("Omega4");
    const double off = Told_Now().worst;
    Model.FFTResult(0, 0) += 1;
    Model.FFTResult(0, 2) = std::abs(f(0, 0));
    EXPECT_EQ(Told_Now().verdict, Verdict::kFails);
    EXPECT_NEAR(Told_Now().worst, 1, off);
    EXPECT_NEAR(Told_Now().expected / Rounding(), 1, 1e-6);
}

TEST_F(Told_Of_Transform, WhatCuttingTakesIsByDesignAndNoMore) {
    Take_Run(48);
    Transform("Omega4");
    // The samples become what the harmonics give, so that they differ by what is put there alone.
    for (int sample = 1; sample <= 48; ++sample) Model.RunTable.Omega(sample, 2) = Inverse(sample);
    const Single kept = Model.RunTable.Omega(5, 2);
    const std::string meaning =
        "The harmonics of the transform give one of the run's functions back, and the magnitudes are those of their "
        "real "
        "and imaginary parts.";
    EXPECT_EQ(Told_Now().verdict, Verdict::kGood);
    EXPECT_EQ(Told_Now().meaning, meaning);
    const double rounding = Rounding(), most = rounding + Cutting();
    for (const double sign : {1.0, -1.0}) {
        Model.RunTable.Omega(5, 2) = kept + sign * 0.997 * most;
        EXPECT_EQ(Told_Now().verdict, Verdict::kByDesign);
        EXPECT_EQ(Told_Now().meaning,
                  meaning + " Sums below 0.00001 are cut to 0 as they grow, which takes so much of it.");
        EXPECT_NEAR(Told_Now().worst / (0.997 * most), 1, 1e-2);
        Model.RunTable.Omega(5, 2) = kept + sign * 1.003 * most;
        EXPECT_EQ(Told_Now().verdict, Verdict::kFails);
        EXPECT_EQ(Told_Now().meaning, meaning);
    }
}

TEST_F(Told_Of_Transform, MagnitudesAreThoseOfTheirPartsToEightHalfPlacesOfTheLargest) {
    Take_Run(48);
    Transform("Omega4");
    double size = 0;
    for (int k = 0; k < Model.HalfSamples; ++k) size = std::max(size, std::hypot(f(k, 0), f(k, 1)));
    for (const int k : {0, 1, 7, Model.HalfSamples - 1}) {
        const Single kept = Model.FFTResult(k, 2);
        const double own = std::hypot(f(k, 0), f(k, 1));
        for (const double sign : {1.0, -1.0}) {
            Model.FFTResult(k, 2) = own + sign * 10 * kHalf * size;
            EXPECT_EQ(Told_Now().verdict, Verdict::kFails) << k;
            Model.FFTResult(k, 2) = own + sign * 6 * kHalf * size;
            EXPECT_NE(Told_Now().verdict, Verdict::kFails) << k;
            Model.FFTResult(k, 2) = own + sign;
            EXPECT_NEAR(Told_Now().worst, 1, 1e-6) << k;
        }
        Model.FFTResult(k, 2) = kept;
    }
    Model.FFTResult(Model.HalfSamples, 2) = 1;
    EXPECT_NE(Told_Now().verdict, Verdict::kFails) << "it is none of the transform's";
}

TEST_F(Told_Of_Transform, OneSampleIsNoTransform) {
    Take_Run(48);
    Transform("Omega4");
    const auto has = [] {
        const std::vector<Check> checks = Checks_Of(Model);
        return std::ranges::find(checks, std::string("Inverse of the transform"), &Check::name) != checks.end();
    };
    for (const int steps : {1, 2, 3}) {
        Model.NSteps = steps;
        Do_DFT(Model.NSteps);
        EXPECT_EQ(has(), steps >= 2) << steps;
    }
}

}  // namespace verlink::test
