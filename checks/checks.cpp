// All checks in their order.
#include <algorithm>
#include <cmath>

#include "checks/check.h"
#include "checks/designs.h"
#include "checks/forces.h"
#include "checks/motion.h"
#include "checks/transform.h"
#include "core/linkage_model.h"

namespace verlink {

namespace {

/// The largest number typed beside which singles have no digits left, and its limit; both 0 where there is none.
struct Beyond_Sense {
    double number{}, limit{};
    void Take(double typed, double most) {
        if (!(std::abs(typed) < most) && !(std::abs(typed) < number)) *this = {std::abs(typed), most};
    }
};

Beyond_Sense Largest_Number(const LinkageModel& m) {
    constexpr double kSize = 1e12, kAngle = 1e6;  // an angle as it is kept
    Beyond_Sense largest;
    for (const Single size :
         {m.L1, m.L2, m.L3, m.L4, m.Rpa, m.Omega2Input, m.Alpha2, m.FrictionForce, m.ForceDist3, m.ForceDist4})
        largest.Take(size, kSize);
    for (const Single angle : {m.Delta, m.Link1Angle, m.ForceAng3, m.ForceAng4}) largest.Take(angle, kAngle);
    for (const int link : {2, 3, 4}) {
        for (const auto* sizes :
             {&m.LinkMass, &m.LinkInertia, &m.ExtForceMag, &m.ExtTorque, &m.BerkMass, &m.BerkRadius})
            largest.Take((*sizes)(link), kSize);
        largest.Take(m.CG(link, 0), kSize);
        largest.Take(m.CG(link, 1), kAngle);
        largest.Take(m.ExtForceAng(link), kAngle);
    }
    return largest;
}

}  // namespace

std::vector<Check> Checks_Of(const LinkageModel& model) {
    std::vector<Check> checks;
    if (!model.RunStands) return checks;
    if (const Beyond_Sense large = Largest_Number(model); large.limit > 0) {
        checks.push_back({.name = "Size of the numbers",
                          .worst = large.number,
                          .expected = large.limit,
                          .unit = "",
                          .where = "",
                          .verdict = Verdict::kByDesign,
                          .meaning = "Single precision has no digits left beside numbers of this size: nothing else is "
                                     "checked."});
        return checks;
    }
    const std::vector<checks::Step> steps = checks::Checked_Steps(model);
    checks::Add_Motion(model, steps, checks);
    checks::Add_Differences(model, steps, checks);
    if (model.DynamicsDone) checks::Add_Forces(model, steps, checks);
    if (model.BalanceDone) checks::Add_Balance(model, steps, checks);
    checks::Add_Cognates(model, checks);
    checks::Add_Positions(model, checks);
    if (model.FFTDone) checks::Add_Transform(model, checks);
    return checks;
}

bool Any_Fails(const std::vector<Check>& checks) {
    return std::ranges::any_of(checks, [](const Check& check) { return check.verdict == Verdict::kFails; });
}

}  // namespace verlink
