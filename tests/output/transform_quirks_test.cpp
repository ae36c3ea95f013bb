// What the transform does on purpose: the cut, the doubling, the phase rule, the sample that is left out.
#include <gtest/gtest.h>

#include "tests/output/transform_fixture.h"

namespace verlink::test {

namespace {

struct DftQuirks : Dft {
    static void Expect_Zeros(int first, int last) {
        for (int i = first; i <= last; ++i)
            for (int row = 0; row <= 3; ++row) EXPECT_EQ(Result(i, row), 0) << i << ", " << row;
    }
};

}  // namespace

TEST_F(DftQuirks, AConstantHasItsMeanAndNothingElse) {
    for (const int N : {1, 2, 36, 37, 100}) {
        SCOPED_TRACE(N);
        Transform_Samples(Signal(N, [](double) { return 2.5; }));
        EXPECT_EQ(Result(0, 0), 2.5F);
        EXPECT_EQ(Result(0, 1), 0);
        EXPECT_EQ(Result(0, 2), 2.5F);
        EXPECT_EQ(Result(0, 3), 0);
        Expect_Zeros(1, 200);
        EXPECT_NEAR(Model.DFTTable(1, 0), 2.5, 1e-12);
        for (int k = 2; k <= N; ++k) EXPECT_EQ(Model.DFTTable(k, 0), 0);
    }
}

TEST_F(DftQuirks, ACosineOfOnePeriodHasItsAmplitudeAtTheFirstHarmonicByTheDoubling) {
    Transform_Samples(Signal(72, [](double turn) { return 8 * std::cos(turn); }));
    EXPECT_NEAR(Result(1, 0), 8, 1e-6);
    EXPECT_NEAR(Result(1, 2), 8, 1e-6);
    EXPECT_NEAR(Model.DFTTable(2, 0), 4, 1e-6);
    EXPECT_EQ(Result(0, 0), 0);
    Expect_Zeros(2, 36);
}

TEST_F(DftQuirks, TheMeanIsNotDoubled) {
    Transform_Samples(Signal(20, [](double turn) { return 3 + std::cos(turn); }));
    EXPECT_NEAR(Result(0, 0), 3, 1e-6);
    EXPECT_NEAR(Result(1, 0), 1, 1e-6);
}

TEST_F(DftQuirks, BehindTheLastHarmonicNothingIsLeftOfATransformBefore) {
    for (const int N : {1, 2, 7, 8}) {
        for (int i = 0; i <= kLastStep; ++i)
            for (int row = 0; row <= 3; ++row) Model.FFTResult(i, row) = 5;
        Transform_Samples(Signal(N, [](double turn) { return 8 * std::cos(turn); }));
        EXPECT_EQ(Model.HalfSamples, (N + 1) / 2);
        Expect_Zeros(std::max(1, (N + 1) / 2), kLastStep);
    }
}

TEST_F(DftQuirks, SampleZeroIsNotUsed) {
    const auto samples = Signal(30, [](double turn) { return std::sin(turn); });
    Transform_Samples(samples);
    const float before = Result(1, 1);
    Model.RunTable.Omega(0, 2) = -1e6;
    Integer last = 30;
    Do_DFT(last);
    EXPECT_EQ(Result(1, 1), before);
    EXPECT_EQ(Result(0, 0), 0);
}

TEST_F(DftQuirks, SmallRunningSumsStartAgainSoThatTinySamplesVanish) {
    // Each of 36 terms is 0.0000028: no sum gets off the ground, though the mean is 0.0001.
    Transform_Samples(Signal(36, [](double) { return 1e-4; }));
    Expect_Zeros(0, 40);
    // A term a little above the cut goes through.
    Transform_Samples(Signal(36, [](double) { return 36 * 1.1e-5; }));
    EXPECT_NEAR(Result(0, 0), 36 * 1.1e-5, 1e-9);
}

TEST_F(DftQuirks, TheCutTakesWhatARunningSumHadGathered) {
    // 0.00003 less 0.000025 leaves too little, so that the last sample stands alone.
    Transform_Samples({3 * 3e-5, -3 * 2.5e-5, 3 * 1.2e-5});
    EXPECT_NEAR(Result(0, 0), 1.2e-5, 1e-11);
}

TEST_F(DftQuirks, WithoutARealPartThePhaseIs90WhateverTheSignAndIsDoubledTo180) {
    for (const double sign : {1.0, -1.0}) {
        Transform_Samples(Signal(40, [&](double turn) { return sign * 6 * std::sin(turn); }));
        EXPECT_EQ(Result(1, 0), 0);
        EXPECT_NEAR(Result(1, 1), -6 * sign, 1e-6);
        EXPECT_NEAR(Result(1, 3), 180, 1e-4);
    }
}

TEST_F(DftQuirks, ThePhaseIsAPlainArcTangentAndIsDoubled) {
    // Up and to the left: 135 degrees, whose tangent is that of -45.
    Transform_Samples(Signal(40, [](double turn) { return -std::cos(turn) - std::sin(turn); }));
    EXPECT_NEAR(Result(1, 0), -1, 1e-6);
    EXPECT_NEAR(Result(1, 1), 1, 1e-6);
    EXPECT_NEAR(Result(1, 3), -90, 1e-4);
    EXPECT_NEAR(Model.DFTTable(2, 3), -45, 1e-4);
}

TEST_F(DftQuirks, ResultsEndBelowHalfTheSamplesAndAHigherIndexReadsZero) {
    for (const auto& [N, half] : {std::pair(1, 1), std::pair(2, 1), std::pair(9, 5), std::pair(10, 5)}) {
        SCOPED_TRACE(N);
        Transform_Samples(Signal(80, [](double turn) { return 50 * std::exp(-turn); }));
        EXPECT_NE(Result(39, 0), 0);
        Transform_Samples(Signal(N, [](double turn) { return 50 * std::exp(-turn); }));
        EXPECT_EQ(Model.HalfSamples, half);
        for (int i = 0; i < half; ++i) EXPECT_NE(Result(i, 2), 0) << i;
        Expect_Zeros(half, 100);
    }
}

TEST_F(DftQuirks, TheWorkAreaHoldsEveryHarmonicOnceFromIndexOne) {
    for (int row = 0; row <= 3; ++row) Model.DFTTable(0, row) = 5;
    Transform_Samples(Signal(8, [](double turn) { return 5 + std::cos(turn); }));
    for (int row = 0; row <= 3; ++row) EXPECT_EQ(Model.DFTTable(0, row), 0);
    EXPECT_NEAR(Model.DFTTable(1, 0), 5, 1e-6);
    EXPECT_NEAR(Model.DFTTable(2, 0), 0.5, 1e-6);
    EXPECT_NEAR(Model.DFTTable(8, 0), 0.5, 1e-6);  // the mirror image
    EXPECT_EQ(static_cast<float>(double{Model.DFTSmall}), 0.00001F);
}

TEST_F(DftQuirks, TheNumberOfSamplesStays) {
    Put(Signal(12, [](double) { return 1; }));
    Integer last = 12;
    Do_DFT(last);
    EXPECT_EQ(last, 12);
}

TEST_F(DftQuirks, MoreSamplesThanARunCanHaveAreReported) {
    Integer last = 2881;
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Do_DFT\r\n\r\n");
    Do_DFT(last);
}

}  // namespace verlink::test
