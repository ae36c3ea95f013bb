// Searches: every linkage that is shown does the task, whoever looks.
#include "design/search.h"

#include <algorithm>
#include <map>

#include "design/problem.h"
#include "tests/design/searching.h"

namespace verlink::test {

TEST_F(Searching, EveryLinkageOfThreePositionsDoesThem) {
    SCOPED_TRACE(Trace());
    std::size_t shown = 0;
    for (int i = 0; i < 20; ++i) {
        const Task task = Random_Task(3);
        const Found found = Find(task, kCoarse);
        Expect_All_Do_It(task, found);
        shown += found.solutions.size();
    }
    EXPECT_GT(shown, 60U);
}

TEST_F(Searching, EveryLinkageOfFourPositionsDoesThem) { EXPECT_GT(Shown_For_Random_Tasks(20, 4, kCoarse), 15U); }

TEST_F(Searching, EveryLinkageOfFivePositionsDoesThem) { EXPECT_GT(Shown_For_Random_Tasks(60, 5, {}), 20U); }

TEST_F(Searching, LinksTurnNeitherHardlyNorNearlyFullyToAnotherPosition) {
    SCOPED_TRACE(Trace());
    for (const int positions : {2, 4}) {
        Known known;
        const Task task = Task_Of_Random_Linkage(positions, known);
        for (const Solution& solution : Find(task, kCoarse).solutions) {
            const auto& genes = solution.genes;
            ASSERT_EQ(genes.count, positions == 2 ? 6U : 2U);
            // Two planes of pivots, or two ways of the curves; of the left link beside which of them drives.
            EXPECT_TRUE(genes.sheet[0] >= 0 && genes.sheet[0] < 4 && genes.sheet[1] >= 0 && genes.sheet[1] < 2);
            for (std::size_t i = positions == 2 ? 2 : 0; i < genes.count; i += genes.count / 2) {
                EXPECT_GE(genes.number[i], 0.02 * design::kTurn);
                EXPECT_LE(genes.number[i], 0.98 * design::kTurn);
            }
        }
    }
}

TEST_F(Searching, TheLinkageBehindFivePositionsIsFoundAgain) {
    SCOPED_TRACE(Trace());
    int good = 0, again = 0;
    for (int i = 0; i < 200; ++i) {
        Known known;
        const Task task = Task_Of_Random_Linkage(5, known);
        const design::FourBar own{{known.O2, known.A}, {known.O4, known.B}, known.P};
        if (!design::Judge(task).Of(own).Good()) continue;
        ++good;
        const Found found = Find(task);
        again += std::ranges::any_of(found.solutions,
                                     [&](const Solution& s) { return Apart_As_Driven(s.linkage, own) < 1e-3; });
    }
    EXPECT_GT(good, 100);
    EXPECT_GE(again, good - 2);
}

TEST_F(Searching, TheListIsTheSameWithAnyNumberOfThreads) {
    const Task task = Three();
    for (const bool coarse : {true, false}) {
        Effort effort = coarse ? kCoarse : kShort;
        effort.threads = 1;
        const Found one = Find(task, effort);
        EXPECT_EQ(one.solutions.size(), effort.best);
        for (const int threads : {2, 3, 7}) {
            effort.threads = threads;
            EXPECT_TRUE(Same(one, Find(task, effort)));
        }
    }
}

TEST_F(Searching, TheListSpansLinkagesThatDiffer) {
    const Found& found = List_Of_Three();
    const double near = 0.25 * Span_Of(Three());
    EXPECT_EQ(design::Problem_Of(Three())->Neighbourhood(), near);
    for (const Solution& a : found.solutions)
        for (const Solution& b : found.solutions)
            if (a.family != b.family) {
                EXPECT_GT(Apart(a.linkage, b.linkage), near);
            }
    EXPECT_GE(found.solutions.back().family, 5);
}

TEST_F(Searching, EveryLinkageIsMadeAgainFromItsNumbers) {
    SCOPED_TRACE(Trace());
    std::size_t made = 0;
    for (const int positions : {2, 3, 4, 5}) {
        Known known;
        const Task task = positions == 3 ? Three() : Task_Of_Random_Linkage(positions, known);
        const auto problem = design::Problem_Of(task);
        for (const Solution& solution : Find(task, kShort).solutions) {
            const auto again = problem->Linkage_Of(solution.genes);
            ASSERT_TRUE(again);
            EXPECT_EQ(again->crank, solution.linkage.crank);
            EXPECT_EQ(again->other, solution.linkage.other);
            EXPECT_EQ(again->crank_is_left, solution.linkage.crank_is_left);
            ++made;
        }
    }
    EXPECT_GE(made, 5U);
}

TEST_F(Searching, EachRoundJudgesFourTimesAsManyAsThoseBefore) {
    const std::size_t first = Find(Three(), {.best = 5, .threads = 0, .coarse = true, .rounds = 1}).judged;
    EXPECT_EQ(Find(Three(), {.best = 5, .threads = 0, .coarse = true}).judged, 4 * first);
    EXPECT_EQ(first, 32U * 32 * 2) << "of 32 dyads of each side, with either of them as the crank";
    EXPECT_EQ(List_Of_Three().judged, 64 * first) << "of four rounds";
    EXPECT_EQ(design::Problem_Of(Three())->Rounds(), 5U);
}

TEST_F(Searching, TheListHasAsManyAsAreWantedAlsoWhereItEndsBetweenTwins) {
    for (const std::size_t best : {1U, 3U, 10U})
        EXPECT_EQ(Find(Three(), {.best = best, .threads = 0, .coarse = true, .rounds = 1}).solutions.size(), best);
    EXPECT_EQ(List_Of_Three().solutions[1].family, 1) << "the first has a twin";
}

TEST_F(Searching, TwinsStandTogether) {
    const Found& found = List_Of_Three();
    EXPECT_EQ(found.solutions.front().family, 1);
    int twins = 0;
    for (std::size_t i = 1; i < found.solutions.size(); ++i) {
        const Solution &a = found.solutions[i - 1], &b = found.solutions[i];
        EXPECT_TRUE(b.family == a.family || b.family == a.family + 1);
        if (b.family != a.family) continue;
        EXPECT_TRUE(Twins(a.linkage, b.linkage, 1e-6) || Cognates(a.linkage, b.linkage, 1e-6));
        EXPECT_GE(a.judgement.score, b.judgement.score);
        ++twins;
    }
    EXPECT_GT(twins, 0);
}

TEST_F(Searching, CognatesAreKnown) {
    // The curve's point in place, both others by Roberts' diagram: sides of the parallelograms and similar triangles.
    const design::FourBar own{{{0, 0}, {0.5, 1}}, {{4, 0}, {3.5, 2.5}}, {2, 3.5}};
    const auto A = own.crank.moving, B = own.other.moving, P = own.coupler, O2 = own.crank.fixed;
    const auto ratio = (P - A) / (B - A), third = O2 + ratio * (own.other.fixed - O2);
    const design::FourBar cognate{{O2, O2 + P - A}, {third, O2 + P - A + ratio * (A - O2)}, P};
    EXPECT_TRUE(Cognates(own, cognate, 1e-9));
    EXPECT_TRUE(Cognates(cognate, own, 1e-9));
    design::FourBar other = cognate;
    other.other.moving += 0.01;
    EXPECT_FALSE(Cognates(own, other, 1e-3));
}

TEST_F(Searching, LimitsHoldForAllThatIsShown) {
    Task task = Three();
    task.left.fixed = {design::Area::Is::kWithin, {-3, 0}, {3, 6}, {}};
    task.right.fixed = {design::Area::Is::kPoints, {}, {}, {{1, 3}, {2, 4}}};
    task.shortest = 1;
    task.longest = 6;
    task.transmission = 30;
    task.drive = design::Drive::kLeft;
    const Found found = Find(task);
    ASSERT_FALSE(found.solutions.empty()) << found.words;
    Expect_All_Do_It(task, found);
    for (const Solution& s : found.solutions) {
        EXPECT_TRUE(s.linkage.crank_is_left);
        EXPECT_TRUE(task.left.fixed.Holds(s.linkage.crank.fixed));
        EXPECT_TRUE(task.right.fixed.Holds(s.linkage.other.fixed));
        EXPECT_GE(s.judgement.transmission, 30);
        const Links links = Links_Of(s.linkage);
        for (const double length : {links.L1, links.L2, links.L3, links.L4}) {
            EXPECT_GE(length, 1 - 1e-6);
            EXPECT_LE(length, 6 + 1e-6);
        }
    }
}

TEST_F(Searching, OfTheLinkagesWithOneLinkTheEightBestAreShownAndThreeOfEachThatDoNotDoIt) {
    Task task = Three();
    task.left.fixed = {design::Area::Is::kPoints, {}, {}, {{1, -1}}};
    task.drive = design::Drive::kLeft;
    const auto problem = design::Problem_Of(task);
    ASSERT_EQ(problem->Chunks(0), 1U);
    std::vector<Solution> good;
    std::map<design::Refusal, std::vector<design::FourBar>> out;
    problem->Each(0, 0, [&](const design::Genes& genes, const design::FourBar& linkage) {
        const auto judgement = problem->Judge_Of(linkage);
        if (judgement.Good())
            good.push_back({linkage, judgement, genes, {}});
        else
            out[judgement.refusal].push_back(linkage);
    });
    ASSERT_GT(good.size(), 8U);
    std::ranges::sort(good, std::greater{}, [](const Solution& s) { return s.judgement.score; });
    good.resize(8);
    std::vector<design::FourBar> expected;
    const double near = 0.25 * Span_Of(task);
    for (const Solution& solution : good)
        if (std::ranges::none_of(expected,
                                 [&](const auto& before) { return Apart_As_Driven(before, solution.linkage) <= near; }))
            expected.push_back(solution.linkage);
    EXPECT_GT(expected.size(), 5U);
    const Found found = Find(task, {.best = 20, .threads = 1, .coarse = true, .rounds = 1});
    ASSERT_EQ(found.solutions.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(found.solutions[i].linkage.other, expected[i].other) << i;
    std::size_t thrown_out = 0;
    for (const auto& refused : out) {
        const auto refusal = refused.first;
        const auto& linkages = refused.second;
        const std::size_t most = std::min<std::size_t>(3, linkages.size());
        EXPECT_EQ(found.counts[static_cast<std::size_t>(refusal)], linkages.size());
        for (std::size_t i = 0; i < most; ++i)
            EXPECT_TRUE(std::ranges::any_of(found.thrown_out, [&](const auto& one) {
                return one.judgement.refusal == refusal && one.linkage.other == linkages[i].other;
            }));
        thrown_out += most;
    }
    EXPECT_EQ(found.thrown_out.size(), thrown_out);
    EXPECT_GT(thrown_out, 3U);
}

TEST_F(Searching, OfEachThatDoNotDoItTwelveAreKept) {
    const Found found = Find(Three(), {.best = 5, .threads = 0, .coarse = true});
    ASSERT_FALSE(found.solutions.empty());
    std::map<design::Refusal, std::size_t> kept;
    for (const auto& out : found.thrown_out) ++kept[out.judgement.refusal];
    EXPECT_FALSE(kept.contains(design::Refusal::kNone));
    int many = 0;
    for (std::size_t i = 1; i < found.counts.size(); ++i) {
        const std::size_t here = kept[static_cast<design::Refusal>(i)];
        EXPECT_LE(here, 12U);
        EXPECT_EQ(here > 0, found.counts[i] > 0);
        if (found.counts[i] < 500) continue;
        ++many;
        EXPECT_EQ(here, 12U) << i;
    }
    EXPECT_GT(many, 1);
}

TEST_F(Searching, ThePartThatIsDoneGoesByCandidatesAndByDescents) {
    std::vector<double> parts, rounds;
    const Found found = Find(Three(), {.best = 5, .threads = 1, .rounds = 2}, [&](double part, const Found* so_far) {
        (so_far ? rounds : parts).push_back(part);
        EXPECT_TRUE(!so_far || so_far->solutions.size() == 5);
        return true;
    });
    // The last round takes three quarters of what is scanned, and the descents of three times what is wanted a fifth.
    std::vector<double> expected;
    for (int chunk = 1; chunk <= 32; ++chunk) expected.push_back(0.05 + 0.15 * chunk / 32);
    for (int chunk = 1; chunk <= 64; ++chunk) expected.push_back(0.2 + 0.6 * chunk / 64);
    for (int descent = 1; descent <= 15; ++descent) expected.push_back(0.8 + 0.2 * descent / 15);
    ASSERT_EQ(parts.size(), expected.size());
    for (std::size_t i = 0; i < parts.size(); ++i) EXPECT_NEAR(parts[i], expected[i], 1e-12) << i;
    ASSERT_EQ(rounds.size(), 2U);
    EXPECT_NEAR(rounds[0], 0.2, 1e-12);
    EXPECT_NEAR(rounds[1], 0.8, 1e-12);
    EXPECT_FALSE(found.stopped);
    EXPECT_EQ(found.words, "");
}

TEST_F(Searching, WhatIsToldAfterARoundIsTheListOfThatRound) {
    std::vector<Found> told;
    Find(Three(), {.best = 5, .threads = 1, .rounds = 2}, [&](double, const Found* so_far) {
        if (so_far) told.push_back(*so_far);
        return true;
    });
    ASSERT_EQ(told.size(), 2U);
    for (const std::size_t rounds : {1U, 2U})
        EXPECT_TRUE(Same(told[rounds - 1], Find(Three(), {.best = 5, .threads = 1, .coarse = true, .rounds = rounds})));
}

TEST_F(Searching, ThoseThrownOutAreOneWithinAMillionthOfTheSpan) {
    Task task = Three();
    task.transmission = 89.9;
    task.drive = design::Drive::kLeft;
    task.right.fixed = {design::Area::Is::kPoints, {}, {}, {{4, 2}}};
    for (const auto& [apart, are] : {std::pair(1e-8, 1U), std::pair(1e-5, 2U)}) {
        task.left.fixed = {design::Area::Is::kPoints, {}, {}, {{1, 3}, {1 + apart, 3}}};
        const Found found = Find(task);
        EXPECT_EQ(found.judged, 2U);
        EXPECT_EQ(found.thrown_out.size(), are) << apart;
    }
}

TEST_F(Searching, ATwinIsBroughtForwardFromAmongTwiceAsManyAsAreWanted) {
    SCOPED_TRACE(Trace());
    int brought = 0, left_out = 0;
    for (int i = 0; i < 300; ++i) {
        Known known;
        Task task = Task_Of_Random_Linkage(5, known);
        task.drive = design::Drive::kLeft;
        std::vector<Solution> all = Find(task, {.best = 100, .threads = 1}).solutions;
        std::ranges::sort(all, std::greater{}, [](const Solution& s) { return s.judgement.score; });
        for (std::size_t best = 2; 2 * best < all.size(); ++best) {
            const Found found = Find(task, {.best = best, .threads = 1});
            ASSERT_EQ(found.solutions.size(), best);
            // The twin of the first, wherever it stands.
            for (std::size_t at = 1; at < all.size(); ++at) {
                if (!Twins(all[0].linkage, all[at].linkage, 1e-6)) continue;
                const bool among = at < 2 * best;
                EXPECT_EQ(Twins(found.solutions[0].linkage, found.solutions[1].linkage, 1e-6), among)
                    << at << " of " << best;
                brought += among && at == 2 * best - 1;
                left_out += at == 2 * best;
            }
        }
    }
    EXPECT_GT(brought, 0);
    EXPECT_GT(left_out, 0);
}

TEST_F(Searching, StoppingKeepsWhatIsThere) {
    int told = 0;
    double last = 0;
    bool rising = true;
    const Found found = Find(Three(), {}, [&](double part, const Found* so_far) {
        rising = rising && part >= last;
        last = part;
        return !so_far || ++told < 3;
    });
    EXPECT_TRUE(found.stopped);
    EXPECT_TRUE(rising);
    EXPECT_FALSE(found.solutions.empty());
    const Found nothing = Find(Three(), {}, [](double, const Found*) { return false; });
    EXPECT_TRUE(nothing.stopped);
    for (const int threads : {1, 3}) {
        // In the midst of the descents: what has not been refined is none.
        const Found midst = Find(Three(), {.best = 5, .threads = threads, .rounds = 2},
                                 [](double part, const Found*) { return part <= 0.81; });
        // Others may have done it all before the one that tells gets a turn.
        EXPECT_TRUE(midst.stopped || threads > 1);
        EXPECT_EQ(midst.solutions.size(), 5U);
        Expect_All_Do_It(Three(), midst);
        for (const Solution& solution : midst.solutions) EXPECT_GT(solution.judgement.score, 0);
    }
    const Found all =
        Find(Three(), {.best = 500, .threads = 1, .rounds = 1}, [](double part, const Found*) { return part <= 0.81; });
    EXPECT_TRUE(all.stopped);
    EXPECT_LT(all.solutions.size(), 500U) << "there is room for more";
    for (const Solution& solution : all.solutions) EXPECT_GT(solution.judgement.score, 0);
}

TEST_F(Searching, WhereNothingDoesItTheMostFrequentReasonIsSaid) {
    Task task = Three();
    task.transmission = 89.5;
    EXPECT_EQ(Find(task, kCoarse).words.find("None of "), 0U);
    task.transmission = 0;
    task.longest = 0.01;
    EXPECT_EQ(
        Find(task).words,
        "No dyad of the left link lies within its limits: widen the places of its pivots, or allow other lengths.");
    task = Three();
    task.positions = {{{0, 0}, 0}, {{1, 1}, 0}, {{2, 2}, 0}};
    EXPECT_EQ(Find(task).words.find("The positions lie on a line"), 0U);
    // One dyad on both sides is no pair; nor is the first pair of two with one.
    task = Three();
    task.left.fixed = task.right.fixed = {design::Area::Is::kPoints, {}, {}, {{1, 3}}};
    EXPECT_EQ(Find(task).words,
              "Only one dyad lies within the limits of both links, and a four-bar takes two: give a pivot of one of "
              "them another place.");
    EXPECT_EQ(Find(task, {}, [](double, const Found*) { return false; }).judged, 0U);
    task.left.fixed.points.emplace_back(4, 2);
    EXPECT_EQ(Find(task, {.threads = 1}, [](double, const Found*) { return false; }).words,
              "The search was stopped before anything was judged.");
    EXPECT_EQ(Find(task).judged, 2U);
}

TEST_F(Searching, SmallAndLargeTasksAreTheSame) {
    for (const double scale : {1e-4, 1e5}) {
        Task task = Three();
        for (auto& place : task.positions) place.at *= scale;
        const Found found = Find(task, kCoarse);
        EXPECT_FALSE(found.solutions.empty());
        Expect_All_Do_It(task, found);
    }
}

}  // namespace verlink::test
