// The last selection of a screen, and the button that brings it back.
#include "screens/last_selection.h"

#include <algorithm>

#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/settings.h"
#include "screens/function_screen.h"

namespace verlink {

using platform::ComboBox;
using platform::Label;
using platform::OptionButton;
using platform::Screen;

namespace {

constexpr const char* kOptions[] = {"opt_PrintSet", "opt_Coord", "opt_Plotstyle", "opt_Whereto"};
constexpr const char* kBoxes[] = {"cmb_Preset", "cmb_Step", "cmb_Decimal"};
constexpr int kSlots = 4;

constexpr char kPlotScreens[] = "frm_PlotSelect", kLastPlot[] = "selection.plot";

std::string Setting_Of(const std::string& screen) { return "selection." + screen; }

/// Where the text stands in the list; -1 for nowhere.
int Place_In(const ComboBox& box, const std::string& text) {
    const auto& items = box.Items();
    const auto found = std::find(items.begin(), items.end(), text);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

void Keep_Selection(const Screen& screen) {
    std::vector<std::string> kept;
    const auto keep = [&](const std::string& name, const std::string& text) { kept.push_back(name + "=" + text); };
    for (const char* options : kOptions)
        for (int index = 0; const auto* option = screen.FindAs<OptionButton>(options, index); ++index)
            if (option->Value) keep(options, std::to_string(index));
    const auto keep_box = [&](const std::string& name) {
        if (const auto* box = screen.FindAs<ComboBox>(name)) keep(name, box->Text);
    };
    for (const char* box : kBoxes) keep_box(box);
    for (int slot = 1; slot <= kSlots; ++slot) {
        const auto* taken = screen.FindAs<Label>("lbl_Function", slot - 1);
        if (!taken || taken->Caption.Get().empty()) continue;
        keep_box(Numbered("cmb_Var", slot));
        keep_box(Numbered("cmb_Com", slot));
    }
    platform::The_Settings().Put(Setting_Of(screen.Name()), kept);
    if (screen.Name().starts_with(kPlotScreens)) platform::The_Settings().Put(kLastPlot, screen.Name());
}

std::string Last_Plot_Screen() { return platform::The_Settings().Text(kLastPlot); }

Selection Last_Selection(const Screen& screen) { return Selection_Kept(screen.Name()); }

Selection Selection_Kept(const std::string& screen) {
    Selection last;
    for (const std::string& line : platform::The_Settings().List(Setting_Of(screen))) {
        const std::size_t sign = line.find('=');
        if (sign != std::string::npos) last[line.substr(0, sign)] = line.substr(sign + 1);
    }
    return last;
}

void Choose_Option_Of(const Screen& screen, const Selection& last, const std::string& options) {
    const std::string& wished = Text_In(last, options);
    for (int index = 0; auto* option = screen.FindAs<OptionButton>(options, index); ++index)
        if (wished == std::to_string(index) && option->Enabled) option->Value = true;
}

void Fill_Box_Of(const Screen& screen, const Selection& last, const std::string& name) {
    if (auto* box = screen.FindAs<ComboBox>(name); box && last.contains(name)) box->Text = Text_In(last, name);
}

void Function_Screen::Offer_Last_Selection() {
    cmd_Last.Enabled = !Last_Selection(*this).empty();
    cmd_Last.Tip = cmd_Last.Enabled ? "Choose again what was chosen here last" : "Nothing has been chosen here before";
}

void Function_Screen::cmd_Last_Click() {
    Guarded(Name() + ".cmd_Last", [&] {
        const Selection last = Last_Selection(*this);
        // Of results that are there now; else all stays as it is.
        std::string missing;
        const auto look = [&](const std::string& name) {
            const auto* box = FindAs<ComboBox>(name);
            const std::string& text = Text_In(last, name);
            if (box && !text.empty() && Place_In(*box, text) < 0) missing = text;
        };
        if (Text_In(last, "opt_PrintSet") == "0") {
            look("cmb_Preset");
        } else {
            for (int slot = 1; slot <= SlotCount(); ++slot) look(Numbered("cmb_Var", slot));
        }
        if (!missing.empty()) {
            platform::Tell("The last selection has \"" + missing + "\" in it, which is not there for this linkage yet.",
                           platform::Icon::kInformation);
            return;
        }
        Choose_Functions(last);
        Choose_Option_Of(*this, last, "opt_Coord");
        for (const char* options : {"opt_Plotstyle", "opt_Whereto"}) Choose_Option_Of(*this, last, options);
        for (const char* box : {"cmb_Step", "cmb_Decimal"}) Fill_Box_Of(*this, last, box);
        Forget_Choices();
        if (cmd_Done.Enabled) cmd_Done.SetFocus();
    });
}

/// As the hand would choose them, one after another.
void Function_Screen::Choose_Functions(const Selection& last) {
    const std::string& method = Text_In(last, "opt_PrintSet");
    if (auto* option = FindAs<OptionButton>("opt_PrintSet", method == "1" ? 1 : 0)) {
        // What was chosen meanwhile goes, also by the same method.
        if (option->Value)
            option->OnClick();
        else
            option->Value = true;
        if (method == "0") {
            auto& preset = Get<ComboBox>("cmb_Preset");
            preset.Choose(Place_In(preset, Text_In(last, "cmb_Preset")));
            return;
        }
    }
    for (int number = 1; number <= SlotCount(); ++number) {
        Function_Slot& slot = Slot(number);
        const int variable = Place_In(slot.cmb_Var, Text_In(last, Numbered("cmb_Var", number)));
        if (variable < 0) return;
        slot.cmb_Var.Choose(variable);
        const int component = Place_In(slot.cmb_Com, Text_In(last, Numbered("cmb_Com", number)));
        if (component >= 0) slot.cmb_Com.Choose(component);
        if (slot.cmd_OK.Enabled) cmd_OK_Click(number);
    }
}

}  // namespace verlink
