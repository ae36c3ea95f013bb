// The question before the end.
#pragma once

#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

class frm_Quit : public platform::Screen {
   public:
    frm_Quit();

    platform::Label Label1{*this, "Label1", "Do you really want to Quit?"};
    platform::CommandButton cmd_NoQuit{*this, "cmd_NoQuit", "&No"};
    platform::CommandButton cmd_YesQuit{*this, "cmd_YesQuit", "&Yes"};
    Help_Key key_Help{*this};

    void Form_Activate() override;
};

}  // namespace verlink
