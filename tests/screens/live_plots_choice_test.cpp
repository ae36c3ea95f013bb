// What is chosen for the pane of live plots, and how it outlasts the session.
#include "core/linkage_door.h"
#include "platform/settings.h"
#include "screens/frm_plotselect1.h"
#include "screens/live_choice.h"
#include "tests/screens/live_plots_fixture.h"

namespace verlink::test {
namespace {

TEST_F(LivePlots, AnotherVariableOrComponentIsNoPresetAnyMore) {
    After_First_Picture([&] {
        Open();
        auto& slot = *form.live.Slots[0];
        for (platform::ComboBox* box : {&slot.cmb_LiveVar, &slot.cmb_LiveCom}) {
            Pick(form.live.cmb_LivePreset, kVelocityPreset);
            EXPECT_EQ(form.live.cmb_LivePreset.Text, kVelocityPreset);
            Pick(*box, box == &slot.cmb_LiveVar ? "Accel CP" : "Mag");
            EXPECT_EQ(form.live.cmb_LivePreset.Text, "");
            EXPECT_EQ(slot.cmb_LiveCom.Text, box == &slot.cmb_LiveVar ? "X" : "Mag");
        }
        Pick(slot.cmb_LiveVar, "Theta3");
        EXPECT_EQ(slot.cmb_LiveCom.Text, "") << "a scalar has none";
        Pick(slot.cmb_LiveVar, "Veloc CP");
        EXPECT_EQ(slot.cmb_LiveCom.Text, "Mag");
        Pick(slot.cmb_LiveFrame, "Local");
        for (const char* variable : {"Theta3", "Veloc CP"}) Pick(slot.cmb_LiveVar, variable);
        EXPECT_EQ(slot.cmb_LiveFrame.Text, "Global");
    });
}

TEST_F(LivePlots, TheChoiceOutlastsTheSession) {
    After_First_Picture([&] {
        Open();
        Pick(form.live.Slots[1]->cmb_LiveVar, "Accel CP");
        Pick(form.live.Slots[1]->cmb_LiveCom, "Ang");
        Pick(form.live.Slots[1]->cmb_LiveFrame, "Local");
        Choose_Option(form, "opt_LiveScale", 1);
        Choose_Option(form, "opt_LiveX", 1);
    });
    platform::Screens::Discard();
    The_Settings().Open(Path("config"));
    auto& again = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    EXPECT_TRUE(again.live.fra_Live.Visible);
    again.Form_Activate();
    again.Timer1.Tick();
    EXPECT_TRUE(again.live.opt_LiveX[1].Value);
    ASSERT_EQ(again.live.grf_Live[0].NumSets(), 1);
    EXPECT_TRUE(again.live.grf_Live[0].Sets()[0].legend.starts_with("Accel CP Ang local"));
}

TEST_F(LivePlots, WhatWasPlottedLastIsOfferedFirst) {
    Model.ScreenReturn = true;
    auto& selection = static_cast<frm_PlotSelect1&>(platform::Screens::Get("frm_PlotSelect1"));
    selection.Form_Activate();
    Choose_Option(selection, "opt_PrintSet", 1);
    selection.Slots[0]->cmb_Var.Choose(12);
    selection.Slots[0]->cmb_Com.Choose(1);
    Press(selection, "cmd_OK1");
    Choose_Option(selection, "opt_Coord", 1);
    desktop.Expect_Screen("frm_Plot1", [](platform::Screen& screen) { screen.Hide(); });
    Press(selection, "cmd_Done");
    After_First_Picture([&] {
        Open();
        EXPECT_EQ(form.live.cmb_LivePreset.Items().front(), "Last Plot");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveVar.Text, "Veloc CP");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveCom.Text, "Y");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveFrame.Text, "Local");
        EXPECT_TRUE(Own(1).Visible);
        Pick(form.live.cmb_LivePreset, kVelocityPreset);
        Pick(form.live.cmb_LivePreset, "Last Plot");
        EXPECT_EQ(form.live.cmb_LivePreset.Text, "Last Plot");
        EXPECT_EQ(form.live.Slots[0]->cmb_LiveCom.Text, "Y");
        EXPECT_EQ(form.live.Slots[1]->cmb_LiveVar.Text, "(none)");
    });
}

TEST_F(LivePlots, ASpoiltSettingIsNoChoice) {
    The_Settings().Put("live.functions",
                       std::vector<std::string>{"Veloc CP|Z|", "nothing", "Omega4||", "Current FFT|X|"});
    The_Settings().Put("view.live", "on");
    The_Settings().Save();
    platform::Screens::Discard();
    auto& again = static_cast<frm_Animate&>(platform::Screens::Get("frm_Animate"));
    again.Form_Activate();
    EXPECT_EQ(again.live.Slots[0]->cmb_LiveVar.Text, "(none)");
    EXPECT_EQ(again.live.Slots[2]->cmb_LiveVar.Text, "Omega4");
    EXPECT_EQ(again.live.grf_Live[3].NumPoints(), 37);
}

TEST_F(LivePlots, AChoiceComesBackFromTheSettingsWithItsPresetAsLongAsItsFunctionsAreThosePicked) {
    const std::vector<const Preset*> presets = Live_Presets();
    for (const Preset* preset : {presets.front(), presets.at(presets.size() / 2), presets.back()}) {
        Live_Choice choice;
        choice.Take(*preset);
        choice.abscissa = Abscissa::kTime;
        choice.one_scale = true;
        choice.Keep();
        Live_Choice kept = Live_Choice::Kept();
        EXPECT_EQ(kept.preset, preset->text);
        EXPECT_EQ(kept.functions, choice.functions);
        EXPECT_EQ(kept.abscissa, Abscissa::kTime);
        EXPECT_TRUE(kept.one_scale);
        choice.functions[0] = {"Theta4", "", false};
        choice.abscissa = Abscissa::kAngle;
        choice.one_scale = false;
        choice.Keep();
        kept = Live_Choice::Kept();
        EXPECT_EQ(kept.preset, "");
        EXPECT_EQ(kept.functions, choice.functions);
        EXPECT_EQ(kept.abscissa, Abscissa::kAngle);
        EXPECT_FALSE(kept.one_scale);
    }
}

}  // namespace
}  // namespace verlink::test
