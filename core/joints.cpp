// Crossings of lines, and the loop closure by the crank angle.
#include "core/joints.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace verlink {

namespace {

constexpr Spot kTurn{0, 1};
/// Sines and quotients below it are roundings of the single numbers that joints are stored in.
constexpr double kRounding = 1e-6;

double Cross(Spot a, Spot b) { return a.real() * b.imag() - a.imag() * b.real(); }

std::optional<Pole> Meeting(Spot from1, Spot to1, Spot from2, Spot to2) {
    const Spot u = to1 - from1, w = to2 - from2, apart = from2 - from1;
    const double across = Cross(u, w), lengths = std::abs(u) * std::abs(w);
    if (!(lengths > 0)) return std::nullopt;
    if (std::abs(across) > kRounding * lengths) return Pole{from1 + u * (Cross(apart, w) / across)};
    const double beside = std::abs(Cross(apart, u)) / std::abs(u);
    if (beside <= kRounding * std::max(std::abs(apart), std::abs(w))) return std::nullopt;
    return Pole{.at = {}, .at_infinity = true};
}

}  // namespace

std::optional<Pole> Pole_13(const Joints& joints) { return Meeting(joints.O2, joints.A, joints.O4, joints.B); }

std::optional<Pole> Pole_24(const Joints& joints) { return Meeting(joints.A, joints.B, joints.O2, joints.O4); }

std::optional<Curvature> Curvature_At_P(const Joints& joints) {
    const Spot crank = joints.A - joints.O2, u = joints.B - joints.A, w = joints.B - joints.O4;
    const Spot arm = joints.P - joints.A;
    const double across = Cross(u, w);
    if (!(std::abs(across) > kRounding * std::abs(u) * std::abs(w))) return std::nullopt;
    // Per radian of the crank, and per radian squared.
    const double omega3 = -Cross(crank, w) / across, omega4 = -Cross(crank, u) / across;
    const Spot rest = (crank + omega3 * omega3 * u - omega4 * omega4 * w) / kTurn;
    const double alpha3 = Cross(rest, w) / across;
    const Spot speed = kTurn * crank + kTurn * omega3 * arm;
    const Spot acceleration = -crank + kTurn * alpha3 * arm - omega3 * omega3 * arm;

    const double pace = std::abs(speed);
    const double largest = std::max(std::abs(crank), std::abs(omega3) * std::abs(arm));
    if (!(pace > kRounding * largest) || !std::isfinite(pace)) return std::nullopt;
    const Spot along = speed / pace;
    const double bend = Cross(speed, acceleration);
    if (bend == 0) return Curvature{{}, along, std::numeric_limits<double>::infinity()};
    const double reach = pace * pace * pace / bend;
    return Curvature{joints.P + kTurn * along * reach, along, std::abs(reach)};
}

}  // namespace verlink
