// Sines and cosines of many angles against the scalar functions.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "output/sines.h"

namespace verlink::test {

namespace {

/// In units of the last place of the expected value.
double Apart(double got, double expected) {
    if (got == expected) return 0;
    const double unit = std::nextafter(std::fabs(expected), INFINITY) - std::fabs(expected);
    return std::fabs(got - expected) / unit;
}

}  // namespace

TEST(Sines, AreWithinAFewUnitsInTheLastPlaceOfTheScalarFunctions) {
    std::mt19937_64 dice(3);
    for (const double size : {1e-8, 0.1, 3.0, 100.0, 18100.0}) {
        std::uniform_real_distribution<double> some(-size, size);
        std::vector<double> angles(1003), sines(1003), cosines(1003);
        for (double& angle : angles) angle = some(dice);
        Sines_And_Cosines(angles, sines, cosines);
        for (std::size_t i = 0; i < angles.size(); ++i) {
            EXPECT_LE(Apart(sines[i], std::sin(angles[i])), 4) << angles[i];
            EXPECT_LE(Apart(cosines[i], std::cos(angles[i])), 4) << angles[i];
        }
    }
}

TEST(Sines, OfZeroAreExact) {
    const std::vector<double> angles{0, -0.0, 0, 0, 0};
    std::vector<double> sines(5, 9), cosines(5, 9);
    Sines_And_Cosines(angles, sines, cosines);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(sines[i], 0);
        EXPECT_EQ(cosines[i], 1);
    }
}

TEST(Sines, DoNotDependOnHowManyAnglesThereAre) {
    std::mt19937_64 dice(4);
    std::uniform_real_distribution<double> some(-5000, 5000);
    std::vector<double> angles(67), sines(67), cosines(67);
    for (double& angle : angles) angle = some(dice);
    Sines_And_Cosines(angles, sines, cosines);
    for (std::size_t count = 0; count <= angles.size(); ++count) {
        std::vector<double> s(count), c(count);
        Sines_And_Cosines(std::span(angles).first(count), s, c);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_NEAR(s[i], sines[i], 1e-15);
            EXPECT_NEAR(c[i], cosines[i], 1e-15);
        }
    }
}

TEST(Sines, TheSameInputGivesTheSameBits) {
    std::vector<double> angles(101), first(101), second(101), cosines(101);
    for (std::size_t i = 0; i < angles.size(); ++i) angles[i] = 0.37 * static_cast<double>(i);
    Sines_And_Cosines(angles, first, cosines);
    Sines_And_Cosines(angles, second, cosines);
    for (std::size_t i = 0; i < angles.size(); ++i)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(first[i]), std::bit_cast<std::uint64_t>(second[i]));
}

}  // namespace verlink::test
