// Numbers that go through the same formulas in fours. Only for sources that are built for machines with AVX2: what they
// compile of this runs nowhere else.
#pragma once

#include <immintrin.h>

#include "core/pairs.h"

namespace verlink {

/// Four doubles, each with the bits that it has alone.
typedef double Quad __attribute__((vector_size(32)));
using QuadOfTruths = decltype(Quad{} == Quad{});

inline Quad If(QuadOfTruths truth, Quad then, Quad otherwise) { return truth ? then : otherwise; }
inline Quad Sqrt(Quad x) { return _mm256_sqrt_pd(x); }

/// A type of its own, since a pair's floats fill the same register.
struct FourFloats {
    PairOfFloats held;
    FourFloats& operator+=(const FourFloats& other) {
        held += other.held;
        return *this;
    }
};
template <>
struct StoredAs<Quad> {
    using Type = FourFloats;
};
inline FourFloats Narrow(Quad x) { return {_mm256_cvtpd_ps(x)}; }
inline Quad Wide(const FourFloats& x) { return _mm256_cvtps_pd(x.held); }

inline bool Is_Finite(Quad x) { return _mm256_movemask_pd(Quad(x - x == 0)) == 15; }
inline bool Is_Zero(Quad x) { return _mm256_movemask_pd(Quad(x == 0)) != 0; }

}  // namespace verlink
