// The choice of the vector of a polar plot, whose pick is enough.
#include "screens/frm_plotselect4.h"

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/catalogue.h"
#include "output/polar.h"
#include "output/selection.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr char kPolarPlot[] = "frm_MyPlot4";

}  // namespace

frm_PlotSelect4::frm_PlotSelect4()
    : Function_Screen("frm_PlotSelect4", 1, Function_Slot::Parts::kVariableOnly, "cmd_CancelPlotData") {
    Model.GraphWindows = 1;
}

void frm_PlotSelect4::Form_Activate() {
    Guarded("frm_PlotSelect4.Activate", [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Model.GraphWindows = 1;
        Model.CoordSystem = 0;
        cmd_Done.Enabled = false;
        Reset_Coordinates();
        Load_PolarVariables(*this, Slot(1).cmb_Var);
        Slot(1).cmb_Var.Text = "";
        Clear_Labels(*this, 1);
        Forget_Choices();
        Offer_Last_Selection();
        Slot(1).cmb_Var.SetFocus();
    });
}

void frm_PlotSelect4::Pick_Variable(int slot) {
    Function_Slot& picked = Slot(slot);
    picked.lbl_Function.Caption = "";
    cmd_Done.Enabled = false;
    Select_Variable(picked.cmb_Var.Text, slot);
    Toggle_Coordinate(*this, Model.CoordFunction);
    if (!Model.CoordFunction) opt_Coord[0].Value = true;
    picked.lbl_Function.Caption = picked.cmb_Var.Text.Get();
    cmd_Done.Enabled = true;
}

void frm_PlotSelect4::Count_Functions() {
    cmd_Done.Enabled = Filled() == 1;
    Model.PlotCount = 1;
}

void frm_PlotSelect4::cmd_Done_Click() {
    Guarded("frm_PlotSelect4.cmd_Done", [&] {
        Take_Coordinates();
        Model.PlotCount = 1;
        MyPolarPlotSetup(platform::Screens::Get(kPolarPlot));
        Reset_Coordinates();
        Hide();
        Show_Centered(kPolarPlot);
    });
}

}  // namespace verlink
