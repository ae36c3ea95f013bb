// What is given to, and found by, the synthesis of two or three positions.
#pragma once

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// By cognate 1 to 3, item 1 to 6: L1, L2, L3, L4, Rpa, DeltaRad; of `Cognates` 0 is Delta, degrees.
using CognateTable = Table<Single, 0, 3, 7>;

/// Lengths are as link lengths; angles are degrees.
struct SynthesisData {
    Single P1x, P1y, P21x, P21y, P31x, P31y;              ///< coupler point positions and displacements
    Single SynAlpha2, SynAlpha3;                          ///< rotations of the coupler
    Single SynBeta2, SynBeta3;                            ///< rotations of the left dyad's W
    Single SynGamma2, SynGamma3;                          ///< rotations of the right dyad's U
    Single O2x, O2y, O4x, O4y;                            ///< fixed pivots
    Single SynTheta, SynTheta2, SynPhi, SynSigma, SynXi;  ///< directions of W, crank, Z, U, S
    Single SynW, SynZ, SynU, SynS;                        ///< magnitudes of W, Z, U, S; negative ones stand
    Single SynWx, SynWy, SynZx, SynZy;                    ///< left dyad, global frame
    Single SynUx, SynUy, SynSx, SynSy;                    ///< right dyad, global frame
    Single P21Mag, P21Angle;                              ///< polar form of P21
    Integer SynPositions;  ///< 1 two positions, 2 three with free pivots, 3 three with specified pivots
    Integer SynMethod;     ///< of two positions: 1 three angles assumed, 2 magnitude and angle of a vector
    Single TurnedOmega2;   ///< the crank speed that a synthesis has made negative, rad/s; 0 for none
    bool SpecifiedPivots = false;
    Integer SimqError;        ///< flag of the last solution of three positions
    Integer SimqAnswer;       ///< button pressed at its failure; 2 is Cancel, 0 no failure
    CognateTable Cognates;    ///< as the menus load them: the shorter side link of rows 2 and 3 is link 2
    CognateTable CayleyRows;  ///< the same three as they stand in the diagram
};

}  // namespace verlink
