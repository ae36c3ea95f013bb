// Linkages with masses and loads, and what their links do by complex numbers, for the tests of forces.
#pragma once

#include <array>
#include <complex>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using Vector = std::complex<double>;
inline constexpr Vector kQuarter{0, 1};

/// z component of a x b.
inline double Cross(Vector a, Vector b) { return (std::conj(a) * b).imag(); }
inline double Dot(Vector a, Vector b) { return (std::conj(a) * b).real(); }
inline Vector Polar(double magnitude, double angle) { return std::polar(magnitude, angle); }

template <class Column>
Vector At(const Column& column, int step, int row) {
    return {column(step, row, 0), column(step, row, 1)};
}

/// A linkage, how it is driven, and what loads it.
struct Scenario {
    const char* name;
    int units = 1;
    int circuit = 1;
    double ground = 0;  ///< degrees
    bool loads = false;
    double friction = 0;
    double omega2 = 10;
    bool rocker = false;  ///< a triple rocker within its toggles instead of the crank-rocker
};

inline const std::vector<Scenario> kScenarios = {
    {.name = "masses alone"},
    {.name = "crossed", .circuit = 2},
    {.name = "ground turned", .ground = 30},
    {.name = "feet with loads", .units = 2, .loads = true},
    {.name = "metres with loads", .units = 3, .loads = true},
    {.name = "centimetres with loads", .units = 4, .loads = true},
    {.name = "millimetres with loads", .units = 5, .loads = true},
    {.name = "friction", .friction = 2},
    {.name = "friction backwards", .friction = 2, .omega2 = -10},
    {.name = "all at once", .units = 5, .circuit = 2, .ground = -75, .loads = true, .friction = 0.7, .omega2 = -6},
    {.name = "triple rocker with loads", .loads = true, .omega2 = 3, .rocker = true},
};

inline void Take_Loads() {
    auto& m = Model;
    m.ExtForceMag(3) = 5;
    m.ExtForceAng(3) = 40;
    m.ExtForceMag(4) = 3;
    m.ExtForceAng(4) = -115;
    Resolve_Forces(Model);
    m.ForceDist3 = 0.8;
    m.ForceAng3 = 35;
    m.ForceDist4 = 0.6;
    m.ForceAng4 = -50;
    m.ExtTorque(3) = 1.5;
    m.ExtTorque(4) = -2.25;
}

/// Makes it the model, on top of the default masses, and runs it. In metric systems the lengths are metres.
inline void Run_Scenario(const Scenario& scenario) {
    auto& m = Model;
    Use_Units(scenario.units);
    m.PolarCoords = true;
    m.Link1Angle = scenario.ground;
    m.CircuitIndex = scenario.circuit;
    m.Omega2Input = scenario.omega2;
    m.Calctype = 3;
    m.ThetaStart = 45;
    m.ThetaEnd = 405;
    m.ThetaStep = 7.5;
    if (scenario.rocker) {
        m.L1 = 5;
        m.L2 = 4;
        m.L3 = 2;
        m.L4 = 3;
        m.ThetaStart = -60;
        m.ThetaEnd = 60;
    }
    m.ThetaStartRad = m.ThetaStart * kDegToRad;
    m.ThetaEndRad = m.ThetaEnd * kDegToRad;
    m.ThetaStepRad = m.ThetaStep * kDegToRad;
    m.NSteps = Steps_Of(m.ThetaStart, m.ThetaEnd, m.ThetaStep);
    m.CG(4, 1) = 0.4;
    if (scenario.loads) Take_Loads();
    m.FrictionForce = scenario.friction;
    Derive_Linkage(Leading::kInForce);
    Integer result;
    Calc_Setup(3, result);
}

/// Three steps, backwards: at the first the crank lies on the ground link, the last does not close.
inline void Run_To_An_Open_Step(bool loads) {
    Run_Scenario({.name = "backwards", .loads = loads, .omega2 = -10});
    auto& m = Model;
    m.L1 = 3;
    m.L2 = 2.5;
    m.L3 = 4;
    m.L4 = 2;
    m.ThetaStart = m.ThetaStartRad = 0;
    m.ThetaEnd = 120;
    m.ThetaStep = 60;
    m.ThetaEndRad = m.ThetaEnd * kDegToRad;
    m.ThetaStepRad = m.ThetaStep * kDegToRad;
    m.NSteps = 2;
    Derive_Linkage(Leading::kInForce);
    Integer result;
    Calc_Setup(3, result);
}

