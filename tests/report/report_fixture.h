// A press in millimetres on a turned ground, with loads and counterweights, and reports on it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dynamics/dynacalc.h"
#include "output/catalogue.h"
#include "report/chapters.h"
#include "screens/frm_balance.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {

class Reports : public Forces {
   protected:
    Reports() { Load_Catalogue(); }

    /// Calculated, solved and balanced as a user does it on the screens.
    void Make_The_Press(double speed = 0) {
        In_Units(5);
        if (speed > 0) Model.Omega2Input = speed;
        Turn_Ground(30);
        Model.ModelName = "press";
        for (int link = 2; link <= 4; ++link) {
            Model.LinkMass(link) = 0.25 * link;
            Model.LinkInertia(link) = 0.0002 * link;
            Model.CG(link, 0) = 0.011 * link;
            Model.CG(link, 1) = 0.1 * link;
        }
        Model.ExtForceMag(3) = 12.5;
        Model.ExtForceAng(3) = 270;
        Model.ForceDist3 = 0.02;
        Model.ForceAng3 = 15;
        Model.ExtTorque(4) = -1.75;
        Model.FrictionForce = 0.5;
        Resolve_Forces(Model);
        By_Angle(0, 360, 5);
        Solve_Forces(Model);
        Inside(balance, [this] { Press(balance, "cmd_Calc"); });
    }

    static Report Made(std::vector<Output_Function> plots = {}) {
        const auto report = Make_Report(Model, {{kChapters.begin(), kChapters.end()}, std::move(plots), "today"},
                                        [](double) { return true; });
        EXPECT_TRUE(report.has_value());
        return report.value_or(Report{});
    }

    static const Report_Chapter* Chapter_Of(const Report& report, Chapter chapter) {
        for (const Report_Chapter& made : report.chapters)
            if (made.title == Title_Of(chapter)) return &made;
        return nullptr;
    }
    /// The row of that name in a chapter, without its name; of several the one of that number, from 0.
    static std::vector<std::string> Row_Of(const Report& report, Chapter chapter, const std::string& name) {
        const Report_Chapter* found = Chapter_Of(report, chapter);
        if (!found) return {};
        for (const Report_Piece& piece : found->pieces)
            if (const auto* table = std::get_if<Report_Table>(&piece))
                for (const auto& row : table->rows)
                    if (row.front() == name) return {row.begin() + 1, row.end()};
        return {};
    }

    frm_Balance& balance = dynamic_cast<frm_Balance&>(platform::Screens::Get("frm_Balance"));
};

}  // namespace verlink::test
