// What the buttons of the equations' screen do.
#include "screens/frm_matrix.h"

#include "core/screen_geometry.h"
#include "platform/guard.h"
#include "screens/print_questions.h"

namespace verlink {

frm_Matrix::frm_Matrix() : Screen("frm_Matrix") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    cmd_Print.Tip = "Print this screen";
    cmd_Copy.Tip = "How to copy this screen to the clipboard";
    cmd_Back.Tip = "Back to the data";
    cmd_Done.Tip = "Back to the data";
    cmd_Print.OnClick = [this] { cmd_Print_Click(); };
    cmd_Copy.OnClick = [this] { cmd_Copy_Click(); };
    cmd_Back.OnClick = [this] { cmd_Back_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    DefaultButton = &cmd_Done;
    CancelButton = &cmd_Back;
}

void frm_Matrix::Form_Activate() {
    Guarded("frm_Matrix.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        cmd_Print.Enabled = true;
        cmd_Copy.Enabled = true;
    });
}

void frm_Matrix::cmd_Print_Click() { Print_Form(*this, CommonDialog1, "frm_Matrix.cmd_Print"); }

void frm_Matrix::cmd_Copy_Click() { Tell_How_To_Copy(); }

void frm_Matrix::cmd_Back_Click() { Hide(); }

void frm_Matrix::cmd_Done_Click() { Hide(); }

}  // namespace verlink
