// How a number of a linkage is taken apart.
#include "study/plan.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "study/philox.h"

namespace verlink::study {

namespace {

constexpr Number kMost = Number{1} << 53U;

Number Worst_Ones(const std::vector<Tolerance>& tolerances) {
    return static_cast<Number>(
        std::ranges::count_if(tolerances, [](const Tolerance& t) { return t.spread == Spread::kWorst; }));
}

double Value_Of(const Sweep& sweep, Number place) {
    if (place == 0) return sweep.from;
    if (place + 1 == sweep.count) return sweep.to;
    return sweep.from + (sweep.to - sweep.from) * static_cast<double>(place) / static_cast<double>(sweep.count - 1);
}

double Random_Deviation(const Tolerance& tolerance, std::uint64_t seed, Number sample) {
    const int stream = Fields()[static_cast<std::size_t>(tolerance.field)].stream;
    const double uniform = Uniform(seed, sample, static_cast<std::uint32_t>(stream));
    if (tolerance.spread == Spread::kUniform) return tolerance.plus_minus * (2 * uniform - 1);
    return tolerance.Deviation() * Normal_Quantile(uniform);
}

/// The remainder of the number, which is left with the quotient.
Number Take(Number& number, Number count) {
    const Number rest = number % count;
    number /= count;
    return rest;
}

}  // namespace

double Tolerance::Deviation() const {
    switch (spread) {
        case Spread::kNormal: return plus_minus / 3;
        case Spread::kUniform: return plus_minus / std::sqrt(3.0);
        default: return plus_minus;
    }
}

std::optional<Number> Plan::Count() const {
    const Number corners = Worst_Ones(tolerances);
    Number all = 1;
    const auto times = [&](Number count) {
        const bool room = count != 0 && all <= kMost / count;
        all = room ? all * count : std::numeric_limits<Number>::max();
    };
    for (Number corner = 0; corner < corners; ++corner) times(2);
    for (const Sweep& sweep : sweeps) times(sweep.count);
    if (!list.fields.empty()) times(list.rows.size());
    if (corners < tolerances.size()) times(samples);
    return all <= kMost ? std::optional(all) : std::nullopt;
}

std::vector<int> Plan::Moved() const {
    std::vector<int> moved;
    const auto add = [&](int field) {
        if (std::ranges::find(moved, field) == moved.end()) moved.push_back(field);
    };
    for (const Sweep& sweep : sweeps) add(sweep.field);
    for (const int field : list.fields) add(field);
    for (const Tolerance& tolerance : tolerances) add(tolerance.field);
    return moved;
}

void Plan::Put(Number linkage, std::span<const int> moved, std::span<const Single> home, Design& design) const {
    for (std::size_t i = 0; i < moved.size(); ++i) Place(moved[i], design) = home[i];
    const Number corners = Worst_Ones(tolerances);
    Number sample{};
    if (corners < tolerances.size()) sample = Take(linkage, samples);
    Number corner = Take(linkage, Number{1} << corners);
    if (!list.fields.empty()) {
        const std::vector<double>& row = list.rows[Take(linkage, list.rows.size())];
        for (std::size_t i = 0; i < list.fields.size(); ++i) Place(list.fields[i], design) = row[i];
    }
    for (std::size_t i = sweeps.size(); i-- > 0;)
        Place(sweeps[i].field, design) = Value_Of(sweeps[i], Take(linkage, sweeps[i].count));
    for (const Tolerance& tolerance : tolerances) {
        const bool worst = tolerance.spread == Spread::kWorst;
        Place(tolerance.field, design) += !worst                 ? Random_Deviation(tolerance, seed, sample)
                                          : Take(corner, 2) == 0 ? -tolerance.plus_minus
                                                                 : tolerance.plus_minus;
    }
}

}  // namespace verlink::study
