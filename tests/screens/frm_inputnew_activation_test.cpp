// How the input screen looks, and what it does when it comes up.
#include "core/results.h"
#include "dynamics/dynacalc.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

using Activation = InputScreen;

template <class Control>
std::string Caption_Of(const Screen& screen, const char* name, int index = kNoIndex) {
    return screen.Get<Control>(name, index).Caption;
}

TEST_F(Activation, EveryGroupHasItsTitle) {
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_Links"), "Linkage Data");
    EXPECT_EQ(Caption_Of<Frame>(input, "SSFrame1"), "Link 1 Coords");
    EXPECT_EQ(Caption_Of<Frame>(input, "SSFrame3"), "Pivot O4 Coords");
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_initial"), "Initial Conditions");
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_calcmode"), "Calculation Mode");
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_Circuit"), "Circuit");
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_Modulo"), "Modulo");
    EXPECT_EQ(Caption_Of<Frame>(input, "fra_toggle"), "Toggles at +/-");
    EXPECT_EQ(Caption_Of<Frame>(input, "SSFrame6"), "Grashof Condition");
}

TEST_F(Activation, EveryBoxOfALinkHasItsName) {
    const char* names[] = {
        "", "Link 2 (Crank)", "Link 3 (Coupler)", "Link 4 (Rocker)", "Dist to Coupler Pt", "Angle to Coupler Pt"};
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(Caption_Of<Label>(input, "lbl_Link", i), names[i]);
}

TEST_F(Activation, EveryChoiceAndButtonHasItsCaption) {
    EXPECT_EQ(input.opt_Polar[0].Caption, "Cartesian");
    EXPECT_EQ(input.opt_Polar[1].Caption, "Polar");
    EXPECT_EQ(input.opt_Calctype[1].Caption, "&One Position");
    EXPECT_EQ(input.opt_Calctype[2].Caption, "&Time Steps");
    EXPECT_EQ(input.opt_Calctype[3].Caption, "&Angle Steps");
    EXPECT_EQ(input.opt_OpenCross[0].Caption, "Open");
    EXPECT_EQ(input.opt_OpenCross[1].Caption, "X-ed");
    EXPECT_EQ(input.opt_Modulo[0].Caption, "180");
    EXPECT_EQ(input.opt_Modulo[1].Caption, "360");
    const char* targets[] = {"Cplr Pt", "Crnk", "Rckr", "Grnd", "Cplr"};
    for (int i = 0; i <= 4; ++i) EXPECT_EQ(input.opt_Shift_Drag[i].Caption, targets[i]);
    EXPECT_EQ(input.chk_autocalc.Caption, "Autocalc On");
    EXPECT_EQ(input.chk_autoscale.Caption, "Autoscale");
    EXPECT_EQ(input.cmd_Step.Caption, "&Step");
    EXPECT_EQ(input.cmd_Animate.Caption, "&Animate");
    EXPECT_EQ(input.cmd_Cancel.Caption, "< Back");
    EXPECT_EQ(input.cmd_Done.Caption, "Next >");
    EXPECT_EQ(input.cmd_Calc.Caption, "&Calculate");
    EXPECT_EQ(input.cmd_Reset.Caption, "Rese&t");
    EXPECT_EQ(input.cmd_PlotPrint.Caption, "&Print");
    EXPECT_EQ(input.pnl_shift[0].Caption, "Shift-Click-Drag on");
    EXPECT_EQ(input.pnl_shift[1].Caption, "to change coupler curve");
    EXPECT_EQ(input.pnl_cw.Caption, "<-- Start");
    EXPECT_EQ(input.pnl_ccw.Caption, "End -->");
    EXPECT_EQ(input.pnl_time.Caption, "Time ---->");
    EXPECT_EQ(input.lbl_Toggle[1].Caption, "deg");
}

