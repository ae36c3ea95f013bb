// Numbers, colours and texts as SVG has them, and a part of a picture drawn again.
#include "platform/svg.h"

#include <gtest/gtest.h>

#include "platform/picture_part.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using namespace platform;

TEST(SvgWords, NumbersHaveAtMostTwoDecimalsAndNoneThatAreZero) {
    for (const auto& [value, text] : {std::pair{0.0, "0"},
                                      {-0.0, "0"},
                                      {0.004, "0"},
                                      {-0.004, "0"},
                                      {0.005, "0.01"},
                                      {1.0, "1"},
                                      {-2.5, "-2.5"},
                                      {3.14159, "3.14"},
                                      {-0.126, "-0.13"},
                                      {120.0, "120"}})
        EXPECT_EQ(svg::Number(value), text) << value;
}

TEST(SvgWords, ColoursAreRedGreenAndBlueByTwoDigits) {
    EXPECT_EQ(svg::Hex(0xB4783C), "#3c78b4");
    EXPECT_EQ(svg::Hex(kRed), "#ff0000");
    EXPECT_EQ(svg::Hex(0x0A0F01), "#010f0a");
}

TEST(SvgWords, WhatHasAMeaningInMarkupIsWrittenByItsName) {
    EXPECT_EQ(svg::Escaped("a < b & \"c\" > d's"), "a &lt; b &amp; &quot;c&quot; &gt; d's");
}

TEST(PicturePart, HasAllThatIsAliveInItsOwnWindowWithPinsAndMarksMadeSmaller) {
    using Kind = Picture::Primitive::Kind;
    Picture whole;
    whole.BackColor(kGreen);
    whole.Scale(-10, -10, 10, 10);
    whole.Line(1, 2, 3, 4, kRed);
    whole.Line(0, 0, 9, 9, kRed);
    whole.Line(0, 0, 9, 9, kGreen);
    whole.Circle(5, 6, 0.5, kBlue);
    whole.Pin(7, 8, 0.4, kBlack);
    whole.Mark({1, 2, 0.4, -0.8}, {3, 4, 1.2, -1.6}, kMagenta);
    whole.PSet(-1, -2, kRed);
    const Picture part = Part_Of(whole, -1, 4, 5, -2, 4);
    EXPECT_EQ(part.Back(), kGreen);
    EXPECT_EQ(part.Left(), -1);
    EXPECT_EQ(part.Top(), 4);
    EXPECT_EQ(part.Right(), 5);
    EXPECT_EQ(part.Bottom(), -2);
    struct Row {
        Kind kind;
        Color color;
        double x1, y1, x2, y2;
        float dx1 = 0, dy1 = 0, dx2 = 0, dy2 = 0;
    };
    const Row rows[] = {{Kind::kSegment, kRed, 1, 2, 3, 4},
                        {Kind::kCircle, kBlue, 5, 6, 0.5, 0},
                        {Kind::kPin, kBlack, 7, 8, 0.1, 0},
                        {Kind::kMark, kMagenta, 1, 2, 3, 4, 0.1F, -0.2F, 0.3F, -0.4F},
                        {Kind::kDot, kRed, -1, -2, 0, 0}};
    ASSERT_EQ(part.Primitives().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& drawn = part.Primitives()[i];
        const Row& row = rows[i];
        EXPECT_EQ(drawn.kind, row.kind) << i;
        EXPECT_EQ(drawn.color, row.color) << i;
        for (const auto& [is, was] :
             {std::pair{drawn.x1, row.x1}, {drawn.y1, row.y1}, {drawn.x2, row.x2}, {drawn.y2, row.y2}})
            EXPECT_DOUBLE_EQ(is, was) << i;
        for (const auto& [is, was] :
             {std::pair{drawn.dx1, row.dx1}, {drawn.dy1, row.dy1}, {drawn.dx2, row.dx2}, {drawn.dy2, row.dy2}})
            EXPECT_FLOAT_EQ(is, was) << i;
    }
}

}  // namespace
}  // namespace verlink::test
