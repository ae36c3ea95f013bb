// Variables, components and presets that are typed: the wrong case, nonsense, emptied boxes, and cleared slots.
#include "platform/graph.h"
#include "screens/frm_fft.h"
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect4.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::ComboBox;
using platform::Icon;
using platform::Screen;

class TypedTest : public SelectionScreenTest {
   protected:
    static void Type(ComboBox& box, const char* text) {
        box.SetFocus();
        box.Text = text;
    }
    void Expect_Refusal(const std::string& typed, const std::string& kind) {
        desktop.Expect_Message("\"" + typed + "\" is not one of the " + kind + ". Please choose from the list.",
                               Answer::kOk, Icon::kExclamation);
    }
    static constexpr char kVariables[] = "variables that have been computed";
    template <class Form>
    Form& Mixing(const char* name) {
        Form& form = Activated<Form>(name);
        Mix(form);
        return form;
    }
};

}  // namespace

TEST_F(TypedTest, TheCaseAndTheBlanksOfAVariableDoNotCount) {
    for (const char* name : {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PrintSelect"}) {
        SCOPED_TRACE(name);
        auto& form = Mixing<Preset_Screen>(name);
        Type(Slot(form, 1).cmb_Var, " omega4");
        Slot(form, 1).cmb_Com.SetFocus();
        EXPECT_EQ(form.Focus(), &Slot(form, 1).cmd_OK);
        Press(form, "cmd_OK1");
        Expect_Slot(form, 1, 7, "Mag");
        Model.FuncGroup(1) = 0;
    }
}

TEST_F(TypedTest, ATypedVariableIsPickedWhenItsBoxIsLeftAndATypedComponentToo) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Function_Slot& slot = Slot(form, 1);
    Type(slot.cmb_Var, "VELOC cp");
    slot.cmb_Com.SetFocus();
    EXPECT_EQ(slot.cmb_Var.Text.Get(), "Veloc CP");
    EXPECT_EQ(Model.FuncRow(1), 2);
    EXPECT_TRUE(form.opt_Coord[1].Enabled);
    EXPECT_FALSE(slot.cmd_OK.Enabled);
    Type(slot.cmb_Com, "ang");
    slot.cmd_OK.SetFocus();
    EXPECT_TRUE(slot.cmd_OK.Enabled);
    Press(form, "cmd_OK1");
    Expect_Slot(form, 1, 13, "Ang");
}

TEST_F(TypedTest, NonsenseIsToldAndTheVariableBeforeIsBackWithAllThatBelongsToIt) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Omega3");
    Function_Slot& slot = Slot(form, 1);
    for (const char* nonsense : {"Omega9", "Nonsense", "Omega", "Current FFT"}) {
        SCOPED_TRACE(nonsense);
        Type(slot.cmb_Var, nonsense);
        Expect_Refusal(nonsense, kVariables);
        form.cmd_Done.SetFocus();
        EXPECT_EQ(form.Focus(), &slot.cmb_Var);
        EXPECT_TRUE(slot.cmb_Var.SelectedAll);
        Expect_Slot(form, 1, 6, "Mag");
        EXPECT_TRUE(form.cmd_Done.Enabled);
    }
}

TEST_F(TypedTest, AVariableThatHasNotBeenComputedIsRefused) {
    Forces_Dropped();
    Balance_Dropped();
    auto& form = Mixing<frm_PlotSelect2>("frm_PlotSelect2");
    Type(Slot(form, 1).cmb_Var, "Force 12");
    Expect_Refusal("Force 12", kVariables);
    Slot(form, 2).cmb_Var.SetFocus();
    EXPECT_EQ(Slot(form, 1).cmb_Var.Text.Get(), "");
    EXPECT_EQ(Model.FuncGroup(1), 0);
}

TEST_F(TypedTest, NonsenseIsNoComponent) {
    auto& form = Mixing<frm_PrintSelect>("frm_PrintSelect");
    Fill(form, 1, "Accel CP", "Y");
    Type(Slot(form, 1).cmb_Com, "Z");
    Expect_Refusal("Z", "components");
    Slot(form, 2).cmb_Var.SetFocus();
    Expect_Slot(form, 1, 16, "Y");
}

