// Numbers as text and text as numbers.
#include "core/text.h"

#include <cmath>
#include <random>

#include "core/numeric.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

TEST(TextOfSingle, HasUpToSevenDigitsAndNoLeadingBlank) {
    EXPECT_EQ(Text_Of(Single(0.05)), "0.05");
    EXPECT_EQ(Text_Of(Single(405)), "405");
    EXPECT_EQ(Text_Of(Single(-92.66)), "-92.66");
    EXPECT_EQ(Text_Of(Single(1.0 / 3)), "0.3333333");
    EXPECT_EQ(Text_Of(Single(2.0 / 3)), "0.6666667");
    EXPECT_EQ(Text_Of(Single(123456.78)), "123456.8");
}

TEST(TextOfSingle, TurnsToAnExponentFromTenMillionsUpAndBelowATenThousandth) {
    EXPECT_EQ(Text_Of(Single(9999999)), "9999999");
    EXPECT_EQ(Text_Of(Single(10000000)), "1E+07");
    EXPECT_EQ(Text_Of(Single(1.5e20)), "1.5E+20");
    EXPECT_EQ(Text_Of(Single(0.0001)), "0.0001");
    EXPECT_EQ(Text_Of(Single(0.00001)), "1E-05");
    EXPECT_EQ(Text_Of(Single(0.00001234568)), "1.234568E-05");
    EXPECT_EQ(Text_Of(Single(-1e-30)), "-1E-30");
    EXPECT_EQ(Text_Of(Single(3.4e38)), "3.4E+38");
}

TEST(TextOfSingle, MinusZeroIsZero) {
    EXPECT_EQ(Text_Of(Single(-0.0)), "0");
    EXPECT_EQ(Text_Of(Single(0)), "0");
}

TEST(TextOfSingle, ReadsBackToSevenDigits) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> mantissa(-10, 10), exponent(-30, 30);
    for (int i = 0; i < 5000; ++i) {
        const Single value = mantissa(random) * std::pow(10, exponent(random));
        EXPECT_NEAR(Val(Text_Of(value)), value, std::abs(value) * 5.1e-7);
    }
}

TEST(TextOfDouble, HasUpToFifteenDigits) {
    EXPECT_EQ(Text_Of(0.1), "0.1");
    EXPECT_EQ(Text_Of(57.12), "57.12");
    EXPECT_EQ(Text_Of(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(Text_Of(999999999999999.0), "999999999999999");
    EXPECT_EQ(Text_Of(1e15), "1E+15");
    EXPECT_EQ(Text_Of(1e-4), "0.0001");
    EXPECT_EQ(Text_Of(1.25e-5), "1.25E-05");
    EXPECT_EQ(Text_Of(1e-100), "1E-100");
    EXPECT_EQ(Text_Of(-0.0), "0");
}

TEST(TextOfWhole, IsPlainDecimal) {
    EXPECT_EQ(Text_Of(-435), "-435");
    EXPECT_EQ(Text_Of(Integer(32767)), "32767");
    EXPECT_EQ(Text_Of(Long(16383)), "16383");
}

TEST(ValueOfText, TakesTheLeadingNumericPart) {
    EXPECT_EQ(Val("1.5abc"), 1.5);
    EXPECT_EQ(Val("12 in"), 12);
    EXPECT_EQ(Val("3.7.5"), 3.7);
    EXPECT_EQ(Val("5-3"), 5);
    EXPECT_EQ(Val("1,234"), 1);
}

TEST(ValueOfText, IsZeroWhereThereIsNoNumber) {
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("   "), 0);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("."), 0);
    EXPECT_EQ(Val("-"), 0);
    EXPECT_EQ(Val("inf"), 0);
    EXPECT_EQ(Val("nan"), 0);
    EXPECT_EQ(Val("e5"), 0);
}

