// Fields and numbers of the tables.
#include "batch/csv.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>

namespace verlink::test {

TEST(CsvField, StandsBareUnlessItHoldsACommaAQuoteOrALineEnd) {
    EXPECT_EQ(Csv_Field(""), "");
    EXPECT_EQ(Csv_Field("w4 / w2"), "w4 / w2");
    EXPECT_EQ(Csv_Field("Can't Connect"), "Can't Connect");
    EXPECT_EQ(Csv_Field("Veloc I 2,3 X"), "\"Veloc I 2,3 X\"");
    EXPECT_EQ(Csv_Field("a \"b\""), "\"a \"\"b\"\"\"");
    EXPECT_EQ(Csv_Field("a\nb"), "\"a\nb\"");
    EXPECT_EQ(Csv_Field("a\rb"), "\"a\rb\"");
}

TEST(Shortest, IsTheShortestTextOfWellKnownValues) {
    EXPECT_EQ(Shortest(0), "0");
    EXPECT_EQ(Shortest(-0.0), "-0");
    EXPECT_EQ(Shortest(1), "1");
    EXPECT_EQ(Shortest(0.1), "0.1");
    EXPECT_EQ(Shortest(-92.66), "-92.66");
    EXPECT_EQ(Shortest(1.0 / 3), "0.33333334");
    EXPECT_EQ(Shortest(16777216), "16777216");
    EXPECT_EQ(Shortest(1e-12), "1e-12");
}

TEST(Shortest, ReadsBackToTheSame32Bits) {
    std::mt19937 bits(20260731);
    int tried = 0;
    while (tried < 20000) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits()));
        if (!(value >= -std::numeric_limits<float>::max() && value <= std::numeric_limits<float>::max())) continue;
        ++tried;
        const float back = std::strtof(Shortest(static_cast<double>(value)).c_str(), nullptr);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(value)) << Shortest(value);
    }
}

TEST(Shortest, HasNoShorterTextThatReadsBackTheSame) {
    std::mt19937 bits(7);
    std::uniform_real_distribution<float> some(-1000, 1000);
    for (int i = 0; i < 2000; ++i) {
        const float value = some(bits);
        const std::string text = Shortest(static_cast<double>(value));
        // One significant digit fewer must not be enough.
        std::size_t digits = 0;
        for (const char letter : text.substr(0, text.find('e')))
            if (letter >= '0' && letter <= '9' && (digits > 0 || letter != '0')) ++digits;
        if (digits < 2 || text.find('.') == std::string::npos) continue;
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits) - 2, static_cast<double>(value));
        EXPECT_NE(std::strtof(shorter, nullptr), value) << text;
    }
}

}  // namespace verlink::test
