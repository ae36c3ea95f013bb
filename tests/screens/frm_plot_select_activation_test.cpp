// The function screens as they come up: controls, captions, lists, frame, styles.
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect3.h"
#include "screens/frm_plotselect4.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::CommandButton;
using platform::Frame;
using platform::Label;
using platform::OptionButton;
using platform::Screens;

class SelectActivationTest : public SelectionScreenTest {
   protected:
    static constexpr std::array<const char*, 3> kPlotScreens{"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3"};
};

}  // namespace

TEST_F(SelectActivationTest, TheControlsAreCaptionedAsDesigned) {
    for (const char* name : kPlotScreens) {
        SCOPED_TRACE(name);
        auto& form = dynamic_cast<Preset_Screen&>(Screens::Get(name));
        EXPECT_EQ(form.Caption().Get(), "Select Plot Data");
        EXPECT_EQ(form.fra_Preset.Caption.Get(), "Select from Preset Formats");
        EXPECT_EQ(form.fra_Method.Caption.Get(), "Choose Setup Method");
        EXPECT_EQ(form.opt_PrintSet[0].Caption.Get(), "Preset Formats");
        EXPECT_EQ(form.opt_PrintSet[1].Caption.Get(), "Mix and Match");
        EXPECT_EQ(form.cmd_ClearPreset.Caption.Get(), "&Clear");
        EXPECT_EQ(form.fra_coord.Caption.Get(), "Coordinate System");
        EXPECT_EQ(form.opt_Coord[0].Caption.Get(), "Global");
        EXPECT_EQ(form.opt_Coord[1].Caption.Get(), "Local Rotating");
        EXPECT_EQ(form.cmd_Done.Caption.Get(), "&Next >");
        EXPECT_EQ(form.Get<CommandButton>("cmd_CancelPlotData").Caption.Get(), "< &Back");
        for (int slot = 1; slot <= static_cast<int>(form.Slots.size()); ++slot) {
            const std::string number = std::to_string(slot);
            EXPECT_EQ(form.Get<Frame>("fra_Function" + number).Caption.Get(), "Function " + number);
            EXPECT_EQ(form.Get<Frame>("fra_Plot", slot - 1).Caption.Get(), "Plot " + number);
            EXPECT_EQ(form.Get<Label>("lbl_Var", slot - 1).Caption.Get(), "Variable");
            EXPECT_EQ(form.Get<Label>("lbl_Comp", slot - 1).Caption.Get(), "Component");
            EXPECT_EQ(form.Get<CommandButton>("cmd_Clear" + number).Caption.Get(), "&Clear");
            EXPECT_EQ(form.Get<Label>("lbl_Function", slot - 1).Caption.Get(), "");
            EXPECT_EQ(form.Get<Label>("lbl_Component", slot - 1).Caption.Get(), "");
        }
    }
}

TEST_F(SelectActivationTest, TheTitlesTellTheLayoutAndThePolarOneDiffersFromTheChooser) {
    const std::pair<const char*, const char*> titles[] = {{"frm_PlotSelect1", "Single Window - Up to Four Functions"},
                                                          {"frm_PlotSelect2", "Two Windows - Two Functions"},
                                                          {"frm_PlotSelect3", "Four Windows - Four Functions"},
                                                          {"frm_PlotSelect4", "Polar Plot - One Function"}};
    for (const auto& [name, title] : titles)
        EXPECT_EQ(Screens::Get(name).Get<Frame>("frm_Plotstyle").Caption.Get(), title);
}

