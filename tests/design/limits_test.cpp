// Where areas, tasks and judgements end: just within and just beyond.
#include <algorithm>
#include <limits>

#include "design/dyads.h"
#include "design/judge.h"
#include "design/search.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

struct Limits : testing::Test {
    static Area Within(Point low, Point high) { return {Area::Is::kWithin, low, high, {}}; }
    static Area At(std::vector<Point> points) { return {Area::Is::kPoints, {}, {}, std::move(points)}; }
    static std::string Said(std::vector<Place> places) {
        Task task;
        task.positions = std::move(places);
        return Trouble_With(task);
    }
    static Judgement Judged(const Known& known, const std::vector<double>& turns) {
        const Task task = *Task_Of(known, turns);
        return Judge(task).Of(Linkage_Of(known));
    }
    static void Expect_Box(const Box& box, Point low, Point high) {
        EXPECT_LT(std::abs(box.low - low), 1e-9) << box.low;
        EXPECT_LT(std::abs(box.high - high), 1e-9) << box.high;
    }
};

}  // namespace

TEST_F(Limits, AnAreaHoldsItsEdgeAndABillionthMore) {
    EXPECT_TRUE(Area{}.Holds({1e30, -1e30}));
    const Area points = At({{-7, 0}, {3, 4}});
    EXPECT_TRUE(points.Holds({-7, 0}));
    EXPECT_TRUE(points.Holds({3, 4 + 5.5e-9}));
    EXPECT_FALSE(points.Holds({3, 4 + 6.5e-9}));
    EXPECT_FALSE(points.Holds({-2, 2}));
    for (const bool low_is_far : {true, false}) {
        const Area box = low_is_far ? Within({-3, -4}, {1, 2}) : Within({-1, -2}, {3, 4});
        const double x[] = {box.low.real(), box.high.real()}, y[] = {box.low.imag(), box.high.imag()};
        for (const int side : {0, 1}) {
            const double out = side == 0 ? -1 : 1;
            EXPECT_TRUE(box.Holds({x[side] + out * 5.5e-9, 0}));
            EXPECT_FALSE(box.Holds({x[side] + out * 6.5e-9, 0}));
            EXPECT_TRUE(box.Holds({0, y[side] + out * 5.5e-9}));
            EXPECT_FALSE(box.Holds({0, y[side] + out * 6.5e-9}));
        }
    }
    // To the last bit: about the origin it is a billionth of 1, and of 2 where a corner is 1 away from it.
    const Area line = Within({0, 0}, {1, 0});
    for (const Point at : {Point(-2e-9, 0), Point(1 + 2e-9, 0), Point(0, -2e-9), Point(0, 2e-9)})
        EXPECT_TRUE(line.Holds(at)) << at;
    EXPECT_TRUE(At({{0, 0}}).Holds({1e-9, 0}));
}

TEST_F(Limits, ATaskIsMeasuredByItsPositionsOrByItsRectangles) {
    Task task;
    task.positions = {{{1, 1}, 0}, {{4, 3}, 10}, {{2, 5}, 20}};
    EXPECT_DOUBLE_EQ(Span_Of(task), 5);
    task.left.moving = Within({0, 0}, {30, 40});
    EXPECT_DOUBLE_EQ(Span_Of(task), 5);
    task.positions = {{{1, 0}, 0}, {{1, 0}, 30}};
    EXPECT_DOUBLE_EQ(Span_Of(task), 50);
    task.right.fixed = Within({0, 0}, {60, 80});
    EXPECT_DOUBLE_EQ(Span_Of(task), 100);
    task.right.moving = At({{0, 0}, {500, 0}});
    EXPECT_DOUBLE_EQ(Span_Of(task), 100) << "points are no rectangle";
    task.left = task.right = {};
    task.left.fixed = Within({0, 0}, {0.3, 0.4});
    EXPECT_DOUBLE_EQ(Span_Of(task), 0.5);
    task.left.fixed = Within({3, 4}, {3, 4});
    EXPECT_DOUBLE_EQ(Span_Of(task), 1) << "a rectangle that is one point measures nothing";
    task.left = {};
    EXPECT_DOUBLE_EQ(Span_Of(task), 1);
    task.positions[1].at = {1 + 1.9e-9, 0};
    EXPECT_DOUBLE_EQ(Span_Of(task), 1) << "one point, to a billionth of where it is and 1";
    task.positions[1].at = {1 + 2.1e-9, 0};
    EXPECT_LT(Span_Of(task), 1e-8);
    task.positions = {{{-5e-10, 0}, 0}, {{5e-10, 0}, 30}};
    EXPECT_EQ(Span_Of(task), 1) << "a billionth itself is one point";
}

