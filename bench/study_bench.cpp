// Studies: linkages of 360 positions with two kinematic measures and with forces, beside a loop as one would write it
// by hand; and what a second thread brings.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "bench/beside.h"
#include "core/linkage_model.h"
#include "study/in_order.h"
#include "study/study.h"

namespace verlink::bench {

namespace {

constexpr int kPositions = 360;
constexpr study::Number kLinkages = 2000;

study::Study Study_Of(const std::vector<std::string>& measures) {
    Take_Default_Linkage(kPositions);
    study::Study study{study::Design_Of(Model), {}, {}, {}};
    std::string fault;
    for (const char* field : {"L2", "L3", "L4"})
        study.plan.tolerances.push_back(
            {study::Field_Named(field, study.design, fault).value(), 0.01, study::Spread::kNormal});
    study.plan.samples = kLinkages;
    for (const std::string& words : measures) study.measures.push_back(study::Measure_Of(words, false, fault).value());
    return study;
}

/// One linkage after the other.
void Solve_All(study::Worker& worker, std::size_t fields, std::size_t measures) {
    std::vector<float> moved(fields), measured(measures);
    for (study::Number linkage = 0; linkage < kLinkages; ++linkage) {
        worker.Solve(linkage, moved, measured);
        benchmark::DoNotOptimize(measured.data());
    }
}

/// What the two measures take by hand in double: sine and cosine of the crank, two arc tangents with their roots, and
/// the extremes.
void Plain_Linkages() {
    const double a = 1.115, b = 2.5, c = 2.5, d = 2.667, step = 2 * M_PI / (kPositions - 1);
    const double K1 = d / a, K2 = d / c, K3 = (a * a - b * b + c * c + d * d) / (2 * a * c);
    const double K4 = d / b, K5 = (c * c - d * d - a * a - b * b) / (2 * a * b);
    for (study::Number linkage = 0; linkage < kLinkages; ++linkage) {
        double most = -10, least = 10;
        for (int i = 0; i < kPositions; ++i) {
            const double s2 = std::sin(i * step), c2 = std::cos(i * step);
            const double A = c2 - K1 - K2 * c2 + K3, B = -2 * s2, C = K1 - (K2 + 1) * c2 + K3;
            const double D = c2 - K1 + K4 * c2 + K5, F = K1 + (K4 - 1) * c2 + K5;
            const double theta4 = 2 * std::atan((-B - std::sqrt(B * B - 4 * A * C)) / (2 * A));
            const double theta3 = 2 * std::atan((-B - std::sqrt(B * B - 4 * D * F)) / (2 * D));
            most = std::max(most, theta4);
            least = std::min(least, std::fabs(theta4 - theta3));
        }
        benchmark::DoNotOptimize(most);
        benchmark::DoNotOptimize(least);
    }
}

void Measure_Linkages(benchmark::State& state, const std::vector<std::string>& measures) {
    const study::Bench bench(Study_Of(measures));
    study::Worker worker(bench);
    const Times times = Beside(
        state, [&] { Solve_All(worker, bench.Moved().size(), measures.size()); }, Plain_Linkages);
    state.counters["us_a_linkage"] = 1e6 * times.least / static_cast<double>(kLinkages);
    state.counters["floor_us"] = 1e6 * times.least_floor / static_cast<double>(kLinkages);
}

void Study_360_Positions(benchmark::State& state) { Measure_Linkages(state, {"max Theta4", "min Trans Ang"}); }
BENCHMARK(Study_360_Positions)->UseManualTime()->Unit(benchmark::kMillisecond);

void Study_360_Positions_With_Forces(benchmark::State& state) {
    Measure_Linkages(state, {"max Torque 12", "max Force 14:Mag"});
}
BENCHMARK(Study_360_Positions_With_Forces)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Seconds by the clock for all linkages, in blocks, by so many threads.
double In_Blocks(const study::Bench& bench, int threads) {
    constexpr study::Number kBlock = 64;
    const auto worker = [&] {
        return [solver = study::Worker(bench), fields = std::vector<float>(bench.Moved().size()),
                measures = std::vector<float>(bench.Of().measures.size())](study::Number block, float& last) mutable {
            for (study::Number i = 0; i < kBlock; ++i) solver.Solve((block * kBlock + i) % kLinkages, fields, measures);
            last = measures.front();
        };
    };
    const auto start = std::chrono::steady_clock::now();
    study::In_Order<float>(4 * kLinkages / kBlock, threads, worker, [](float last) {
        benchmark::DoNotOptimize(last);
        return true;
    });
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// By the clock: it says something only on a machine that does nothing else.
void Study_By_Two_Threads(benchmark::State& state) {
    const study::Bench bench(Study_Of({"max Theta4", "min Trans Ang"}));
    double one = 1e9, two = 1e9;
    for (auto _ : state) {
        one = std::min(one, In_Blocks(bench, 1));
        const double seconds = In_Blocks(bench, 2);
        two = std::min(two, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["times_one"] = one / two;
}
BENCHMARK(Study_By_Two_Threads)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
