// Boxes that say how curves are drawn.
#pragma once

#include <functional>

#include "platform/controls.h"

namespace verlink {

/// Binds the clicks of two boxes of which one stays ticked, so that there is always something to see: the last of them
/// cannot be cleared. `redraw` follows each click.
void Keep_One(platform::CheckBox& first, platform::CheckBox& second, const std::function<void()>& redraw);

}  // namespace verlink
