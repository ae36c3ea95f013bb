// The screen that asks for the user's name, a design number and a file name.
#pragma once

#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

class frm_User : public platform::Screen {
   public:
    frm_User();

    /// Above `txt_UserName`, `txt_DesignNo` and `txt_Filename`.
    platform::ControlArray<platform::Label> lbl_Prompt{*this,
                                                       "lbl_Prompt",
                                                       {{0, "Please enter your name and/or a project ID:"},
                                                        {1, "Please enter a design number:"},
                                                        {2, "Please enter a disk filename (< 9 chars)"}}};
    platform::TextBox txt_UserName{*this, "txt_UserName"};
    platform::TextBox txt_DesignNo{*this, "txt_DesignNo"};
    platform::TextBox txt_Filename{*this, "txt_Filename", "Model1"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "Next >"};
    Help_Key key_Help{*this};

    void Form_Activate() override;
    /// Before the home screen has been up, closing the window asks whether to quit; later it goes back to it.
    void Form_QueryUnload(bool& cancel) override;
    void cmd_Done_Click();
};

}  // namespace verlink