TEST_F(Activation, TheMenusReadAsTheyShould) {
    EXPECT_EQ(input.mnu_Help.Caption, "Help");
    EXPECT_EQ(input.mnu_Linkage.Caption, "Linkage Data");
    EXPECT_EQ(input.mnu_Calculations.Caption, "Calculations");
    EXPECT_EQ(input.mnu_HandHelp.Caption, "Under the Hand");
    EXPECT_EQ(input.zoom.mnu_Zoomcontrol.Caption, "Zoom");
    EXPECT_EQ(input.zoom.mnu_Plus.Caption, "Zoom In");
    EXPECT_EQ(input.zoom.mnu_Normal.Caption, "Normal");
    EXPECT_EQ(input.zoom.mnu_Minus.Caption, "Zoom Out");
    EXPECT_EQ(input.mnu_Cognate.Caption, "Cognates");
    EXPECT_EQ(input.mnu_Cog[1].Caption, "Cognate 1");
    EXPECT_EQ(input.mnu_Cog[2].Caption, "Cognate 2");
    EXPECT_EQ(input.mnu_Cog[3].Caption, "Cognate 3");
    EXPECT_EQ(input.mnu_Cayley.Caption, "Cayley Diagram");
    EXPECT_EQ(input.mnu_Redraw.Caption, "Redraw");
    EXPECT_EQ(input.mnu_Cayley.Parent(), &input.mnu_Cognate);
    EXPECT_EQ(input.mnu_Linkage.Parent(), &input.mnu_Help);
}

TEST_F(Activation, EveryInputControlHasATip) {
    for (Control* control : input.Controls()) {
        auto* visual = dynamic_cast<Visual*>(control);
        const bool takes_input = dynamic_cast<TextBox*>(control) || dynamic_cast<OptionButton*>(control) ||
                                 dynamic_cast<CheckBox*>(control) || dynamic_cast<CommandButton*>(control) ||
                                 dynamic_cast<ScrollBar*>(control);
        if (!takes_input) continue;
        EXPECT_NE(visual->Tip.Get(), "") << control->ObjectName();
    }
}

TEST_F(Activation, TheReturnKeyCalculatesAndEscapeGoesBack) {
    EXPECT_EQ(input.DefaultButton, &input.cmd_Calc);
    EXPECT_EQ(input.CancelButton, &input.cmd_Cancel);
}

TEST_F(Activation, TheBoxesShowTheModelAndTheDefaultLinkageIsCalculated) {
    Show([&] {
        const char* links[] = {"2.667", "1.115", "2.5", "2.5", "1.697", "-92.66", "0"};
        for (int i = 0; i <= 6; ++i) EXPECT_EQ(input.txt_Linkout[i].Text, links[i]);
        EXPECT_EQ(input.txt_Linkout[15].Text, "2.667");
        EXPECT_EQ(input.txt_Linkout[16].Text, "0");
        const char* limits[] = {"45", "405", "10", "10"};
        for (int i = 0; i <= 3; ++i) EXPECT_EQ(input.txt_initial[i].Text, limits[i]);
        EXPECT_EQ(Model.NSteps, 36);
        EXPECT_EQ(input.hsc_step.Min(), 0);
        EXPECT_EQ(input.hsc_step.Max(), 36);
        EXPECT_EQ(input.lbl_Grashof.Caption, "Linkage is Grashof");
        EXPECT_EQ(input.txt_Figure.Text, "A Grashof Crank-Rocker Linkage");
        EXPECT_TRUE(Model.InputScreenOpen);
        EXPECT_EQ(Model.ShowCouplerFlag, "Y");
        EXPECT_EQ(Model.ShowCentrodesFlag, "N");
        Expect_Ways_On(true, true);
    });
}

TEST_F(Activation, AnAutomaticFirstCalculationDoesNotCountAndLeavesTheSurfaceClear) {
    Model.LinkEdited = true;
    Run_Holds();
    Show([&] {
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(Model.LinkEdited);
        EXPECT_TRUE(Model.RunTable.Assembled(36));
        EXPECT_TRUE(Picture_Is_Empty());
        Calculate_Now();
        EXPECT_TRUE(Model.Calculated);
        EXPECT_FALSE(Picture_Is_Empty());
    });
}

TEST_F(Activation, WithoutAutocalcNothingRunsAndTheWaysOnAreOff) {
    Without_Autocalc();
    input.cmd_Done.Enabled = true;
    input.cmd_PlotPrint.Enabled = false;
    Forces_Hold();
    Show([&] {
        EXPECT_EQ(Model.NSteps, -435);
        EXPECT_EQ(Model.CurrentStep, 5);
        EXPECT_TRUE(Model.DynamicsDone);
        Expect_Ways_On(false, false);
        EXPECT_TRUE(input.cmd_PlotPrint.Enabled);
    });
}

