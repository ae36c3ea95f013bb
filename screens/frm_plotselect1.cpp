// The choice of up to four functions for a single window, which may not leave gaps.
#include "screens/frm_plotselect1.h"

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/cartesian.h"
#include "output/selection.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CR;

namespace {

constexpr char kPlot[] = "frm_Plot1";

const std::string kGap = std::string("Something is wrong. ") + CR + CR + "You are missing a plot selection." + CR + CR +
                         "Please leave no gaps between selections. " + CR + "Two functions should use Plots 1 and 2. " +
                         "Three functions should use Plots 1, 2, and 3.";

}  // namespace

frm_PlotSelect1::frm_PlotSelect1() : Preset_Screen("frm_PlotSelect1", 4, "cmd_CancelPlotData") {
    Model.GraphWindows = 1;
}

void frm_PlotSelect1::Form_Activate() {
    Guarded("frm_PlotSelect1.Activate", [&] { Start_Selection(1); });
}

void frm_PlotSelect1::Take_Preset() { Apply_Preset(*this, 4); }

void frm_PlotSelect1::Count_Functions() {
    int highest = 0;
    for (int slot = 1; slot <= SlotCount(); ++slot)
        if (!Slot(slot).lbl_Function.Caption.Get().empty()) highest = slot;
    Model.PlotCount = highest;
    if (highest == 0) cmd_Done.Enabled = false;
    if (highest == Filled()) return;
    platform::Tell(kGap, platform::Icon::kExclamation);
    cmd_Done.Enabled = false;
}

void frm_PlotSelect1::cmb_Var_DblClick(int slot) {
    // Four functions were counted before: what the slots hold is plotted at once.
    if (!Pick_By_Name(slot) || Model.PlotCount != 4 || Slot(slot).cmb_Com.Text.Get().empty()) return;
    Take_Slot(slot);
    Go_On();
}

void frm_PlotSelect1::cmd_Done_Click() {
    Guarded("frm_PlotSelect1.cmd_Done", [&] {
        Take_Coordinates();
        platform::Screen& plot = platform::Screens::Get(kPlot);
        Plot_Setup(plot, Model.GraphWindows);
        MultiPlot(plot, *this);
        Hide();
        Reset_Coordinates();
        Show_Centered(kPlot);
    });
}

}  // namespace verlink
