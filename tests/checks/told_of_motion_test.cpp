// Each number of a run that is another is told with its place, its departure and what is expected there.
#include "tests/checks/told.h"

namespace verlink::test {

namespace {

constexpr double kPerRadian = 180 / M_PI;

class Told_Of_Motion : public Told {
   protected:
    static void Put(int row, Vector point) {
        Model.RunTable.PointXY(kStep, row, 0) = point.real() * 1000;
        Model.RunTable.PointXY(kStep, row, 1) = point.imag() * 1000;
    }
    static double Along(const Ranges& r, Vector value) { return 1000 * (r.Off() + 2 * kHalf * std::abs(value)); }
    static Vector Middle(const Ranges& r) { return {r.x.value, r.y.value}; }
    RunResults& t = Model.RunTable;
};

}  // namespace

TEST_F(Told_Of_Motion, AngleSpeedAndAccelerationOfEachLink) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        const Solved_Position p = Solved_At(kStep);
        Expect_Told("Angular speeds", t.Omega(kStep, 1), 1, kPlace + ", link 3", p.omega3.off);
        Expect_Told("Angular speeds", t.Omega(kStep, 2), -1, kPlace + ", link 4", p.omega4.off);
        Expect_Told("Angular accelerations", t.Alpha(kStep, 1), 10, kPlace + ", link 3", p.alpha3.off);
        Expect_Told("Angular accelerations", t.Alpha(kStep, 2), -10, kPlace + ", link 4", p.alpha4.off);
        const double off[] = {kHalf, p.th3.off, p.th4.off};
        const char* links[] = {", link 2", ", link 3", ", link 4"};
        for (int i = 0; i <= 2; ++i)
            Expect_Told("Angles", t.Theta(kStep, i), 1, (i == 0 ? "step 8, 81 deg" : kPlace) + links[i],
                        off[i] * kPerRadian + 2 * kHalf * (std::abs(t.Theta(kStep, i) + 1) + 30 + 360));
        const double turned = std::abs(double{t.Theta(kStep, 1)}) + std::abs(double{t.Theta(kStep, 2)});
        Expect_Told("Angles", t.Theta(kStep, 3), 1, kPlace + ", transmission angle",
                    (p.th3.off + p.th4.off) * kPerRadian + 2 * kHalf * (turned + 4 * 360));
    }
}

TEST_F(Told_Of_Motion, VelocityAndAccelerationOfEachPoint) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        const Solved_Position p = Solved_At(kStep);
        const char* points[] = {", A", ", B", ", P", ", B along and across link 4", ", P along and across link 3"};
        for (int row = 0; row <= 2; ++row)
            for (int axis = 0; axis <= 1; ++axis)
                Expect_Told("Velocities", t.VelXY(kStep, row, axis), 100, kPlace + points[row],
                            Along(p.velocity[row], Middle(p.velocity[row])));
        for (int row = 0; row <= 3; ++row)
            for (int axis = 0; axis <= 1; ++axis)
                Expect_Told("Accelerations", t.AccXY(kStep, row, axis), 3000, kPlace + points[row],
                            Along(p.acceleration[row], Middle(p.acceleration[row])));
        const Ranges& P = p.acceleration[2];
        const double each = P.Off() + P.Size() * (p.th3.off + 10 * kHalf);
        for (int axis = 0; axis <= 1; ++axis)
            Expect_Told("Accelerations", t.AccXY(kStep, 4, axis), 3000, kPlace + points[4],
                        Along({{0, each}, {0, each}}, Middle(P)));
    }
}

