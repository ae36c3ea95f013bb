// The menu that changes the scale of a drawing.
#pragma once

#include <functional>
#include <string>

#include "platform/screen.h"

namespace verlink {

/// Each entry sets `ZoomFactor` and draws anew by `redraw`; what fails there is told under the screen's name.
struct Zoom_Menu {
    Zoom_Menu(platform::Screen& owner, const std::string& told_as, const std::function<void()>& redraw);

    platform::MenuEntry mnu_Zoomcontrol, mnu_Plus, mnu_Normal, mnu_Minus;
};

}  // namespace verlink
