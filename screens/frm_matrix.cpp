// How the equations are written, and what the buttons of their screen do.
#include "screens/frm_matrix.h"

#include <cstddef>
#include <string>
#include <utility>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/window_sizes.h"
#include "platform/guard.h"
#include "screens/print_questions.h"

namespace verlink {

namespace {

constexpr int kUnknowns = 9;
constexpr platform::Color kGray = 128 + 256 * 128 + 65536 * 128;
constexpr platform::Color kRed = 255;

}  // namespace

void PrintAmatrix(std::span<const double> A, std::span<const double> C) {
    Guarded("PrintAmatrix", [&] {
        platform::Screen& screen = platform::Screens::Get("frm_Matrix");
        const auto print = [&screen](const std::string& name, int index, double value) {
            auto& label = screen.Get<platform::Label>(name, index);
            label.Caption = FNRoundStr(value, Model.DecLengthShown);
            label.ForeColor = FNRound(value, 3) == 0 ? kGray : kRed;
        };
        for (int i = 1; i <= kUnknowns; ++i) {
            for (int j = 1; j <= kUnknowns; ++j)
                print("lbl_A" + std::to_string(j), i, A[static_cast<std::size_t>((j - 1) * kUnknowns + i - 1)]);
            print("lbl_B", i, C[static_cast<std::size_t>(i - 1)]);
        }
        if (auto* equations = dynamic_cast<frm_Matrix*>(&screen)) {
            equations->Matrix.assign(A.begin(), A.end());
            equations->Right_Side.assign(C.begin(), C.end());
        }
    });
}

frm_Matrix::frm_Matrix() : Screen("frm_Matrix") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    cmd_Print.Tip = "Print this screen";
    cmd_Copy.Tip = "How to copy this screen to the clipboard";
    cmd_Back.Tip = "Back to the data";
    cmd_Done.Tip = "Back to the data";
    cmd_Print.OnClick = [this] { Print_Form(*this, CommonDialog1, "frm_Matrix.cmd_Print"); };
    cmd_Print.Keys = "Ctrl+P";
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
    cmd_Back.OnClick = [this] { Hide(); };
    cmd_Done.OnClick = [this] { Hide(); };
    table.mnu_CopyTable.Keys = "Ctrl+C";
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

std::optional<Table_To_Save> frm_Matrix::Equations() {
    if (Matrix.empty()) {
        platform::Tell("There are no equations to be saved. Solve for the forces first.", platform::Icon::kInformation);
        return {};
    }
    return Table_Of_The_Model("equations", 1, [this](int) {
        // Forces and moments, the latter in metres where lengths are shown in smaller units.
        const std::string length = Model.Units > 3 ? "m" : Model.UnitLabel(6), force = Model.UnitLabel(10);
        Sheet sheet{.name = "Equations", .columns = {{.name = "Equation", .component = "", .unit = "", .decimals = 0}}};
        for (int i = 1; i <= kUnknowns; ++i) sheet.columns[0].values.push_back(i);
        for (int j = 1; j <= kUnknowns; ++j) {
            Sheet_Column column{.name = lbl_Var[j].Caption,
                                .component = "coefficient",
                                .unit = j < kUnknowns ? "1 or " + length : "1",
                                .decimals = Model.DecLengthShown};
            for (int i = 0; i < kUnknowns; ++i)
                column.values.push_back(Matrix.at(static_cast<std::size_t>(i * kUnknowns + j - 1)));
            sheet.columns.push_back(std::move(column));
        }
        sheet.columns.push_back({.name = "C",
                                 .component = "right side",
                                 .unit = force + " or " + Model.UnitLabel(9),
                                 .values = Right_Side,
                                 .decimals = Model.DecLengthShown});
        return sheet;
    });
}

}  // namespace verlink
