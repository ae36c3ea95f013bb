// A piece of work and its floor in turns, so that whatever slows the one slows the other.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>

#include "bench/program.h"

namespace verlink::bench {

/// Seconds that this thread had a processor. Other work on the machine only ever adds to them: the least is nearest to
/// what the work takes by itself.
struct Times {
    double least = 1e9, worst = 0, all = 0;
    double least_floor = 1e9, all_floor = 0;
};

template <class Work, class Floor>
Times Beside(benchmark::State& state, const Work& work, const Floor& floor) {
    Times times;
    for (auto _ : state) {
        const double start = Processor_Time();
        work();
        const double took = Processor_Time() - start;
        floor();
        const double floor_took = Processor_Time() - start - took;
        state.SetIterationTime(took);
        times.least = std::min(times.least, took);
        times.worst = std::max(times.worst, took);
        times.all += took;
        times.least_floor = std::min(times.least_floor, floor_took);
        times.all_floor += floor_took;
    }
    return times;
}

}  // namespace verlink::bench
