// The question before the end.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_Quit : public platform::Screen {
   public:
    frm_Quit();
};

}  // namespace verlink
