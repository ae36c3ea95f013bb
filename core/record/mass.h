// Masses, centres of gravity and external loads, by link.
#pragma once

#include "core/array.h"
#include "core/number.h"

namespace verlink {

struct MassProperties {
    Array<Single, 0, 4> LinkMass;     ///< mass unit
    Array<Single, 0, 4> LinkInertia;  ///< about the centre of gravity, inertia unit
    Table<Single, 0, 4, 2> CG;        ///< 0 distance from the link's pivot, as a link length; 1 angle, radians
    Array<Single, 0, 4> ExtForceMag;  ///< force unit
    Array<Single, 0, 4> ExtForceAng;  ///< global frame, degrees
    Array<Single, 0, 4> ExtTorque;    ///< torque unit
    Single ExtForce3X, ExtForce3Y, ExtForce4X, ExtForce4Y;  ///< global components
    Single ForceDist3, ForceDist4;                          ///< centre of gravity to force point, as a link length
    Single ForceAng3, ForceAng4;                            ///< its angle in the link's frame, degrees
    Single FrictionForce;                                   ///< on link 3, force unit
};

/// Counterweights as the drawing shows them.
struct BalanceWeights {
    Table<Single, 0, 4, 2> BerkCG;  ///< 2 crank, 4 rocker; 0 radius, a length; 1 angle in the link's frame, radians
};

}  // namespace verlink
