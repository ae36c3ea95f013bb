// The choice of four functions for four windows.
#include "screens/frm_plotselect3.h"

namespace verlink {

frm_PlotSelect3::frm_PlotSelect3()
    : Windows_Screen("frm_PlotSelect3", "Four Windows - Four Functions", 4, {"frm_MyPlot3", "frm_Plot3"}) {}

}  // namespace verlink
