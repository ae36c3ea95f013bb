// The generator gives the numbers that its authors publish, and normal deviates are normal.
#include "study/philox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace verlink::study {

namespace {

using Block = std::array<std::uint32_t, 4>;

TEST(Philox, GivesThePublishedAnswers) {
    EXPECT_EQ(Philox({0, 0, 0, 0}, {0, 0}), (Block{0x6627e8d5, 0xe169c58d, 0xbc57ac4c, 0x9b00dbd8}));
    constexpr std::uint32_t kOnes = 0xffffffff;
    EXPECT_EQ(Philox({kOnes, kOnes, kOnes, kOnes}, {kOnes, kOnes}),
              (Block{0x408f276d, 0x41c83b0e, 0xa20bc7c6, 0x6d5451fd}));
    EXPECT_EQ(Philox({0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344}, {0xa4093822, 0x299f31d0}),
              (Block{0xd16cfe09, 0x94fdcceb, 0x5001e420, 0x24126ea1}));
}

TEST(Philox, UniformNumbersFillTheirRangeEvenly) {
    constexpr int kCount = 100000, kBins = 50, kExpected = kCount / kBins;
    std::array<int, kBins> bins{};
    double sum = 0;
    for (std::uint64_t sample = 0; sample < kCount; ++sample) {
        const double u = Uniform(7, sample, 11);
        ASSERT_GT(u, 0);
        ASSERT_LT(u, 1);
        ++bins[static_cast<std::size_t>(u * kBins)];
        sum += u;
    }
    EXPECT_NEAR(sum / kCount, 0.5, 5 / std::sqrt(12.0 * kCount));
    double chi = 0;
    for (const int count : bins) chi += std::pow(count - kExpected, 2) / kExpected;
    EXPECT_LT(chi, 49 + 5 * std::sqrt(2 * 49.0));
}

TEST(Philox, StreamsSeedsAndSamplesAreApart) {
    std::set<double> seen;
    for (std::uint64_t seed : {1ULL, 2ULL, 1ULL << 40U})
        for (std::uint64_t sample : {0ULL, 1ULL, 1ULL << 33U})
            for (std::uint32_t stream : {8U, 9U}) seen.insert(Uniform(seed, sample, stream));
    EXPECT_EQ(seen.size(), 18u);
}

TEST(Normal_Quantile, TurnsTheErrorFunctionRound) {
    for (const double p : {1e-300, 1e-30, 1e-13, 1e-10, 1e-6, 0.001, 0.02, 0.0749, 0.0751, 0.3, 0.5})
        EXPECT_NEAR(std::erfc(-Normal_Quantile(p) / std::sqrt(2.0)) / 2 / p, 1, 2e-13) << p;
    for (const double p : {0.5, 0.6, 0.9, 0.99, 0.9999})
        EXPECT_NEAR(Normal_Quantile(p), -Normal_Quantile(1 - p), 1e-12);
    EXPECT_EQ(Normal_Quantile(0.5), 0);
    EXPECT_NEAR(Normal_Quantile(0.975), 1.959963984540054, 1e-14);
}

/// At 0.425 from the middle, and where the logarithm is -25; by 50 digits.
TEST(Normal_Quantile, IsRightToALastPlaceWhereItsPartsMeet) {
    EXPECT_EQ(0.075 - 0.5, -0.425);
    EXPECT_NEAR(Normal_Quantile(0.075), -1.43953147093845593495, 0x1p-52);
    EXPECT_EQ(Normal_Quantile(0x1.e8a37a45fc358p-37), -6.657904643501102865);
}

}  // namespace

}  // namespace verlink::study
