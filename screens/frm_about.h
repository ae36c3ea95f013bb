// The program's name and version.
#pragma once

#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

class frm_About : public platform::Screen {
   public:
    frm_About();

    platform::Label Label1{*this, "Label1", "Verlink"};
    platform::Label lbl_Version{*this, "lbl_Version"};
    Help_Key key_Help{*this};

    void Form_Activate() override;
    /// A click anywhere closes the screen.
    void Form_Click() override;
};

}  // namespace verlink
