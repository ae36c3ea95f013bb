// The choice of a table's four functions, its steps and decimals, and its way to the screen, the printer or the disk.
#include "screens/frm_printselect.h"

#include <algorithm>
#include <array>

#include "core/linkage_model.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "output/selection.h"
#include "output/table_sheet.h"
#include "output/tables.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr int kFunctions = 4;
constexpr char kTable[] = "frm_PrintData";

}  // namespace

frm_PrintSelect::frm_PrintSelect() : Preset_Screen("frm_PrintSelect", kFunctions, "cmd_Cancel") {
    Enable_Selection(*this, false, kFunctions);
    Toggle_Coordinate(*this, false);
    for (const char* step : {"1", "2", "3", "5", "10"}) cmb_Step.AddItem(step);
    for (const char* places : {"0", "1", "2", "3", "4", "5", "6"}) cmb_Decimal.AddItem(places);
    cmb_Step.Text = "10";
    cmb_Decimal.Text = "3";
    opt_Whereto[0].Value = true;

    opt_Whereto[0].Tip = "A table on the screen";
    opt_Whereto[1].Tip = "A table on paper";
    opt_Whereto[2].Tip = "A table in a file of tab-separated columns";
    cmb_Step.Tip =
        "Every so many steps a row, from 1; Min, Avg and Max are of all steps; a transform has a row for each harmonic";
    cmb_Decimal.Tip = "Decimals of the numbers in the table, 0 to 6";
    cmb_Step.OnClick = [this] { cmb_Step_Click(); };
    for (platform::ComboBox* box : {&cmb_Step, &cmb_Decimal}) box->OnGotFocus = [box] { box->SelectAll(); };
}

void frm_PrintSelect::Form_Activate() {
    Guarded("frm_PrintSelect.Activate", [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        for (int target : {1, 2}) opt_Whereto[target].Enabled = true;
        Clear_Labels(*this, kFunctions);
        cmd_Done.Enabled = false;
        Reload_Lists();
        Show_Step();
        Offer_Last_Selection();
        const bool by_preset = opt_PrintSet[0].Value;
        Enable_Presets(*this, by_preset);
        Enable_Selection(*this, !by_preset, kFunctions);
        if (by_preset) {
            cmb_Preset.SetFocus();
            return;
        }
        Blank_What_Is_Gone();
        Function_Slot& first = Slot(1);
        if (!first.cmb_Var.Text.Get().empty() && !first.cmb_Com.Text.Get().empty())
            first.cmd_OK.Click();
        else
            first.cmb_Var.SetFocus();
    });
}

void frm_PrintSelect::Blank_What_Is_Gone() {
    for (const auto& slot : Slots) {
        const auto& listed = slot->cmb_Var.Items();
        if (std::find(listed.begin(), listed.end(), slot->cmb_Var.Text.Get()) != listed.end()) continue;
        slot->cmb_Var.Text = "";
        slot->cmb_Com.Text = "";
    }
    Forget_Choices();
}

void frm_PrintSelect::Take_Preset() { Apply_Preset(*this, kFunctions); }

void frm_PrintSelect::Count_Functions() {
    Preset_Screen::Count_Functions();
    Model.PrintCount = kFunctions;
}

void frm_PrintSelect::Show_Step() {
    if (Model.PrintStep < 1 || Model.PrintStep == StepRead) return;
    cmb_Step.Text = Text_Of(Model.PrintStep);
    StepRead = Model.PrintStep;
}

void frm_PrintSelect::Read_Step() {
    Model.PrintStep = Model.FFTFunction ? 1.0 : Val(cmb_Step.Text.Get());
    // A typed step below 1 would never come to the end of a table.
    if (Model.PrintStep < 1) Model.PrintStep = 1;
    StepRead = Model.PrintStep;
}

void frm_PrintSelect::cmb_Step_Click() {
    Guarded("frm_PrintSelect.cmb_Step", [&] { Read_Step(); });
}

void frm_PrintSelect::cmd_Cancel_Click() {
    Guarded("frm_PrintSelect.cmd_Cancel", [&] { Hide(); });
}

void frm_PrintSelect::cmd_Done_Click() {
    Guarded_Unless_Cancelled("frm_PrintSelect.cmd_Done", [&] {
        for (const auto& target : opt_Whereto)
            if (target->Value) Model.OutputTarget = target->Index();
        Take_Coordinates();
        Reset_Coordinates();
        Read_Step();
        Model.DecimalPlaces = Val(cmb_Decimal.Text.Get());
        switch (Model.OutputTarget) {
            case 0: To_Screen(); break;
            case 1: To_Printer(); break;
            case 2: To_Disk(); break;
            default: break;
        }
    });
}

/// As the table will be; nothing of the choice is taken for that.
std::optional<Table_To_Save> frm_PrintSelect::Chosen_Table() {
    if (!cmd_Done.Enabled) {
        platform::Tell("Choose the functions of the table first.", platform::Icon::kInformation);
        return {};
    }
    std::array<std::string, kFunctions> captions;
    for (int i = 0; i < kFunctions; ++i)
        captions.at(static_cast<std::size_t>(i)) = Get<platform::Label>("lbl_Function", i).Caption;
    const int every = Model.FFTFunction ? 1 : std::max(static_cast<int>(Integer(Val(cmb_Step.Text.Get()))), 1);
    const Integer decimals = Val(cmb_Decimal.Text.Get());
    Table_Wish wish{.decimals = decimals, .local = opt_Coord[1].Value};
    return Table_Of_The_Model("table", every, [captions, wish](int rows) mutable {
        wish.every = rows;
        return Table_Sheet(Model, captions, wish);
    });
}

void frm_PrintSelect::To_Screen() {
    platform::Screen& shown = platform::Screens::Get(kTable);
    Hide();
    Multiprint(shown);
}

void frm_PrintSelect::To_Printer() {
    CommonDialog1.ShowPrinter();
    Print_to_Printer();
}

void frm_PrintSelect::To_Disk() {
    CommonDialog1.DialogTitle = "Save the Data";
    CommonDialog1.Filter = "(*.dat)|*.dat";
    CommonDialog1.FileName = Model.ModelName + ".dat";
    CommonDialog1.Kind = "table";
    CommonDialog1.OverwritePrompt = true;
    CommonDialog1.ShowSave();
    Open_Data_File(CommonDialog1.FileName);
    Print_to_File();
    Close_Data_File();
}

}  // namespace verlink
