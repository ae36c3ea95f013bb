// The title screen.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_Title : public platform::Screen {
   public:
    frm_Title();
};

}  // namespace verlink
