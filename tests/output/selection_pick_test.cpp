// Picks and take-overs on a bare screen: slots, labels, buttons, focus, and the events inside events.
#include <gtest/gtest.h>

#include "tests/output/selection_stage.h"

namespace verlink::test {

namespace {

struct Picks : Selection {
    void Pick(const char* variable) {
        screen.cmb_Var1.Text = variable;
        Variable_Picked(screen, screen.cmb_Var1, screen.cmb_Com1, &screen.cmd_OK1, 1);
    }
    void Take(const char* variable, const char* component) {
        screen.cmb_Var1.Text = variable;
        screen.cmb_Com1.Text = component;
        Select_OK(screen, screen.cmb_Var1, screen.cmb_Com1, &screen.cmd_OK1, 1);
    }
    /// The box answers to a choice as on a screen of the program.
    void Nest() {
        screen.cmb_Com1.OnClick = [this] {
            ++clicks;
            Component_Picked(screen, screen.cmb_Com1, &screen.cmd_OK1, 1);
        };
    }
    int clicks = 0;
};

}  // namespace

TEST_F(Picks, APickBlanksWhatWasChosenAndStopsGoingOn) {
    Pick("Veloc CP");
    EXPECT_EQ(screen.lbl_Function[0].Caption.Get(), "");
    EXPECT_EQ(screen.lbl_Component[0].Caption.Get(), "");
    EXPECT_EQ(screen.lbl_Function[1].Caption.Get(), "b");
    EXPECT_FALSE(screen.cmd_Done.Enabled);
    EXPECT_EQ(Model.FuncGroup(1), 4);
    EXPECT_EQ(Model.FuncRow(1), 2);
}

TEST_F(Picks, AVectorOpensTheFrameAndAsksForAComponent) {
    screen.cmb_Com1.Enabled = false;
    Pick("Accel I 2,3");
    EXPECT_TRUE(screen.fra_coord.Enabled);
    EXPECT_TRUE(screen.opt_Coord[1].Enabled);
    EXPECT_TRUE(screen.cmb_Com1.Enabled);
    EXPECT_FALSE(screen.cmd_OK1.Enabled);
}

TEST_F(Picks, AScalarLocksTheMagnitudeAndTheFrame) {
    Nest();
    Pick("Theta3");
    EXPECT_FALSE(screen.cmb_Com1.Enabled);
    EXPECT_EQ(screen.cmb_Com1.Text.Get(), "Mag");
    EXPECT_TRUE(screen.cmd_OK1.Enabled);
    EXPECT_FALSE(screen.fra_coord.Enabled);
    EXPECT_FALSE(screen.opt_Coord[1].Enabled);
    EXPECT_TRUE(screen.opt_Coord[0].Enabled);
}

TEST_F(Picks, AScalarCanBeTakenOverAtOnceAlsoWhereNothingAnswersItsBox) {
    screen.cmd_OK1.Enabled = false;
    Pick("Theta3");
    EXPECT_TRUE(screen.cmd_OK1.Enabled);
}

TEST_F(Picks, ATakeOverCanBeRepeatedAlsoWhileTheTransformScreenIsUp) {
    Model.FFTSelecting = true;
    screen.cmd_OK1.Enabled = false;
    Take("Veloc CP", "X");
    EXPECT_TRUE(screen.cmd_OK1.Enabled);
}

TEST_F(Picks, TheDrivingTorqueIsAScalarWithTheFrameLeftOpen) {
    Pick("Torque 12");
    EXPECT_FALSE(screen.cmb_Com1.Enabled);
    EXPECT_TRUE(screen.fra_coord.Enabled);
}

TEST_F(Picks, TheCouplerPointHasComponentsAndNoChoiceOfFrame) {
    Pick("Coupler Pt");
    EXPECT_TRUE(screen.cmb_Com1.Enabled);
    EXPECT_FALSE(screen.fra_coord.Enabled);
}

TEST_F(Picks, TheLockOfAScalarIsAClickOnTheBoxInsideThePick) {
    Nest();
    Pick("Omega3");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(Model.ComponentLabel(1), "Mag");
    EXPECT_EQ(Model.FuncComponent(1), 2);
}

TEST_F(Picks, WhileTheTransformScreenIsUpTheClickDoesNothingAndMagnitudeStands) {
    Nest();
    screen.opt_PrintSet[1].Value = true;
    Model.FFTSelecting = true;
    Model.FuncComponent(1) = 1;
    Pick("Omega3");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(Model.ComponentLabel(1), "Magnitude");
    EXPECT_EQ(Model.FuncComponent(1), 1);
    EXPECT_EQ(screen.Focus(), nullptr);
    Pick("Veloc CP");
    EXPECT_FALSE(screen.fra_coord.Enabled);
    EXPECT_EQ(screen.Focus(), nullptr);
}

TEST_F(Picks, InMixAndMatchTheFocusGoesToWhatComesNext) {
    screen.opt_PrintSet[1].Value = true;
    Pick("Veloc CP");
    EXPECT_EQ(screen.Focus(), &screen.cmb_Com1);
    Pick("Theta2");
    EXPECT_EQ(screen.Focus(), &screen.cmd_OK1);
    screen.cmb_Var1.SetFocus();
    Component_Picked(screen, screen.cmb_Com1, &screen.cmd_OK1, 1);
    EXPECT_EQ(screen.Focus(), &screen.cmd_OK1);
}

TEST_F(Picks, WithPresetsTheFocusStays) {
    screen.opt_PrintSet[0].Value = true;
    screen.cmb_Preset.SetFocus();
    Pick("Veloc CP");
    Pick("Theta2");
    Component_Picked(screen, screen.cmb_Com1, &screen.cmd_OK1, 1);
    EXPECT_EQ(screen.Focus(), &screen.cmb_Preset);
}

TEST_F(Picks, AComponentIsTakenAndItsLabelBlanked) {
    screen.cmd_OK1.Enabled = false;
    screen.cmb_Com1.Text = "Ang";
    Component_Picked(screen, screen.cmb_Com1, &screen.cmd_OK1, 1);
    EXPECT_EQ(Model.FuncComponent(1), 3);
    EXPECT_EQ(Model.ComponentLabel(1), "Ang");
    EXPECT_EQ(screen.lbl_Component[0].Caption.Get(), "");
    EXPECT_EQ(screen.lbl_Function[0].Caption.Get(), "a");
    EXPECT_TRUE(screen.cmd_OK1.Enabled);
}

TEST_F(Picks, WhileTheTransformScreenIsUpAComponentIsNotTaken) {
    Model.FFTSelecting = true;
    screen.cmd_OK1.Enabled = false;
    screen.cmb_Com1.Text = "Ang";
    Component_Picked(screen, screen.cmb_Com1, &screen.cmd_OK1, 1);
    EXPECT_EQ(Model.FuncComponent(1), 0);
    EXPECT_EQ(screen.lbl_Component[0].Caption.Get(), "c");
    EXPECT_FALSE(screen.cmd_OK1.Enabled);
}

TEST_F(Picks, ATakeOverShowsBothTextsAndAllowsGoingOn) {
    Take("Accel CP", "Y");
    EXPECT_EQ(screen.lbl_Function[0].Caption.Get(), "Accel CP");
    EXPECT_EQ(screen.lbl_Component[0].Caption.Get(), "Y");
    EXPECT_TRUE(screen.cmd_OK1.Enabled);
    EXPECT_TRUE(screen.cmd_Done.Enabled);
    EXPECT_EQ(Model.FuncGroup(1), 5);
    EXPECT_EQ(Model.FuncComponent(1), 1);
}

TEST_F(Picks, AScalarIsTakenOverAsItsMagnitudeWhateverTheBoxShowed) {
    Nest();
    Take("Theta2", "X");
    EXPECT_EQ(screen.lbl_Component[0].Caption.Get(), "Mag");
    EXPECT_EQ(Model.FuncComponent(1), 2);
}

TEST_F(Picks, AnUnknownVariableLeavesTheSlotAndIsShownAllTheSame) {
    Take("Accel CP", "Y");
    Take("Nonsense", "Y");
    EXPECT_EQ(Model.FuncGroup(1), 5);
    EXPECT_EQ(screen.lbl_Function[0].Caption.Get(), "Nonsense");
    EXPECT_FALSE(Model.CoordFunction);
}

TEST_F(Picks, AScreenWithoutTakeOverButtonsPicksToo) {
    screen.opt_PrintSet[1].Value = true;
    screen.cmb_Var1.Text = "Theta2";
    Variable_Picked(screen, screen.cmb_Var1, screen.cmb_Com1, nullptr, 1);
    Component_Picked(screen, screen.cmb_Com1, nullptr, 1);
    EXPECT_EQ(Model.FuncGroup(1), 1);
    EXPECT_EQ(Model.FuncComponent(1), 2);
    Select_OK(screen, screen.cmb_Var1, screen.cmb_Com1, nullptr, 1);
    EXPECT_EQ(screen.lbl_Function[0].Caption.Get(), "Theta2");
}

TEST_F(Picks, ASlotBeyondTheTablesIsReportedUnderTheProceduresName) {
    screen.cmb_Var1.Text = "Theta2";
    desktop.Expect_Message_With("Error 9   (Subscript out of range)  has occurred in Select_Variable");
    Variable_Picked(screen, screen.cmb_Var1, screen.cmb_Com1, nullptr, 5);
    EXPECT_EQ(Model.FuncGroup(1), 0);
}

TEST_F(Picks, ALockWithoutAListOfComponentsIsReported) {
    screen.cmb_Com1.Clear();
    desktop.Expect_Message_With("has occurred in Variable_Picked");
    Pick("Theta2");
}

TEST_F(Picks, CoordinateLabelsReadGlobalForZeroAndLocalForAnyOther) {
    for (const int system : {2, 1, -1}) {
        Put_Coordinate_Labels(screen, system);
        EXPECT_EQ(screen.lbl_Coord.Caption.Get(), "Local Rotating") << system;
    }
    Put_Coordinate_Labels(screen, 0);
    EXPECT_EQ(screen.lbl_Coord.Caption.Get(), "Global");
}

}  // namespace verlink::test