TEST_F(Limits, PivotsAreLookedForInTheirAreaOrAboutThePositions) {
    Task task;
    task.positions = {{{1, 1}, 0}, {{4, 5}, 10}};
    const Point middle(2.5, 3);
    Expect_Box(Looked_Over(task, Within({-1, -2}, {3, 4})), {-1, -2}, {3, 4});
    Expect_Box(Looked_Over(task, At({{5, 1}, {-2, 7}, {0, 0}})), {-2, 0}, {5, 7});
    Expect_Box(Looked_Over(task, At({{5, 1}, {2, 7}})), {2, 1}, {5, 7});
    Expect_Box(Looked_Over(task, At({{-5, -1}, {-2, -7}})), {-5, -7}, {-2, -1});
    for (const auto& [longest, reach] : {std::pair(std::numeric_limits<double>::infinity(), 15.0), std::pair(7.5, 15.0),
                                         std::pair(4.0, 8.0), std::pair(2.5, 5.0), std::pair(1.0, 5.0)}) {
        task.longest = longest;
        Expect_Box(Looked_Over(task, {}), middle - Point(reach, reach), middle + Point(reach, reach));
    }
    task.longest = std::numeric_limits<double>::infinity();
    task.relative = true;
    task.positions[1] = {{3, 4}, 9};
    Expect_Box(Looked_Over(task, {}), middle - Point(15, 15), middle + Point(15, 15));
    EXPECT_EQ(Absolute_Positions(task)[1], (Place{{4, 5}, 9}));
}

TEST_F(Limits, PositionsCoincideWithinABillionthAndATenMillionthOfADegree) {
    // From the origin to (3, 4) both span and farthest place are 5: a hundred millionth is one place.
    const auto said = [](double off, double askew) {
        return Said({{{0, 0}, 10}, {{3, 4}, 50}, {{off, 0}, 10 + askew}});
    };
    const std::string same = "Positions 1 and 3 coincide: move or turn one of them, or leave it out.";
    EXPECT_EQ(said(0.9e-8, 0), same);
    EXPECT_EQ(said(0, 0.9e-7), same);
    EXPECT_EQ(said(0, -360), same);
    EXPECT_NE(said(1.1e-8, 0), same);
    EXPECT_NE(said(0, 1.1e-7), same);
    EXPECT_EQ(Said({{{0, 0}, 1}, {{3, 4}, 5}, {{1, 1}, 7}, {{3, 4}, 5}}).substr(0, 17), "Positions 2 and 4");
    // Off the line by as much they lie on one.
    const auto line = [](double off) {
        return Said({{{0, 0}, 5}, {{3, 4}, 5}, {{1.5 - 0.8 * off, 2 + 0.6 * off}, 5}});
    };
    EXPECT_NE(line(0.9e-8), "");
    EXPECT_EQ(line(1.1e-8), "");
    // From the origin to (1, 0) it is two billionths, to the last bit.
    EXPECT_NE(Said({{{0, 0}, 5}, {{1, 0}, 5}, {{0.5, 2e-9}, 5}}), "");
    EXPECT_NE(Said({{{0, 0}, 5}, {{0.5, 1.9e-9}, 5}, {{1, 0}, 5}}), "") << "of the line from the first";
    EXPECT_EQ(Said({{{0, 0}, 5}, {{1, 0}, 5}, {{0, 2e-9}, 5}}), same);
    EXPECT_EQ(Said({{{0, 0}, 5}, {{3e-3, 4e-3}, 50}, {{0.9e-11, 0}, 5}}), same);
    EXPECT_NE(Said({{{0, 0}, 5}, {{3e-3, 4e-3}, 50}, {{1.1e-11, 0}, 5}}), same);
    // The line is that to the farthest, which a place hardly off the first does not turn.
    const std::string near_first = Said({{{0, 0}, 5}, {{3, 4}, 5}, {{2.28e-8, 4.54e-8}, 5}});
    EXPECT_NE(near_first.find("lie on a line"), std::string::npos) << near_first;
    EXPECT_NE(Said({{{3, 4}, 5}, {{0, 0}, 5}, {{-3, -4}, 5}, {{6, 8}, 5}}).find("lie on a line"), std::string::npos);
    EXPECT_NE(Said({{{1, 0}, 5}, {{2, 2}, 5}, {{4, 6}, 5}}).find("lie on a line"), std::string::npos) << "beside 0, 0";
    EXPECT_EQ(Said({{{1, 1}, 5}, {{2, 2}, 5}, {{-3, 3}, 5}}), "");
    EXPECT_EQ(Said({{{1, 1}, 5}, {{2, 2}, 5}}), "") << "two are always on a line, and links shift the body";
}