TEST_F(TypedTest, NoSlotIsTakenOverUnderANameThatItDoesNotHave) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Function_Slot& slot = Slot(form, 1);
    Pick(form, 1, "Theta2");
    form.cmd_Cancel.SetFocus();
    // However the text came there.
    slot.cmb_Var.Text = "Nonsense";
    Expect_Refusal("Nonsense", kVariables);
    Press(form, "cmd_OK1");
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    slot.cmb_Var.Text = "theta3";
    Press(form, "cmd_OK1");
    Expect_Slot(form, 1, 2, "Mag");
}

TEST_F(TypedTest, AnEmptiedBoxShowsTheChoiceThatStands) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Veloc CP", "X");
    Type(Slot(form, 1).cmb_Var, "");
    Type(Slot(form, 1).cmb_Com, " ");
    Slot(form, 2).cmb_Var.SetFocus();
    Expect_Slot(form, 1, 13, "X");
}

TEST_F(TypedTest, ReturnFromAnEmptiedBoxGoesOnWithTheChoiceThatStands) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Omega3");
    Type(Slot(form, 1).cmb_Var, "");
    desktop.Expect_Screen("frm_Plot1", [](platform::Screen& screen) { screen.Hide(); });
    form.cmd_Done.OnClick();
    Expect_Slot(form, 1, 6, "Mag");
}

TEST_F(TypedTest, TheSameNameTypedAgainLeavesTheSlotTakenOver) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Omega3");
    Type(Slot(form, 1).cmb_Var, "omega3");
    Slot(form, 2).cmb_Var.SetFocus();
    Expect_Slot(form, 1, 6, "Mag");
    EXPECT_TRUE(form.cmd_Done.Enabled);
}

TEST_F(TypedTest, ANewNameTypedBeforeGoingOnIsPickedAndAskedToBeTakenOver) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Omega3");
    Type(Slot(form, 1).cmb_Var, "omega4");
    // Return presses the button without leaving the box.
    form.cmd_Done.OnClick();
    EXPECT_EQ(Slot(form, 1).lbl_Function.Caption.Get(), "");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmd_OK);
    EXPECT_EQ(Model.FuncRow(1), 2);
}

TEST_F(TypedTest, AClearedSlotIsAsFreshAndKeepsNothingOfWhatWasTyped) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Theta2");
    Fill(form, 2, "Theta3");
    Type(Slot(form, 2).cmb_Var, "Nonsense");
    Press(form, "cmd_Clear2");
    Function_Slot& slot = Slot(form, 2);
    EXPECT_EQ(slot.cmb_Var.Text.Get(), "");
    EXPECT_EQ(slot.cmb_Com.Text.Get(), "");
    EXPECT_TRUE(slot.cmb_Com.Enabled);
    EXPECT_FALSE(slot.cmd_OK.Enabled);
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    // Nothing comes back from before.
    Type(slot.cmb_Var, "Nonsense");
    Expect_Refusal("Nonsense", kVariables);
    form.cmd_Done.SetFocus();
    EXPECT_EQ(slot.cmb_Var.Text.Get(), "");
}

TEST_F(TypedTest, WhoGoesBackOrChangesTheMethodIsToldNothing) {
    auto& form = Mixing<frm_PlotSelect1>("frm_PlotSelect1");
    Fill(form, 1, "Theta2");
    Type(Slot(form, 1).cmb_Var, "Nonsense");
    Choose_Option(form, "opt_PrintSet", 0);
    EXPECT_EQ(Slot(form, 1).cmb_Var.Text.Get(), "");
    Mix(form);
    Type(Slot(form, 1).cmb_Var, "Nonsense");
    desktop.Expect_Screen("frm_PlotType", [](Screen& chooser) { chooser.Hide(); });
    Press(form, "cmd_CancelPlotData");
}