TEST(ValueOfText, TakesSignsPointsAndExponents) {
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("-.25"), -0.25);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("1E-05"), 1e-5);
    EXPECT_EQ(Val("1d3"), 1000);
    EXPECT_EQ(Val("1.5D+2"), 150);
    EXPECT_EQ(Val("4e"), 4);
    EXPECT_EQ(Val("4e+"), 4);
    EXPECT_EQ(Val("5degrees"), 5);
}

TEST(ValueOfText, SkipsBlanks) {
    EXPECT_EQ(Val("  42"), 42);
    EXPECT_EQ(Val("\t-3\r\n"), -3);
    EXPECT_EQ(Val("1 000"), 1000);
}

TEST(ValueOfText, TooLargeForADoubleIsFailure6AndTooSmallIsZero) {
    EXPECT_FAILURE(6, Val("1e400"));
    EXPECT_FAILURE(6, Val("-1e99999999999"));
    EXPECT_FAILURE(6, Val("1" + std::string(400, '0')));
    EXPECT_FAILURE(6, Val("1" + std::string(400, '0') + ".5"));
    EXPECT_EQ(Val("1e-400"), 0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Val("0e999999"), 0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1e50"), 0);
    EXPECT_FAILURE(6, Val("1" + std::string(400, '0') + "e-50"));
    EXPECT_EQ(Val("1" + std::string(400, '0') + "e-800"), 0);
    EXPECT_EQ(Val("0." + std::string(1329, '0') + "1e1000"), 0);
    EXPECT_FAILURE(6, Val("1" + std::string(1320, '0') + "e-1000"));
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1e401"), 1);
}

TEST(UngroupedText, LosesTheCommasBetweenGroupsOfThreeDigitsOnly) {
    EXPECT_EQ(Ungrouped("1,234.50"), "1234.50");
    EXPECT_EQ(Ungrouped("-12,345,678."), "-12345678.");
    EXPECT_EQ(Ungrouped(" 1,234 lb"), " 1234 lb");
    for (const char* text : {"", "12.5", "1,5", "1,2345", ",123", "1,,234", "a,123", "1,x23", "1,.234"})
        EXPECT_EQ(Ungrouped(text), text);
    for (const double value : {0.0, 999.99, -1000.0, 1234567.25})
        EXPECT_EQ(Val(Ungrouped(FNRoundStr(value, 2))), value);
}

TEST(NumberOfText, TakesAWholeNumberWithBlanksAround) {
    for (const char* text : {"42", " 42", "42 ", "  42  ", "   42   ", "\t42\r\n"})
        EXPECT_EQ(Number_Of(text), 42) << text;
    EXPECT_EQ(Number_Of("12.5"), 12.5);
    EXPECT_EQ(Number_Of("  -3 "), -3);
    EXPECT_EQ(Number_Of("+1E+2"), 100);
    EXPECT_EQ(Number_Of(".5"), 0.5);
}

TEST(NumberOfText, EndsWhereThePartOfATextEndsThatItIsGiven) {
    const std::string_view text = "12.5e3,456";
    for (const auto& [length, value] : {std::pair{1U, 1.0}, {2U, 12.0}, {3U, 12.0}, {4U, 12.5}, {6U, 12500.0}}) {
        EXPECT_EQ(Number_Of(text.substr(0, length)), value);
        EXPECT_EQ(Leading_Number(text.substr(0, length)), text.substr(0, length));
    }
    EXPECT_FAILURE(13, Number_Of(text.substr(0, 5)));
    EXPECT_EQ(Leading_Number(text.substr(0, 5)), "12.5");
    EXPECT_EQ(Ungrouped(text.substr(5, 4)), "3,45");
    EXPECT_EQ(Ungrouped(text.substr(5)), "3456");
}

TEST(NumberOfText, AnythingElseIsFailure13) {
    for (const char* text :
         {"", "  ", "abc", "1.5abc", "1 000", "inf", "nan", "0x10", "1,5", "--1", "1e", ".", "-.", ".e5"})
        EXPECT_FAILURE(13, Number_Of(text));
    EXPECT_FAILURE(6, Number_Of("1e400"));
}

}  // namespace

}  // namespace verlink::test