TEST_F(Limits, PositionsTurnAboutOnePointWithinATenMillionth) {
    // Poles of 90 degrees: half the way, and as far to its left.
    const auto said = [](double off) { return Said({{{2, 0}, 0}, {{0, 2}, 90}, {{-2 + off, off}, 180}}); };
    EXPECT_EQ(said(0).substr(0, 43), "All positions turn about the one point 0, 0");
    // The pole moves by half of (off, off); span is the diagonal of 4 and 2, the farthest place at 2.
    const double most = 1e-7 * (std::sqrt(20) + 2) * std::sqrt(2);
    EXPECT_NE(said(0.95 * most), "");
    EXPECT_EQ(said(1.05 * most), "");
    EXPECT_EQ(Said({{{2, 0}, 0}, {{0, 2}, 90}}), "") << "two turn about one always";
    EXPECT_EQ(Said({{{3.5, 1.25}, 0}, {{1.25, 3.25}, 90}, {{-0.75, 1}, 180}}),
              "All positions turn about the one point 1.375, 1.125, so that every link has its pivot there: a single "
              "joint does it. Move or turn one of the positions.");
    EXPECT_EQ(Said({{{2, 0}, 10}, {{0, 2}, 100}, {{-2, 0}, 190}}).substr(0, 43), said(0).substr(0, 43));
    EXPECT_EQ(Said({{{0, 0}, 0}, {{1, 0}, 0}, {{0, 1}, 90}}), "") << "without a turn there is no pole";
    EXPECT_EQ(Said({{{1, 1}, 7}, {{1, 1}, 7}}).substr(0, 24), "Positions 1 and 2 coinci");
    // In thousandths.
    for (const Point by : {Point(0.0004, 0), Point(0, 0.0004)}) {
        const std::string words =
            Said({{Point(3.5, 1.25) + by, 0}, {Point(1.25, 3.25) + by, 90}, {Point(-0.75, 1) + by, 180}});
        EXPECT_NE(words.find(" the one point 1.375, 1.125, so"), std::string::npos) << words;
    }
}

TEST_F(Limits, NumbersOfPositionsMayBeTwiceTheLargestOfAFile) {
    const double place = 2 * kLargestLength, angle = 2 * kLargestAngle;
    const std::string words = "Position 2 has a number that is none or too large: give its place and angle anew.";
    EXPECT_NE(Said({{{0, 0}, 0}, {{place, -place}, 30}}), words);
    EXPECT_NE(Said({{{0, 0}, 0}, {{1, 1}, -angle}}), words);
    EXPECT_EQ(Said({{{0, 0}, 0}, {{1.001 * place, 0}, 30}}), words);
    EXPECT_EQ(Said({{{0, 0}, 0}, {{0, 1.001 * place}, 30}}), words);
    EXPECT_EQ(Said({{{0, 0}, 0}, {{1, 1}, 1.001 * angle}}), words);
    std::vector<Place> six(6);
    for (std::size_t i = 0; i < 6; ++i) {
        const auto number = static_cast<double>(i);
        six[i] = {{number, number * number / 2}, 7 * number};
    }
    EXPECT_EQ(Said(six), "A task has two to five positions: give fewer.");
    six.pop_back();
    EXPECT_EQ(Said(six), "");
    Task task;
    task.positions = six;
    task.right.fixed = At({{1, 1}});
    EXPECT_EQ(Trouble_With(task),
              "With 5 positions a pivot of the right link cannot be given as a point: its places are found. Give a "
              "rectangle, or three positions.");
    task.right = {{}, At({{1, 1}})};
    EXPECT_EQ(Trouble_With(task).substr(0, 47), "With 5 positions a pivot of the right link cann");
}

