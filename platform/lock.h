// A small lock at the side of a box.
#pragma once

#include "platform/controls.h"

namespace verlink::platform {

/// Ticked it holds what stands in the box at its side. Its caption is told to who does not see it, and is not shown.
class Lock : public CheckBox {
   public:
    using CheckBox::CheckBox;
};

}  // namespace verlink::platform
