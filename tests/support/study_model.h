// The linkage that tests of studies begin with.
#pragma once

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "shell/initialize.h"

namespace verlink::test {

/// A crank-rocker of 4, 1, 3.5 and 3 inches, by angle over a turn in steps of 10 degrees at 7 rad/s.
inline void Begin_With_A_Crank_Rocker() {
    Initialize();
    Use_Units(1);
    Enter_Linkage(Road::kNew, [] {
        Model.L1 = 4, Model.L2 = 1, Model.L3 = 3.5, Model.L4 = 3, Model.Rpa = 2.5, Model.Delta = 20;
        Model.Link1Angle = 0;
        Model.PolarCoords = true;
        Model.CircuitIndex = 1;
    });
    Model.Calctype = 3;
    Model.ThetaStart = 0, Model.ThetaEnd = 360, Model.ThetaStep = 10;
    Model.ThetaStartRad = 0, Model.ThetaEndRad = 360 * kDegToRad, Model.ThetaStepRad = 10 * kDegToRad;
    Model.Omega2Input = 7;
}

}  // namespace verlink::test
