// What becomes of many values of one measure: their spread, in constant memory, whatever order they came in.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "study/exact_sum.h"

namespace verlink::study {

/// Counts values in bins. A bin is all singles that begin with the same bits; bits are let go when there are more than
/// 4096 bins. How many have to go follows from the values alone, and not from their order: so tallies of parts, put
/// together, are the tally of the whole.
class Spread_Of_Values {
   public:
    void Add(float value);
    void Add(const Spread_Of_Values& other);

    std::uint64_t Count() const { return count_; }
    /// The value below which this share of all lies, from 0 to 1, between the two that are nearest in rank. Those of
    /// one bin count as equally far apart between its least and its greatest; with 4096 values or fewer all is exact.
    /// Not of nothing.
    double Quantile(double share) const;
    /// How many lie from one bound to below the next, which are in order, the last one included; bins by their middle.
    std::vector<std::uint64_t> Between(const std::vector<double>& bounds) const;
    /// Not of nothing.
    float Least() const { return least_; }
    float Greatest() const { return greatest_; }

    std::string Text() const;
    bool Take(const std::string& text);

   private:
    static constexpr float kMost = std::numeric_limits<float>::infinity();
    struct Bin {
        std::uint64_t count = 0;
        float least = kMost, greatest = -kMost;
        void Add(const Bin& other);
    };
    static constexpr std::size_t kBins = 4096;

    void Put(std::uint32_t key, const Bin& bin);
    void Widen();
    std::map<std::uint32_t, Bin> In_Order() const;

    std::unordered_map<std::uint32_t, Bin> bins_;
    unsigned let_go_ = 0;  ///< bits
    std::uint64_t count_ = 0;
    float least_ = kMost, greatest_ = -kMost;
};

/// All that a summary says of a measure.
class Tally {
   public:
    /// Sums are of distances from here, which loses no digits where all values are near it.
    explicit Tally(double about = 0) : about_(about) {}

    /// `linkage` tells equal values apart.
    void Add(float value, std::uint64_t linkage);
    void Add(const Tally& other);

    struct Extreme {
        float value;
        std::uint64_t linkage;
        bool operator==(const Extreme&) const = default;
    };
    std::uint64_t None() const { return none_; }
    const Spread_Of_Values& Spread() const { return spread_; }
    double Mean() const;
    /// Of the values about their mean, by their count less one; 0 of a single one.
    double Deviation() const;
    /// The ten least, from the least up, and the ten greatest, from the greatest down; of equal ones the first
    /// linkages.
    const std::vector<Extreme>& Lowest() const { return lowest_; }
    const std::vector<Extreme>& Highest() const { return highest_; }

    /// As lines, for `Take` of a tally about the same place to read; false for lines that are none.
    std::string Text() const;
    bool Take(const std::vector<std::string>& lines);
    static constexpr int kLines = 6;

   private:
    double about_;
    std::uint64_t none_ = 0;
    Spread_Of_Values spread_;
    Exact_Sum sum_, squares_;
    std::vector<Extreme> lowest_, highest_;
};

}  // namespace verlink::study
