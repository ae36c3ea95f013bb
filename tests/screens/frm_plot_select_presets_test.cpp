// Every preset of both lists, chosen on each screen that offers it.
#include <span>

#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect3.h"
#include "screens/frm_printselect.h"
#include "tests/output/preset_rows.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

class PresetsOnScreensTest : public SelectionScreenTest {
   protected:
    /// Chooses each preset in turn. A box that a preset leaves shows what the one before has put there.
    template <std::size_t n>
    void Choose_Each(Preset_Screen& form, std::span<const PresetRow<n>> rows) {
        std::array<std::string, n> components;
        ASSERT_EQ(form.cmb_Preset.Items().size(), rows.size());
        for (std::size_t number = 0; number < rows.size(); ++number) {
            const PresetRow<n>& row = rows[number];
            SCOPED_TRACE(row.text);
            Model.PlotCount = 0;
            for (const auto& slot : form.Slots) slot->lbl_Function.Caption = "stale";
            form.cmb_Preset.Choose(static_cast<int>(number));
            EXPECT_EQ(form.cmb_Preset.Text.Get(), row.text);
            for (std::size_t slot = 0; slot < n; ++slot) {
                if (*row.components[slot]) components[slot] = row.components[slot];
                Expect_Slot(form, static_cast<int>(slot) + 1, row.variables[slot], components[slot]);
            }
            EXPECT_EQ(Model.PlotCount, static_cast<int>(n));
            EXPECT_EQ(Model.FFTFunction, row.variables[n - 1] == 43);
            Expect_Locked(form);
            EXPECT_TRUE(form.cmd_Done.Enabled);
            EXPECT_EQ(form.Focus(), &form.cmd_Done);
        }
    }
};

}  // namespace

TEST_F(PresetsOnScreensTest, EveryPresetOfFourOnTheScreenOfASingleWindow) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Choose_Each<4>(form, kPresetsOfFour);
    EXPECT_EQ(Model.GraphWindows, 1);
}

TEST_F(PresetsOnScreensTest, EveryPresetOfTwoOnTheScreenOfTwoWindows) {
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    Model.GraphWindows = 7;
    Choose_Each<2>(form, kPresetsOfTwo);
    EXPECT_EQ(Model.GraphWindows, 2);
    EXPECT_EQ(Model.PrintCount, 2);
}

TEST_F(PresetsOnScreensTest, EveryPresetOfFourOnTheScreenOfFourWindows) {
    auto& form = Activated<frm_PlotSelect3>("frm_PlotSelect3");
    Model.GraphWindows = 7;
    Choose_Each<4>(form, kPresetsOfFour);
    EXPECT_EQ(Model.GraphWindows, 4);
    EXPECT_EQ(Model.PrintCount, 4);
}

TEST_F(PresetsOnScreensTest, EveryPresetOfFourOnTheScreenOfTables) {
    Model.PrintCount = 2;
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose_Each<4>(form, kPresetsOfFour);
    EXPECT_EQ(Model.PrintCount, 4);
}

TEST_F(PresetsOnScreensTest, TheFourthPresetTakesOverWhateverComponentsWereLastShown) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Choose(27);
    form.cmb_Preset.Choose(3);
    int slot = 0;
    for (const char* component : {"X", "Y", "X", "Y"}) Expect_Slot(form, ++slot, 11, component);
}

TEST_F(PresetsOnScreensTest, TheFourthPresetAfterNoOtherHasNoComponentsAndKeepsThoseOfTheSlots) {
    Model.FuncComponent(3) = 2;
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset.Choose(3);
    EXPECT_EQ(Slot(form, 3).lbl_Component.Caption.Get(), "");
    EXPECT_EQ(Model.FuncComponent(3), 2);
    EXPECT_EQ(Model.FuncGroup(3), 4);
}

TEST_F(PresetsOnScreensTest, GoingBackToPresetsLeavesTheFrameAsItWasChosen) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    Choose_Option(form, "opt_PrintSet", 1);
    Pick(form, 1, "Veloc CP");
    Choose_Option(form, "opt_Coord", 1);
    ASSERT_TRUE(form.opt_Coord[1].Value);
    Choose_Option(form, "opt_PrintSet", 0);
    EXPECT_TRUE(form.opt_Coord[1].Value);
    EXPECT_TRUE(form.fra_coord.Enabled);
    Choose_Option(form, "opt_PrintSet", 1);
    EXPECT_FALSE(form.opt_Coord[1].Value);
}

TEST_F(PresetsOnScreensTest, TheFrameAfterAPresetIsThatOfItsLastVariable) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    for (const int vectors : {7, 8}) {
        form.cmb_Preset.Choose(vectors);
        EXPECT_TRUE(form.fra_coord.Enabled);
        EXPECT_TRUE(form.opt_Coord[1].Enabled);
        form.cmb_Preset.Choose(0);
        EXPECT_FALSE(form.fra_coord.Enabled);
        EXPECT_FALSE(form.opt_Coord[1].Enabled);
    }
}

TEST_F(PresetsOnScreensTest, APresetWithNoMatchLeavesItsTextAndGoingOnIsAllowed) {
    for (const char* name : {"frm_PlotSelect1", "frm_PlotSelect2"}) {
        auto& form = Activated<Preset_Screen>(name);
        Model.PlotCount = 0;
        form.cmd_ClearPreset.SetFocus();  // no hand types
        form.cmb_Preset.Text = "Theta3 and Theta4 Magnitudes and more";
        form.cmb_Preset_Click();
        EXPECT_EQ(form.cmb_Preset.Text.Get(), "Theta3 and Theta4 Magnitudes and more");
        EXPECT_TRUE(form.cmd_Done.Enabled);
        EXPECT_EQ(Slot(form, 1).lbl_Function.Caption.Get(), "");
        EXPECT_EQ(Model.PlotCount, static_cast<int>(form.Slots.size()));
    }
}

TEST_F(PresetsOnScreensTest, APresetWithoutItsTrailingBlankIsAnother) {
    auto& form = Activated<frm_PlotSelect2>("frm_PlotSelect2");
    for (const int number : {28, 29, 31}) {
        const std::string text = Model.PresetList2(number);
        form.cmb_Preset.Text = text.substr(0, text.size() - 1);
        form.cmb_Preset_Click();
        EXPECT_EQ(Slot(form, 1).cmb_Var.Text.Get(), "") << number;
    }
}

TEST_F(PresetsOnScreensTest, AnEmptyPresetDoesNotAllowGoingOn) {
    auto& form = Activated<frm_PlotSelect1>("frm_PlotSelect1");
    form.cmb_Preset_Click();
    EXPECT_FALSE(form.cmd_Done.Enabled);
    form.cmb_Preset_DblClick();
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(PresetsOnScreensTest, ClearingThePresetClearsItsFunctionsAndKeepsTheFocus) {
    auto& form = Activated<frm_PlotSelect3>("frm_PlotSelect3");
    form.cmb_Preset.Choose(4);
    Press(form, "cmd_ClearPreset");
    EXPECT_EQ(form.cmb_Preset.Text.Get(), "");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    for (const auto& slot : form.Slots) {
        EXPECT_EQ(slot->cmb_Var.Text.Get(), "");
        EXPECT_EQ(slot->cmb_Com.Text.Get(), "");
        EXPECT_EQ(slot->lbl_Function.Caption.Get(), "");
        EXPECT_EQ(slot->lbl_Component.Caption.Get(), "");
    }
    Expect_Locked(form);
    EXPECT_EQ(form.Focus(), &form.cmb_Preset);
}

}  // namespace verlink::test
