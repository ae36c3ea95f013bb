// How harmonics are summed, each in a lane of a vector.
#pragma once

#include <cstdint>

#include "core/trigonometry.h"

namespace verlink::harmonics {

/// The cosine and the sine of a part of a turn.
using Turned = Pair;

/// What all harmonics have in common.
struct Common {
    const double* parts;   ///< the samples, each over N
    const Turned* turned;  ///< by 0 to N - 1 of N parts of a turn
    int N;
    double two_pi;
    double least;       ///< the least sum that is not cut
    double step, rest;  ///< together 2 pi / N, the first with so few bits that its multiples are exact
};

/// So many harmonics from `first` on; those beyond the last mean nothing.
inline constexpr int kTogether = 8;
using Group = void (*)(const Common& common, int first, double* re, double* im);
void Group_By_Pairs(const Common& common, int first, double* re, double* im);
/// For machines with AVX2; null in a build that has none.
extern const Group kGroupByFours;

/// The cosines and sines of one harmonic after the other.
inline void Take_Turned(const Turned* table, const std::int32_t* at, Pair& cosine, Pair& sine) {
    const Pair a = table[at[0]], b = table[at[1]];
    cosine = Pair{a[0], b[0]};
    sine = Pair{a[1], b[1]};
}
#ifdef __AVX2__
inline void Take_Turned(const Turned* table, const std::int32_t* at, Quad& cosine, Quad& sine) {
    const Quad even = _mm256_set_m128d(table[at[2]], table[at[0]]);
    const Quad odd = _mm256_set_m128d(table[at[3]], table[at[1]]);
    cosine = _mm256_unpacklo_pd(even, odd);
    sine = _mm256_unpackhi_pd(even, odd);
}
#endif

/// What a vector of harmonics needs from one sample to the next.
template <class V>
struct Bundle {
    V k{}, turn{};
    V product{};  ///< of k and the number of the sample
    V re{}, im{};
    /// Where in the table of a turn the angles are, and how far it is to the next.
    std::int32_t by[kLanesOf<V>], at[kLanesOf<V>];
};

template <class V>
inline void Begin(const Common& c, int first, Bundle<V>& b) {
    constexpr int kLanes = kLanesOf<V>;
    for (int i = 0; i < kLanes; ++i) {
        b.by[i] = first + i < c.N ? first + i : 0;
        b.at[i] = 0;
        b.k[i] = b.by[i];
    }
    b.turn = b.k * c.two_pi;
}

/// A running sum that is too small starts again from 0.
template <class V>
inline V Cut(V sum, V least) {
    const auto stands = trigonometry::Magnitude(sum) >= least;
    return trigonometry::From_Bits(trigonometry::Bits(sum) & stands);
}

template <class V>
inline void Add_Sample(const Common& c, double number, double part, Bundle<V>& b) {
    // The angle as the formula rounds it, and how far it lies from whole parts of whole turns.
    const V angle = b.turn * number / static_cast<double>(c.N);
    const V off = (angle - b.product * c.step) - b.product * c.rest;
    V cosine, sine;
    Take_Turned(c.turned, b.at, cosine, sine);
    const V less = 1.0 - 0.5 * (off * off);
    b.re = Cut(b.re + part * (cosine * less - sine * off), Both<V>(c.least));
    b.im = Cut(b.im - part * (sine * less + cosine * off), Both<V>(c.least));
    b.product += b.k;
    for (int i = 0; i < kLanesOf<V>; ++i) {
        const std::int32_t next = b.at[i] + b.by[i], back = next - c.N;
        b.at[i] = back < 0 ? next : back;
    }
}

template <class V>
inline void Sum_Group(const Common& c, int first, double* re, double* im) {
    constexpr int kLanes = kLanesOf<V>, kBundles = kTogether / kLanes;
    Bundle<V> bundles[kBundles];
    for (int j = 0; j < kBundles; ++j) Begin(c, first + j * kLanes, bundles[j]);
    for (int n = 0; n < c.N; ++n)
        for (auto& bundle : bundles) Add_Sample(c, static_cast<double>(n), c.parts[n], bundle);
    for (int j = 0; j < kBundles; ++j)
        for (int i = 0; i < kLanes; ++i) {
            re[j * kLanes + i] = bundles[j].re[i];
            im[j * kLanes + i] = bundles[j].im[i];
        }
}

}  // namespace verlink::harmonics
