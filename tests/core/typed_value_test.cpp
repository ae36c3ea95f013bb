// What a typed text is read as.
#include "core/typed_value.h"

#include <gtest/gtest.h>

#include <string>

namespace verlink {

namespace {

const TypedForm kInches{{{"in", 1}, {"ft", 12}, {"m", 1 / 0.0254}, {"cm", 0.01 / 0.0254}, {"mm", 0.001 / 0.0254}}};
const TypedForm kTorques{{{"N-m", 1}, {"N-mm", 0.001}, {"lb-in", 0.1129848388}}};
const TypedForm kGrouped{{}, true};

/// The text that is shown for what was read whole; what could not be read whole stands in angle brackets.
std::string Shown(const std::string& text, const TypedForm& form = {}) {
    const platform::Reading reading = Read_Typed(text, form);
    return reading.whole ? reading.text : "<" + reading.text + ">";
}

TEST(TypedValue, APlainNumberStaysAsItWasTyped) {
    for (const char* text : {"2.5", "-2.50", "+3", ".5", "5.", "1e3", "1d-3", " 7 ", "1 500", "007", "1e999"})
        EXPECT_EQ(Shown(text), text);
}

TEST(TypedValue, ABlankTextStaysBlank) {
    EXPECT_EQ(Shown(""), "");
    EXPECT_EQ(Shown("  "), "  ");
}

TEST(TypedValue, ACommaIsThePointWhereItCanBeNothingElse) {
    EXPECT_EQ(Shown("1,5"), "1.5");
    EXPECT_EQ(Shown("-1,25"), "-1.25");
    EXPECT_EQ(Shown(",5"), "0.5");
    EXPECT_EQ(Shown("1,5e3"), "1500");
    EXPECT_EQ(Shown("1,2345"), "1.2345");
    EXPECT_EQ(Shown("0,500"), "0.5") << "no thousands begin with 0";
    EXPECT_EQ(Shown("1234,567"), "1234.567") << "nor with four digits";
    EXPECT_EQ(Shown("1,5*2"), "3");
}

TEST(TypedValue, ACommaBeforeThreeDigitsHasTwoMeaningsAndIsNotRead) {
    EXPECT_EQ(Shown("1,500"), "<1>");
    EXPECT_EQ(Shown("-12,345"), "<-12>");
    EXPECT_EQ(Shown("1,500*2"), "<1>");
    EXPECT_EQ(Read_Typed("1,500", {}).why,
              "Only the beginning, 1, could be read: the comma may part thousands or be a decimal point.");
}

TEST(TypedValue, ThousandsThatCanBeNothingElseAreRead) {
    EXPECT_EQ(Shown("1,234.5"), "1234.5");
    EXPECT_EQ(Shown("1,234,567"), "1234567");
    EXPECT_EQ(Shown("1,23,456"), "<1>");
    EXPECT_EQ(Shown("1.234,5"), "<1.234>");
}

TEST(TypedValue, ABoxThatPartsThousandsItselfReadsWhatItWrites) {
    EXPECT_EQ(Shown("1,500", kGrouped), "1,500");
    EXPECT_EQ(Shown("-1,500.250", kGrouped), "-1,500.250");
    EXPECT_EQ(Shown("-123,500.250", kGrouped), "-123,500.250");
    EXPECT_EQ(Shown("+123,500.250", kGrouped), "+123,500.250");
    EXPECT_EQ(Shown("1,500*2", kGrouped), "3000");
    EXPECT_EQ(Shown("1,5", kGrouped), "1.5");
    EXPECT_EQ(Shown("1234,567", kGrouped), "1234.567");
}

TEST(TypedValue, NumbersAreJoinedAsOnPaper) {
    EXPECT_EQ(Shown("1/4"), "0.25");
    EXPECT_EQ(Shown("8/1"), "8");
    EXPECT_EQ(Shown("2*1.115"), "2.23");
    EXPECT_EQ(Shown("1+2*3"), "7");
    EXPECT_EQ(Shown("10-4-3"), "3");
    EXPECT_EQ(Shown("2*(10-4-3)"), "6");
    EXPECT_EQ(Shown("(7 - 2 + 1) * 3"), "18");
    EXPECT_EQ(Shown("24/4/2"), "3");
    EXPECT_EQ(Shown("-(1 + 2) * 3"), "-9");
    EXPECT_EQ(Shown("2*-3"), "-6");
    EXPECT_EQ(Shown("((((7))))"), "7");
    EXPECT_EQ(Shown("1/3"), "0.3333333");
    EXPECT_EQ(Shown("1e3+1"), "1001");
}

TEST(TypedValue, WhatIsNoSumIsReadAsFarAsItsFirstNumber) {
    EXPECT_EQ(Shown("1/0"), "<1>");
    EXPECT_EQ(Shown("2*"), "<2>");
    EXPECT_EQ(Shown("2**3"), "<2>");
    EXPECT_EQ(Shown("(1+2"), "<0>");
    EXPECT_EQ(Shown("1+2)"), "<1>");
    EXPECT_EQ(Shown("2 pi"), "<2>");
    EXPECT_EQ(Shown(" \t 2 pi"), "<2>");
    EXPECT_EQ(Shown("sin(3)"), "<0>");
    EXPECT_EQ(Shown("1.5.2"), "<1.5>");
    EXPECT_EQ(Shown("1.5e"), "<1.5>");
    EXPECT_EQ(Shown("5,"), "<5>");
    EXPECT_EQ(Shown("1 1/2"), "<1>") << "not eleven halves";
    EXPECT_EQ(Shown("1e30*1e30"), "<1e30>") << "no field holds it";
    EXPECT_EQ(Shown(std::string(100000, '(') + "1"), "<0>");
    EXPECT_EQ(Shown(std::string(50, '(') + "1" + std::string(50, ')')), "<0>");
    EXPECT_EQ(Read_Typed("2 pi", {}).why, "Only the beginning, 2, could be read.");
}

TEST(TypedValue, FortyBracketsWithinEachOtherAreRead) {
    const auto within = [](std::size_t count) { return std::string(count, '(') + "7" + std::string(count, ')'); };
    EXPECT_EQ(Shown(within(40)), "7");
    EXPECT_EQ(Shown(within(41)), "<0>");
}

TEST(TypedValue, ThousandsBeginWithOneToThreeDigitsThatAreNotZero) {
    EXPECT_EQ(Shown("12,345.5"), "12345.5");
    EXPECT_EQ(Shown("123,456.5"), "123456.5");
    EXPECT_EQ(Shown("-123,456,789"), "-1.234568E+08");
    EXPECT_EQ(Shown("1234,567.5"), "<1234>");
    EXPECT_EQ(Shown("0,500.5"), "<0>");
    EXPECT_EQ(Shown(",500.5"), "<0>");
    EXPECT_EQ(Shown("1,2345.5"), "<1>");
    EXPECT_EQ(Shown("1,234.5,678"), "<1>");
    for (const char* text : {"+1,500", "+123,456", "-123,456"}) EXPECT_EQ(Shown(text, kGrouped), text);
    EXPECT_EQ(Shown("1,500.", kGrouped), "1,500.");
    EXPECT_EQ(Shown("-", kGrouped), "<0>");
}

TEST(TypedValue, AUnitEndsWhereNeitherLetterNorDigitFollows) {
    const TypedForm form{{{"in", 1}, {"az", 2}, {"m^2", 3}}};
    for (const char* behind : {"a", "z", "A", "Z", "m", "0", "9"})
        EXPECT_EQ(Shown("3 in" + std::string(behind), form), "<3>") << behind;
    for (const char* text : {"3 in", "3 in ", "3\tin"}) EXPECT_EQ(Shown(text, form), "3") << text;
    for (const char* text : {"3 az", "3 AZ", "3 aZ", "3 a z"}) EXPECT_EQ(Shown(text, form), "6") << text;
    for (const char* text : {"3 m^2", "3 m2", "3 m-2", "3 m*2", "3 m.2", "3 M^2"})
        EXPECT_EQ(Shown(text, form), "9") << text;
    EXPECT_EQ(Shown("3 in + 2 az - 1 in", form), "6");
    EXPECT_EQ(Shown("3 in + 2", form), "<3>");
    EXPECT_EQ(Shown("3 {n", form), "<3>");
    EXPECT_EQ(Shown("3 i[", form), "<3>");
}

TEST(TypedValue, AnExponentNeedsItsDigits) {
    for (const char* text : {"1e+2*1", "1E2*1", "1d2*1", "1D2*1", "100*1"}) EXPECT_EQ(Shown(text), "100") << text;
    EXPECT_EQ(Shown("100e-2*1"), "1");
    EXPECT_EQ(Shown("2*1e"), "<2>");
    EXPECT_EQ(Shown("2*1e+"), "<2>");
    EXPECT_EQ(Shown("2e+3+1"), "2001");
    EXPECT_EQ(Shown("2*3e", {{{"e", 5}}}), "30");
    EXPECT_EQ(Shown("2*3 e", {{{"e", 5}}}), "30") << "where it is no exponent it may be a unit";
}

TEST(TypedValue, ATextWithoutANumberIsZeroOrLeftToAStrictReader) {
    EXPECT_EQ(Shown("abc"), "<0>");
    EXPECT_EQ(Shown("abc", {{}, false, true}), "<abc>");
    EXPECT_EQ(Shown("2 pi", {{}, false, true}), "<2 pi>");
    EXPECT_EQ(Read_Typed("abc", {}).why, "This is no number.");
}

TEST(TypedValue, AUnitIsTurnedIntoThatOfTheBox) {
    EXPECT_EQ(Shown("25.4 mm", kInches), "1");
    EXPECT_EQ(Shown("3mm", kInches), "0.1181102");
    EXPECT_EQ(Shown("2 ft", kInches), "24");
    EXPECT_EQ(Shown("5 in", kInches), "5");
    EXPECT_EQ(Shown("1/2 FT", kInches), "6");
    EXPECT_EQ(Shown("(1+1) ft", kInches), "24");
    EXPECT_EQ(Shown("2,54 cm", kInches), "1");
    EXPECT_EQ(Shown("1 ft - 2 in", kInches), "10");
    EXPECT_EQ(Shown("1 m", kInches), "39.37008");
}

TEST(TypedValue, AUnitOfSomethingElseOrHalfASumWithUnitsIsNotRead) {
    EXPECT_EQ(Shown("3 kg", kInches), "<3>");
    EXPECT_EQ(Shown("3 mm"), "<3>");
    EXPECT_EQ(Shown("3 inch", kInches), "<3>");
    EXPECT_EQ(Shown("3 m2", kInches), "<3>");
    EXPECT_EQ(Shown("1 + 3 mm", kInches), "<1>");
    EXPECT_EQ(Shown("1 ft 2 in", kInches), "<1>");
    EXPECT_EQ(Shown("mm", kInches), "<0>");
}

TEST(TypedValue, TheMarksWithinAUnitMayBeOthersOrBeLeftOut) {
    for (const char* text : {"2 N-m", "2 N- m", "2Nm", "2 n*m", "2 N.m", "2 N m"})
        EXPECT_EQ(Shown(text, kTorques), "2");
    EXPECT_EQ(Shown("2000 Nmm", kTorques), "2");
    EXPECT_EQ(Shown("3 N-m - 1 N-m", kTorques), "2");
    EXPECT_EQ(Shown("1 lb in", kTorques), "0.1129848");
}

}  // namespace

}  // namespace verlink
