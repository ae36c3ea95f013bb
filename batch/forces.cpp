// How balance and its report follow from a model.
#include "batch/forces.h"

#include "batch/csv.h"
#include "core/linkage_model.h"
#include "core/results.h"
#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"

namespace verlink {

bool Balance() {
    if (!Default_Weights(Model)) return false;
    Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
    Smooth_Torque(Model, kUsualFluct, Model.RunTable.BalancedMoment);
    return Model.Calctype == run::kByAngle;
}

std::string Balance_Report() {
    if (!Default_Weights(Model)) return {};
    std::string table = "Link,MRNeeded,MRAngleDegrees,BerkMass,BerkRadius\n";
    for (const int link : {2, 4}) {
        table += std::to_string(link);
        for (const Single value : {Model.MRNeeded(link), Single(Model.MRAngle(link) * kRadToDeg), Model.BerkMass(link),
                                   Model.BerkRadius(link)})
            table += "," + Shortest(value);
        table += '\n';
    }
    return table;
}

}  // namespace verlink
