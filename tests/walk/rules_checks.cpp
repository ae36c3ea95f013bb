// The rule of checks: results that hold pass them, and the home screen says so when not.
#include <string>

#include "checks/check.h"
#include "checks/words.h"
#include "core/results_turns.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

Found Results_Pass_Their_Checks(const platform::Screen& top) {
    static int asked = -1;
    if (!Model.Calculated) return {};
    const bool home = top.Name() == "frm_HomeScreen";
    if (asked == Results_Turns() && !home) return {};
    asked = Results_Turns();
    const std::vector<Check> checks = Checks_Of(Model);
    for (const Check& check : checks) {
        // Whether positions are reached is a matter of what was asked for.
        if (check.verdict != Verdict::kFails || check.name.ends_with("of the synthesis")) continue;
        return Finding{"checks", check.name,
                       check.name + " is off by " + Check_Number(check.worst) + " of " + Check_Number(check.expected) +
                           " at " + check.where};
    }
    if (home && top.Get<platform::Label>("lbl_Checks").Visible != Any_Fails(checks))
        return Finding{"checks", "mark", "the mark of the home screen is not that of the checks"};
    return {};
}

}  // namespace verlink::walk
