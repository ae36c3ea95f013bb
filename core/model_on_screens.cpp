// The status panel, the enabling of the home screen's menus and buttons, headers and captions of screens.
#include "core/model_on_screens.h"

#include <algorithm>

#include "core/linkage_model.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CommandButton;
using platform::kNoIndex;
using platform::Label;
using platform::MenuEntry;
using platform::Screens;
using platform::With;

namespace {

constexpr char kHome[] = "frm_HomeScreen";

void Show_Flag(int index, const std::string& text, bool shown) {
    With<Label>(kHome, "lbl_Status", index, [&](Label& label) {
        label.Caption = text;
        label.Visible = shown && Model.Calculated;
    });
}

const char* Unit_System_Name(int Units) {
    switch (Units) {
        case 1: return "in-lb-bl-s";
        case 2: return "ft-lb-sl-s";
        case 3: return "m-kg-N-s";
        case 4: return "cm-kg-N-s";
        case 5: return "mm-kg-N-s";
        default: return "";
    }
}

void Allow_Entry(const char* name, bool allowed, int index = kNoIndex) {
    With<MenuEntry>(kHome, name, index, [&](MenuEntry& entry) { entry.Enabled = allowed; });
}

/// A button that leads to a screen and needs a calculated model; the tip tells why when it is off.
void Allow_Button(const char* name, const char* screen, bool allowed, const char* tip, const char* why) {
    With<CommandButton>(kHome, name, kNoIndex, [&](CommandButton& button) {
        const bool exists = Screens::Knows(screen);
        button.Enabled = exists && allowed;
        button.Tip = button.Enabled ? tip : exists ? why : "Not in this release";
    });
}

}  // namespace

void Refresh_Status() {
    Guarded("Refresh_Status", [] {
        const bool driven = Model.CamDriven || Model.LinkDriven;
        Show_Flag(0, driven ? "Imported" : Model.DiskFile ? "DiskFile" : "Calculated", true);
        Show_Flag(1, "Link Driven", Model.LinkDriven);
        Show_Flag(2, "Cam Driven", Model.CamDriven);
        Show_Flag(3, "Dynamics", Model.DynamicsDone);
        Show_Flag(4, "Balanced", Model.BalanceDone);
        Show_Flag(5, "FFT Done", Model.FFTDone);
        Show_Flag(6, "Synthesized", Model.Synthesized);
        Show_Flag(7, "Cognate " + std::to_string(Model.CognateNumber), true);
        Show_Flag(8, "Saved", Model.SavedFlag);
        With<Label>(kHome, "lbl_Status", 10, [](Label& label) { label.Caption = Unit_System_Name(Model.Units); });
    });
}

void Set_Menus() {
    Guarded("Set_Menus", [] {
        const bool calculated = Model.Calculated;
        const bool stepped = calculated && Model.Calctype > run::kOnePosition;
        const char* first = "Calculate a linkage on the input screen first";
        const char* range = "Calculate a range of positions on the input screen first";
        Allow_Button("cmd_Animate", "frm_Animate", stepped, "Watch the linkage move, and drag its joints",
                     calculated ? range : first);
        Allow_Button("cmd_Plot", "frm_PlotType", calculated, "Plot the results", first);
        Allow_Button("cmd_Print", "frm_PrintSelect", calculated, "Tabulate and print the results", first);
        Allow_Button("cmd_Dynamics", "frm_MassProp", calculated, "Mass properties, loads and dynamic forces", first);
        Allow_Button("cmd_Balance", "frm_Balance", calculated, "Balance the shaking force", first);

        Allow_Entry("mnu_Open", true);
        Allow_Entry("mnu_New", calculated || Model.DiskFile || Model.CamDriven || Model.LinkDriven);
        for (const char* entry : {"mnu_Save", "mnu_Saveas", "mnu_Export"}) Allow_Entry(entry, calculated);
        Allow_Entry("mnu_Cayley", calculated && Screens::Knows("frm_Cayley"));
        for (int cognate = 1; cognate <= 3; ++cognate)
            Allow_Entry("mnu_Cog", calculated && Screens::Knows("frm_Cayley"), cognate);
        Allow_Entry("mnu_CalcFFT", stepped && Screens::Knows("frm_FFT"));
    });
}

void Check_mnu_Units(platform::Screen& HomeScreen, Integer& Units) {
    Guarded("Check_mnu_Units", [&] {
        Units = std::max<int>(Units, 1);
        for (int system = 1; system <= 5; ++system)
            With<MenuEntry>(HomeScreen, "mnu_pick", system, [&](MenuEntry& entry) { entry.Checked = system == Units; });
    });
}

void Titlebox(platform::Screen& screen) {
    Guarded("Titlebox", [&] {
        std::string header = Model.UserName + platform::CR + " Design No. " + std::to_string(Model.DesignNumber) +
                             platform::CRLF + Model.DateStr + platform::CR + " at " + Model.TimeStr;
        if (!Model.FilePath.empty()) header += std::string(platform::CR) + " File: " + Model.ModelName;
        With<Label>(screen, "lbl_Header", kNoIndex, [&](Label& label) {
            label.Caption = header;
            label.Tip = "The model's own name, design number, date and file, as they are saved with it";
        });
    });
}

void Set_Screen_Titles() {
    Guarded("Set_Screen_Titles", [] {
        // The banner follows the words without a blank between them.
        for (const auto& [name, words] : Screens::Titles()) Screens::Get(name).Caption() = words + Model.TitleSuffix;
    });
}

}  // namespace verlink
