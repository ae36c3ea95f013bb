// A part of a picture as a picture.
#pragma once

#include "platform/picture.h"

namespace verlink::platform {

/// What is drawn, in a window between two corners of its own. Pins are made smaller by `pins`, so that they keep their
/// size where the part is seen that much larger.
Picture Part_Of(const Picture& picture, double left, double top, double right, double bottom, double pins = 1);

}  // namespace verlink::platform
