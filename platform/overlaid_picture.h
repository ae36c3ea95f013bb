// A picture box with something laid over it.
#pragma once

#include "platform/controls.h"
#include "platform/overlay.h"

namespace verlink::platform {

/// What is `Over` is no part of `Drawing()`: storing another replaces all of it, and leaves the drawing as it is. On
/// paper and in files it goes with the picture.
class Overlaid_Picture : public PictureBox {
   public:
    using PictureBox::PictureBox;
    Property<Overlay> Over{*this, {}};
};

}  // namespace verlink::platform
