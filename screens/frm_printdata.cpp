// What the buttons of the table do.
#include "screens/frm_printdata.h"

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/table_sheet.h"
#include "platform/guard.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"

namespace verlink {

frm_PrintData::frm_PrintData() : Screen("frm_PrintData") {
    grd_Data.Tip =
        "The chosen functions step by step, below their smallest, mean and largest values of all steps of the run";
    cmd_PrintForm.Tip = "Print this screen";
    cmd_Copy.Tip = "How to copy this screen to the clipboard";
    cmd_Reprint.Tip = "Go back to the choice of functions";
    cmd_Done.Tip = "Leave for the home screen";
    DefaultButton = &cmd_Done;
    CancelButton = &cmd_Reprint;

    mnu_Help.OnClick = [] { Show_Help(Help_Document("mnu_PrintHelp"), "frm_PrintData.mnu_Help"); };
    cmd_Reprint.OnClick = [this] { cmd_Reprint_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    cmd_PrintForm.OnClick = [this] { Print_Form(*this, CommonDialog1, "frm_PrintData.cmd_PrintForm"); };
    cmd_PrintForm.Keys = "Ctrl+P";
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
}

void frm_PrintData::Form_Activate() {
    Guarded("frm_PrintData.Activate", [this] { Fit_Screen(*this, kWorkWidth, kWorkHeight); });
}

std::optional<Table_To_Save> frm_PrintData::Shown_Table() {
    std::array<std::string, 4> captions;
    for (int slot = 1; slot <= Model.PrintCount; ++slot)
        captions.at(static_cast<std::size_t>(slot - 1)) = grd_Data.Cell(0, slot);
    const int every = Model.PrintStep;
    Table_Wish wish{.decimals = Model.DecimalPlaces, .local = Model.CoordSystem != 0};
    return Table_Of_The_Model("table", every, [captions, wish](int rows) mutable {
        wish.every = rows;
        return Table_Sheet(Model, captions, wish);
    });
}

void frm_PrintData::cmd_Reprint_Click() {
    Guarded("frm_PrintData.cmd_Reprint", [this] {
        Hide();
        Show_Centered("frm_PrintSelect");
    });
}

void frm_PrintData::cmd_Done_Click() {
    Model.ScreenReturn = true;
    Hide();
}

}  // namespace verlink
