// What stands beside a plot or a table of one position, on every screen that has the panel.
#include "core/runs.h"
#include "dynamics/units.h"
#include "screens/frm_myplot4.h"
#include "screens/frm_plot1.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_screens_fixture.h"

namespace verlink::test {

namespace {

class OnePosition : public Plot_Screens {
   protected:
    OnePosition() {
        Choose("frm_PlotSelect1", 1, "Theta3", "Mag");
        Choose("frm_PlotSelect4", 1, "Veloc CP", "X");
        for (int slot = 1; slot <= 4; ++slot) Choose("frm_PrintSelect", slot, "Theta3", "Mag");
    }
    /// The position at 77 degrees, of the linkage as it stands.
    static void Take_Position() {
        Model.Calctype = 1;
        Model.ThetaZero = 77;
        Model.Omega2Input = 4;
        Integer Result;
        Calc_Setup(Model.Calctype, Result);
    }
    static void Expect_Position(Summary_Panel& panel, const std::string& unit, const std::string& crank) {
        EXPECT_EQ(panel.lbl_Links[1].Caption, crank);
        for (const auto& label : panel.lbl_Units) EXPECT_EQ(label->Caption, unit) << label->ObjectName();
        for (int line = 0; line <= 3; ++line) {
            EXPECT_FALSE(panel.lbl_Initial[line].Visible) << line;
            EXPECT_FALSE(panel.lbl_Linkout2[line].Visible) << line;
        }
        EXPECT_EQ(panel.lbl_Initial[4].Caption, "Theta2");
        EXPECT_EQ(panel.lbl_Linkout2[4].Caption, "77");
        EXPECT_EQ(panel.lbl_Linkout2[5].Caption, "4");
        EXPECT_TRUE(panel.fra_Initial.Visible);
    }
    void Expect_Everywhere(const std::string& unit, const std::string& crank) {
        auto& graph = static_cast<frm_Plot1&>(platform::Screens::Get("frm_Plot1"));
        Inside(graph, [&] { Expect_Position(graph.Summary, unit, crank); });
        auto& polar = static_cast<frm_MyPlot4&>(platform::Screens::Get("frm_MyPlot4"));
        Inside(polar, [&] {
            polar.Timer1.Tick();
            Expect_Position(polar.Summary, unit, crank);
        });
        auto& select = static_cast<frm_PrintSelect&>(platform::Screens::Get("frm_PrintSelect"));
        Inside(select, [&] {
            for (int slot = 1; slot <= 4; ++slot) Choose("frm_PrintSelect", slot, "Theta3", "Mag");
            select.cmd_Done.Enabled = true;
            desktop.Expect_Screen("frm_PrintData", [&](platform::Screen& table) {
                Expect_Position(static_cast<frm_PrintData&>(table).Summary, unit, crank);
                table.Hide();
            });
            Press(select, "cmd_Done");
        });
    }
};

}  // namespace

TEST_F(OnePosition, IsToldBesideEveryPlotAndTableAndNotTheRunBefore) {
    Inside(platform::Screens::Get("frm_Plot1"), [] {});
    Inside(platform::Screens::Get("frm_MyPlot4"), [] {});
    Take_Position();
    Expect_Everywhere("in", "1.115");
}

TEST_F(OnePosition, HasItsLengthsInTheUnitThatStandsBesideThem) {
    Use_Units(4);
    Model.L2 = 0.02667;
    Model.L1 = 0.06;
    Model.L3 = Model.L4 = 0.05;
    Take_Position();
    Expect_Everywhere("cm", "2.667");
    Use_Units(5);
    Take_Position();
    Expect_Everywhere("mm", "26.67");
}

}  // namespace verlink::test
