// The polar plot and its step mode.
#include "screens/frm_myplot4.h"

#include <string>

#include "core/linkage_model.h"
#include "output/polar.h"
#include "platform/guard.h"
#include "screens/plot_tips.h"
#include "screens/style_boxes.h"

namespace verlink {

frm_MyPlot4::frm_MyPlot4() : Delayed_Plot_Screen("frm_MyPlot4", "frm_PlotSelect4") {
    chk_Envelope.Value = true;
    Show_Step_Controls(false);
    pct_Plot.Tip = std::string("The vector from the origin, over the whole run") + kPlotHand;
    chk_Envelope.Tip = "Draw the path of the vector's tip; the last of these two boxes stays ticked";
    chk_Vectors.Tip = "Draw the vector of every step from the origin; the last of these two boxes stays ticked";
    chk_Pause.Tip = "Show one vector at a time, with its values";
    cmd_Step.Tip = "Draw the plot; while paused, show the next vector";
    Keep_One(chk_Envelope, chk_Vectors, [this] { cmd_Replot_Click(); });
    chk_Pause.OnClick = [this] { chk_Pause_Click(); };
    cmd_Step.OnClick = [this] { cmd_Step_Click(); };
}

void frm_MyPlot4::Start_Plot() {
    chk_Pause.Value = false;  // the vector of an earlier plot is not this one's
    Delayed_Plot_Screen::Start_Plot();
}

void frm_MyPlot4::cmd_Replot_Click() {
    Guarded(Procedure("cmd_Replot"), [&] {
        MyPolarPlotSetup(*this);
        MyPolarPlot(*this, Selection());
    });
}

void frm_MyPlot4::Show_Step_Controls(bool shown) {
    for (platform::Label* label : {&lbl_StepUnit, &lbl_StepLabel, &lbl_StepNumber, &pnl_PlotUnits})
        label->Visible = shown;
    for (auto* labels : {&pnl_name, &pnl_vector})
        for (const auto& label : *labels) label->Visible = shown;
}

void frm_MyPlot4::chk_Pause_Click() {
    Guarded(Procedure("chk_Pause"), [&] {
        const bool paused = chk_Pause.Value;
        cmd_Step.Caption = paused ? "S&tep" : "Plot";
        cmd_Step.Enabled = true;
        Show_Step_Controls(paused);
        if (paused) {
            StepCount = 0;
            chk_Vectors.Value = true;
            chk_Envelope.Value = false;
        }
        chk_Envelope.Enabled = !paused;
        chk_Vectors.Enabled = !paused;
        if (paused)
            MyPolarStep(*this, StepCount);
        else
            cmd_Replot_Click();
    });
}

void frm_MyPlot4::cmd_Step_Click() {
    Guarded(Procedure("cmd_Step"), [&] {
        if (!chk_Pause.Value) {
            cmd_Replot_Click();
            return;
        }
        StepCount += 1;
        if (StepCount > Model.NSteps)
            chk_Pause.Value = false;
        else
            MyPolarStep(*this, StepCount);
    });
}

}  // namespace verlink
