// How the table of checks is filled.
#include "screens/frm_checks.h"

#include <array>

#include "checks/words.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/window_sizes.h"
#include "platform/guard.h"
#include "screens/help_documents.h"

namespace verlink {

namespace {

struct Column {
    const char* head;
    int share;      ///< of the table's width
    int alignment;  ///< 0 left, 1 right
};
constexpr std::array<Column, 7> kColumns{{{"Check", 19, 0},
                                          {"Verdict", 7, 0},
                                          {"Worst", 8, 1},
                                          {"Expected", 8, 1},
                                          {"Unit", 7, 0},
                                          {"Where", 17, 0},
                                          {"What it means", 34, 0}}};

std::string Advice(const StatusFlags& flags) {
    if (!flags.RunStands) return "";
    std::string missing;
    const auto add = [&missing](bool done, const char* words) {
        if (!done) missing += (missing.empty() ? "" : ", ") + std::string(words);
    };
    add(flags.DynamicsDone, "forces");
    add(flags.BalanceDone, "balance");
    add(flags.FFTDone, "a transform");
    if (missing.empty()) return "";
    return "Checked as well, once they have been calculated: " + missing + ".";
}

}  // namespace

frm_Checks::frm_Checks() : Screen("frm_Checks") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    grd_Data.Tip = "Each check with its worst value beside what is expected of single precision; select and copy";
    grd_Data.FixedRows = 1;
    grd_Data.StatisticRows = 0;
    grd_Data.Wraps = true;
    cmd_Done.Tip = "Back to the home screen";
    cmd_Done.OnClick = [this] { Hide(); };
    mnu_Help.OnClick = [] { Show_Help(Help_Document("mnu_ChecksHelp"), "frm_Checks.mnu_Help"); };
    DefaultButton = &cmd_Done;
    CancelButton = &cmd_Done;
}

void frm_Checks::Form_Activate() {
    Guarded("frm_Checks.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Titlebox(*this);
        Show(Checks_Of(Model));
        lbl_Note.Caption = Advice(Model);
    });
}

void frm_Checks::Show(const std::vector<Check>& checks) {
    lbl_Summary.Caption = Summary_Of(checks);
    const int columns = static_cast<int>(kColumns.size());
    grd_Data.SetCols(columns);
    grd_Data.SetRows(static_cast<int>(checks.size()) + 1);
    for (int column = 0; column < columns; ++column) {
        const Column& c = kColumns[static_cast<std::size_t>(column)];
        grd_Data.SetColWidth(column, c.share * 100);
        grd_Data.SetColAlignment(column, c.alignment);
        grd_Data.SetFixedAlignment(column, c.alignment);
        grd_Data.SetCell(0, column, c.head);
    }
    int row = 0;
    for (const Check& check : checks) {
        ++row;
        const std::string cells[] = {check.name,
                                     Words_Of(check.verdict),
                                     Check_Number(check.worst),
                                     Check_Number(check.expected),
                                     check.unit,
                                     check.where,
                                     check.meaning};
        for (int column = 0; column < columns; ++column) grd_Data.SetCell(row, column, cells[column]);
    }
    grd_Data.Refresh();
}

}  // namespace verlink
