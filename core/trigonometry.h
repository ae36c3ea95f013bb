// Sine, cosine and arc tangent of a number, of a pair or of four of them, to the same bits in each way and on every
// machine.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "core/rounding.h"

namespace verlink {

// V is double, `Pair` or, below kTrigonometryLimit, `Quad`; radians. All are odd or even to the bit, the sign of a zero
// aside, and within 2 units in the last place below kTrigonometryLimit; sine and cosine are the C library's beyond. The
// coefficients are those that tests/reference/trigonometry.py fits.

/// Up to here the multiple of pi/2 that is taken off has 20 bits, so that its products with 33 bits are exact.
inline constexpr double kTrigonometryLimit = 1.6e6;

namespace trigonometry {

inline constexpr std::int64_t kMagnitude = 0x7fffffffffffffff;

inline std::int64_t Bits(double x) { return std::bit_cast<std::int64_t>(x); }
inline double From_Bits(std::int64_t bits) { return std::bit_cast<double>(bits); }
inline PairOfTruths Bits(Pair x) { return PairOfTruths(x); }
inline Pair From_Bits(PairOfTruths bits) { return Pair(bits); }
#ifdef __AVX2__
inline QuadOfTruths Bits(Quad x) { return QuadOfTruths(x); }
inline Quad From_Bits(QuadOfTruths bits) { return Quad(bits); }
#endif

template <class V>
inline V Magnitude(V x) {
    return From_Bits(Bits(x) & kMagnitude);
}

/// The sign of the second becomes that of the first, which has none.
template <class V>
inline V Signed(V magnitude, V sign) {
    return From_Bits(Bits(magnitude) | (Bits(sign) & ~kMagnitude));
}

inline bool Within(double x, double limit) { return std::abs(x) < limit; }
inline bool Within(Pair x, double limit) { return Within(x[0], limit) && Within(x[1], limit); }

/// x, less the multiple of pi/2 that is nearest to it. The multiple ends the bits of `turns`.
template <class V>
inline V Reduce(V x, decltype(Bits(V{}))& turns) {
    constexpr double kTwoOverPi = 0.6366197723675814;
    constexpr double kWholes = 6755399441055744.0;  // 1.5 x 2^52: the sum has no room for a fraction
    constexpr double kPart1 = 0x1.921fb54400000p+0, kPart2 = 0x1.0b4611a600000p-34, kPart3 = 0x1.3198a2e037073p-69;
    const V shifted = x * kTwoOverPi + kWholes;
    turns = Bits(shifted);
    const V n = shifted - kWholes;
    const V first = x - n * kPart1;
    const V second = first - n * kPart2;
    // What the second difference lost comes back with the third part.
    return second - (n * kPart3 - ((first - second) - n * kPart2));
}

inline void Sin_Cos_Beyond(double x, double& sine, double& cosine) {
    sine = std::sin(x);
    cosine = std::cos(x);
}
inline void Sin_Cos_Beyond(Pair x, Pair& sine, Pair& cosine);

}  // namespace trigonometry

template <class V>
inline void Sin_Cos(V x, V& sine, V& cosine) {
    using namespace trigonometry;
    if constexpr (kLanesOf<V> <= 2) {
        if (!Within(x, kTrigonometryLimit)) [[unlikely]]
            return Sin_Cos_Beyond(x, sine, cosine);
    }
    decltype(Bits(V{})) turns;
    const V r = Reduce(x, turns);
    const V z = r * r;
    const V w = z * z;
    const V s_tail = -0.16666666666666666 + z * 0.008333333333330948 +
                     w * ((-0.00019841269836758538 + z * 2.755731610253375e-06) +
                          w * (-2.5051131841108444e-08 + z * 1.5918129014234338e-10));
    const V c_tail = 0.041666666666666664 + z * -0.0013888888888887398 +
                     w * ((2.4801587298765665e-05 + z * -2.75573172717181e-07) +
                          w * (2.0876146265966424e-09 + z * -1.1382632249960623e-11));
    const V s = r + r * (z * s_tail);
    const V half = 0.5 * z, head = 1.0 - half;
    const V c = head + (((1.0 - head) - half) + w * c_tail);
    // The turns' lowest bit swaps the two; the next one, moved to the place of the sign, turns them round.
    const V swap = From_Bits((turns & 1) << 62);
    const V s_sign = From_Bits((turns & 2) << 62), c_sign = From_Bits(((turns + 1) & 2) << 62);
    sine = From_Bits(Bits(If(swap > 0, c, s)) ^ Bits(s_sign));
    cosine = From_Bits(Bits(If(swap > 0, s, c)) ^ Bits(c_sign));
}

template <class V>
inline V Sin(V x) {
    V sine, cosine;
    Sin_Cos(x, sine, cosine);
    return sine;
}

template <class V>
inline V Atan(V x) {
    using namespace trigonometry;
    constexpr double kRightAngle = 0x1.921fb54442d18p+0, kRightAngleRest = 0x1.1a62633145c07p-54;
    const V a = Magnitude(x);
    // tan(pi/8) and tan(3 pi/8) part the three ways to a small argument.
    const auto middle = a > 0.41421356237309503, steep = a > 2.414213562373095;
    const V top = If(steep, Both<V>(-1.0), If(middle, a - 1.0, a));
    const V bottom = If(steep, a, If(middle, a + 1.0, Both<V>(1.0)));
    const V base = If(steep, Both<V>(kRightAngle), If(middle, Both<V>(kRightAngle / 2), V{}));
    const V rest = If(steep, Both<V>(kRightAngleRest), If(middle, Both<V>(kRightAngleRest / 2), V{}));
    const V t = top / bottom;
    const V z = t * t;
    const V w = z * z;
    const V low =
        -0.3333333333333333 + z * 0.1999999999999552 +
        w * ((-0.14285714284666534 + z * 0.11111111015255669) + w * (-0.09090904578095735 + z * 0.07692183190171728));
    const V high = -0.06664511438164644 + z * 0.05858148832731273 +
                   w * ((-0.05085449318930035 + z * 0.039231646190551486) + w * -0.019176872294336067);
    const V tail = low + (w * w) * (w * high);
    return Signed(base + (t + (t * (z * tail) + rest)), x);
}

/// Of the two, one may lie within.
inline void trigonometry::Sin_Cos_Beyond(Pair x, Pair& sine, Pair& cosine) {
    for (int i = 0; i < 2; ++i) {
        double s, c;
        Sin_Cos(double{x[i]}, s, c);
        sine[i] = s;
        cosine[i] = c;
    }
}

}  // namespace verlink
