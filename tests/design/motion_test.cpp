// Tasks of moving a body: which candidates are made of them, in which order, and by which numbers again.
#include <algorithm>
#include <array>
#include <cmath>

#include "design/problem.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;

/// One over the powers of the root of x^4 = x + 1: their multiples fill a cube evenly.
double Even(int dimension, std::size_t index) {
    static const double root = [] {
        double x = 1.2;
        for (int i = 0; i < 20; ++i) x -= (x * x * x * x - x - 1) / (4 * x * x * x - 1);
        return x;
    }();
    double at = static_cast<double>(index) + 0.5;
    for (int i = 0; i < dimension; ++i) at /= root;
    return at - std::floor(at);
}

struct Candidates : Design {
    struct Candidate {
        Genes genes;
        FourBar linkage;
    };
    static std::vector<Candidate> Chunk(const Problem& problem, std::size_t round, std::size_t chunk) {
        std::vector<Candidate> all;
        problem.Each(round, chunk, [&](const Genes& genes, const FourBar& linkage) {
            all.push_back({genes, linkage});
        });
        return all;
    }
    static Task Of(int positions) {
        Task task;
        task.positions = {{{0, 0}, 0}, {{1, 1}, 30}, {{3, 1}, 70}, {{4, 0}, 80}};
        task.positions.resize(static_cast<std::size_t>(positions));
        return task;
    }
};

}  // namespace

TEST_F(Candidates, FillTheSquareAboutThePositionsAndTheTurnsEvenly) {
    for (const int positions : {2, 3}) {
        const Task task = Of(positions);
        const auto problem = Problem_Of(task);
        const Box box = Looked_Over(task, {});
        const auto expect = [&](const double* number, std::size_t index) {
            EXPECT_NEAR(number[0], box.low.real() + Even(1, index) * (box.high - box.low).real(), 1e-6) << index;
            EXPECT_NEAR(number[1], box.low.imag() + Even(2, index) * (box.high - box.low).imag(), 1e-6) << index;
            if (positions == 2) {
                EXPECT_NEAR(number[2], kTurn * (0.02 + 0.96 * Even(3, index)), 1e-8) << index;
            }
        };
        const std::size_t free = positions == 2 ? 3 : 2;
        ASSERT_EQ(problem->Chunks(0), 32U);
        for (const std::size_t left : {0U, 1U, 6U, 31U}) {
            const auto all = Chunk(*problem, 0, left);
            ASSERT_EQ(all.size(), 64U);
            for (std::size_t i = 0; i < all.size(); ++i) {
                const auto& [genes, linkage] = all[i];
                // Both planes in turn, that of the moving pivot first; first the left link drives, then the right one.
                const std::size_t right = i / 2;
                EXPECT_EQ(genes.sheet[0], static_cast<int>(left % 2 * 2 + (i % 2 == 0 ? 1 : 0)));
                EXPECT_EQ(genes.sheet[1], static_cast<int>(right % 2));
                EXPECT_EQ(genes.count, 2 * free);
                expect(genes.number.data(), left / 2);
                expect(genes.number.data() + free, (1U << 20U) + right / 2);
                EXPECT_EQ(linkage.crank_is_left, i % 2 == 0);
                const Dyad &on_left = i % 2 == 0 ? linkage.crank : linkage.other,
                           &on_right = i % 2 == 0 ? linkage.other : linkage.crank;
                const auto pivot = [](const Dyad& dyad, std::size_t sheet) {
                    return sheet == 0 ? dyad.moving : dyad.fixed;
                };
                EXPECT_EQ(pivot(on_left, left % 2), design::Point(genes.number[0], genes.number[1]));
                EXPECT_EQ(pivot(on_right, right % 2), design::Point(genes.number[free], genes.number[free + 1]));
                EXPECT_EQ(linkage.coupler, task.positions[0].at);
            }
        }
    }
}

TEST_F(Candidates, BeginTheirDescentWithATwentiethOfTheSmallerSquareAndATurnByNineDegreesOrSo) {
    for (const int positions : {2, 3, 4}) {
        Task task = Of(positions);
        const Box wide = Looked_Over(task, {});
        const double square = Distance(wide.low, wide.high);
        task.left.moving = {Area::Is::kWithin, {-3, -4}, {3, 4}, {}};
        const auto problem = Problem_Of(task);
        std::vector<Candidate> all;
        for (std::size_t chunk = 0; chunk < problem->Chunks(1) && all.empty(); ++chunk) all = Chunk(*problem, 1, chunk);
        ASSERT_FALSE(all.empty());
        if (positions < 4) {
            // In the plane of the moving pivot from its rectangle, in the other from the square.
            EXPECT_LE(std::abs(all[0].genes.number[0]), 3);
            EXPECT_LE(std::abs(all[0].genes.number[1]), 4);
            EXPECT_EQ(all[0].genes.sheet[0] / 2, 0);
        }
        const std::array<double, Genes::kMost> steps[] = {
            {0.05 * 10, 0.05 * 10, 0.15, 0.05 * square, 0.05 * square, 0.15},
            {0.05 * 10, 0.05 * 10, 0.05 * square, 0.05 * square},
            {0.15, 0.15}};
        for (std::size_t i = 0; i < Genes::kMost; ++i)
            EXPECT_NEAR(all[0].genes.step[i], steps[positions - 2][i], 1e-12) << positions << ' ' << i;
    }
}