TEST_F(Activation, TheTickOfTheTimerComesOnceAfterAQuarterOfASecondAndClearsThePicture) {
    Show([&] {
        Calculate_Now();
        EXPECT_EQ(input.Timer1.Interval, 250);
        EXPECT_TRUE(input.Timer1.Enabled);
        ASSERT_FALSE(Picture_Is_Empty());
        input.Timer1.Tick();
        EXPECT_FALSE(input.Timer1.Enabled);
        EXPECT_TRUE(Picture_Is_Empty());
        Calculate_Now();
        input.Timer1.Tick();
        EXPECT_FALSE(Picture_Is_Empty());
    });
}

TEST_F(Activation, TheScreenTakesItsDesignSize) {
    input.Width() = 500;
    Show([&] {
        EXPECT_EQ(input.Width(), 11850);
        EXPECT_EQ(input.Height(), 8950);
    });
}

TEST_F(Activation, OnAFullScreenItTakesTheSizeOfTheHomeScreen) {
    Model.FullScreen = true;
    Model.ScreenWidth = 18000;
    Show([&] { EXPECT_EQ(input.Width(), 18000); });
}

TEST_F(Activation, AnglesShowTheirLimitsAndTheDirectionOfTheBar) {
    Without_Autocalc();
    Show([&] {
        for (int i = 0; i <= 3; ++i) EXPECT_TRUE(input.txt_initial[i].Visible) << i;
        EXPECT_FALSE(input.txt_initial[4].Visible);
        for (int i = 0; i <= 2; ++i) EXPECT_EQ(input.lbl_Unit[i].Caption, "deg") << i;
        EXPECT_TRUE(input.pnl_cw.Visible);
        EXPECT_TRUE(input.pnl_ccw.Visible);
        EXPECT_FALSE(input.pnl_time.Visible);
        EXPECT_TRUE(input.fra_calcmode.Visible);
        EXPECT_FALSE(input.lbl_camdriven.Visible);
        EXPECT_EQ(input.lbl_calctype.Caption, "Angle Steps");
        EXPECT_EQ(input.txt_Thetazero.BackColor, 0xFFFF00);  // cyan
        EXPECT_TRUE(input.opt_Calctype[3].Value);
    });
}

TEST_F(Activation, TimesShowTheirLimitsWithTheModelsStartAngleAndAcceleration) {
    Without_Autocalc();
    Model.Calctype = 2;
    Model.ThetaStartStr = "0";
    Model.ThetaEndStr = "5";
    Model.ThetaStepStr = "0.05";
    Model.ThetaZero = 30;
    Show([&] {
        EXPECT_EQ(input.txt_initial[1].Text, "5");
        EXPECT_EQ(input.txt_initial[2].Text, "0.05");
        EXPECT_EQ(input.txt_initial[3].Text, "10");
        EXPECT_EQ(input.txt_initial[4].Text, "-5");
        EXPECT_EQ(input.txt_Thetazero.Text, "30");
        EXPECT_TRUE(input.txt_initial[4].Visible);
        EXPECT_EQ(input.lbl_Initial[0].Caption, "Start Time");
        for (int i = 0; i <= 2; ++i) EXPECT_EQ(input.lbl_Unit[i].Caption, "sec") << i;
        EXPECT_FALSE(input.pnl_cw.Visible);
        EXPECT_FALSE(input.pnl_ccw.Visible);
        EXPECT_TRUE(input.pnl_time.Visible);
        EXPECT_EQ(input.txt_Thetazero.BackColor, 0x00FFFF);  // yellow
        EXPECT_TRUE(input.opt_Calctype[2].Value);
    });
}

TEST_F(Activation, OnePositionHidesTheLimitsAsOneGroup) {
    Without_Autocalc();
    Model.Calctype = 1;
    Model.ThetaZero = 75;
    Show([&] {
        for (int i = 0; i <= 2; ++i) {
            EXPECT_FALSE(input.txt_initial[i].Visible);
            EXPECT_FALSE(input.lbl_Initial[i].Visible);
            EXPECT_FALSE(input.lbl_Unit[i].Visible);
        }
        EXPECT_TRUE(input.txt_initial[3].Visible);
        EXPECT_TRUE(input.txt_initial[4].Visible);
        EXPECT_EQ(input.txt_Thetazero.Text, "75");
        EXPECT_EQ(input.txt_Thetazero.BackColor, 0x00FFFF);  // yellow
        EXPECT_FALSE(input.pnl_cw.Visible);
        EXPECT_FALSE(input.pnl_ccw.Visible);
        EXPECT_FALSE(input.pnl_time.Visible);
    });
}