TEST_F(SelectActivationTest, SlotsAreFourTwoFourAndOne) {
    const std::pair<const char*, std::size_t> slots[] = {
        {"frm_PlotSelect1", 4}, {"frm_PlotSelect2", 2}, {"frm_PlotSelect3", 4}, {"frm_PlotSelect4", 1}};
    for (const auto& [name, count] : slots)
        EXPECT_EQ(dynamic_cast<Function_Screen&>(Screens::Get(name)).Slots.size(), count) << name;
    EXPECT_EQ(Screens::Get("frm_PlotSelect1").FindAs<OptionButton>("opt_Plotstyle", 0), nullptr);
    EXPECT_EQ(Screens::Get("frm_PlotSelect4").FindAs<OptionButton>("opt_PrintSet", 0), nullptr);
    EXPECT_EQ(Screens::Get("frm_PlotSelect4").FindAs<platform::ComboBox>("cmb_Com1"), nullptr);
    for (const char* name : {"frm_PlotSelect2", "frm_PlotSelect3"}) {
        EXPECT_EQ(Screens::Get(name).Get<OptionButton>("opt_Plotstyle", 0).Caption.Get(), "Aligned");
        EXPECT_EQ(Screens::Get(name).Get<OptionButton>("opt_Plotstyle", 1).Caption.Get(), "Annotated");
    }
}

TEST_F(SelectActivationTest, AFreshScreenHasItsFirstFrameOpenAndDoesNotGoOn) {
    int windows[] = {1, 2, 4, 1};
    int* expected = windows;
    for (const char* name : {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4"}) {
        Model.GraphWindows = 0;
        auto& form = dynamic_cast<Function_Screen&>(Screens::Get(name));
        EXPECT_EQ(Model.GraphWindows, *expected++) << name;
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_TRUE(Slot(form, 1).fra_Function.Enabled);
        for (std::size_t slot = 1; slot < form.Slots.size(); ++slot)
            EXPECT_FALSE(form.Slots[slot]->fra_Function.Enabled);
        for (const auto& slot : form.Slots) EXPECT_EQ(slot->cmb_Com.Text.Get(), "");
    }
}

TEST_F(SelectActivationTest, TheListsAreLoadedWhenControlHasComeBackAndNotOtherwise) {
    for (const char* name : kPlotScreens) {
        SCOPED_TRACE(name);
        const bool two = std::string(name) == "frm_PlotSelect2";
        Model.ScreenReturn = false;
        auto& form = Activated<Preset_Screen>(name);
        EXPECT_TRUE(form.cmb_Preset.Items().empty());
        EXPECT_TRUE(Slot(form, 1).cmb_Var.Items().empty());
        Model.ScreenReturn = true;
        form.Form_Activate();
        EXPECT_EQ(form.cmb_Preset.Items().size(), two ? 34u : 31u);
        for (const auto& slot : form.Slots) {
            EXPECT_EQ(slot->cmb_Var.Items().size(), 42u);
            EXPECT_EQ(slot->cmb_Com.Items().size(), 4u);
        }
        Forces_Dropped();
        Balance_Dropped();
        Transform_Dropped();
        form.Form_Activate();
        EXPECT_EQ(form.cmb_Preset.Items().size(), two ? 11u : 10u);
        for (const auto& slot : form.Slots) EXPECT_EQ(slot->cmb_Var.Items().size(), 19u);
        Forces_Hold();
        Balance_Holds();
        Transform_Holds();
    }
}

TEST_F(SelectActivationTest, AnActivationStartsAnewInTheGlobalFrame) {
    for (const char* name : kPlotScreens) {
        SCOPED_TRACE(name);
        auto& form = Activated<Preset_Screen>(name);
        form.cmb_Preset.Choose(4);
        form.opt_Coord[1].Value = true;
        Model.CoordSystem = 2;
        Model.GraphWindows = 0;
        form.Width() = 100;
        form.Form_Activate();
        EXPECT_EQ(Model.CoordSystem, 0);
        EXPECT_EQ(Model.GraphWindows, std::string(name) == "frm_PlotSelect1" ? 1 : static_cast<int>(form.Slots.size()));
        EXPECT_TRUE(form.opt_Coord[0].Value);
        EXPECT_FALSE(form.opt_Coord[1].Enabled);
        EXPECT_TRUE(form.opt_Coord[0].Enabled);
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_EQ(form.Width().Get(), 11850);
        EXPECT_EQ(form.Height().Get(), 8950);
        for (const auto& slot : form.Slots) {
            EXPECT_EQ(slot->lbl_Function.Caption.Get(), "");
            EXPECT_EQ(slot->cmb_Var.Text.Get(), "");
        }
        EXPECT_EQ(form.Focus(), &form.cmb_Preset);
    }
}

TEST_F(SelectActivationTest, ThePresetBoxTakesTheFocusBackAtAChangeWhilePresetsAreChosen) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmd_ClearPreset.SetFocus();
    form.cmb_Preset.Text = "Omega";
    EXPECT_EQ(form.Focus(), &form.cmb_Preset);
    Mix(form);
    form.cmb_Preset.Text = "Alpha";
    EXPECT_EQ(form.Focus(), &Slot(form, 1).cmb_Var);
}