TEST_F(Candidates, OfARoundAreThoseThatNoneBeforeItHad) {
    const auto problem = Problem_Of(Of(3));
    EXPECT_EQ(problem->Coarse_Rounds(), 2U);
    EXPECT_EQ(problem->Chunks(4), 512U);
    EXPECT_EQ(problem->Chunks(5), 512U) << "which would be none beyond the last";
    for (const std::size_t round : {1U, 2U}) {
        const std::size_t before = 32U << (round - 1), now = 32U << round;
        EXPECT_EQ(problem->Chunks(round), now);
        // A left dyad of before meets the right ones that have come; one that has come meets all.
        EXPECT_EQ(Chunk(*problem, round, before - 1).size(), 2 * (now - before));
        EXPECT_EQ(Chunk(*problem, round, before).size(), 2 * now);
        EXPECT_EQ(Chunk(*problem, round, 0)[0].genes.number[2],
                  Chunk(*problem, round, before)[2 * before].genes.number[2]);
    }
}

TEST_F(Candidates, AreSoughtWithTwoHundredTriesForEachThatIsWanted) {
    Task task = Of(3);
    task.shortest = 2;
    task.longest = 2.01;
    const auto three = Carried_Through(task.positions);
    const Box here = Looked_Over(task, {});
    const auto plane = [&](bool moving, std::size_t index) {
        const design::Point point(here.low.real() + Even(1, index) * (here.high - here.low).real(),
                                  here.low.imag() + Even(2, index) * (here.high - here.low).imag());
        return moving ? Dyad_Of_Moving(three, point) : Dyad_Of_Fixed(three, point);
    };
    std::size_t within = 0;
    for (std::size_t i = 0; i < std::size_t{512} * 200; ++i) {
        const auto dyad = plane(i % 2 == 0, i / 2);
        if (!dyad) continue;
        const double length = Distance(dyad->fixed, dyad->moving);
        within += length >= 2 && length <= 2.01;
    }
    EXPECT_EQ(Problem_Of(task)->Chunks(4), std::min<std::size_t>(within, 512));
    EXPECT_GT(within, 20U);
    EXPECT_LT(within, 512U);
}

TEST_F(Candidates, AreNoneWherePivotsAreGivenAsNoPointsAtAll) {
    Task task = Of(2);
    task.left.fixed = {Area::Is::kPoints, {}, {}, {}};
    EXPECT_EQ(Problem_Of(task)->Chunks(0), 0U);
    EXPECT_EQ(Problem_Of(task)->No_Candidates().substr(0, 25), "No dyad of the left link ");
}

TEST_F(Candidates, OfGivenPivotsAreTheirOwnDyadsAndHaveNoNumbersToMove) {
    Task task = Of(3);
    task.left.fixed = {Area::Is::kPoints, {}, {}, {{0, 2}, {1, 3}}};
    task.right.moving = {Area::Is::kPoints, {}, {}, {{4, 2}, {5, 1}, {6, 6}}};
    const auto problem = Problem_Of(task);
    ASSERT_EQ(problem->Chunks(4), 2U);
    for (const std::size_t left : {0U, 1U}) {
        const auto all = Chunk(*problem, 0, left);
        ASSERT_EQ(all.size(), 6U);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const FourBar& linkage = all[i].linkage;
            EXPECT_EQ((i % 2 == 0 ? linkage.crank : linkage.other).fixed, task.left.fixed.points[left]);
            EXPECT_EQ((i % 2 == 0 ? linkage.other : linkage.crank).moving, task.right.moving.points[i / 2]);
            EXPECT_EQ(all[i].genes.step, (std::array<double, Genes::kMost>{}));
        }
    }
    task.drive = design::Drive::kRight;
    EXPECT_EQ(Chunk(*Problem_Of(task), 0, 0).size(), 3U);
    EXPECT_FALSE(Chunk(*Problem_Of(task), 0, 0)[0].linkage.crank_is_left);
    EXPECT_FALSE(Problem_Of(task)->Either_Crank());
    task.drive = design::Drive::kLeft;
    EXPECT_EQ(Chunk(*Problem_Of(task), 0, 0).size(), 3U);
    EXPECT_TRUE(Chunk(*Problem_Of(task), 0, 0)[0].linkage.crank_is_left);
}

