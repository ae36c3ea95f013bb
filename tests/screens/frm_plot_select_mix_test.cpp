// Functions chosen one by one: what is enabled, where the focus goes, how they are counted.
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect3.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr char kGap[] =
    "Something is wrong. \r\rYou are missing a plot selection.\r\rPlease leave no gaps between selections. \r"
    "Two functions should use Plots 1 and 2. Three functions should use Plots 1, 2, and 3.";

class MixAndMatchTest : public SelectionScreenTest {
   protected:
    template <class Form>
    Form& Mixing(const char* name) {
        Form& form = Activated<Form>(name);
        Mix(form);
        return form;
    }
    frm_PlotSelect1& Single_Window() { return Mixing<frm_PlotSelect1>("frm_PlotSelect1"); }
    void Expect_Gap() { desktop.Expect_Message(kGap, Answer::kOk, Icon::kExclamation, Buttons::kOk); }
};

}  // namespace

TEST_F(MixAndMatchTest, TheSetupMethodOpensTheSlotsAndLocksThePresets) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Choose(4);
    form.opt_Coord[1].Value = true;
    Mix(form);
    EXPECT_FALSE(form.cmb_Preset.Enabled);
    EXPECT_EQ(form.cmb_Preset.Text.Get(), "");
    EXPECT_TRUE(form.opt_Coord[0].Value);
    EXPECT_FALSE(form.fra_coord.Enabled);
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmb_Var);
    for (const auto& slot : form.Slots) {
        EXPECT_TRUE(slot->cmb_Var.Enabled);
        EXPECT_FALSE(slot->cmd_OK.Enabled);
        EXPECT_EQ(slot->lbl_Function.Caption.Get(), "");
    }
    EXPECT_FALSE(form.cmd_Done.Enabled);
    Choose_Option(form, "opt_PrintSet", 0);
    EXPECT_EQ(form.Focus(), &form.cmb_Preset);
    EXPECT_TRUE(form.cmb_Preset.Enabled);
    Expect_Locked(form);
}

TEST_F(MixAndMatchTest, TheFocusGoesFromVariableToComponentToTakeOverToTheNextSlot) {
    auto& form = Single_Window();
    Slot(form, 1).cmb_Var.SetFocus();
    Pick(form, 1, "Veloc CP");
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmb_Com);
    EXPECT_TRUE(Slot(form, 1).cmb_Com.SelectedAll);
    EXPECT_FALSE(Slot(form, 1).cmd_OK.Enabled);
    EXPECT_TRUE(form.opt_Coord[1].Enabled);
    Choose(Slot(form, 1).cmb_Com, "Ang");
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmd_OK);
    Press(form, "cmd_OK1");
    EXPECT_EQ(form.Focus(), &Slot(form, 2).cmb_Var);
    EXPECT_TRUE(Slot(form, 2).cmb_Var.SelectedAll);
    Expect_Slot(form, 1, 13, "Ang");
}

TEST_F(MixAndMatchTest, AScalarGoesStraightToTheTakeOverWithItsMagnitude) {
    auto& form = Single_Window();
    Pick(form, 1, "Alpha3");
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmd_OK);
    EXPECT_EQ(Slot(form, 1).cmb_Com.Text.Get(), "Mag");
    EXPECT_FALSE(Slot(form, 1).cmb_Com.Enabled);
    EXPECT_EQ(Model.ComponentLabel(1), "Mag");
    EXPECT_EQ(Model.FuncComponent(1), 2);
    Press(form, "cmd_OK1");
    Expect_Slot(form, 1, 9, "Mag");
}

TEST_F(MixAndMatchTest, APickInATakenSlotTakesItOutOfTheChosenOnesUntilItIsTakenOverAgain) {
    auto& form = Mixing<frm_PlotSelect2>("frm_PlotSelect2");
    Fill(form, 1, "Theta2");
    Fill(form, 2, "Theta3");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    Pick(form, 1, "Theta4");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(Slot(form, 1).lbl_Function.Caption.Get(), "");
    Press(form, "cmd_OK1");
    EXPECT_TRUE(form.cmd_Done.Enabled);
}

TEST_F(MixAndMatchTest, TheTakeOverOpensTheNextSlotAndItsButtonWhereAVariableStandsAlready) {
    auto& form = Single_Window();
    Pick(form, 2, "Veloc CP");
    for (auto* part : {&Slot(form, 2).cmb_Var, &Slot(form, 2).cmb_Com}) part->Enabled = false;
    Slot(form, 2).fra_Function.Enabled = false;
    Slot(form, 2).lbl_Var.Enabled = false;
    Slot(form, 2).lbl_Comp.Enabled = false;
    Fill(form, 1, "Theta2");
    EXPECT_TRUE(Slot(form, 2).fra_Function.Enabled);
    EXPECT_TRUE(Slot(form, 2).cmb_Var.Enabled);
    EXPECT_TRUE(Slot(form, 2).cmb_Com.Enabled);
    EXPECT_TRUE(Slot(form, 2).lbl_Var.Enabled);
    EXPECT_TRUE(Slot(form, 2).lbl_Comp.Enabled);
    EXPECT_TRUE(Slot(form, 2).cmd_OK.Enabled);
}

TEST_F(MixAndMatchTest, TheFrameFollowsTheFunctionTakenOverLast) {
    auto& form = Single_Window();
    Fill(form, 1, "Veloc CP", "X");
    EXPECT_TRUE(form.fra_coord.Enabled);
    Fill(form, 2, "Theta2");
    EXPECT_FALSE(form.fra_coord.Enabled);
    Fill(form, 3, "Torque 12");
    EXPECT_TRUE(form.opt_Coord[1].Enabled);
}

