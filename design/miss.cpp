// How far from its positions a linkage is once its numbers are rounded.
#include <algorithm>

#include "core/numeric.h"
#include "core/position.h"
#include "design/judge.h"
#include "dynamics/shown_length.h"

namespace verlink::design {

namespace {

/// A linkage in the numbers that the program keeps of it.
struct Kept {
    Links links;
    double Rpa, delta, ground;  ///< radians
    Point O2;
};

Kept Kept_Of(const FourBar& linkage) {
    return {Links_Of(linkage), Distance(linkage.coupler, linkage.crank.moving), Delta_Of(linkage),
            Ground_Angle(linkage), linkage.crank.fixed};
}

/// The pivot is no number of the linkage and stays where it is.
Kept As_Shown(const Kept& exact, int units) {
    constexpr int kAngleDecimals = 2;
    const int decimals = Shown_Length(units).decimals;
    const auto length = [&](double value) { return FNRound(value, decimals); };
    const auto angle = [&](double radians) { return FNRound(radians / kDegree, kAngleDecimals) * kDegree; };
    const auto& [links, Rpa, delta, ground, O2] = exact;
    return {{length(links.L1), length(links.L2), length(links.L3), length(links.L4)},
            length(Rpa),
            angle(delta),
            angle(ground),
            O2};
}

struct Coupler {
    Point P;
    double angle;
};

/// As `Calculate` finds them, on the circuit of that sign.
std::optional<Coupler> Coupler_At(const LinkageShape& shape, const Kept& kept, double crank) {
    Position<double> p{};
    p.Theta2 = Rounded(crank - kept.ground);
    Sin_Cos(p.Theta2, p.SinTheta2, p.CosTheta2);
    Close_Loop(shape, p);
    if (!(p.D4 >= 0) || !(p.D3 >= 0) || p.A == 0 || p.D == 0) return {};
    const double th3 = Rounded(2 * Atan(p.Theta3));
    double sine, cosine;
    Sin_Cos(shape.DeltaRad + th3, sine, cosine);
    const Point local(Rounded(shape.Rpa * cosine + Rounded(shape.L2 * p.CosTheta2)),
                      Rounded(shape.Rpa * sine + Rounded(shape.L2 * p.SinTheta2)));
    return Coupler{kept.O2 + Times(std::polar(1.0, kept.ground), local), th3 + kept.ground};
}

}  // namespace

Miss Miss_Of(const FourBar& linkage, bool open, const std::vector<Carried>& positions, std::span<const double> crank,
             int units, bool as_shown) {
    const Kept exact = Kept_Of(linkage), kept = as_shown ? As_Shown(exact, units) : exact;
    const auto& l = kept.links;
    Miss miss;
    if (std::min({l.L1, l.L2, l.L3, l.L4}) == 0) return {false};
    const LinkageShape shape = Shape_Of(Rounded(l.L1), Rounded(l.L2), Rounded(l.L3), Rounded(l.L4), Rounded(kept.Rpa),
                                        Rounded(kept.delta), open ? -1 : 1);
    const Point first = linkage.other.moving - linkage.crank.moving;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const auto coupler = Coupler_At(shape, kept, crank[i]);
        if (!coupler) return {false};
        const double wanted = std::arg(Times(first, positions[i].turn));
        miss.place = std::max(miss.place, Distance(coupler->P, positions[i].to));
        miss.angle = std::max(miss.angle, std::abs(std::remainder(coupler->angle - wanted, kTurn)) / kDegree);
    }
    return miss;
}

}  // namespace verlink::design
