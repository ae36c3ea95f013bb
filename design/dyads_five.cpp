// The dyads of five positions, as the crossings of two conics.
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "design/dyads.h"

namespace verlink::design {

namespace {

constexpr int kEquations = 4, kUnknowns = 6;

/// A linear form c0 + c1 s + c2 t of two free numbers.
using Form = std::array<double, 3>;

/// Coefficients of 1, s, t, s^2, s t, t^2.
struct Conic {
    std::array<double, 6> c{};

    void Add(const Form& f, double factor) {
        for (std::size_t i = 0; i < 3; ++i) c[i] += factor * f[i];
    }
    void Add(const Form& f, const Form& g, double factor) {
        c[0] += factor * f[0] * g[0];
        c[1] += factor * (f[0] * g[1] + f[1] * g[0]);
        c[2] += factor * (f[0] * g[2] + f[2] * g[0]);
        c[3] += factor * f[1] * g[1];
        c[4] += factor * (f[1] * g[2] + f[2] * g[1]);
        c[5] += factor * f[2] * g[2];
    }
    double At(double s, double t) const {
        return c[0] + c[1] * s + c[2] * t + c[3] * s * s + c[4] * s * t + c[5] * t * t;
    }
    double By_S(double s, double t) const { return c[1] + 2 * c[3] * s + c[4] * t; }
    double By_T(double s, double t) const { return c[2] + c[4] * s + 2 * c[5] * t; }
};

/// Rows of (p, q, x, y, u, v | right side): p and q are scalar and cross product of centre (u, v) and pivot (x, y),
/// from the body's point in position 1 and in spans.
struct Equations {
    double a[kEquations][kUnknowns + 1];
};

Equations Equations_Of(std::span<const Carried> five, double span) {
    Equations e{};
    for (int row = 0; row < kEquations; ++row) {
        const Carried& carried = five[static_cast<std::size_t>(row) + 1];
        const Point d = (carried.to - carried.from) / span, g = Times(std::conj(carried.turn), d);
        const double entries[] = {
            1 - carried.turn.real(), carried.turn.imag(), g.real(), g.imag(), -d.real(), -d.imag(), -std::norm(d) / 2};
        std::ranges::copy(entries, e.a[row]);
    }
    return e;
}

/// All six unknowns by two of them, found by elimination with the largest pivot of all. Where fewer than four of the
/// equations say something, these are of rounding or no numbers; the circle is asked of what they give.
void Eliminate(Equations& e, std::array<Form, kUnknowns>& forms) {
    std::array<int, kUnknowns> order{0, 1, 2, 3, 4, 5};
    for (int k = 0; k < kEquations; ++k) {
        int row = k, column = k;
        for (int i = k; i < kEquations; ++i)
            for (int j = k; j < kUnknowns; ++j)
                if (std::abs(e.a[i][j]) > std::abs(e.a[row][column])) row = i, column = j;
        std::swap(e.a[k], e.a[row]);
        for (auto& r : e.a) std::swap(r[k], r[column]);
        std::swap(order[static_cast<std::size_t>(k)], order[static_cast<std::size_t>(column)]);
        for (int i = 0; i < kEquations; ++i) {
            if (i == k) continue;
            const double factor = e.a[i][k] / e.a[k][k];
            for (int j = k; j <= kUnknowns; ++j) e.a[i][j] -= factor * e.a[k][j];
        }
    }
    for (int k = 0; k < kEquations; ++k) {
        const double* row = e.a[k];
        forms[static_cast<std::size_t>(order[static_cast<std::size_t>(k)])] = {row[6] / row[k], -row[4] / row[k],
                                                                               -row[5] / row[k]};
    }
    forms[static_cast<std::size_t>(order[4])] = {0, 1, 0};
    forms[static_cast<std::size_t>(order[5])] = {0, 0, 1};
}

/// s and t as a turned pair, so that no root of the one belongs to two of the other but by chance.
void Turn(std::array<Form, kUnknowns>& forms) {
    constexpr double kCosine = 0.8, kSine = 0.6;
    for (Form& f : forms) f = {f[0], kCosine * f[1] + kSine * f[2], kCosine * f[2] - kSine * f[1]};
}

using Quartic = std::array<double, 5>;

/// The resultant of both conics by t, a polynomial of s, lowest power first.
Quartic Resultant(const Conic& f, const Conic& g) {
    // A t^2 + B t + C with B and C polynomials of s.
    const auto A = [](const Conic& k) { return k.c[5]; };
    const auto B = [](const Conic& k) { return std::array{k.c[2], k.c[4]}; };
    const auto C = [](const Conic& k) { return std::array{k.c[0], k.c[1], k.c[3]}; };
    std::array<double, 3> ac{};
    std::array<double, 2> ab{};
    std::array<double, 4> bc{};
    for (std::size_t i = 0; i < 3; ++i) ac.at(i) = A(f) * C(g).at(i) - A(g) * C(f).at(i);
    for (std::size_t i = 0; i < 2; ++i) ab.at(i) = A(f) * B(g).at(i) - A(g) * B(f).at(i);
    for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t j = 0; j < 3; ++j) bc.at(i + j) += B(f).at(i) * C(g).at(j) - B(g).at(i) * C(f).at(j);
    Quartic r{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) r.at(i + j) += ac.at(i) * ac.at(j);
    for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t j = 0; j < 4; ++j) r.at(i + j) -= ab.at(i) * bc.at(j);
    return r;
}

