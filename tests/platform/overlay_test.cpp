// What an overlay is painted with: sizes that stay, round scales, names apart.
#include "platform/overlay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/platform/overlay_drawn.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Overlay;
using platform::Round_Down_1_2_5;
using platform::Round_Up_1_2_5;
using platform::Sight;
using Kind = Overlay::Mark::Kind;
using Rows = std::vector<std::string>;
using Call = OverlayLog::Call;

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

TEST(OverlayPainting, WhatIsJustBeyondTheEdgeOrTooShortIsLeftOut) {
    const auto calls = [](const Overlay::Mark& mark) { return Drawn(Of_Marks({mark})).Calls.size(); };
    // A pixel is a fiftieth of a unit; two beyond the edge are still painted.
    EXPECT_EQ(calls({Kind::kCircle, {-1.03, 5}, {}, kRed, 1}), 1U);
    EXPECT_EQ(calls({Kind::kCircle, {-1.05, 5}, {}, kRed, 1}), 0U);
    EXPECT_EQ(calls({Kind::kCircle, {5, -1.03}, {}, kRed, 1}), 1U);
    EXPECT_EQ(calls({Kind::kCircle, {5, -1.05}, {}, kRed, 1}), 0U);
    // Arrows of 0.4 and of 0.6 pixels.
    EXPECT_EQ(calls({Kind::kArrow, {1, 1}, {1.008, 1}, kRed}), 0U);
    EXPECT_EQ(calls({Kind::kArrow, {1, 1}, {1.012, 1}, kRed}), 2U);
    const Overlay half = Of_Marks({{Kind::kArrow, {1, 1}, {1 + 0.5 / 64, 1}, kRed}});
    EXPECT_TRUE(Drawn(half, {0, 0, 8, 8, 512, 512}).Calls.empty());
    // Heads whose tips lie 8 and 10 pixels outside, with a shaft of which a part is seen.
    EXPECT_EQ(calls({Kind::kArrow, {5, 5}, {10.16, 5}, kRed}), 2U);
    EXPECT_EQ(calls({Kind::kArrow, {5, 5}, {10.2, 5}, kRed}), 1U);
}

TEST(OverlayPainting, ACircleIsAnArcFromTenThousandPixelsOnAndStaysWithinATenthOfOne) {
    for (const double radius : {9900.0, 10000.0, 10100.0}) {
        const double centre = 250 + radius;
        const OverlayLog log = Drawn(Of_Marks({{Kind::kCircle, {centre / 50, 5}, {}, kRed, radius / 50}}));
        if (radius < 1e4) {
            ASSERT_EQ(log.Rows().size(), 1U);
            EXPECT_EQ(log.Calls[0].kind, "Circle");
            continue;
        }
        double most = 0;
        for (const Call& call : log.Calls) {
            ASSERT_EQ(call.kind, "Line");
            const double x = (call.numbers[0] + call.numbers[2]) / 2, y = (call.numbers[1] + call.numbers[3]) / 2;
            most = std::max(most, radius - std::hypot(x - centre, y - 250));
        }
        EXPECT_LE(most, 0.1);
        EXPECT_GT(most, 0.05) << "with no more pieces than that takes";
    }
}

