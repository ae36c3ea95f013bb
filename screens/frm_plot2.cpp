// The two windows of one function each.
#include "screens/frm_plot2.h"

#include "output/cartesian.h"

namespace verlink {

frm_Plot2::frm_Plot2() : Graph_Screen("frm_Plot2", "frm_PlotSelect2", {0, 1}) {}

void frm_Plot2::Draw_Functions() { Plot(*this, Selection(), Windows()); }

}  // namespace verlink
