// A four-bar solved in long double by other means than the program's: circles, and linear equations for the rates.
#pragma once

#include <complex>
#include <numbers>

namespace verlink::test {

using Exact = long double;
using Point = std::complex<Exact>;

inline Exact Radians(Exact degrees) { return degrees * std::numbers::pi_v<Exact> / 180; }
inline Exact Degrees(Exact radians) { return radians * 180 / std::numbers::pi_v<Exact>; }
/// A point at that distance and direction.
inline Point Toward(Exact length, Exact radians) { return std::polar<Exact>(1, radians) * length; }

struct ExactLinkage {
    Exact L1, L2, L3, L4, Rpa, Delta;  ///< degrees
    Exact Ground = 0;                  ///< degrees, global
    bool crossed = false;

    struct Position {
        bool closes = false;
        Exact th3 = 0, th4 = 0;  ///< radians, global
        Exact om3 = 0, om4 = 0, al3 = 0, al4 = 0;
        Point A, B, P, vA, vB, vP, aA, aB, aP;  ///< global
        Point pole;                             ///< instant centre of the coupler on the ground, global
    };

    /// Crank angle in degrees, global, with its rates.
    Position At(Exact theta2, Exact om2 = 0, Exact al2 = 0) const {
        const Point i(0, 1);
        Position p;
        const Exact th2 = Radians(theta2);
        const Point O4 = Toward(L1, Radians(Ground));
        p.A = Toward(L2, th2);
        // B is where the circle about A with the coupler meets that about O4 with the rocker.
        const Point gap = O4 - p.A;
        const Exact reach = std::abs(gap);
        const Exact along = (L3 * L3 - L4 * L4 + reach * reach) / (2 * reach);
        const Exact height2 = L3 * L3 - along * along;
        if (height2 < 0) return p;
        p.closes = true;
        p.B = p.A + gap / reach * Point(along, crossed ? -std::sqrt(height2) : std::sqrt(height2));
        p.th3 = std::arg(p.B - p.A);
        p.th4 = std::arg(p.B - O4);
        p.P = p.A + Toward(Rpa, p.th3 + Radians(Delta));

        // The loop's first and second derivative are linear in the rates of links 3 and 4.
        const Point u2 = p.A, u3 = p.B - p.A, u4 = p.B - O4;
        const auto solve = [&](Point right, Exact& of3, Exact& of4) {
            const Point a = i * u3, b = -i * u4;
            const Exact det = a.real() * b.imag() - b.real() * a.imag();
            of3 = (right.real() * b.imag() - b.real() * right.imag()) / det;
            of4 = (a.real() * right.imag() - right.real() * a.imag()) / det;
        };
        solve(-i * om2 * u2, p.om3, p.om4);
        solve(-(i * al2 - om2 * om2) * u2 + p.om3 * p.om3 * u3 - p.om4 * p.om4 * u4, p.al3, p.al4);
        const Point arm = p.P - p.A;
        p.vA = i * om2 * u2;
        p.vB = i * p.om4 * u4;
        p.vP = p.vA + i * p.om3 * arm;
        p.aA = (i * al2 - om2 * om2) * u2;
        p.aB = (i * p.al4 - p.om4 * p.om4) * u4;
        p.aP = p.aA + (i * p.al3 - p.om3 * p.om3) * arm;
        // Where the coupler's material is at rest.
        if (p.om3 != 0) p.pole = p.A + i * p.vA / p.om3;
        return p;
    }

    /// The pole of a position as the coupler carries it, with the coupler laid where it was at another position.
    static Point Carried(const Position& p, const Position& laid) {
        return (p.pole - p.A) * std::polar<Exact>(1, laid.th3 - p.th3) + laid.A;
    }
};

}  // namespace verlink::test
