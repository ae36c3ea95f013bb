// What single precision lets expect of a position, beside the corners of what goes into each operation of the solver.
#include "checks/expected.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/checks/ranges.h"

namespace verlink::test {

namespace {

using checks::Estimate;
using checks::Estimate2;
using checks::Expected;

void Expect_Same(const Estimate& found, const Range& sought, const char* what) {
    EXPECT_NEAR(found.value, sought.value, 1e-9 * (1 + std::abs(sought.value))) << what;
    EXPECT_NEAR(found.error / sought.off, 1, 1e-6) << what;
}
void Expect_Same(const Estimate2& found, const Ranges& sought, const char* what) {
    Expect_Same(found.x, sought.x, what);
    Expect_Same(found.y, sought.y, what);
}

void Expect_All_Same(const Links& g, double th2, double w2, double a2, double a2_before) {
    SCOPED_TRACE(th2);
    const Solved_Position p = Solve_Position(g, th2, w2, a2, a2_before);
    const Expected e =
        checks::Expected_At({g.L1, g.L2, g.L3, g.L4, g.Rpa, g.delta, g.sign < 0}, {th2, w2, a2, a2_before, th2});
    Expect_Same(e.th2, {th2, kHalf}, "crank");
    Expect_Same(e.th3, p.th3, "coupler");
    Expect_Same(e.th4, p.th4, "rocker");
    Expect_Same(e.A, p.A, "A");
    Expect_Same(e.B, p.B, "B");
    Expect_Same(e.P, p.P, "P");
    Expect_Same(e.omega3, p.omega3, "speed of the coupler");
    Expect_Same(e.omega4, p.omega4, "speed of the rocker");
    Expect_Same(e.alpha3, p.alpha3, "acceleration of the coupler");
    Expect_Same(e.alpha4, p.alpha4, "acceleration of the rocker");
    Expect_Same(e.determinant, p.G, "determinant");
    for (int i = 0; i <= 2; ++i) Expect_Same(e.velocity[i], p.velocity[i], "velocity");
    for (int i = 0; i <= 3; ++i) Expect_Same(e.acceleration[i], p.acceleration[i], "acceleration");
    // By its magnitude and the coupler's angle, which goes through degrees kept as singles: ten half places of a
    // radian.
    const Ranges& P = p.acceleration[2];
    const double along = P.Off() + P.Size() * (p.th3.off + 10 * kHalf);
    for (const Estimate& component : {e.acceleration[4].x, e.acceleration[4].y}) {
        EXPECT_EQ(component.value, 0);
        EXPECT_NEAR(component.error / along, 1, 1e-6);
    }
}

}  // namespace

TEST(ExpectedOfSinglePrecision, IsWhatTheSolversOperationsRoundOnBothCircuits) {
    for (const double sign : {-1.0, 1.0})
        for (const double th2 : {0.3, 1.4, 2.5, 3.9, 5.1})
            Expect_All_Same({2.667, 1.115, 2.5, 2.2, 1.697, -1.6, sign}, th2, 7, 3, -2);
}

TEST(ExpectedOfSinglePrecision, CountsTheDigitsThatManyTurnsOfTheCrankTake) {
    const auto error = [](double turned) {
        return checks::Expected_At({2.667, 1.115, 2.5, 2.5, 1.697, 0, true}, {0.3, 1, 0, 0, turned}).th2.error;
    };
    EXPECT_EQ(error(0), kHalf);
    EXPECT_EQ(error(1e6), kHalf + std::ldexp(1e6, -52));
    EXPECT_EQ(error(-1e6), error(1e6));
}

}  // namespace verlink::test
