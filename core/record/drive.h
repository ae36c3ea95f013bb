// How the crank is driven: circuit, run type, limits, speeds.
#pragma once

#include <string>

#include "core/number.h"

namespace verlink {

/// How the crank is led through a run: what `Calctype` says.
namespace run {
inline constexpr int kOnePosition = 1, kByTime = 2, kByAngle = 3, kCamDriven = 4, kLinkDriven = 5;
}  // namespace run

struct Drive {
    Integer CircuitIndex;                    ///< 1 open, 2 crossed
    Integer CircuitSign;                     ///< -1 open, +1 crossed: the sign before the square roots of the solution
    std::string CircuitName;                 ///< "Open" or "Crossed"
    Integer Calctype;                        ///< `run::kOnePosition` to `run::kLinkDriven`
    std::string ModuloMode;                  ///< "abs" wraps stored angles to 0..360, "180" to -180..180
    Integer NSteps;                          ///< last step index of the run
    Single ThetaZero;                        ///< global crank angle of one-position and time-step runs, degrees
    Single ThetaStart, ThetaEnd, ThetaStep;  ///< degrees
    Single ThetaStartRad, ThetaEndRad, ThetaStepRad;       ///< radians
    std::string ThetaStartStr, ThetaEndStr, ThetaStepStr;  ///< limits as entered; seconds in time mode
    Single TimeStart, TimeEnd, TimeStep;                   ///< seconds
    Single Omega2Input;                                    ///< crank speed as entered, rad/s
    Single Omega2;                                         ///< crank speed at the current step, rad/s
    Single Alpha2;                                         ///< crank acceleration, rad/s^2
    Single ImportedAlpha2;  ///< crank acceleration of the current step of an imported run, rad/s^2
    Single Delta2;          ///< phase offset of the driving angle in link-driven runs, degrees
    Integer CurrentStep;    ///< step shown, or next to be shown, by the stepping controls

    /// Whether a table from a file leads the crank.
    bool Imported() const { return Calctype > run::kByAngle; }
};

/// What an imported cam drive brings with it.
struct CamDrive {
    Integer CamDirection;            ///< multiplier of the imported angle
    Single CamPhase;                 ///< phase offset, degrees
    Single CamDataLength1;           ///< length of the follower arm; as a link length
    Single CamDataLength2;           ///< radius of the follower's roller; as a link length
    Single CamDiameter;              ///< as a link length
    Single CamCenterX, CamCenterY;   ///< as link lengths
    std::string Model5Name;          ///< file that the drive data came from
    bool LinkImportPending = false;  ///< link drive data have been imported; nothing asks for it
};

}  // namespace verlink
