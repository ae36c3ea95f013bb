// Forces of a step with what rounding may make of them, link by link, for the tests of what is expected of them.
#pragma once

#include "tests/checks/told.h"

namespace verlink::test {

inline Range Turn_Of(const Ranges& a, const Ranges& b) { return a.x * b.y - a.y * b.x; }
inline Ranges operator+(const Ranges& a, const Ranges& b) { return {a.x + b.x, a.y + b.y}; }
inline Ranges operator-(const Ranges& a, const Ranges& b) { return {a.x - b.x, a.y - b.y}; }
inline Ranges operator*(const Range& a, const Ranges& b) { return {a * b.x, a * b.y}; }
inline Ranges Kept(const Ranges& a) { return {Kept(a.x), Kept(a.y)}; }
inline Ranges Direction(const Range& angle) { return {Cos(angle), Sin(angle)}; }
inline Vector Middle(const Ranges& r) { return {r.x.value, r.y.value}; }

/// A link that moves: about its joint, with its mass centre.
struct Moving_Link {
    double mass = 0, inertia = 0;
    Range angle, omega, alpha;
    Ranges joint_speed, joint, arm, acceleration, force;
    Range moment;
};

/// All that acts in a step, on the links' own masses or on those of the counterweights.
struct Acting {
    Moving_Link l2, l3, l4;
    Ranges F12, F32, F43, F14, load3, load4, point3, point4;
    Range T12, moment3, moment4;
    Vector friction;
};

class Ranges_Of_Forces : public Told {
   protected:
    /// From the direction of the diagonal between A and O4, by the corner that the triangle with coupler and rocker
    /// has.
    static double By_Triangle(int step, int link) {
        const auto& m = Model;
        const Vector diagonal = double{m.L1} - Point(step, 0);
        const double d = std::abs(diagonal), own = link == 3 ? m.L3 : m.L4, other = link == 3 ? m.L4 : m.L3;
        const double corner = std::acos((d * d + own * own - other * other) / (2 * d * own));
        return std::arg(link == 3 ? diagonal : -diagonal) + (link == 3 ? -m.CircuitSign : +m.CircuitSign) * corner;
    }
    /// As a solve reads it: from degrees, kept as a single.
    static Range Read_Angle(int step, int link, Range solved) {
        const double degrees = std::abs(double{Model.RunTable.Theta(step, link - 2)}) + 360;
        const double angle = link == 2 ? solved.value : By_Triangle(step, link);
        EXPECT_NEAR(std::remainder(angle - solved.value, 2 * M_PI), 0, 1e-5);
        return {angle, solved.off + kHalf * (2 * degrees * M_PI / 180 + std::abs(angle) + 2 * M_PI)};
    }
    template <class Weights>
    static Moving_Link Link_Of(int step, int link, Range solved, Range omega, Range alpha, const Ranges& joint,
                               const Weights& weights) {
        Moving_Link b;
        b.mass = weights.mass(link);
        b.inertia = weights.inertia(link);
        b.angle = Read_Angle(step, link, solved);
        b.omega = omega;
        b.alpha = alpha;
        const Range R(weights.centre(link, 0)), d(weights.centre(link, 1));
        b.arm = R * Kept(Direction(b.angle + d));
        const Ranges aside{-b.arm.y, b.arm.x};
        b.acceleration = Kept(alpha * aside - omega * omega * b.arm + joint);
        b.force = Kept(Range(b.mass) * b.acceleration);
        b.moment = Kept(alpha * Range(b.inertia));
        return b;
    }
    struct Own_Weights {
        static double mass(int link) { return Model.LinkMass(link); }
        static double inertia(int link) { return Model.LinkInertia(link); }
        static double centre(int link, int item) { return Model.CG(link, item); }
    };
    struct Counterweights {
        static double mass(int link) { return Model.BerkMass(link); }
        static double inertia(int link) { return Model.BerkInertia(link); }
        static double centre(int link, int item) { return Model.BerkCG(link, item); }
    };
    /// Against the coupler point's velocity, whose direction goes through degrees: thirty half places.
    static Ranges Friction_At(const Solved_Position& p) {
        const double force = Model.FrictionForce, speed = p.velocity[2].Size();
        if (force == 0) return {};
        const double open = force * (p.velocity[2].Off() / speed + 30 * kHalf);
        return {{-force * p.velocity[2].x.value / speed, open}, {-force * p.velocity[2].y.value / speed, open}};
    }
    static Ranges Load(double size, double degrees) {
        return {size * std::cos(degrees * M_PI / 180), size * std::sin(degrees * M_PI / 180)};
    }
    static void Take_Loads(int step, const Solved_Position& p, Acting& a) {
        const auto& m = Model;
        const double radians = M_PI / 180;
        const Ranges friction = Friction_At(p);
        const Ranges E3 = Load(m.ExtForceMag(3), m.ExtForceAng(3)), E4 = Load(m.ExtForceMag(4), m.ExtForceAng(4));
        a.friction = Middle(friction);
        a.point3 = Kept(Range(m.ForceDist3) * Direction(a.l3.angle + Range(m.ForceAng3 * radians)));
        a.point4 = Kept(Range(m.ForceDist4) * Direction(a.l4.angle + Range(m.ForceAng4 * radians)));
        a.load3 = E3 + friction;
        a.load4 = E4;
        const double torque4 = m.TorqueImported ? m.RunTable.ImportedTorque(step) : m.ExtTorque(4);
        a.moment3 = Kept(Turn_Of(a.point3, E3) + Range(0, 4 * kHalf * m.Rpa * m.FrictionForce)) + Range(m.ExtTorque(3));
        a.moment4 = Kept(Turn_Of(a.point4, E4)) + Range(torque4);
    }
    /// Moments of link 3 about A and of link 4 about O4 for the pin between them, then force by force.
    static void Solve_Pins(Acting& a, Range q3, Range q4) {
        const Ranges b3 = Range(Model.L3) * Direction(a.l3.angle), b4 = Range(Model.L4) * Direction(a.l4.angle);
        const Range apart = Turn_Of(b3, b4);
        a.F43 = {(q3 * b4.x - b3.x * q4) / apart, (q3 * b4.y - b3.y * q4) / apart};
        a.F32 = a.F43 + a.load3 - a.l3.force;
        a.F14 = a.F43 + a.l4.force - a.load4;
        a.F12 = a.l2.force - a.F32;
    }
    /// What moments about a mass centre leave open, whose arm is kept.
    static Range Open(const Moving_Link& b, const Ranges& one, const Ranges& other) {
        return {0, (b.arm.Off() + 4 * kHalf * b.arm.Size()) * (one.Size() + other.Size())};
    }
    template <class Weights>
    static Acting Acting_At(int step, const Weights& weights, bool loaded) {
        const Solved_Position p = Solved_At(step);
        const auto& t = Model.RunTable;
        Acting a;
        a.l2 = Link_Of(step, 2, {Crank(step), kHalf}, double{t.Omega(step, 0)}, double{t.Alpha(step, 0)}, {}, weights);
        a.l3 = Link_Of(step, 3, p.th3, p.omega3, p.alpha3, p.acceleration[0], weights);
        a.l4 = Link_Of(step, 4, p.th4, p.omega4, p.alpha4, {}, weights);
        if (loaded) Take_Loads(step, p, a);
        const Range q3 = a.l3.moment + Turn_Of(a.l3.arm, a.l3.force - a.load3) - a.moment3;
        const Range q4 = a.moment4 - a.l4.moment - Turn_Of(a.l4.arm, a.l4.force - a.load4);
        Solve_Pins(a, q3, q4);
        Solve_Pins(a, q3 + Open(a.l3, a.F32, a.F43), q4 + Open(a.l4, a.F43, a.F14));
        const Ranges crank = Range(Model.L2) * Direction(a.l2.angle);
        a.T12 = Kept(a.l2.moment + Turn_Of(a.l2.arm, a.l2.force) - Turn_Of(crank, a.F32) + Open(a.l2, a.F12, a.F32));
        for (Ranges* force : {&a.F12, &a.F32, &a.F43, &a.F14}) *force = Kept(*force);
        return a;
    }

    /// Masses and loads of all kinds, but friction.
    static void Take_Masses() {
        auto& m = Model;
        for (const int link : {2, 3, 4}) {
            m.LinkMass(link) = 0.5 * link;
            m.LinkInertia(link) = 0.01 * link;
            m.CG(link, 0) = 0.03 * link;
            m.CG(link, 1) = 0.4 * link;
            m.ExtForceMag(link) = link;
            m.ExtForceAng(link) = 35 * link;
            m.ExtTorque(link) = 0.25 * link;
        }
        m.ForceDist3 = 0.07;
        m.ForceAng3 = 25;
        m.ForceDist4 = 0.09;
        m.ForceAng4 = -65;
    }
    void Solve_All() {
        Notes notes(desktop, platform::Answer::kOk);
        verlink::Solve_Forces(Model);
        ASSERT_TRUE(Model.DynamicsDone);
    }
};

}  // namespace verlink::test
