// Tallies of all measures, and central differences.
#include "study/summary.h"

#include <cmath>

namespace verlink::study {

namespace {

Single Home_Of(const Bench& bench, int field) {
    Design design = bench.Of().design;
    return Fields()[static_cast<std::size_t>(field)].place(design);
}

std::vector<Single> Home(const Bench& bench) {
    std::vector<Single> home;
    for (const int field : bench.Moved()) home.push_back(Home_Of(bench, field));
    return home;
}

/// Shares of the sum of squares.
void Share(std::vector<Sensitivity>& of_measure) {
    double sum = 0;
    for (const Sensitivity& s : of_measure) sum += double{s.deviation} * s.deviation;
    // None where nothing deviates: a part of nothing is no number.
    for (Sensitivity& s : of_measure) s.share = static_cast<float>(double{s.deviation} * s.deviation / sum);
}

}  // namespace

Summary::Summary(const std::vector<float>& nominal) {
    for (const float value : nominal) measures.emplace_back(Is_None(value) ? 0.0 : double{value});
}

void Summary::Add(std::span<const float> values, Number linkage) {
    ++kept;
    auto value = values.begin();
    for (Tally& tally : measures) tally.Add(*value++, linkage);
}

void Summary::Add(const Summary& other) {
    solved += other.solved;
    kept += other.kept;
    auto more = other.measures.begin();
    for (Tally& tally : measures) tally.Add(*more++);
}

std::vector<float> Nominal_Measures(const Bench& bench) {
    std::vector<float> measures(bench.Of().measures.size());
    Worker(bench).Solve_At(Home(bench), measures);
    return measures;
}

std::vector<std::vector<Sensitivity>> Sensitivities(const Bench& bench) {
    const std::vector<Tolerance>& tolerances = bench.Of().plan.tolerances;
    const std::size_t measures = bench.Of().measures.size();
    std::vector<std::vector<Sensitivity>> all(measures);
    Worker worker(bench);
    std::vector<float> above(measures), below(measures);
    const std::vector<Single> home = Home(bench);
    for (const Tolerance& tolerance : tolerances) {
        std::vector<Single> fields = home;
        std::size_t place = 0;
        while (bench.Moved()[place] != tolerance.field) ++place;
        fields[place] = home[place] + tolerance.plus_minus;
        const double high = fields[place];
        worker.Solve_At(fields, above);
        fields[place] = home[place] - tolerance.plus_minus;
        const double low = fields[place];
        worker.Solve_At(fields, below);
        for (std::size_t i = 0; i < measures; ++i) {
            const double slope = (double{above[i]} - below[i]) / (high - low);
            const bool there = std::isfinite(slope);
            all[i].push_back({there ? static_cast<float>(slope) : kNone,
                              there ? static_cast<float>(std::fabs(slope) * tolerance.Deviation()) : kNone, kNone});
        }
    }
    for (auto& of_measure : all) Share(of_measure);
    return all;
}

}  // namespace verlink::study
