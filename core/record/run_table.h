// The results of the last run, by step.
#pragma once

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// Rows: 0 link 3 on link 2, 1 link 4 on link 3, 2 inertia of link 3, 3 inertia of link 2, 4 inertia of link 4,
/// 5 ground on link 2, 6 ground on link 4, 7 shaking force; force unit, ground link's frame.
using ForceTable = StepArray<Single, 8, 2>;
/// Rows: 0 driving torque, 1 net torque on link 3, 2 net torque on link 4, 3 shaking moment; torque unit.
using TorqueTable = StepArray<Single, 4>;

/// Vectors are in the local frame; lengths are in the shown unit. Axis 0 is x, axis 1 is y.
struct RunResults {
    StepArray<bool> Assembled;        ///< the position closed
    StepArray<Single, 4, 2> PointXY;  ///< 0 A, 1 B, 2 P, 3 never written by the solution
    StepArray<Single, 4> Theta;       ///< 0 link 2, 1 link 3, 2 link 4, 3 transmission angle; global, degrees
    StepArray<Single, 3> Omega;       ///< links 2, 3, 4; rad/s
    StepArray<Single, 3> Alpha;       ///< links 2, 3, 4; rad/s^2
    StepArray<Single, 6, 2> VelXY;    ///< 0 A, 1 B, 2 P, 3 CG of link 2, 4 CG of link 4, 5 CG of link 3; length/s
    /// 0 A, 1 B, 2 P, 3 the rocker's normal and tangential component, 4 that of P on link 3's axes, 5 CG of link 3,
    /// 6 CG of link 2, 7 CG of link 4; length/s^2
    StepArray<Single, 8, 2> AccXY;
    StepArray<Single> OmegaRatio;            ///< Omega4 / Omega2
    StepArray<Single> MechAdvantage;         ///< Omega2 / Omega4
    StepArray<Single, 1, 2> FixedCentrode;   ///< (step, 0, axis); stored length units
    StepArray<Single, 1, 2> MovingCentrode;  ///< (step, 0, axis); stored length units
    StepArray<Single> DriveTheta;            ///< imported input angle, degrees
    StepArray<Single> ImportedTorque;        ///< imported driving torque
    ForceTable PinForce;                     ///< of the last solve
    TorqueTable LinkTorque;                  ///< of the last solve
    ForceTable BerkForce;                    ///< of the counterweights alone
    TorqueTable BerkTorque;                  ///< of the counterweights alone
    ForceTable BalancedForce;                ///< BerkForce + PinForce, with the shaking force made anew
    TorqueTable BalancedMoment;              ///< BerkTorque + LinkTorque
    StepArray<Single> FlywheelTorque;        ///< driving torque as a flywheel smooths it, torque unit
};

/// All indexed by step, 0 to 2880; meaningful for 0 to `NSteps` while `Calculated` is true.
struct RunTableSlice {
    RunResults RunTable;
};

}  // namespace verlink
