// What a study comes to, without its rows; and which field a measure hangs on.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/study.h"
#include "study/tally.h"

namespace verlink::study {

/// Counts, and a tally for each measure. What it says does not depend on the order in which linkages came, nor on how
/// they were shared among several that are put together.
struct Summary {
    explicit Summary(const std::vector<float>& nominal);

    void Add(std::span<const float> measures, Number linkage);
    void Add(const Summary& other);

    Number solved = 0, kept = 0;
    std::vector<Tally> measures;
};

/// What the measures of the model itself are.
std::vector<float> Nominal_Measures(const Bench& bench);

/// How a measure answers to one field.
struct Sensitivity {
    float
        derivative;  ///< of the measure by the field, in the units of both; `kNone` where a linkage has no such measure
    float deviation;  ///< what the field's own spread makes of the measure's: derivative times standard deviation
    float share;      ///< of the variance of the measure, to first order, 0 to 1; `kNone` where nothing spreads
};

/// For each measure, one for each tolerance: central differences over its plus and minus, all else at the model's own.
/// Distances are those of the stored numbers.
std::vector<std::vector<Sensitivity>> Sensitivities(const Bench& bench);

}  // namespace verlink::study
