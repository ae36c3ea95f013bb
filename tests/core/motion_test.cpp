// Positions, speeds and accelerations beside the geometry itself: two circles that meet, and how their meeting moves
// with the crank, all in long double and without the solution's own formulas.
#include <algorithm>
#include <cmath>
#include <complex>
#include <utility>

#include "core/solver.h"
#include "tests/core/linkages.h"

namespace verlink::test {

namespace {

using Real = long double;
using Point = std::complex<Real>;

constexpr Real kRealPi = 3.141592653589793238462643383279502884L;

struct Case {
    const char* name;
    double L1, L2, L3, L4, Rpa, Delta;
    int circuit;
    double ground;  ///< degrees
    int units;
    double from, to;  ///< local crank angle, degrees
};

void PrintTo(const Case& given, std::ostream* out) { *out << given.name; }

/// The points at a crank angle: A on the crank's circle, B where the circles about A and O4 meet.
struct Pose {
    Point A, B, P;
};

Pose Pose_At(Real theta2) {
    const Real L1 = static_cast<double>(Model.L1), L2 = static_cast<double>(Model.L2);
    const Real L3 = static_cast<double>(Model.L3), L4 = static_cast<double>(Model.L4);
    Pose pose;
    pose.A = std::polar(L2, theta2);
    const Point base = Point(L1) - pose.A;
    const Real d = std::abs(base);
    const Real along = (d * d + L3 * L3 - L4 * L4) / (2 * d);
    const Real height = std::sqrt(L3 * L3 - along * along) * (Model.CircuitSign < 0 ? 1 : -1);
    const Point unit = base / d;
    pose.B = pose.A + unit * Point(along, height);
    const Point coupler = (pose.B - pose.A) / L3;
    pose.P = pose.A + coupler * std::polar<Real>(static_cast<double>(Model.Rpa), static_cast<double>(Model.DeltaRad));
    return pose;
}

/// First and second derivative of a function of the crank angle, by central differences to the sixth order.
template <class Function>
auto Derivatives(Function f, Real at) {
    const Real h = 1e-3L;
    const auto m3 = f(at - 3 * h), m2 = f(at - 2 * h), m1 = f(at - h), c = f(at);
    const auto p1 = f(at + h), p2 = f(at + 2 * h), p3 = f(at + 3 * h);
    const auto first = (p3 - m3 - Real(9) * (p2 - m2) + Real(45) * (p1 - m1)) / (60 * h);
    const auto second =
        (Real(2) * (p3 + m3) - Real(27) * (p2 + m2) + Real(270) * (p1 + m1) - Real(490) * c) / (180 * h * h);
    return std::pair(first, second);
}

class Motion : public testing::WithParamInterface<Case>, public Fixture {
   protected:
    static constexpr double kOmega = -7.5, kAlpha = 31;

    void SetUp() override {
        const Case& given = GetParam();
        Take_Crank_Rocker();
        Take_Lengths(given.L1, given.L2, given.L3, given.L4);
        Take_Coupler_Point(given.Rpa, given.Delta);
        Take_Circuit(given.circuit);
        Turn_Ground(given.ground);
        Model.Units = given.units;
        Model.Omega2 = kOmega;
        Model.Alpha2 = kAlpha;
    }

    static void Expect_Vector(const StepArray<Single, 6, 2>& column, int point, Point wanted, Real scale) {
        EXPECT_NEAR(column(0, point, 0), static_cast<double>(wanted.real()), static_cast<double>(scale));
        EXPECT_NEAR(column(0, point, 1), static_cast<double>(wanted.imag()), static_cast<double>(scale));
    }
    static void Expect_Vector(const StepArray<Single, 8, 2>& column, int point, Point wanted, Real scale) {
        EXPECT_NEAR(column(0, point, 0), static_cast<double>(wanted.real()), static_cast<double>(scale));
        EXPECT_NEAR(column(0, point, 1), static_cast<double>(wanted.imag()), static_cast<double>(scale));
    }

