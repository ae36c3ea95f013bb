// What is painted bit by bit is what is painted anew; and how little of it is painted.
#include "platform/picture_pixels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Color;
using platform::Ink;
using platform::Picture;
using platform::PicturePixels;

constexpr int kPixels = 120;

std::vector<std::uint32_t> Anew(const Picture& picture, int side = kPixels, double density = 1) {
    PicturePixels pixels;
    pixels.Paint(picture, side, side, density);
    return pixels.Pixels();
}

double Ink_Of(const std::vector<std::uint32_t>& pixels) {
    double ink = 0;
    for (const std::uint32_t pixel : pixels) ink += 255 - static_cast<int>(pixel >> 8U & 255U);
    return ink / 255;
}

class PicturePixelsTest : public testing::Test {
   protected:
    PicturePixelsTest() { picture.Scale(-6, -6, 6, 6); }

    void Linkage(double angle, Color links, Color pins) {
        const double x = 2 * std::cos(angle), y = 2 * std::sin(angle);
        picture.Line(0, 0, x, y, links);
        picture.LineTo(3, 2 + y / 3, links);
        picture.LineTo(3, 0, links);
        picture.Circle(x, y, 0.2, pins);
        picture.Circle(3, 2 + y / 3, 0.2, pins);
    }
    void Pivots() {
        picture.Circle(0, 0, 0.4, kBlack);
        picture.Circle(3, 0, 0.4, kBlack);
    }
    void Curve() {
        picture.PSet(4, 0, kGreen);
        for (int i = 1; i <= 90; ++i) picture.LineTo(4 * std::cos(i * 0.0698), 3 * std::sin(i * 0.0698), kGreen);
    }
    /// The most primitives that a frame was painted with, from the third on.
    std::size_t Play(bool trace, bool curve, int frames) {
        std::size_t most = 0;
        Pivots();
        for (int i = 0; i < frames; ++i) {
            Linkage(i * 0.1, kMagenta, kRed);
            pixels.Paint(picture, kPixels, kPixels);
            EXPECT_EQ(pixels.Pixels(), Anew(picture)) << "frame " << i;
            if (i > 2) most = std::max(most, pixels.Painted());
            Linkage(i * 0.1, trace ? kMagenta : kWhite, trace ? kRed : kWhite);
            if (curve) Curve();
            Pivots();
        }
        return most;
    }

    Picture picture;
    PicturePixels pixels;
};

TEST_F(PicturePixelsTest, AFrameOfATracePaintsOnlyWhatIsNew) {
    EXPECT_LE(Play(true, false, 40), 20U);
    EXPECT_GT(picture.Alive(), 150U);
}

TEST_F(PicturePixelsTest, WhatATraceDrawsOverAgainIsAllThatIsPaintedBesides) { EXPECT_LE(Play(true, true, 40), 110U); }

TEST_F(PicturePixelsTest, FramesThatAreErasedArePaintedAnewEach) {
    EXPECT_LE(Play(false, true, 40), 110U);
    EXPECT_LT(picture.Alive(), 110U);
}

TEST_F(PicturePixelsTest, AfterSomethingWasTakenOutATraceGoesOnWithWhatIsNew) {
    Play(true, false, 40);
    picture.Line(-5, -5, 5, 5, kGreen);
    pixels.Paint(picture, kPixels, kPixels);
    Pivots();
    pixels.Paint(picture, kPixels, kPixels);
    picture.Line(-5, -5, 5, 5, kWhite);
    pixels.Paint(picture, kPixels, kPixels);
    EXPECT_GT(pixels.Painted(), 150U) << "all of it anew";
    Linkage(5, kMagenta, kRed);
    pixels.Paint(picture, kPixels, kPixels);
    EXPECT_LE(pixels.Painted(), 20U);
    EXPECT_EQ(pixels.Pixels(), Anew(picture));
}

TEST_F(PicturePixelsTest, AnythingBitByBitIsTheSameAsAnew) {
    std::mt19937 random(11);
    const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    for (int i = 0; i < 6000; ++i) {
        if (any(500) == 0) picture.Cls();
        if (any(600) == 0) picture.Scale(-6 - any(3), -6, 6, 6 + any(3));
        if (any(600) == 0) picture.BackColor(any(2) ? kWhite : kGreen);
        const int kind = any(4);
        const double x = any(9) - 4, y = any(9) - 4;
        const Color color = any(3) == 0 ? kWhite : any(2) ? kRed : any(2) ? kGreen : kBlack;
        if (kind == 0) picture.Line(x, y, any(9) - 4, any(9) - 4, color);
        if (kind == 1) picture.LineTo(x, y, color);
        if (kind == 2) picture.Circle(x, y, any(4), color);
        if (kind == 3) picture.PSet(x, y, color);
        if (any(40)) continue;
        pixels.Paint(picture, kPixels, kPixels);
        ASSERT_EQ(pixels.Pixels(), Anew(picture)) << "after " << i;
    }
}

