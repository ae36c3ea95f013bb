// How far the solver's own operations may round a position of the linkage.
#pragma once

#include "checks/estimate.h"
#include "checks/pose.h"

namespace verlink::checks {

/// Two components.
struct Estimate2 {
    Estimate x, y;
    double Error() const { return std::hypot(x.error, y.error); }
};
inline Estimate2 operator+(const Estimate2& a, const Estimate2& b) { return {a.x + b.x, a.y + b.y}; }
inline Estimate2 operator-(const Estimate2& a, const Estimate2& b) { return {a.x - b.x, a.y - b.y}; }
inline Estimate2 operator*(const Estimate& a, const Estimate2& b) { return {a * b.x, a * b.y}; }
inline Estimate2 Stored(const Estimate2& a) { return {Stored(a.x), Stored(a.y)}; }
inline Estimate Cross(const Estimate2& a, const Estimate2& b) { return a.x * b.y - a.y * b.x; }
/// Of length 1 at an angle, and a quarter turn on.
inline Estimate2 Toward(const Estimate& angle) { return {Cosine(angle), Sine(angle)}; }
inline Estimate2 Aside(const Estimate2& a) { return {-a.y, a.x}; }

/// Speeds and accelerations of the crank at a step; `alpha2_before` is what the solver's first acceleration term takes,
/// `turned` the crank's angle with all its turns.
struct Driven {
    double th2, omega2, alpha2, alpha2_before, turned;
};

/// Stored lengths and radians. The errors are against the exact position at the crank's angle; infinite, or of the size
/// of the linkage, where single precision leaves the position open.
struct Expected {
    Estimate th2, th3, th4, omega3, omega4, alpha3, alpha4;
    Estimate2 A, B, P;
    Estimate2 velocity[3], acceleration[5];  ///< as the run's table has them
    Estimate determinant;                    ///< of the equations for the accelerations
};
Expected Expected_At(const Shape& shape, const Driven& at);

}  // namespace verlink::checks
