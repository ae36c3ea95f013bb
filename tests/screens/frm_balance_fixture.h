// A solved linkage on the balancing screen, for tests that play its user.
#pragma once

#include <string>
#include <vector>

#include "dynamics/dynacalc.h"
#include "screens/frm_balance.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {

class BalanceScreen : public Forces {
   protected:
    BalanceScreen() {
        Solve();
        Forces_Hold();
    }
    static void Solve() {
        Dynacalc(Model, 0, Model.LinkMass, Model.LinkInertia, Model.CG, Model.RunTable.PinForce,
                 Model.RunTable.LinkTorque);
    }
    std::string In(const char* box, int link) { return form.Text(box, link).Text; }
    void Fill(const char* box, int link, const std::string& text) { Type(form, box, link, text); }
    void Enter_In(const char* box, int link, const std::string& text) { Enter(form, box, link, text); }
    void Calculate_Now() { Press(form, "cmd_Calc"); }
    /// Has the screen calculated since the graphs were last counted?
    bool Calculated() {
        const int before = seen_;
        seen_ = form.grf_Plot[0].Drawings();
        return seen_ != before;
    }
    const std::vector<double>& Curve(int graph, int set) {
        return form.grf_Plot[graph].Sets()[static_cast<std::size_t>(set)].values;
    }

    frm_Balance& form = dynamic_cast<frm_Balance&>(platform::Screens::Get("frm_Balance"));

   private:
    int seen_ = 0;
};

}  // namespace verlink::test
