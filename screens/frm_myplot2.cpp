// The two aligned windows.
#include "screens/frm_myplot2.h"

namespace verlink {

frm_Myplot2::frm_Myplot2() : Aligned_Screen("frm_Myplot2", "frm_PlotSelect2", {0, 1}) {}

}  // namespace verlink
