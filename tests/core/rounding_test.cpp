// Rounding and the patterns of numbers, and numbers as text.
#include <gtest/gtest.h>

#include <cmath>

#include "core/numeric.h"
#include "core/text.h"
#include "platform/failure.h"

namespace verlink::test {
namespace {

TEST(Rounding, HalvesGoUpAtNoDecimals) {
    EXPECT_EQ(FNRound(2.5, 0), 3);
    EXPECT_EQ(FNRound(-1.5, 0), -1);
    EXPECT_EQ(FNRound(-2.5, 0), -2);
}

TEST(Rounding, OtherDecimalCountsActAsSix) {
    EXPECT_EQ(FNRound(1.23456789, 9), FNRound(1.23456789, 6));
    EXPECT_EQ(FNRound(1.23456789, -1), 1.234568);
    EXPECT_EQ(FNRound(1.23456789, 5), 1.23457);
    EXPECT_EQ(FNRound(1.2345, 3), 1.235);
}

TEST(Patterns, NoDecimalsKeepTheTrailingPoint) {
    EXPECT_EQ(FNRoundStr(1234.5, 0), "1,235.");
    EXPECT_EQ(FNRoundStr(0, 0), "0.");
    EXPECT_EQ(FNRoundStr(-1234567, 0), "-1,234,567.");
}

TEST(Patterns, DecimalsAreRequiredDigits) {
    EXPECT_EQ(FNRoundStr(1234.5, 1), "1,234.5");
    EXPECT_EQ(FNRoundStr(0.5, 2), "0.50");
    EXPECT_EQ(FNRoundStr(12, 3), "12.000");
    EXPECT_EQ(FNRoundStr(-0.00004, 4), "0.0000");
    EXPECT_EQ(FNRoundStr(1234567.891, 2), "1,234,567.89");
}

TEST(Patterns, FiveDecimalsAndAboveHaveABlankAfterTheThird) {
    EXPECT_EQ(FNRoundStr(1.2345678, 5), "1.234 568");
    EXPECT_EQ(FNRoundStr(1234.5, 9), "1,234.500 000");
}

TEST(Patterns, NegativeDecimalsAskForScientificNotation) {
    EXPECT_EQ(FNRoundStr(12345, -1), "1.23E+4");
    EXPECT_EQ(FNRoundStr(0.00012345, -1), "1.23E-4");
    EXPECT_EQ(FNRoundStr(-5, -3), "-5.00E+0");
}

TEST(Texts, SinglesHaveUpToSevenDigits) {
    EXPECT_EQ(Text_Of(Single(0.05)), "0.05");
    EXPECT_EQ(Text_Of(Single(-92.66)), "-92.66");
    EXPECT_EQ(Text_Of(Single(1.234568e-5)), "1.234568E-05");
    EXPECT_EQ(Text_Of(Single(1e7)), "1E+07");
    EXPECT_EQ(Text_Of(Single(1234567)), "1234567");
    EXPECT_EQ(Text_Of(Single(-0.0)), "0");
    EXPECT_EQ(Text_Of(Single(0.0001)), "0.0001");
}

TEST(Texts, DoublesHaveUpToFifteenDigits) {
    EXPECT_EQ(Text_Of(0.1), "0.1");
    EXPECT_EQ(Text_Of(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(Text_Of(42.0), "42");
}

TEST(Texts, ValueIsTheLeadingNumericPart) {
    EXPECT_EQ(Val("1.5abc"), 1.5);
    EXPECT_EQ(Val("  .5"), 0.5);
    EXPECT_EQ(Val("-3"), -3);
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("1d3"), 1000);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("inf"), 0);
    EXPECT_EQ(Val("nan"), 0);
    EXPECT_EQ(Val("1,5"), 1);
}

TEST(Texts, TextThatMustBeANumberIsATypeMismatchOtherwise) {
    EXPECT_EQ(Number_Of(" 2.5 "), 2.5);
    for (const char* text : {"", "abc", "1.5abc", "1 2"}) {
        try {
            Number_Of(text);
            ADD_FAILURE() << text;
        } catch (const platform::RuntimeFailure& failure) {
            EXPECT_EQ(failure.Number(), 13) << text;
        }
    }
}

}  // namespace
}  // namespace verlink::test
