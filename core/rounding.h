// The rounding of what is stored of numbers, of pairs and of fours.
#pragma once

#include <type_traits>

#include "core/pairs.h"
#ifdef __AVX2__
#include "core/quads.h"
#endif

namespace verlink {

template <class V>
V Rounded(V x) {
    return Wide(Narrow(x));
}

/// Rounds as storing does, and watches for overflows by the sum of all it gave out. The sum of a pair may overflow
/// where none of the floats did.
template <class V>
class Rounding {
   public:
    using SumType = std::conditional_t<std::is_same_v<V, double>, double, Stored<V>>;

    V operator()(V x) {
        const Stored<V> stored = Narrow(x);
        sum_ += stored;
        return Wide(stored);
    }
    /// The same, kept for storing.
    V Keep(Stored<V>& place, V x) {
        place = Narrow(x);
        sum_ += place;
        return Wide(place);
    }
    bool All_Finite() const {
        if constexpr (std::is_same_v<V, double>)
            return Is_Finite(sum_);
        else
            return Is_Finite(Wide(sum_));
    }
    SumType Sum() const { return sum_; }
    void Add(SumType sum) { sum_ += sum; }

   private:
    SumType sum_{};
};

}  // namespace verlink