TEST_F(Activation, ACamDrivenModelNamesItsFileAndHidesTheModes) {
    Without_Autocalc();
    Model.Calctype = 4;
    Model.Model5Name = "press.sva";
    Show([&] {
        EXPECT_FALSE(input.fra_calcmode.Visible);
        EXPECT_TRUE(input.lbl_camdriven.Visible);
        EXPECT_EQ(input.lbl_camdriven.Caption,
                  " This linkage is being driven by s-v-a data imported from the file: \r\rpress.sva");
        EXPECT_EQ(input.lbl_Initial[5].Caption, "Thetazero");
        EXPECT_FALSE(input.txt_initial[3].Visible);
        EXPECT_FALSE(input.txt_initial[4].Visible);
        EXPECT_TRUE(input.pnl_cw.Visible);
        EXPECT_FALSE(input.pnl_time.Visible);
        EXPECT_EQ(input.txt_Thetazero.BackColor, 0xFFFF00);  // cyan
        Model.CamDriven = true;
        Model.ThetaZero = 12;
        Enter(input, "txt_Thetazero", kNoIndex, "33");
        EXPECT_EQ(input.txt_Thetazero.Text, "12") << "the file drives it";
        EXPECT_EQ(Model.ThetaZero, 12);
    });
}

TEST_F(Activation, ALinkDrivenModelShowsItsPhase) {
    Without_Autocalc();
    Model.Calctype = 5;
    Model.Delta2 = 12.5;
    Show([&] {
        EXPECT_EQ(input.lbl_Initial[4].Caption, "Delta 2");
        EXPECT_TRUE(input.lbl_Unit[4].Visible);
        EXPECT_EQ(input.lbl_Unit[4].Caption, "deg");
        EXPECT_TRUE(input.txt_initial[4].Visible);
        EXPECT_EQ(input.txt_initial[4].Text, "12.5");
        EXPECT_EQ(input.lbl_Initial[5].Caption, "Thetazero");
    });
}

TEST_F(Activation, OnlyALinkageThatHasTogglesShowsThem) {
    Without_Autocalc();
    Model.L1 = Model.Link1X = 4;
    Model.L2 = 2;
    Model.L3 = Model.L4 = 3;
    LoadLinkArray();
    Show([&] {
        EXPECT_EQ(Model.Grashof_Code, "SC") << "as the linkage in hand is";
        EXPECT_FALSE(input.fra_toggle.Visible);
        Enter(input, "txt_Linkout", 3, "2.5");
        EXPECT_TRUE(input.fra_toggle.Visible);
        // Coupler and rocker in line, 5.5 long, across 2 and 4.
        EXPECT_EQ(input.lbl_Toggle[0].Caption, "129.8");
    });
}

TEST_F(Activation, AnImportedTorqueStaysWhileTheSameRunIsMadeAnew) {
    Show([] {});
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.ImportedTorque(step) = 1 + step;
    Show([&] {
        EXPECT_TRUE(Model.RunStands);
        EXPECT_TRUE(Model.TorqueImported);
        EXPECT_EQ(Model.RunTable.ImportedTorque(Model.NSteps), 1 + Model.NSteps);
        Enter(input, "txt_initial", 2, "10");
        EXPECT_FALSE(Model.TorqueImported) << "another run has other steps";
    });
}

TEST_F(Activation, AnImportedTorqueStaysWithAnotherRunOfAsManySteps) {
    Show([] {});
    Model.TorqueImported = true;
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.ImportedTorque(step) = 1 + step;
    Model.L3 += 0.5F;
    Show([&] {
        EXPECT_TRUE(Model.TorqueImported);
        EXPECT_EQ(Model.RunTable.ImportedTorque(7), 8);
    });
}

