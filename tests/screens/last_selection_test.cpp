// "Last Selection" on the selection screens.
#include "platform/settings.h"
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect4.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::The_Settings;

class LastSelection : public SelectionScreenTest {
   protected:
    LastSelection() { The_Settings().Open(Path("config")); }

    /// Next is pressed; what it leads to is left again.
    void Go_On(Function_Screen& form, const char* next) {
        desktop.Expect_Screen(next, [](platform::Screen& screen) { screen.Hide(); });
        Press(form, "cmd_Done");
    }
    /// The program is started again, with the same results.
    void Start_Again() {
        The_Settings().Save();
        platform::Screens::Discard();
        The_Settings().Open(Path("config"));
    }
};

TEST_F(LastSelection, ThereIsNoneBeforeTheFirst) {
    for (const char* name :
         {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4", "frm_PrintSelect"}) {
        auto& form = Activated<Function_Screen>(name);
        EXPECT_FALSE(form.cmd_Last.Enabled) << name;
        EXPECT_EQ(form.cmd_Last.Tip.Get(), "Nothing has been chosen here before") << name;
    }
}

TEST_F(LastSelection, FunctionsChosenOneByOneComeBackWithOneButtonAlsoInTheNextSession) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Mix(form);
    Fill(form, 1, "Omega4");
    Fill(form, 2, "Veloc CP", "X");
    Choose_Option(form, "opt_Coord", 1);
    Go_On(form, "frm_Plot1");

    for (const bool again : {false, true}) {
        SCOPED_TRACE(again);
        if (again) Start_Again();
        auto& next = Activated<frm_PlotSelect1>("frm_PlotSelect1");
        EXPECT_TRUE(next.cmd_Last.Enabled);
        EXPECT_FALSE(next.cmd_Done.Enabled);
        Press(next, "cmd_Last");
        EXPECT_TRUE(next.opt_PrintSet[1].Value);
        EXPECT_EQ(next.Slots[0]->lbl_Function.Caption.Get(), "Omega4");
        EXPECT_EQ(next.Slots[0]->lbl_Component.Caption.Get(), "Mag");
        EXPECT_EQ(next.Slots[1]->lbl_Function.Caption.Get(), "Veloc CP");
        EXPECT_EQ(next.Slots[1]->lbl_Component.Caption.Get(), "X");
        EXPECT_EQ(next.Slots[2]->lbl_Function.Caption.Get(), "");
        EXPECT_TRUE(next.opt_Coord[1].Value);
        EXPECT_EQ(Model.PlotCount, 2);
        EXPECT_EQ(next.Focus(), &next.cmd_Done);
        Go_On(next, "frm_Plot1");
        EXPECT_EQ(Model.CoordSystem, 2);
    }
}

TEST_F(LastSelection, AllFourFunctionsComeBackInTheirFrameTheFirstOfTheListToo) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Mix(form);
    const std::string first = form.Slots[0]->cmb_Var.Items().front();
    Fill(form, 1, first);
    Fill(form, 2, "Veloc CP", "X");
    Fill(form, 3, "Theta3");
    Fill(form, 4, "Veloc CP", "Ang");
    Go_On(form, "frm_Plot1");
    form.Form_Activate();
    Mix(form);
    Press(form, "cmd_Last");
    for (const auto& [slot, variable] :
         {std::pair{0, first}, {1, std::string("Veloc CP")}, {2, std::string("Theta3")}, {3, std::string("Veloc CP")}})
        EXPECT_EQ(form.Slots[static_cast<std::size_t>(slot)]->lbl_Function.Caption.Get(), variable) << slot;
    EXPECT_TRUE(form.opt_Coord[0].Value);
    EXPECT_TRUE(form.cmd_Done.Enabled);
}

TEST_F(LastSelection, AFunctionThatWasNotTakenOverWasNotChosen) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Mix(form);
    Pick(form, 2, "Theta3");
    Fill(form, 1, "Omega4");
    Go_On(form, "frm_Plot1");
    form.Form_Activate();
    Press(form, "cmd_Last");
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), "Omega4");
    EXPECT_EQ(form.Slots[1]->lbl_Function.Caption.Get(), "");
}

