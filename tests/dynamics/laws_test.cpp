// The forces of a run beside the laws of mechanics: power, momentum, and each link's own balance.
#include <algorithm>
#include <cmath>
#include <functional>

#include "shell/initialize.h"
#include "tests/dynamics/motion.h"

namespace verlink::test {

namespace {

// Angles are stored in degrees as singles, which moves the ends of the links by some 4E-7 of their lengths; near the
// largest forces of a run what is solved from them is that much times a few away.
constexpr double kSmall = 2e-5;

class Laws : public Fixture {
   protected:
    Laws() { Initialize(); }
    RunResults& table = Model.RunTable;

    /// Runs and solves each scenario and hands every step on.
    void At_Every_Step(const std::function<void(int, const Motion&)>& check) {
        for (const Scenario& scenario : kScenarios) {
            SCOPED_TRACE(scenario.name);
            Reset_Model();
            Initialize();
            Run_Scenario(scenario);
            Solve_Forces();
            ASSERT_GT(Model.NSteps, 10);
            for (int step = 0; step <= Model.NSteps; ++step) {
                SCOPED_TRACE(step);
                ASSERT_TRUE(table.Assembled(step));
                check(step, Motion(step));
            }
        }
    }

    /// The largest pin force of the run.
    double Force_Scale() const {
        double largest = 0;
        for (int step = 0; step <= Model.NSteps; ++step)
            for (const int slot : {0, 1, 5, 6}) largest = std::max(largest, std::abs(At(table.PinForce, step, slot)));
        return largest;
    }
    static double Length_Scale() { return std::max(Model.L3, Model.L4); }

    static void Expect_Vector(Vector found, Vector expected, double tolerance) {
        EXPECT_NEAR(found.real(), expected.real(), tolerance);
        EXPECT_NEAR(found.imag(), expected.imag(), tolerance);
    }
};

}  // namespace

TEST_F(Laws, TheDrivingTorquesPowerIsThatOfInertiaLessThatOfTheLoads) {
    At_Every_Step([&](int step, const Motion& at) {
        const double given = table.LinkTorque(step, 0) * at.l2.w;
        const double taken = at.l2.Power() + at.l3.Power() + at.l4.Power();
        const Vector friction = Model.FrictionForce == 0.0 ? Vector{} : Motion::Friction(step);
        const double loads =
            Load_On_3(at.l3).Power(at.l3) + Load_On_4(at.l4).Power(at.l4) + Dot(friction, at.l3.velocity);
        const double speed = std::max({std::fabs(at.l2.w), std::fabs(at.l3.w), std::fabs(at.l4.w)});
        EXPECT_NEAR(given + loads, taken, kSmall * Force_Scale() * Length_Scale() * speed);
    });
}

TEST_F(Laws, TheShakingForceIsTheLossOfMomentumAndTheLoads) {
    At_Every_Step([&](int step, const Motion& at) {
        const Vector friction = Model.FrictionForce == 0.0 ? Vector{} : Motion::Friction(step);
        const Vector loads = Load_On_3(at.l3).force + Load_On_4(at.l4).force + friction;
        Expect_Vector(At(table.PinForce, step, 7), -at.Inertia_Force() + loads, kSmall * Force_Scale());
    });
}

TEST_F(Laws, WithoutLoadsTheShakingForceIsTheLossOfMomentumFromStepToStep) {
    // The momentum itself, differenced over two small steps of the crank.
    Run_Scenario(kScenarios[0]);
    Model.ThetaStep = 0.125;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
    Model.NSteps = Steps_Of(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
    Integer result;
    Calc_Setup(3, result);
    Solve_Forces();
    const double time = Model.ThetaStepRad / Model.Omega2Input;
    const auto momentum = [](int step) {
        const Motion at(step);
        return at.l2.mass * at.l2.velocity + at.l3.mass * at.l3.velocity + at.l4.mass * at.l4.velocity;
    };
    for (int step = 8; step <= Model.NSteps - 8; ++step) {
        const Vector change = (momentum(step + 8) - momentum(step - 8)) / (16 * time);
        Expect_Vector(At(table.PinForce, step, 7), -change, 2e-3 * Force_Scale());
    }
}

TEST_F(Laws, EachLinkIsInBalanceWithItsPinsAndLoads) {
    At_Every_Step([&](int step, const Motion& at) {
        const Vector F12 = At(table.PinForce, step, 5), F32 = At(table.PinForce, step, 0);
        const Vector F43 = At(table.PinForce, step, 1), F14 = At(table.PinForce, step, 6);
        const Vector friction = Model.FrictionForce == 0.0 ? Vector{} : Motion::Friction(step);
        const Load load3 = Load_On_3(at.l3), load4 = Load_On_4(at.l4);
        const double force = kSmall * Force_Scale();
        const double moment = force * Length_Scale();
        Expect_Vector(F12 + F32, at.l2.Force(), force);
        Expect_Vector(F43 - F32 + load3.force + friction, at.l3.Force(), force);
        Expect_Vector(F14 - F43 + load4.force, at.l4.Force(), force);
        EXPECT_NEAR(Cross(-at.l2.centre, F12) + Cross(at.A - at.l2.centre, F32) + table.LinkTorque(step, 0),
                    at.l2.Moment(), moment);
        EXPECT_NEAR(Cross(at.A - at.l3.centre, -F32) + Cross(at.B - at.l3.centre, F43) + load3.Moment(), at.l3.Moment(),
                    moment);
        EXPECT_NEAR(Cross(at.B - at.l4.centre, -F43) + Cross(at.O4 - at.l4.centre, F14) + load4.Moment(),
                    at.l4.Moment(), moment);
    });
}

}  // namespace verlink::test
