// The animate screen: the linkage moves, and joints are dragged.
#pragma once

#include "platform/desktop.h"
#include "platform/screen.h"

namespace verlink {

class frm_Animate : public platform::Screen {
   public:
    frm_Animate();
};

}  // namespace verlink
