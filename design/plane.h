// Points of the plane as complex numbers.
#pragma once

#include <cmath>
#include <complex>
#include <numbers>

namespace verlink::design {

/// A point or a vector; x is the real part.
using Point = std::complex<double>;

inline constexpr double kDegree = std::numbers::pi / 180;
inline constexpr double kTurn = 2 * std::numbers::pi;

/// z component of a x b, and their scalar product. Written out, since they are where a search spends its time.
inline double Cross(Point a, Point b) { return a.real() * b.imag() - a.imag() * b.real(); }
inline double Dot(Point a, Point b) { return a.real() * b.real() + a.imag() * b.imag(); }
/// The product without the care for infinities that the standard's takes.
inline Point Times(Point a, Point b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}
/// A vector turned left by a right angle.
inline Point Left_Of(Point a) { return {-a.imag(), a.real()}; }
inline double Distance(Point a, Point b) { return std::sqrt(std::norm(a - b)); }

}  // namespace verlink::design
