// The linkage itself: its lengths, its ground link and its coupler point.
#pragma once

#include <string>

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// Lengths are as shown on the screens in `Units` 1 to 3, metres in 4 and 5. The local frame has its origin at O2
/// and its x axis through O4; the global frame differs from it by `Link1Angle`.
struct Geometry {
    Single L1;                        ///< ground link, O2 to O4
    Single L2;                        ///< crank, O2 to A
    Single L3;                        ///< coupler, A to B
    Single L4;                        ///< rocker, O4 to B
    Single Rpa;                       ///< A to the coupler point P
    Single Delta;                     ///< angle from AB to AP, degrees
    Single DeltaRad;                  ///< the same, radians
    std::string DeltaStr;             ///< the same as text
    Single Link1X, Link1Y;            ///< O4 from O2, global frame
    Single Link1Angle;                ///< direction of the ground link in the global frame, degrees
    Single Link1AngleRad;             ///< the same, radians
    Single Link1LocalX, Link1LocalY;  ///< (Link1X, Link1Y) turned back by Link1Angle
    /// 0 Rpa, 1 L1, 2 L2, 3 L3, 4 L4, 5 Link1X, 6 Link1Y, 7 Link1LocalX, 8 Link1LocalY; see `LoadLinkArray`
    Array<Single, 0, 8> LinkArray;
    bool Parallelogram = false;  ///< L2 = L4 and L3 = L1, exactly
    bool PolarCoords = false;    ///< link 1 is entered as magnitude and angle
};

}  // namespace verlink
