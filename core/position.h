// The formulas of one position, for a number alone, for pairs or for fours of them; nothing is stored here.
#pragma once

#include "core/number.h"
#include "core/rounding.h"
#include "core/trigonometry.h"

namespace verlink {

/// What all positions of a run have in common; lengths and radians.
struct LinkageShape {
    double L1, L2, L3, L4, Rpa, DeltaRad;
    double Sign;                ///< `CircuitSign`
    double K1, K2, K3, K4, K5;  ///< Freudenstein's constants
    double Sum;                 ///< finite unless one of them overflowed
};

inline LinkageShape Shape_Of(double L1, double L2, double L3, double L4, double Rpa, double DeltaRad, double Sign) {
    LinkageShape g{L1, L2, L3, L4, Rpa, DeltaRad, Sign, 0, 0, 0, 0, 0, 0};
    Rounding<double> r;
    g.K1 = r(L1 / L2);
    g.K2 = r(L1 / L4);
    g.K3 = r((L2 * L2 - L3 * L3 + L4 * L4 + L1 * L1) / (2 * L2 * L4));
    g.K4 = r(L1 / L3);
    g.K5 = r((L4 * L4 - L1 * L1 - L2 * L2 - L3 * L3) / (2 * L2 * L3));
    g.Sum = r.Sum();
    return g;
}

/// A crank angle and all that follows from it, in the local frame and stored length units; V is double, `Pair` or
/// `Quad`. The sums are finite unless something overflowed so far. Beyond the first refusal, in the order of the
/// fields, the numbers mean nothing.
template <class V>
struct Position {
    using Float = Stored<V>;
    using Sum = typename Rounding<V>::SumType;

