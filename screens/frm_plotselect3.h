// Chooses four functions for a plot of four windows.
#pragma once

#include "screens/function_screen.h"

namespace verlink {

class frm_PlotSelect3 : public Windows_Screen {
   public:
    frm_PlotSelect3();
};

}  // namespace verlink