TEST(RoundNumbers, AreOneTwoAndFiveTimesPowersOfTen) {
    for (const auto& [value, down, up] :
         {std::array{1.0, 1.0, 1.0}, std::array{1.9, 1.0, 2.0}, std::array{2.0, 2.0, 2.0}, std::array{4.99, 2.0, 5.0},
          std::array{5.0, 5.0, 5.0}, std::array{9.9, 5.0, 10.0}, std::array{10.0, 10.0, 10.0},
          std::array{0.003, 0.002, 0.005}, std::array{1e-9, 1e-9, 1e-9}, std::array{7e12, 5e12, 1e13},
          std::array{0.001, 0.001, 0.001}, std::array{1000.0, 1000.0, 1000.0},
          // As a sum of tenths may leave them, a rounding off.
          std::array{1000 * (1 - 2e-16), 1000.0, 1000.0}, std::array{0.5 * (1 + 4e-16), 0.5, 0.5},
          std::array{2 * (1 - 4e-16), 2.0, 2.0}, std::array{10 * (1 + 4e-16), 10.0, 10.0}}) {
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

/// Three lines: with a filled arrow, without a scale, with an open arrow.
Overlay Of_Three_Lines() {
    Overlay overlay;
    overlay.legend = {{.text = "velocity", .color = kRed, .per_world = 1, .unit = "in/sec"},
                      {.text = "plain words", .color = kBlue},
                      {.text = "acceleration", .color = kGreen, .per_world = 200, .unit = "in/sec2", .open = true}};
    return overlay;
}

TEST(OverlayLegend, ItsLinesStandUnderOneAnotherBehindTheirArrows) {
    // A unit is 50 pixels, so that at most 1.28 in/sec and 256 in/sec2 fit into 64 of them. The longest words have 25
    // letters of 7 pixels, after 64 + 6 for the arrow, with 6 around; three lines of 14 + 2, and 6.
    EXPECT_EQ(Drawn(Of_Three_Lines()).Rows(),
              (Rows{"Paper 6.00 6.00 257.00 54.00", "Line 12.00 17.00 53.00 17.00 0000FF",
                    "Triangle 62.00 17.00 53.00 20.20 53.00 13.80 0000FF", "Text 82.00 10.00 0000FF 1 in/sec  velocity",
                    "Text 12.00 26.00 FF0000 plain words", "Line 12.00 49.00 62.00 49.00 00FF00",
                    "Line 53.00 52.20 62.00 49.00 00FF00", "Line 62.00 49.00 53.00 45.80 00FF00",
                    "Text 82.00 42.00 00FF00 200 in/sec2  acceleration"}));
}

TEST(OverlayLegend, WithoutAWordItIsAsWideAsTheAirAround) {
    Overlay overlay;
    overlay.legend = {{.text = ""}};
    EXPECT_EQ(Drawn(overlay).Rows(), (Rows{"Paper 6.00 6.00 12.00 22.00", "Text 12.00 10.00 000000 "}));
}

TEST(OverlayLegend, InAPictureThatIsTooSmallItBeginsAtItsCorner) {
    using Corner = Overlay::Corner;
    for (const Corner corner : {Corner::kTopLeft, Corner::kTopRight, Corner::kBottomLeft, Corner::kBottomRight}) {
        Overlay overlay = Of_Three_Lines();
        overlay.corner = corner;
        const Call paper = Calls_Of(Drawn(overlay, {0, 0, 10, 10, 100, 40}), "Paper").at(0);
        EXPECT_EQ(paper.numbers[0], 6);
        EXPECT_EQ(paper.numbers[1], 6);
    }
}

TEST(OverlayLegend, ANumberHasTheDecimalsThatItNeedsAndAPowerWhereItIsVastOrTiny) {
    // 64 pixels are 1.28 of the world.
    for (const auto& [per_world, text] : {std::pair{4e6, "5e+06 u  w"},
                                          {8e5, "1e+06 u  w"},
                                          {4e5, "500000 u  w"},
                                          {40.0, "50 u  w"},
                                          {4.0, "5 u  w"},
                                          {0.4, "0.5 u  w"},
                                          {0.04, "0.05 u  w"},
                                          {0.0008, "0.001 u  w"},
                                          {1.6e-6, "0.000002 u  w"},
                                          {1.6e-7, "2e-07 u  w"}}) {
        Overlay overlay;
        overlay.legend = {{.text = "w", .color = kRed, .per_world = per_world, .unit = "u"}};
        EXPECT_EQ(Drawn(overlay).Texts(), Rows{text});
    }
}

TEST(OverlayGrid, LinesAndValuesStandAtFivesWhereTheWindowIsWideAndFlat) {
    // 50 pixels a unit across and 20 down: lines at least 64 pixels apart are at every 5 units. y is 3 less the world.
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 3};
    EXPECT_EQ(Drawn(overlay, {-1, -2, 10, 20, 500, 400}).Rows(),
              (Rows{"Faint 50.00 0.00 50.00 400.00 A0A0A0", "Text 53.00 385.00 606060 0",
                    "Faint 300.00 0.00 300.00 400.00 A0A0A0", "Text 303.00 385.00 606060 5",
                    "Faint 0.00 400.00 500.00 400.00 A0A0A0", "Faint 0.00 300.00 500.00 300.00 A0A0A0",
                    "Text 3.00 286.00 606060 -10", "Faint 0.00 200.00 500.00 200.00 A0A0A0",
                    "Text 3.00 186.00 606060 -5", "Faint 0.00 100.00 500.00 100.00 A0A0A0", "Text 3.00 86.00 606060 0",
                    "Faint 0.00 0.00 500.00 0.00 A0A0A0"}));
}

TEST(OverlayGrid, AValueThatWouldLeaveThePictureIsLeftOut) {
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 0};
    // The line of 4 is half a pixel from the right edge, and that of -4 as near to the bottom.
    const OverlayLog log = Drawn(overlay, {-5.99, -5.99, 10, 10, 500, 500});
    EXPECT_EQ(Calls_Of(log, "Faint").size(), 2U * 5);
    const Rows texts = log.Texts();
    EXPECT_EQ(texts, (Rows{"-4", "-2", "0", "2", "-2", "0", "2", "4"}));
}

