// Each pixel of the ink against the definition of what covers it.
#include "platform/ink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include "tests/platform/plain_painter.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Color;
using platform::Ink;
using platform::Point;

constexpr int kInkWide = 61, kInkHigh = 43;
/// One whose last block of eight pixels is whole, and one in which it is not.
constexpr int kWidths[] = {64, 61};
constexpr std::uint32_t kSky = 0xFF3C78B4U;  ///< red 60, green 120, blue 180
constexpr Color kSkyColor = 0xB4783C, kRust = 0x1E5AC8;

/// The same strokes by the ink and by their definition, poured in one colour onto another.
struct Ink_And_Plain {
    explicit Ink_And_Plain(int wide = kInkWide, int high = kInkHigh)
        : ink(wide, high),
          plain(wide, high, kSkyColor),
          pixels(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high), kSky) {}
    void Line(Point from, Point to, double width) {
        ink.Line(from, to, width);
        plain.Line(from, to, width);
    }
    void Circle(Point centre, double radius, double width) {
        ink.Circle(centre, radius, width);
        plain.Circle(centre, radius, width);
    }
    void Expect_Same(double off = 1.6) {
        ink.Pour(pixels, kRust);
        plain.Pour(kRust);
        plain.Expect(pixels, off);
    }
    Ink ink;
    PlainPainter plain;
    std::vector<std::uint32_t> pixels;
};

TEST(InkPixels, ALineInAnyDirectionCoversWhatLiesWithinIt) {
    for (int way = 0; way < 48; ++way)
        for (const double width : {0.7, 1.2, 5.5}) {
            const double turn = 2 * std::numbers::pi * way / 48;
            Ink_And_Plain both(kWidths[way % 2]);
            both.Line({30.3, 21.8}, {30.3 + 17 * std::cos(turn), 21.8 + 17 * std::sin(turn)}, width);
            both.Expect_Same();
            if (testing::Test::HasFatalFailure()) FAIL() << "at " << turn << " of width " << width;
        }
}

TEST(InkPixels, ALineThatIsNearlyLevelOrNearlyUprightIsWhereItIs) {
    for (const double off : {0.0, 0.005, 0.02, 0.6, 1.5})
        for (const double sign : {-1.0, 1.0}) {
            Ink_And_Plain both;
            both.Line({4.2, 20.4}, {55.1, 20.4 + sign * off}, 1.2);
            both.Line({20.7 + sign * off, 39.3}, {20.7, 2.6}, 3);
            both.Expect_Same();
            if (testing::Test::HasFatalFailure()) FAIL() << "off by " << sign * off;
        }
}

TEST(InkPixels, LinesOfAnyLengthAcrossAnyEdgeAreCutThereAndNowhereElse) {
    std::mt19937 dice(21);
    std::uniform_real_distribution<double> x(-30, kInkWide + 30), y(-30, kInkHigh + 30), width(0.3, 9),
        short_way(-2, 2);
    for (int i = 0; i < 150; ++i) {
        Ink_And_Plain both(kWidths[i % 2]);
        const Point from{x(dice), y(dice)};
        both.Line(from,
                  i % 3 == 0 ? Point{from.x + short_way(dice), from.y + short_way(dice)} : Point{x(dice), y(dice)},
                  width(dice));
        both.Line({-4, y(dice)}, {kInkWide + 4, y(dice)}, 1);
        both.Expect_Same();
        if (testing::Test::HasFatalFailure()) FAIL() << "line " << i;
    }
}

TEST(InkPixels, ALineAlongAnEdgeShowsTheHalfThatIsOnTheSheet) {
    // And those beside it that only just do not reach it.
    for (const int wide : kWidths)
        for (const double beyond : {0.0, 1.19, 1.21}) {
            Ink_And_Plain both(wide);
            both.Line({-beyond, 3}, {-beyond, 40}, 1.4);
            both.Line({wide + beyond, 3}, {wide + beyond, 40}, 1.4);
            both.Line({5, -beyond}, {50, -beyond}, 1.4);
            both.Line({5, kInkHigh + beyond}, {50, kInkHigh + beyond}, 1.4);
            both.Expect_Same();
        }
}

