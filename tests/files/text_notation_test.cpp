// Values as text, one after another: what is written, and what is read back.
#include "files/text_notation.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

template <class Value>
std::string Written(Value value) {
    TextWriter writer;
    writer.Put(value);
    writer.EndLine();
    return writer.Content();
}

template <class Action>
long Failure_Of(Action action) {
    try {
        action();
        return 0;
    } catch (const platform::RuntimeFailure& failure) {
        return failure.Number();
    }
}

std::string Reread(const std::string& value) {
    const std::string text = Written(value) + "7\r\n";
    TextReader reader(text);
    std::string read = reader.String();
    EXPECT_EQ(reader.Short(), 7) << text;
    return read;
}

}  // namespace

TEST(TextWriterTest, StringsStandInQuotesAndAnEmptyOneIsTwoQuotes) {
    EXPECT_EQ(Written("Crank, rocker"), "\"Crank, rocker\"\r\n");
    EXPECT_EQ(Written(std::string()), "\"\"\r\n");
}

TEST(TextWriterTest, WholeNumbersAreDecimal) {
    EXPECT_EQ(Written(Integer(-32768)), "-32768\r\n");
    EXPECT_EQ(Written(Integer(360)), "360\r\n");
    EXPECT_EQ(Written(Long(2147483647)), "2147483647\r\n");
}

TEST(TextWriterTest, SinglesAreTheShortestDecimalOfUpToSevenDigits) {
    EXPECT_EQ(Written(Single(0)), "0\r\n");
    EXPECT_EQ(Written(Single(-0.0)), "0\r\n");
    EXPECT_EQ(Written(Single(0.05)), "0.05\r\n");
    EXPECT_EQ(Written(Single(-92.66)), "-92.66\r\n");
    EXPECT_EQ(Written(Single(2.0 / 3)), "0.6666667\r\n");
    EXPECT_EQ(Written(Single(1234567)), "1234567\r\n");
    EXPECT_EQ(Written(Single(1.234568e-5)), "1.234568E-05\r\n");
    EXPECT_EQ(Written(Single(1e7)), "1E+07\r\n");
    EXPECT_EQ(Written(Single(-3.402823e38)), "-3.402823E+38\r\n");
}

TEST(TextWriterTest, BooleansStandInHashes) {
    EXPECT_EQ(Written(true), "#TRUE#\r\n");
    EXPECT_EQ(Written(false), "#FALSE#\r\n");
}

TEST(TextWriterTest, ValuesOfOneLineHaveCommasBetweenThem) {
    TextWriter writer;
    writer.Put(Single(1.5));
    writer.Put(Single(-2));
    writer.Put("a");
    writer.Put(Integer(3));
    writer.Put(Long(40000));
    writer.Put(false);
    writer.EndLine();
    writer.Put(true);
    writer.EndLine();
    EXPECT_EQ(writer.Content(), "1.5,-2,\"a\",3,40000,#FALSE#\r\n#TRUE#\r\n");
}

TEST(TextReaderTest, ACommaAndALineEndAlikeEndAValue) {
    TextReader reader("1,2\r\n3\n4\r5");
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(reader.Short(), i);
    EXPECT_TRUE(reader.AtEnd());
}

TEST(TextReaderTest, ANumberMayLackItsZeroBeforeThePoint) {
    TextReader reader(".5\r\n-.25\r\n0.5\r\n+3\r\n1.5E-02\r\n 7 \r\n");
    for (const double expected : {0.5, -0.25, 0.5, 3.0, static_cast<double>(0.015F), 7.0})
        EXPECT_EQ(reader.Float(), expected);
}

TEST(TextReaderTest, ANumberOfAColumnEndsAtABlankToo) {
    TextReader reader(" 45           10           -5 \r\n 1.5\t2 , 3\r\n\r\n4 \n\n\"a b\"");
    for (const double expected : {45.0, 10.0, -5.0, 1.5, 2.0, 3.0}) EXPECT_EQ(reader.Column(), expected);
    EXPECT_EQ(reader.String(), "") << "the blank before a line end does not hide the empty line behind it";
    EXPECT_EQ(reader.Column(), 4);
    EXPECT_EQ(reader.String(), "");
    EXPECT_EQ(reader.String(), "a b");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(Failure_Of([&] { reader.Column(); }), 62);
    TextReader words("\"1\" one 1E+39 ");
    EXPECT_EQ(Failure_Of([&] { words.Column(); }), 13);
    EXPECT_EQ(Failure_Of([&] { words.Column(); }), 13);
    EXPECT_EQ(Failure_Of([&] { words.Column(); }), 6);
}

TEST(TextReaderTest, StringsMayHoldCommasLineEndsAndQuotes) {
    for (const char* text : {"", "plain", "a, b", "two\r\nlines", "12\" stroke", "\"", "\"\"", "ends in \"",
                             "\" starts", " blanks ", ",", "\r\n", "#TRUE#", "7"})
        EXPECT_EQ(Reread(text), text);
}

TEST(TextReaderTest, AQuoteThatWouldEndItsStringIsWrittenAsTwoApostrophes) {
    EXPECT_EQ(Reread("10\", 12\" and 14\""), "10'', 12\" and 14\"");
    EXPECT_EQ(Reread("10\" \r\n12"), "10'' \r\n12");
}

