// The four windows of one function each.
#include "screens/frm_plot3.h"

#include "output/cartesian.h"

namespace verlink {

frm_Plot3::frm_Plot3() : Graph_Screen("frm_Plot3", "frm_PlotSelect3", {0, 1, 2, 3}) {}

void frm_Plot3::Draw_Functions() { Plot(*this, Selection(), Windows()); }

}  // namespace verlink
