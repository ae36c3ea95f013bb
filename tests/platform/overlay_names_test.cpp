// Where an overlay's names stand: beside their places, clear of lines, of the edges and of each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <tuple>

#include "platform/overlay.h"
#include "tests/platform/overlay_drawn.h"
#include "tests/support/colors.h"

namespace verlink::test {
namespace {

using platform::Overlay;
using platform::Point;
using platform::Sight;
using Kind = Overlay::Mark::Kind;
using Rows = std::vector<std::string>;
using Call = OverlayLog::Call;

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

TEST(OverlayNames, KeepSevenPixelsFromThePinWhateverTheMagnifier) {
    // Letters are 7 by 14. The pin is 0.2 of a unit of 50 pixels; magnified twice, of 100, and drawn half as large.
    for (const auto& [sight, x, y] :
         {std::tuple{kWhole, 300.0, 350.0}, std::tuple{Sight{5, 5, 5, 5, 500, 500, 2}, 100.0, 200.0}}) {
        for (const Point away : {Point{1, 0}, Point{-2, 0}, Point{0, 3}, Point{0, -1}}) {
            Overlay overlay;
            overlay.names = {{"A", {6, 7}, away, kRed, 0.2}};
            const Rect word = Words(Drawn(overlay, sight)).at(0);
            const double gap = away.x > 0   ? word.left - x
                               : away.x < 0 ? x - word.right
                               : away.y > 0 ? word.top - y
                                            : y - word.bottom;
            EXPECT_NEAR(gap, 10 + 7, 1e-9) << away.x << ' ' << away.y;
        }
    }
}

TEST(OverlayNames, GoNoFurtherThanTheyHaveTo) {
    // A word of one letter on the right would be 264 to 271 across, 243 to 257 down; a stroke leads through it.
    Overlay overlay;
    overlay.names = {{"A", {5, 5}, {1, 0}, kRed}};
    const Rect free = Words(Drawn(overlay)).at(0);
    EXPECT_NEAR(free.left, 257, 1e-9);
    for (const auto& [from, to, touches] : {std::tuple{Point{5.2, 4}, Point{5.2, 6}, true},
                                            {Point{5.27, 4}, Point{5.27, 6}, true},
                                            {Point{5.13, 4}, Point{5.13, 6}, false},
                                            {Point{5.3, 4}, Point{5.3, 6}, false},
                                            {Point{5.1, 4.84}, Point{6, 4.84}, false},
                                            {Point{5.1, 4.88}, Point{6, 4.88}, true},
                                            {Point{5.1, 5.16}, Point{6, 5.16}, false},
                                            {Point{5.1, 5.12}, Point{6, 5.12}, true}}) {
        overlay.marks = {{Kind::kNothing, from, to, 0}};
        const Rect word = Words(Drawn(overlay)).at(0);
        EXPECT_EQ(word.left != free.left || word.top != free.top, touches) << from.x << ' ' << from.y;
        Point a{from.x * 50, from.y * 50}, b{to.x * 50, to.y * 50};
        EXPECT_FALSE(platform::Clip_Segment({word.left, word.top, word.right, word.bottom}, a, b));
        EXPECT_LT(std::hypot((word.left + word.right) / 2 - 250, (word.top + word.bottom) / 2 - 250), 40);
    }
}

TEST(OverlayNames, TurnAsideByEighthsAndMoveOutFromWhatSurroundsThem) {
    Overlay overlay;
    overlay.names = {{"A", {5, 5}, {1, 0}, kRed}};
    const auto word = [&] { return Words(Drawn(overlay)).at(0); };
    // An upright stroke in the way, which an eighth of a turn avoids and a sixteenth does not.
    for (const Kind kind : {Kind::kNothing, Kind::kLine}) {
        overlay.marks = {{kind, {5.24, 4.88}, {5.24, 5.12}, 0}};
        EXPECT_NEAR((word().left + word().right) / 2 - 250, std::sqrt(0.5) * (7 + 3.5), 1e-9);
        EXPECT_NEAR((word().top + word().bottom) / 2 - 250, std::sqrt(0.5) * (7 + 7), 1e-9);
    }
    // A long one, which takes a quarter of one.
    overlay.marks = {{Kind::kNothing, {5.14, 4.5}, {5.14, 5.5}, 0}};
    EXPECT_NEAR((word().left + word().right) / 2, 250, 1e-9);
    overlay.marks.clear();
    for (const auto& [half, gap] : {std::pair{0.24, 2.5 * 7}, {0.18, 2.5 * 7}, {0.4, 4.0 * 7}}) {
        const Point corners[] = {
            {5 - half, 5 - half}, {5 + half, 5 - half}, {5 + half, 5 + half}, {5 - half, 5 + half}};
        for (int i = 0; i < 4; ++i) overlay.marks.push_back({Kind::kNothing, corners[i], corners[(i + 1) % 4], 0});
        EXPECT_NEAR(word().left - 250, gap, 1e-9);
        EXPECT_NEAR((word().top + word().bottom) / 2, 250, 1e-9);
    }
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
        std::vector<Point> joints(5);
        for (Point& joint : joints) joint = {place(random), place(random)};
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

/// Level lines through a band, each as far from the next, from one place across to another.
void Rule(Overlay& overlay, double left, double right, double top, double bottom, double apart) {
    for (double y = top; y <= bottom; y += apart)
        overlay.marks.push_back({Kind::kNothing, {left / 50, y / 50}, {right / 50, y / 50}, 0});
}

TEST(OverlayNames, OneLeavesThePictureOnlyWhereItWouldLieAcrossMoreThanThatIsWorth) {
    // On the right of 490 the word has 4 by 14 of its 7 by 14 pixels outside: that costs 120 + 56. Elsewhere a line
    // through it costs 4 + 2 * 7, of which 11 or 12 cost more and 8 or 9 less.
    for (const auto& [apart, leaves] : {std::pair{1.27, true}, {14 / 8.5, false}}) {
        Overlay overlay;
        overlay.names = {{"A", {9.8, 5}, {1, 0}, kRed}};
        Rule(overlay, 380, 496.99, 190, 310, apart);
        EXPECT_EQ(Words(Drawn(overlay)).at(0).right > 503.9, leaves) << apart;
    }
}

TEST(OverlayNames, OneCoversAnotherOnlyWhereItWouldLieAcrossMoreThanThatIsWorth) {
    // The word of the first is at 260 to 267, and that of the second, at 257 to 264, would cover 4 by 14 pixels of it.
    for (const auto& [apart, covers] : {std::pair{1.4, true}, {14 / 8.5, false}}) {
        Overlay overlay;
        overlay.names = {{"B", {5.06, 5}, {1, 0}, kRed}, {"A", {5, 5}, {1, 0}, kRed}};
        Rule(overlay, 150, 256.5, 190, 310, apart);
        Rule(overlay, 256.5, 350, 190, 242.5, apart);
        Rule(overlay, 256.5, 350, 257.5, 310, apart);
        Rule(overlay, 267.5, 350, 242.5, 257.5, apart);
        const std::vector<Rect> words = Words(Drawn(overlay));
        EXPECT_NEAR(words.at(0).left, 260, 1e-9);
        EXPECT_EQ(Overlap(words.at(0), words.at(1)), covers) << apart;
    }
}

TEST(OverlayNames, OneGivesWayToAnotherThatItWouldOnlyJustTouch) {
    // Below one another, a fiftieth of a pixel closer than a line is high.
    Overlay overlay;
    overlay.names = {{"B", {5, 5}, {1, 0}, kRed}, {"A", {5, 5 + 13.98 / 50}, {1, 0}, kRed}};
    const std::vector<Rect> words = Words(Drawn(overlay));
    EXPECT_NEAR(words.at(0).top, 243, 1e-9);
    EXPECT_GE(words.at(1).top, 257);
    overlay.names[1].at.y = 5 + 14.02 / 50;
    EXPECT_NEAR(Words(Drawn(overlay)).at(1).top, 257.02, 1e-9);
}

TEST(OverlayNames, GiveWayToTheLegendAndToTheValuesOfTheGrid) {
    // The legend's one line ends 28 from the edges. A value of the grid has its line three pixels to its left, and
    // begins a line of text and a pixel above the lower edge.
    Overlay overlay;
    overlay.legend = {{.text = "word"}};
    overlay.names = {{"A", {0.3, 0.4}, {1, 0}, kRed}, {"B", {3.9, 9.85}, {1, 0}, kRed}};
    overlay.grid = Overlay::Grid{.sum = 10};
    const OverlayLog log = Drawn(overlay);
    const auto texts = Calls_Of(log, "Text");
    std::vector<Rect> words = Words(log);
    const Call paper = Calls_Of(log, "Paper").at(0);
    const Rect legend{paper.numbers[0], paper.numbers[1], paper.numbers[0] + paper.numbers[2],
                      paper.numbers[1] + paper.numbers[3]};
    ASSERT_EQ(texts.at(words.size() - 2).words, "0000FF A");
    EXPECT_FALSE(Overlap(words[words.size() - 2], legend));
    const Rect last = words.back();
    words.pop_back();
    for (const Rect& other : words) EXPECT_FALSE(Overlap(last, other)) << other.left << ' ' << other.top;
}

TEST(OverlayNames, TurningRoundIsWorthLessThanGoingFarOutByAFewPixels) {
    // A word straight ahead and twice and a half as far costs 10.5 more; one at three eighths of a turn 6 + 6 /
    // sqrt(2), which is less by a quarter. Strokes take the places up to there, on both sides.
    Overlay overlay;
    overlay.names = {{"A", {5, 5}, {1, 0}, kRed}};
    const auto stroke = [&](double x1, double y1, double x2, double y2) {
        overlay.marks.push_back({Kind::kNothing, {5 + x1 / 50, 5 + y1 / 50}, {5 + x2 / 50, 5 + y2 / 50}, 0});
    };
    stroke(10, -10, 10, 10);
    stroke(-3, 18, 9, 18);
    stroke(-3, -18, 9, -18);
    stroke(-12, -10, -5, -10);
    const Rect word = Words(Drawn(overlay)).at(0);
    EXPECT_NEAR((word.left + word.right) / 2 - 250, -std::sqrt(0.5) * (7 + 3.5), 1e-9);
    EXPECT_NEAR((word.top + word.bottom) / 2 - 250, std::sqrt(0.5) * (7 + 7), 1e-9);
}

TEST(OverlayNames, AStrokeThroughAWordCostsFourPixelsAndTwiceItsLengthThere) {
    // A quarter of a turn costs 6. What is nearer is taken by strokes; that ahead is crossed by a short one.
    for (const auto& [length, turned] : {std::pair{0.9, false}, {1.1, true}}) {
        Overlay overlay;
        overlay.names = {{"A", {5, 5}, {1, 0}, kRed}};
        const auto stroke = [&](double x1, double y1, double x2, double y2) {
            overlay.marks.push_back({Kind::kNothing, {5 + x1 / 50, 5 + y1 / 50}, {5 + x2 / 50, 5 + y2 / 50}, 0});
        };
        stroke(4.5, 11, 14, 11);
        stroke(-3, -11, 14, -11);
        stroke(14 - length, 0, 16, 0);
        const Rect word = Words(Drawn(overlay)).at(0);
        EXPECT_NEAR((word.left + word.right) / 2 - 250, turned ? 0 : 10.5, 1e-9) << length;
        EXPECT_NEAR((word.top + word.bottom) / 2 - 250, turned ? 14 : 0, 1e-9) << length;
    }
}

TEST(OverlayNames, AWordMayStandWithinAPixelOfAnEdge) {
    // Seven pixels off its place, a letter of 7 by 14 ends 0.4 pixels before the edge.
    for (const auto& [at, away] : {std::pair{Point{14.4, 250}, Point{-1, 0}},
                                   {Point{485.6, 250}, Point{1, 0}},
                                   {Point{250, 21.4}, Point{0, -1}},
                                   {Point{250, 478.6}, Point{0, 1}}}) {
        Overlay overlay;
        overlay.names = {{"A", {at.x / 50, at.y / 50}, away, kRed}};
        const Rect word = Words(Drawn(overlay)).at(0);
        EXPECT_NEAR(std::min({word.left, word.top, 500 - word.right, 500 - word.bottom}), 0.4, 1e-9) << away.x;
        // A twentieth of a pixel beyond it, it had better stand elsewhere.
        overlay.names[0].at.x += 0.45 / 50 * away.x;
        overlay.names[0].at.y += 0.45 / 50 * away.y;
        const Rect other = Words(Drawn(overlay)).at(0);
        EXPECT_GE(std::min({other.left, other.top, 500 - other.right, 500 - other.bottom}), 0) << away.x;
    }
}

TEST(OverlayNames, APlaceInTheOutermostPixelIsSeen) {
    for (const Point at : {Point{0.01, 5}, Point{5, 0.01}, Point{9.99, 5}, Point{5, 9.99}}) {
        Overlay overlay;
        overlay.names = {{"A", at, {}, kRed}};
        EXPECT_EQ(Drawn(overlay).Texts(), (Rows{"A"})) << at.x;
    }
}

}  // namespace
}  // namespace verlink::test