TEST(TextReaderTest, AStringWithoutQuotesIsTakenAsItStands) {
    TextReader reader(" plain text , next\r\n\r\nlast");
    EXPECT_EQ(reader.String(), "plain text");
    EXPECT_EQ(reader.String(), "next");
    EXPECT_EQ(reader.String(), "");
    EXPECT_EQ(reader.String(), "last");
}

TEST(TextReaderTest, BlanksAroundAQuotedStringDoNotCount) {
    TextReader reader("  \"a\"  , \t\"b\" \r\n\"c\",,\"d\"\n\n7");
    EXPECT_EQ(reader.String(), "a");
    EXPECT_EQ(reader.String(), "b");
    EXPECT_EQ(reader.String(), "c");
    EXPECT_EQ(reader.String(), "") << "between two commas";
    EXPECT_EQ(reader.String(), "d");
    EXPECT_EQ(reader.String(), "") << "an empty line";
    EXPECT_EQ(reader.Short(), 7);
    EXPECT_TRUE(reader.AtEnd());
}

TEST(TextReaderTest, AByteOrderMarkInFrontIsNoneOfTheContentAndOneFurtherOnIs) {
    TextReader quoted("\xef\xbb\xbf\"a\"\r\n\xef\xbb\xbf\"b\"");
    EXPECT_EQ(quoted.String(), "a");
    EXPECT_EQ(quoted.String(), "\xef\xbb\xbf\"b\"");
    TextReader number(
        "\xef\xbb\xbf"
        "360\r\n");
    EXPECT_EQ(number.Short(), 360);
    TextReader nothing("\xef\xbb\xbf");
    EXPECT_TRUE(nothing.AtEnd());
    EXPECT_EQ(Failure_Of([&] { nothing.String(); }), 62);
}

TEST(TextReaderTest, PastTheEndIsFailure62) {
    for (const char* text : {"", "  ", "\"never ends", "\"", "\"ends \" not\r\n"}) {
        TextReader reader(text);
        EXPECT_EQ(Failure_Of([&] { reader.String(); }), 62) << text;
    }
    TextReader numbers("1\r\n");
    numbers.Short();
    EXPECT_EQ(Failure_Of([&] { numbers.Short(); }), 62);
    EXPECT_EQ(Failure_Of([&] { numbers.Float(); }), 62);
    EXPECT_EQ(Failure_Of([&] { numbers.LongInteger(); }), 62);
    EXPECT_EQ(Failure_Of([&] { numbers.Boolean(); }), 62);
}

TEST(TextReaderTest, AValueOfTheWrongKindIsFailure13) {
    for (const char* text : {"\"1\"", "one", "1.2.3", "1e", "-", "", "#TRUE#", "0x10", "inf", "nan", "1 2"}) {
        const std::string content = std::string(text) + "\r\n";
        TextReader reader(content);
        EXPECT_EQ(Failure_Of([&] { reader.Float(); }), 13) << text;
    }
    for (const char* text : {"1", "0", "TRUE", "#YES#", "\"#TRUE#\"", "#true", ""}) {
        const std::string content = std::string(text) + "\r\n";
        TextReader reader(content);
        EXPECT_EQ(Failure_Of([&] { reader.Boolean(); }), 13) << text;
    }
}

TEST(TextReaderTest, ANumberBeyondItsTypeIsFailure6) {
    const auto fails = [](const std::string& text, auto read) {
        TextReader reader(text);
        return Failure_Of([&] { read(reader); });
    };
    EXPECT_EQ(fails("32768", [](TextReader& r) { r.Short(); }), 6);
    EXPECT_EQ(fails("-32769", [](TextReader& r) { r.Short(); }), 6);
    EXPECT_EQ(fails("2147483648", [](TextReader& r) { r.LongInteger(); }), 6);
    EXPECT_EQ(fails("1E+39", [](TextReader& r) { r.Float(); }), 6);
    EXPECT_EQ(fails("-1E+400", [](TextReader& r) { r.Float(); }), 6);
    EXPECT_EQ(fails(std::string(1000000, '9'), [](TextReader& r) { r.Float(); }), 6);
    EXPECT_EQ(fails("32767.4", [](TextReader& r) { EXPECT_EQ(r.Short(), 32767); }), 0);
    EXPECT_EQ(fails("1E-400", [](TextReader& r) { EXPECT_EQ(r.Float(), 0); }), 0);
}

// Seven digits do not hold every single; but what was written once stays as it is from then on.
TEST(TextNotationTest, ANumberWrittenReadAndWrittenAgainIsTheSameText) {
    std::mt19937 random(20261121);
    std::uniform_int_distribution<std::uint32_t> bits;
    int tried = 0;
    while (tried < 200000) {
        const std::uint32_t pattern = bits(random);
        float value = 0;
        static_assert(sizeof value == sizeof pattern);
        std::memcpy(&value, &pattern, sizeof value);
        if (!std::isfinite(value)) continue;
        ++tried;
        const std::string first = Written(Single(static_cast<double>(value)));
        TextReader reader(first);
        const Single read = reader.Float();
        ASSERT_EQ(Written(read), first);
        ASSERT_NEAR(read, static_cast<double>(value), std::abs(static_cast<double>(value)) * 5.7e-7 + 2e-45);
    }
}

}  // namespace verlink::test