    /// Difference of two angles, brought near 0.
    static double Apart(double degrees, Real radians, double ground) {
        return std::remainder(degrees - static_cast<double>(radians * 180 / kRealPi) - ground, 360.0);
    }
};

TEST_P(Motion, FollowsTheMeetingOfTheCirclesAndItsDerivatives) {
    const Case& given = GetParam();
    const Real shown = Shown_Factor();
    int tried = 0;
    for (double degrees = given.from; degrees <= given.to; degrees += (given.to - given.from) / 27) {
        SCOPED_TRACE(degrees);
        Model.Theta2Rad = degrees * kDegToRad;
        const Real theta2 = static_cast<double>(Model.Theta2Rad);
        Integer result = kRetrying;
        Calculate(0, result);
        const auto& table = Model.RunTable;
        ASSERT_TRUE(table.Assembled(0));
        const Pose pose = Pose_At(theta2);
        const Point coupler = pose.B - pose.A, rocker = pose.B - Point(static_cast<double>(Model.L1));
        const double sine =
            static_cast<double>((std::conj(coupler) * rocker).imag() / std::abs(coupler) / std::abs(rocker));
        if (std::fabs(sine) < 0.25) continue;  // near a toggle a rounding of the angles weighs more
        ++tried;

        const Real longest = std::max({std::abs(pose.A), std::abs(pose.B), std::abs(pose.P)});
        const Real near = 4e-6L * longest * shown;
        for (const auto& [point, wanted] : {std::pair(0, pose.A), std::pair(1, pose.B), std::pair(2, pose.P)}) {
            EXPECT_NEAR(table.PointXY(0, point, 0), static_cast<double>(wanted.real() * shown),
                        static_cast<double>(near));
            EXPECT_NEAR(table.PointXY(0, point, 1), static_cast<double>(wanted.imag() * shown),
                        static_cast<double>(near));
        }
        EXPECT_NEAR(Apart(table.Theta(0, 0), theta2, given.ground), 0, 1e-4);
        EXPECT_NEAR(Apart(table.Theta(0, 1), std::arg(coupler), given.ground), 0, 2e-4);
        EXPECT_NEAR(Apart(table.Theta(0, 2), std::arg(rocker), given.ground), 0, 2e-4);
        EXPECT_NEAR(table.Theta(0, 3), std::asin(std::fabs(sine)) * 180 / M_PI, 5e-3);

        const auto angle3 = Derivatives(
            [&](Real t) {
                const Pose at = Pose_At(t);
                return std::arg((at.B - at.A) / coupler);
            },
            theta2);
        const auto angle4 = Derivatives(
            [&](Real t) { return std::arg((Pose_At(t).B - Point(static_cast<double>(Model.L1))) / rocker); }, theta2);
        const Real w3 = angle3.first * kOmega, w4 = angle4.first * kOmega;
        const Real a3 = angle3.second * kOmega * kOmega + angle3.first * kAlpha;
        const Real a4 = angle4.second * kOmega * kOmega + angle4.first * kAlpha;
        const double fast = 1e-4 / std::fabs(sine), quick = 2e-3 / sine / sine;
        EXPECT_NEAR(table.Omega(0, 1), static_cast<double>(w3), fast);
        EXPECT_NEAR(table.Omega(0, 2), static_cast<double>(w4), fast);
        EXPECT_NEAR(table.Alpha(0, 1), static_cast<double>(a3), quick);
        EXPECT_NEAR(table.Alpha(0, 2), static_cast<double>(a4), quick);
        EXPECT_NEAR(table.OmegaRatio(0), static_cast<double>(angle4.first), fast);
        if (std::fabs(w4) > 0.5L) {
            EXPECT_NEAR(table.MechAdvantage(0) * static_cast<double>(angle4.first), 1, 1e-3);
        }

        const auto a = Derivatives([](Real t) { return Pose_At(t).A; }, theta2);
        const auto b = Derivatives([](Real t) { return Pose_At(t).B; }, theta2);
        const auto p = Derivatives([](Real t) { return Pose_At(t).P; }, theta2);
        int point = 0;
        for (const auto& by_angle : {a, b, p}) {
            const Point velocity = by_angle.first * Real(kOmega) * shown;
            const Point acceleration =
                (by_angle.second * Real(kOmega * kOmega) + by_angle.first * Real(kAlpha)) * shown;
            Expect_Vector(table.VelXY, point, velocity, fast * longest * shown);
            Expect_Vector(table.AccXY, point, acceleration, quick * longest * shown);
            ++point;
        }
        EXPECT_NEAR(table.AccXY(0, 3, 0), static_cast<double>(-std::abs(rocker) * w4 * w4 * shown),
                    static_cast<double>(quick * longest * shown));
        EXPECT_NEAR(table.AccXY(0, 3, 1), static_cast<double>(std::abs(rocker) * a4 * shown),
                    static_cast<double>(quick * longest * shown));
        const Point of_P = (p.second * Real(kOmega * kOmega) + p.first * Real(kAlpha)) * shown;
        Expect_Vector(table.AccXY, 4, of_P * std::conj(coupler) / std::abs(coupler), quick * longest * shown);
    }
    EXPECT_GE(tried, 5);
}

INSTANTIATE_TEST_SUITE_P(
    Linkages, Motion,
    testing::Values(Case{"OpenCrankRocker", 2.667, 1.115, 2.5, 2.5, 1.697, -92.66, 1, 0, 1, 0, 359},
                    Case{"CrossedCrankRocker", 2.667, 1.115, 2.5, 2.5, 1.697, -92.66, 2, 0, 2, 0, 359},
                    Case{"OpenOnTurnedGround", 18, 6, 16, 12, 14.42, 33.7, 1, 30, 1, 5, 355},
                    Case{"CrossedOnTurnedGround", 18, 6, 16, 12, 14.42, 33.7, 2, -120, 3, 5, 355},
                    Case{"DoubleCrank", 1, 3, 2.5, 2.8, 1.2, 71, 1, 15, 2, -180, 180},
                    Case{"CrossedDoubleCrank", 1, 3, 2.5, 2.8, 1.2, 71, 2, 200, 3, -180, 180},
                    Case{"DoubleRocker", 3, 3, 1, 3.5, 0.5, -20, 1, 0, 1, 52, 94},
                    Case{"NonGrashof", 3, 2, 2.5, 2.2, 1.5, 110, 1, 45, 1, -60, 60},
                    Case{"OpenInCentimetres", 0.02667, 0.01115, 0.025, 0.025, 0.01697, -92.66, 1, 60, 4, 0, 359},
                    Case{"CrossedInMillimetres", 0.18, 0.06, 0.16, 0.12, 0.1442, 33.7, 2, -45, 5, 0, 359}),
    [](const auto& given) { return std::string(given.param.name); });

}  // namespace

}  // namespace verlink::test
