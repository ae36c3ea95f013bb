// The reader of the manual.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_Help : public platform::Screen {
   public:
    frm_Help();
};

}  // namespace verlink