TEST(InkPixels, ACircleOfAnySizeAnywhereCoversItsRoundAlone) {
    for (const double radius : {0.0, 0.3, 0.9, 2.5, 11.0, 19.4, 60.0})
        for (const Point centre :
             {Point{30.3, 21.8}, Point{-1.5, 20}, Point{62, 44}, Point{30.5, -12.5}, Point{75, 21}})
            for (const double width : {0.8, 1.2, 4.5}) {
                Ink_And_Plain both(kWidths[static_cast<int>(radius) % 2]);
                both.Circle(centre, radius, width);
                both.Expect_Same();
                if (testing::Test::HasFatalFailure()) FAIL() << radius << " around " << centre.x << ' ' << centre.y;
            }
}

TEST(InkPixels, ACircleThatOnlyJustReachesTheSheetIsSeenThere) {
    for (const double gap : {-0.4, 0.4, 0.9, 1.2}) {
        Ink_And_Plain both;
        both.Circle({-10 - gap, 21}, 10, 1.2);
        both.Circle({kInkWide + 10 + gap, 20}, 10, 1.2);
        both.Circle({30, -10 - gap}, 10, 1.2);
        both.Circle({31, kInkHigh + 10 + gap}, 10, 1.2);
        both.Expect_Same();
    }
}

TEST(InkPixels, ACircleThatIsNowhereLeavesNothing) {
    const double none = std::nan(""), far = 1e300;
    for (const Point centre : {Point{none, 20}, Point{20, none}, Point{far, 20}, Point{-far, 20}, Point{20, far},
                               Point{20, -far}, Point{-200, 20}, Point{20, 300}}) {
        Ink_And_Plain both;
        both.ink.Circle(centre, 10, 1.2);
        both.ink.Circle({20, 20}, none, 1.2);
        EXPECT_EQ(both.ink.Covered().right, 0) << centre.x << ' ' << centre.y;
    }
}

TEST(InkPixels, ALargeCircleIsTheSameOnBothSidesOfWhereItIsDrawnInPieces) {
    for (const double radius : {3999.0, 4000.0, 4001.0, 30000.0, 1e6})
        for (const double turn : {0.1, 1.3, 2.9, 4.4}) {
            Ink_And_Plain both;
            both.Circle({30.2 + radius * std::cos(turn), 21.4 + radius * std::sin(turn)}, radius, 1.2);
            both.Expect_Same(radius > 4000 ? 8 : 1.6);
            if (testing::Test::HasFatalFailure()) FAIL() << radius << " at " << turn;
        }
}

TEST(InkPixels, StrokesOfOneColourThatOverlapCoverNoMoreThanTheMostOfThem) {
    for (const int wide : kWidths) {
        Ink_And_Plain both(wide);
        for (int i = 0; i < 12; ++i) {
            both.Line({5.3, 3.0 + i * 3.1}, {55.8, 38.2 - i * 2.7}, 1.2);
            both.Circle({20.0 + i, 21}, 3.0 + i, 1.2);
        }
        both.ink.Disc({33.4, 20.2}, 2.3);
        both.plain.Disc({33.4, 20.2}, 2.3);
        both.Expect_Same();
    }
}

TEST(InkPixels, WhatWasPouredIsGoneAndWhatComesNextLiesUponIt) {
    for (const int wide : kWidths) {
        Ink_And_Plain both(wide);
        both.Line({5, 5}, {55, 38}, 6);
        both.Expect_Same();
        EXPECT_EQ(both.ink.Covered().right, 0);
        const auto before = both.pixels;
        both.ink.Pour(both.pixels, kWhite);
        EXPECT_EQ(both.pixels, before) << "nothing is left to be poured";
        both.ink.Circle({30, 20}, 12, 4);
        both.plain.Circle({30, 20}, 12, 4);
        both.ink.Pour(both.pixels, kGreen);
        both.plain.Pour(kGreen);
        both.plain.Expect(both.pixels, 2.1);
    }
}

