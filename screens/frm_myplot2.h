// Two functions in two aligned windows.
#pragma once

#include "screens/aligned_screen.h"

namespace verlink {

class frm_Myplot2 : public Aligned_Screen {
   public:
    frm_Myplot2();
};

}  // namespace verlink
