// The dyads of four positions: which link turns by how much, and the curves piece by piece.
#include <algorithm>
#include <array>
#include <set>

#include "design/dyads.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

struct Burmester_Curves : Design {
    static double Span(const Task& task) {
        double span = 0;
        for (const auto& place : task.positions) span = std::max(span, std::abs(place.at - task.positions[0].at));
        return span;
    }
    /// Of the standard dyad form of all four positions, as columns of turn and way: what each turn of the link is
    /// multiplied with in their determinant, which is nothing.
    static std::array<design::Point, 4> Minors(std::span<const Carried> four) {
        std::array<design::Point, 4> minors{};
        for (const std::size_t k : {1U, 2U, 3U}) {
            const Carried &next = four[k % 3 + 1], &last = four[(k + 1) % 3 + 1];
            minors[k] = (next.turn - 1.0) * (last.to - last.from) - (last.turn - 1.0) * (next.to - next.from);
            minors[0] -= minors[k];
        }
        return minors;
    }
    /// Of the triangle that the minors make with the turns of a link, as the least sine of its angles.
    static double Height(const Task& task, const Dyad& dyad) {
        const auto carried = Carried_Through(task.positions);
        const auto minors = Minors(carried);
        std::array<design::Point, 4> sides{};
        for (std::size_t k = 1; k < 4; ++k) sides[k] = minors[k] * (carried[k].Of(dyad.moving) - dyad.fixed);
        double least = 1;
        for (std::size_t k = 1; k < 4; ++k) {
            // The side of the smallest minor and the fixed one make the third.
            const auto others = std::pair(sides[k % 3 + 1], sides[(k + 1) % 3 + 1]);
            least = std::min(least, std::abs(std::sin(std::arg(others.first / others.second))));
        }
        return least;
    }
    /// How far the pivots of a dyad are from the first position, in spans.
    static double Reach(const Task& task, const Dyad& dyad) {
        const auto first = task.positions[0].at;
        return std::max(std::abs(dyad.fixed - first), std::abs(dyad.moving - first)) / Span(task);
    }
    /// Far away, or alone between what is not drawn, jumps and gaps: one dyad is no curve. A gap is before the dyads
    /// of these numbers.
    static bool May_Be_Left_Out(const Task& task, const std::vector<Dyad>& dyads, std::size_t at,
                                const std::set<std::size_t>& gaps) {
        const auto leads_nowhere = [&](std::size_t other) {
            return other >= dyads.size() || gaps.contains(std::max(at, other)) || Reach(task, dyads[other]) > 40 ||
                   std::abs(dyads[other].fixed - dyads[at].fixed) > 8 * Span(task);
        };
        return Reach(task, dyads[at]) > 10 || (leads_nowhere(at - 1) && leads_nowhere(at + 1));
    }
};

}  // namespace

TEST_F(Burmester_Curves, ADyadIsFoundByTheTurnToThePositionOfTheLeastMinorAndByTheSideOfTheTriangle) {
    SCOPED_TRACE(Trace());
    std::array<int, 4> led_to{};
    for (int i = 0; i < 12; ++i) {
        Task task = Random_Task(4);
        // Each of three positions in each place.
        for (int turned = 0; turned < 3; ++turned) {
            std::rotate(task.positions.begin() + 1, task.positions.begin() + 2, task.positions.end());
            const auto carried = Carried_Through(task.positions);
            const auto minors = Minors(carried);
            std::size_t led = 1;
            for (const std::size_t k : {2U, 3U})
                if (std::abs(minors[k]) < std::abs(minors[led])) led = k;
            const std::size_t side = led == 1 ? 2 : 1;
            const Burmester four(carried);
            for (double turn = 0.3; turn < 6; turn += 0.7)
                for (const int way : {0, 1}) {
                    const auto dyad = four.Dyad_At(turn, way);
                    if (!dyad) continue;
                    ++led_to[led];
                    const auto link = [&](std::size_t k) {
                        return (carried[k].Of(dyad->moving) - dyad->fixed) / (dyad->moving - dyad->fixed);
                    };
                    EXPECT_LT(std::abs(link(led) - std::polar(1.0, turn)), 1e-6);
                    const design::Point third = -(minors[0] + minors[led] * link(led));
                    EXPECT_EQ(Cross(third, minors[side] * link(side)) > 0, way == 0);
                }
        }
    }
    for (const std::size_t led : {1U, 2U, 3U}) EXPECT_GT(led_to[led], 50);
}

