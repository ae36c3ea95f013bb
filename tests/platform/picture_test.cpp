// The picture that remembers: erasing, redrawing, windows, and the SVG of it.
#include "platform/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <tuple>

#include "platform/failure.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Color;
using platform::Picture;
using platform::RuntimeFailure;
using Primitive_Kind = Picture::Primitive::Kind;

std::vector<Picture::Primitive> Living(const Picture& picture) {
    std::vector<Picture::Primitive> living;
    for (const auto& primitive : picture.Primitives())
        if (primitive.alive) living.push_back(primitive);
    return living;
}

long Number_Raised(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

class PictureTest : public testing::Test {
   protected:
    PictureTest() { picture.Scale(-10, -10, 10, 10); }
    Picture picture;
};

TEST_F(PictureTest, KeepsWhatIsDrawnInItsOrder) {
    picture.Line(0, 0, 1, 2, kRed);
    picture.Circle(3, 4, 0.5, kBlue);
    picture.PSet(5, 6);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 3U);
    EXPECT_EQ(living[0].kind, Primitive_Kind::kSegment);
    EXPECT_EQ(living[0].x2, 1);
    EXPECT_EQ(living[0].y2, 2);
    EXPECT_EQ(living[1].kind, Primitive_Kind::kCircle);
    EXPECT_EQ(living[1].x2, 0.5);
    EXPECT_EQ(living[1].color, kBlue);
    EXPECT_EQ(living[2].kind, Primitive_Kind::kDot);
    EXPECT_EQ(living[2].color, kBlack);
    EXPECT_EQ(picture.Alive(), 3U);
}

TEST_F(PictureTest, TheCurrentPointFollowsEachCall) {
    picture.Line(0, 0, 1, 1, kRed);
    picture.LineTo(2, 1, kRed);
    picture.LineStep(1, -3, kRed);
    picture.Circle(5, 5, 1, kRed);
    picture.LineTo(6, 6, kRed);
    picture.PSet(-1, -2, kRed);
    picture.LineStep(1, 0, kRed);
    picture.Mark({1, 1, 5, 6}, {2, 3, 0.5, -0.25}, kRed);
    picture.LineTo(0, 0, kRed);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 9U);
    EXPECT_EQ(living[8].x1, 2.5);
    EXPECT_EQ(living[8].y1, 2.75);
    EXPECT_EQ(living[1].x1, 1);
    EXPECT_EQ(living[2].x1, 2);
    EXPECT_EQ(living[2].x2, 3);
    EXPECT_EQ(living[2].y2, -2);
    EXPECT_EQ(living[4].x1, 5);
    EXPECT_EQ(living[6].x1, -1);
    EXPECT_EQ(living[6].x2, 0);
}

TEST_F(PictureTest, MarksThatLieInTheSamePlaceAreOneWhateverTheyAreBeside) {
    using Beside = platform::Surface::Beside;
    const Beside ends[] = {{1, 2, 0, 0}, {3, 1, 0, 0}};
    for (const bool at_end : {false, true})
        for (const bool upright : {false, true}) {
            // Half a unit further off, beside a place that is half a unit nearer, and beside one as much further away.
            for (const float way : {-0.5F, 0.5F}) {
                picture.Cls();
                picture.Mark(ends[0], ends[1], kRed);
                Beside other[] = {ends[0], ends[1]};
                Beside& moved = other[at_end ? 1 : 0];
                (upright ? moved.y : moved.x) += way;
                (upright ? moved.dy : moved.dx) = 0.5F;
                picture.Mark(other[0], other[1], kGreen);
                EXPECT_EQ(picture.Alive(), way < 0 ? 1U : 2U) << at_end << upright;
            }
        }
}

TEST_F(PictureTest, ALargestScaleIsTakenAndNoLargerOne) {
    picture.Scale(0, 0, 3.4e38, 1);
    EXPECT_EQ(picture.Right(), 3.4e38);
    EXPECT_THROW(picture.Scale(0, 0, 3.5e38, 1), platform::RuntimeFailure);
    picture.Scale(0, 0, 1e-25, 1);
    EXPECT_EQ(picture.Right(), 1e-25);
    EXPECT_THROW(picture.Scale(0, 0, 0.9e-25, 1), platform::RuntimeFailure);
}

