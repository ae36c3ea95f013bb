// The number types: rounding when stored, and the failures of what cannot be stored.
#include "core/number.h"

#include <cmath>
#include <limits>

#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

constexpr double kLargest = std::numeric_limits<float>::max();

TEST(SingleNumber, RoundsToTheNearestFloatWhenStored) {
    EXPECT_EQ(Single(0.1), 0.100000001490116119384765625);
    EXPECT_EQ(Single(16777217.0), 16777216.0);
    EXPECT_EQ(Single(16777219.0), 16777220.0);
}

TEST(SingleNumber, ReadsAsADoubleInExpressions) {
    const Single third = 1.0 / 3;
    EXPECT_EQ(third * 3, static_cast<double>(1.0F / 3.0F) * 3);
}

TEST(SingleNumber, RoundsAtEachStoreOfASum) {
    Single t = 0;
    for (int i = 0; i < 10; ++i) t += 0.1;
    float expected = 0;
    for (int i = 0; i < 10; ++i) expected = static_cast<float>(static_cast<double>(expected) + 0.1);
    EXPECT_EQ(t, static_cast<double>(expected));
    EXPECT_NE(t, 1.0);
}

TEST(SingleNumber, OtherAssignmentsRoundToo) {
    Single a = 1;
    a -= 0.9;
    EXPECT_EQ(a, static_cast<double>(static_cast<float>(1 - 0.9)));
    a *= 3;
    EXPECT_EQ(a, static_cast<double>(static_cast<float>(static_cast<double>(static_cast<float>(1 - 0.9)) * 3)));
    a = 1;
    a /= 3;
    EXPECT_EQ(a, static_cast<double>(1.0F / 3.0F));
}

TEST(SingleNumber, AStoreThatIsNotFiniteIsFailure6) {
    EXPECT_EQ(Single(kLargest), kLargest);
    EXPECT_EQ(Single(-kLargest), -kLargest);
    EXPECT_FAILURE(6, Single(kLargest * 1.001));
    EXPECT_FAILURE(6, Single(-1e300));
    EXPECT_FAILURE(6, Single(std::nan("")));
    Single a = 3e38;
    EXPECT_FAILURE(6, a += 3e38);
    EXPECT_EQ(a, static_cast<double>(3e38F));
}

TEST(SingleNumber, TheSmallestNumbersAreKeptAndSmallerOnesAreZero) {
    EXPECT_GT(Single(1e-45), 0);
    EXPECT_EQ(Single(1e-46), 0);
}

TEST(SingleNumber, DividingByAStoredZeroIsFailure11WhateverIsDivided) {
    const Single zero = 0, one = 1;
    EXPECT_FAILURE(11, static_cast<void>(one / zero));
    EXPECT_FAILURE(11, static_cast<void>(zero / zero));
    EXPECT_FAILURE(11, static_cast<void>(2 / zero));
    EXPECT_FAILURE(11, static_cast<void>(2.5 / zero));
    EXPECT_FAILURE(11, Divide(0, 0));
    EXPECT_EQ(Divide(1, 4), 0.25);
    Single a = 1;
    EXPECT_FAILURE(11, a /= 0);
    EXPECT_EQ(a, 1);
}

/// Two neighbours in memory, rounded and used again: a compiler that works on both at once must round both.
[[gnu::noinline]] void Store_Neighbours(double a, double b, double* places) {
    const Single first = a * 3 + b, second = a * 5 - b;
    places[0] = first;
    places[1] = second;
}

[[gnu::noinline]] void Convert_Neighbours(double a, double b, double* places) {
    const double first = static_cast<double>(static_cast<float>(a * 3 + b));
    const double second = static_cast<double>(static_cast<float>(a * 5 - b));
    places[0] = first;
    places[1] = second;
}

TEST(SingleNumber, NeighboursInMemoryAreRoundedInOptimisedBuildsToo) {
    double places[2];
    Store_Neighbours(0.1, 0.77, places);
    EXPECT_EQ(places[0], static_cast<double>(1.07F));
    EXPECT_EQ(places[1], static_cast<double>(-0.27F));
    Convert_Neighbours(0.1, 0.77, places);
    EXPECT_EQ(places[0], static_cast<double>(1.07F));
    EXPECT_EQ(places[1], static_cast<double>(-0.27F));
}