TEST_F(Limits, ACrankThatTurnsLessThanAThousandthOfARadianStands) {
    EXPECT_EQ(Judged(Crank_Rocker(), {0, 1, 1.0009}).refusal, Refusal::kStands);
    EXPECT_EQ(Judged(Crank_Rocker(), {0, 1, 1.0009}).from, 2);
    EXPECT_EQ(Judged(Crank_Rocker(), {0, 1, 1.0009}).to, 3);
    EXPECT_TRUE(Judged(Crank_Rocker(), {0, 1, 1.0011}).Good());
    EXPECT_EQ(Judged(Crank_Rocker(), {0, -0.0009}).refusal, Refusal::kStands);
    EXPECT_EQ(Judged(Crank_Rocker(), {0, 3, kTurn - 0.0005}).refusal, Refusal::kOrder) << "nearly a whole turn";
    EXPECT_TRUE(Judged(Crank_Rocker(), {0, 3, kTurn - 0.0015}).Good());
    // Two of four between the same: out of order either way.
    const Judgement order = Judged(Crank_Rocker(), {0, 2, 1, 3});
    EXPECT_EQ(order.refusal, Refusal::kOrder);
    EXPECT_GT(order.from, 1);
    EXPECT_EQ(order.to, order.from + 1);
}

TEST_F(Limits, ACrankGoesTheWayThatClosesOrSaysWhereNoneDoes) {
    // A triple rocker that closes to 58 degrees either way of the ground: cos = (9 + 16 - 12.25) / 24.
    Known rocker{{0, 0}, {4, 0}, std::polar(3.0, 0.3), {}, {2, 3}};
    const double d = std::abs(rocker.O4 - rocker.A);
    rocker.B = rocker.A + std::polar(1.5, std::arg(rocker.O4 - rocker.A) + std::acos((2.25 + d * d - 4) / (3 * d)));
    const Judgement there = Judged(rocker, {0, -0.2, -0.4});
    EXPECT_TRUE(there.Good());
    EXPECT_NEAR(there.crank[0], 0.3, 1e-9);
    EXPECT_NEAR(there.crank[2], -0.1, 1e-9);
    const Judgement back = Judged(rocker, {0, -0.6, -0.2});
    EXPECT_EQ(back.refusal, Refusal::kGap);
    EXPECT_EQ(back.to, back.from + 1);
}

TEST_F(Limits, LinksOfWhichOneIsHundredsOfTimesAsLongAsAnotherHaveNoDigitsInCommon) {
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 1}, 30}};
    const auto judged = [&](double crank) {
        return Judge(task).Of({{{0, 0}, {crank, 0}}, {{100, 0}, {50, 90}}, {0, 0}});
    };
    const double longest = std::hypot(50, 90);
    EXPECT_EQ(judged(longest / 201).refusal, Refusal::kUnlike);
    EXPECT_NEAR(judged(longest / 201).amount, 201, 1);
    EXPECT_NE(judged(longest / 195).refusal, Refusal::kUnlike);
    EXPECT_EQ(judged(0).refusal, Refusal::kLength);
    EXPECT_EQ(judged(0).amount, 0);
    EXPECT_EQ(judged(std::sqrt(2) * 0.9e-9).refusal, Refusal::kLength) << "no length, to a billionth of the span";
    EXPECT_EQ(judged(std::sqrt(2) * 1.1e-9).refusal, Refusal::kUnlike);
    // A hundred are two hundred times a half, and no more.
    EXPECT_NE(Judge(task).Of({{{0, 0}, {0.5, 0}}, {{100, 0}, {50, 10}}, {0, 0}}).refusal, Refusal::kUnlike);
    task.shortest = 1;
    EXPECT_EQ(judged(1 - 0.9e-9).refusal == Refusal::kLength, false);
    EXPECT_NE(judged(1 - 1e-9).refusal, Refusal::kLength);
    EXPECT_EQ(judged(1 - 1.1e-9).refusal, Refusal::kLength);
    task.longest = longest - 1e-9 * longest * 0.9;
    EXPECT_NE(judged(2).refusal, Refusal::kLength);
    task.longest = longest - 1e-9 * longest * 1.1;
    EXPECT_EQ(judged(2).refusal, Refusal::kLength);
    EXPECT_NEAR(judged(2).amount, longest, 1e-9);
    // The crank itself as the longest, to the last bit.
    task.longest = 300;
    EXPECT_NE(judged(300 * (1 + 1e-9)).refusal, Refusal::kLength);
    EXPECT_EQ(judged(300 * (1 + 1.1e-9)).refusal, Refusal::kLength);
    task = {};
    task.positions = {{{0, 0}, 0}, {{1, 0}, 30}};
    EXPECT_EQ(judged(1e-9).refusal, Refusal::kLength) << "a billionth of the span itself is no length";
}

