// Linkages judged a second in a scan of three positions, beside what reading their positions alone takes.
#include <benchmark/benchmark.h>
#include <time.h>

#include <atomic>
#include <chrono>
#include <vector>

#include "design/search.h"
#include "design/side_by_side.h"

namespace verlink::bench {

namespace {

using design::Task;

constexpr int kThreads = 2;

Task Three_Positions() {
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 1}, 30}, {{3, 1}, 70}};
    return task;
}

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

/// Seconds that all threads of this process have had a processor: others on the machine do not count.
double All_Processor_Time() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Every candidate of all rounds, on both threads; gives their count.
template <class Work>
std::size_t For_All(const design::Problem& problem, const Work& work) {
    std::atomic<std::size_t> count = 0;
    for (std::size_t round = 0; round < problem.Rounds(); ++round)
        design::Side_By_Side(
            problem.Chunks(round), kThreads,
            [&](std::size_t chunk) {
                std::size_t here = 0;
                problem.Each(round, chunk, [&](const design::Genes&, const design::FourBar& linkage) {
                    work(linkage);
                    ++here;
                });
                count += here;
            },
            [](std::size_t) { return true; });
    return count;
}

/// The least that a judgement can ask: both joints carried to each position, the side of the diagonal, the crank's
/// angle.
double Floor(const std::vector<design::Carried>& carried, const design::FourBar& linkage) {
    double sum = 0;
    for (const design::Carried& position : carried) {
        const design::Point A = position.Of(linkage.crank.moving), B = position.Of(linkage.other.moving);
        sum += std::arg(A - linkage.crank.fixed) + design::Cross(linkage.other.fixed - A, B - A);
    }
    return sum;
}

void Judge_Pairs_Of_Three_Positions(benchmark::State& state) {
    const Task task = Three_Positions();
    const auto problem = Problem_Of(task);
    const auto carried = design::Carried_Through(Absolute_Positions(task));
    // The floor is measured in turns with the judging, so that whatever slows the one slows the other.
    double seconds = 0, judging = 0, floor = 0;
    std::size_t judged = 0;
    for (auto _ : state) {
        const double start = Now(), before = All_Processor_Time();
        judged += For_All(*problem, [&](const design::FourBar& linkage) {
            benchmark::DoNotOptimize(problem->Judge_Of(linkage).refusal);
        });
        const double end = Now(), middle = All_Processor_Time();
        For_All(*problem, [&](const design::FourBar& linkage) { benchmark::DoNotOptimize(Floor(carried, linkage)); });
        state.SetIterationTime(end - start);
        seconds += end - start;
        judging += middle - before;
        floor += All_Processor_Time() - middle;
    }
    state.counters["judged_per_second"] = static_cast<double>(judged) / seconds;
    state.counters["judged_per_processor_second"] = static_cast<double>(judged) / judging;
    state.counters["ratio_to_floor"] = judging / floor;
}
BENCHMARK(Judge_Pairs_Of_Three_Positions)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The first row of a gallery, in milliseconds from the start.
void First_Solutions_Of_Three_Positions(benchmark::State& state) {
    for (auto _ : state) {
        const double start = Now();
        double first = 0;
        Find(Three_Positions(), design::Effort{4, kThreads, false}, [&](double, const design::Found* so_far) {
            if (!so_far) return true;
            first = Now() - start;
            return so_far->solutions.empty();
        });
        state.SetIterationTime(first);
    }
}
BENCHMARK(First_Solutions_Of_Three_Positions)->UseManualTime()->Unit(benchmark::kMillisecond);

/// What a position that is dragged asks for each time.
void Coarse_Search(benchmark::State& state) {
    Task task = Three_Positions();
    task.positions.resize(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        task.positions[1].at += 1e-4;
        const design::Found found = Find(task, design::Effort{20, kThreads, true});
        if (found.solutions.empty()) state.SkipWithError("nothing was found");
    }
}
BENCHMARK(Coarse_Search)->Arg(2)->Arg(3)->ArgName("positions")->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
