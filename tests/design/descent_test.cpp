// Descents of a search: from the best of the scan to what has no better neighbour.
#include <algorithm>
#include <array>
#include <map>

#include "design/problem.h"
#include "design/search.h"
#include "tests/design/searching.h"

namespace verlink::test {

TEST_F(Searching, WhatADescentFindsDoesItToo) {
    SCOPED_TRACE(Trace());
    for (const int positions : {2, 3, 4}) {
        Known known;
        const Task task = Task_Of_Random_Linkage(positions, known);
        const Found found = Find(task, kShort);
        Expect_All_Do_It(task, found);
        const Found coarse = Find(task, {.best = 5, .threads = 0, .coarse = true});
        if (coarse.solutions.empty()) continue;
        ASSERT_FALSE(found.solutions.empty());
        EXPECT_GE(found.solutions[0].judgement.score, coarse.solutions[0].judgement.score);
    }
}

TEST_F(Searching, ADescentMakesTheBestBetter) {
    const Found fine = Find(Three(), kShort), coarse = Find(Three(), {.best = 5, .threads = 0, .coarse = true});
    ASSERT_FALSE(coarse.solutions.empty());
    EXPECT_GT(fine.solutions[0].judgement.score, coarse.solutions[0].judgement.score + 0.01);
}

TEST_F(Searching, ADescentEndsWhereNoStepEitherWayIsBetter) {
    const Task task = Three();
    const auto problem = design::Problem_Of(task);
    const double first = Find(task, {.best = 5, .threads = 0, .coarse = true}).solutions[0].genes.step[0];
    const auto better = [&](const Solution& solution, std::size_t number, double way) {
        auto genes = solution.genes;
        genes.number[number] += way * genes.step[number];
        const auto linkage = problem->Linkage_Of(genes);
        if (!linkage) return false;
        const auto judgement = problem->Judge_Of(*linkage);
        return judgement.Good() && judgement.score > solution.judgement.score;
    };
    // Of two twins one has descended, and the other has its dyads.
    std::map<int, bool> ended;
    for (const Solution& solution : Find(task, kShort).solutions) {
        if (solution.genes.step[0] > first / 500) continue;
        EXPECT_EQ(solution.genes.step[0], first / 1024) << "halved ten times";
        bool none = true;
        // The steps have been halved once more behind the last.
        for (std::size_t i = 0; i < solution.genes.count; ++i)
            none = none && !better(solution, i, 2) && !better(solution, i, -2);
        ended[solution.family] = ended[solution.family] || none;
    }
    EXPECT_GE(ended.size(), 2U);
    for (const auto& [family, at_the_end] : ended) EXPECT_TRUE(at_the_end) << family;
}

TEST_F(Searching, ADescentStepsOverNumbersThatMakeNoLinkage) {
    // On curves of four positions, which have gaps: who has moved has gone on with steps that were halved many times.
    Task task = Three();
    task.positions.push_back({{4, 0}, 80});
    const auto problem = design::Problem_Of(task);
    std::map<std::pair<double, double>, bool> scanned;
    double step = 0;
    for (std::size_t round = 0; round < 2; ++round)
        for (std::size_t chunk = 0; chunk < problem->Chunks(round); ++chunk)
            problem->Each(round, chunk, [&](const design::Genes& genes, const design::FourBar&) {
                scanned[{genes.number[0], genes.number[1]}] = true;
                step = genes.step[0];
            });
    std::size_t moved = 0, gaps = 0;
    for (const Solution& solution : Find(task, {.best = 60, .threads = 1, .rounds = 2}).solutions) {
        if (scanned.contains({solution.genes.number[0], solution.genes.number[1]})) continue;
        ++moved;
        EXPECT_LT(solution.genes.step[0], step / 100);
        for (const double way : {-2.0, 2.0})
            for (const std::size_t number : {0U, 1U}) {
                auto genes = solution.genes;
                genes.number[number] += way * genes.step[number];
                gaps += !problem->Linkage_Of(genes);
            }
    }
    EXPECT_GT(moved, 3U);
    EXPECT_GT(gaps, 0U) << "beside one of them";
}

TEST_F(Searching, WhereNoneIsBetterADescentStaysAndLinkagesStandByTheirPlaces) {
    // So small that all lengths round to nothing: by what rounding leaves, each is worth nothing.
    Task task = Three();
    for (auto& place : task.positions) place.at *= 1e-5;
    task.weights = {0, 0, 0, 1};
    task.drive = design::Drive::kLeft;
    const Found coarse = Find(task, {.best = 5, .threads = 1, .coarse = true}),
                fine = Find(task, {.best = 5, .threads = 1, .rounds = 2});
    ASSERT_EQ(fine.solutions.size(), 5U);
    EXPECT_TRUE(Same(coarse, fine));
    const auto place = [&](std::size_t i) {
        const auto& [crank, other, coupler, left] = fine.solutions[i].linkage;
        return std::array{crank.fixed.real(), crank.fixed.imag(), crank.moving.real(), crank.moving.imag(),
                          other.fixed.real(), other.fixed.imag(), other.moving.real(), other.moving.imag()};
    };
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(fine.solutions[i].judgement.score, 0);
        EXPECT_TRUE(i == 0 || place(i - 1) < place(i)) << i;
    }
}

}  // namespace verlink::test