TEST_F(PictureTest, ClearingMovesTheCurrentPointToTheTopLeft) {
    picture.PSet(1, 1, kRed);
    EXPECT_EQ(picture.Strokes(), 1U);
    picture.Cls();
    EXPECT_EQ(picture.Strokes(), 0U);
    EXPECT_EQ(picture.Alive(), 0U);
    picture.LineTo(0, 0, kRed);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 1U);
    EXPECT_EQ(living[0].x1, -10);
    EXPECT_EQ(living[0].y1, -10);
}

TEST_F(PictureTest, DrawingInTheBackColourTakesTheEarlierOneOut) {
    picture.Line(0, 0, 1, 2, kRed);
    picture.Line(0, 0, 5, 5, kGreen);
    picture.Line(0, 0, 1, 2, kWhite);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 1U);
    EXPECT_EQ(living[0].color, kGreen);
}

TEST_F(PictureTest, DrawingAgainMovesToTheTop) {
    picture.Line(0, 0, 1, 2, kRed);
    picture.Circle(0, 0, 1, kGreen);
    picture.Line(0, 0, 1, 2, kRed);
    auto living = Living(picture);
    ASSERT_EQ(living.size(), 2U);
    EXPECT_EQ(living[1].kind, Primitive_Kind::kSegment);
    picture.Circle(0, 0, 1, kBlue);
    living = Living(picture);
    ASSERT_EQ(living.size(), 2U);
    EXPECT_EQ(living[1].color, kBlue);
}

TEST_F(PictureTest, AStrokeInTheBackColourThatMatchesNothingStays) {
    picture.Circle(1, 1, 1, kRed);
    picture.Line(0, 0, 3, 3, kWhite);
    picture.Line(0, 0, 3, 3, kWhite);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 2U);
    EXPECT_EQ(living[1].color, kWhite);
}

TEST_F(PictureTest, WhatWasDrawnTwiceMayBeErasedTwice) {
    for (const Color color : {kRed, kWhite}) {
        picture.Line(0, 0, 1, 2, color);
        picture.Circle(0, 0, 1, color);
        picture.Line(0, 0, 1, 2, color);
    }
    EXPECT_EQ(picture.Alive(), 0U);
    picture.PSet(3, 3, kRed);
    picture.Line(0, 0, 1, 2, kWhite);
    EXPECT_EQ(picture.Alive(), 2U);
}

TEST_F(PictureTest, CoordinatesAgreeWhenTheyRoundToTheSameGridLine) {
    const double grid = 20.0 / (1 << 24);
    picture.Circle(1 * grid, 0, 1000 * grid, kRed);
    picture.Circle(1.3 * grid, 0.4 * grid, 999.6 * grid, kWhite);
    EXPECT_EQ(picture.Alive(), 0U);
    picture.Circle(1 * grid, 0, 1000 * grid, kRed);
    picture.Circle(1.6 * grid, 0, 1000 * grid, kWhite);
    EXPECT_EQ(picture.Alive(), 2U);
    picture.Cls();
    // On the other side of zero as well.
    for (const double off : {-0.45, 0.45}) {
        picture.Line(-7 * grid, -9 * grid, 0, 0, kRed);
        picture.Line((-7 + off) * grid, (-9 - off) * grid, 0, 0, kWhite);
        EXPECT_EQ(picture.Alive(), 0U) << off;
    }
    picture.Line(-7 * grid, -9 * grid, 0, 0, kRed);
    picture.Line(-7.55 * grid, -9 * grid, 0, 0, kWhite);
    picture.Line(-7 * grid, -8.45 * grid, 0, 0, kWhite);
    EXPECT_EQ(picture.Alive(), 3U);
}

TEST_F(PictureTest, KindsAreNotTakenForEachOther) {
    picture.PSet(1, 1, kRed);
    picture.Circle(1, 1, 0, kWhite);
    picture.Line(1, 1, 0, 0, kWhite);
    EXPECT_EQ(picture.Alive(), 3U);
    picture.PSet(1, 1, kWhite);
    EXPECT_EQ(picture.Alive(), 2U);
}

TEST_F(PictureTest, MinusZeroIsZero) {
    picture.Line(0, 0, 1, 0, kRed);
    picture.Line(-0.0, 0, 1, -0.0, kWhite);
    EXPECT_EQ(picture.Alive(), 0U);
}

TEST_F(PictureTest, SettingTheBackColourClears) {
    picture.Line(0, 0, 1, 2, kRed);
    picture.BackColor(kBlue);
    EXPECT_EQ(picture.Alive(), 0U);
    EXPECT_EQ(picture.Back(), kBlue);
    picture.Line(0, 0, 1, 2, kRed);
    picture.Line(0, 0, 1, 2, kBlue);
    EXPECT_EQ(picture.Alive(), 0U);
}