inline void Solve_Forces() {
    Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, Model.RunTable.PinForce, Model.RunTable.LinkTorque);
}

/// What a model holds of masses and loads, as text.
struct Masses_And_Loads {
    std::string text;

    Masses_And_Loads() {
        const auto& m = Model;
        std::ostringstream all;
        const auto add = [&all](std::initializer_list<Single> values) {
            for (const double value : values) all << std::hexfloat << value << ' ';
        };
        for (int link = 0; link <= 4; ++link)
            add({m.LinkMass(link), m.LinkInertia(link), m.CG(link, 0), m.CG(link, 1), m.ExtForceMag(link),
                 m.ExtForceAng(link), m.ExtTorque(link)});
        add({m.ExtForce3X, m.ExtForce3Y, m.ExtForce4X, m.ExtForce4Y, m.ForceDist3, m.ForceDist4, m.ForceAng3,
             m.ForceAng4, m.FrictionForce});
        text = all.str() + m.TorqueFileName;
    }
    bool operator==(const Masses_And_Loads&) const = default;
};

/// A link at a step: its mass centre and its turning. Stored lengths, in the ground link's frame from O2.
struct Body {
    double mass = 0, inertia = 0;
    double th = 0;  ///< line of centres
    double w = 0, a = 0;
    Vector centre, velocity, acceleration;

    Vector Force() const { return mass * acceleration; }
    double Moment() const { return inertia * a; }
    /// What it takes to move it so.
    double Power() const { return Dot(Force(), velocity) + Moment() * w; }
};

/// The three moving links of a step by their angles and speeds.
struct Motion {
    Body l2, l3, l4;
    Vector A, B, O4;

    Motion(int step, const Array<Single, 0, 4>& mass, const Array<Single, 0, 4>& inertia,
           const Table<Single, 0, 4, 2>& cg) {
        const auto& m = Model;
        const auto& table = m.RunTable;
        std::array<Body*, 3> bodies{&l2, &l3, &l4};
        for (int row = 0; row <= 2; ++row) {
            Body& body = *bodies[static_cast<std::size_t>(row)];
            body.mass = mass(row + 2);
            body.inertia = inertia(row + 2);
            body.th = (table.Theta(step, row) - m.Link1Angle) * kDegToRad;
            body.w = table.Omega(step, row);
            body.a = table.Alpha(step, row);
            const Vector arm = Polar(cg(row + 2, 0), body.th + cg(row + 2, 1));
            body.centre = arm;
            body.velocity = kQuarter * body.w * arm;
            body.acceleration = (kQuarter * body.a - body.w * body.w) * arm;
        }
        O4 = double{m.L1};
        A = Polar(m.L2, l2.th);
        B = A + Polar(m.L3, l3.th);
        l3.centre += A;
        l3.velocity += kQuarter * l2.w * A;
        l3.acceleration += (kQuarter * l2.a - l2.w * l2.w) * A;
        l4.centre += O4;
    }
    explicit Motion(int step) : Motion(step, Model.LinkMass, Model.LinkInertia, Model.CG) {}

    Vector Inertia_Force() const { return l2.Force() + l3.Force() + l4.Force(); }
    /// The friction on link 3, at its mass centre.
    static Vector Friction(int step) {
        const Vector travel = At(Model.RunTable.VelXY, step, 2);
        return -double{Model.FrictionForce} * travel / std::abs(travel);
    }
};

/// The external forces on links 3 and 4 and where they act.
struct Load {
    Vector force, arm;  ///< arm from the mass centre
    double torque = 0;
    double Moment() const { return Cross(arm, force) + torque; }
    double Power(const Body& body) const { return Dot(force, body.velocity) + Moment() * body.w; }
};

inline Load Load_On_3(const Body& body) {
    const auto& m = Model;
    return {{m.ExtForce3X, m.ExtForce3Y}, Polar(m.ForceDist3, body.th + m.ForceAng3 * kDegToRad), m.ExtTorque(3)};
}
inline Load Load_On_4(const Body& body) {
    const auto& m = Model;
    return {{m.ExtForce4X, m.ExtForce4Y}, Polar(m.ForceDist4, body.th + m.ForceAng4 * kDegToRad), m.ExtTorque(4)};
}

}  // namespace verlink::test
