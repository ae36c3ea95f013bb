// Linkages without a task: poses, strokes, room, class and likeness, and the words of what is wrong with one.
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <set>
#include <thread>

#include "design/judge.h"
#include "design/linkage.h"
#include "design/side_by_side.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

const double kPi = std::acos(-1.0);

struct Parts : testing::Test {};

/// Sides 3 and 4 with a right angle at B: A in the origin, O4 at (5, 0), and the crank from (-2, 0).
FourBar Right_Angled() { return {{{-2, 0}, {0, 0}}, {{5, 0}, {1.8, 2.4}}, {0.6, -0.8}}; }

FourBar Moved(FourBar linkage, Point by) {
    for (Point* each :
         {&linkage.crank.fixed, &linkage.crank.moving, &linkage.other.fixed, &linkage.other.moving, &linkage.coupler})
        *each += by;
    return linkage;
}

}  // namespace

TEST_F(Parts, ALinkageHasItsLengthsAnglesAndCircuit) {
    const FourBar linkage = Right_Angled();
    const Links links = Links_Of(linkage);
    EXPECT_DOUBLE_EQ(links.L1, 7);
    EXPECT_DOUBLE_EQ(links.L2, 2);
    EXPECT_DOUBLE_EQ(links.L3, 3);
    EXPECT_DOUBLE_EQ(links.L4, 4);
    EXPECT_NEAR(Delta_Of(linkage), -2 * std::atan2(4, 3), 1e-12);
    EXPECT_NEAR(Ground_Angle({{{1, 1}, {}}, {{1, 3}, {}}, {}}), kPi / 2, 1e-12);
    EXPECT_TRUE(Is_Open(linkage));
    FourBar crossed = linkage;
    crossed.other.moving = std::conj(crossed.other.moving);
    EXPECT_FALSE(Is_Open(crossed));
    // Wherever it stands.
    for (const Point to : {Point(10, 7), Point(-10, 7), Point(-10, -7), Point(10, -7)}) {
        EXPECT_TRUE(Is_Open(Moved(linkage, to)));
        EXPECT_FALSE(Is_Open(Moved(crossed, to)));
    }
    const FourBar twin = linkage.With_Other_Crank();
    EXPECT_EQ(twin.crank, linkage.other);
    EXPECT_EQ(twin.other, linkage.crank);
    EXPECT_NE(twin.crank_is_left, linkage.crank_is_left);
}

TEST_F(Parts, APoseIsWhereTwoCirclesMeetOnItsCircuit) {
    const FourBar linkage = Right_Angled();
    for (const bool open : {true, false})
        for (const double turn : {-0.9, 0.0, 0.4, 1.1}) {
            const auto pose = Pose_Of(linkage, open, turn);
            ASSERT_TRUE(pose) << turn;
            EXPECT_LT(std::abs(pose->A - (Point(-2, 0) + std::polar(2.0, turn))), 1e-12);
            EXPECT_NEAR(std::abs(pose->B - pose->A), 3, 1e-12);
            EXPECT_NEAR(std::abs(pose->B - Point(5, 0)), 4, 1e-12);
            EXPECT_EQ(std::imag(std::conj(Point(5, 0) - pose->A) * (pose->B - pose->A)) > 0, open);
            EXPECT_LT(std::abs((pose->P - pose->A) / (pose->B - pose->A) - Point(0.6, -0.8) / Point(1.8, 2.4)), 1e-12);
        }
    // The diagonal is 7 at most where the circles touch, which is at cos = (4 + 49 - 49) / 28 of the ground.
    const double touches = std::acos((4.0 + 49 - 49) / 28);
    EXPECT_TRUE(Pose_Of(linkage, true, touches - 1e-6));
    EXPECT_FALSE(Pose_Of(linkage, true, touches + 1e-6));
    // Both moving pivots in one place close like links 2 and 4, and turn with nothing.
    EXPECT_FALSE(Pose_Of({{{-2, 0}, {0, 0}}, {{2, 0}, {0, 0}}, {1, 1}}, true, 0));
    const auto straight = Pose_Of({{{-2, 0}, {0, 0}}, {{5, 0}, {2.5, 0}}, {1, 1}}, true, 0);
    ASSERT_TRUE(straight) << "circles that touch do meet";
    EXPECT_EQ(straight->B, Point(2.5, 0));
}

