// Which linkages a study has: each has a number, and follows from it alone.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "study/design.h"

namespace verlink::study {

using Number = std::uint64_t;

/// COUNT values at equal distances, both ends among them.
struct Sweep {
    int field = 0;
    double from = 0, to = 0;
    Number count = 1;
};

/// How a value spreads about its place: a normal distribution of which PLUSMINUS is three standard deviations, the
/// uniform one between both ends, or both ends themselves.
enum class Spread { kNormal, kUniform, kWorst };

struct Tolerance {
    int field = 0;
    double plus_minus = 0;
    Spread spread = Spread::kNormal;

    /// What the standard deviation is; of `kWorst` that of the two ends.
    double Deviation() const;
};

/// Values of some fields, row by row.
struct List {
    std::vector<int> fields;
    std::vector<std::vector<double>> rows;
};

/// All of them together: each place of the grid, the first sweep slowest, with each row of the list, with each corner
/// of the worst tolerances, and there with each sample. Sample k has the same deviations at every place, in any order
/// and on any machine; those of a field do not depend on which other fields have tolerances.
struct Plan {
    std::vector<Sweep> sweeps;
    List list;
    std::vector<Tolerance> tolerances;
    Number samples = 1;  ///< of the random tolerances
    std::uint64_t seed = 1;

    /// How many linkages there are; nothing when there are more than 2^53.
    std::optional<Number> Count() const;
    /// The fields that it moves, each once, in the order given.
    std::vector<int> Moved() const;
    /// Puts the values of linkage 0 to `Count()` - 1 into a design; what does not move is not touched. `home` has the
    /// model's own values of `Moved()`, about which tolerances lie where nothing else moves the field. Failure 6 for a
    /// value that no single holds.
    void Put(Number linkage, std::span<const int> moved, std::span<const Single> home, Design& design) const;
};

}  // namespace verlink::study
