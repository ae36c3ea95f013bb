// What an overlay is painted with: sizes that stay, round scales, names apart.
#include "platform/overlay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/support/colors.h"
#include "tests/support/overlay_log.h"

namespace verlink::test {
namespace {

using platform::Draw_Overlay;
using platform::Overlay;
using platform::Point;
using platform::Round_Down_1_2_5;
using platform::Round_Up_1_2_5;
using platform::Sight;
using Kind = Overlay::Mark::Kind;
using Rows = std::vector<std::string>;
using Call = OverlayLog::Call;

/// Ten units of the world over 500 pixels.
constexpr Sight kWhole{0, 0, 10, 10, 500, 500};
/// The quarter at the lower right, magnified twice.
constexpr Sight kQuarter{5, 5, 5, 5, 500, 500};

OverlayLog Drawn(const Overlay& overlay, const Sight& sight = kWhole) {
    OverlayLog log;
    Draw_Overlay(overlay, sight, log);
    return log;
}

Overlay Of_Marks(std::vector<Overlay::Mark> marks) {
    Overlay overlay;
    overlay.marks = std::move(marks);
    return overlay;
}

std::vector<Call> Calls_Of(const OverlayLog& log, const std::string& kind) {
    std::vector<Call> found;
    std::ranges::copy_if(log.Calls, std::back_inserter(found), [&](const Call& call) { return call.kind == kind; });
    return found;
}

TEST(OverlayPainting, AnEmptyOnePaintsNothing) { EXPECT_TRUE(Drawn({}).Calls.empty()); }

TEST(OverlayPainting, MarksStandWhereTheWorldHasThem) {
    EXPECT_EQ(Drawn(Of_Marks({{Kind::kLine, {1, 2}, {3, 4}, kRed},
                              {Kind::kDashes, {1, 2}, {3, 4}, kRed},
                              {Kind::kFaint, {1, 2}, {3, 4}, kRed},
                              {Kind::kCircle, {5, 6}, {}, kRed, 2},
                              {Kind::kRing, {5, 6}, {}, kRed}}))
                  .Rows(),
              (Rows{"Line 50.00 100.00 150.00 200.00 0000FF", "Dashes 50.00 100.00 150.00 200.00 0000FF",
                    "Faint 50.00 100.00 150.00 200.00 0000FF", "Circle 250.00 300.00 100.00 0000FF",
                    "Circle 250.00 300.00 4.00 0000FF"}));
}

TEST(OverlayPainting, UnderAMagnifierPlacesSpreadAndRingsAndHeadsStay) {
    EXPECT_EQ(
        Drawn(Of_Marks({{Kind::kCircle, {6, 7}, {}, kRed, 0.5},
                        {Kind::kRing, {6, 7}, {}, kRed},
                        {Kind::kArrow, {6, 6}, {8, 6}, kRed}}),
              kQuarter)
            .Rows(),
        (Rows{"Circle 100.00 200.00 50.00 0000FF", "Circle 100.00 200.00 4.00 0000FF",
              "Line 100.00 100.00 291.00 100.00 0000FF", "Triangle 300.00 100.00 291.00 103.20 291.00 96.80 0000FF"}));
}

TEST(OverlayPainting, AnOpenArrowHasTwoStrokesForItsHead) {
    EXPECT_EQ(Drawn(Of_Marks({{Kind::kOpenArrow, {1, 1}, {1, 3}, kRed}})).Rows(),
              (Rows{"Line 50.00 50.00 50.00 150.00 0000FF", "Line 46.80 141.00 50.00 150.00 0000FF",
                    "Line 50.00 150.00 53.20 141.00 0000FF"}));
}

TEST(OverlayPainting, AShortArrowHasASmallHeadAndNoneIsDrawnOfOneWithoutLength) {
    const OverlayLog log = Drawn(Of_Marks({{Kind::kArrow, {1, 1}, {1.09, 1}, kRed}}));
    ASSERT_EQ(log.Calls.size(), 2U);
    EXPECT_NEAR(log.Calls[1].numbers[0] - log.Calls[1].numbers[2], 3, 1e-9);
    EXPECT_TRUE(Drawn(Of_Marks({{Kind::kArrow, {1, 1}, {1, 1}, kRed}})).Calls.empty());
}

TEST(OverlayPainting, WhatLeadsFarOutIsCutAtTheEdge) {
    const OverlayLog log = Drawn(Of_Marks({{Kind::kDashes, {5, 5}, {1e9, 5}, kRed},
                                           {Kind::kLine, {20, 20}, {30, 20}, kRed},
                                           {Kind::kArrow, {5, 5}, {5, 1e7}, kRed}}));
    EXPECT_EQ(log.Rows(),
              (Rows{"Dashes 250.00 250.00 502.00 250.00 0000FF", "Line 250.00 250.00 250.00 502.00 0000FF"}));
}

TEST(OverlayPainting, AVastCircleIsTheArcThatIsSeen) {
    const OverlayLog log = Drawn(Of_Marks({{Kind::kCircle, {5, 1e6}, {}, kRed, 1e6 - 5}}));
    ASSERT_FALSE(log.Calls.empty());
    for (const Call& call : log.Calls) {
        EXPECT_EQ(call.kind, "Line");
        for (const int i : {1, 3}) EXPECT_NEAR(call.numbers[static_cast<std::size_t>(i)], 250, 0.2);
    }
    EXPECT_TRUE(Drawn(Of_Marks({{Kind::kCircle, {5, 5}, {}, kRed, 100}})).Calls.empty());
}

TEST(OverlayPainting, NumbersThatAreNoneAreNotPainted) {
    const double none = std::nan("");
    EXPECT_TRUE(Drawn(Of_Marks({{Kind::kLine, {none, 1}, {2, 2}, kRed},
                                {Kind::kArrow, {1, 1}, {none, 2}, kRed},
                                {Kind::kCircle, {1, none}, {}, kRed, 1},
                                {Kind::kCircle, {1, 1}, {}, kRed, none}}))
                    .Calls.empty());
}

TEST(RoundNumbers, AreOneTwoAndFiveTimesPowersOfTen) {
    for (const auto& [value, down, up] :
         {std::array{1.0, 1.0, 1.0}, std::array{1.9, 1.0, 2.0}, std::array{2.0, 2.0, 2.0}, std::array{4.99, 2.0, 5.0},
          std::array{5.0, 5.0, 5.0}, std::array{9.9, 5.0, 10.0}, std::array{10.0, 10.0, 10.0},
          std::array{0.003, 0.002, 0.005}, std::array{1e-9, 1e-9, 1e-9}, std::array{7e12, 5e12, 1e13},
          std::array{0.001, 0.001, 0.001}, std::array{1000.0, 1000.0, 1000.0}}) {
        EXPECT_NEAR(Round_Down_1_2_5(value) / down, 1, 1e-9) << value;
        EXPECT_NEAR(Round_Up_1_2_5(value) / up, 1, 1e-9) << value;
    }
}

TEST(OverlayLegend, AnArrowIsAsLongAsTheRoundNumberBesideItSays) {
    for (const double per_world : {0.003, 0.7, 1.0, 12.0, 5000.0}) {
        Overlay overlay;
        overlay.legend = {{.text = "velocity", .color = kRed, .per_world = per_world, .unit = "in/sec"}};
        for (const Sight& sight : {kWhole, kQuarter}) {
            const OverlayLog log = Drawn(overlay, sight);
            const std::string text = log.Texts().at(0);
            ASSERT_TRUE(text.ends_with(" in/sec  velocity")) << text;
            const double value = std::stod(text);
            const Call tip = Calls_Of(log, "Triangle").at(0), shaft = Calls_Of(log, "Line").at(0);
            const double length = tip.numbers[0] - shaft.numbers[0];
            EXPECT_NEAR(length / sight.across * sight.wide * per_world / value, 1, 1e-9) << text;
            EXPECT_GT(length, 25) << text;
            EXPECT_LE(length, 64 * (1 + 1e-9)) << text;
            EXPECT_NEAR(Round_Down_1_2_5(value) / value, 1, 1e-6) << text;
        }
    }
}

TEST(OverlayLegend, StandsInTheCornerThatItIsGiven) {
    using Corner = Overlay::Corner;
    for (const Corner corner : {Corner::kTopLeft, Corner::kTopRight, Corner::kBottomLeft, Corner::kBottomRight}) {
        Overlay overlay;
        overlay.corner = corner;
        overlay.legend = {{.text = "one"}, {.text = "another line"}};
        const Call paper = Calls_Of(Drawn(overlay), "Paper").at(0);
        const bool right = corner == Corner::kTopRight || corner == Corner::kBottomRight;
        const bool bottom = corner == Corner::kBottomLeft || corner == Corner::kBottomRight;
        EXPECT_NEAR(right ? 500 - paper.numbers[0] - paper.numbers[2] : paper.numbers[0], 6, 1e-9);
        EXPECT_NEAR(bottom ? 500 - paper.numbers[1] - paper.numbers[3] : paper.numbers[1], 6, 1e-9);
    }
}

TEST(OverlayGrid, HasRoundValuesAtTheLinesThatBearThem) {
    for (const double wide : {0.0037, 0.9, 10.0, 64.0, 1234.0, 5e7}) {
        Overlay overlay;
        overlay.grid = Overlay::Grid{.sum = 0.3 * wide};
        const Sight sight{-0.4 * wide, -0.35 * wide, wide, wide, 640, 640};
        const OverlayLog log = Drawn(overlay, sight);
        int upright = 0, level = 0;
        std::vector<double> places;
        for (const Call& line : Calls_Of(log, "Faint")) {
            const bool stands = line.numbers[0] == line.numbers[2];
            (stands ? upright : level) += 1;
            if (stands) places.push_back(line.numbers[0]);
        }
        EXPECT_GE(upright, 4) << wide;
        EXPECT_LE(upright, 11) << wide;
        EXPECT_EQ(upright, static_cast<int>(places.size()));
        EXPECT_GE(level, 4) << wide;
        ASSERT_GE(places.size(), 2U);
        const double step = (places[1] - places[0]) / 640 * wide;
        EXPECT_NEAR(Round_Down_1_2_5(step * (1 + 1e-9)) / step, 1, 1e-6) << wide;
        int compared = 0;
        for (const Call& text : Calls_Of(log, "Text")) {
            const double value = std::stod(text.words.substr(7));
            const bool of_x = text.numbers[1] > 600;
            const double at =
                of_x ? (value - sight.left) / wide * 640 : (overlay.grid->sum - value - sight.top) / wide * 640;
            EXPECT_NEAR(of_x ? text.numbers[0] - 3 : text.numbers[1] + 14, at, 0.01 * 640 / 10) << text.words << wide;
            ++compared;
        }
        EXPECT_GE(compared, 6) << wide;
    }
}

TEST(OverlayGrid, IsFinerUnderAMagnifier) {
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 10};
    const Rows whole = Drawn(overlay).Texts();
    const Rows close = Drawn(overlay, {4, 4, 0.01, 0.01, 500, 500}).Texts();
    EXPECT_TRUE(std::ranges::count(whole, "4") > 0);
    EXPECT_TRUE(std::ranges::count(close, "4.002") > 0);
}

TEST(OverlayGrid, ItsValuesDoNotStandUnderTheLegend) {
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 10};
    overlay.corner = Overlay::Corner::kBottomLeft;
    overlay.legend = {{.text = "words of a legend"}, {.text = "more"}, {.text = "and more"}};
    const OverlayLog log = Drawn(overlay);
    const Call paper = Calls_Of(log, "Paper").at(0);
    for (const Call& text : Calls_Of(log, "Text")) {
        if (text.words.find_first_of("0123456789", 7) != 7) continue;
        const bool beside =
            text.numbers[0] >= paper.numbers[0] + paper.numbers[2] || text.numbers[1] + 14 <= paper.numbers[1];
        EXPECT_TRUE(beside) << text.words;
    }
}