TEST_F(MixAndMatchTest, ASingleFunctionIsEnoughForASingleWindow) {
    auto& form = Single_Window();
    Fill(form, 1, "Theta2");
    EXPECT_EQ(Model.PlotCount, 1);
    EXPECT_TRUE(form.cmd_Done.Enabled);
}

TEST_F(MixAndMatchTest, FunctionsOfASingleWindowAreCountedByTheHighestSlot) {
    auto& form = Single_Window();
    int count = 0;
    for (const char* variable : {"Theta2", "Omega4", "w4 / w2", "T4 / T2"}) {
        Fill(form, ++count, variable);
        EXPECT_EQ(Model.PlotCount, count);
        EXPECT_TRUE(form.cmd_Done.Enabled);
    }
}

TEST_F(MixAndMatchTest, AGapShowsTheMessageAndDoesNotAllowGoingOn) {
    auto& form = Single_Window();
    Fill(form, 1, "Theta2");
    Expect_Gap();
    Fill(form, 3, "Theta3");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(Model.PlotCount, 3);
    Fill(form, 2, "Theta4");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_EQ(Model.PlotCount, 3);
}

TEST_F(MixAndMatchTest, AGapBeforeTheFirstFunctionShowsTheMessage) {
    auto& form = Single_Window();
    Expect_Gap();
    Fill(form, 2, "Theta2");
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(MixAndMatchTest, ClearingTheLastSlotAllowsGoingOnWithTheRest) {
    auto& form = Single_Window();
    Fill(form, 1, "Theta2");
    Fill(form, 2, "Theta3");
    form.cmd_Done.Enabled = false;
    Press(form, "cmd_Clear2");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_EQ(Model.PlotCount, 1);
    EXPECT_EQ(Slot(form, 2).cmb_Var.Text.Get(), "");
    EXPECT_EQ(Slot(form, 2).cmb_Com.Text.Get(), "");
    EXPECT_EQ(Slot(form, 2).lbl_Function.Caption.Get(), "");
    EXPECT_FALSE(Slot(form, 2).cmd_OK.Enabled);
}

TEST_F(MixAndMatchTest, ClearingAllowsGoingOnAndTheCountTakesItBackWhereNothingIsLeft) {
    auto& form = Single_Window();
    Fill(form, 1, "Theta2");
    std::vector<bool> seen;
    form.cmd_Done.Watcher = [&] { seen.push_back(form.cmd_Done.Enabled); };
    form.cmd_Done.Enabled = false;
    Press(form, "cmd_Clear1");
    EXPECT_EQ(seen, (std::vector<bool>{false, true, false}));
    EXPECT_EQ(Model.PlotCount, 0);
}

TEST_F(MixAndMatchTest, ClearingASlotBetweenOthersLeavesAGap) {
    auto& form = Single_Window();
    int slot = 0;
    for (const char* variable : {"Theta2", "Theta3", "Theta4"}) Fill(form, ++slot, variable);
    Expect_Gap();
    Press(form, "cmd_Clear2");
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(MixAndMatchTest, TwoWindowsNeedBothFunctions) {
    auto& form = Mixing<frm_PlotSelect2>("frm_PlotSelect2");
    Fill(form, 1, "Theta2");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(Model.PlotCount, 2);
    Fill(form, 2, "Accel CP", "X");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
    EXPECT_EQ(Model.PlotCount, 2);
    Press(form, "cmd_Clear1");
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(MixAndMatchTest, FourWindowsNeedAllFunctionsInAnyOrder) {
    auto& form = Mixing<frm_PlotSelect3>("frm_PlotSelect3");
    for (const int slot : {3, 1, 4}) {
        Fill(form, slot, "Theta2");
        EXPECT_FALSE(form.cmd_Done.Enabled) << slot;
        EXPECT_EQ(Model.PlotCount, 4);
    }
    Fill(form, 2, "Theta2");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
}

TEST_F(MixAndMatchTest, ATableWithThreeFunctionsNeverGoesOn) {
    auto& form = Mixing<frm_PrintSelect>("frm_PrintSelect");
    Model.PrintCount = 2;
    for (const int slot : {1, 2, 3}) {
        Fill(form, slot, "Theta2");
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_EQ(Model.PrintCount, 4);
    }
    Press(form, "cmd_Clear3");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    Fill(form, 3, "Theta4");
    Fill(form, 4, "Theta3");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.Focus(), &form.cmd_Done);
}

TEST_F(MixAndMatchTest, TheSlotsSurviveFromScreenToScreenAndTheLastTakeOverWins) {
    auto& first = Single_Window();
    Fill(first, 1, "Veloc CP", "Y");
    Fill(first, 2, "Accel CP", "Mag");
    auto& second = Mixing<frm_PlotSelect2>("frm_PlotSelect2");
    Fill(second, 1, "Theta2");
    EXPECT_EQ(Model.FuncGroup(1), 1);
    EXPECT_EQ(Model.FuncGroup(2), 5);
    EXPECT_EQ(Model.FuncComponent(2), 2);
    EXPECT_EQ(Slot(first, 1).lbl_Function.Caption.Get(), "Veloc CP");
}

TEST_F(MixAndMatchTest, ADoubleClickOnAVariableIsAPick) {
    for (const char* name : {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PrintSelect"}) {
        auto& form = Mixing<Preset_Screen>(name);
        Model.PlotCount = 2;
        Slot(form, 1).cmb_Var.Text = "Omega3";
        Slot(form, 1).cmb_Var.OnDblClick();
        EXPECT_EQ(Model.FuncGroup(1), 2);
        EXPECT_EQ(Model.FuncRow(1), 1);
        EXPECT_TRUE(Slot(form, 1).cmd_OK.Enabled);
        Model.FuncGroup(1) = 0;
    }
}

}  // namespace verlink::test