TEST_F(Activation, ForcesBalanceAndTransformStayWhileTheSameRunIsMadeAnew) {
    Show([&] { Calculate_Now(); });
    ASSERT_TRUE(Solve_Forces(Model).solved);
    Balance_Holds();
    Transform_Holds();
    const Single torque = Model.RunTable.LinkTorque(7, 0);
    ASSERT_NE(torque, 0);
    const auto centres = [] {
        std::vector<double> rows;
        for (int row = 5; row <= 7; ++row)
            for (const int axis : {0, 1}) rows.push_back(Model.RunTable.AccXY(7, row, axis));
        return rows;
    };
    const std::vector<double> before = centres();
    Show([&] {
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_TRUE(Model.BalanceDone);
        EXPECT_TRUE(Model.FFTDone);
        EXPECT_EQ(Model.RunTable.LinkTorque(7, 0), torque);
        EXPECT_EQ(centres(), before) << "the mass centres' rows belong to the forces";
        Calculate_Now();
        EXPECT_FALSE(Model.DynamicsDone) << "who calculates wants the forces anew";
        EXPECT_FALSE(Model.BalanceDone);
    });
    Show([&] { Calculate_Now(); });
    Forces_Hold();
    Model.L3 += 0.5F;
    Show([&] { EXPECT_FALSE(Model.DynamicsDone) << "another run has other forces"; });
}

TEST_F(Activation, TheBarReachesToTheLastPositionAlsoWhereNothingIsCalculatedAtOnce) {
    Without_Autocalc();
    for (const int last : {72, 12}) {
        Model.NSteps = last;
        Show([&] { EXPECT_EQ(input.hsc_step.Max(), last); });
    }
}

TEST_F(Activation, TheLengthUnitOfTheSystemStandsBesideTheBoxes) {
    Use_Units(5);
    Without_Autocalc();
    Show([&] {
        for (auto& label : input.lbl_Units) EXPECT_EQ(label->Caption, "mm");
        for (auto& label : input.lbl_Degrees) EXPECT_EQ(label->Caption, "deg");
    });
}

TEST_F(Activation, TheOptionsFollowTheModel) {
    Without_Autocalc();
    Model.PolarCoords = true;
    Model.CircuitSign = 1;
    Model.CircuitIndex = 2;
    Model.ModuloMode = "180";
    Show([&] {
        EXPECT_TRUE(input.opt_Polar[1].Value);
        EXPECT_TRUE(input.opt_OpenCross[1].Value);
        EXPECT_TRUE(input.opt_Modulo[0].Value);
        EXPECT_EQ(Model.NSteps, -435) << "filling the screen calculates nothing";
    });
}

TEST_F(Activation, OptionsThatAreSetWhileTheScreenIsHiddenCalculateNothing) {
    Model.Calctype = 2;
    input.opt_OpenCross[1].Value = true;
    input.opt_Calctype[1].Value = true;
    EXPECT_EQ(Model.Calctype, 2);
    EXPECT_EQ(Model.NSteps, -435);
    EXPECT_TRUE(log.Calls.empty());
}

TEST_F(Activation, ALinkageThatCannotCloseTellsSoAtOnce) {
    Model.L2 = 20;
    LoadLinkArray();
    desktop.Expect_Message(kCannotClose);
    Show([&] { Expect_Ways_On(false, false); });
}

TEST_F(Activation, AnUntitledModelLeavesTheTitleBoxAlone) {
    Model.FigureTitle = "";
    Show([&] { EXPECT_EQ(input.txt_Figure.Text, "Figure"); });
}

TEST_F(Activation, TheDragOptionShowsTheTargetInForce) {
    // As chosen on the animate screen: the coupler, the rocker, the coupler point, the ground, the crank.
    const std::pair<int, int> targets[] = {{4, 4}, {1, 2}, {2, 0}, {3, 3}, {0, 1}};
    for (const auto& pair : targets) {
        const int asked = pair.first, shown = pair.second;
        Model.ShiftDragTarget = asked;
        Show([this, asked, shown] {
            for (int i = 0; i <= 4; ++i) EXPECT_EQ(input.opt_Shift_Drag[i].Value.Get(), i == shown) << asked;
            EXPECT_EQ(Model.ShiftDragTarget, asked);
        });
    }
}

}  // namespace
}  // namespace verlink::test
