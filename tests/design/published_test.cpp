// Linkages that were published, and the motion that they are known for: the search finds them, or better ones.
#include <algorithm>
#include <map>

#include "design/judge.h"
#include "design/search.h"
#include "tests/design/follower.h"
#include "tests/design/tasks.h"
#include "tests/support/reference.h"

namespace verlink::test {

namespace {

using design::Found;
using design::Refusal;
using design::Solution;
using design::Task;

/// P. L. Chebyshev, Les plus simples systemes de tiges articulees, 1878: links of 1, 2.5, 2.5 on a ground of 2, and
/// the point on the coupler's far end, which goes straight while the crank is away from the other pivot.
Known Straight_Line() { return {{0, 0}, {2, 0}, {-1, 0}, {0.5, 2}, {2, 4}}; }

/// J. Watt, patent 1432, 1784: two equal links, and the middle of what connects them.
Known Parallel_Motion() { return {{0, 0}, {4, 1}, {2, 0}, {2, 1}, {2, 0.5}}; }

struct Published : Design {
    static std::size_t Place_Among(const Known& known, const Found& found, double near = 1e-5) {
        const auto linkage = Linkage_Of(known);
        return static_cast<std::size_t>(
            std::ranges::find_if(found.solutions, [&](const Solution& s) { return Apart(s.linkage, linkage) < near; }) -
            found.solutions.begin());
    }
};

}  // namespace

TEST_F(Published, ThroughFivePositionsOfItsStrokeGoesTheStraightLineLinkage) {
    const Known known = Straight_Line();
    const Task task = *Task_Of(known, {0, 0.35, 0.7, 1.05, 1.4});
    // It goes straight there: to a hundredth of the stroke.
    for (const auto& place : task.positions) EXPECT_NEAR(place.at.imag(), 4, 0.03);
    EXPECT_GT(std::abs(task.positions[4].at.real() - task.positions[0].at.real()), 1.5);
    const Found found = Find(task);
    ASSERT_LT(Place_Among(known, found), found.solutions.size());
    const Solution& again = found.solutions[Place_Among(known, found)];
    EXPECT_EQ(again.judgement.kind, design::Judge(task).Of(Linkage_Of(known)).kind);
    EXPECT_LT(again.judgement.miss.place, 1e-5);
}

TEST_F(Published, ThroughFourPositionsOfTheParallelMotionGoBetterOnesToo) {
    const Known known = Parallel_Motion();
    const Task task = *Task_Of(known, {0, 0.2, 0.4, 0.6});
    const auto published = design::Judge(task).Of(Linkage_Of(known));
    ASSERT_TRUE(published.Good());
    constexpr design::Effort kShort{.best = 20, .threads = 0, .rounds = 3};
    const Found found = Find(task, kShort);
    ASSERT_FALSE(found.solutions.empty());
    EXPECT_GE(found.solutions[0].judgement.score, published.score);
    // Where its own pivots are asked for it is found itself, to the width of the rectangles.
    const auto about = [](std::complex<double> pivot) {
        const std::complex<double> corner(0.02, 0.02);
        return design::Area{design::Area::Is::kWithin, pivot - corner, pivot + corner, {}};
    };
    Task pivots = task;
    pivots.left.fixed = about(known.O2);
    pivots.right.fixed = about(known.O4);
    const Found own = Find(pivots, kShort);
    EXPECT_LT(Place_Among(known, own, 0.1), own.solutions.size()) << own.words;
}

/// A. P. Morgan and C. W. Wampler, Solving a Planar Four-Bar Design Problem Using Continuation, 1990, problem 7: all
/// linkages on two pivots whose point goes through five points of a line, as tests/reference/five_points.py finds them.
/// That they lead through the points is true of each; that they can be moved through them, of one.
TEST_F(Published, OfAllLinkagesThroughFivePointsThoseThatJumpTheirCircuitAreNoSolutions) {
    const std::vector<Row> rows = Read_Table("five_points.csv");
    ASSERT_EQ(rows.size(), 15);
    const std::vector<std::complex<double>> points{
        {-0.83, -0.27}, {-0.34, 0.22}, {-0.13, 0.43}, {0.22, 0.78}, {0.5, 1.06}};
    std::map<std::string, int> verdicts;
    for (const Row& row : rows) {
        const std::string verdict = row.at("Verdict");
        SCOPED_TRACE("through " + row.at("Turn2") + ", " + verdict);
        ++verdicts[verdict];
        const auto at = [&row](const char* name) { return test::Number(row, name); };
        const Known known{{0, 0}, {1, 0}, {at("Ax"), at("Ay")}, {at("Bx"), at("By")}, points[0]};
        Task task;
        task.positions = {{points[0], 0},
                          {points[1], at("Turn2")},
                          {points[2], at("Turn3")},
                          {points[3], at("Turn4")},
                          {points[4], at("Turn5")}};
        const auto judged = design::Judge(task).Of(Linkage_Of(known));
        const Found found = Find(task);
        const std::size_t place = Place_Among(known, found, 1e-6);
        if (verdict == "good") {
            EXPECT_EQ(judged.refusal, Refusal::kNone);
            ASSERT_LT(place, found.solutions.size());
            EXPECT_LT(found.solutions[place].judgement.miss.place, 1e-5);
        } else {
            EXPECT_EQ(judged.refusal == Refusal::kCircuit, verdict == "circuit") << Words_Of(judged, task);
            EXPECT_NE(judged.refusal, Refusal::kNone);
            EXPECT_EQ(place, found.solutions.size());
            EXPECT_TRUE(std::ranges::any_of(found.thrown_out, [&](const design::Thrown_Out& out) {
                return Apart(out.linkage, Linkage_Of(known)) < 1e-6;
            })) << found.words;
        }
    }
    EXPECT_EQ(verdicts, (std::map<std::string, int>{{"circuit", 8}, {"good", 1}, {"way", 6}}));
}

TEST_F(Published, ALinkageThatWouldJumpItsCircuitIsThrownOutAndSaysSo) {
    const Known known = Straight_Line();
    Task task = *Task_Of(known, {0, 0.5, 1});
    // The third position on the other circuit, where the coupler lies on the other side of AO4.
    Known other = known;
    other.B = known.A + (known.O4 - known.A) * std::conj((known.B - known.A) / (known.O4 - known.A));
    other.P = known.A + (known.P - known.A) * (other.B - other.A) / (known.B - known.A);
    const auto place = other.At(1);
    const double flipped = std::arg((other.B - other.A) / (known.B - known.A)) * 180 / std::acos(-1.0);
    task.positions[2] = {place->at, place->angle + flipped};
    const auto judged = design::Judge(task).Of(Linkage_Of(known));
    EXPECT_EQ(judged.refusal, Refusal::kCircuit);
    EXPECT_EQ(
        Words_Of(judged, task),
        "Positions 1 and 3 lie on different circuits: the linkage jumps, and would have to be taken apart between "
        "them.");
    const Found found = Find(task, {.best = 20, .threads = 0, .coarse = true});
    EXPECT_EQ(Place_Among(known, found), found.solutions.size());
    for (const Solution& solution : found.solutions) {
        const auto& j = solution.judgement;
        EXPECT_EQ(
            Follower(solution.linkage).Through(task.positions, solution.linkage, j.crank[1] > j.crank[0] ? 1 : -1), "");
    }
}

}  // namespace verlink::test
