// Tolerances of linkages whose sensitivities are known in closed form.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "study/study.h"
#include "study/summary.h"

namespace verlink::study {

namespace {

constexpr int kOnePosition = 1;

Design Design_At(double L1, double L2, double L3, double L4, double Rpa, double angle) {
    Design d;
    d.PolarCoords = true;
    d.L1 = L1, d.L2 = L2, d.L3 = L3, d.L4 = L4, d.Rpa = Rpa;
    d.CircuitIndex = 1;
    d.CircuitSign = -1;
    d.Calctype = kOnePosition;
    d.ThetaZero = angle;
    d.Omega2Input = 1;
    return d;
}

int Field_At(const std::string& name, const Design& design) {
    std::string fault;
    const auto field = Field_Named(name, design, fault);
    EXPECT_TRUE(field) << fault;
    return field.value_or(0);
}

Study Study_About(const Design& design, const std::vector<std::string>& fields, double plus_minus, Spread spread,
                  const std::vector<std::string>& measures) {
    Study study{design, {}, {}, {}};
    for (const std::string& name : fields)
        study.plan.tolerances.push_back({Field_At(name, design), plus_minus, spread});
    std::string fault;
    for (const std::string& words : measures) {
        const auto measure = Measure_Of(words, false, fault);
        EXPECT_TRUE(measure) << fault;
        study.measures.push_back(measure.value());
    }
    study.plan.samples = 20000;
    EXPECT_EQ(Fault_Of(study), "");
    return study;
}

Summary Summed_Up(const Bench& bench) {
    Summary summary(Nominal_Measures(bench));
    Worker worker(bench);
    std::vector<float> fields(bench.Moved().size()), measures(bench.Of().measures.size());
    for (Number linkage = 0; linkage < bench.Of().plan.Count().value(); ++linkage)
        if (worker.Solve(linkage, fields, measures)) summary.Add(measures, linkage);
    return summary;
}

/// Derivatives of one measure by L1, L2, L3, L4 and Rpa, as far as given.
struct Known {
    const char* measure;
    double value;
    std::vector<double> by;
};
const std::vector<std::string> kLengths{"L1", "L2", "L3", "L4", "Rpa"};

class Tolerances : public testing::TestWithParam<Spread> {
   protected:
    /// Derivatives, and mean and standard deviation to five times their own error.
    static void Expect(const Design& design, const Known& known, double plus_minus) {
        const Bench bench(Study_About(design, kLengths, plus_minus, GetParam(), {known.measure}));
        EXPECT_NEAR(Nominal_Measures(bench)[0], known.value, 1e-5 * std::fabs(known.value));
        const auto found = Sensitivities(bench)[0];
        double variance = 0, most = 0;
        const double sigma = bench.Of().plan.tolerances[0].Deviation();
        for (const double by : known.by) {
            variance += by * by * sigma * sigma;
            most += std::fabs(by) * plus_minus;
        }
        for (std::size_t i = 0; i < known.by.size(); ++i) {
            EXPECT_NEAR(found[i].derivative, known.by[i], 2e-3 * most / plus_minus) << kLengths[i];
            EXPECT_NEAR(found[i].share, std::pow(known.by[i] * sigma, 2) / variance, 4e-3) << kLengths[i];
        }
        const Summary summary = Summed_Up(bench);
        const Tally& tally = summary.measures[0];
        const auto count = static_cast<double>(summary.kept);
        const double spread = std::sqrt(variance);
        if (GetParam() == Spread::kWorst) {
            EXPECT_EQ(summary.kept, 32u);
            EXPECT_NEAR(tally.Spread().Greatest() - known.value, most, 0.02 * most);
            EXPECT_NEAR(known.value - tally.Spread().Least(), most, 0.02 * most);
            return;
        }
        EXPECT_EQ(summary.kept, 20000u);
        EXPECT_NEAR(tally.Mean(), known.value, 5 * spread / std::sqrt(count) + 2e-3 * spread);
        EXPECT_NEAR(tally.Deviation() / spread, 1, 5 / std::sqrt(2 * count));
    }
};

INSTANTIATE_TEST_SUITE_P(All, Tolerances, testing::Values(Spread::kNormal, Spread::kUniform, Spread::kWorst));

/// With the coupler along the ground, the closed loop in the coupler's direction gives the rocker's angle:
/// L4 sin t dt4 = dL1 - dL3 + (dL4 - dL2) cos t.
TEST_P(Tolerances, OfAParallelogram) {
    const double t = M_PI / 3, L4 = 2, degrees = 180 / M_PI / (L4 * std::sin(t)), c = std::cos(t);
    Expect(Design_At(4, L4, 4, L4, 1, 60), {"max Theta4", 60, {degrees, -c * degrees, -degrees, c * degrees, 0}},
           0.003);
}

/// Half-way along the straight part: triangles of 3, 4 and 5, so that all derivatives are fractions.
TEST_P(Tolerances, OfAStraightLineLinkage) {
    const Design design = Design_At(2, 1, 2.5, 2.5, 5, 180);
    Expect(design, {"max Coupler Pt:Y", 4, {-0.75, -0.75, -0.35, 1.25, 0.8}}, 0.003);
    Expect(design, {"max Coupler Pt:X", 2, {1, 0, 0.7 / 1.5, -2.5 / 1.5, 0.6}}, 0.003);
}

TEST(Tolerances_Of_Plans, AreTheSameForAFieldWhateverElseIsMoved) {
    const Design design = Design_At(2, 1, 2.5, 2.5, 5, 180);
    const auto value = [&](const std::vector<std::string>& fields, const std::string& wanted, Number linkage) {
        Design moved = design;
        Plan plan;
        for (const std::string& name : fields)
            plan.tolerances.push_back({Field_At(name, design), 0.1, Spread::kNormal});
        plan.samples = 100;
        std::vector<Single> home;
        for (const int field : plan.Moved()) home.push_back(Fields()[static_cast<std::size_t>(field)].place(moved));
        plan.Put(linkage, plan.Moved(), home, moved);
        return double{Fields()[static_cast<std::size_t>(Field_At(wanted, design))].place(moved)};
    };
    EXPECT_EQ(value({"L4"}, "L4", 7), value({"L2", "L4"}, "L4", 7));
    EXPECT_NE(value({"L4"}, "L4", 7), value({"L4"}, "L4", 8));
    EXPECT_NE(value({"L4"}, "L4", 7) - 2.5, value({"L3"}, "L3", 7) - 2.5);
}

}  // namespace

}  // namespace verlink::study