/// All roots at once, by the iteration of Durand and Kerner; roots at infinity are left out. Roots that are far are
/// not: where the body hardly turns all of them are, and a coefficient says little of that.
std::vector<Point> Roots_Of(Quartic r) {
    std::size_t degree = r.size() - 1;
    while (degree > 0 && r[degree] == 0) --degree;
    std::vector<Point> roots(degree);
    Point begin = 1;
    for (Point& root : roots) {
        root = begin;
        begin *= Point(0.4, 0.9);
    }
    for (int turn = 0; turn < 200; ++turn)
        for (std::size_t i = 0; i < degree; ++i) {
            Point value = r[degree], others = r[degree];
            for (std::size_t k = degree; k-- > 0;) value = value * roots[i] + r[k];
            for (std::size_t j = 0; j < degree; ++j)
                if (j != i) others *= roots[i] - roots[j];
            if (others != 0.0) roots[i] -= value / others;
        }
    return roots;
}

/// How far a place is from lying on both conics.
double Off(const Conic& f, const Conic& g, double s, double t) { return std::abs(f.At(s, t)) + std::abs(g.At(s, t)); }

/// Newton's method from a place near a crossing, as long as it comes nearer: at a double crossing, and where there is
/// none, a step may lead anywhere. Whether it is a crossing is asked of the circle.
void Polish(const Conic& f, const Conic& g, double& s, double& t) {
    for (int i = 0; i < 50; ++i) {
        const double fs = f.By_S(s, t), ft = f.By_T(s, t), gs = g.By_S(s, t), gt = g.By_T(s, t);
        const double determinant = fs * gt - ft * gs, F = f.At(s, t), G = g.At(s, t);
        const double next_s = s - (F * gt - G * ft) / determinant, next_t = t - (G * fs - F * gs) / determinant;
        if (!(Off(f, g, next_s, next_t) < Off(f, g, s, t))) return;
        s = next_s;
        t = next_t;
    }
}

/// The value of t that goes with a root of the resultant: of those that either conic has there, the one that is nearest
/// to both.
double Partner(const Conic& f, const Conic& g, double s) {
    double best = 0, least = std::numeric_limits<double>::infinity();
    for (const Conic* conic : {&f, &g}) {
        const double a = conic->c[5], b = conic->c[2] + conic->c[4] * s;
        const double c = conic->c[0] + conic->c[1] * s + conic->c[3] * s * s;
        const double root = std::sqrt(std::max(0.0, b * b - 4 * a * c)), q = -(b + std::copysign(root, b)) / 2;
        for (const double t : {q / a, c / q}) {
            const double off = Off(f, g, s, t);
            if (off >= least) continue;
            least = off;
            best = t;
        }
    }
    return best;
}

bool On_A_Circle(std::span<const Carried> five, const Dyad& dyad, double span) {
    constexpr double kExact = 1e-9, kFar = 1e5;
    const double radius = Distance(dyad.fixed, dyad.moving);
    if (!(radius <= kFar * span)) return false;
    return std::ranges::all_of(five, [&](const Carried& carried) {
        return std::abs(Distance(carried.Of(dyad.moving), dyad.fixed) - radius) <= kExact * (radius + span);
    });
}

}  // namespace

std::vector<Dyad> Dyads_Through_Five(std::span<const Carried> five) {
    double span = 0;
    for (const Carried& carried : five) span = std::max(span, Distance(carried.from, carried.to));
    Equations equations = Equations_Of(five, span);
    std::array<Form, kUnknowns> z;
    Eliminate(equations, z);
    Turn(z);
    const auto& [p, q, x, y, u, v] = z;
    Conic scalar, cross;
    scalar.Add(p, -1);
    scalar.Add(x, u, 1);
    scalar.Add(y, v, 1);
    cross.Add(q, -1);
    cross.Add(u, y, 1);
    cross.Add(v, x, -1);

    std::vector<Dyad> dyads;
    for (const Point root : Roots_Of(Resultant(scalar, cross))) {
        double s = root.real(), t = Partner(scalar, cross, s);
        Polish(scalar, cross, s, t);
        const auto at = [&](const Form& f) { return span * (f[0] + f[1] * s + f[2] * t); };
        const Point origin = five.front().from;
        const Dyad dyad{origin + Point(at(u), at(v)), origin + Point(at(x), at(y))};
        const auto same = [&](const Dyad& other) {
            return Distance(other.fixed, dyad.fixed) + Distance(other.moving, dyad.moving) <= 1e-6 * span;
        };
        if (On_A_Circle(five, dyad, span) && std::ranges::none_of(dyads, same)) dyads.push_back(dyad);
    }
    return dyads;
}

}  // namespace verlink::design