TEST_F(Burmester_Curves, OfMinorsThatAreAlikeTheFirstOnesPositionIsTheOneThatIsTurnedTo) {
    // Turned by 180, 90 and -90 degrees; of the minors the first two, the last two, and the outer two are 2 long or,
    // in the second case, 2 beside a root of 8.
    const struct {
        design::Point moved[3];
        std::size_t led, other;
    } cases[] = {{{{-2, -2}, {-1, -2}, {1, -2}}, 1, 2},
                 {{{-2, -2}, {-2, -1}, {-1, -2}}, 2, 3},
                 {{{-2, -2}, {-2, -1}, {2, -1}}, 1, 3}};
    for (const auto& [moved, led, other] : cases) {
        const Carried carried[] = {{1, {}, {}}, {-1, {}, moved[0]}, {{0, 1}, {}, moved[1]}, {{0, -1}, {}, moved[2]}};
        const auto minors = Minors(carried);
        ASSERT_EQ(std::abs(minors[led]), 2);
        ASSERT_EQ(std::abs(minors[other]), 2);
        const Burmester four(carried);
        int dyads = 0;
        for (double turn = 0.3; turn < 6; turn += 0.5)
            for (const int way : {0, 1}) {
                const auto dyad = four.Dyad_At(turn, way);
                if (!dyad) continue;
                ++dyads;
                const auto link = (carried[led].Of(dyad->moving) - dyad->fixed) / (dyad->moving - dyad->fixed);
                EXPECT_LT(std::abs(link - std::polar(1.0, turn)), 1e-6);
            }
        EXPECT_GT(dyads, 5) << led << other;
    }
}

TEST_F(Burmester_Curves, OfPositionsThatHardlyTurnHaveTheirLinkagesDyads) {
    const Known known = Crank_Rocker();
    const Task task = *Task_Of(known, {0, 0.01, 0.025, 0.04});
    const auto carried = Carried_Through(task.positions);
    const auto minors = Minors(carried);
    std::size_t led = 1;
    for (const std::size_t k : {2U, 3U})
        if (std::abs(minors[k]) < std::abs(minors[led])) led = k;
    for (const Dyad& wanted : {Dyad{known.O2, known.A}, Dyad{known.O4, known.B}}) {
        const double turn = std::arg((carried[led].Of(wanted.moving) - wanted.fixed) / (wanted.moving - wanted.fixed));
        double nearest = 1;
        for (const int way : {0, 1})
            if (const auto dyad = Burmester(carried).Dyad_At(turn, way))
                nearest =
                    std::min(nearest, std::abs(dyad->fixed - wanted.fixed) + std::abs(dyad->moving - wanted.moving));
        EXPECT_LT(nearest, 1e-3);
    }
}

TEST_F(Burmester_Curves, AreExactOrNothingWhereOnePositionIsAllButTheFirst) {
    SCOPED_TRACE(Trace());
    int dyads = 0;
    for (int i = 0; i < 40; ++i) {
        Task task = Random_Task(4);
        auto &first = task.positions[0], &beside = task.positions[static_cast<std::size_t>(i % 3) + 1];
        beside = {first.at + 1e-7 * (beside.at - first.at), first.angle + 1e-7 * (beside.angle - first.angle)};
        const auto carried = Carried_Through(task.positions);
        const Burmester four(carried);
        for (double turn = 0.1; turn < 6; turn += 0.1)
            for (const int way : {0, 1})
                if (const auto dyad = four.Dyad_At(turn, way)) {
                    ++dyads;
                    const double radius = std::abs(dyad->moving - dyad->fixed);
                    for (const Carried& each : carried)
                        EXPECT_NEAR(std::abs(each.Of(dyad->moving) - dyad->fixed), radius,
                                    1.001e-9 * (radius + Span(task)));
                }
    }
    EXPECT_GT(dyads, 500);
}

TEST_F(Burmester_Curves, AreAsLargeAsTheirPositions) {
    SCOPED_TRACE(Trace());
    for (int i = 0; i < 5; ++i) {
        const Task task = Random_Task(4);
        // Powers of two change no digit.
        Task small = task;
        constexpr double kSmaller = 1.0 / 64;
        for (auto& place : small.positions) place.at *= kSmaller;
        auto scaled = Burmester(Carried_Through(task.positions)).Curves(90);
        for (auto& piece : scaled)
            for (Dyad& dyad : piece) dyad = {dyad.fixed * kSmaller, dyad.moving * kSmaller};
        EXPECT_EQ(Burmester(Carried_Through(small.positions)).Curves(90), scaled);
    }
}

