// How the lists are filled, and what follows from a pick, a preset and a change of the setup method.
#include "output/selection.h"

#include "core/linkage_model.h"
#include "core/text.h"
#include "output/catalogue.h"
#include "output/presets.h"
#include "output/reading.h"
#include "platform/guard.h"

namespace verlink {

using platform::ComboBox;
using platform::CommandButton;
using platform::Frame;
using platform::kNoIndex;
using platform::Label;
using platform::OptionButton;
using platform::Screen;
using platform::With;

namespace {

ComboBox& Variable_Box(Screen& screen, int slot) { return screen.Get<ComboBox>(Numbered("cmb_Var", slot)); }
ComboBox& Component_Box(Screen& screen, int slot) { return screen.Get<ComboBox>(Numbered("cmb_Com", slot)); }

void Set_Component_Text(Screen& screen, int slot, const char* text) {
    With<ComboBox>(screen, Numbered("cmb_Com", slot), kNoIndex, [&](ComboBox& box) { box.Text = text; });
}

template <class T>
void Enable(Screen& screen, const std::string& name, bool enabled, int index = kNoIndex) {
    With<T>(screen, name, index, [&](T& control) { control.Enabled = enabled; });
}

void Write(Screen& screen, const char* label, int slot, const std::string& text) {
    With<Label>(screen, label, slot - 1, [&](Label& found) { found.Caption = text; });
}

void Blank_Boxes(Screen& screen, const char* name, int n) {
    const int last = n > 2 ? 4 : 2;
    for (int slot = 1; slot <= last; ++slot)
        With<ComboBox>(screen, Numbered(name, slot), kNoIndex, [](ComboBox& box) { box.Text = ""; });
}

/// "Mix and Match" is chosen.
bool Mixing(const Screen& screen) {
    const auto* option = screen.FindAs<OptionButton>("opt_PrintSet", 1);
    return option && option->Value;
}

void Add_Items(ComboBox& combo, const std::vector<std::string>& items) {
    for (const std::string& item : items) combo.AddItem(item);
}

void Fill_Components(Screen& screen, Preset::Components components, int slots) {
    switch (components) {
        case Preset::Components::kAsTheyStand: break;
        case Preset::Components::kMagnitudes: Set_To_Mag(screen, slots); break;
        case Preset::Components::kAll: SetComponents(screen, ""); break;
        case Preset::Components::kXY: SetComponents(screen, "XY"); break;
        case Preset::Components::kMagAng: Set_To_Magang(screen); break;
        case Preset::Components::kXYXY:
            for (int slot : {1, 3}) Set_Component_Text(screen, slot, "X");
            for (int slot : {2, 4}) Set_Component_Text(screen, slot, "Y");
            break;
    }
}

void Fill_From_Preset(Screen& screen, const Preset& preset, int slots) {
    if (preset.opens_coordinates) Toggle_Coordinate(screen, true);
    for (int slot = 1; slot <= slots; ++slot)
        Variable_Box(screen, slot).Text = Model.VariableNames(preset.variables[static_cast<std::size_t>(slot - 1)]);
    Fill_Components(screen, preset.components, slots);
}

/// Fills the boxes by the preset of that text, if there is one, and takes the slots over all the same.
template <class List>
void Choose_From(Screen& screen, const List& texts, std::span<const Preset> presets, int slots) {
    const std::string& text = screen.Get<ComboBox>("cmb_Preset").Text;
    for (int number = 1; number <= static_cast<int>(presets.size()); ++number) {
        if (texts(number) != text) continue;
        Fill_From_Preset(screen, presets[static_cast<std::size_t>(number - 1)], slots);
        break;
    }
    for (int slot = 1; slot <= slots; ++slot)
        Select_OK(screen, Variable_Box(screen, slot), Component_Box(screen, slot),
                  screen.FindAs<CommandButton>(Numbered("cmd_OK", slot)), slot);
}

}  // namespace

void Load_Variables(Screen&, ComboBox& combo) {
    Guarded("Load_Variables", [&] {
        combo.Clear();
        const Needs most = Model.BalanceDone ? Needs::kBalance : Model.DynamicsDone ? Needs::kForces : Needs::kRun;
        Add_Items(combo, Variables_Up_To(most));
    });
}

void Load_PolarVariables(Screen&, ComboBox& combo) {
    Guarded("Load_PolarVariables", [&] {
        combo.Clear();
        Add_Items(combo, Vectors_That_Need(Needs::kRun));
        if (Model.DynamicsDone) Add_Items(combo, Vectors_That_Need(Needs::kForces));
        if (Model.BalanceDone) Add_Items(combo, Vectors_That_Need(Needs::kBalance));
    });
}

void Load_Components(Screen&, ComboBox& combo) {
    Guarded("Load_Components", [&] {
        combo.Clear();
        for (int component = 1; component <= 4; ++component) combo.AddItem(Model.ComponentNames(component));
    });
}

void Load_Lists(Screen& screen, ComboBox& varCombo, ComboBox& comCombo) {
    Load_Variables(screen, varCombo);
    Load_Components(screen, comCombo);
}

void Load_Presets(Screen&, ComboBox& combo, int n) {
    Guarded("Load_Presets", [&] {
        combo.Clear();
        const bool everything = Model.FFTDone && Model.DynamicsDone && Model.BalanceDone;
        // A balance without dynamics still brings the presets of both.
        const auto last = [&](int kinematic, int dynamic, int balanced, int all) {
            return everything ? all : Model.BalanceDone ? balanced : Model.DynamicsDone ? dynamic : kinematic;
        };
        if (n == 4) {
            const int end = last(10, 25, 30, 31);
            for (int number = 1; number <= end; ++number) combo.AddItem(Model.PresetList4(number));
            if (Model.FFTDone && !everything) combo.AddItem(Model.PresetList4(31));
        } else if (n == 2) {
            const int end = last(11, 26, 32, 34);
            for (int number = 1; number <= end; ++number) combo.AddItem(Model.PresetList2(number));
            if (Model.FFTDone && !everything)
                for (int number : {33, 34}) combo.AddItem(Model.PresetList2(number));
        }
    });
}

void Choose_Preset(Screen& screen) {
    Guarded("Choose_Preset", [&] {
        Choose_From(screen, Model.PresetList4, Presets_Of_Four(), 4);
        Model.PlotCount = 4;
        Model.PrintCount = 4;
    });
}

void Choose_Preset_2(Screen& screen) {
    Guarded("Choose_Preset_2", [&] {
        Choose_From(screen, Model.PresetList2, Presets_Of_Two(), 2);
        Model.PlotCount = 2;
    });
}

void Apply_Preset(Screen& screen, int n) {
    Guarded("Apply_Preset", [&] {
        Clear_Labels(screen, n);
        if (n == 2) Choose_Preset_2(screen);
        if (n == 4) Choose_Preset(screen);
        Enable_Selection(screen, false, n);
        const bool chosen = !screen.Get<ComboBox>("cmb_Preset").Text.Get().empty();
        With<CommandButton>(screen, "cmd_Done", kNoIndex, [&](CommandButton& button) {
            button.Enabled = chosen;
            if (chosen) button.SetFocus();
        });
    });
}

void Set_To_Mag(Screen& screen, int n) {
    for (int slot : {1, 2}) Set_Component_Text(screen, slot, "Mag");
    if (n == 2) return;
    for (int slot : {3, 4}) Set_Component_Text(screen, slot, "Mag");
}

void Set_To_Magang(Screen& screen) {
    Set_Component_Text(screen, 1, "Mag");
    Set_Component_Text(screen, 2, "Ang");
}

void SetComponents(Screen& screen, const std::string& kind) {
    if (kind != "Mag") {
        Set_Component_Text(screen, 1, "X");
        Set_Component_Text(screen, 2, "Y");
    }
    if (kind != "XY") {
        Set_Component_Text(screen, 3, "Mag");
        Set_Component_Text(screen, 4, "Ang");
    }
}

void Clear_Components(Screen& screen, int n) { Blank_Boxes(screen, "cmb_Com", n); }
void Clear_Variables(Screen& screen, int n) { Blank_Boxes(screen, "cmb_Var", n); }

void Clear_Labels(Screen& screen, int n) {
    for (int slot = 1; slot <= n; ++slot) {
        Write(screen, "lbl_Function", slot, "");
        Write(screen, "lbl_Component", slot, "");
    }
}

void Variable_Picked(Screen& screen, ComboBox& varCombo, ComboBox& comCombo, CommandButton* okButton, int slot) {
    Guarded("Variable_Picked", [&] {
        Write(screen, "lbl_Function", slot, "");
        Write(screen, "lbl_Component", slot, "");
        Enable<CommandButton>(screen, "cmd_Done", false);
        Select_Variable(varCombo.Text, slot);
        Toggle_Coordinate(screen, Model.CoordFunction && !Model.FFTSelecting);
        const bool moves_focus = !Model.FFTSelecting && Mixing(screen);
        comCombo.Enabled = !Model.ScalarFunction;
        if (Model.ScalarFunction) {
            // The choice of the magnitude is a click on the box, which puts its own word in place of this one
            // unless the transform screen is up.
            Model.ComponentLabel(slot) = "Magnitude";
            comCombo.Choose(2);
            if (okButton) okButton->Enabled = true;
            if (okButton && moves_focus) okButton->SetFocus();
        } else {
            if (moves_focus) comCombo.SetFocus();
            if (okButton) okButton->Enabled = false;
        }
    });
}

void Component_Picked(Screen& screen, ComboBox& comCombo, CommandButton* okButton, int slot) {
    Guarded("Component_Picked", [&] {
        if (Model.FFTSelecting) return;
        if (okButton) okButton->Enabled = true;
        Write(screen, "lbl_Component", slot, "");
        Set_Component(comCombo.Text, slot);
        if (okButton && Mixing(screen)) okButton->SetFocus();
    });
}

void Select_OK(Screen& screen, ComboBox& varCombo, ComboBox& comCombo, CommandButton* okButton, int slot) {
    Guarded("Select_OK", [&] {
        Variable_Picked(screen, varCombo, comCombo, okButton, slot);
        Component_Picked(screen, comCombo, okButton, slot);
        Write(screen, "lbl_Function", slot, varCombo.Text);
        Write(screen, "lbl_Component", slot, comCombo.Text);
        if (okButton) okButton->Enabled = true;
        Enable<CommandButton>(screen, "cmd_Done", true);
    });
}

void Toggle_Coordinate(Screen& screen, bool enabled) {
    Enable<Frame>(screen, "fra_coord", enabled);
    Enable<OptionButton>(screen, "opt_Coord", enabled, 1);
}

void Put_Coordinate_Labels(Screen& screen, int coordSystem) {
    With<Label>(screen, "lbl_Coord", kNoIndex,
                [&](Label& label) { label.Caption = coordSystem == 0 ? "Global" : "Local Rotating"; });
}

void Enable_Presets(Screen& screen, bool enabled) {
    Enable<Frame>(screen, "fra_Preset", enabled);
    Enable<ComboBox>(screen, "cmb_Preset", enabled);
    Enable<CommandButton>(screen, "cmd_ClearPreset", enabled);
}

void Enable_Selection(Screen& screen, bool enabled, int n) {
    const int last = n > 2 ? 4 : 2;
    for (int slot = 1; slot <= last; ++slot) {
        Enable<Frame>(screen, Numbered("fra_Function", slot), enabled);
        Enable<ComboBox>(screen, Numbered("cmb_Var", slot), enabled);
        Enable<ComboBox>(screen, Numbered("cmb_Com", slot), enabled);
        Enable<CommandButton>(screen, Numbered("cmd_OK", slot), enabled);
        Enable<CommandButton>(screen, Numbered("cmd_Clear", slot), enabled);
    }
    for (int slot = 1; slot <= n; ++slot) {
        Enable<Label>(screen, "lbl_Var", enabled, slot - 1);
        Enable<Label>(screen, "lbl_Comp", enabled, slot - 1);
    }
}

void Clear_All(Screen& screen, int n) {
    Guarded("Clear_All", [&] {
        Clear_Labels(screen, n);
        Clear_Variables(screen, n);
        Clear_Components(screen, n);
        Enable_Selection(screen, false, n);
        With<ComboBox>(screen, "cmb_Preset", kNoIndex, [](ComboBox& box) { box.Text = ""; });
        Enable<CommandButton>(screen, "cmd_Done", false);
    });
}

void Set_Selection_Mode(Screen& screen, int n) {
    Guarded("Set_Selection_Mode", [&] {
        const bool by_preset = screen.Get<OptionButton>("opt_PrintSet", 0).Value;
        Enable_Presets(screen, by_preset);
        Clear_Variables(screen, n);
        Clear_Components(screen, n);
        Enable_Selection(screen, !by_preset, n);
        auto& preset = screen.Get<ComboBox>("cmb_Preset");
        if (by_preset) {
            preset.SetFocus();
        } else {
            preset.Text = "";
            Enable<Frame>(screen, "fra_Function1", true);
            Enable<ComboBox>(screen, "cmb_Var1", true);
            Enable<CommandButton>(screen, "cmd_Clear1", true);
            Variable_Box(screen, 1).SetFocus();
        }
        Clear_Labels(screen, n);
        Enable<CommandButton>(screen, "cmd_Done", false);
    });
}

}  // namespace verlink