TEST_F(PictureTest, WhatIsDrawnStaysInPlaceWhenTheWindowChanges) {
    picture.Line(-10, -10, 0, 5, kRed);
    picture.Circle(5, 5, 2, kGreen);
    picture.Scale(0, 0, 40, 40);
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), 2U);
    EXPECT_EQ(living[0].x1, 0);
    EXPECT_EQ(living[0].x2, 20);
    EXPECT_EQ(living[0].y2, 30);
    EXPECT_EQ(living[1].x1, 30);
    EXPECT_EQ(living[1].x2, 4);
    picture.Line(0, 0, 20, 30, kWhite);
    EXPECT_EQ(picture.Alive(), 1U);
    // As the very first stroke does.
    picture.Cls();
    picture.Line(10, 10, 20, 30, kRed);
    picture.Scale(0, 0, 20, 20);
    picture.Line(5, 5, 10, 15, kWhite);
    EXPECT_EQ(picture.Alive(), 0U);
}

TEST_F(PictureTest, AWindowThatHasAnyEdgeElsewhereIsAnotherAndTheSameIsNone) {
    for (int moved = 0; moved < 16; ++moved) {
        Picture other;
        other.Scale(-10, -10, 10, 10);
        const auto epoch = other.Epoch();
        const auto edge = [&](int which, double where) { return where + (moved >> which & 1); };
        const double left = edge(0, -10), top = edge(1, -10), right = edge(2, 10), bottom = edge(3, 10);
        other.Scale(left, top, right, bottom);
        EXPECT_EQ(other.Epoch() != epoch, moved != 0) << moved;
        EXPECT_EQ((std::array{other.Left(), other.Top(), other.Right(), other.Bottom()}),
                  (std::array{left, top, right, bottom}))
            << moved;
    }
}

TEST_F(PictureTest, AWindowThatCannotBeDrawnIsAnInvalidCallAndIsNotTaken) {
    const double infinite = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Number_Raised([&] { picture.Scale(3, 3, 3, 3); }), 5);
    EXPECT_EQ(Number_Raised([&] { picture.Scale(0, 1, 0, -1); }), 5);
    EXPECT_EQ(Number_Raised([&] { picture.Scale(0, 2e-30, 360, -2e-30); }), 5);
    EXPECT_EQ(Number_Raised([&] { picture.Scale(0, 3e38, 360, -3e38); }), 5);
    EXPECT_EQ(Number_Raised([&] { picture.Scale(0, 0, nan, 1); }), 5);
    EXPECT_EQ(Number_Raised([&] { picture.Scale(-infinite, 0, infinite, 1); }), 5);
    EXPECT_EQ(picture.Left(), -10);
    EXPECT_EQ(picture.Bottom(), 10);
    for (const double extent : {0.9e-25, 1.2e-25, 3.3e38, 4e38}) {
        const bool taken = extent > 1e-25 && extent < 3.4e38;
        Picture across, down;
        EXPECT_EQ(Number_Raised([&] { across.Scale(0, 0, -extent, 1); }), taken ? 0 : 5) << extent;
        EXPECT_EQ(Number_Raised([&] { down.Scale(0, extent, 1, 0); }), taken ? 0 : 5) << extent;
    }
    EXPECT_EQ(Number_Raised([&] { picture.Scale(0, 2e-24, 360, -2e-24); }), 0);
    EXPECT_EQ(picture.Top(), 2e-24);
    EXPECT_EQ(picture.Bottom(), -2e-24);
}

TEST_F(PictureTest, CoordinatesThatAreNotFiniteAreFailureSix) {
    const double infinite = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Number_Raised([&] { picture.Line(0, 0, infinite, 0, kRed); }), 6);
    EXPECT_EQ(Number_Raised([&] { picture.LineTo(0, nan, kRed); }), 6);
    EXPECT_EQ(Number_Raised([&] { picture.LineStep(nan, 0, kRed); }), 6);
    EXPECT_EQ(Number_Raised([&] { picture.Circle(0, 0, infinite, kRed); }), 6);
    EXPECT_EQ(Number_Raised([&] { picture.PSet(-infinite, 0); }), 6);
    for (int which = 0; which < 4; ++which) {
        // Each finite, and together not.
        double far[4] = {0, 0, 0, 0};
        far[which] = 1.7e308;
        EXPECT_EQ(Number_Raised([&] {
                      picture.Mark({far[0], far[1], far[0], far[1]}, {far[2], far[3], far[2], far[3]}, kRed);
                  }),
                  6)
            << which;
    }
    EXPECT_EQ(picture.Alive(), 0U);
}