TEST_F(Candidates, HaveTheShortestAndTheLongestLinkThatIsAllowed) {
    // Carried without a turn the pivot goes from (5, 0) to (3, 4) and (-3, 4), on a circle about the origin.
    Task task;
    task.positions = {{{5, 0}, 0}, {{3, 4}, 0}, {{-3, 4}, 0}};
    task.left.moving = {Area::Is::kPoints, {}, {}, {{5, 0}}};
    const auto lefts = [&](double shortest, double longest) {
        task.shortest = shortest;
        task.longest = longest;
        return Problem_Of(task)->Chunks(0);
    };
    EXPECT_EQ(lefts(5, 5), 1U);
    EXPECT_EQ(lefts(5.001, 6), 0U);
    EXPECT_EQ(lefts(4, 4.999), 0U);
}

TEST_F(Candidates, OfFivePositionsAreOfTwoDifferentDyads) {
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 1}, 30}, {{3, 1}, 70}, {{4, 0}, 80}, {{4, -2}, 60}};
    std::size_t pairs = 0;
    for (double angle = 50; angle < 70; angle += 2) {
        task.positions[4].angle = angle;
        const auto problem = Problem_Of(task);
        const std::size_t dyads = Dyads_Through_Five(Carried_Through(task.positions)).size();
        ASSERT_EQ(problem->Chunks(0), dyads);
        for (std::size_t chunk = 0; chunk < dyads; ++chunk) {
            const auto all = Chunk(*problem, 0, chunk);
            EXPECT_EQ(all.size(), 2 * (dyads - 1));
            pairs += all.size();
        }
        EXPECT_EQ(problem->Neighbourhood(), 0);
    }
    EXPECT_GT(pairs, 0U);
}

TEST_F(Candidates, OfTwoToFourPositionsAreNeighboursWithinAQuarterOfTheSpan) {
    for (const int positions : {2, 3, 4}) {
        const Task task = Of(positions);
        EXPECT_DOUBLE_EQ(Problem_Of(task)->Neighbourhood(), Span_Of(task) / 4);
    }
}

TEST_F(Candidates, OfFivePositionsWithOneDyadAreNone) {
    // On the circle about (0.5, 0.5) on which (0, 2), (0, -1), (-1, 1) and (1, -1) lie.
    Task task;
    task.positions = {{{1, -2}, 0}, {{-1, 2}, 270}, {{0, -2}, 0}, {{-1, 0}, 0}, {{0, -1}, 270}};
    const auto dyads = Dyads_Through_Five(Carried_Through(task.positions));
    ASSERT_EQ(dyads.size(), 1U);
    EXPECT_LT(std::abs(dyads[0].fixed - design::Point(0.5, 0.5)), 1e-6);
    EXPECT_LT(std::abs(dyads[0].moving - design::Point(1, -1)), 1e-6);
    EXPECT_EQ(Problem_Of(task)->No_Candidates(),
              "Only one dyad goes through these five positions, and a four-bar takes two: move or turn one of them, or "
              "leave one out.");
}

TEST_F(Candidates, AreNoneWhereOneOfTheirTurnsHasNoDyad) {
    const Task task = Of(4);
    const auto problem = Problem_Of(task);
    const Burmester curves(Carried_Through(task.positions));
    const auto all = Chunk(*problem, 0, 3);
    ASSERT_FALSE(all.empty());
    ASSERT_TRUE(problem->Linkage_Of(all[0].genes));
    // No turn at all leads to infinity, one way.
    const int none = curves.Dyad_At(0, 0) ? 1 : 0;
    ASSERT_FALSE(curves.Dyad_At(0, none));
    for (const std::size_t side : {0U, 1U}) {
        Genes genes = all[0].genes;
        genes.number[side] = 0;
        genes.sheet[side] = side == 0 ? 2 * none + 1 : none;
        EXPECT_FALSE(problem->Linkage_Of(genes));
    }
}

TEST_F(Candidates, OfFourPositionsAreOnBothWaysOfTheCurvesByTheirTurns) {
    const Task task = Of(4);
    const auto problem = Problem_Of(task);
    const Burmester curves(Carried_Through(task.positions));
    for (const auto& [genes, linkage] : Chunk(*problem, 0, 3)) {
        ASSERT_EQ(genes.count, 2U);
        EXPECT_EQ(linkage.crank_is_left ? linkage.crank : linkage.other,
                  curves.Dyad_At(genes.number[0], genes.sheet[0] / 2));
        EXPECT_EQ(linkage.crank_is_left ? linkage.other : linkage.crank,
                  curves.Dyad_At(genes.number[1], genes.sheet[1]));
        EXPECT_EQ(genes.sheet[0] % 2 == 1, linkage.crank_is_left);
    }
}

}  // namespace verlink::test