TEST_F(Told_Of_Motion, EachLinkThatHasAnotherLengthBetweenItsJoints) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        const Links g = Own_Links();
        const Solved_Position p = Solved_At(kStep);
        const Vector A = Point(kStep, 0), B = Point(kStep, 1), P = Point(kStep, 2);
        const double place = 4 * kHalf * 1000, at_A = p.A.Off(), at_B = p.B.Off(), part = g.Rpa / g.L3;
        const Vector arm = std::polar(part, g.delta);
        // The others go along, so that one link alone has another length.
        const Vector longer = A * 1.01;
        Put(0, longer);
        const Vector B_longer = longer + (B - A), P_longer = P + longer - A;
        Put(1, B_longer);
        Put(2, P_longer);
        const Check crank = Found("Loop closure");
        EXPECT_NE(crank.where, "");
        // Of links 2 and 4, which rounding leaves alike, the one that departs most beyond is told.
        const double gap2 = 0.01 * g.L2, gap4 = std::abs(std::abs(B_longer - g.L1) - g.L4);
        const bool second = gap2 / g.L2 > gap4 / (g.L4 + g.L1);
        EXPECT_EQ(crank.where, kPlace + (second ? ", link 2" : ", link 4"));
        EXPECT_NEAR(crank.worst, 1000 * (second ? gap2 : gap4), 1e-3);
        EXPECT_NEAR(crank.expected / (4 * place * (second ? g.L2 : g.L4 + g.L1)), 1, 1e-4);
        Put(0, A);

        const Vector along4 = g.L1 + (B - g.L1) * std::polar(1.0, 0.1);
        Put(1, along4);
        Put(2, A + (along4 - A) * arm);
        Expect_Failing("Loop closure", kPlace + ", link 3", 1000 * std::abs(std::abs(along4 - A) - g.L3),
                       1000 * (at_A + at_B) + place * (std::abs(A) + std::abs(along4)));
        const Vector along3 = A + (B - A) * std::polar(1.0, 0.1);
        Put(1, along3);
        Put(2, A + (along3 - A) * arm);
        Expect_Failing("Loop closure", kPlace + ", link 4", 1000 * std::abs(std::abs(along3 - g.L1) - g.L4),
                       place * (g.L4 + g.L1));
        Put(1, B);
        Put(2, P + Vector(0.03, -0.04));
        Expect_Failing("Loop closure", kPlace + ", coupler point", 50,
                       1000 * (at_A + p.P.Off() + part * (at_A + at_B)) +
                           place * (std::abs(P + Vector(0.03, -0.04)) + part * (std::abs(A) + std::abs(B))));
        Expect_Failing("Positions", kPlace + ", P", 50, Along(p.P, P));
        Put(1, B + Vector(0.03, -0.04));
        Put(2, P);
        Expect_Failing("Positions", kPlace + ", B", 50, Along(p.B, B));
    }
}

TEST_F(Told_Of_Motion, RatiosByThePoles) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        const Links g = Own_Links();
        const Solved_Position p = Solved_At(kStep);
        const Vector A = Point(kStep, 0), B = Point(kStep, 1);
        const double w2 = t.Omega(kStep, 0);
        // The line of the coupler meets the ground link at pole 2-4.
        const double pole = A.real() - A.imag() * (B - A).real() / (B - A).imag();
        const double from_O2 = -pole * (B - A).imag() * -1, from_O4 = (pole - g.L1) * (B - A).imag();
        const double open = p.A.Off() * (std::abs(B) + g.L1) + p.B.Off() * (std::abs(A) + g.L1) +
                            4 * kHalf * (std::abs(A) + g.L1) * std::abs(B);
        const Range ratio = Range(from_O2, open) / Range(from_O4, open);
        EXPECT_NEAR(t.OmegaRatio(kStep), ratio.value, 1e-5);
        Expect_Told("Ratio of speeds", t.OmegaRatio(kStep), 1, kPlace,
                    ratio.off + p.omega4.off / w2 + 2 * kHalf * std::abs(ratio.value));
        const Range advantage = Range(from_O4, open) / Range(from_O2, open), by_speeds = Range(w2) / p.omega4;
        Expect_Told("Mechanical advantage", t.MechAdvantage(kStep), 1, kPlace,
                    advantage.off + by_speeds.off + 2 * kHalf * std::abs(advantage.value));
    }
}