TEST_F(PicturePixelsTest, MuchIsPaintedInTurnsAndIsTheSameInTheEnd) {
    constexpr std::size_t kMost = 30, kLongestRun = 91;
    Play(true, true, 40);
    const std::size_t alive = picture.Alive();
    pixels.Paint_In_Turns(kMost);
    std::size_t turns = 0, painted = 0;
    do {
        pixels.Paint(picture, 2 * kPixels, 2 * kPixels);
        EXPECT_LE(pixels.Painted(), kMost + kLongestRun);
        painted += pixels.Painted();
    } while (pixels.Behind() && ++turns < alive);
    EXPECT_GE(turns, 4U);
    EXPECT_EQ(painted, alive) << "each once";
    EXPECT_EQ(pixels.Pixels(), Anew(picture, 2 * kPixels));
}

TEST_F(PicturePixelsTest, WhatIsDrawnAndErasedBetweenTurnsIsTheSameInTheEnd) {
    std::mt19937 random(12);
    const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    int behind = 0;
    for (int i = 0; i < 2000; ++i) {
        if (any(600) == 0) picture.Cls();
        Linkage(any(60) * 0.1, any(2) ? kMagenta : kWhite, any(2) ? kRed : kWhite);
        if (any(4)) continue;
        pixels.Paint_In_Turns(any(3) ? 20 : 100);
        pixels.Paint(picture, any(5) ? kPixels : kPixels + 1, kPixels);
        behind += pixels.Behind() ? 1 : 0;
        if (any(8)) continue;
        for (int turn = 0; pixels.Behind() && turn < 1000; ++turn) pixels.Paint(picture, pixels.Wide(), kPixels);
        PicturePixels anew;
        anew.Paint(picture, pixels.Wide(), kPixels);
        ASSERT_EQ(pixels.Pixels(), anew.Pixels()) << "after " << i;
    }
    EXPECT_GT(behind, 50);
}

TEST_F(PicturePixelsTest, AnotherSizeOrDensityIsPaintedAnew) {
    Linkage(1, kMagenta, kBlack);
    for (const double density : {1.0, 1.5, 2.0})
        for (const int side : {100, 150}) {
            pixels.Paint(picture, side, side, density);
            EXPECT_EQ(pixels.Pixels(), Anew(picture, side, density));
        }
}

TEST_F(PicturePixelsTest, ReleasedPixelsComeBack) {
    Linkage(1, kMagenta, kBlack);
    pixels.Paint(picture, kPixels, kPixels);
    pixels.Release();
    EXPECT_TRUE(pixels.Pixels().empty());
    pixels.Paint(picture, kPixels, kPixels);
    EXPECT_EQ(pixels.Pixels(), Anew(picture));
}

TEST_F(PicturePixelsTest, PointsCloserThanHalfAPixelLeaveTheCurveWhereItWas) {
    Picture fine, coarse;
    for (Picture* each : {&fine, &coarse}) {
        each->Scale(-6, -6, 6, 6);
        const int points = each == &fine ? 20000 : 500;
        each->PSet(5 * std::cos(0.001), 3 * std::sin(0.002), kWhite);
        for (int i = 1; i <= points; ++i) {
            const double turn = 2 * std::numbers::pi * i / points + 0.001;
            each->LineTo(5 * std::cos(turn), 3 * std::sin(2 * turn), kBlack);
        }
    }
    const auto of_fine = Anew(fine), of_coarse = Anew(coarse);
    for (std::size_t i = 0; i < of_fine.size(); ++i)
        ASSERT_NEAR(static_cast<int>(of_fine[i] & 255U), static_cast<int>(of_coarse[i] & 255U), 70) << i;
    EXPECT_NEAR(Ink_Of(of_fine), Ink_Of(of_coarse), 0.02 * Ink_Of(of_coarse));
}

TEST_F(PicturePixelsTest, TheEndsOfAPathOfTinyStepsAreReached) {
    picture.PSet(-5, 1, kWhite);
    for (int i = 1; i <= 10007; ++i) picture.LineTo(-5 + i * 0.001, 1 + 1e-9 * i, kBlack);
    const auto thinned = Anew(picture);
    picture.Cls();
    picture.Line(-5, 1, -5 + 10007 * 0.001, 1 + 1e-9 * 10007, kBlack);
    const auto whole = Anew(picture);
    for (std::size_t i = 0; i < whole.size(); ++i)
        ASSERT_NEAR(static_cast<int>(thinned[i] & 255U), static_cast<int>(whole[i] & 255U), 40) << i;
}

