// The title screen: the program's name, the way in and the way out.
#include "screens/frm_title.h"

#include "core/window_sizes.h"
#include "platform/guard.h"
#include "shell/startup.h"

namespace verlink {

frm_Title::frm_Title() : Screen("frm_Title") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = &cmd_Start;
    cmd_Start.Tip = "Go on to your name and the home screen";
    cmd_Abort.Tip = "Leave the program";
    cmd_Start.OnClick = [this] { cmd_Start_Click(); };
    cmd_Abort.OnClick = [this] { cmd_Abort_Click(); };
}

void frm_Title::Form_Activate() {
    Guarded("frm_Title.Activate", [this] {
        Fit_Display(*this);
        lbl_Version.Caption = Version_Line();
        cmd_Start.SetFocus();
    });
}

void frm_Title::Form_QueryUnload(bool& cancel) {
    cancel = true;
    cmd_Abort_Click();
}

void frm_Title::cmd_Start_Click() {
    Guarded("frm_Title.cmd_Start_Click", [this] {
        Hide();
        Show_Centered("frm_User");
    });
}

void frm_Title::cmd_Abort_Click() {
    Guarded("frm_Title.cmd_Abort_Click", [] { Show_Centered("frm_Quit"); });
}

}  // namespace verlink