TEST_F(Told_Of_Motion, WhatTheAccelerationOfTheStepBeforeTakesOrGives) {
    for (const int circuit : {1, 2}) {
        Take_Driven_Run(circuit);
        double turns = 0, points = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const Links g = Own_Links();
            const double w2 = t.Omega(step, 0), a2 = t.Alpha(step, 0);
            const Solved_Position as_it_is = Solved_At(step), right = Solve_Position(g, Crank(step), w2, a2, a2);
            const double off3 = std::abs(as_it_is.alpha3.value - right.alpha3.value);
            const double off4 = std::abs(as_it_is.alpha4.value - right.alpha4.value);
            turns = std::max({turns, off3, off4});
            points = std::max({points, 1000 * off3 * g.Rpa, 1000 * off4 * g.L4});
        }
        const Check angular = Found("Angular accelerations"), linear = Found("Accelerations");
        EXPECT_EQ(angular.verdict, Verdict::kByDesign);
        EXPECT_NEAR(angular.worst / turns, 1, 1e-5);
        EXPECT_NEAR(linear.worst / points, 1, 1e-5);
        EXPECT_EQ(
            angular.meaning,
            "Links 3 and 4 are sped up as the triangle's second derivative has it. In a driven run one term takes "
            "the crank's acceleration of the step before.");
    }
}

TEST_F(Told_Of_Motion, AStepThatNoNumberHoldsHandsItsAccelerationOnAndOneThatDoesNotCloseHandsOnNone) {
    Take_Driven_Run(1);
    // In metres it is held, in millimetres not.
    t.Omega(kStep, 0) = 3e18;
    t.Alpha(kStep, 0) = 5000;
    Notes notes(desktop, platform::Answer::kIgnore);
    Integer result;
    Imported_Run(result);
    ASSERT_FALSE(t.Assembled(kStep));
    ASSERT_TRUE(t.Assembled(kStep + 1));
    EXPECT_FALSE(Any_Fails(Checks_Of(Model)));
    const Solved_Position next = Solved_At(kStep + 1);
    EXPECT_NEAR(t.Alpha(kStep + 1, 1) / next.alpha3.value, 1, 1e-5);
    Expect_Told("Angular accelerations", t.Alpha(kStep + 1, 1), 10, "step 9, 85 deg, link 3", next.alpha3.off);

    Model.L2 = 0.26;  // it closes up to 132 degrees
    Model.L4 = 0.1;
    t.Omega(kStep, 0) = 8;
    for (int step = 0; step <= Model.NSteps; ++step) t.DriveTheta(step) = step == kStep ? 220 : 40 + 5 * step;
    Imported_Run(result);
    ASSERT_FALSE(t.Assembled(kStep));
    EXPECT_FALSE(Any_Fails(Checks_Of(Model)));
}

TEST_F(Told_Of_Motion, EachCheckHasItsUnit) {
    Take_Driven_Run(1);
    const std::pair<const char*, const char*> units[] = {
        {"Loop closure", "mm"},        {"Positions", "mm"},          {"Angles", "degrees"},
        {"Angular speeds", "rad/sec"}, {"Velocities", "mm/sec"},     {"Angular accelerations", "rad/sec^2"},
        {"Accelerations", "mm/sec^2"}, {"Ratio of speeds", "ratio"}, {"Mechanical advantage", "ratio"},
    };
    const std::vector<Check> checks = Checks_Of(Model);
    for (std::size_t i = 0; i < std::size(units); ++i) {
        EXPECT_EQ(checks[i].name, units[i].first);
        EXPECT_EQ(checks[i].unit, units[i].second);
    }
}

TEST_F(Told_Of_Motion, ACrankAtRestHasNoRatios) {
    Take_Driven_Run(1);
    for (int step = 0; step <= Model.NSteps; ++step) t.Omega(step, 0) = 0;
    Integer result;
    Imported_Run(result);
    const std::vector<Check> checks = Checks_Of(Model);
    for (const char* name : {"Ratio of speeds", "Mechanical advantage"})
        EXPECT_EQ(std::ranges::find(checks, std::string(name), &Check::name), checks.end()) << name;
}

}  // namespace verlink::test
