// How a model is run without boxes: the limits are checked where they lie.
#include "batch/run.h"

#include <cmath>
#include <limits>

#include "batch/csv.h"
#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "platform/desktop_services.h"

namespace verlink {

using platform::Icon;
using platform::Tell;

namespace {

bool Take_Angle_Limits() {
    if (!(Model.ThetaStart < Model.ThetaEnd)) {
        Tell(kBadAngleRange, Icon::kExclamation);
        return false;
    }
    if (Model.ThetaStep <= 0.0) {
        Tell(kBadAngleStep);
        return false;
    }
    const Single range = std::abs(Model.ThetaEndRad - Model.ThetaStartRad);
    if (Single(0.98 * Model.ThetaStepRad) >= range) {
        Tell(kAnglesTooClose, Icon::kExclamation);
        return false;
    }
    const double steps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
    if (steps > kLastStep) {
        Tell(Too_Many_Steps("angle", "Delta Theta"));
        return false;
    }
    Model.NSteps = steps;
    return true;
}

double Time_Steps() {
    return Model.TimeStep > 0.0 ? Steps_Of(Model.TimeStart, Model.TimeEnd, Model.TimeStep)
                                : std::numeric_limits<double>::infinity();
}

/// What the screen says when it is to run. It looks at the time limits for one position too.
bool Refuse_Time_Steps() {
    if (Time_Steps() <= kLastStep) return false;
    Tell(Too_Many_Steps("time", "Delta Time or Reduce Finish Time"));
    return true;
}

bool Take_Time_Limits() {
    if (!(Model.TimeStart < Model.TimeEnd)) {
        Tell(kBadTimeRange, Icon::kExclamation);
        return false;
    }
    if (Model.TimeStep <= 0.0) {
        Tell(kBadTimeStep);
        Model.TimeStep = std::abs(Model.TimeStep);
    }
    // Said when the limits are read, and again when they are to run.
    if (Time_Steps() > kLastStep) Tell(Too_Many_Steps("time", "Delta Time"));
    if (Refuse_Time_Steps()) return false;
    Model.NSteps = Time_Steps();
    return true;
}

}  // namespace

void Derive_Geometry() {
    for (Single* length : {&Model.L2, &Model.L3, &Model.L4, &Model.Rpa}) Check_Positive(*length);
    if (Model.PolarCoords) Check_Positive(Model.L1);
    Derive_Linkage(Leading::kInForce);
}

bool Take_Limits() {
    switch (Model.Calctype) {
        case 1: return !Refuse_Time_Steps();
        case 2: return Take_Time_Limits();
        case 3: return Take_Angle_Limits();
        default: return true;
    }
}

bool Run_Model(std::ostream& notes) {
    if (!Take_Limits()) return false;
    Derive_Geometry();
    Integer Result = kRetrying;
    if (Model.Imported()) {
        if (Model.NSteps < 0) {
            notes << "verlink-batch: the drive table has no rows\n";
            return false;
        }
        Imported_Run(Result);
        return true;
    }
    Calc_Setup(Model.Calctype, Result);
    return Model.Grashof_Code != "NL";
}

bool Tell_Of_Gaps(std::ostream& notes) {
    const int all = Model.NSteps + 1;
    const int closed = Model.Calculated ? Closed_Positions() : 0;
    if (closed < all) notes << "verlink-batch: " << all - closed << " of " << all << " positions do not close\n";
    return closed > 0;
}

}  // namespace verlink
