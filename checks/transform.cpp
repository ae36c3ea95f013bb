// The inverse transform, and the function of the run that it gives back.
#include "checks/transform.h"

#include <algorithm>
#include <cmath>

#include "checks/estimate.h"
#include "core/linkage_model.h"
#include "output/reading.h"

namespace verlink::checks {

namespace {

constexpr int kReal = 0, kImaginary = 1, kMagnitude = 2;
constexpr double kCut = 1e-5;

/// Samples 1 to N from the harmonics stored; the one at half the sampling rate stands in the work area alone.
struct Inverse {
    std::vector<double> x;
    double coefficients = 0;  ///< sum of their magnitudes
};

Inverse Inverse_Of(const LinkageModel& m, int N) {
    Inverse inverse;
    std::vector<double> cosine, sine;
    for (int j = 0; j < N; ++j) {
        cosine.push_back(std::cos(2 * M_PI * j / N));
        sine.push_back(std::sin(2 * M_PI * j / N));
    }
    inverse.x.assign(static_cast<std::size_t>(N), m.FFTResult(0, kReal));
    inverse.coefficients = std::abs(m.FFTResult(0, kReal));
    const auto add = [&](int k, double re, double im) {
        inverse.coefficients += std::abs(re) + std::abs(im);
        std::size_t at = 0;
        for (double& x : inverse.x) {
            x += re * cosine[at] - im * sine[at];
            at += static_cast<std::size_t>(k);
            if (at >= static_cast<std::size_t>(N)) at -= static_cast<std::size_t>(N);
        }
    };
    for (int k = 1; k < m.HalfSamples; ++k) add(k, m.FFTResult(k, kReal), m.FFTResult(k, kImaginary));
    if (N % 2 == 0) add(N / 2, m.DFTTable(N / 2 + 1, kReal), m.DFTTable(N / 2 + 1, kImaginary));
    return inverse;
}

struct Function {
    std::string words;
    int group, row, component;
    bool local;
    int link;
};

std::vector<Function> All_Functions() {
    std::vector<Function> functions;
    constexpr const char* kComponents[] = {" X", " Y", " Mag", " Ang"};
    for (const std::string& name : Variables_Up_To(Needs::kBalance)) {
        const std::optional<Variable_Facts> facts = Facts_Of(name);
        for (int component = 0; component <= (facts->vector ? 3 : 0); ++component)
            for (const bool local : {false, true}) {
                if (local && !facts->in_frames) continue;
                functions.push_back({name + (facts->vector ? kComponents[component] : "") + (local ? " local" : ""),
                                     facts->group, facts->row, component, local, Frame_Link(facts->row)});
            }
    }
    return functions;
}

/// The largest distance from the inverse; given up beyond `enough`.
double Distance(const LinkageModel& m, const Function& f, const Inverse& inverse, double enough) {
    const Reading_Frame frame{m.Link1Angle, f.local, m.SmallValue};
    double most = 0;
    for (std::size_t i = 0; i < inverse.x.size() && most <= enough; ++i) {
        const auto value = Read_Run(m.RunTable, f.group, f.row, static_cast<int>(i) + 1, f.link, f.component, frame);
        if (!value) return HUGE_VAL;
        most = std::max(most, std::abs(*value - inverse.x[i]));
    }
    return most;
}

/// What the cutting of running sums may take: each time less than the limit, at as many samples as are likely to leave
/// a sum below it, in any direction. The factor is three times the largest that was measured, in 6000 random
/// transforms.
double Taken_By_Cutting(const Inverse& inverse) {
    const auto N = static_cast<double>(inverse.x.size());
    double passes = 1;
    for (const double x : inverse.x) passes += std::min(1.0, N * kCut / (std::abs(x) + kCut));
    constexpr double kMeasured = 120;
    return kMeasured * kCut * std::sqrt(N * passes);
}

/// The magnitudes beside the real and imaginary parts.
double Magnitudes_Off(const LinkageModel& m, double& size) {
    double most = 0;
    for (int k = 0; k < m.HalfSamples; ++k) {
        const double own = std::hypot(m.FFTResult(k, kReal), m.FFTResult(k, kImaginary));
        size = std::max(size, own);
        most = std::max(most, std::abs(m.FFTResult(k, kMagnitude) - own));
    }
    return most;
}

}  // namespace

void Add_Transform(const LinkageModel& m, std::vector<Check>& checks) {
    const int N = m.NSteps;
    if (N < 2) return;
    const Inverse inverse = Inverse_Of(m, N);
    // Rounding of the coefficients, and of the turn, which the program takes for 6.283185308.
    const double rounding = inverse.coefficients * (4 * kHalfPlace + 1e-9 * N);
    const double cut = Taken_By_Cutting(inverse);
    double least = HUGE_VAL;
    std::string of;
    for (const Function& f : All_Functions()) {
        const double distance = Distance(m, f, inverse, least);
        if (distance >= least) continue;
        least = distance;
        of = f.words;
    }
    double size = 0;
    const double magnitudes = Magnitudes_Off(m, size);
    Check check;
    check.name = "Inverse of the transform";
    check.unit = m.FFTUnitLabel;
    check.worst = std::max(least, magnitudes);
    check.expected = rounding;
    check.where = of;
    check.meaning =
        "The harmonics of the transform give one of the run's functions back, and the magnitudes are those of "
        "their real and imaginary parts.";
    const bool fails = !(least <= rounding + cut) || magnitudes > 8 * kHalfPlace * size;
    check.verdict = fails ? Verdict::kFails : least <= rounding ? Verdict::kGood : Verdict::kByDesign;
    if (check.verdict == Verdict::kByDesign)
        check.meaning += " Sums below 0.00001 are cut to 0 as they grow, which takes so much of it.";
    checks.push_back(check);
}

}  // namespace verlink::checks