TEST_F(PicturePixelsTest, APathThatIsSmallerThanAPixelIsADot) {
    picture.PSet(1, 1, kWhite);
    for (int i = 0; i < 100; ++i) picture.LineTo(1 + 1e-5 * i, 1, kBlack);
    const double ink = Ink_Of(Anew(picture));
    EXPECT_GT(ink, 0.5);
    EXPECT_LT(ink, 3);
}

TEST_F(PicturePixelsTest, ALineFromFarAwayIsWhereItsPartWithinIs) {
    for (const double far : {1e4, 1e9, 1e15}) {
        picture.Cls();
        picture.Line(-far, -far / 2, far, far / 2, kBlack);
        const auto vast = Anew(picture);
        picture.Cls();
        picture.Line(-20, -10, 20, 10, kBlack);
        const auto near = Anew(picture);
        ASSERT_EQ(vast.size(), near.size());
        for (std::size_t i = 0; i < vast.size(); ++i)
            ASSERT_NEAR(static_cast<int>(vast[i] & 255U), static_cast<int>(near[i] & 255U), 2) << far << ' ' << i;
    }
}

TEST_F(PicturePixelsTest, AVastCircleIsALineWhereItIsSeen) {
    for (const double radius : {1e5, 1e9, 1e14}) {
        picture.Cls();
        picture.Circle(1.234 + radius, 0, radius, kBlack);
        const auto vast = Anew(picture);
        picture.Cls();
        picture.Line(1.234, -7, 1.2340001, 7, kBlack);
        const auto line = Anew(picture);
        for (std::size_t i = 0; i < vast.size(); ++i)
            ASSERT_NEAR(static_cast<int>(vast[i] & 255U), static_cast<int>(line[i] & 255U), 12) << radius << ' ' << i;
    }
}

TEST_F(PicturePixelsTest, WhatIsNotSeenLeavesThePaperWhite) {
    picture.Line(10, 10, 1e300, 1e300, kBlack);
    picture.Circle(0, 0, 1e20, kBlack);
    picture.Circle(1e300, 0, 1, kBlack);
    picture.PSet(-1e300, 1e300, kBlack);
    EXPECT_EQ(Ink_Of(Anew(picture)), 0);
}

TEST_F(PicturePixelsTest, LinesAlongTheAxesAreSharp) {
    picture.Line(-5, 0.3337, 5, 0.3337, kBlack);
    const auto painted = Anew(picture);
    int dark = 0;
    for (int row = 0; row < kPixels; ++row) {
        const std::uint32_t gray = painted[static_cast<std::size_t>(row * kPixels + kPixels / 2)] & 255U;
        if (gray < 10) ++dark;
        EXPECT_TRUE(gray < 10 || gray > 200);
    }
    EXPECT_EQ(dark, 1);
}

TEST_F(PicturePixelsTest, ErasedFramesLeaveNothing) {
    Pivots();
    const auto clean = Anew(picture);
    for (int i = 0; i < 30; ++i) {
        Linkage(i * 0.2, kMagenta, kBlack);
        pixels.Paint(picture, kPixels, kPixels);
        Linkage(i * 0.2, kWhite, kWhite);
    }
    pixels.Paint(picture, kPixels, kPixels);
    EXPECT_EQ(pixels.Pixels(), clean);
}

// The ink beneath.

double Poured(const std::function<void(Ink&)>& draw) {
    Ink ink(200, 200);
    draw(ink);
    std::vector<std::uint32_t> pixels(200 * 200, 0xFFFFFFFFU);
    ink.Pour(pixels, kBlack);
    return Ink_Of(pixels);
}

TEST(InkTest, AStrokeHasItsLengthTimesItsWidth) {
    for (int i = 0; i < 24; ++i) {
        const double turn = 0.05 + 2 * std::numbers::pi * i / 24;
        for (const double width : {1.2, 2.4}) {
            const double ink = Poured([&](Ink& on) {
                on.Line({100, 100}, {100 + 80 * std::cos(turn), 100 + 80 * std::sin(turn)}, width);
            });
            EXPECT_NEAR(ink, 80 * width + std::numbers::pi * width * width / 4, 0.04 * 80 * width) << turn;
        }
    }
}

