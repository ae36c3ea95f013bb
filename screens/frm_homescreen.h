// The hub: menus, the row of buttons, the status panel.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_HomeScreen : public platform::Screen {
   public:
    frm_HomeScreen();
};

}  // namespace verlink
