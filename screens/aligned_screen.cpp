// The controls of the aligned windows.
#include "screens/aligned_screen.h"

#include "output/cartesian.h"
#include "platform/guard.h"
#include "screens/plot_tips.h"

namespace verlink {

Aligned_Screen::Aligned_Screen(const std::string& name, const std::string& selection,
                               std::initializer_list<int> windows)
    : Delayed_Plot_Screen(name, selection),
      pct_Plot(*this, "pct_Plot", windows),
      pnl_LeftTitle(*this, "pnl_LeftTitle", windows),
      pnl_Comp(*this, "pnl_Comp", windows),
      pnl_PlotUnits(*this, "pnl_PlotUnits", windows),
      pnl_Ymax(*this, "pnl_Ymax", windows),
      pnl_zero(*this, "pnl_zero", windows, "0"),
      pnl_Ymin(*this, "pnl_Ymin", windows),
      pnl_Xmin(*this, "pnl_Xmin", windows),
      pnl_X1(*this, "pnl_X1", windows),
      pnl_X2(*this, "pnl_X2", windows),
      pnl_X3(*this, "pnl_X3", windows),
      pnl_Xmax(*this, "pnl_Xmax", windows),
      pnl_BottomTitle(*this, "pnl_BottomTitle", windows),
      lbl_PeakName(*this, "lbl_PeakName", windows, "Peak"),
      lbl_MaxName(*this, "lbl_MaxName", windows, "Max"),
      lbl_Max(*this, "lbl_Max", windows),
      lbl_MinName(*this, "lbl_MinName", windows, "Min"),
      lbl_Min(*this, "lbl_Min", windows),
      lbl_PtoPName(*this, "lbl_PtoPName", windows, "P to P"),
      lbl_Peak(*this, "lbl_Peak", windows),
      windows_(static_cast<int>(windows.size())) {
    for (const auto& picture : pct_Plot)
        picture->Tip = std::string("The function over the crank angle, with its quarter lines") + kPlotHand;
}

void Aligned_Screen::cmd_Replot_Click() {
    Guarded(Procedure("cmd_Replot"), [&] { MyPlot(*this, Selection(), windows_); });
}

}  // namespace verlink
