// The program's name and version.
#include "screens/frm_about.h"

#include "core/window_sizes.h"
#include "platform/guard.h"
#include "shell/startup.h"

namespace verlink {

namespace {
constexpr long kAboutWidth = 6000;
constexpr long kAboutHeight = 3000;
}  // namespace

frm_About::frm_About() : Screen("frm_About") {
    Width() = kAboutWidth;
    Height() = kAboutHeight;
}

void frm_About::Form_Activate() {
    Guarded("frm_About.Activate", [this] {
        Fit_Screen(*this, kAboutWidth, kAboutHeight);
        lbl_Version.Caption = Version_Line();
    });
}

void frm_About::Form_Click() { Hide(); }

}  // namespace verlink