TEST_F(Limits, ALinkThatRoundsToNothingMeetsNoPosition) {
    const auto closes = [](const FourBar& linkage, bool as_shown) {
        Task task;
        task.positions = {{linkage.coupler, 0}};
        const double crank[] = {std::arg(linkage.crank.moving - linkage.crank.fixed)};
        const auto carried = Carried_Through(task.positions);
        return Miss_Of(linkage, Is_Open(linkage), carried, crank, 1, as_shown).closes;
    };
    // 0.0004 inches are none in thousandths.
    const FourBar shorts[] = {{{{0, 0}, {2, 0}}, {{0, 0.0004}, {1, 1}}, {1, 2}},
                              {{{0, 0}, {0, 0.0004}}, {{2, 0}, {1, 1}}, {1, 2}},
                              {{{0, 0}, {1, 1}}, {{2, 0}, {1, 1.0004}}, {1, 2}},
                              {{{0, 0}, {1, 1}}, {{2, 0}, {2, 0.0004}}, {1, 2}}};
    for (const FourBar& linkage : shorts) EXPECT_FALSE(closes(linkage, true));
    EXPECT_TRUE(closes(Linkage_Of(Crank_Rocker()), true));
}

TEST_F(Limits, TheScoreIsTheMeanOfItsMeritsByTheirWeights) {
    const Known known = Crank_Rocker();
    Task task = *Task_Of(known, {0, 1, 2.5});
    const auto score = [&](const Weights& weights) {
        task.weights = weights;
        return Judge(task).Of(Linkage_Of(known)).score;
    };
    const Judgement j = Judge(task).Of(Linkage_Of(known));
    const double span = Span_Of(task), room = std::abs(j.room.high - j.room.low);
    const double angle = 100 * j.transmission / 90, proportion = 100 / std::sqrt(4), place = 100 * span / (span + room);
    const double rounding = 100 / (1 + j.rounded.place / (span / 1000));
    EXPECT_NEAR(score({1, 0, 0, 0}), angle, 1e-9);
    EXPECT_NEAR(score({0, 2, 0, 0}), proportion, 1e-9);
    EXPECT_NEAR(score({0, 0, 3, 0}), place, 1e-9);
    EXPECT_NEAR(score({0, 0, 0, 4}), rounding, 1e-9);
    EXPECT_NEAR(score({1, 2, 3, 4}), (angle + 2 * proportion + 3 * place + 4 * rounding) / 10, 1e-9);
    EXPECT_GT(rounding, 1);
    EXPECT_LT(rounding, 99);
    // Over the full turn the room has the whole circle of the crank.
    EXPECT_GT(j.room.low.real(), -1.001);
    EXPECT_GT(j.room.low.imag(), -0.9);
    task.full_turn = true;
    const Judgement full = Judge(task).Of(Linkage_Of(known));
    EXPECT_NEAR(full.room.low.imag(), -1, 0.02);
    // Along the ground link the diagonal is 3.
    EXPECT_NEAR(full.transmission, std::acos(12.25 / 21) / kDegree, 1e-6);
    EXPECT_GT(j.transmission, 70);
    for (const auto& [judgement, turn] : {std::pair(j, 2.5), std::pair(full, kTurn)}) {
        const Box swept = Room_Of(Linkage_Of(known), true, 0, turn);
        EXPECT_LT(std::abs(judgement.room.low - swept.low) + std::abs(judgement.room.high - swept.high), 1e-9);
    }
}

