// The routines that write, blank and enable the boxes of a selection screen.
#include <gtest/gtest.h>

#include "output/presets.h"
#include "screens/frm_plotselect1.h"
#include "tests/output/selection_stage.h"

namespace verlink::test {

namespace {

/// Four slots.
struct Modes : Selection {
    frm_PlotSelect1 four;
    std::vector<std::string> Components() {
        std::vector<std::string> texts;
        for (const auto& slot : four.Slots) texts.push_back(slot->cmb_Com.Text);
        return texts;
    }
    void Write_All(const char* text) {
        for (const auto& slot : four.Slots) {
            slot->cmb_Var.Text = text;
            slot->cmb_Com.Text = text;
            slot->lbl_Function.Caption = text;
            slot->lbl_Component.Caption = text;
        }
    }
    using Texts = std::vector<std::string>;
};

}  // namespace

TEST_F(Modes, ComponentsAreWrittenByKind) {
    Write_All("-");
    SetComponents(four, "XY");
    EXPECT_EQ(Components(), (Texts{"X", "Y", "-", "-"}));
    Write_All("-");
    SetComponents(four, "Mag");
    EXPECT_EQ(Components(), (Texts{"-", "-", "Mag", "Ang"}));
    Write_All("-");
    SetComponents(four, "");
    EXPECT_EQ(Components(), (Texts{"X", "Y", "Mag", "Ang"}));
    SetComponents(four, "whatever");
    EXPECT_EQ(Components(), (Texts{"X", "Y", "Mag", "Ang"}));
}

TEST_F(Modes, MagnitudesGoIntoTwoBoxesForTwoAndFourForAnyOtherCount) {
    Write_All("-");
    Set_To_Mag(four, 2);
    EXPECT_EQ(Components(), (Texts{"Mag", "Mag", "-", "-"}));
    Set_To_Mag(four, 4);
    EXPECT_EQ(Components(), (Texts{"Mag", "Mag", "Mag", "Mag"}));
    Write_All("-");
    Set_To_Mag(four, 1);
    EXPECT_EQ(Components(), (Texts{"Mag", "Mag", "Mag", "Mag"}));
    Write_All("-");
    Set_To_Magang(four);
    EXPECT_EQ(Components(), (Texts{"Mag", "Ang", "-", "-"}));
}

TEST_F(Modes, BoxesAreBlankedByTwosAndLabelsByCount) {
    Write_All("-");
    Clear_Components(four, 2);
    EXPECT_EQ(Components(), (Texts{"", "", "-", "-"}));
    Clear_Components(four, 3);
    EXPECT_EQ(Components(), (Texts{"", "", "", ""}));
    Clear_Variables(four, 2);
    EXPECT_EQ(four.Slots[1]->cmb_Var.Text.Get(), "");
    EXPECT_EQ(four.Slots[2]->cmb_Var.Text.Get(), "-");
    Clear_Variables(four, 4);
    EXPECT_EQ(four.Slots[3]->cmb_Var.Text.Get(), "");
    Clear_Labels(four, 3);
    EXPECT_EQ(four.Slots[2]->lbl_Function.Caption.Get(), "");
    EXPECT_EQ(four.Slots[2]->lbl_Component.Caption.Get(), "");
    EXPECT_EQ(four.Slots[3]->lbl_Function.Caption.Get(), "-");
    EXPECT_EQ(four.Slots[3]->lbl_Component.Caption.Get(), "-");
}

TEST_F(Modes, NoMoreThanFourSlotsAreBlankedOrEnabled) {
    platform::ComboBox fifth_variable(four, "cmb_Var5"), fifth_component(four, "cmb_Com5");
    fifth_variable.Text = fifth_component.Text = "-";
    Clear_Variables(four, 4);
    Clear_Components(four, 4);
    Enable_Selection(four, false, 4);
    for (const auto* box : {&fifth_variable, &fifth_component}) {
        EXPECT_EQ(box->Text.Get(), "-");
        EXPECT_TRUE(box->Enabled);
    }
}

TEST_F(Modes, TheSelectionIsEnabledForTwoOrForFourSlots) {
    const auto all = [&](int slot, bool enabled) {
        const Function_Slot& s = *four.Slots.at(static_cast<std::size_t>(slot - 1));
        return s.fra_Function.Enabled == enabled && s.cmb_Var.Enabled == enabled && s.cmb_Com.Enabled == enabled &&
               s.cmd_OK.Enabled == enabled && s.cmd_Clear.Enabled == enabled && s.lbl_Var.Enabled == enabled &&
               s.lbl_Comp.Enabled == enabled;
    };
    Enable_Selection(four, false, 4);
    for (int slot = 1; slot <= 4; ++slot) EXPECT_TRUE(all(slot, false)) << slot;
    Enable_Selection(four, true, 2);
    for (int slot = 1; slot <= 4; ++slot) EXPECT_TRUE(all(slot, slot <= 2)) << slot;
    Enable_Selection(four, true, 4);
    for (int slot = 1; slot <= 4; ++slot) EXPECT_TRUE(all(slot, true)) << slot;
}

TEST_F(Modes, PresetsAreEnabledTogether) {
    for (const bool enabled : {false, true}) {
        Enable_Presets(screen, enabled);
        EXPECT_EQ(screen.fra_Preset.Enabled, enabled);
        EXPECT_EQ(screen.cmb_Preset.Enabled, enabled);
        EXPECT_EQ(screen.cmd_ClearPreset.Enabled, enabled);
    }
}

TEST_F(Modes, ClearingAllLeavesNothingChosen) {
    Write_All("-");
    four.cmb_Preset.Text = "Omega magnitudes for all links";
    four.cmd_Done.Enabled = true;
    Clear_All(four, 4);
    EXPECT_EQ(Components(), (Texts{"", "", "", ""}));
    for (const auto& slot : four.Slots) {
        EXPECT_EQ(slot->cmb_Var.Text.Get(), "");
        EXPECT_EQ(slot->lbl_Function.Caption.Get(), "");
        EXPECT_EQ(slot->lbl_Component.Caption.Get(), "");
        EXPECT_FALSE(slot->cmb_Var.Enabled);
    }
    EXPECT_EQ(four.cmb_Preset.Text.Get(), "");
    EXPECT_FALSE(four.cmd_Done.Enabled);
}

TEST_F(Modes, PresetModeLocksTheSlotsAndGivesThePresetsTheFocus) {
    screen.opt_PrintSet[0].Value = true;
    screen.cmb_Preset.Enabled = false;
    screen.cmb_Var1.Choose(3);
    screen.cmb_Com1.Choose(1);
    Set_Selection_Mode(screen, 2);
    EXPECT_TRUE(screen.cmb_Preset.Enabled);
    EXPECT_FALSE(screen.cmb_Var1.Enabled);
    EXPECT_FALSE(screen.cmd_OK2.Enabled);
    EXPECT_EQ(screen.cmb_Var1.Text.Get(), "");
    EXPECT_EQ(screen.cmb_Com1.Text.Get(), "");
    EXPECT_EQ(screen.lbl_Function[1].Caption.Get(), "");
    EXPECT_FALSE(screen.cmd_Done.Enabled);
    EXPECT_EQ(screen.Focus(), &screen.cmb_Preset);
}

TEST_F(Modes, MixAndMatchOpensTheSlotsAndGivesTheFirstVariableTheFocus) {
    screen.opt_PrintSet[1].Value = true;
    screen.cmb_Preset.Text = "Theta3 and Theta4 Magnitudes";
    screen.cmb_Var1.Choose(3);
    screen.cmb_Com1.Choose(1);
    Enable_Selection(screen, false, 2);
    Set_Selection_Mode(screen, 2);
    EXPECT_FALSE(screen.fra_Preset.Enabled);
    EXPECT_EQ(screen.cmb_Preset.Text.Get(), "");
    EXPECT_TRUE(screen.fra_Function1.Enabled);
    EXPECT_TRUE(screen.cmb_Var1.Enabled);
    EXPECT_TRUE(screen.cmd_Clear1.Enabled);
    EXPECT_EQ(screen.cmb_Var1.Text.Get(), "");
    EXPECT_EQ(screen.Focus(), &screen.cmb_Var1);
    EXPECT_FALSE(screen.cmd_Done.Enabled);
}

TEST_F(Modes, APresetThatIsAppliedFillsItsSlotsAndLocksThem) {
    for (const auto& slot : four.Slots) Load_Components(four, slot->cmb_Com);
    Enable_Selection(four, true, 4);
    const Preset& preset = Presets_Of_Four()[0];
    four.cmb_Preset.Text = preset.text;
    Apply_Preset(four, 4);
    for (std::size_t slot = 0; slot < 4; ++slot) {
        EXPECT_EQ(four.Slots[slot]->cmb_Var.Text.Get(), Model.VariableNames(preset.variables[slot]));
        EXPECT_EQ(four.Slots[slot]->lbl_Function.Caption.Get(), Model.VariableNames(preset.variables[slot]));
        EXPECT_FALSE(four.Slots[slot]->cmb_Var.Enabled);
        EXPECT_FALSE(four.Slots[slot]->cmd_OK.Enabled);
    }
    EXPECT_TRUE(four.cmd_Done.Enabled);
    EXPECT_EQ(four.Focus(), &four.cmd_Done);
    Enable_Selection(screen, true, 2);
    screen.cmb_Preset.Text = Presets_Of_Two()[0].text;
    Apply_Preset(screen, 2);
    EXPECT_EQ(screen.cmb_Var2.Text.Get(), Model.VariableNames(Presets_Of_Two()[0].variables[1]));
    EXPECT_FALSE(screen.cmb_Var2.Enabled);
}

TEST_F(Modes, ApplyingAPresetOfAnyOtherCountBlanksTheLabelsAndLocksTheSlots) {
    Write_All("-");
    four.cmd_Done.Enabled = true;
    Apply_Preset(four, 3);
    for (std::size_t slot = 0; slot < 4; ++slot) {
        EXPECT_EQ(four.Slots[slot]->lbl_Function.Caption.Get(), slot < 3 ? "" : "-");
        EXPECT_EQ(four.Slots[slot]->lbl_Component.Caption.Get(), slot < 3 ? "" : "-");
        EXPECT_FALSE(four.Slots[slot]->cmb_Var.Enabled);
    }
    EXPECT_FALSE(four.cmd_Done.Enabled);
}

TEST_F(Modes, EveryPresetFillsTheBoxesToTheLastOfTheList) {
    for (const auto& slot : four.Slots) Load_Components(four, slot->cmb_Com);
    const auto presets = Presets_Of_Four();
    for (std::size_t i = 0; i < presets.size(); ++i) {
        Write_All("");
        four.cmb_Preset.Text = presets[i].text;
        Model.PlotCount = Model.PrintCount = 1;
        Choose_Preset(four);
        EXPECT_EQ(Model.PlotCount, 4);
        EXPECT_EQ(Model.PrintCount, 4);
        for (std::size_t slot = 0; slot < 4; ++slot)
            EXPECT_EQ(four.Slots[slot]->cmb_Var.Text.Get(), Model.VariableNames(presets[i].variables[slot]))
                << presets[i].text;
        using enum Preset::Components;
        if (presets[i].components == kXYXY) {
            EXPECT_EQ(Components(), (Texts{"X", "Y", "X", "Y"})) << presets[i].text;
        } else if (presets[i].components == kAll) {
            EXPECT_EQ(Components(), (Texts{"X", "Y", "Mag", "Ang"})) << presets[i].text;
        } else if (presets[i].components == kMagnitudes) {
            EXPECT_EQ(Components(), (Texts{"Mag", "Mag", "Mag", "Mag"})) << presets[i].text;
        }
    }
    for (const Preset& preset : Presets_Of_Two()) {
        screen.cmb_Var1.Text = screen.cmb_Var2.Text = "";
        screen.cmb_Preset.Text = preset.text;
        Model.PlotCount = 1;
        Choose_Preset_2(screen);
        EXPECT_EQ(Model.PlotCount, 2);
        EXPECT_EQ(screen.cmb_Var1.Text.Get(), Model.VariableNames(preset.variables[0])) << preset.text;
        EXPECT_EQ(screen.cmb_Var2.Text.Get(), Model.VariableNames(preset.variables[1])) << preset.text;
        using enum Preset::Components;
        const auto first = preset.components == kXY ? "X" : "Mag";
        const auto second = preset.components == kXY ? "Y" : preset.components == kMagAng ? "Ang" : "Mag";
        EXPECT_EQ(screen.cmb_Com1.Text.Get(), first) << preset.text;
        EXPECT_EQ(screen.cmb_Com2.Text.Get(), second) << preset.text;
    }
}

TEST_F(Modes, APresetOfTwoLeavesOtherSlotsOfTheScreenAlone) {
    for (const auto& slot : four.Slots) Load_Components(four, slot->cmb_Com);
    for (const Preset& preset : Presets_Of_Two()) {
        Write_All("-");
        four.cmb_Preset.Text = preset.text;
        Choose_Preset_2(four);
        for (const std::size_t slot : {2U, 3U}) {
            EXPECT_EQ(four.Slots[slot]->cmb_Var.Text.Get(), "-") << preset.text;
            EXPECT_EQ(four.Slots[slot]->cmb_Com.Text.Get(), "-") << preset.text;
        }
    }
}

}  // namespace verlink::test