TEST_F(Parts, AStrokePassesAnAngleOnWhicheverTurn) {
    const Stroke right{1, -1}, over{5, 7}, back{-5, -7.5};
    EXPECT_TRUE(right.Passes(0));
    EXPECT_TRUE(right.Passes(2 * kPi));
    EXPECT_TRUE(right.Passes(-4 * kPi));
    EXPECT_FALSE(right.Passes(kPi));
    EXPECT_TRUE(over.Passes(0));
    EXPECT_FALSE(over.Passes(kPi));
    EXPECT_TRUE(back.Passes(0));
    EXPECT_FALSE(back.Passes(1.5));
    EXPECT_TRUE((Stroke{0, 1}.Passes(0)));
    EXPECT_TRUE((Stroke{-1, 0}.Passes(0)));
}

TEST_F(Parts, AStrokeClosesWhereItsDiagonalLetsIt) {
    // The diagonal reaches from 2 with the crank along the ground link to 4 with it away; 3 and 2 span 1 to 5.
    const Links turns{3, 1, 3, 2}, jams{3, 2, 1.5, 2};
    EXPECT_TRUE(Turns_Fully(turns));
    EXPECT_TRUE(Closes_Over(turns, {0, 6}));
    EXPECT_FALSE(Turns_Fully(jams)) << "5 is more than 3.5";
    EXPECT_TRUE(Closes_Over(jams, {-1, 1}));
    EXPECT_FALSE(Closes_Over(jams, {1, 5})) << "through 180 degrees";
    // Where the shortest diagonal is too short it is the way through 0 that does not close.
    const Links near{3, 2.5, 4, 2};
    EXPECT_FALSE(Turns_Fully(near));
    EXPECT_FALSE(Closes_Over(near, {-1.5, 1.5}));
    EXPECT_TRUE(Closes_Over(near, {1.5, 4}));
    // Of 3, 2 and the diagonal: cos = (9 + 4 - d d) / 12; at 2 that is 41.4 degrees, at 4 it is 104.5.
    EXPECT_NEAR(Transmission_Over(turns, {-0.1, 0.1}), std::acos(9.0 / 12) * 180 / kPi, 1e-6);
    EXPECT_NEAR(Transmission_Over(turns, {3, 3.3}), 180 - std::acos(-3.0 / 12) * 180 / kPi, 1e-6);
    const double upright = std::acos((13 - (10 - 6 * std::cos(1.0))) / 12) * 180 / kPi;
    EXPECT_NEAR(Transmission_Over(turns, {1, 1.5}), std::min(upright, 180 - upright), 1e-6);
    EXPECT_NEAR(Transmission_Over(turns, {1.5, 1}), std::min(upright, 180 - upright), 1e-6);
}

TEST_F(Parts, TheRoomIsTheBoxAroundAllThatMoves) {
    const FourBar linkage = Right_Angled();
    const Box still = Room_Of(linkage, true, 0, 0);
    EXPECT_LT(std::abs(still.low - Point(-2, -0.8)), 1e-12);
    EXPECT_LT(std::abs(still.high - Point(5, 2.4)), 1e-12);
    // In 24 steps, of which those beyond 1.427 radians do not close.
    for (const auto& [from, to] : {std::pair(-1.2, 1.2), std::pair(0.0, 3.0), std::pair(3.0, 0.5)}) {
        Point low(-2, 0), high(5, 0);
        for (int i = 0; i <= 24; ++i) {
            const auto pose = Pose_Of(linkage, true, from + (to - from) / 24 * i);
            if (!pose) continue;
            for (const Point p : {pose->A, pose->B, pose->P}) {
                low = {std::min(low.real(), p.real()), std::min(low.imag(), p.imag())};
                high = {std::max(high.real(), p.real()), std::max(high.imag(), p.imag())};
            }
        }
        const Box moved = Room_Of(linkage, true, from, to);
        EXPECT_LT(std::abs(moved.low - low), 1e-9);
        EXPECT_LT(std::abs(moved.high - high), 1e-9);
    }
}

