// Moments about A and O4 give the pin at B, and the rest follows link by link.
#include "checks/solved.h"

#include <algorithm>
#include <cmath>

#include "core/linkage_model.h"

namespace verlink::checks {

namespace {

constexpr double kRadians = M_PI / 180;

double Size(const Estimate2& e) { return std::hypot(e.x.value, e.y.value); }
Estimate2 Exact(Vector v) { return {v.real(), v.imag()}; }
Vector Value(const Estimate2& e) { return {e.x.value, e.y.value}; }

/// The angle of a link as a solve reads it from the table, which has it in degrees as a single.
Estimate Angle_Read(const LinkageModel& m, const Step& s, int link, const Turning& turning, const Estimate& expected) {
    const double stored = m.RunTable.Theta(s.number, link - 2);
    return {turning.angle, expected.error + kHalfPlace * (2 * (std::abs(stored) + 360) * kRadians +
                                                          std::abs(turning.angle) + 2 * M_PI)};
}

struct Joint {
    Vector at, at1;  ///< the joint that the arm starts from, and its derivative
    Vector acceleration;
    Estimate2 acceleration_estimate;
};

Body Body_Of(const Masses& masses, int link, Estimate angle, const Turning& turning, const Joint& joint, Estimate omega,
             Estimate alpha) {
    Body b;
    b.mass = masses.Mass(link);
    b.inertia = masses.Inertia(link);
    const double R = masses.CG(link, 0), d = masses.CG(link, 1);
    b.arm = std::polar(R, turning.angle + d);
    b.centre = joint.at + b.arm;
    b.turn1 = turning.first;
    b.alpha = alpha.value;
    b.centre1 = joint.at1 + kQuarter * turning.first * b.arm;
    b.acceleration = joint.acceleration + (kQuarter * alpha.value - omega.value * omega.value) * b.arm;
    b.direction = Toward(angle);
    b.arm_estimate = R * Stored(Toward(angle + d));
    b.acceleration_estimate =
        Stored(alpha * Aside(b.arm_estimate) - omega * omega * b.arm_estimate + joint.acceleration_estimate);
    b.force = Stored(b.mass * b.acceleration_estimate);
    b.moment = Stored(alpha * b.inertia);
    return b;
}

/// Against the velocity of the coupler point; along -x for one at rest.
Estimate2 Friction(const LinkageModel& m, const Step& s) {
    const double force = m.FrictionForce;
    if (force == 0) return {};
    const Vector velocity = s.drive.omega2 * s.pose.P1;
    const double speed = std::abs(velocity);
    const Vector friction = speed == 0 ? Vector(-force) : -force * velocity / speed;
    // Its direction is an angle in degrees, kept as a single.
    const double direction = s.expected.velocity[2].Error() / speed + 30 * kHalfPlace;
    const double open = force * std::min(2.0, direction);
    return {{friction.real(), open}, {friction.imag(), open}};
}

void Take_Loads(const LinkageModel& m, const Step& s, const Estimate& th3, const Estimate& th4, Loads& loads) {
    const Estimate2 friction = Friction(m, s);
    const Estimate2 E3 = Exact({m.ExtForce3X, m.ExtForce3Y}), E4 = Exact({m.ExtForce4X, m.ExtForce4Y});
    const Estimate2 arm3 = Stored(double{m.ForceDist3} * Toward(th3 + m.ForceAng3 * kRadians));
    const Estimate2 arm4 = Stored(double{m.ForceDist4} * Toward(th4 + m.ForceAng4 * kRadians));
    loads.friction = Value(friction);
    loads.point3 = Value(arm3);
    loads.point4 = Value(arm4);
    loads.torque4 = m.TorqueImported ? m.RunTable.ImportedTorque(s.number) : m.ExtTorque(4);
    loads.force3 = E3 + friction;
    loads.force4 = E4;
    // The program's moment of the friction is nothing but what rounding leaves.
    Estimate moment3 = Cross(arm3, E3);
    moment3.error += 4 * kHalfPlace * m.Rpa * std::abs(m.FrictionForce);
    loads.moment3 = Stored(moment3) + double{m.ExtTorque(3)};
    loads.moment4 = Stored(Cross(arm4, E4)) + loads.torque4;
}

/// The pin at B by moments of link 3 about A and of link 4 about O4.
void Solve_Pins(const Shape& g, const Loads& l, Estimate q3, Estimate q4, Solved& s) {
    const Estimate2 b3 = g.L3 * s.l3.direction, b4 = g.L4 * s.l4.direction;
    const Estimate determinant = Cross(b3, b4);
    s.F43 = {(q3 * b4.x - b3.x * q4) / determinant, (q3 * b4.y - b3.y * q4) / determinant};
    s.F32 = s.F43 + l.force3 - s.l3.force;
    s.F14 = s.F43 + s.l4.force - l.force4;
    s.F12 = s.l2.force - s.F32;
}

void Solve_Forces(const Shape& g, const Loads& l, Solved& s) {
    Estimate q3 = s.l3.moment + Cross(s.l3.arm_estimate, s.l3.force - l.force3) - l.moment3;
    Estimate q4 = l.moment4 - s.l4.moment - Cross(s.l4.arm_estimate, s.l4.force - l.force4);
    Solve_Pins(g, l, q3, q4, s);
    // The program takes moments about the mass centres, whose arms are singles.
    const auto open = [](const Body& body, const Estimate2& a, const Estimate2& b) {
        return (body.arm_estimate.Error() + 4 * kHalfPlace * std::abs(body.arm)) * (Size(a) + Size(b));
    };
    q3.error += open(s.l3, s.F32, s.F43);
    q4.error += open(s.l4, s.F43, s.F14);
    Solve_Pins(g, l, q3, q4, s);
    s.T12 = s.l2.moment + Cross(s.l2.arm_estimate, s.l2.force) - Cross(g.L2 * s.l2.direction, s.F32);
    s.T12.error += open(s.l2, s.F12, s.F32);
    for (Estimate2* force : {&s.F12, &s.F32, &s.F43, &s.F14}) *force = Stored(*force);
    s.T12 = Stored(s.T12);
}

}  // namespace

Solved Solve(const LinkageModel& m, const Step& step, const Masses& masses, bool loaded) {
    const Shape g = Shape_Of(m, m);
    const Pose& p = step.pose;
    const Expected& e = step.expected;
    const double w2 = step.drive.omega2, a2 = step.drive.alpha2;
    const Estimate th2 = Angle_Read(m, step, 2, p.th2, e.th2), th3 = Angle_Read(m, step, 3, p.th3, e.th3);
    const Estimate th4 = Angle_Read(m, step, 4, p.th4, e.th4);
    const auto sped = [&](const Turning& t, double design, const Estimate& expected) {
        return Estimate(a2 * t.first + w2 * w2 * t.second + design, expected.error);
    };
    Solved s;
    const Vector at_A = a2 * p.A1 + w2 * w2 * p.A2;
    const Estimate2& open_A = e.acceleration[0];
    const Joint O2{}, A{p.A, p.A1, at_A, {{at_A.real(), open_A.x.error}, {at_A.imag(), open_A.y.error}}};
    const Joint O4{g.L1, 0, 0, {}};
    s.l2 = Body_Of(masses, 2, th2, p.th2, O2, w2, a2);
    s.l3 = Body_Of(masses, 3, th3, p.th3, A, {w2 * p.th3.first, e.omega3.error},
                   sped(p.th3, step.design_alpha3, e.alpha3));
    s.l4 = Body_Of(masses, 4, th4, p.th4, O4, {w2 * p.th4.first, e.omega4.error},
                   sped(p.th4, step.design_alpha4, e.alpha4));
    if (loaded) Take_Loads(m, step, th3, th4, s.loads);
    Solve_Forces(g, s.loads, s);
    for (const Body* body : {&s.l2, &s.l3, &s.l4})
        s.virtual_work +=
            body->mass * Dot(body->acceleration, body->centre1) + body->inertia * body->alpha * body->turn1;
    const Loads& l = s.loads;
    s.virtual_work -= Dot(Value(l.force3), s.l3.centre1) + l.moment3.value * s.l3.turn1;
    s.virtual_work -= Dot(Value(l.force4), s.l4.centre1) + l.moment4.value * s.l4.turn1;
    return s;
}

}  // namespace verlink::checks
