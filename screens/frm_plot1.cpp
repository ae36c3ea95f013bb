// The single window of up to four functions.
#include "screens/frm_plot1.h"

#include "output/cartesian.h"

namespace verlink {

frm_Plot1::frm_Plot1() : Graph_Screen("frm_Plot1", "frm_PlotSelect1", {0}) {}

void frm_Plot1::Draw_Functions() { MultiPlot(*this, Selection()); }

}  // namespace verlink
