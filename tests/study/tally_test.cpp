// Summaries hold what the values are, whatever order they come in and however they are shared out.
#include "study/tally.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include "study/summary.h"

namespace verlink::study {

namespace {

std::vector<float> Values(int count, double middle, double width) {
    std::mt19937 random(3);
    std::normal_distribution<double> number(middle, width);
    std::vector<float> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) values.push_back(static_cast<float>(number(random)));
    return values;
}

Tally Tally_Of(const std::vector<float>& values, double about = 0) {
    Tally tally(about);
    for (std::size_t i = 0; i < values.size(); ++i) tally.Add(values[i], i);
    return tally;
}

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

TEST(Exact_Sum, LosesNothing) {
    Exact_Sum sum;
    for (const double value : {1e300, 1.0, -1e300, 0x1p-1074, 0.1, -0.1, -0x1p-1074}) sum.Add(value);
    EXPECT_EQ(sum.Value(), 1.0);
    sum.Add(-1.0);
    EXPECT_EQ(sum.Value(), 0.0);
    sum.Add(-3.25);
    EXPECT_EQ(sum.Value(), -3.25);
    sum.Add(-std::numeric_limits<double>::max());
    EXPECT_EQ(sum.Value(), -std::numeric_limits<double>::max());
}

TEST(Exact_Sum, OfOneNumberIsThatNumberWhateverItsPowerOfTwo) {
    for (int power = -1074; power <= 1023; ++power)
        for (const double value :
             {std::ldexp(1.0, power), -std::ldexp(1.0, power), std::ldexp(0x1.fffffffffffffp0, power)}) {
            Exact_Sum sum, twice, read;
            sum.Add(value);
            ASSERT_EQ(sum.Value(), value) << power;
            ASSERT_TRUE(read.Take(sum.Text()));
            ASSERT_EQ(read.Value(), value) << power;
            twice.Add(value / 2);
            twice.Add(value - value / 2);
            ASSERT_TRUE(twice == sum) << power;
        }
}

TEST(Exact_Sum, IsTheSameInAnyOrderAndComesBackFromItsText) {
    std::vector<float> values = Values(2000, -3, 1e4);
    Exact_Sum forth, back, halves[2];
    for (const float value : values) forth.Add(value);
    for (std::size_t i = 0; i < values.size(); ++i) halves[i % 2].Add(values[i]);
    std::ranges::reverse(values);
    for (const float value : values) back.Add(value);
    halves[0].Add(halves[1]);
    EXPECT_TRUE(forth == back);
    EXPECT_TRUE(forth == halves[0]);
    long double plain = 0;
    for (const float value : values) plain += value;
    EXPECT_NEAR(forth.Value(), static_cast<double>(plain), 1e-9);
    Exact_Sum read;
    ASSERT_TRUE(read.Take(forth.Text()));
    EXPECT_TRUE(read == forth);
    EXPECT_FALSE(read.Take("1:2"));
    EXPECT_FALSE(read.Take(forth.Text() + ":1"));
}

TEST(Exact_Sum, CarriesFromItsLowestDigitOn) {
    const double half = 0x1p-1043;  // of what the lowest digit holds
    Exact_Sum one, other, both;
    one.Add(half);
    other.Add(half);
    both.Add(2 * half);
    one.Add(other);
    EXPECT_TRUE(one == both);
    // Between two doubles, and by one unit nearer to the greater of them.
    Exact_Sum sum, turned;
    for (const double value : {0x1p-989, 0x1p-1042, 0x1p-1074}) {
        sum.Add(value);
        turned.Add(-value);
    }
    EXPECT_EQ(turned.Value(), -sum.Value());
}

TEST(Exact_Sum, TakesNoDigitThatIsTooLarge) {
    Exact_Sum sum, ahead, carried;
    const std::string rest(66, ':');
    ASSERT_TRUE(ahead.Take("4294967296:2" + rest));
    ASSERT_TRUE(carried.Take(":3" + rest));
    EXPECT_TRUE(ahead == carried) << "but one that is ahead of itself";
    sum.Add(1);
    std::string text = sum.Text();
    ASSERT_TRUE(Exact_Sum().Take(text));
    text.replace(0, text.find(':'), "99999999999999999999999");
    EXPECT_FALSE(Exact_Sum().Take(text));
}

TEST(Tally, IsExactForFewValues) {
    EXPECT_EQ(Tally_Of({0.0F, -0.0F}).Spread().Text(), Tally_Of({0.0F, 0.0F}).Spread().Text());
    const std::vector<float> values{3, 1, 2, 5, 4};
    const Tally tally = Tally_Of(values);
    EXPECT_EQ(tally.Mean(), 3);
    EXPECT_NEAR(tally.Deviation(), std::sqrt(2.5), 1e-15);
    EXPECT_EQ(tally.Spread().Quantile(0), 1);
    EXPECT_EQ(tally.Spread().Quantile(0.5), 3);
    EXPECT_EQ(tally.Spread().Quantile(0.625), 3.5);
    EXPECT_EQ(tally.Spread().Quantile(1), 5);
    EXPECT_EQ(tally.Spread().Between({1, 2, 4, 5}), (std::vector<std::uint64_t>{1, 2, 2}));
    EXPECT_EQ(tally.Spread().Between({2, 4, 4.5}), (std::vector<std::uint64_t>{3, 2})) << "with what lies beyond";
    EXPECT_EQ(tally.Lowest().front(), (Tally::Extreme{1, 1}));
    EXPECT_EQ(tally.Highest().front(), (Tally::Extreme{5, 3}));
}

TEST(Tally, TheTenLeastAndGreatestStandInOrder) {
    Tally tally;
    for (int i = 0; i < 30; ++i) tally.Add(static_cast<float>(i >> 1U), 100 - i);
    tally.Add(std::numeric_limits<float>::quiet_NaN(), 7);
    ASSERT_EQ(tally.Lowest().size(), 10u);
    ASSERT_EQ(tally.Highest().size(), 10u);
    for (std::size_t i = 0; i < 10; ++i) {
        // Of two alike the one with the smaller number, which came second.
        const std::uint64_t low = 100 - (i % 2 == 0 ? i + 1 : i - 1);
        const std::size_t pair = i / 2;
        EXPECT_EQ(tally.Lowest()[i], (Tally::Extreme{static_cast<float>(pair), low}));
        EXPECT_EQ(tally.Highest()[i], (Tally::Extreme{static_cast<float>(14 - pair), 71 + i}));
    }
    EXPECT_EQ(tally.None(), 1u);
    Tally one;
    one.Add(3, 1);
    EXPECT_EQ(one.Deviation(), 0);
    EXPECT_EQ(Tally_Of({0.1F}, 7.3).Deviation(), 0) << "wherever it is";
    one.Add(5, 2);
    EXPECT_NEAR(one.Deviation(), std::sqrt(2.0), 1e-15);
}

/// More values than bins, near one place and through zero.
TEST(Tally, QuantilesOfManyAreWithinABin) {
    for (const double middle : {0.0, 40.0}) {
        std::vector<float> values = Values(50000, middle, 0.05);
        const Tally tally = Tally_Of(values, middle);
        std::ranges::sort(values);
        for (const double share : {0.0, 0.01, 0.25, 0.5, 0.9, 0.999, 1.0}) {
            const double exact = values[static_cast<std::size_t>(share * 49999)];
            EXPECT_NEAR(tally.Spread().Quantile(share), exact, 0.05 * 0.01) << middle << " " << share;
        }
        double sum = 0, squares = 0;
        for (const float v : values) sum += v;
        for (const float v : values) squares += std::pow(v - sum / 50000, 2);
        EXPECT_NEAR(tally.Mean(), sum / 50000, 1e-10);
        EXPECT_NEAR(tally.Deviation(), std::sqrt(squares / 49999), 1e-10);
    }
}

/// Bins of two neighbours each, and a quantile in the middle of one.
TEST(Tally, WithinABinAQuantileGoesEvenlyFromTheLeastToTheGreatest) {
    std::vector<float> values;
    values.reserve(40000);
    for (int i = 0; i < 40000; ++i) values.push_back(1 + static_cast<float>(i) / 40000);
    const Tally tally = Tally_Of(values, 1.5);
    for (const double share : {0.1, 0.35, 0.5, 0.77})
        EXPECT_NEAR(tally.Spread().Quantile(share), 1 + share * 39999 / 40000, 3e-5) << share;
}

TEST(Tally, IsTheSameInAnyOrderAndFromParts) {
    std::vector<float> values = Values(30000, 1, 3);
    values[5] = std::numeric_limits<float>::quiet_NaN();
    values[17] = values[18] = values[4000] = -9999;
    const std::string whole = Tally_Of(values, 1).Text();
    Tally back(1), parts(1);
    for (std::size_t i = values.size(); i-- > 0;) back.Add(values[i], i);
    EXPECT_EQ(back.Text(), whole);
    for (std::size_t part = 0; part < 7; ++part) {
        Tally tally(1), read(1);
        for (std::size_t i = part; i < values.size(); i += 7) tally.Add(values[i], i);
        ASSERT_TRUE(read.Take(Lines(tally.Text())));
        parts.Add(read);
    }
    EXPECT_EQ(parts.Text(), whole);
    EXPECT_EQ(parts.None(), 1u);
    EXPECT_EQ(parts.Lowest()[0], (Tally::Extreme{-9999, 17}));
    EXPECT_EQ(parts.Lowest()[2], (Tally::Extreme{-9999, 4000}));
}

TEST(Tally, BinsOfTwoGetNoWiderThanThoseOfEither) {
    Tally few = Tally_Of({1, 2, 3}), more(0);
    for (const float value : {4.0F, 5.0F}) more.Add(value, static_cast<std::uint64_t>(value) - 1);
    few.Add(more);
    EXPECT_EQ(few.Text(), Tally_Of({1, 2, 3, 4, 5}).Text());
    // In the widest there is one bin for all.
    Spread_Of_Values widest, one;
    ASSERT_TRUE(widest.Take("32 0 2 1065353216 1073741824"));
    one.Add(3);
    widest.Add(one);
    EXPECT_EQ(widest.Text(), "32 0 3 1065353216 1077936128 ") << "from 1 to 3";
    EXPECT_EQ(widest.Quantile(0.5), 2);
    Spread_Of_Values wider;
    ASSERT_TRUE(wider.Take("31 1 2 1065353216 1073741824"));
    wider.Add(one);
    EXPECT_EQ(wider.Text(), "31 1 3 1065353216 1077936128 ") << "which is that of the positive ones";
    Spread_Of_Values as_wide;
    ASSERT_TRUE(as_wide.Take("31 1 1 1077936128 1077936128"));
    wider.Add(as_wide);
    EXPECT_EQ(wider.Text(), "31 1 4 1065353216 1077936128 ");
}

TEST(Summaries, OfPartsAreThatOfTheWhole) {
    Summary one({1, kNone}), other({1, kNone});
    one.solved = 5;
    other.solved = 7;
    one.Add(std::array{2.0F, 8.0F}, 0);
    one.Add(std::array{4.0F, kNone}, 1);
    other.Add(std::array{9.0F, 10.0F}, 2);
    one.Add(other);
    EXPECT_EQ(one.solved, 12U);
    EXPECT_EQ(one.kept, 3U);
    EXPECT_EQ(one.measures[0].Mean(), 5);
    EXPECT_EQ(one.measures[1].Mean(), 9);
    EXPECT_EQ(one.measures[1].None(), 1U);
}

TEST(Summaries, OfAMeasureThatTheModelHasNotLoseNothingOfSmallValues) {
    Summary summary({kNone});
    for (const float value : {1e-20F, 3e-20F}) summary.Add(std::array{value}, 0);
    EXPECT_NEAR(summary.measures[0].Mean(), 2e-20, 1e-26);
    EXPECT_NEAR(summary.measures[0].Deviation(), std::sqrt(2.0) * 1e-20, 1e-26);
}

TEST(Tally, TakesNoLinesThatAreNone) {
    Tally tally;
    const std::vector<std::string> lines = Lines(Tally_Of({1, 2, 3}).Text());
    ASSERT_TRUE(tally.Take(lines));
    ASSERT_TRUE(tally.Take(lines));
    EXPECT_EQ(tally.Text(), Tally_Of({1, 2, 3}).Text()) << "once, whatever it was before";
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> broken = lines;
        broken[i] += "x";
        EXPECT_FALSE(tally.Take(broken)) << i;
        // A value without its linkage, or a bin without its greatest.
        broken[i] = lines[i].substr(0, lines[i].find_last_of(' ', lines[i].size() - 2) + 1);
        if (lines[i].find(' ') + 1 < lines[i].size()) {
            EXPECT_FALSE(tally.Take(broken)) << i;
        }
    }
    EXPECT_FALSE(tally.Take({}));
    Spread_Of_Values spread;
    EXPECT_FALSE(spread.Take("")) << "nor nothing at all";
    EXPECT_FALSE(spread.Take("33"));
    EXPECT_TRUE(spread.Take("32"));
    EXPECT_TRUE(spread.Take("0 4294967295 1 0 0"));
    EXPECT_FALSE(spread.Take("0 4294967296 1 0 0")) << "no single has such bits";
    EXPECT_FALSE(spread.Take("0 5 1 4294967296 0"));
    EXPECT_FALSE(spread.Take("0 5 1 0 4294967296"));
    for (const char* broken : {"0 5", "0 5 1", "0 5 1 0", "0 x"}) EXPECT_FALSE(spread.Take(broken)) << broken;
    std::string bins = "0";
    for (int key = 1; key <= 4096; ++key) bins += " " + std::to_string(key) + " 1 0 0";
    EXPECT_TRUE(spread.Take(bins));
    EXPECT_EQ(spread.Count(), 4096u);
    EXPECT_FALSE(spread.Take(bins + " 5000 1 0 0"));
}

}  // namespace

}  // namespace verlink::study
