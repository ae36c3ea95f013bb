// The four aligned windows.
#include "screens/frm_myplot3.h"

namespace verlink {

frm_MyPlot3::frm_MyPlot3() : Aligned_Screen("frm_MyPlot3", "frm_PlotSelect3", {0, 1, 2, 3}) {}

}  // namespace verlink