TEST_F(Burmester_Curves, HaveTheDyadsOfAllTurnsThatCloseForthOnOneWayAndBackOnTheOther) {
    SCOPED_TRACE(Trace());
    constexpr int kSteps = 90;
    constexpr double kStep = kTurn / kSteps;
    int swinging = 0, whole = 0;
    std::size_t all_ends = 0, fewest = 0;
    for (int i = 0; i < 60; ++i) {
        const Task task = Random_Task(4);
        const Burmester four(Carried_Through(task.positions));
        const auto at = [&](int turn, int way) { return four.Dyad_At(turn * kStep, way); };
        const auto closes = [&](int turn) { return at(turn, 0) || at(turn, 1); };
        int start = 1;
        while (start < kSteps && closes(start)) ++start;
        std::vector<Dyad> expected;
        std::set<std::size_t> gaps;
        const auto add = [&](int turn, int way) {
            if (const auto dyad = at(turn, way))
                expected.push_back(*dyad);
            else
                gaps.insert(expected.size());
        };
        if (start == kSteps) {
            for (int turn = 0; turn <= kSteps; ++turn) add(turn, 0);
            gaps.insert(expected.size());
            for (int turn = 0; turn <= kSteps; ++turn) add(turn, 1);
        } else {
            int last = start + kSteps - 1, first = last;
            while (!closes(last)) --last;
            for (first = last; closes(first - 1);) --first;
            const auto near = [&](int turn) {
                return at(turn, 0) && at(turn, 1) && Reach(task, *at(turn, 0)) < 5 && Reach(task, *at(turn, 1)) < 5;
            };
            fewest += (near(first) ? 2 : 0) + (near(last) ? 1 : 0);
            for (int turn = first; turn <= last; ++turn) add(turn, 0);
            for (int turn = last; turn >= first; --turn) add(turn, 1);
        }
        (start == kSteps ? whole : swinging)++;
        std::size_t ends = 0, next = 0;
        for (const auto& piece : four.Curves(kSteps))
            for (const Dyad& dyad : piece) {
                const auto found = std::find(expected.begin() + static_cast<int>(next), expected.end(), dyad);
                if (found == expected.end()) {
                    ++ends;  // where closing begins or ends, between two of these turns
                    EXPECT_LT(Height(task, dyad), 1e-5);
                    continue;
                }
                for (; expected[next] != dyad; ++next) EXPECT_TRUE(May_Be_Left_Out(task, expected, next, gaps));
                ++next;
            }
        for (; next < expected.size(); ++next) EXPECT_TRUE(May_Be_Left_Out(task, expected, next, gaps)) << "at the end";
        all_ends += ends;
        EXPECT_LE(ends, start == kSteps ? 0 : 3);
    }
    EXPECT_GT(swinging, 5);
    EXPECT_GT(whole, 5);
    EXPECT_GT(all_ends, fewest);  // there are those that go to farther ones, too
    EXPECT_GT(fewest, 5);
}

TEST_F(Burmester_Curves, ADyadReachesAHundredThousandSpansAndNoFarther) {
    SCOPED_TRACE(Trace());
    int asymptotes = 0;
    for (int i = 0; i < 20 && asymptotes < 3; ++i) {
        Task task = Random_Task(4);
        // Less than 1 wide.
        for (auto& place : task.positions) place.at /= 64;
        const double span = Span(task);
        const Burmester four(Carried_Through(task.positions));
        const auto length = [&](double turn) {
            const auto dyad = four.Dyad_At(turn, 0);
            return dyad ? std::abs(dyad->fixed - dyad->moving) / span : -1;
        };
        // Up to a turn at which the link is endless one over its length goes straight to nothing.
        for (double turn = 0.1; turn < 6; turn += 0.1) {
            double at = turn, left = 0.01, longest = 0;
            for (int step = 0; step < 300 && length(at) > 0; ++step) {
                longest = std::max(longest, length(at));
                const double here = 1 / length(at), there = 1 / length(at + left / 1000);
                left = left / 1000 * here / (here - there);
                if (!(left > 0 && left < 1)) break;
                at += 0.05 * left;
            }
            EXPECT_LE(longest, 1e5 * 1.5);
            asymptotes += longest > 0.9e5;
        }
    }
    EXPECT_GT(asymptotes, 0);
}

}  // namespace verlink::test
