// The question before the end.
#include "screens/frm_quit.h"

#include "core/window_sizes.h"
#include "platform/guard.h"
#include "shell/startup.h"

namespace verlink {

namespace {
constexpr long kQuitWidth = 6000;
constexpr long kQuitHeight = 2250;
}  // namespace

frm_Quit::frm_Quit() : Screen("frm_Quit") {
    Width() = kQuitWidth;
    Height() = kQuitHeight;
    DefaultButton = &cmd_NoQuit;
    CancelButton = &cmd_NoQuit;
    cmd_NoQuit.Tip = "Go on working";
    cmd_YesQuit.Tip = "Leave the program";
    cmd_NoQuit.OnClick = [this] { Hide(); };
    cmd_YesQuit.OnClick = [] { Terminate(); };
}

void frm_Quit::Form_Activate() {
    Guarded("frm_Quit.Activate", [this] {
        Fit_Screen(*this, kQuitWidth, kQuitHeight);
        cmd_NoQuit.SetFocus();
    });
}

}  // namespace verlink