TEST_F(LastSelection, APresetComesBackInPlaceOfWhatWasBegunMeanwhile) {
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    const std::string preset = form.cmb_Preset.Items()[2];
    Choose(form.cmb_Preset, preset);
    const std::string first = form.Slots[0]->lbl_Function.Caption;
    ASSERT_FALSE(first.empty());
    Go_On(form, Model.PlotLayout == 1 ? "frm_Myplot2" : "frm_Plot2");

    form.Form_Activate();
    Mix(form);
    Fill(form, 1, "Theta3");
    Press(form, "cmd_Last");
    EXPECT_TRUE(form.opt_PrintSet[0].Value);
    EXPECT_EQ(form.cmb_Preset.Text.Get(), preset);
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), first);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    Press(form, "cmd_Last");
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), first) << "as often as one likes";
}

TEST_F(LastSelection, APolarVectorComesBack) {
    auto& form = Activated<frm_PlotSelect4>("frm_PlotSelect4");
    Pick(form, 1, "Coupler Pt");
    Go_On(form, "frm_MyPlot4");
    form.Form_Activate();
    EXPECT_FALSE(form.cmd_Done.Enabled);
    Press(form, "cmd_Last");
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), "Coupler Pt");
    EXPECT_TRUE(form.cmd_Done.Enabled);
}

TEST_F(LastSelection, ATableComesBackWithItsStepDecimalsAndWhereItGoes) {
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose(form.cmb_Preset, form.cmb_Preset.Items()[0]);
    Choose(form.cmb_Step, "2");
    Choose(form.cmb_Decimal, "5");
    Choose_Option(form, "opt_Whereto", 2);
    desktop.Expect_Save(std::nullopt);
    Press(form, "cmd_Done");
    Start_Again();

    auto& next = Activated<frm_PrintSelect>("frm_PrintSelect");
    Press(next, "cmd_Last");
    EXPECT_EQ(next.cmb_Step.Text.Get(), "2");
    EXPECT_EQ(next.cmb_Decimal.Text.Get(), "5");
    EXPECT_TRUE(next.opt_Whereto[2].Value);
    EXPECT_TRUE(next.cmd_Done.Enabled);
    desktop.Expect_Save(std::nullopt);
    Press(next, "cmd_Done");
    EXPECT_EQ(Model.PrintStep, Single(2));
    EXPECT_EQ(Model.DecimalPlaces, 5);
}

TEST_F(LastSelection, WhatNeedsResultsThatAreNotThereIsToldAndAllStays) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Mix(form);
    const std::string force = Model.VariableNames(20);
    Fill(form, 1, force, "Mag");
    Go_On(form, "frm_Plot1");
    Forces_Dropped();
    Model.ScreenReturn = true;
    form.Form_Activate();
    Fill(form, 1, "Theta3");
    desktop.Expect_Message("The last selection has \"" + force + "\" in it, which is not there for this linkage yet.",
                           platform::Answer::kOk, platform::Icon::kInformation);
    Press(form, "cmd_Last");
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), "Theta3");
}

TEST_F(LastSelection, ThatHoldsOfALaterSlotAndOfAPreset) {
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    Mix(form);
    const std::string force = Model.VariableNames(20);
    Fill(form, 1, "Theta3");
    Fill(form, 2, force, "Mag");
    Go_On(form, Model.PlotLayout == 1 ? "frm_Myplot2" : "frm_Plot2");
    auto& four = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    const std::string of_forces = four.cmb_Preset.Items()[20];
    Choose(four.cmb_Preset, of_forces);
    Go_On(four, "frm_Plot1");
    Forces_Dropped();
    Model.ScreenReturn = true;
    for (const auto& [screen, missing] : {std::pair<Function_Screen*, std::string>{&form, force},
                                          std::pair<Function_Screen*, std::string>{&four, of_forces}}) {
        screen->Form_Activate();
        desktop.Expect_Message_With("The last selection has \"" + missing + "\" in it");
        Press(*screen, "cmd_Last");
        EXPECT_FALSE(screen->cmd_Done.Enabled);
    }
}

TEST_F(LastSelection, ASettingThatIsNoSelectionChoosesNothing) {
    The_Settings().Put("selection.frm_PlotSelect1",
                       std::vector<std::string>{"opt_PrintSet=7", "cmb_Var1=", "opt_Coord=x", "nonsense", "=", "a=b"});
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Press(form, "cmd_Last");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.Slots[0]->lbl_Function.Caption.Get(), "");
}

}  // namespace
}  // namespace verlink::test
