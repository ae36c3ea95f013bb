// Sine, cosine and arc tangent against figures of 40 digits, and a pair against its two numbers.
#include "core/trigonometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace verlink::test {
namespace {

/// The C library's long double keeps enough of the 40 digits to tell tenths of a last place.
struct Figure {
    double x;
    long double sine, cosine, arc_tangent;
};

std::vector<Figure> Figures() {
    std::ifstream file(VERLINK_TESTS "/reference/trigonometry.csv");
    std::vector<Figure> figures;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream cells(line);
        std::string x, sine, cosine, arc_tangent;
        std::getline(cells, x, ',');
        std::getline(cells, sine, ',');
        std::getline(cells, cosine, ',');
        std::getline(cells, arc_tangent, ',');
        figures.push_back({std::stod(x), std::stold(sine), std::stold(cosine), std::stold(arc_tangent)});
    }
    return figures;
}

/// In units of the last place of the exact value.
double Error(double got, long double exact) {
    const double nearest = std::abs(static_cast<double>(exact));
    const double unit = std::nextafter(nearest, std::numeric_limits<double>::max()) - nearest;
    return static_cast<double>(std::abs(got - exact)) / unit;
}

TEST(Trigonometry, IsWithinTwoUnitsInTheLastPlace) {
    const auto figures = Figures();
    ASSERT_EQ(figures.size(), 1600U);
    double sine_error = 0, cosine_error = 0, arc_error = 0;
    for (const Figure& figure : figures) {
        double sine, cosine;
        Sin_Cos(figure.x, sine, cosine);
        sine_error = std::max(sine_error, Error(sine, figure.sine));
        cosine_error = std::max(cosine_error, Error(cosine, figure.cosine));
        arc_error = std::max(arc_error, Error(Atan(figure.x), figure.arc_tangent));
    }
    EXPECT_LE(sine_error, 2);
    EXPECT_LE(cosine_error, 2);
    EXPECT_LE(arc_error, 2);
}

TEST(Trigonometry, GivesAPairTheBitsOfItsTwoNumbers) {
    const unsigned seed = std::random_device{}();
    RecordProperty("seed", std::to_string(seed));
    SCOPED_TRACE(seed);
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> exponent(-10, 7), sign(-1, 1);
    const auto any = [&] { return std::copysign(std::pow(10, exponent(generator)), sign(generator)); };
    for (int i = 0; i < 100000; ++i) {
        const Pair x{any(), any()};
        Pair sines, cosines;
        Sin_Cos(x, sines, cosines);
        const Pair angles = Atan(x);
        for (int k = 0; k < 2; ++k) {
            double sine, cosine;
            Sin_Cos(double{x[k]}, sine, cosine);
            ASSERT_EQ(sines[k], sine) << x[k];
            ASSERT_EQ(cosines[k], cosine) << x[k];
            ASSERT_EQ(angles[k], Atan(double{x[k]})) << x[k];
        }
    }
}

TEST(Trigonometry, IsOddAndEvenToTheBit) {
    for (const Figure& figure : Figures()) {
        double sine, cosine, turned_sine, turned_cosine;
        Sin_Cos(figure.x, sine, cosine);
        Sin_Cos(-figure.x, turned_sine, turned_cosine);
        ASSERT_EQ(turned_sine, -sine);
        ASSERT_EQ(turned_cosine, cosine);
        ASSERT_EQ(Atan(-figure.x), -Atan(figure.x));
    }
}

TEST(Trigonometry, HasItsEndPoints) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Sin(0.0), 0.0);
    EXPECT_EQ(Sin(-0.0), 0.0);
    EXPECT_EQ(Atan(infinite), 0x1.921fb54442d18p+0);
    EXPECT_EQ(Atan(-infinite), -0x1.921fb54442d18p+0);
    EXPECT_TRUE(std::isnan(Atan(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_TRUE(std::isnan(Sin(infinite)));
}

TEST(Trigonometry, IsTheLibrarysBeyondItsLimit) {
    for (const double x : {1.6e6, 1.7e6, -3.1e9, 1e22}) {
        double sine, cosine;
        Sin_Cos(x, sine, cosine);
        EXPECT_EQ(sine, std::sin(x));
        EXPECT_EQ(cosine, std::cos(x));
    }
}

}  // namespace
}  // namespace verlink::test
