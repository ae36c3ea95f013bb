// Numbers between bounds: what rounding may make of a formula, from the corners of what goes into it.
#pragma once

#include <algorithm>
#include <cmath>

namespace verlink::test {

/// Half the distance of neighbouring singles, as a part of the number.
inline constexpr double kHalf = 1.0 / (1 << 24);

struct Range {
    double value = 0, off = 0;
    Range() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): an exact number
    Range(double v) : value(v) {}
    Range(double v, double o) : value(v), off(o) {}
};

/// The farthest that an operation on the ends of two ranges comes from that on their middles.
template <class Operation>
Range At_Corners(Range a, Range b, Operation operation) {
    Range all{operation(a.value, b.value)};
    for (const double at_a : {a.value - a.off, a.value + a.off})
        for (const double at_b : {b.value - b.off, b.value + b.off})
            all.off = std::max(all.off, std::abs(operation(at_a, at_b) - all.value));
    return all;
}
inline Range operator-(Range a) { return {-a.value, a.off}; }
inline Range operator+(Range a, Range b) {
    return At_Corners(a, b, [](double x, double y) { return x + y; });
}
inline Range operator-(Range a, Range b) {
    return At_Corners(a, b, [](double x, double y) { return x - y; });
}
inline Range operator*(Range a, Range b) {
    return At_Corners(a, b, [](double x, double y) { return x * y; });
}
/// For a divisor whose range is without 0.
inline Range operator/(Range a, Range b) {
    return At_Corners(a, b, [](double x, double y) { return x / y; });
}
/// Kept as a single.
inline Range Kept(Range a) { return {a.value, a.off + kHalf * (std::abs(a.value) + a.off)}; }
inline Range Sin(Range a) { return {std::sin(a.value), a.off}; }
inline Range Cos(Range a) { return {std::cos(a.value), a.off}; }
inline Range Square_Root(Range a) {
    return {std::sqrt(a.value), std::sqrt(a.value + a.off) - std::sqrt(a.value - a.off)};
}
/// By the steepest slope of the arc tangent within the range.
inline Range Arc_Tangent_Of(Range a) {
    const double flat = std::abs(a.value) - a.off;
    return {std::atan(a.value), a.off / (1 + (flat > 0 ? flat * flat : 0))};
}

/// Two components of one.
struct Ranges {
    Range x, y;
    double Off() const { return std::sqrt(x.off * x.off + y.off * y.off); }
    double Size() const { return std::sqrt(x.value * x.value + y.value * y.value); }
};

/// A linkage in stored lengths and radians; `sign` is -1 on the open circuit.
struct Links {
    double L1, L2, L3, L4, Rpa, delta, sign;
};

/// What the solver computes at a crank angle, operation by operation.
struct Solved_Position {
    Range th3, th4, omega3, omega4, alpha3, alpha4, G;
    Ranges A, B, P, velocity[3], acceleration[4];
};

inline Range Twice_The_Angle(Range a, Range b, Range c, double sign) {
    const Range D = Kept(b * b - Range(4) * a * c);
    return Kept(Range(2) * Arc_Tangent_Of((-b + Range(sign) * Square_Root(D)) / (Range(2) * a)));
}

inline void Solve_Place(const Links& g, Range th2, Solved_Position& p) {
    const double L1 = g.L1, L2 = g.L2, L3 = g.L3, L4 = g.L4;
    const Range c2 = Cos(th2), s2 = Sin(th2);
    const Range K1 = Kept(L1 / L2), K2 = Kept(L1 / L4), K4 = Kept(L1 / L3);
    const Range K3 = Kept((L2 * L2 - L3 * L3 + L4 * L4 + L1 * L1) / (2 * L2 * L4));
    const Range K5 = Kept((L4 * L4 - L1 * L1 - L2 * L2 - L3 * L3) / (2 * L2 * L3));
    const Range b = Kept(Range(-2) * s2);
    p.th4 = Twice_The_Angle(Kept(K3 + c2 - K1 - K2 * c2), b, Kept(K3 + K1 - (K2 + Range(1)) * c2), g.sign);
    p.th3 = Twice_The_Angle(Kept((K4 + Range(1)) * c2 + K5 - K1), b, Kept((K4 - Range(1)) * c2 + K5 + K1), g.sign);
    p.A = {Kept(Range(L2) * c2), Kept(Range(L2) * s2)};
    const Range arm = p.th3 + Range(g.delta);
    p.P = {Kept(Range(g.Rpa) * Cos(arm) + p.A.x), Kept(Range(g.Rpa) * Sin(arm) + p.A.y)};
    p.B = {Kept(Range(L4) * Cos(p.th4) + Range(L1)), Kept(Range(L4) * Sin(p.th4))};
}

