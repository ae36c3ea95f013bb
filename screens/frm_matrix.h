// The screen of the equations: the matrix and the right side of the first position that was solved.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/table_menu.h"

namespace verlink {

/// The 9 x 9 system, row by row, and its right side into the labels of `frm_Matrix`: `lbl_A1` to `lbl_A9`, a control
/// array for each row with an index 1 to 9 by column, and `lbl_B` 1 to 9. Grey where a value rounds to 0, else red.
void PrintAmatrix(std::span<const double> A, std::span<const double> C);

/// Filled after a solution, an array of labels for each row of the matrix, by column 1 to 9.
class frm_Matrix : public platform::Screen {
   public:
    frm_Matrix();

    using Row = platform::ControlArray<platform::Label>;
    platform::Frame fra_A{*this, "fra_A", "A-matrix"};
    /// The unknowns: 1 to 9 along the columns of the matrix, 11 to 19 beside the vector
    Row lbl_Var{*this,
                "lbl_Var",
                {{1, "F12x"},
                 {2, "F12y"},
                 {3, "F32x"},
                 {4, "F32y"},
                 {5, "F43x"},
                 {6, "F43y"},
                 {7, "F14x"},
                 {8, "F14y"},
                 {9, "T12"},
                 {11, "F12x"},
                 {12, "F12y"},
                 {13, "F32x"},
                 {14, "F32y"},
                 {15, "F43x"},
                 {16, "F43y"},
                 {17, "F14x"},
                 {18, "F14y"},
                 {19, "T12"}}};
    Row lbl_A1{*this, "lbl_A1", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A2{*this, "lbl_A2", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A3{*this, "lbl_A3", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A4{*this, "lbl_A4", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A5{*this, "lbl_A5", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A6{*this, "lbl_A6", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A7{*this, "lbl_A7", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A8{*this, "lbl_A8", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    Row lbl_A9{*this, "lbl_A9", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    platform::Frame fra_C{*this, "fra_C", "C-vector"};
    Row lbl_B{*this, "lbl_B", {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    platform::Label lbl_Note{*this, "lbl_Note", "Note: Data shown are for the first position of linkage calculated."};

    platform::CommandButton cmd_Print{*this, "cmd_Print", "&Print"};
    platform::CommandButton cmd_Copy{*this, "cmd_Copy", "&Copy"};
    platform::CommandButton cmd_Back{*this, "cmd_Back", "< &Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};
    Table_Menu table{*this, [this] { return Equations(); }};

    void Form_Activate() override;

    /// The numbers behind the labels.
    std::vector<double> Matrix, Right_Side;

   private:
    std::optional<Table_To_Save> Equations();
};

}  // namespace verlink
