// The choice of two functions for two windows.
#include "screens/frm_plotselect2.h"

namespace verlink {

frm_PlotSelect2::frm_PlotSelect2()
    : Windows_Screen("frm_PlotSelect2", "Two Windows - Two Functions", 2, {"frm_Myplot2", "frm_Plot2"}) {}

}  // namespace verlink
