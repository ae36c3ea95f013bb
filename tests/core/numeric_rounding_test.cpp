// Rounding and the patterns of numbers.
#include <cmath>

#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

class NumericRounding : public Fixture {};

TEST_F(NumericRounding, RoundsByTheFloorSoThatHalvesGoUpAlsoBelowZero) {
    EXPECT_EQ(FNRound(2.5, 0), 3);
    EXPECT_EQ(FNRound(-1.5, 0), -1);
    EXPECT_EQ(FNRound(-2.5, 0), -2);
    EXPECT_EQ(FNRound(2.4999, 0), 2);
    EXPECT_EQ(FNRound(-2.51, 0), -3);
}

TEST_F(NumericRounding, RoundsToOneToFiveDecimals) {
    EXPECT_DOUBLE_EQ(FNRound(3.14159265, 1), 3.1);
    EXPECT_DOUBLE_EQ(FNRound(3.14159265, 2), 3.14);
    EXPECT_DOUBLE_EQ(FNRound(3.14159265, 3), 3.142);
    EXPECT_DOUBLE_EQ(FNRound(3.14159265, 4), 3.1416);
    EXPECT_DOUBLE_EQ(FNRound(3.14159265, 5), 3.14159);
    EXPECT_DOUBLE_EQ(FNRound(-0.25, 1), -0.2);
}

TEST_F(NumericRounding, AnyOtherCountOfDecimalsActsAsSix) {
    for (int decimals : {6, 7, 9, 100, -1, -5})
        EXPECT_DOUBLE_EQ(FNRound(3.14159265358, decimals), 3.141593) << decimals;
}

TEST_F(NumericRounding, AnOverflowIsReported) {
    desktop.Expect_Message(Report(6, "Overflow", "FNRound"));
    EXPECT_EQ(FNRound(1e308, 5), 0);
}

TEST_F(NumericRounding, ZeroDecimalsKeepTheirTrailingPoint) {
    EXPECT_EQ(FNRoundStr(1234.5, 0), "1,235.");
    EXPECT_EQ(FNRoundStr(0, 0), "0.");
    EXPECT_EQ(FNRoundStr(-7, 0), "-7.");
    EXPECT_EQ(FNRoundStr(0.4, 0), "0.");
}

TEST_F(NumericRounding, OneToFourDecimalsAreAllShown) {
    EXPECT_EQ(FNRoundStr(1234.5, 1), "1,234.5");
    EXPECT_EQ(FNRoundStr(1234.5, 2), "1,234.50");
    EXPECT_EQ(FNRoundStr(1234.5, 3), "1,234.500");
    EXPECT_EQ(FNRoundStr(1234.5, 4), "1,234.5000");
    EXPECT_EQ(FNRoundStr(-0.05, 2), "-0.05");
    EXPECT_EQ(FNRoundStr(57.29577950560105, 1), "57.3");
}

TEST_F(NumericRounding, FiveDecimalsAndMoreAreSixWithABlankInTheMiddle) {
    EXPECT_EQ(FNRoundStr(3.14159265, 5), "3.141 593");
    EXPECT_EQ(FNRoundStr(3.14159265, 6), "3.141 593");
    EXPECT_EQ(FNRoundStr(-12345.6789, 12), "-12,345.678 900");
}

TEST_F(NumericRounding, NegativeCountsShowAnExponentWithItsSign) {
    EXPECT_EQ(FNRoundStr(12345, -1), "1.23E+4");
    EXPECT_EQ(FNRoundStr(0.00012, -1), "1.20E-4");
    EXPECT_EQ(FNRoundStr(-9.999e12, -2), "-1.00E+13");
    EXPECT_EQ(FNRoundStr(1, -1), "1.00E+0");
    EXPECT_EQ(FNRoundStr(0, -1), "0.00E+0");
    EXPECT_EQ(FNRoundStr(1e-100, -1), "1.00E-100");
    EXPECT_EQ(FNRoundStr(1.235, -1), "1.24E+0");
}

TEST_F(NumericRounding, ThousandsAreGroupedHoweverManyThereAre) {
    EXPECT_EQ(FNRoundStr(999, 1), "999.0");
    EXPECT_EQ(FNRoundStr(1000, 1), "1,000.0");
    EXPECT_EQ(FNRoundStr(1234567.89, 1), "1,234,567.9");
    EXPECT_EQ(FNRoundStr(123456789012.0, 0), "123,456,789,012.");
    EXPECT_EQ(FNRoundStr(1e20, 0), "100,000,000,000,000,000,000.");
}

TEST_F(NumericRounding, HalvesOfTheDecimalValueGoAwayFromZero) {
    EXPECT_EQ(FNRoundStr(0.125, 2), "0.13");
    EXPECT_EQ(FNRoundStr(-0.125, 2), "-0.13");
    EXPECT_EQ(FNRoundStr(2.675, 2), "2.68");   // a little below in binary
    EXPECT_EQ(FNRoundStr(9.995, 2), "10.00");  // 9.994999999999999 to one digit more than are looked at
    EXPECT_EQ(FNRoundStr(0.5, 0), "1.");
    EXPECT_EQ(FNRoundStr(-0.5, 0), "-1.");
    EXPECT_EQ(FNRoundStr(2.5, 0), "3.");
}

TEST_F(NumericRounding, CarriesRunThroughAllDigits) {
    EXPECT_EQ(FNRoundStr(999.96, 1), "1,000.0");
    EXPECT_EQ(FNRoundStr(0.99999, 3), "1.000");
    EXPECT_EQ(FNRoundStr(999999.9999999, 5), "1,000,000.000 000");
}

TEST_F(NumericRounding, WhatRoundsToZeroShowsNoSign) {
    EXPECT_EQ(FNRoundStr(-0.001, 2), "0.00");
    EXPECT_EQ(FNRoundStr(-0.0, 1), "0.0");
    EXPECT_EQ(FNRoundStr(-0.0, -1), "0.00E+0");
    EXPECT_EQ(FNRoundStr(-1e-20, 6), "0.000 000");
}

TEST_F(NumericRounding, WhatIsNoNumberIsReported) {
    desktop.Expect_Message(Report(6, "Overflow", "FNRoundStr"));
    EXPECT_EQ(FNRoundStr(INFINITY, 1), "");
}

}  // namespace

}  // namespace verlink::test
