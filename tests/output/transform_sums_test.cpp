// The transform's singles beside those of the plain double loop, and beside an exact transform.
#include <gtest/gtest.h>

#include <bit>
#include <complex>
#include <cstdint>
#include <numbers>
#include <random>

#include "tests/output/transform_fixture.h"

namespace verlink::test {

namespace {

struct DftSums : Dft {
    /// How many singles lie between two, across zero too.
    static std::int64_t Steps_Between(float a, float b) {
        const auto place = [](float value) {
            const auto bits = static_cast<std::int64_t>(std::bit_cast<std::uint32_t>(value));
            return bits < 0x80000000LL ? bits : 0x80000000LL - bits;
        };
        return std::abs(place(a) - place(b));
    }

    void Compare(const std::vector<double>& samples, const std::string& what) {
        Transform_Samples(samples);
        const Spectrum expected = Plain_Loop(samples);
        for (std::size_t i = 0; i < expected.size(); ++i)
            for (std::size_t row = 0; row < 4; ++row) {
                const float got = Result(static_cast<int>(i), static_cast<int>(row));
                const std::int64_t apart = Steps_Between(got, expected[i][row]);
                ++compared;
                if (apart == 0) continue;
                ++differing;
                EXPECT_LE(apart, 1) << what << " of " << samples.size() << ", harmonic " << i << ", row " << row << ": "
                                    << got << " and " << expected[i][row];
            }
    }
    void Compare_All(int N) {
        std::uniform_real_distribution<double> some(-1, 1);
        const auto random = [&](double size) { return Signal(N, [&](double) { return size * some(dice); }); };
        for (const double size : {1e-4, 0.01, 1.0, 100.0, 1e6}) Compare(random(size), "noise");
        for (const double c : {3e-5, 0.25, -17.125, 4000.0}) Compare(Signal(N, [&](double) { return c; }), "constant");
        for (const int wave : {1, 2, 5})
            for (const double shift : {0.0, 0.7, 1.5}) {
                const double size = std::pow(10, 3 * some(dice));
                Compare(Signal(N, [&](double turn) { return size * std::sin(wave * turn + shift); }), "sine");
            }
        std::vector<double> impulse(static_cast<std::size_t>(N));
        impulse[dice() % impulse.size()] = 50;
        Compare(impulse, "impulse");
        Compare(Signal(N, [](double turn) { return 360 - std::fmod(turn * 180 / M_PI, 360); }), "saw");
    }

    std::mt19937 dice{20261121};
    long compared = 0, differing = 0;
};

using Exact = long double;

/// Each harmonic once, from angles within one turn, in extended precision.
std::vector<std::complex<Exact>> Exact_Transform(const std::vector<double>& samples) {
    const std::size_t N = samples.size();
    std::vector<std::complex<Exact>> turned, result(N);
    for (std::size_t n = 0; n < N; ++n) turned.push_back(std::polar<Exact>(1, -2 * std::numbers::pi_v<Exact> * n / N));
    for (std::size_t k = 0; k < N; ++k)
        for (std::size_t n = 0; n < N; ++n)
            result[k] += Exact{static_cast<float>(samples[n])} * turned[k * n % N] / static_cast<Exact>(N);
    return result;
}

}  // namespace

TEST_F(DftSums, AreThoseOfThePlainDoubleLoopForEverySizeTo64) {
    for (int N = 1; N <= 64; ++N) Compare_All(N);
    RecordProperty("compared", std::to_string(compared));
    EXPECT_EQ(differing, 0) << "of " << compared;
    EXPECT_GT(compared, 80000);
}

TEST_F(DftSums, AreThoseOfThePlainDoubleLoopForATurnByDegrees) {
    for (const int N : {360, 361}) Compare_All(N);
    RecordProperty("compared", std::to_string(compared));
    EXPECT_EQ(differing, 0) << "of " << compared;
}

TEST_F(DftSums, AreThoseOfThePlainDoubleLoopForTheLargestRun) {
    std::uniform_real_distribution<double> some(-200, 200);
    Compare(Signal(2880, [&](double turn) { return some(dice) + 40 * std::sin(3 * turn) + 7 * std::cos(11 * turn); }),
            "noise and sines");
    EXPECT_EQ(differing, 0) << "of " << compared;
    EXPECT_EQ(compared, 4 * 1440);
}

TEST_F(DftSums, AgreeWithAnExactTransformWhereNoSumIsCut) {
    std::uniform_real_distribution<double> some(-500, 500);
    for (const int N : {3, 4, 7, 12, 37, 64, 100, 361, 720}) {
        SCOPED_TRACE(N);
        const std::vector<double> samples = Signal(N, [&](double turn) { return some(dice) + 300 * std::cos(turn); });
        Transform_Samples(samples);
        const auto exact = Exact_Transform(samples);
        const int half = static_cast<int>(std::floor(N / 2.0 + 0.5));
        for (int i = 0; i < half; ++i) {
            const std::complex<Exact> once = exact[static_cast<std::size_t>(i)];
            const Exact times = i == 0 ? 1 : 2;
            // A running sum may lose a hundred-thousandth; the constant for two pi is a little off.
            const double close = 3e-5 + 800 * 7e-10 * 2 * N;
            EXPECT_NEAR(Result(i, 0), static_cast<double>(times * once.real()), close) << i;
            EXPECT_NEAR(Result(i, 1), static_cast<double>(times * once.imag()), close) << i;
            EXPECT_NEAR(Result(i, 2), static_cast<double>(times * std::abs(once)), close) << i;
            const Exact angle = std::atan(once.imag() / once.real()) * 180 / std::numbers::pi_v<Exact>;
            const double steep = close / static_cast<double>(std::abs(once)) * 120 + 2e-5;
            EXPECT_NEAR(Result(i, 3), static_cast<double>(times * angle), steep) << i;
        }
    }
}

TEST_F(DftSums, ReadTheComponentInSlotOne) {
    for (int n = 0; n <= 12; ++n) {
        Model.RunTable.VelXY(n, 2, 0) = 3;
        Model.RunTable.VelXY(n, 2, 1) = -4;
    }
    const std::array<double, 3> means{3, -4, 5};
    const std::array<const char*, 3> components{"X", "Y", "Mag"};
    for (std::size_t i = 0; i < 3; ++i) {
        Select_Variable("Veloc CP", 1);
        Set_Component(components[i], 1);
        Integer last = 12;
        Do_DFT(last);
        EXPECT_NEAR(Model.FFTResult(0, 0), means[i], 1e-6);
    }
}

}  // namespace verlink::test
