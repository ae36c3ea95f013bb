// What the tests of searches share: whether all that is shown does its task, and a task of three positions.
#pragma once

#include <algorithm>

#include "tests/design/follower.h"
#include "tests/design/tasks.h"

namespace verlink::test {

struct Searching : Design {
    using Found = design::Found;
    using Solution = design::Solution;
    using Task = design::Task;

    static void Expect_All_Do_It(const Task& task, const Found& found) {
        const auto places = Absolute_Positions(task);
        for (const Solution& solution : found.solutions) {
            const auto& j = solution.judgement;
            const double way = j.crank[1] > j.crank[0] ? 1 : -1;
            EXPECT_EQ(Follower(solution.linkage).Through(places, solution.linkage, way), "") << Task_Text(task);
        }
    }
    /// How many linkages some tasks get, every fourth without one that is known to do it.
    std::size_t Shown_For_Random_Tasks(int tasks, int positions, const design::Effort& effort) {
        SCOPED_TRACE(Trace());
        std::size_t shown = 0;
        for (int i = 0; i < tasks; ++i) {
            Known known;
            const Task task = i % 4 == 3 ? Random_Task(positions) : Task_Of_Random_Linkage(positions, known);
            const Found found = Find(task, effort);
            Expect_All_Do_It(task, found);
            shown += found.solutions.size();
            EXPECT_NE(found.solutions.empty(), found.words.empty());
        }
        return shown;
    }
    static bool Same(const Found& a, const Found& b) {
        return a.judged == b.judged && a.counts == b.counts &&
               std::ranges::equal(a.solutions, b.solutions, [](const Solution& x, const Solution& y) {
                   return x.linkage.crank == y.linkage.crank && x.linkage.other == y.linkage.other &&
                          x.judgement.score == y.judgement.score && x.family == y.family;
               });
    }
    static Task Three() {
        Task task;
        task.positions = {{{0, 0}, 0}, {{1, 1}, 30}, {{3, 1}, 70}};
        return task;
    }
    static const Found& List_Of_Three() {
        static const Found found = Find(Three(), {.rounds = 4});
        return found;
    }
};

inline constexpr design::Effort kCoarse{.best = 20, .threads = 0, .coarse = true};
/// With a descent, from what the first rounds find.
inline constexpr design::Effort kShort{.best = 5, .threads = 0, .rounds = 2};

}  // namespace verlink::test
