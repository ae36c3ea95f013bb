// What the checks of the results found, as a table.
#pragma once

#include <string>
#include <vector>

#include "checks/check.h"
#include "platform/grid.h"
#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

/// Looks and changes nothing. The cells of the table can be selected and copied.
class frm_Checks : public platform::Screen {
   public:
    frm_Checks();

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_Summary{*this, "lbl_Summary"};
    platform::Grid grd_Data{*this, "grd_Data"};
    /// What could be checked as well.
    platform::Label lbl_Note{*this, "lbl_Note"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Close"};

    void Form_Activate() override;

   private:
    void Show(const std::vector<Check>& checks);
};

}  // namespace verlink
