// What the tests of dyads and cognates share: vectors as complex numbers, chance, and positions run on a circuit.
#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <iostream>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using Vector = std::complex<double>;

/// The value as the record holds it.
inline double Stored(double value) { return Single(value); }
inline double Radians(double degrees) { return degrees * std::numbers::pi / 180; }
inline double Degrees(double radians) { return radians * 180 / std::numbers::pi; }
/// The unit vector in a direction of so many degrees.
inline Vector Toward(double degrees) { return std::polar(1.0, Radians(degrees)); }
/// How much a vector changes that turns by so many degrees, as a factor.
inline Vector Turn(double degrees) { return Toward(degrees) - 1.0; }
/// The same direction, from -180 up to 180.
inline double Wrapped(double degrees) { return std::remainder(degrees, 360); }
/// Twice the area between two vectors.
inline double Cross(Vector a, Vector b) { return (std::conj(a) * b).imag(); }

/// Numbers by chance, from a seed that every run draws anew and prints; VERLINK_SEED in the environment takes its
/// place.
class Chance {
   public:
    Chance() : seed_(Seed()), generator_(seed_) {
        std::cout << "[  seed    ] " << seed_ << " of " << testing::UnitTest::GetInstance()->current_test_info()->name()
                  << '\n';
    }
    double Between(double low, double high) { return std::uniform_real_distribution(low, high)(generator_); }
    /// As the record can hold it.
    Single Number(double low, double high) { return Between(low, high); }
    Single Angle() { return Between(-180, 180); }
    std::string Trace() const { return "seed " + std::to_string(seed_); }

   private:
    static unsigned Seed() {
        const char* given = std::getenv("VERLINK_SEED");
        return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
    }
    unsigned seed_;
    std::mt19937 generator_;
};

/// How far results lie from where they ought to, over many cases. A few in a thousand lose some digits, near a toggle
/// above all, so that the bound that nearly all keep to tells the precision, and the one for all tells a wrong result.
class Misses {
   public:
    void Add(double miss) { misses_.push_back(miss); }
    std::size_t Count() const { return misses_.size(); }
    void Expect_Below(double nearly_all, double all) {
        ASSERT_FALSE(misses_.empty());
        std::sort(misses_.begin(), misses_.end());
        std::cout << "[  misses  ] " << misses_[misses_.size() / 2] << " in the middle of " << misses_.size() << ", "
                  << misses_[misses_.size() * 9 / 10] << " of nine in ten, " << misses_.back() << " at most\n";
        EXPECT_LT(misses_[misses_.size() * 9 / 10], nearly_all);
        EXPECT_LT(misses_.back(), all);
    }

   private:
    std::vector<double> misses_;
};

class Synthesis : public Fixture {
   protected:
    Synthesis() {
        Initialize();
        Use_Units(1);
    }

    struct Coupler {
        bool closes;
        Vector point;  ///< global frame, from O2
        double angle;  ///< global, degrees
    };

    /// The record's linkage at one global crank angle, on circuit 1 or 2.
    static Coupler Coupler_At(double crank, int circuit) {
        Derive_Linkage(Leading::kInForce);
        Model.Calctype = 1;
        Model.ThetaZero = crank;
        Model.Omega2Input = 1;
        Model.CircuitIndex = circuit;
        Integer result;
        Calc_Setup(1, result);
        const Vector local(Model.RunTable.PointXY(0, 2, 0), Model.RunTable.PointXY(0, 2, 1));
        return {Model.Grashof_Code != "NL" && Model.RunTable.Assembled(0), local * Toward(Model.Link1Angle),
                Model.RunTable.Theta(0, 1)};
    }

    static std::string Box(const char* screen, const char* box, int index) {
        return platform::Screens::Get(screen).Text(box, index).Text;
    }
    static std::string Input_Box(const char* box, int index) { return Box("frm_Inputnew", box, index); }
};

}  // namespace verlink::test
