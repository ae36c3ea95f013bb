// The harmonics' sums beside the plain double sum with the C library's functions, and in fours beside pairs.
#include "output/harmonics.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace verlink::test {

namespace {

constexpr double kTwoPi = 6.283185308;
constexpr float kSmall = 0.00001F;

struct Sums {
    std::vector<double> re, im;
};

Sums By(const std::vector<double>& x, Lanes lanes) {
    Sums sums{std::vector<double>(x.size()), std::vector<double>(x.size())};
    Sum_Harmonics({x, kTwoPi, kSmall, sums.re, sums.im}, lanes);
    return sums;
}

double Cut(double sum) { return std::fabs(static_cast<float>(sum)) < kSmall ? 0 : sum; }

/// One harmonic.
void Plain(const std::vector<double>& x, int k, double& re, double& im) {
    const auto N = static_cast<double>(x.size());
    re = im = 0;
    for (std::size_t n = 0; n < x.size(); ++n) {
        const double angle = k * kTwoPi * static_cast<double>(n) / N;
        re = Cut(re + x[n] * std::cos(angle) / N);
        im = Cut(im - x[n] * std::sin(angle) / N);
    }
}

std::int64_t Steps_Between(float a, float b) {
    const auto place = [](float value) {
        const auto bits = static_cast<std::int64_t>(std::bit_cast<std::uint32_t>(value));
        return bits < 0x80000000LL ? bits : 0x80000000LL - bits;
    };
    return std::abs(place(a) - place(b));
}

using Function = std::function<double(double turn)>;

/// What runs give, and what is hard: much that cancels, a little beside a lot, steps, and sums about the small value.
std::vector<std::pair<std::string, Function>> Signals() {
    static std::mt19937 dice(2880);
    static std::uniform_real_distribution<double> some(-1, 1);
    return {
        {"noise", [](double) { return 300 * some(dice); }},
        {"little noise upon a lot", [](double) { return 4000 + 1e-3 * some(dice); }},
        {"noise about the small value", [](double) { return 5e-4 * some(dice); }},
        {"one wave", [](double turn) { return 12.5 * std::sin(turn + 0.3); }},
        {"high waves", [](double turn) { return std::cos(719 * turn) + 30 * std::sin(1201 * turn); }},
        {"rocker", [](double turn) { return std::atan2(std::sin(turn), 2.2 + std::cos(turn)) * 57.3 + 90; }},
        {"saw", [](double turn) { return std::fmod(turn * 114.6, 360); }},
        {"decay", [](double turn) { return 1000 * std::exp(-turn); }},
        {"spikes", [](double turn) { return 1 / (1.0001 - std::cos(turn)); }},
        {"steps", [](double turn) { return std::fmod(turn, 2) < 1 ? 7.0 : -7.0; }},
        {"constant", [](double) { return -17.125; }},
        {"huge", [](double turn) { return 1e30 * std::exp(-turn) + 1e30 * some(dice); }},
    };
}

std::vector<double> Sampled(int N, const Function& function) {
    std::vector<double> x;
    for (int n = 0; n < N; ++n) x.push_back(static_cast<float>(function(2 * std::numbers::pi * n / N)));
    return x;
}

/// Every so many of the harmonics as singles; gives back how many differ.
int Compare(const std::vector<double>& x, int every, const std::string& what) {
    const Sums sums = By(x, Widest_Lanes());
    int differing = 0;
    for (int k = 0; k < static_cast<int>(x.size()); k += every) {
        double re, im;
        Plain(x, k, re, im);
        const auto at = static_cast<std::size_t>(k);
        for (const auto& [got, expected] : {std::pair{sums.re[at], re}, std::pair{sums.im[at], im}}) {
            const auto apart = Steps_Between(static_cast<float>(got), static_cast<float>(expected));
            EXPECT_LE(apart, 1) << what << " of " << x.size() << ", harmonic " << k << ": " << got << " and "
                                << expected;
            if (apart != 0) ++differing;
        }
    }
    return differing;
}

}  // namespace

TEST(Harmonics, AreTheSinglesOfThePlainSumForTheLargestRun) {
    int differing = 0, compared = 0;
    for (const auto& [what, function] : Signals()) {
        differing += Compare(Sampled(2880, function), 61, what);
        compared += 2 * (2880 / 61 + 1);
    }
    RecordProperty("differing", std::to_string(differing) + " of " + std::to_string(compared));
    EXPECT_LE(differing, compared / 500);
}

TEST(Harmonics, AreTheSinglesOfThePlainSumForAnyNumberOfSamples) {
    int differing = 0, compared = 0;
    for (int N = 1; N <= 2880; N = N * 3 / 2 + 1)
        for (const auto& [what, function] : Signals()) {
            const int every = 1 + N / 20;
            differing += Compare(Sampled(N, function), every, what);
            compared += 2 * ((N - 1) / every + 1);
        }
    RecordProperty("differing", std::to_string(differing) + " of " + std::to_string(compared));
    EXPECT_LE(differing, compared / 500);
}

TEST(Harmonics, HaveTheSameBitsInFoursAsInPairs) {
    if (Widest_Lanes() != Lanes::kFour) GTEST_SKIP() << "this machine has no fours";
    for (const int N : {1, 2, 3, 4, 5, 7, 8, 9, 64, 361, 2880})
        for (const auto& [what, function] : Signals()) {
            const std::vector<double> x = Sampled(N, function);
            const Sums pairs = By(x, Lanes::kTwo), fours = By(x, Lanes::kFour);
            for (std::size_t k = 0; k < x.size(); ++k) {
                ASSERT_EQ(std::bit_cast<std::uint64_t>(pairs.re[k]), std::bit_cast<std::uint64_t>(fours.re[k])) << what;
                ASSERT_EQ(std::bit_cast<std::uint64_t>(pairs.im[k]), std::bit_cast<std::uint64_t>(fours.im[k])) << what;
            }
        }
}

TEST(Harmonics, ASumBelowTheSmallValueAsASingleStartsAgain) {
    // Just under the middle between the small value and the single before it, and the middle itself, which is rounded
    // to the even one of the two.
    const double below = std::nextafter(kSmall, 0.0F), middle = (below + static_cast<double>(kSmall)) / 2;
    for (const double start : {middle, std::nextafter(middle, 0.0), std::nextafter(middle, 1.0)})
        for (const Lanes lanes : {Lanes::kTwo, Widest_Lanes()}) {
            const Sums sums = By({start}, lanes);
            EXPECT_EQ(sums.re[0], Cut(start));
            EXPECT_EQ(By({-start}, lanes).re[0], Cut(-start));
        }
}

TEST(Harmonics, OfNoSamplesAreNone) { EXPECT_TRUE(By({}, Widest_Lanes()).re.empty()); }

}  // namespace verlink::test
