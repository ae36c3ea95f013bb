// Chooses two functions for a plot of two windows.
#pragma once

#include "screens/function_screen.h"

namespace verlink {

class frm_PlotSelect2 : public Windows_Screen {
   public:
    frm_PlotSelect2();
};

}  // namespace verlink
