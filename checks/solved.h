// Forces of a step by two equations for the pin between coupler and rocker, with what rounding may make of them.
#pragma once

#include "checks/motion.h"
#include "core/array.h"
#include "core/number.h"

namespace verlink::checks {

/// A moving link with its mass centre, in stored lengths and the ground link's frame from O2.
struct Body {
    double mass = 0, inertia = 0;
    double turn1 = 0, alpha = 0;  ///< derivative of its angle by the crank's, and its acceleration
    Vector centre1, centre, arm;  ///< derivative of the centre; the centre, and the same from the link's joint
    Vector acceleration;
    Estimate moment;                         ///< inertia x acceleration
    Estimate2 direction, arm_estimate;       ///< of the line of centres; the arm
    Estimate2 acceleration_estimate, force;  ///< force is mass x acceleration
};

/// Masses by link 2 to 4 as a solve takes them.
struct Masses {
    const Array<Single, 0, 4>&Mass, &Inertia;
    const Table<Single, 0, 4, 2>& CG;
};

/// What acts on links 3 and 4 beside the pins, as the program takes it.
struct Loads {
    Estimate2 force3, force4;   ///< at the mass centres, friction included
    Estimate moment3, moment4;  ///< of the external forces about them, and the torques
    Vector friction;
    Vector point3, point4;  ///< where the external forces act, from the mass centres
    double torque4 = 0;
};

/// Unknowns of a step.
struct Solved {
    Body l2, l3, l4;
    Loads loads;
    Estimate2 F12, F32, F43, F14;
    Estimate T12;
    /// The driving torque by virtual work alone.
    double virtual_work = 0;
};

/// `loaded` takes the external forces, torques and friction in.
Solved Solve(const LinkageModel& model, const Step& step, const Masses& masses, bool loaded);

}  // namespace verlink::checks
