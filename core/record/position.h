// The position that was solved last, and the scratch of the centrodes.
#pragma once

#include <string>

#include "core/number.h"

namespace verlink {

/// All in the local frame, in stored length units.
struct CurrentPosition {
    Single Theta2Rad, Theta3Rad, Theta4Rad;  ///< radians
    double SinTheta2 = 0, CosTheta2 = 0, SinTheta3 = 0, CosTheta3 = 0, SinTheta4 = 0, CosTheta4 = 0;
    double SinDelta3 = 0, CosDelta3 = 0;  ///< of DeltaRad + Theta3Rad
    Single Omega3, Omega4;                ///< rad/s
    Single Alpha3, Alpha4;                ///< rad/s^2
    Single Omega2Sq, Omega3Sq, Omega4Sq;  ///< squares of the speeds
    Single Ax, Ay, Bx, By, Px, Py;        ///< length
};

struct CentrodeScratch {
    Single IC13x, IC13y;                ///< instant centre 1-3 of this step
    Single Centrode0Ax, Centrode0Ay;    ///< A at step 0
    Single Centrode0Theta3;             ///< Theta3Rad at step 0
    Single SinCentrode0, CosCentrode0;  ///< its sine and cosine
    Integer IntersectFlag;
    std::string MessageText;       ///< text of the last message of the engine
    bool MathDomainError = false;  ///< set by `FNArcCos` and `FNArcSin`
};

}  // namespace verlink
