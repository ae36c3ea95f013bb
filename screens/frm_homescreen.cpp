// The hub: menus, the row of buttons, the status panel, the present linkage.
#include "screens/frm_homescreen.h"

#include "core/linkage_model.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "screens/frm_help.h"
#include "screens/help_documents.h"
#include "shell/failure_report.h"

namespace verlink {

using platform::Icon;
using platform::Tell;
using platform::The_Desktop;

frm_HomeScreen::frm_HomeScreen() : Screen("frm_HomeScreen") {
    Model.ScreenHeight = kHomeHeight;
    Model.ScreenWidth = kHomeWidth;
    Width() = kHomeWidth;
    Height() = kHomeHeight;
    const platform::DisplaySize display = The_Desktop().Display();
    Left() = Long((display.width - Width()) / 2.0);
    Top() = Long((display.height - Height()) / 2.0);
    Model.HomeTop = Top().Get();
    Note_Status_Width();

    DefaultButton = &cmd_Input;
    cmd_Input.Tip = "Enter a linkage and calculate it";
    cmd_Quit.Tip = "Leave the program";
    Picture1.Visible = false;
    for (int flag = 0; flag <= 8; ++flag) lbl_Status[flag].Visible = false;
    for (Button* button : {&cmd_Animate, &cmd_Plot, &cmd_Print, &cmd_Dynamics, &cmd_Balance}) button->Enabled = false;
    for (MenuEntry* entry : {&mnu_New,
                             &mnu_Save,
                             &mnu_Saveas,
                             &mnu_Export,
                             &mnu_Lobetra,
                             &mnu_Link_Data_Import,
                             &mnu_Link_Data_Export,
                             &mnu_Export_Torque,
                             &mnu_pdx,
                             &mnu_Grashof,
                             &mnu_Hoekens,
                             &mnu_Roberts,
                             &mnu_Watts,
                             &mnu_Cheby,
                             &mnu_Syntest,
                             &mnu_Cayley,
                             &mnu_Twopos1,
                             &mnu_Twopos2,
                             &mnu_Unspec,
                             &mnu_Spec,
                             &mnu_CalcFFT})
        entry->Enabled = false;
    for (const auto& entry : mnu_Cog) entry->Enabled = false;

    for (const auto& [entry, document] : Help_Documents())
        Get<MenuEntry>(entry).OnClick = [name = std::string(entry)] {
            Show_Help(Help_Document(name), "frm_Homescreen." + name);
        };
}

void frm_HomeScreen::Note_Status_Width() { Model.StatusWidth = Width().Get(); }  // the panel spans the screen

void frm_HomeScreen::Form_Activate() {
    Guarded("frm_Homescreen.Activate", [this] {
        Fit_Screen(*this, kHomeWidth, kHomeHeight);
        Note_Status_Width();
        if (Model.JustStarted) {
            Model.JustStarted = false;
            Tell("Your default path for saved files is: " + Model.FilePath, Icon::kInformation);
        }
        Set_Menus();
        Refresh_Status();
        Model.ScreenReturn = false;
        Show_Linkage();
    });
}

void frm_HomeScreen::Form_QueryUnload(bool& cancel) { cancel = true; }

void frm_HomeScreen::Form_Unload() {}

void frm_HomeScreen::Show_Linkage() {
    Picture1.Visible = Model.Calculated;
    lbl_Name.Visible = !Model.Calculated;
    lbl_Advice.Visible = !Model.Calculated;
}

}  // namespace verlink
