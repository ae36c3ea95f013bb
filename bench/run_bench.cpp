// A full run of 2881 steps, beside the time that its sines, cosines and arc tangents alone take, and beside a loop as
// one would write it by hand.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "bench/beside.h"
#include "core/linkage_model.h"

namespace verlink::bench {

namespace {

constexpr int kSteps = 2881;

/// The arguments of one step's calls, taken from a run.
struct Angles {
    double crank, coupler, rocker, point, ratio3, ratio4, slope;
};

std::vector<Angles> Angles_Of_A_Run() {
    Take_Default_Linkage(kSteps);
    Run();
    std::vector<Angles> all;
    const auto& table = Model.RunTable;
    for (int step = 0; step < kSteps; ++step) {
        Angles angles{};
        angles.crank = step * double{Model.ThetaStepRad};
        angles.coupler = table.Theta(step, 1) * kDegToRad;
        angles.rocker = table.Theta(step, 2) * kDegToRad;
        angles.point = Model.DeltaRad + angles.coupler;
        angles.ratio3 = std::tan(angles.coupler / 2);
        angles.ratio4 = std::tan(angles.rocker / 2);
        angles.slope = table.AccXY(step, 2, 1) / table.AccXY(step, 2, 0);
        all.push_back(angles);
    }
    return all;
}

/// What core/solver.cpp needs, step by step, on the arguments that it has, from the C library: sine and cosine of
/// crank, coupler, rocker, coupler point and turned acceleration, three sines of differences, three arc tangents.
double Floor(const std::vector<Angles>& all) {
    double sum = 0;
    for (const Angles& a : all) {
        sum += std::sin(a.crank) + std::cos(a.crank);
        sum += std::atan(a.ratio4);
        sum += std::sin(a.rocker) + std::cos(a.rocker);
        sum += std::atan(a.ratio3);
        sum += std::sin(a.coupler) + std::cos(a.coupler);
        sum += std::sin(a.point) + std::cos(a.point);
        sum += std::sin(a.coupler - a.rocker);
        sum += std::sin(a.rocker - a.crank) + std::sin(a.crank - a.coupler);
        const double turned = std::atan(a.slope) - a.coupler;
        sum += std::sin(turned) + std::cos(turned);
    }
    return sum;
}

/// What the plain loop gives of a step, in double.
struct PlainStep {
    double theta3, theta4, omega3, omega4, alpha3, alpha4;
    double A[2], B[2], P[2], vA[2], vB[2], vP[2], aA[2], aB[2], aP[2];
};

struct PlainLinkage {
    double a, b, c, d, p, delta, sign, omega2;
};

/// Positions, velocities and accelerations on one circuit, with nothing more than they need and no checks.
void Plain_Loop(const PlainLinkage& l, double start, double by, std::vector<PlainStep>& steps) {
    const auto [a, b, c, d, p, delta, sign, w2] = l;
    const double K1 = d / a, K2 = d / c, K3 = (a * a - b * b + c * c + d * d) / (2 * a * c);
    const double K4 = d / b, K5 = (c * c - d * d - a * a - b * b) / (2 * a * b);
    double theta2 = start;
    for (PlainStep& s : steps) {
        const double s2 = std::sin(theta2), c2 = std::cos(theta2);
        const double A = c2 - K1 - K2 * c2 + K3, B = -2 * s2, C = K1 - (K2 + 1) * c2 + K3;
        const double D = c2 - K1 + K4 * c2 + K5, F = K1 + (K4 - 1) * c2 + K5;
        s.theta4 = 2 * std::atan((-B + sign * std::sqrt(B * B - 4 * A * C)) / (2 * A));
        s.theta3 = 2 * std::atan((-B + sign * std::sqrt(B * B - 4 * D * F)) / (2 * D));
        const double s3 = std::sin(s.theta3), c3 = std::cos(s.theta3), s4 = std::sin(s.theta4), c4 = std::cos(s.theta4);
        const double sP = std::sin(s.theta3 + delta), cP = std::cos(s.theta3 + delta);
        const double s34 = s3 * c4 - c3 * s4;
        s.omega3 = w2 * a / b * (s4 * c2 - c4 * s2) / s34;
        s.omega4 = w2 * a / c * (s3 * c2 - c3 * s2) / s34;
        const double w3 = s.omega3, w4 = s.omega4;
        const double right = w2 * w2 * a * c2 + w3 * w3 * b * c3 - w4 * w4 * c * c4;
        const double up = -w2 * w2 * a * s2 - w3 * w3 * b * s3 + w4 * w4 * c * s4;
        const double det = c * s4 * b * c3 - b * s3 * c * c4;
        s.alpha3 = (right * c * c4 - up * c * s4) / det;
        s.alpha4 = (right * b * c3 - up * b * s3) / det;
        s.A[0] = a * c2, s.A[1] = a * s2;
        s.B[0] = d + c * c4, s.B[1] = c * s4;
        s.P[0] = s.A[0] + p * cP, s.P[1] = s.A[1] + p * sP;
        s.vA[0] = -w2 * s.A[1], s.vA[1] = w2 * s.A[0];
        s.vB[0] = -w4 * c * s4, s.vB[1] = w4 * c * c4;
        s.vP[0] = s.vA[0] - w3 * p * sP, s.vP[1] = s.vA[1] + w3 * p * cP;
        s.aA[0] = -w2 * w2 * s.A[0], s.aA[1] = -w2 * w2 * s.A[1];
        s.aB[0] = -s.alpha4 * c * s4 - w4 * w4 * c * c4, s.aB[1] = s.alpha4 * c * c4 - w4 * w4 * c * s4;
        s.aP[0] = s.aA[0] - s.alpha3 * p * sP - w3 * w3 * p * cP;
        s.aP[1] = s.aA[1] + s.alpha3 * p * cP - w3 * w3 * p * sP;
        theta2 += by;
    }
}

template <class Floor_Of_A_Run>
void Run_Beside(benchmark::State& state, const Floor_Of_A_Run& floor_of_a_run) {
    const Times times = Beside(
        state, [] { Run(); }, floor_of_a_run);
    state.counters["least_ms"] = 1e3 * times.least;
    state.counters["ratio_to_floor"] = times.least / times.least_floor;
}

void Run_2881_Steps(benchmark::State& state) {
    const std::vector<Angles> angles = Angles_Of_A_Run();
    Take_Default_Linkage(kSteps);
    Run_Beside(state, [&] { benchmark::DoNotOptimize(Floor(angles)); });
}
BENCHMARK(Run_2881_Steps)->UseManualTime()->Unit(benchmark::kMillisecond);

void Run_2881_Steps_Beside_A_Plain_Loop(benchmark::State& state) {
    Take_Default_Linkage(kSteps);
    Run();
    const PlainLinkage plain{Model.L2,
                             Model.L3,
                             Model.L4,
                             Model.L1,
                             Model.Rpa,
                             Model.DeltaRad,
                             static_cast<double>(Model.CircuitSign),
                             Model.Omega2Input};
    std::vector<PlainStep> steps(kSteps);
    const auto floor = [&] {
        Plain_Loop(plain, Model.ThetaStartRad - Model.Link1AngleRad, Model.ThetaStepRad, steps);
        benchmark::DoNotOptimize(steps.data());
        benchmark::ClobberMemory();
    };
    Run_Beside(state, floor);
    // It is the same linkage that both move.
    const auto off = [&](int step, double got, double expected) {
        if (std::abs(got - expected) > 1e-3 * (std::abs(expected) + Model.L1 * Model.Omega2Input * Model.Omega2Input))
            state.SkipWithError(("the loop moves another linkage at step " + std::to_string(step)).c_str());
    };
    for (int step = 0; step < kSteps; step += 90) {
        const PlainStep& s = steps[static_cast<std::size_t>(step)];
        off(step, s.P[1], Model.RunTable.PointXY(step, 2, 1));
        off(step, s.aP[0], Model.RunTable.AccXY(step, 2, 0));
    }
}
BENCHMARK(Run_2881_Steps_Beside_A_Plain_Loop)->UseManualTime()->Unit(benchmark::kMillisecond);

void Floor_2881_Steps(benchmark::State& state) {
    const std::vector<Angles> angles = Angles_Of_A_Run();
    for (auto _ : state) benchmark::DoNotOptimize(Floor(angles));
}
BENCHMARK(Floor_2881_Steps)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace verlink::bench
