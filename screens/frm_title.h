// The title screen: the program's name, the way in and the way out.
#pragma once

#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

class frm_Title : public platform::Screen {
   public:
    frm_Title();

    platform::Label Label1{*this, "Label1", "Verlink"};
    platform::Label lbl_Version{*this, "lbl_Version"};
    platform::CommandButton cmd_Abort{*this, "cmd_Abort", "< &Abort"};
    platform::CommandButton cmd_Start{*this, "cmd_Start", "&Start >"};
    Help_Key key_Help{*this};

    void Form_Activate() override;
    /// Closing the window asks what `cmd_Abort` asks.
    void Form_QueryUnload(bool& cancel) override;
    void cmd_Start_Click();
    void cmd_Abort_Click();
};

}  // namespace verlink
