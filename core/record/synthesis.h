// What is given to, and found by, the synthesis of two or three positions.
#pragma once

#include "core/number.h"

namespace verlink {

/// Lengths are as link lengths; angles are degrees.
struct SynthesisData {
    Single P1x, P1y, P21x, P21y, P31x, P31y;              ///< coupler point positions and displacements
    Single SynAlpha2, SynAlpha3;                          ///< rotations of the coupler
    Single SynBeta2, SynBeta3;                            ///< rotations of the left dyad's W
    Single SynGamma2, SynGamma3;                          ///< rotations of the right dyad's U
    Single O2x, O2y, O4x, O4y;                            ///< fixed pivots
    Single SynTheta, SynTheta2, SynPhi, SynSigma, SynXi;  ///< directions of W, crank, Z, U, S
    Single SynS, SynZ;                                    ///< magnitudes of S and Z
};

}  // namespace verlink
