// Numbers that go through the same formulas in pairs.
#pragma once

#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace verlink {

/// Two doubles as a vector register holds them. They add, multiply and compare like one, each to the same bits as
/// one alone.
typedef double Pair __attribute__((vector_size(16)));
using PairOfTruths = decltype(Pair{} == Pair{});

// What follows serves one double and a pair under the same names; core/quads.h has the same for four.

/// How many numbers a V holds.
template <class V>
inline constexpr int kLanesOf = sizeof(V) / sizeof(double);

template <class V>
inline V Both(double x) {
    return V{} + x;
}

inline double If(bool truth, double then, double otherwise) { return truth ? then : otherwise; }
inline Pair If(PairOfTruths truth, Pair then, Pair otherwise) { return truth ? then : otherwise; }

inline double Sqrt(double x) { return std::sqrt(x); }

/// What a V is rounded to when it is stored, and back. Of the four floats the first two count.
typedef float PairOfFloats __attribute__((vector_size(16)));
template <class V>
struct StoredAs;
template <>
struct StoredAs<double> {
    using Type = float;
};
template <>
struct StoredAs<Pair> {
    using Type = PairOfFloats;
};
template <class V>
using Stored = typename StoredAs<V>::Type;

inline float Narrow(double x) { return static_cast<float>(x); }
inline double Wide(float x) { return x; }
#ifdef __SSE2__
inline Pair Sqrt(Pair x) { return _mm_sqrt_pd(x); }
inline PairOfFloats Narrow(Pair x) { return _mm_cvtpd_ps(x); }
inline Pair Wide(PairOfFloats x) { return _mm_cvtps_pd(x); }
#else
inline Pair Sqrt(Pair x) { return Pair{std::sqrt(x[0]), std::sqrt(x[1])}; }
inline PairOfFloats Narrow(Pair x) { return PairOfFloats{static_cast<float>(x[0]), static_cast<float>(x[1])}; }
inline Pair Wide(PairOfFloats x) { return Pair{x[0], x[1]}; }
#endif
inline bool Is_Finite(double x) { return x - x == 0; }
inline bool Is_Finite(Pair x) { return Is_Finite(x[0] + x[1]); }
inline bool Is_Zero(Pair x) { return x[0] == 0 || x[1] == 0; }

}  // namespace verlink
