// The choice of a polar plot's vector.
#include "screens/frm_plotselect4.h"

#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

class PolarSelectTest : public SelectionScreenTest {
   protected:
    frm_PlotSelect4& form = Activated<frm_PlotSelect4>("frm_PlotSelect4");
    Function_Slot& slot = Slot(form, 1);
};

}  // namespace

TEST_F(PolarSelectTest, ActivationListsTheVectorsAndStartsInTheGlobalFrame) {
    Model.CoordSystem = 2;
    Model.GraphWindows = 4;
    Model.ScreenReturn = false;
    slot.lbl_Function.Caption = "stale";
    form.cmd_Done.Enabled = true;
    Balance_Dropped();
    form.Form_Activate();
    EXPECT_EQ(slot.cmb_Var.Items().size(), 21u);
    EXPECT_EQ(slot.cmb_Var.Items().front(), "Veloc I 2,3");
    EXPECT_EQ(Model.CoordSystem, 0);
    EXPECT_EQ(Model.GraphWindows, 1);
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "");
    EXPECT_FALSE(form.cmd_Done.Enabled);
    EXPECT_FALSE(form.fra_coord.Enabled);
    EXPECT_TRUE(form.opt_Coord[0].Value);
    EXPECT_EQ(form.Focus(), &slot.cmb_Var);
    EXPECT_TRUE(slot.cmb_Var.SelectedAll);
}

TEST_F(PolarSelectTest, EveryVariableOfTheListIsChosenByItsPickAlone) {
    for (std::size_t item = 0; item < slot.cmb_Var.Items().size(); ++item) {
        const std::string& name = slot.cmb_Var.Items()[item];
        SCOPED_TRACE(name);
        form.cmd_Done.Enabled = false;
        slot.cmb_Var.Choose(static_cast<int>(item));
        EXPECT_EQ(slot.lbl_Function.Caption.Get(), name);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        bool found = false;
        for (const Row& row : kRows) {
            if (name != row.label) continue;
            found = true;
            EXPECT_EQ(Model.FuncGroup(1), row.group);
            EXPECT_EQ(Model.FuncRow(1), row.row);
            EXPECT_EQ(form.fra_coord.Enabled, row.coordinates);
            EXPECT_EQ(form.opt_Coord[1].Enabled, row.coordinates);
        }
        EXPECT_TRUE(found);
    }
}

TEST_F(PolarSelectTest, AVariableWithoutAChoiceOfFrameGoesBackToTheGlobalOne) {
    Choose(slot.cmb_Var, "Veloc CP");
    Choose_Option(form, "opt_Coord", 1);
    Choose(slot.cmb_Var, "Accel CP");
    EXPECT_TRUE(form.opt_Coord[1].Value);
    Choose(slot.cmb_Var, "Coupler Pt");
    EXPECT_TRUE(form.opt_Coord[0].Value);
    EXPECT_FALSE(form.opt_Coord[1].Enabled);
}

TEST_F(PolarSelectTest, ATypedNameIsTakenOverByItsButton) {
    Model.PlotCount = 3;
    slot.cmb_Var.Text = "Accel I 3,4";
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "");
    Press(form, "cmd_OK1");
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "Accel I 3,4");
    EXPECT_EQ(Model.FuncGroup(1), 5);
    EXPECT_EQ(Model.PlotCount, 1);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    EXPECT_TRUE(form.fra_coord.Enabled);
}

TEST_F(PolarSelectTest, ClearingLeavesNothingToGoOnWith) {
    Choose(slot.cmb_Var, "Veloc CP");
    Model.PlotCount = 3;
    Press(form, "cmd_Clear1");
    EXPECT_EQ(Model.PlotCount, 1);
    EXPECT_EQ(slot.cmb_Var.Text.Get(), "");
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "");
    EXPECT_FALSE(form.cmd_Done.Enabled);
}

TEST_F(PolarSelectTest, ThePlotComesUpWithoutThatOfBeforeAndUnderTheTitleOfTheModel) {
    platform::Screen& plot = platform::Screens::Get("frm_MyPlot4");
    auto& picture = plot.Get<platform::PictureBox>("pct_Plot").Drawing();
    picture.Line(0, 0, 1, 1, 0);
    plot.Get<platform::Label>("lbl_Header").Caption = "before";
    Choose(slot.cmb_Var, "Veloc CP");
    desktop.Expect_Screen("frm_MyPlot4", [&](platform::Screen& shown) {
        EXPECT_EQ(picture.Alive(), 0U);
        EXPECT_NE(shown.Get<platform::Label>("lbl_Header").Caption.Get(), "before");
        EXPECT_EQ(Model.PlotCount, 1);
        shown.Hide();
    });
    Press(form, "cmd_Done");
}

TEST_F(PolarSelectTest, ThePlotTakesThePlaceOfTheChoice) {
    desktop.Expect_Screen("frm_PlotSelect4", [this](platform::Screen&) {
        Choose(slot.cmb_Var, "Veloc CP");
        Press(form, "cmd_Done");
    });
    desktop.Expect_Screen("frm_MyPlot4", [this](platform::Screen& shown) {
        EXPECT_FALSE(form.Visible());
        shown.Hide();
    });
    form.ShowModal();
}

TEST_F(PolarSelectTest, ADoubleClickOnAVariableIsAPick) {
    slot.cmb_Var.Text = "Veloc I 3,4";
    slot.cmb_Var.OnDblClick();
    EXPECT_EQ(slot.lbl_Function.Caption.Get(), "Veloc I 3,4");
    EXPECT_EQ(Model.FuncRow(1), 1);
}

}  // namespace verlink::test
