// A number with what its rounding may have made of it: the running error analysis of a formula, to first order.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace verlink::checks {

/// Half the distance of neighbouring singles, as a part of the number.
inline constexpr double kHalfPlace = 0x1p-24;

/// `error` is never negative, and infinite where the value is open altogether.
struct Estimate {
    double value = 0, error = 0;
    Estimate() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): an exact number
    Estimate(double exact) : value(exact) {}
    Estimate(double v, double e) : value(v), error(e) {}
};

inline Estimate operator-(Estimate a) { return {-a.value, a.error}; }
inline Estimate operator+(Estimate a, Estimate b) { return {a.value + b.value, a.error + b.error}; }
inline Estimate operator-(Estimate a, Estimate b) { return {a.value - b.value, a.error + b.error}; }
inline Estimate operator*(Estimate a, Estimate b) {
    return {a.value * b.value, std::abs(a.value) * b.error + std::abs(b.value) * a.error + a.error * b.error};
}
inline Estimate operator/(Estimate a, Estimate b) {
    const double least = std::abs(b.value) - b.error;
    if (!(least > 0)) return {0, std::numeric_limits<double>::infinity()};
    const double quotient = a.value / b.value;
    return {quotient, (a.error + std::abs(quotient) * b.error) / least};
}
/// Stored as a single, which below 1E-38 has fewer digits.
inline Estimate Stored(Estimate a) {
    return {a.value, a.error + kHalfPlace * (std::abs(a.value) + a.error) + 0x1p-149};
}
inline Estimate Sine(Estimate a) { return {std::sin(a.value), std::min(2.0, a.error)}; }
inline Estimate Cosine(Estimate a) { return {std::cos(a.value), std::min(2.0, a.error)}; }
inline Estimate Root(Estimate a) {
    const double least = std::sqrt(std::max(a.value - a.error, 0.0)),
                 most = std::sqrt(std::max(a.value, 0.0) + a.error);
    return {std::sqrt(std::max(a.value, 0.0)), most - least};
}
inline Estimate Arc_Tangent(Estimate a) {
    const double nearest = std::max(std::abs(a.value) - a.error, 0.0);
    return {std::atan(a.value), std::min(M_PI, a.error / (1 + nearest * nearest))};
}

}  // namespace verlink::checks