inline void Solve_Speeds(const Links& g, Range th2, double w2, Solved_Position& p) {
    const Range apart = Sin(p.th3 - p.th4), arm = p.th3 + Range(g.delta);
    p.omega3 = Kept(Range(w2 * g.L2 / g.L3) * Sin(p.th4 - th2) / apart);
    p.omega4 = Kept(Range(w2 * g.L2 / g.L4) * Sin(p.th3 - th2) / apart);
    Ranges* v = p.velocity;
    v[0] = {Kept(Range(-w2 * g.L2) * Sin(th2)), Kept(Range(w2 * g.L2) * Cos(th2))};
    v[1] = {Kept(p.omega4 * Range(-g.L4) * Sin(p.th4)), Kept(p.omega4 * Range(g.L4) * Cos(p.th4))};
    v[2] = {Kept(p.omega3 * Range(-g.Rpa) * Sin(arm) + v[0].x), Kept(p.omega3 * Range(g.Rpa) * Cos(arm) + v[0].y)};
}

inline Ranges Sped_Arm(Range alpha, Range square, double length, Range angle) {
    const Range R(length);
    return {-(alpha * R * Sin(angle)) - square * R * Cos(angle), alpha * R * Cos(angle) - square * R * Sin(angle)};
}

/// `a2` and, in the first term alone, `a2_before` are the crank's acceleration.
inline void Solve_Accelerations(const Links& g, Range th2, double w2, double a2, double a2_before, Solved_Position& p) {
    const Range q2 = Kept(Range(w2 * w2)), q3 = Kept(p.omega3 * p.omega3), q4 = Kept(p.omega4 * p.omega4);
    const Range s2 = Range(g.L2) * Sin(th2), c2 = Range(g.L2) * Cos(th2);
    const Range s3 = Range(g.L3) * Sin(p.th3), c3 = Range(g.L3) * Cos(p.th3);
    const Range s4 = Range(g.L4) * Sin(p.th4), c4 = Range(g.L4) * Cos(p.th4);
    const Range C1 = Kept(s4), C2 = Kept(s3), C4 = Kept(c4), C5 = Kept(c3);
    const Range C3 = Kept(Range(a2_before) * s2 + q2 * c2 + q3 * c3 - q4 * c4);
    const Range C6 = Kept(Range(a2) * c2 - q2 * s2 - q3 * s3 + q4 * s4);
    p.G = Kept(C5 * C1 - C4 * C2);
    p.alpha3 = Kept((C4 * C3 - C6 * C1) / p.G);
    p.alpha4 = Kept((C5 * C3 - C6 * C2) / p.G);
    const auto kept = [](const Ranges& a) { return Ranges{Kept(a.x), Kept(a.y)}; };
    Ranges* a = p.acceleration;
    a[0] = kept(Sped_Arm(a2, q2, g.L2, th2));
    a[1] = kept(Sped_Arm(p.alpha4, q4, g.L4, p.th4));
    const Ranges arm = Sped_Arm(p.alpha3, q3, g.Rpa, p.th3 + Range(g.delta));
    a[2] = kept({arm.x + a[0].x, arm.y + a[0].y});
    a[3] = {Kept(Range(-g.L4) * q4), Kept(p.alpha4 * Range(g.L4))};
}

inline Solved_Position Solve_Position(const Links& g, double th2, double w2, double a2, double a2_before) {
    const Range crank{th2, kHalf};
    Solved_Position p;
    Solve_Place(g, crank, p);
    Solve_Speeds(g, crank, w2, p);
    Solve_Accelerations(g, crank, w2, a2, a2_before, p);
    return p;
}

}  // namespace verlink::test
