// The polar plot of a vector: its tip's path, the vector at every step, or both, and a mode that shows one at a time.
#pragma once

#include "platform/plot_box.h"
#include "screens/delayed_plot_screen.h"

namespace verlink {

class frm_MyPlot4 : public Delayed_Plot_Screen {
   public:
    frm_MyPlot4();

    platform::PlotBox pct_Plot{*this, "pct_Plot"};
    platform::Label pnl_LeftTitle{*this, "pnl_LeftTitle"};
    /// Beside the ends of the axes: the window's bounds, the origin, and the names of the axes.
    platform::ControlArray<platform::Label> pnl_Comp{*this, "pnl_Comp", {{0, "X"}, {1, "Y"}}};
    platform::Label pnl_Ymax{*this, "pnl_Ymax"};
    platform::Label pnl_Ymin{*this, "pnl_Ymin"};
    platform::Label pnl_Xmax{*this, "pnl_Xmax"};
    platform::Label pnl_Xmin{*this, "pnl_Xmin"};
    platform::Label pnl_zero{*this, "pnl_zero", "0"};

    platform::Frame fra_Show{*this, "fra_Show", "Show"};
    platform::CheckBox chk_Envelope{*this, "chk_Envelope", "Envelope"};
    platform::CheckBox chk_Vectors{*this, "chk_Vectors", "Vectors"};

    /// One vector at a time: the step's angle or time, the vector's magnitude (0) and angle (1).
    platform::CheckBox chk_Pause{*this, "chk_Pause", "Pause"};
    platform::CommandButton cmd_Step{*this, "cmd_Step", "Plot"};
    platform::Label lbl_StepLabel{*this, "lbl_StepLabel", "Theta2"};
    platform::Label lbl_StepNumber{*this, "lbl_StepNumber"};
    platform::Label lbl_StepUnit{*this, "lbl_StepUnit", "deg"};
    platform::ControlArray<platform::Label> pnl_name{*this, "pnl_name", {{0, "Mag"}, {1, "Ang"}}};
    platform::ControlArray<platform::Label> pnl_vector{*this, "pnl_vector", {{0, "data"}, {1, "data"}}};
    platform::Label pnl_PlotUnits{*this, "pnl_PlotUnits"};

    void cmd_Replot_Click() override;
    void cmd_Step_Click();
    void chk_Pause_Click();

   protected:
    void Start_Plot() override;

   private:
    void Show_Step_Controls(bool shown);

    Integer StepCount;  ///< the step that is shown while paused
};

}  // namespace verlink