TEST(InkTest, BlackOnWhiteIsAsGrayAsItCoversToTheLastOf255) {
    for (int part = 0; part <= 255; ++part) {
        Ink ink(40, 20);
        const double middle = 10.5 + 1 - part / 255.0;  // of a stroke one pixel wide, below the middle of row 10
        ink.Line({-20, middle}, {60, middle}, 1);
        std::vector<std::uint32_t> pixels(40 * 20, 0xFFFFFFFFU);
        ink.Pour(pixels, kBlack);
        const auto gray = static_cast<std::uint32_t>(255 - part);
        EXPECT_EQ(pixels[10 * 40 + 20], 0xFF000000U | gray << 16U | gray << 8U | gray) << part;
    }
}

TEST(InkTest, ACircleHasItsRoundTimesItsWidth) {
    for (const double radius : {3.0, 12.0, 70.0})
        EXPECT_NEAR(Poured([&](Ink& on) {
                        on.Circle({100.3, 99.8}, radius, 1.2);
                    }),
                    2 * std::numbers::pi * radius * 1.2, 0.05 * 2 * std::numbers::pi * radius * 1.2);
}

TEST(InkTest, ADiscHasItsArea) {
    for (const double radius : {0.8, 3.0, 12.0}) {
        const double area = std::numbers::pi * radius * radius;
        EXPECT_NEAR(Poured([&](Ink& on) { on.Disc({100.3, 99.8}, radius); }), area, 0.05 * area + 0.3);
    }
}

TEST(InkTest, OverlappingStrokesOfOneColourShowNoSeams) {
    const double one = Poured([](Ink& on) { on.Line({20, 30}, {180, 110}, 1.2); });
    const double many = Poured([](Ink& on) {
        for (int i = 0; i < 160; ++i) on.Line({20.0 + i, 30 + i * 0.5}, {21.0 + i, 30.5 + i * 0.5}, 1.2);
    });
    EXPECT_NEAR(one, many, 0.002 * one);
}

TEST(InkTest, UprightLinesTogetherAreThoseOneByOne) {
    std::mt19937 dice(5);
    std::uniform_real_distribution<double> x(-3, 203), y(-60, 260);
    for (const int count : {0, 1, 7, 400}) {
        std::vector<Ink::Upright> lines;
        for (int i = 0; i < count; ++i) lines.push_back({x(dice), i % 3 == 0 ? y(dice) : 100.25, y(dice)});
        if (count > 1) lines[1].y2 = lines[1].y1;
        if (count > 2) lines[2] = {50.5, 80, NAN};
        const auto poured = [](const std::function<void(Ink&)>& draw) {
            Ink ink(200, 200);
            draw(ink);
            std::vector<std::uint32_t> pixels(200 * 200);
            ink.Pour_Upon_Nothing(pixels, kBlack, 255);
            return pixels;
        };
        for (const double width : {1.0, 2.5}) {
            const auto together = poured([&](Ink& on) { on.Lines(lines, width); });
            const auto one_by_one = poured([&](Ink& on) {
                for (const auto& line : lines) on.Line({line.x, line.y1}, {line.x, line.y2}, width);
            });
            EXPECT_EQ(together, one_by_one) << count;
        }
    }
}

TEST(InkTest, WhatIsCoveredLiesInItsArea) {
    Ink ink(203, 90);
    EXPECT_EQ(ink.Covered().right, 0);
    ink.Line({40.5, 20.5}, {60.5, 31.5}, 1);
    const Ink::Area area = ink.Covered();
    EXPECT_LE(area.left, 40);
    EXPECT_GE(area.left, 32);
    EXPECT_EQ(area.top, 20);
    EXPECT_GE(area.right, 61);
    EXPECT_LE(area.right, 68);
    EXPECT_EQ(area.bottom, 32);
    ink.Line({-50, 45}, {300, 45}, 1);
    EXPECT_EQ(ink.Covered().left, 0);
    EXPECT_EQ(ink.Covered().right, 203);
    std::vector<std::uint32_t> pixels(203 * 90);
    ink.Pour_Upon_Nothing(pixels, kBlack, 255);
    EXPECT_EQ(ink.Covered().right, 0);
}

TEST(InkTest, StrokesAcrossTheEdgeStayOnTheSheet) {
    Poured([](Ink& on) {
        on.Line({-1e9, -50}, {1e9, 260}, 3);
        on.Circle({0, 0}, 150, 2);
        on.Circle({199, 199}, 1e7, 2);
        on.Disc({-1, 201}, 5);
        on.Disc({1e300, -1e300}, 5);
    });
    const double within = Poured([](Ink& on) { on.Line({0, 100.5}, {200, 100.5}, 1); });
    const double beyond = Poured([](Ink& on) { on.Line({-700, 100.5}, {900, 100.5}, 1); });
    EXPECT_NEAR(within, beyond, 0.5);
}

}  // namespace
}  // namespace verlink::test