TEST_F(Parts, TheClassIsThatOfTheShortestLink) {
    EXPECT_STREQ(Words_Of(Class_Of({4, 1, 3.5, 3})), "Grashof crank-rocker");
    EXPECT_STREQ(Words_Of(Class_Of({1, 3, 3.5, 4})), "Grashof double-crank");
    EXPECT_STREQ(Words_Of(Class_Of({4, 3, 1, 3.5})), "Grashof double-rocker");
    EXPECT_STREQ(Words_Of(Class_Of({4, 3, 3.5, 1})), "Grashof rocker-crank");
    EXPECT_STREQ(Words_Of(Class_Of({4, 1, 3, 2})), "special-case Grashof");
    EXPECT_STREQ(Words_Of(Class_Of({4, 2, 3, 2.5})), "non-Grashof triple-rocker");
    EXPECT_STREQ(Words_Of(Class_Of({9, 1, 3, 2})), "no linkage");
}

TEST_F(Parts, BothCognatesAreKnownAndTwinsByTheirDyads) {
    const FourBar own{{{0, 0}, {0.5, 1}}, {{4, 0.5}, {3.5, 2.5}}, {2, 3.5}};
    const auto& [left, right, P, unused] = own;
    // Sides of parallelograms on O4, and triangles similar to that of the coupler.
    const Point ratio = (P - left.moving) / (right.moving - left.moving);
    const Point third = left.fixed + ratio * (right.fixed - left.fixed);
    const Point parallel = right.fixed + P - right.moving;
    const FourBar cognate{{right.fixed, parallel}, {third, parallel + (1.0 - ratio) * (right.moving - right.fixed)}, P};
    // It traces the same curve: its crank turns as the coupler of the other does.
    const Known known{left.fixed, right.fixed, left.moving, right.moving, P};
    const Known other{right.fixed, third, parallel, cognate.other.moving, P};
    for (const double turn : {-0.3, -0.1, 0.2, 0.4}) {
        const Place place = *known.At(turn);
        EXPECT_LT(std::abs(other.At(place.angle * kPi / 180)->at - place.at), 1e-9) << turn;
    }
    EXPECT_TRUE(Cognates(own, cognate, 1e-9));
    const Point along = left.fixed + P - left.moving;
    const FourBar third_one{{left.fixed, along}, {third, along + ratio * (left.moving - left.fixed)}, P};
    for (const Point to : {Point(0, 0), Point(10, 7)})
        for (const FourBar& of_the_curve : {cognate, third_one})
            EXPECT_TRUE(Cognates(Moved(own, to), Moved(of_the_curve, to), 1e-9));
    EXPECT_TRUE(Cognates(own, cognate.With_Other_Crank(), 1e-9));
    EXPECT_FALSE(Cognates(own, own, 1e-9));
    FourBar elsewhere = cognate;
    elsewhere.coupler += 0.1;
    EXPECT_FALSE(Cognates(own, elsewhere, 1e-3));
    EXPECT_TRUE(Twins(own, own.With_Other_Crank(), 1e-12));
    EXPECT_FALSE(Twins(own, own, 1e-12));
    FourBar moved = own;
    moved.other.fixed += Point(0.3, 0.4);
    EXPECT_DOUBLE_EQ(Apart_As_Driven(own, moved), 0.5);
    moved.crank.moving += 0.75;
    EXPECT_DOUBLE_EQ(Apart_As_Driven(own, moved), 0.75);
    EXPECT_DOUBLE_EQ(Apart(own, moved.With_Other_Crank()), 0.75);
}