TEST_F(SelectActivationTest, AlignedCannotBeChosenForATimeRun) {
    for (const char* name : {"frm_PlotSelect2", "frm_PlotSelect3"})
        for (const int calctype : {1, 2, 4, 5}) {
            Model.Calctype = calctype;
            Model.PlotLayout = 1;
            auto& form = Activated<Windows_Screen>(name);
            EXPECT_FALSE(form.opt_Plotstyle[0].Enabled);
            EXPECT_TRUE(form.opt_Plotstyle[1].Value);
            EXPECT_EQ(Model.PlotLayout, 2);
            Choose_Option(form, "opt_Plotstyle", 0);
            EXPECT_EQ(Model.PlotLayout, 2);
            EXPECT_FALSE(form.opt_Plotstyle[0].Value);
        }
}

TEST_F(SelectActivationTest, AnAngleRunHasTheChoiceOfTheStyle) {
    for (const char* name : {"frm_PlotSelect2", "frm_PlotSelect3"}) {
        auto& form = Activated<Windows_Screen>(name);
        EXPECT_TRUE(form.opt_Plotstyle[0].Enabled);
        EXPECT_EQ(Model.PlotLayout, 1);
        Choose_Option(form, "opt_Plotstyle", 1);
        EXPECT_EQ(Model.PlotLayout, 2);
        Choose_Option(form, "opt_Plotstyle", 0);
        EXPECT_EQ(Model.PlotLayout, 1);
    }
}

TEST_F(SelectActivationTest, ATransformIsNeverDrawnAligned) {
    for (const char* name : {"frm_PlotSelect2", "frm_PlotSelect3"}) {
        auto& form = Activated<Windows_Screen>(name);
        Choose_Option(form, "opt_Plotstyle", 0);
        Choose(form.cmb_Preset,
               form.Slots.size() == 2 ? "Current FFT - Real, Imag" : "Current FFT - Real, Imag, Mag, Phase");
        EXPECT_TRUE(form.opt_Plotstyle[1].Value);
        EXPECT_EQ(Model.PlotLayout, 2);
        Choose_Option(form, "opt_Plotstyle", 0);
        EXPECT_FALSE(form.opt_Plotstyle[0].Value);
        EXPECT_TRUE(form.opt_Plotstyle[1].Value);
        EXPECT_EQ(Model.PlotLayout, 2);
        form.cmb_Preset.Choose(0);
        Choose_Option(form, "opt_Plotstyle", 0);
        EXPECT_EQ(Model.PlotLayout, 1);
    }
}

TEST_F(SelectActivationTest, BackGoesToTheChooserOfThePlotType) {
    for (const char* name : {"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4"}) {
        desktop.Expect_Screen(name, [](platform::Screen& form) { Press(form, "cmd_CancelPlotData"); });
        desktop.Expect_Screen("frm_PlotType", [name](platform::Screen& chooser) {
            EXPECT_FALSE(Screens::Get(name).Visible());
            chooser.Hide();
        });
        Screens::Get(name).ShowModal();
    }
}

TEST_F(SelectActivationTest, HelpOpensThePageOfThePlots) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    desktop.Expect_Screen("frm_Help", [](platform::Screen& help) {
        EXPECT_EQ(help.Get<platform::DocumentView>("WebBrowser1").Document.Get(),
                  "helpfiles/linkages/linkage_plot_help.pdf");
        help.Hide();
    });
    form.mnu_Help.Click();
}

}  // namespace verlink::test
