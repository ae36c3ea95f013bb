// A sum that does not depend on the order of what is added.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace verlink::study {

/// Doubles are added up as whole numbers of the smallest one that there is, so that nothing is rounded; after Kulisch's
/// long accumulator. Infinities and what is not a number are not to be added.
class Exact_Sum {
   public:
    void Add(double value);
    void Add(const Exact_Sum& other);
    /// The sum, cut to a double: the same for the same numbers, whatever way they came, and within a unit in the last
    /// place.
    double Value() const;

    /// As text without blanks, and back; false for a text that is none.
    std::string Text() const;
    bool Take(const std::string& text);

    bool operator==(const Exact_Sum& other) const = default;

   private:
    void Carry(std::size_t from);

    std::array<std::int64_t, 68> digits_{};  ///< of 32 bits, the lowest first; the highest has the sign
};

}  // namespace verlink::study