TEST(InkPixels, WhatIsNotCoveredStaysJustAsItWas) {
    // Beside the line in its blocks, of which the last has five pixels.
    for (const int wide : kWidths)
        for (const std::uint32_t back : {0xFFFFFFFFU, 0xFF000000U, 0xFF0180FEU}) {
            Ink_And_Plain both(wide);
            both.Line({58.5, 5}, {58.5, 38}, 1);
            both.Line({3.2, 5}, {40, 38}, 1.2);
            std::ranges::fill(both.pixels, back);
            const std::vector<double> covered = both.plain.Covered();
            both.ink.Pour(both.pixels, kRust);
            for (std::size_t i = 0; i < covered.size(); ++i)
                if (covered[i] == 0) {
                    ASSERT_EQ(both.pixels[i], back) << i;
                }
        }
}

TEST(InkPixels, UponNothingAPixelHasTheColourTimesItsPartOfTheWhole) {
    for (const int alpha : {255, 96}) {
        Ink_And_Plain both;
        both.Line({5, 5}, {55, 38}, 4);
        both.Circle({30, 20}, 12, 1.2);
        const std::vector<double> covered = both.plain.Covered();
        std::vector<std::uint32_t> pixels(covered.size());
        both.ink.Pour_Upon_Nothing(pixels, kRust, alpha);
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const double part = covered[i] * alpha / 255;
            ASSERT_NEAR(pixels[i] >> 24U, 255 * part, 1.1);
            ASSERT_NEAR(pixels[i] >> 16U & 255U, (kRust & 255) * part, 1.6);
            ASSERT_NEAR(pixels[i] >> 8U & 255U, (kRust >> 8 & 255) * part, 1.6);
            ASSERT_NEAR(pixels[i] & 255U, (kRust >> 16 & 255) * part, 1.6);
        }
        EXPECT_EQ(both.ink.Covered().right, 0);
    }
}

TEST(InkPixels, TheAreaCoveredIsThatOfItsRowsAndOfItsBlocksOfEight) {
    for (const auto& [from, to] : {std::pair{Point{13.2, 8.4}, Point{27.9, 19.3}},
                                   {Point{50, 40}, Point{58, 12}},
                                   {Point{3, 3}, Point{4, 41}}}) {
        Ink_And_Plain both;
        both.Line(from, to, 1.2);
        int left = kInkWide, top = kInkHigh, right = 0, bottom = 0;
        for (int row = 0; row < kInkHigh; ++row)
            for (int column = 0; column < kInkWide; ++column) {
                if (both.plain.Covered()[static_cast<std::size_t>(row * kInkWide + column)] * 255 < 0.5) continue;
                left = std::min(left, column);
                right = std::max(right, column + 1);
                top = std::min(top, row);
                bottom = std::max(bottom, row + 1);
            }
        const Ink::Area area = both.ink.Covered();
        EXPECT_EQ(area.left, left / 8 * 8);
        EXPECT_EQ(area.right, std::min((right + 7) / 8 * 8, kInkWide));
        EXPECT_EQ(area.top, top);
        EXPECT_EQ(area.bottom, bottom);
    }
}

TEST(InkPixels, UprightLinesInOneGoCoverWhatEachOfThemDoes) {
    std::mt19937 dice(8);
    std::uniform_real_distribution<double> x(-4, kInkWide + 4), y(-20, kInkHigh + 20);
    for (const double width : {0.6, 1.0, 3.5}) {
        Ink_And_Plain both;
        std::vector<Ink::Upright> lines;
        for (int i = 0; i < 14; ++i) {
            lines.push_back({x(dice), y(dice), y(dice)});
            both.plain.Line({lines.back().x, lines.back().y1}, {lines.back().x, lines.back().y2}, width);
        }
        // And one that comes from far away.
        lines.push_back({17.3, -1e9, 1e9});
        both.plain.Line({17.3, -100}, {17.3, 100}, width);
        both.ink.Lines(lines, width);
        both.Expect_Same();
    }
}

}  // namespace
}  // namespace verlink::test
