// Four functions in four aligned windows.
#pragma once

#include "screens/aligned_screen.h"

namespace verlink {

class frm_MyPlot3 : public Aligned_Screen {
   public:
    frm_MyPlot3();
};

}  // namespace verlink