TEST(WholeNumber, RoundsHalvesToEven) {
    EXPECT_EQ(Integer(0.5), 0);
    EXPECT_EQ(Integer(1.5), 2);
    EXPECT_EQ(Integer(2.5), 2);
    EXPECT_EQ(Integer(-0.5), 0);
    EXPECT_EQ(Integer(-1.5), -2);
    EXPECT_EQ(Integer(2.51), 3);
    EXPECT_EQ(Long(1000000.5), 1000000);
    EXPECT_EQ(Integer(Single(3.5)), 4);
}

TEST(WholeNumber, AStoreThatDoesNotFitIsFailure6) {
    EXPECT_EQ(Integer(32767), 32767);
    EXPECT_EQ(Integer(-32768), -32768);
    EXPECT_EQ(Integer(32767.4), 32767);
    EXPECT_FAILURE(6, Integer(32768));
    EXPECT_FAILURE(6, Integer(32767.5));
    EXPECT_FAILURE(6, Integer(-32769));
    EXPECT_FAILURE(6, Integer(std::nan("")));
    EXPECT_FAILURE(6, Integer(1e300));
    EXPECT_EQ(Long(2147483647.0), 2147483647);
    EXPECT_FAILURE(6, Long(2147483648.0));
    EXPECT_FAILURE(6, Long(-2147483649.0));
}

TEST(WholeNumber, CountingBeyondTheLastNumberIsFailure6) {
    Integer a = 32767;
    EXPECT_FAILURE(6, ++a);
    EXPECT_EQ(a, 32767);
    EXPECT_FAILURE(6, a += 1);
    a -= 1.5;
    EXPECT_EQ(a, 32766);
}

TEST(WholeNumber, ProductsAreNotCutToSixteenBits) {
    const Integer a = 300, b = 200;
    EXPECT_EQ(a * b, 60000);
}

TEST(ArrayBounds, ASubscriptOutsideIsFailure9) {
    Array<Single, 0, 8> packed;
    packed(8) = 1;
    EXPECT_FAILURE(9, packed(9));
    EXPECT_FAILURE(9, packed(-1));
    Array<Integer, 1, 3> from_one;
    from_one(1) = 7;
    EXPECT_EQ(from_one(1), 7);
    EXPECT_FAILURE(9, from_one(0));
    const auto& fixed = from_one;
    EXPECT_FAILURE(9, fixed(4));
}

TEST(ArrayBounds, ATableChecksRowsAndColumns) {
    Table<Single, 0, 4, 2> table;
    table(4, 1) = 2;
    EXPECT_EQ(table(4, 1), 2);
    EXPECT_EQ(table(4, 0), 0);
    EXPECT_FAILURE(9, table(5, 0));
    EXPECT_FAILURE(9, table(0, 2));
    EXPECT_FAILURE(9, table(-1, 0));
    EXPECT_FAILURE(9, table(0, -1));
}

TEST(ArrayBounds, StepsRunFrom0To2880) {
    static StepArray<Single, 4, 2> points;
    points(0, 0, 0) = 1;
    points(2880, 3, 1) = 2;
    EXPECT_EQ(points(2880, 3, 1), 2);
    EXPECT_FAILURE(9, points(2881, 0, 0));
    EXPECT_FAILURE(9, points(-1, 0, 0));
    EXPECT_FAILURE(9, points(0, 4, 0));
    EXPECT_FAILURE(9, points(0, 0, 2));
    EXPECT_FAILURE(9, points(0, -1, 0));
    EXPECT_FAILURE(9, points.Steps(2880, 2));
    EXPECT_FAILURE(9, points.Steps(-1, 2));
    EXPECT_FAILURE(9, points.Clear(2881));
}

TEST(ArrayBounds, ClearingZeroesOneRowUpToAStep) {
    static StepArray<Single, 2, 2> values;
    for (int step = 0; step <= kLastStep; ++step)
        for (int row = 0; row <= 1; ++row)
            for (int axis = 0; axis <= 1; ++axis) values(step, row, axis) = 1;
    values.Clear(10, 1, 0);
    EXPECT_EQ(values(10, 1, 0), 0);
    EXPECT_EQ(values(0, 1, 0), 0);
    EXPECT_EQ(values(11, 1, 0), 1);
    EXPECT_EQ(values(10, 0, 0), 1);
    EXPECT_EQ(values(10, 1, 1), 1);
    values.Clear(-1, 0, 0);
    EXPECT_EQ(values(0, 0, 0), 1);
    values.Clear(kLastStep, 0, 0);
    EXPECT_EQ(values(kLastStep, 0, 0), 0);
    EXPECT_EQ(values(0, 0, 1), 1);
}

}  // namespace

}  // namespace verlink::test
