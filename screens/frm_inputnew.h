// The input screen: the linkage is typed, calculated and stepped through.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_Inputnew : public platform::Screen {
   public:
    frm_Inputnew();
};

}  // namespace verlink
