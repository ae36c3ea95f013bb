// The screen that asks for the user's name, a design number and a file name.
#include "screens/frm_user.h"

#include "core/linkage_model.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "platform/deed.h"
#include "platform/guard.h"

namespace verlink {

using platform::Screens;

frm_User::frm_User() : Screen("frm_User") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = &cmd_Done;
    txt_UserName.Tip = "Your name or a project ID, as it stands in the header of printed screens";
    txt_DesignNo.Tip = "The revision of the design, a whole number from -32768 to 32767";
    txt_Filename.Tip = "The name that the model is saved under, without folder and extension";
    cmd_Done.Tip = "Go on to the home screen";
    for (platform::TextBox* box : {&txt_UserName, &txt_DesignNo, &txt_Filename}) {
        box->OnGotFocus = [box] { box->SelectAll(); };
        box->OnReturn = [this] { cmd_Done.Click(); };
    }
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
}

void frm_User::Form_Activate() {
    Guarded("frm_User.Activate", [this] {
        if (Display_Is_High_Enough())
            Fit_Screen(*this, kWorkWidth, kWorkHeight);
        else
            Fit_Display(*this);
        txt_UserName.Text = Model.UserName;
        txt_DesignNo.Text = Text_Of(Model.DesignNumber);
        txt_Filename.Text = Model.ModelName;
        txt_UserName.SetFocus();
    });
}

void frm_User::Form_QueryUnload(bool& cancel) {
    cancel = !Screens::Get("frm_HomeScreen").Visible();
    if (!cancel) return;
    Guarded("frm_User.QueryUnload", [] { Show_Centered("frm_Quit"); });
}

void frm_User::cmd_Done_Click() {
    Guarded("frm_User.cmd_Done_Click", [this] {
        if (txt_UserName.Text.Get().empty()) {
            txt_UserName.SetFocus();
            return;
        }
        const Integer number = Number_Of(txt_DesignNo.Text.Get());
        Model.UserName = txt_UserName.Text;
        Model.DesignNumber = number;
        if (!txt_Filename.Text.Get().empty()) Model.ModelName = txt_Filename.Text;
        Hide();
        // A home screen that is up already comes to the front by itself when this showing returns.
        Screen& home = Screens::Get("frm_HomeScreen");
        Centerform(home);
        if (home.Visible()) return;
        // Who begins says who he is; that changes no model.
        platform::Deed::By_Itself();
        home.ShowModal();
    });
}

}  // namespace verlink
