// The number types: rounding when stored, failures by number, checked subscripts.
#include "core/number.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/array.h"

namespace verlink::test {
namespace {

template <class Deed>
long Failure_Of_Deed(Deed deed) {
    try {
        deed();
    } catch (const platform::RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(Numbers, SingleRoundsAtEachStoreAndReadsAsADouble) {
    Single x = 0.1;
    EXPECT_EQ(x, static_cast<double>(0.1F));
    x = x * 3;
    EXPECT_EQ(x, static_cast<double>(static_cast<float>(static_cast<double>(0.1F) * 3)));
    x += 0.2;
    x *= 2;
    x -= 1;
    x /= 4;
    EXPECT_NEAR(x, ((0.1 * 3 + 0.2) * 2 - 1) / 4, 1e-7);
}

TEST(Numbers, SingleThatIsNotFiniteIsAnOverflow) {
    EXPECT_EQ(Failure_Of_Deed([] {
                  const Single x = 1e39;
                  return static_cast<double>(x);
              }),
              6);
    EXPECT_EQ(Failure_Of_Deed([] {
                  const Single x = -1e39;
                  return static_cast<double>(x);
              }),
              6);
    EXPECT_EQ(Failure_Of_Deed([] {
                  const Single x = std::nan("");
                  return static_cast<double>(x);
              }),
              6);
    EXPECT_EQ(Failure_Of_Deed([] {
                  const Single x = 3.4e38;
                  return static_cast<double>(x);
              }),
              0);
}

TEST(Numbers, DivisionByAStoredZeroIsFailureEleven) {
    const Single zero = 0;
    EXPECT_EQ(Failure_Of_Deed([&] { return 1.0 / zero; }), 11);
    EXPECT_EQ(Failure_Of_Deed([&] { return 1 / zero; }), 11);
    EXPECT_EQ(Failure_Of_Deed([&] { return zero / zero; }), 11);
    EXPECT_EQ(Failure_Of_Deed([&] {
                  Single x = 1;
                  x /= zero;
              }),
              11);
    EXPECT_EQ(Failure_Of_Deed([&] { return Divide(0, 0); }), 11);
    EXPECT_EQ(Divide(1, 4), 0.25);
}

TEST(Numbers, WholeNumbersRoundHalvesToEven) {
    EXPECT_EQ(Integer(0.5), 0);
    EXPECT_EQ(Integer(1.5), 2);
    EXPECT_EQ(Integer(2.5), 2);
    EXPECT_EQ(Integer(-1.5), -2);
    EXPECT_EQ(Long(2.5), 2);
}

TEST(Numbers, WholeNumbersThatDoNotFitAreOverflows) {
    EXPECT_EQ(Failure_Of_Deed([] { return static_cast<int>(Integer(32768)); }), 6);
    EXPECT_EQ(Failure_Of_Deed([] { return static_cast<int>(Integer(-32769)); }), 6);
    EXPECT_EQ(Failure_Of_Deed([] { return static_cast<int>(Integer(32767.5)); }), 6);
    EXPECT_EQ(Failure_Of_Deed([] { return static_cast<int>(Long(2147483648.0)); }), 6);
    EXPECT_EQ(Failure_Of_Deed([] {
                  Integer x = 32767;
                  ++x;
              }),
              6);
    EXPECT_EQ(Integer(32767.4), 32767);
    EXPECT_EQ(Integer(-32768), -32768);
}

TEST(Numbers, SubscriptsOutsideAreFailureNine) {
    Array<Single, 1, 4> array;
    EXPECT_EQ(Failure_Of_Deed([&] { array(0) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { array(5) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { array(4) = 1; }), 0);
    Table<Single, 2, 4, 2> table;
    EXPECT_EQ(Failure_Of_Deed([&] { table(1, 0) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { table(2, 2) = 1; }), 9);
    static StepArray<Single, 4, 2> steps;
    EXPECT_EQ(Failure_Of_Deed([&] { steps(2881) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { steps(-1) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { steps(0, 4, 0) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { steps(0, 0, 2) = 1; }), 9);
    EXPECT_EQ(Failure_Of_Deed([&] { steps(2880, 3, 1) = 1; }), 0);
}

}  // namespace
}  // namespace verlink::test