    V Theta2, Omega2, Alpha2;  ///< given: radians, rad/s, rad/s^2
    V Alpha2Before;            ///< given: what the first acceleration term takes for Alpha2
    V SinTheta2, CosTheta2;
    V A, D4;  ///< refused for D4 < 0 or A = 0
    Sum ClosureSum;
    V Theta4, SinTheta4, CosTheta4;
    V D, D3;  ///< refused for D3 < 0, and later for D = 0
    Sum CouplerSum;
    Float Ax, Ay;
    V Theta3, SinTheta3, CosTheta3, SinDelta3, CosDelta3;
    Float Px, Py, Bx, By;
    V S34, S42, S23;  ///< sines of the differences of the link angles; refused for S34 = 0
    Float Omega3, Omega4;
    V Omega2Sq, Omega3Sq, Omega4Sq;
    Float Vel[3][2];
    V G;  ///< refused for G = 0
    Sum AccelerationSum;
    Float Alpha3, Alpha4;
    Float Acc[5][2];
    Rounding<V> All;
};

/// A root of A x^2 + B x + C = 0; `root` is that of its discriminant, with the sign of the circuit. Beside a small A
/// the usual numerator may be what two numbers of nearly the same size leave of each other; there the same root's other
/// form keeps their digits.
template <class V>
inline V Root_Of_Quadratic(V A, V B, V C, V root) {
    const auto cancels = 256 * A * A < B * root;
    return If(cancels, 2 * C, -B + root) / If(cancels, -B - root, 2 * A);
}

/// Both quadratics of the half-angle substitution into Freudenstein's equation. Leaves the tangents of the half angles
/// in Theta4 and Theta3. Away from toggles the loop closes to 6e-7 of the ground link, beside a vanishing leading
/// coefficient too (tests/core/solver_test.cpp).
template <class V>
inline void Close_Loop(const LinkageShape& g, Position<V>& p) {
    const V s2 = p.SinTheta2, c2 = p.CosTheta2;
    Rounding<V> r;
    p.A = r(g.K3 + c2 - g.K1 - g.K2 * c2);
    const V B = r(-2 * s2);
    const V C = r(g.K3 + g.K1 - (g.K2 + 1) * c2);
    p.D4 = r(B * B - 4 * p.A * C);
    p.ClosureSum = r.Sum();
    p.Theta4 = Root_Of_Quadratic(p.A, B, C, g.Sign * Sqrt(p.D4));
    p.D = r((g.K4 + 1) * c2 + g.K5 - g.K1);
    const V E = B;
    const V F = r((g.K4 - 1) * c2 + g.K5 + g.K1);
    p.D3 = r(E * E - 4 * p.D * F);
    p.CouplerSum = r.Sum();
    p.Theta3 = Root_Of_Quadratic(p.D, E, F, g.Sign * Sqrt(p.D3));
    p.All = r;
}

template <class V>
inline void Place_Points(const LinkageShape& g, Position<V>& p) {
    Rounding<V> r = p.All;
    const V Ax = r.Keep(p.Ax, g.L2 * p.CosTheta2), Ay = r.Keep(p.Ay, g.L2 * p.SinTheta2);
    r.Keep(p.Px, g.Rpa * p.CosDelta3 + Ax);
    r.Keep(p.Py, g.Rpa * p.SinDelta3 + Ay);
    r.Keep(p.Bx, g.L4 * p.CosTheta4 + g.L1);
    r.Keep(p.By, g.L4 * p.SinTheta4);
    p.All = r;
}

/// Speeds, by the derivative of the loop closure.
template <class V>
inline void Move(const LinkageShape& g, Position<V>& p) {
    const double L2 = g.L2, L3 = g.L3, L4 = g.L4, Rpa = g.Rpa;
    const V s2 = p.SinTheta2, c2 = p.CosTheta2, s4 = p.SinTheta4, c4 = p.CosTheta4;
    const V sP = p.SinDelta3, cP = p.CosDelta3, w2 = p.Omega2;
    Rounding<V> r = p.All;
    const V S43 = -p.S34;  // to the bit, as the sine is odd
    const V w3 = r.Keep(p.Omega3, w2 * L2 / L3 * p.S42 / p.S34);
    const V w4 = r.Keep(p.Omega4, w2 * L2 / L4 * p.S23 / S43);
    p.Omega2Sq = r(w2 * w2);
    p.Omega3Sq = r(w3 * w3);
    p.Omega4Sq = r(w4 * w4);
    const V vx = r.Keep(p.Vel[0][0], w2 * L2 * -s2), vy = r.Keep(p.Vel[0][1], w2 * L2 * c2);
    r.Keep(p.Vel[1][0], w4 * L4 * -s4);
    r.Keep(p.Vel[1][1], w4 * L4 * c4);
    r.Keep(p.Vel[2][0], w3 * Rpa * -sP + vx);
    r.Keep(p.Vel[2][1], w3 * Rpa * cP + vy);
    p.All = r;
}

/// Accelerations, by the loop closure differentiated twice; all but point 4.
template <class V>
inline void Accelerate(const LinkageShape& g, Position<V>& p) {
    const double L2 = g.L2, L3 = g.L3, L4 = g.L4, Rpa = g.Rpa;
    const V s2 = p.SinTheta2, c2 = p.CosTheta2, s3 = p.SinTheta3, c3 = p.CosTheta3, s4 = p.SinTheta4, c4 = p.CosTheta4;
    const V sP = p.SinDelta3, cP = p.CosDelta3, a2 = p.Alpha2;
    const V w2sq = p.Omega2Sq, w3sq = p.Omega3Sq, w4sq = p.Omega4Sq;
    Rounding<V> r = p.All;
    const V C1 = r(L4 * s4), C2 = r(L3 * s3);
    const V C3 = r(p.Alpha2Before * L2 * s2 + w2sq * L2 * c2 + w3sq * L3 * c3 - w4sq * L4 * c4);
    const V C4 = r(L4 * c4), C5 = r(L3 * c3);
    const V C6 = r(a2 * L2 * c2 - w2sq * L2 * s2 - w3sq * L3 * s3 + w4sq * L4 * s4);
    p.G = r(C5 * C1 - C4 * C2);
    p.AccelerationSum = r.Sum();
    const V a3 = r.Keep(p.Alpha3, (C4 * C3 - C6 * C1) / p.G);
    const V a4 = r.Keep(p.Alpha4, (C5 * C3 - C6 * C2) / p.G);
    const V ax = r.Keep(p.Acc[0][0], a2 * L2 * -s2 + w2sq * L2 * -c2);
    const V ay = r.Keep(p.Acc[0][1], w2sq * L2 * -s2 + a2 * L2 * c2);
    r.Keep(p.Acc[1][0], a4 * L4 * -s4 + w4sq * L4 * -c4);
    r.Keep(p.Acc[1][1], w4sq * L4 * -s4 + a4 * L4 * c4);
    r.Keep(p.Acc[2][0], w3sq * Rpa * -cP + ax + a3 * Rpa * -sP);
    r.Keep(p.Acc[2][1], w3sq * Rpa * -sP + ay + a3 * Rpa * cP);
    r.Keep(p.Acc[3][0], -L4 * w4sq);
    r.Keep(p.Acc[3][1], a4 * L4);
    p.All = r;
}

/// Direction of (x, y) in radians, -pi/2 to 3 pi/2, 0 at the origin; Angle is the arc tangent of y / x.
template <class V>
inline V Direction(V x, V y, V Angle) {
    const V upright = If(y > 0, Both<V>(kHalfPi), If(y < 0, Both<V>(-kHalfPi), V{}));
    return If(x == 0, upright, If(x < 0, Angle + kPi, Angle));
}

/// Direction of the acceleration of P from link 3, radians; Angle is the arc tangent of its components.
template <class V>
inline V Angle_On_Coupler(const Position<V>& p, V Angle) {
    const V degrees = Rounded(Rounded(Direction(Wide(p.Acc[2][0]), Wide(p.Acc[2][1]), Angle)) * kRadToDeg);
    return Rounded(degrees - p.Theta3 * kRadToDeg) * kDegToRad;
}

/// The acceleration of P on link 3's axes.
template <class V>
inline void Resolve_On_Coupler(Position<V>& p, V Sine, V Cosine) {
    const V x = Wide(p.Acc[2][0]), y = Wide(p.Acc[2][1]);
    const V magnitude = p.All(Sqrt(x * x + y * y));
    p.All.Keep(p.Acc[4][0], magnitude * Cosine);
    p.All.Keep(p.Acc[4][1], magnitude * Sine);
}

/// The angles of N positions and how far links 3 and 4 are from lying in line; each kind of work for all of them in
/// turn, so that their waits overlap.
template <class V, int N>
inline void Solve_Angles(const LinkageShape& g, Position<V> (&positions)[N]) {
    for (auto& p : positions) Sin_Cos(p.Theta2, p.SinTheta2, p.CosTheta2);
    for (auto& p : positions) Close_Loop(g, p);
    for (auto& p : positions) p.Theta4 = Rounded(2 * Atan(p.Theta4));
    for (auto& p : positions) p.Theta3 = Rounded(2 * Atan(p.Theta3));
    for (auto& p : positions) p.S34 = Sin(p.Theta3 - p.Theta4);
}

/// Then the points.
template <class V, int N>
inline void Solve_Points(const LinkageShape& g, Position<V> (&positions)[N]) {
    for (auto& p : positions) Sin_Cos(p.Theta4, p.SinTheta4, p.CosTheta4);
    for (auto& p : positions) Sin_Cos(g.DeltaRad + p.Theta3, p.SinDelta3, p.CosDelta3);
    for (auto& p : positions) Place_Points(g, p);
}

/// All but the acceleration on link 3's axes.
template <class V, int N>
inline void Solve_Motion(const LinkageShape& g, Position<V> (&positions)[N]) {
    Solve_Angles(g, positions);
    Solve_Points(g, positions);
    for (auto& p : positions) Sin_Cos(p.Theta3, p.SinTheta3, p.CosTheta3);
    for (auto& p : positions) p.S42 = Sin(p.Theta4 - p.Theta2);
    for (auto& p : positions) p.S23 = Sin(p.Theta2 - p.Theta3);
    for (auto& p : positions) Move(g, p);
    for (auto& p : positions) Accelerate(g, p);
}

/// The rest of it.
template <class V, int N>
inline void Solve_On_Coupler(Position<V> (&positions)[N]) {
    V angle[N], sine[N], cosine[N];
    for (int i = 0; i < N; ++i) angle[i] = Atan(Wide(positions[i].Acc[2][1]) / Wide(positions[i].Acc[2][0]));
    for (int i = 0; i < N; ++i) angle[i] = Angle_On_Coupler(positions[i], angle[i]);
    for (int i = 0; i < N; ++i) Sin_Cos(angle[i], sine[i], cosine[i]);
    for (int i = 0; i < N; ++i) Resolve_On_Coupler(positions[i], sine[i], cosine[i]);
}

/// All of it.
template <class V, int N>
inline void Solve(const LinkageShape& g, Position<V> (&positions)[N]) {
    Solve_Motion(g, positions);
    Solve_On_Coupler(positions);
}

/// How stored angles are wrapped, once: "abs" below 0, "180" above 180.
enum class Wrap { kNone, kAbs, k180 };

/// Global angles of links 2, 3 and 4 and the transmission angle, degrees, as they are stored.
template <class V>
inline void Store_Angles(const Position<V>& p, double Link1Angle, Wrap wrap, Rounding<V>& r, Stored<V> (&Theta)[4]) {
    V angles[3] = {p.Theta2, p.Theta3, p.Theta4};
    for (int link = 0; link <= 2; ++link) {
        V angle = Rounded(angles[link] * kRadToDeg + Link1Angle);
        if (wrap == Wrap::kAbs) angle = If(angle < 0, angle + 360, angle);
        if (wrap == Wrap::k180) angle = If(angle > 180, angle - 360, angle);
        angles[link] = r.Keep(Theta[link], angle);
    }
    V transmission = Rounded(angles[2] - angles[1]);
    transmission = If(transmission < 0, -transmission, transmission);
    transmission = Rounded(If(transmission > 180, 360 - transmission, transmission));
    r.Keep(Theta[3], If(transmission > 90, 180 - transmission, transmission));
}

}  // namespace verlink