TEST_F(PictureTest, ANegativeRadiusIsAnInvalidCall) {
    EXPECT_EQ(Number_Raised([&] { picture.Circle(0, 0, -1, kRed); }), 5);
}

TEST_F(PictureTest, OnlyTheCopyPenIsAMode) {
    EXPECT_EQ(Number_Raised([&] { picture.DrawMode(13); }), 0);
    EXPECT_EQ(Number_Raised([&] { picture.DrawMode(7); }), 380);
}

TEST_F(PictureTest, VastCoordinatesAreKept) {
    picture.Line(0, 0, 1e300, -1e300, kRed);
    picture.Line(0, 0, 1e300, -1e300, kWhite);
    EXPECT_EQ(picture.Alive(), 0U);
    picture.Line(0, 0, 1e300, 0, kRed);
    picture.Line(0, 0, -1e300, 0, kGreen);
    EXPECT_EQ(picture.Alive(), 2U) << "to the other side is another";
}

TEST_F(PictureTest, EveryChangeIsTold) {
    int told = 0;
    picture.Changed = [&] { ++told; };
    const auto before = picture.Revision();
    picture.Line(0, 0, 1, 1, kRed);
    picture.Line(0, 0, 1, 1, kWhite);
    picture.Cls();
    picture.BackColor(kBlue);
    picture.Scale(0, 0, 1, 1);
    EXPECT_EQ(told, 5);
    EXPECT_EQ(picture.Revision(), before + 5);
}

// Random drawing and erasing, beside a plain list that is searched through.
TEST_F(PictureTest, AgreesWithAPlainListOverRandomDrawing) {
    using What = std::tuple<int, int, int, int, int>;
    struct Plain {
        What what;
        Color color;
    };
    std::vector<Plain> plain;
    std::set<What> erased;  // since the last stroke was added
    std::mt19937 random(7);
    const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    for (int i = 0; i < 15000; ++i) {
        if (any(3000) == 0) {
            picture.Cls();
            plain.clear();
            erased.clear();
        }
        const int kind = any(3);
        const int x = any(7);
        const int y = any(7);
        const int x2 = kind < 2 ? any(5) : 0;
        const int y2 = kind == 0 ? any(5) : 0;
        const Color color = any(2) ? kWhite : any(2) ? kRed : kGreen;
        if (kind == 0) picture.Line(x, y, x2, y2, color);
        if (kind == 1) picture.Circle(x, y, x2, color);
        if (kind == 2) picture.PSet(x, y, color);
        const What what{kind, x, y, x2, y2};
        const auto at = std::find_if(plain.begin(), plain.end(), [&](const Plain& p) { return p.what == what; });
        if (color == kWhite && at != plain.end() && at->color != kWhite) {
            plain.erase(at);
            erased.insert(what);
        } else if (color != kWhite || !erased.contains(what)) {
            if (at != plain.end()) plain.erase(at);
            plain.push_back({what, color});
            erased.clear();
        }
    }
    const auto living = Living(picture);
    ASSERT_EQ(living.size(), plain.size());
    ASSERT_EQ(living.size(), picture.Alive());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const auto& p = living[i];
        const What what{p.kind == Primitive_Kind::kSegment  ? 0
                        : p.kind == Primitive_Kind::kCircle ? 1
                                                            : 2,
                        static_cast<int>(p.x1), static_cast<int>(p.y1), static_cast<int>(p.x2), static_cast<int>(p.y2)};
        EXPECT_EQ(what, plain[i].what) << i;
        EXPECT_EQ(p.color, plain[i].color) << i;
    }
}

TEST_F(PictureTest, TheListStaysShortHoweverMuchIsErased) {
    const auto longest = [&] {
        std::size_t most = 0;
        for (int i = 0; i < 5000; ++i) {
            picture.Circle(std::sin(i), std::cos(i), 0.1, kRed);
            most = std::max(most, picture.Primitives().size());
            picture.Circle(std::sin(i), std::cos(i), 0.1, kWhite);
        }
        return most;
    };
    EXPECT_EQ(longest(), 511U);
    EXPECT_EQ(picture.Alive(), 0U);
    for (int i = 0; i < 450; ++i) picture.PSet(i / 100.0, 3, kRed);
    EXPECT_EQ(longest(), 1023U) << "with room for as much again as is seen";
    EXPECT_EQ(picture.Alive(), 450U);
}

