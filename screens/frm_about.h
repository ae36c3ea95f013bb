// The program's name and version.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_About : public platform::Screen {
   public:
    frm_About();
};

}  // namespace verlink
