// The triangle of diagonal, coupler and rocker, differentiated twice.
#include "checks/pose.h"

#include <cmath>

namespace verlink::checks {

namespace {

/// The angle between sides d and a of a triangle whose third side is c, as d changes with the crank: d itself and its
/// first and second derivatives.
Turning Corner(double d, double d1, double d2, double a, double c) {
    const double rest = (a * a - c * c) / (2 * a);
    const double cosine = d / (2 * a) + rest / d;
    const double slope = 1 / (2 * a) - rest / (d * d), bend = 2 * rest / (d * d * d);
    Turning corner;
    corner.angle = std::acos(cosine);
    const double sine = std::sin(corner.angle);
    corner.first = -slope * d1 / sine;
    corner.second = -(bend * d1 * d1 + slope * d2 + cosine * corner.first * corner.first) / sine;
    return corner;
}

/// A vector of constant length at an angle, and its derivatives.
void Add_Arm(Vector arm, const Turning& t, Vector& at, Vector& first, Vector& second) {
    at += arm;
    first += kQuarter * t.first * arm;
    second += (kQuarter * t.second - t.first * t.first) * arm;
}

}  // namespace

Shape Shape_Of(const Geometry& g, const Drive& drive) {
    return {g.L1, g.L2, g.L3, g.L4, g.Rpa, g.DeltaRad, drive.CircuitSign < 0};
}

Pose Pose_At(const Shape& s, double th2) {
    Pose p;
    p.th2 = {th2, 1, 0};
    Add_Arm(std::polar(s.L2, th2), p.th2, p.A, p.A1, p.A2);
    // The diagonal from A to O4 and its logarithm, whose parts are the length's and the angle.
    const Vector z = s.L1 - p.A, ratio = -p.A1 / z, bend = -p.A2 / z - ratio * ratio;
    const double d = std::abs(z), d1 = d * ratio.real(), d2 = d * (bend.real() + ratio.real() * ratio.real());
    const Turning at_A = Corner(d, d1, d2, s.L3, s.L4), at_O4 = Corner(d, d1, d2, s.L4, s.L3);
    const double side = s.open ? 1 : -1;
    p.th3 = {std::arg(z) + side * at_A.angle, ratio.imag() + side * at_A.first, bend.imag() + side * at_A.second};
    p.th4 = {std::arg(-z) - side * at_O4.angle, ratio.imag() - side * at_O4.first, bend.imag() - side * at_O4.second};
    p.closes = std::isfinite(p.th3.second) && std::isfinite(p.th4.second);
    if (!p.closes) return p;
    p.B = s.L1;
    Add_Arm(std::polar(s.L4, p.th4.angle), p.th4, p.B, p.B1, p.B2);
    p.P = p.A;
    p.P1 = p.A1;
    p.P2 = p.A2;
    Add_Arm(std::polar(s.Rpa, p.th3.angle + s.delta), p.th3, p.P, p.P1, p.P2);
    return p;
}

}  // namespace verlink::checks