TEST_F(PictureTest, SvgHoldsEachPrimitiveInPixels) {
    picture.BackColor(kWhite);
    picture.Line(-10, -10, 0, 0, kRed);
    picture.LineTo(10, 0, kRed);
    picture.Line(0, 5, 5, 5, kRed);
    picture.Circle(0, 0, 1, kBlue);
    picture.PSet(-9.75, 0.123456, kGreen);
    EXPECT_EQ(picture.Svg(400),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"400\" height=\"400\" viewBox=\"0 0 400 400\">\n"
              "<rect width=\"400\" height=\"400\" fill=\"#ffffff\"/>\n"
              "<g fill=\"none\" stroke-width=\"1\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
              "<path stroke=\"#ff0000\" d=\"M0 0L200 200L400 200M200 300L300 300\"/>\n"
              "<circle cx=\"200\" cy=\"200\" r=\"20\" stroke=\"#0000ff\"/>\n"
              "<circle cx=\"5\" cy=\"202.47\" r=\"1\" fill=\"#00ff00\"/>\n"
              "</g>\n</svg>\n");
}

TEST_F(PictureTest, SvgHasWhatIsSeenOfVastThings) {
    picture.Line(-1e9, -1e9, 1e9, 1e9, kRed);
    picture.Line(30, 0, 1e9, 5, kRed);
    picture.Circle(1e12, 0, 1e12, kBlue);
    picture.Circle(0, 0, 1e12, kBlue);
    picture.PSet(1e300, 0, kGreen);
    const std::string svg = picture.Svg(400);
    EXPECT_NE(svg.find("<path stroke=\"#ff0000\" d=\"M-2 -2L402 402\"/>\n"), std::string::npos) << svg;
    EXPECT_NE(svg.find("<path stroke=\"#0000ff\" d=\"M200 "), std::string::npos) << svg;
    EXPECT_EQ(svg.find("circle"), std::string::npos) << svg;
}

TEST_F(PictureTest, SvgHasACircleUpToAHundredThousandPixelsAndAPathOfWhatIsSeenBeyond) {
    // 20 pixels a unit. From the foot of a circle half the diagonal of the sheet and two pixels around is gone through
    // both ways, 571 pixels in pieces of sqrt(8 * 0.01 * 120000) = 98, of 100020 in pieces of 89, that is in 6 and in
    // 7; the outermost of 7 begin at 204, beyond the 202 that are seen.
    for (const auto& [radius, circles, pieces] : {std::tuple{5000.0, 1, 0}, {5001.0, 0, 5}, {6000.0, 0, 6}}) {
        picture.Cls();
        picture.Circle(radius, 0, radius, kBlue);
        const std::string svg = picture.Svg(400);
        const std::string drawn = svg.substr(svg.find("<g "));
        EXPECT_EQ(drawn.find("<circle") != std::string::npos, circles == 1) << radius;
        EXPECT_EQ(std::ranges::count(drawn, 'L'), pieces) << radius;
    }
}

TEST_F(PictureTest, SvgEndsThePathThatComesLast) {
    picture.Line(0, 0, 10, 0, kRed);
    EXPECT_TRUE(picture.Svg(100).ends_with("\n<path stroke=\"#ff0000\" d=\"M50 50L100 50\"/>\n</g>\n</svg>\n"));
    picture.PSet(0, 0, kGreen);
    EXPECT_TRUE(
        picture.Svg(100).ends_with("L100 50\"/>\n<circle cx=\"50\" cy=\"50\" r=\"0.25\" fill=\"#00ff00\"/>\n"
                                   "</g>\n</svg>\n"));
}

TEST_F(PictureTest, LinesOfAnSvgAreAFourHundredthOfItWideAndDotsTwiceThat) {
    picture.PSet(0, 0, kGreen);
    const std::string svg = picture.Svg(4000);
    EXPECT_NE(svg.find("<g fill=\"none\" stroke-width=\"10\""), std::string::npos) << svg;
    EXPECT_NE(svg.find("<circle cx=\"2000\" cy=\"2000\" r=\"10\" fill=\"#00ff00\"/>"), std::string::npos) << svg;
}

TEST_F(PictureTest, SvgLeavesOutWhatWasErased) {
    picture.Circle(0, 0, 1, kBlue);
    picture.Circle(0, 0, 1, kWhite);
    EXPECT_EQ(picture.Svg(100).find("circle"), std::string::npos);
}

}  // namespace
}  // namespace verlink::test
