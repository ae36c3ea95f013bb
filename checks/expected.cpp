// The solver's operations in their order, each with its rounding.
#include "checks/expected.h"

namespace verlink::checks {

namespace {

/// By half an angle's tangent from A t^2 + B t + C = 0.
Estimate Half_Angle(Estimate A, Estimate B, Estimate C, double sign) {
    const Estimate D = Stored(B * B - 4 * A * C);
    return Stored(2 * Arc_Tangent((-B + sign * Root(D)) / (2 * A)));
}

void Close(const Shape& g, Expected& e) {
    const Estimate c2 = Cosine(e.th2), s2 = Sine(e.th2);
    const double sign = g.open ? -1 : 1;
    const Estimate K1 = Stored(Estimate(g.L1 / g.L2)), K2 = Stored(Estimate(g.L1 / g.L4));
    const Estimate K4 = Stored(Estimate(g.L1 / g.L3));
    const Estimate K3 = Stored(Estimate((g.L2 * g.L2 - g.L3 * g.L3 + g.L4 * g.L4 + g.L1 * g.L1) / (2 * g.L2 * g.L4)));
    const Estimate K5 = Stored(Estimate((g.L4 * g.L4 - g.L1 * g.L1 - g.L2 * g.L2 - g.L3 * g.L3) / (2 * g.L2 * g.L3)));
    const Estimate B = Stored(-2 * s2);
    e.th4 = Half_Angle(Stored(K3 + c2 - K1 - K2 * c2), B, Stored(K3 + K1 - (K2 + 1) * c2), sign);
    e.th3 = Half_Angle(Stored((K4 + 1) * c2 + K5 - K1), B, Stored((K4 - 1) * c2 + K5 + K1), sign);
    e.A = Stored(g.L2 * Toward(e.th2));
    e.P = Stored(g.Rpa * Toward(e.th3 + g.delta) + e.A);
    e.B = Stored(g.L4 * Toward(e.th4) + Estimate2{g.L1, 0});
}

void Move(const Shape& g, const Driven& at, Expected& e) {
    const Estimate apart = Sine(e.th3 - e.th4);
    e.omega3 = Stored(at.omega2 * g.L2 / g.L3 * Sine(e.th4 - e.th2) / apart);
    e.omega4 = Stored(at.omega2 * g.L2 / g.L4 * Sine(e.th3 - e.th2) / apart);
    e.velocity[0] = Stored(at.omega2 * g.L2 * Aside(Toward(e.th2)));
    e.velocity[1] = Stored(e.omega4 * g.L4 * Aside(Toward(e.th4)));
    e.velocity[2] = Stored(e.omega3 * g.Rpa * Aside(Toward(e.th3 + g.delta)) + e.velocity[0]);
}

void Accelerate(const Shape& g, const Driven& at, Expected& e) {
    const Estimate w2 = Stored(Estimate(at.omega2 * at.omega2));
    const Estimate w3 = Stored(e.omega3 * e.omega3), w4 = Stored(e.omega4 * e.omega4);
    const Estimate2 u2 = Toward(e.th2), u3 = Toward(e.th3), u4 = Toward(e.th4), uP = Toward(e.th3 + g.delta);
    const Estimate C1 = Stored(g.L4 * u4.y), C2 = Stored(g.L3 * u3.y), C4 = Stored(g.L4 * u4.x);
    const Estimate C5 = Stored(g.L3 * u3.x);
    const Estimate C3 = Stored(at.alpha2_before * g.L2 * u2.y + w2 * g.L2 * u2.x + w3 * g.L3 * u3.x - w4 * g.L4 * u4.x);
    const Estimate C6 = Stored(at.alpha2 * g.L2 * u2.x - w2 * g.L2 * u2.y - w3 * g.L3 * u3.y + w4 * g.L4 * u4.y);
    e.determinant = Stored(C5 * C1 - C4 * C2);
    e.alpha3 = Stored((C4 * C3 - C6 * C1) / e.determinant);
    e.alpha4 = Stored((C5 * C3 - C6 * C2) / e.determinant);
    const auto arm = [](Estimate alpha, Estimate square, double length, const Estimate2& u) {
        return alpha * length * Aside(u) - square * length * u;
    };
    e.acceleration[0] = Stored(arm(at.alpha2, w2, g.L2, u2));
    e.acceleration[1] = Stored(arm(e.alpha4, w4, g.L4, u4));
    e.acceleration[2] = Stored(arm(e.alpha3, w3, g.Rpa, uP) + e.acceleration[0]);
    e.acceleration[3] = Stored(Estimate2{-g.L4 * w4, e.alpha4 * g.L4});
    // By a magnitude and by angles in degrees, which are stored as singles of up to a turn and a half.
    constexpr double kAngles = 10 * kHalfPlace;
    const Estimate2& P = e.acceleration[2];
    const double all = P.Error() + std::hypot(P.x.value, P.y.value) * (e.th3.error + kAngles);
    e.acceleration[4] = {{0, all}, {0, all}};
}

}  // namespace

Expected Expected_At(const Shape& shape, const Driven& at) {
    Expected e;
    // The angle is known from A's own place.
    // Sums with it are made in doubles, of which an angle of many turns leaves few digits.
    e.th2 = {at.th2, kHalfPlace + 0x1p-52 * std::abs(at.turned)};
    Close(shape, e);
    Move(shape, at, e);
    Accelerate(shape, at, e);
    return e;
}

}  // namespace verlink::checks