struct Rect {
    double left, top, right, bottom;
};

std::vector<Rect> Words(const OverlayLog& log) {
    std::vector<Rect> rects;
    for (const Call& text : Calls_Of(log, "Text"))
        rects.push_back({text.numbers[0], text.numbers[1],
                         text.numbers[0] + 7 * static_cast<double>(text.words.size() - 7), text.numbers[1] + 14});
    return rects;
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(OverlayNames, StandInTheDirectionThatTheyAreGiven) {
    for (const Point away : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{0, -1}}) {
        Overlay overlay;
        overlay.names = {{"A", {5, 5}, away, kRed}};
        const Rect word = Words(Drawn(overlay)).at(0);
        const double x = (word.left + word.right) / 2 - 250, y = (word.top + word.bottom) / 2 - 250;
        EXPECT_GT(x * away.x + y * away.y, 8);
        EXPECT_NEAR(x * away.y - y * away.x, 0, 1e-9);
    }
}

TEST(OverlayNames, WithoutADirectionStandAboveOnTheRight) {
    Overlay overlay;
    overlay.names = {{"A", {5, 5}, {}, kRed}};
    const Rect word = Words(Drawn(overlay)).at(0);
    overlay.names = {{"A", {5, 5}, {1, 0}, kRed}};
    const double away = Words(Drawn(overlay)).at(0).left - 250;
    const double diagonal = std::sqrt(0.5);
    EXPECT_NEAR((word.left + word.right) / 2 - 250, diagonal * (away + (word.right - word.left) / 2), 1e-9);
    EXPECT_NEAR((word.top + word.bottom) / 2 - 250, -diagonal * (away + (word.bottom - word.top) / 2), 1e-9);
}