TEST_F(Parts, WhatIsWrongWithALinkageIsSaidInItsNumbers) {
    Task task;
    task.units = 5;
    task.shortest = 12.3;
    task.longest = 250;
    task.transmission = 30;
    const auto said = [&](Refusal refusal, double amount = 0) {
        Judgement j;
        j.refusal = refusal;
        j.amount = amount;
        j.from = 2;
        j.to = 4;
        return Words_Of(j, task);
    };
    EXPECT_EQ(said(Refusal::kNone), "");
    EXPECT_EQ(said(Refusal::kLength), "A link has no length.");
    EXPECT_EQ(said(Refusal::kLength, 11.126), "A link is 11.13 mm long, shorter than the 12.3 mm of the task.");
    EXPECT_EQ(said(Refusal::kLength, 300), "A link is 300 mm long, longer than the 250 mm of the task.");
    EXPECT_EQ(said(Refusal::kUnlike, 345.6), "The longest link is 346 times as long as the shortest.");
    EXPECT_EQ(said(Refusal::kPivot), "A pivot lies outside the place that it is given.");
    EXPECT_EQ(said(Refusal::kCircuit),
              "Positions 2 and 4 lie on different circuits: the linkage jumps, and would have to be taken apart "
              "between them.");
    EXPECT_EQ(said(Refusal::kBranch),
              "Between positions 2 and 4 lies a toggle, through which the crank cannot drive the linkage.");
    EXPECT_EQ(said(Refusal::kStands), "The crank stands still between positions 2 and 4.");
    EXPECT_EQ(said(Refusal::kOrder),
              "The crank, turning one way, passes the positions in another order: after position 2 it comes to another "
              "one before position 4.");
    EXPECT_EQ(said(Refusal::kGap),
              "The loop does not close between positions 2 and 4: the crank cannot go from one to the other.");
    EXPECT_EQ(said(Refusal::kFullTurn), "The crank cannot turn fully.");
    EXPECT_EQ(said(Refusal::kTransmission, 12.34),
              "The transmission angle falls to 12.3 degrees, below the 30 degrees of the task.");
    task.transmission = 0;
    EXPECT_EQ(said(Refusal::kTransmission, 1.26),
              "The transmission angle falls to 1.3 degrees, below two degrees: the linkage jams.");
    task.transmission = 1.5;
    EXPECT_EQ(said(Refusal::kTransmission, 1.5),
              "The transmission angle falls to 1.5 degrees, below two degrees: the linkage jams.");
    EXPECT_EQ(said(Refusal::kDigits, 0.5),
              "Seven digits do not hold the positions: the coupler point misses one by 0.5 mm.");
}

TEST_F(Parts, AsManyThreadsAsAreAskedForWorkAtOnceAndTheCallingOneAloneIsAsked) {
    constexpr std::size_t kThreads = 3;
    std::mutex mutex;
    std::condition_variable come;
    std::set<std::thread::id> there;
    const auto calling = std::this_thread::get_id();
    // Each piece goes on when all threads are at one.
    const auto work = [&](std::size_t) {
        std::unique_lock lock(mutex);
        there.insert(std::this_thread::get_id());
        come.notify_all();
        come.wait_for(lock, std::chrono::seconds(20), [&] { return there.size() == kThreads; });
    };
    EXPECT_TRUE(Side_By_Side(kThreads, static_cast<int>(kThreads), work, [&](std::size_t) {
        EXPECT_EQ(std::this_thread::get_id(), calling);
        return true;
    }));
    EXPECT_EQ(there.size(), kThreads);
    EXPECT_TRUE(there.contains(calling));
}

TEST_F(Parts, EachPieceOfWorkIsDoneOnceByAnyNumberOfThreads) {
    EXPECT_EQ(Threads_Of(3), 3);
    EXPECT_EQ(Threads_Of(1), 1);
    EXPECT_GE(Threads_Of(0), 1);
    for (const int threads : {1, 2, 5}) {
        std::vector<std::atomic<int>> times(40);
        std::size_t last = 0;
        EXPECT_TRUE(Side_By_Side(
            40, threads, [&](std::size_t i) { ++times[i]; },
            [&](std::size_t done) {
                EXPECT_GE(done, last);
                EXPECT_GT(done, 0U);
                last = done;
                return true;
            }));
        for (const auto& time : times) EXPECT_EQ(time, 1);
        EXPECT_LE(last, 40U);
    }
    std::size_t done_at_stop = 0;
    EXPECT_FALSE(Side_By_Side(
        40, 1, [](std::size_t) {},
        [&](std::size_t done) {
            done_at_stop = done;
            return done < 7;
        }));
    EXPECT_EQ(done_at_stop, 7U);
    EXPECT_TRUE(Side_By_Side(
        0, 4, [](std::size_t) { FAIL(); }, [](std::size_t) { return false; }));
}

}  // namespace verlink::test
