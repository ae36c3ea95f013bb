// The events of the screens that offer presets, and the two screens whose plots have a window for each function.
#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "output/cartesian.h"
#include "output/selection.h"
#include "platform/guard.h"
#include "screens/function_screen.h"

namespace verlink {

using platform::OptionButton;
using platform::Screens;

Preset_Screen::Preset_Screen(const std::string& name, int slots, const std::string& cancelName)
    : Function_Screen(name, slots, Function_Slot::Parts::kVariableAndComponent, cancelName) {
    opt_PrintSet[0].Value = true;
    opt_PrintSet[0].Tip = "Choose all functions at once from a list";
    opt_PrintSet[1].Tip = "Choose function by function";
    cmb_Preset.Tip = "All functions at once; those offered follow what has been computed";
    cmd_ClearPreset.Tip = "Clear the preset and its functions";

    opt_PrintSet.On(&OptionButton::OnClick, [this](int Index) { opt_PrintSet_Click(Index); });
    cmb_Preset.OnChange = [this] { cmb_Preset_Change(); };
    cmb_Preset.OnClick = [this] { cmb_Preset_Click(); };
    cmb_Preset.OnDblClick = [this] { cmb_Preset_DblClick(); };
    cmd_ClearPreset.OnClick = [this] { cmd_ClearPreset_Click(); };
    Look_Up(cmb_Preset, "presets for what has been computed", {&cmd_ClearPreset, &cmd_Cancel});
    for (const auto& choice : Choices)
        for (const auto& option : opt_PrintSet) choice->Add_Way_Out(*option);
}

void Preset_Screen::Reload_Lists() {
    if (!Model.ScreenReturn) return;
    for (const auto& slot : Slots) Load_Lists(*this, slot->cmb_Var, slot->cmb_Com);
    Load_Presets(*this, cmb_Preset, SlotCount());
}

void Preset_Screen::Start_Selection(int windows) {
    Fit_Screen(*this, kWorkWidth, kWorkHeight);
    Model.GraphWindows = windows;
    Reload_Lists();
    Model.CoordSystem = 0;
    Reset_Coordinates();
    Set_Selection_Mode(*this, SlotCount());
    Forget_Choices();
    Offer_Last_Selection();
}

void Preset_Screen::Take_Slot(int slot) {
    Function_Screen::Take_Slot(slot);
    Function_Taken();
}

void Preset_Screen::Count_Functions() {
    cmd_Done.Enabled = Filled() == SlotCount();
    if (cmd_Done.Enabled) cmd_Done.SetFocus();
}

void Preset_Screen::opt_PrintSet_Click(int Index) {
    Guarded(Name() + ".opt_PrintSet", [&] {
        Set_Selection_Mode(*this, SlotCount());
        Forget_Choices();
        if (Index == 0) return;
        Reset_Coordinates();
        for (const auto& slot : Slots) slot->cmd_OK.Enabled = false;
    });
}

void Preset_Screen::cmb_Preset_Change() {
    if (opt_PrintSet[0].Value) cmb_Preset.SetFocus();
}

void Preset_Screen::cmb_Preset_Click() {
    Guarded(Name() + ".cmb_Preset", [&] {
        Take_Preset();
        Function_Taken();
    });
}

void Preset_Screen::cmb_Preset_DblClick() {
    Guarded(Name() + ".cmb_Preset", [&] {
        if (cmb_Preset.Text.Get().empty() || !Choices.back()->Resolve()) return;
        Take_Preset();
        Function_Taken();
        cmd_Done.Click();
    });
}

void Preset_Screen::cmd_ClearPreset_Click() {
    Guarded(Name() + ".cmd_ClearPreset", [&] {
        Clear_All(*this, SlotCount());
        Forget_Choices();
    });
}

Windows_Screen::Windows_Screen(const std::string& name, const std::string& heading, int windows, Plots plots)
    : Preset_Screen(name, windows, "cmd_CancelPlotData"),
      frm_Plotstyle(*this, "frm_Plotstyle", heading),
      plots_(plots) {
    Model.GraphWindows = windows;
    opt_Plotstyle[0].Value = true;
    opt_Plotstyle[0].Tip = "Windows on one common axis of the crank angle, with quarter lines; runs by angle only";
    opt_Plotstyle[1].Tip = "Graphs with labels, grid and legends";
    opt_Plotstyle.On(&OptionButton::OnClick, [this](int) { opt_Plotstyle_Click(); });
}

void Windows_Screen::Form_Activate() {
    Guarded(Name() + ".Activate", [&] {
        Start_Selection(SlotCount());
        // The points of an aligned plot stand at their crank angles.
        const bool by_angle = Model.Calctype == run::kByAngle;
        opt_Plotstyle[0].Enabled = by_angle;
        if (!by_angle) opt_Plotstyle[1].Value = true;
        Model.PlotLayout = opt_Plotstyle[0].Value ? 1 : 2;
    });
}

void Windows_Screen::opt_Plotstyle_Click() {
    if (Model.FFTFunction) opt_Plotstyle[1].Value = true;
    Model.PlotLayout = opt_Plotstyle[0].Value ? 1 : 2;
}

// A transform chosen after the style is not drawn aligned either.
void Windows_Screen::Function_Taken() {
    if (Model.FFTFunction) opt_Plotstyle_Click();
}

void Windows_Screen::Take_Preset() {
    Model.GraphWindows = SlotCount();
    if (SlotCount() == 2) Model.PrintCount = 2;
    Apply_Preset(*this, SlotCount());
}

void Windows_Screen::Count_Functions() {
    Preset_Screen::Count_Functions();
    Model.PlotCount = SlotCount();
}

void Windows_Screen::cmd_Done_Click() {
    Guarded(Name() + ".cmd_Done", [&] {
        Take_Coordinates();
        const char* shown = Model.PlotLayout == 1 ? plots_.aligned : plots_.annotated;
        platform::Screen& plot = Screens::Get(shown);
        if (Model.PlotLayout == 1) {
            MyPlotSetup(plot, Model.GraphWindows);
        } else {
            Plot_Setup(plot, Model.GraphWindows);
            Plot(plot, *this, Model.GraphWindows);
        }
        Reset_Coordinates();
        Hide();
        Show_Centered(shown);
    });
}

}  // namespace verlink
