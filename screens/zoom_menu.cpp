#include "screens/zoom_menu.h"

#include "core/linkage_model.h"
#include "platform/guard.h"

namespace verlink {

Zoom_Menu::Zoom_Menu(platform::Screen& owner, const std::string& told_as, const std::function<void()>& redraw)
    : mnu_Zoomcontrol(owner, "mnu_Zoomcontrol", "Zoom"),
      mnu_Plus(mnu_Zoomcontrol, "mnu_Plus", "Zoom In"),
      mnu_Normal(mnu_Zoomcontrol, "mnu_Normal", "Normal"),
      mnu_Minus(mnu_Zoomcontrol, "mnu_Minus", "Zoom Out") {
    mnu_Plus.Keys = "Ctrl++ Ctrl+= +";
    mnu_Normal.Keys = "Ctrl+0";
    mnu_Minus.Keys = "Ctrl+- -";
    const auto zoom = [told_as, redraw](double factor) {
        Guarded(told_as + ".Zoom", [&] {
            Model.ZoomFactor = factor;
            redraw();
        });
    };
    constexpr double kStep = 1.1;
    mnu_Plus.OnClick = [zoom] { zoom(Model.ZoomFactor / kStep); };
    mnu_Normal.OnClick = [zoom] { zoom(1); };
    mnu_Minus.OnClick = [zoom] { zoom(Model.ZoomFactor * kStep); };
}

}  // namespace verlink
