// The reader of the manual.
#include "screens/frm_help.h"

#include "core/screen_geometry.h"
#include "platform/desktop.h"
#include "shell/failure_report.h"

namespace verlink {

frm_Help::frm_Help() : Screen("frm_Help") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    WebBrowser1.Tip = "The manual";
    mnu_Full.OnClick = [this] { mnu_Full_Click(); };
    mnu_Shrink.OnClick = [this] { mnu_Shrink_Click(); };
    mnu_Close.OnClick = [this] { mnu_Close_Click(); };
}

void frm_Help::mnu_Full_Click() {
    Guarded("frm_Help.mnu_Full", [this] {
        const platform::DisplaySize display = platform::The_Desktop().Display();
        Left() = 0;
        Top() = 0;
        Width() = display.width;
        Height() = display.height;
    });
}

void frm_Help::mnu_Shrink_Click() {
    Guarded("frm_Help.mnu_Shrink", [this] { Reset_Screen(*this, kWorkWidth, kWorkHeight); });
}

void frm_Help::mnu_Close_Click() { Hide(); }

void Show_Help(const std::string& document, const std::string& handler) {
    Guarded(handler, [&] {
        platform::Screens::Get("frm_Help").Get<platform::DocumentView>("WebBrowser1").Document = document;
        Show_Centered("frm_Help");
    });
}

}  // namespace verlink
