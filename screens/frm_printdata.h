// The table of up to four functions, with the linkage's data beside it.
#pragma once

#include "platform/desktop_services.h"
#include "platform/grid.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/summary_panel.h"
#include "screens/table_menu.h"

namespace verlink {

/// Filled by `Multiprint`.
class frm_PrintData : public platform::Screen {
   public:
    frm_PrintData();

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    Table_Menu table{*this, [this] { return Shown_Table(); }};

    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_Header2{*this, "lbl_Header2"};
    platform::Label lbl_Header3{*this, "lbl_Header3"};
    Summary_Panel Summary{*this};
    platform::Grid grd_Data{*this, "grd_Data"};

    platform::CommandButton cmd_PrintForm{*this, "cmd_PrintForm", "&Print Form"};
    platform::CommandButton cmd_Copy{*this, "cmd_Copy", "&Copy"};
    platform::CommandButton cmd_Reprint{*this, "cmd_Reprint", "< &Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

    void Form_Activate() override;
    void cmd_Reprint_Click();
    void cmd_Done_Click();

   private:
    std::optional<Table_To_Save> Shown_Table();
};

}  // namespace verlink