TEST(OverlayGrid, AValueMayReachToTheVeryEdge) {
    // 64 pixels a unit. Behind the line of 0 at 502 are 3 pixels and a letter of 7; a letter is 14 above the line
    // at 14.
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 14.0 / 64};
    const auto texts = Calls_Of(Drawn(overlay, {-502.0 / 64, 0, 8, 8, 512, 512}), "Text");
    for (const auto& place : {std::pair{505.0, 497.0}, {3.0, 0.0}})
        EXPECT_TRUE(std::ranges::any_of(texts, [&](const Call& text) {
            return text.numbers[0] == place.first && text.numbers[1] == place.second && text.words == "606060 0";
        })) << place.first;
}

TEST(OverlayGrid, AValueStandsWhereItJustFitsUnderTheUpperEdgeOrBesideTheLegend) {
    Overlay overlay;
    const auto shown = [&](double at) {
        overlay.grid = Overlay::Grid{.sum = at / 50};
        const auto texts = Calls_Of(Drawn(overlay), "Text");
        return std::ranges::any_of(texts, [](const Call& text) {
            return text.numbers[0] == 3 && text.numbers[1] < 480 && text.words == "606060 0";
        });
    };
    for (const auto& [at, fits] : {std::pair{14.5, true}, {13.5, false}, {465.0, true}, {472.0, false}, {475.0, false}})
        EXPECT_EQ(shown(at), fits) << at;
    // A legend of one line in the corner is 22 high and begins 6 from the edges.
    overlay.legend = {{.text = "w"}};
    EXPECT_TRUE(shown(28 + 14.05));
    EXPECT_FALSE(shown(28 + 13.9));
}

TEST(OverlayGrid, WhereNumbersAreTooCoarseThereIsNone) {
    Overlay overlay;
    overlay.grid = Overlay::Grid{.sum = 0};
    EXPECT_TRUE(Drawn(overlay, {1e15, 1e15, 10, 10, 500, 500}).Calls.empty());
    EXPECT_TRUE(Drawn(overlay, {-1e15, -1e15, 10, 10, 500, 500}).Calls.empty());
    EXPECT_FALSE(Drawn(overlay, {1e11, 1e11, 10, 10, 500, 500}).Calls.empty());
    EXPECT_FALSE(Drawn(overlay, {2e12 - 10, 2e12 - 10, 10, 10, 500, 500}).Calls.empty()) << "at the limit there is";
    EXPECT_TRUE(Drawn(overlay, {0, 0, 10, 10, 1e6, 1e6}).Calls.empty()) << "nor where there would be thousands";
    EXPECT_TRUE(Drawn(overlay, {0, 0, 1e4, 1e4, 64e4, 64e4}).Calls.empty()) << "as at ten thousand steps";
}

TEST(OverlayPainting, InAWindowWithoutAnExtentAndOnNoPixelsThereIsNothing) {
    Overlay overlay = Of_Marks({{Kind::kLine, {1, 1}, {2, 3}, kRed}});
    overlay.grid = Overlay::Grid{.sum = 0};
    overlay.legend = {{.text = "velocity", .color = kRed, .per_world = 1, .unit = "u"}};
    overlay.names = {{"A", {0, 0}, {}, kRed}};
    EXPECT_FALSE(Drawn(overlay, {0, 0, 10, 10, 1, 1}).Calls.empty());
    for (const Sight& none : {Sight{0, 0, 0, 10, 500, 500}, Sight{0, 0, 10, 0, 500, 500}, Sight{0, 0, 10, 10, 0, 500},
                              Sight{0, 0, 10, 10, 500, 0}})
        EXPECT_TRUE(Drawn(overlay, none).Calls.empty()) << none.wide << ' ' << none.across;
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

}  // namespace
}  // namespace verlink::test
