// The screen that asks for the user's name and a design number.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_User : public platform::Screen {
   public:
    frm_User();
};

}  // namespace verlink