TEST_F(TypedTest, ATypedVectorIsThatOfThePolarPlot) {
    auto& form = Activated<frm_PlotSelect4>("frm_PlotSelect4");
    Function_Slot& slot = Slot(form, 1);
    Type(slot.cmb_Var, "accel cp");
    form.opt_Coord[0].SetFocus();
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "Accel CP");
    EXPECT_TRUE(form.cmd_Done.Enabled);
    // A scalar has no polar plot.
    Type(slot.cmb_Var, "Omega3");
    Expect_Refusal("Omega3", "vectors that have been computed");
    form.opt_Coord[0].SetFocus();
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "Accel CP");
    EXPECT_EQ(Model.FuncGroup(1), 5);
    slot.cmb_Var.Text = "";
    form.cmd_Done.Enabled = false;
    slot.cmb_Var.OnDblClick();
    EXPECT_FALSE(form.cmd_Done.Enabled) << "nothing was picked";
}

TEST_F(TypedTest, ADoubleClickRefusesNonsenseAndTakesTheWrongCase) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Text = "No preset";
    Expect_Refusal("No preset", "presets for what has been computed");
    form.cmb_Preset.OnDblClick();
    EXPECT_FALSE(form.cmd_Done.Enabled);
    desktop.Expect_Screen("frm_Plot1", [](Screen& screen) { screen.Hide(); });
    form.cmb_Preset.Text = "theta magnitudes for all links";
    form.cmb_Preset.OnDblClick();
    EXPECT_EQ(form.cmb_Preset.Text.Get(), "Theta magnitudes for all links");
    Slot(form, 2).cmb_Var.Text = "Nonsense";
    Expect_Refusal("Nonsense", kVariables);
    Slot(form, 2).cmb_Var.OnDblClick();
    // The function that is plotted at once has its name.
    desktop.Expect_Screen("frm_Plot1", [](Screen& screen) {
        EXPECT_EQ(screen.Get<platform::Graph>("grf_Plot", 0).Sets().at(1).legend, "Omega3 Mag rad/sec");
        screen.Hide();
    });
    Slot(form, 2).cmb_Var.Text = "omega3";
    Slot(form, 2).cmb_Var.OnDblClick();
}

TEST_F(TypedTest, ATableForgetsAVariableThatIsGone) {
    auto& form = Mixing<frm_PrintSelect>("frm_PrintSelect");
    Fill(form, 1, "Force 12", "X");
    Forces_Dropped();
    Balance_Dropped();
    form.Form_Activate();
    EXPECT_EQ(Slot(form, 1).cmb_Var.Text.Get(), "");
    EXPECT_EQ(Slot(form, 1).lbl_Function.Caption.Get(), "");
}

TEST_F(TypedTest, TheTransformTakesATypedFunctionAndRefusesNonsense) {
    Model.NSteps = 36;
    auto& form = Activated<frm_FFT>("frm_FFT");
    Type(form.cmb_Var1, "omega4");
    Press(form, "cmd_Calc");
    EXPECT_EQ(form.lbl_Header2.Caption, "Fourier Transform of  Omega4");
    EXPECT_TRUE(Model.FFTDone);
    Type(form.cmb_Var1, "Omega9");
    Expect_Refusal("Omega9", kVariables);
    Press(form, "cmd_Calc");
    EXPECT_EQ(form.cmb_Var1.Text.Get(), "Omega4");
    EXPECT_EQ(form.lbl_Header2.Caption, "Fourier Transform of  Omega4");
    Type(form.cmb_Com1, "Q");
    Expect_Refusal("Q", "components");
    form.cmd_Calc.OnClick();  // as Return does
    EXPECT_EQ(form.cmb_Com1.Text.Get(), "X");
    Type(form.cmb_Var1, "Nonsense");
    Press(form, "cmd_Clear1");
    EXPECT_EQ(form.cmb_Var1.Text.Get(), "");
    EXPECT_FALSE(Model.FFTDone);
}

}  // namespace verlink::test
