// How forces, balance and their report follow from a model.
#include "batch/forces.h"

#include "batch/csv.h"
#include "core/linkage_model.h"
#include "core/results.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "dynamics/flywheel.h"

namespace verlink {

namespace {

constexpr double kFluctuation = 0.05;

}  // namespace

bool Solve_Forces() {
    auto& m = Model;
    Resolve_Forces();
    const bool solved = Dynacalc(0, m.LinkMass, m.LinkInertia, m.CG, m.RunTable.PinForce, m.RunTable.LinkTorque);
    if (m.TorqueImported) m.ExtTorque(4) = 0;
    if (solved) Forces_Hold();
    return solved;
}

bool Balance() {
    if (!Default_Weights()) return false;
    Berkof_Calc(Model.BerkMass, Model.BerkRadius);
    Smooth_Torque(kFluctuation, Model.RunTable.BalancedMoment);
    return Model.Calctype == 3;
}

std::string Balance_Report() {
    if (!Default_Weights()) return {};
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
