// The screens of aligned plots: windows above each other on one common x axis.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/plot_box.h"
#include "screens/delayed_plot_screen.h"

namespace verlink {

class Aligned_Screen : public Delayed_Plot_Screen {
   public:
    platform::ControlArray<platform::PlotBox> pct_Plot;

    // By window: the function, its component and unit, and what stands along the axes.
    platform::ControlArray<platform::Label> pnl_LeftTitle, pnl_Comp, pnl_PlotUnits;
    platform::ControlArray<platform::Label> pnl_Ymax, pnl_zero, pnl_Ymin;
    platform::ControlArray<platform::Label> pnl_Xmin, pnl_X1, pnl_X2, pnl_X3, pnl_Xmax;
    platform::ControlArray<platform::Label> pnl_BottomTitle;
    /// Largest and smallest value, and the height from peak to peak, each with its name.
    platform::ControlArray<platform::Label> lbl_PeakName, lbl_MaxName, lbl_Max, lbl_MinName, lbl_Min;
    platform::ControlArray<platform::Label> lbl_PtoPName, lbl_Peak;

    void cmd_Replot_Click() override;

   protected:
    Aligned_Screen(const std::string& name, const std::string& selection, std::initializer_list<int> windows);

   private:
    int windows_;
};

}  // namespace verlink