TEST(OverlayNames, OneWhosePlaceIsNotSeenIsNotThere) {
    Overlay overlay;
    overlay.names = {{"A", {15, 5}, {}, kRed}, {"B", {5, 5}, {}, kRed}};
    EXPECT_EQ(Drawn(overlay).Texts(), (Rows{"B"}));
}

TEST(OverlayNames, OfOnePlaceStandApart) {
    Overlay overlay;
    for (const char* name : {"A", "B", "P", "O2", "I13", "I24"}) overlay.names.push_back({name, {5, 5}, {1, 0}, kRed});
    const std::vector<Rect> words = Words(Drawn(overlay));
    ASSERT_EQ(words.size(), 6U);
    for (std::size_t i = 0; i < words.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(words[i], words[j])) << i << ' ' << j;
}

TEST(OverlayNames, KeepClearOfLinesOfTheEdgeAndOfEachOther) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0.1, 9.9);
    int crossed = 0, overlapped = 0, outside = 0, names = 0;
    for (int round = 0; round < 200; ++round) {
        Overlay overlay;
        std::vector<Point> joints;
        for (int i = 0; i < 5; ++i) joints.push_back({place(random), place(random)});
        for (std::size_t i = 0; i < 5; ++i) {
            overlay.marks.push_back({Kind::kNothing, joints[i], joints[(i + 1) % 5], 0});
            overlay.names.push_back({std::string(1, static_cast<char>('A' + i)), joints[i], {1, -1}, kRed});
        }
        const OverlayLog log = Drawn(overlay);
        EXPECT_TRUE(Calls_Of(log, "Line").empty());
        const std::vector<Rect> words = Words(log);
        names += static_cast<int>(words.size());
        for (std::size_t i = 0; i < words.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) overlapped += Overlap(words[i], words[j]);
            outside += words[i].left < 0 || words[i].top < 0 || words[i].right > 500 || words[i].bottom > 500;
            for (const auto& mark : overlay.marks) {
                Point from{mark.from.x * 50, mark.from.y * 50}, to{mark.to.x * 50, mark.to.y * 50};
                crossed +=
                    platform::Clip_Segment({words[i].left, words[i].top, words[i].right, words[i].bottom}, from, to);
            }
        }
    }
    EXPECT_EQ(names, 1000);
    EXPECT_EQ(overlapped, 0);
    EXPECT_EQ(outside, 0);
    EXPECT_LT(crossed, 20);
}

}  // namespace
}  // namespace verlink::test
