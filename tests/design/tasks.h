// Tasks for the tests of design: given, by chance, and made from a linkage that is known.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "design/search.h"

namespace verlink::test {

/// A linkage, and its coupler by two circles: the formulas of these tests, which are not those of the search.
struct Known {
    std::complex<double> O2, O4, A, B, P;

    /// The body with the crank turned so far; none where the circles do not meet.
    std::optional<design::Place> At(double turn) const {
        const auto a = O2 + (A - O2) * std::exp(std::complex<double>(0, turn));
        const double l3 = std::abs(B - A), l4 = std::abs(B - O4), d = std::abs(O4 - a);
        const double cosine = (l3 * l3 + d * d - l4 * l4) / (2 * l3 * d);
        if (std::abs(cosine) >= 1) return {};
        const double side = std::imag(std::conj(O4 - A) * (B - A)) > 0 ? 1 : -1;
        const auto b = a + std::polar(l3, std::arg(O4 - a) + side * std::acos(cosine));
        const auto turned = (b - a) / (B - A);
        return design::Place{a + (P - A) * turned, std::arg(turned) * 180 / std::acos(-1.0)};
    }
};

inline design::FourBar Linkage_Of(const Known& known) { return {{known.O2, known.A}, {known.O4, known.B}, known.P}; }

/// Lengths 4, 1, 3.5 and 3 with the crank up.
inline Known Crank_Rocker(bool open = true) {
    Known known{{0, 0}, {4, 0}, {0, 1}, {}, {2, 3}};
    const double d = std::abs(known.O4 - known.A), angle = std::acos((3.5 * 3.5 + d * d - 9) / (7 * d));
    known.B = known.A + std::polar(3.5, std::arg(known.O4 - known.A) + (open ? angle : -angle));
    return known;
}

/// The same in another place, turned and scaled by a factor, with its coupler point beside the coupler.
inline Known Crank_Rocker_At(std::complex<double> place, std::complex<double> factor, bool open) {
    Known known = Crank_Rocker(open);
    known.P = known.A + 0.6 * (known.B - known.A) * std::polar(1.0, 0.7);
    for (auto* point : {&known.O2, &known.O4, &known.A, &known.B, &known.P}) *point = place + factor * *point;
    return known;
}

/// The positions of a linkage at crank angles, radians, the first of which is 0; none where it does not close at all.
inline std::optional<design::Task> Task_Of(const Known& known, const std::vector<double>& turns) {
    design::Task task;
    for (const double turn : turns) {
        const auto place = known.At(turn);
        if (!place) return {};
        task.positions.push_back(*place);
    }
    return task;
}

class Design : public testing::Test {
   protected:
    Design() {
        const char* given = std::getenv("VERLINK_SEED");
        seed = given ? static_cast<unsigned>(std::atol(given)) : std::random_device{}();
        engine.seed(seed);
    }
    double Number(double low, double high) { return std::uniform_real_distribution<>(low, high)(engine); }
    std::complex<double> Point(double size) { return {Number(-size, size), Number(-size, size)}; }
    std::string Trace() const { return "VERLINK_SEED=" + std::to_string(seed); }

    design::Task Random_Task(int positions) {
        design::Task task;
        for (int i = 0; i < positions; ++i) task.positions.push_back({Point(2), Number(-90, 90)});
        return task;
    }

    /// One that a linkage by chance does, with its crank turning one way.
    design::Task Task_Of_Random_Linkage(int positions, Known& known) {
        for (;;) {
            known = {Point(3), Point(3), Point(3), Point(3), Point(3)};
            std::vector<double> turns{0};
            for (int i = 1; i < positions; ++i) turns.push_back(turns.back() + Number(0.2, 1.2));
            bool closes = true;
            for (double turn = 0; turn <= turns.back(); turn += 0.01) closes = closes && known.At(turn).has_value();
            const auto task = Task_Of(known, turns);
            if (closes && task) return *task;
        }
    }

    unsigned seed;
    std::mt19937 engine;
};

}  // namespace verlink::test
