// Masses, centres of gravity and external loads, by link.
#pragma once

#include <string>

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
    std::string TorqueFileName;                             ///< file that ImportedTorque came from
    Single FrictionForce;                                   ///< on link 3, force unit
};

/// Counterweights of links 2 and 4 for full balance of the shaking force; never saved.
struct BalanceWeights {
    Array<Single, 0, 4> MRNeeded;     ///< links 2, 4: mass-radius product needed, mass unit x length
    Array<Single, 0, 4> MRAngle;      ///< links 2, 4: its angle in the link's frame, radians
    Array<Single, 0, 4> BerkMass;     ///< mass unit; 0 for links 1 and 3
    Array<Single, 0, 4> BerkRadius;   ///< length
    Array<Single, 0, 4> BerkInertia;  ///< BerkRadius^2 x BerkMass; 0 for links 1 and 3
    Table<Single, 0, 4, 2> BerkCG;    ///< as CG: 0 distance, a length; 1 angle in the link's frame, radians
    /// By row of the torques, over a run: 0 of the counterweights alone, 1 balanced; torque unit.
    Table<Single, 0, 3, 2> BerkAverage, BerkRms;
};

}  // namespace verlink