TEST_F(Limits, WhyNothingIsFoundIsSaidWithItsNumbers) {
    const Effort coarse{.best = 5, .threads = 1, .coarse = true};
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 1}, 30}, {{3, 1}, 70}};
    task.transmission = 89.9;
    const Found none = Find(task, coarse);
    ASSERT_TRUE(none.solutions.empty());
    std::size_t sum = 0, most = 1;
    for (std::size_t i = 0; i < none.counts.size(); ++i) {
        sum += none.counts[i];
        if (i > 0 && none.counts[i] > none.counts[most]) most = i;
    }
    EXPECT_EQ(sum, none.judged);
    const auto refusal = static_cast<Refusal>(most);
    EXPECT_EQ(none.words, "None of " + std::to_string(none.judged) +
                              " linkages that fit the positions does it. Of most, " +
                              std::to_string(std::lround(100.0 * double(none.counts[most]) / double(none.judged))) +
                              " %, " + Words_Of(refusal) + ": " + Advice_On(refusal) + ".");
    for (const Thrown_Out& out : none.thrown_out) EXPECT_FALSE(out.judgement.Good());
    for (std::size_t i = 1; i < none.counts.size(); ++i) {
        const auto kept = std::ranges::count_if(
            none.thrown_out, [&](const auto& out) { return static_cast<std::size_t>(out.judgement.refusal) == i; });
        EXPECT_LE(kept, 12);
        EXPECT_EQ(kept > 0, none.counts[i] > 0);
    }
    const Found stopped = Find(task, coarse, [](double, const Found*) { return false; });
    EXPECT_TRUE(stopped.stopped);
    EXPECT_EQ(stopped.judged, 64U) << "the first link with all others, either of them driving";
    EXPECT_TRUE(stopped.words.starts_with("None of 64 linkages that fit")) << stopped.words;
    task.transmission = 0;
    task.right.moving = Within({1e5, 1e5}, {1e5 + 1, 1e5 + 1});
    task.longest = 10;
    EXPECT_EQ(Find(task, coarse).words,
              "No dyad of the right link lies within its limits: widen the places of its pivots, or allow other "
              "lengths.");
    const std::pair<Refusal, const char*> advice[] = {
        {Refusal::kNone, "move a position a little"},
        {Refusal::kLength, "allow shorter or longer links"},
        {Refusal::kUnlike, "move the pivots' places nearer to the positions"},
        {Refusal::kPivot, "widen the places of the pivots"},
        {Refusal::kGap, "widen the places of the pivots, or turn the positions less"},
        {Refusal::kStands, "give the positions in another order, or widen the places of the pivots"},
        {Refusal::kFullTurn, "do without the full turn of the crank"},
        {Refusal::kTransmission, "allow a smaller transmission angle"},
        {Refusal::kDigits, "move a position a little"}};
    for (const auto& [of, words] : advice) EXPECT_STREQ(Advice_On(of), words);
}

TEST_F(Limits, FivePositionsWithoutTwoDyadsAreToldAsSuch) {
    std::mt19937 dice(5);
    std::uniform_real_distribution<> place(-2, 2), angle(-90, 90);
    bool none = false;
    for (int i = 0; i < 200 && !none; ++i) {
        Task task;
        for (int k = 0; k < 5; ++k) task.positions.push_back({{place(dice), place(dice)}, angle(dice)});
        if (!Dyads_Through_Five(Carried_Through(task.positions)).empty()) continue;
        none = true;
        EXPECT_EQ(Find(task).words,
                  "No dyad goes through these five positions: move or turn one of them, or leave one out.");
    }
    EXPECT_TRUE(none);
}

}  // namespace verlink::test
