// The animate screen as it comes up: what it shows, fills in, enables and focuses.
#include <algorithm>

#include "core/classification.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/units.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

class AnimateActivation : public AnimateScreen {};

TEST_F(AnimateActivation, CaptionsAndTexts) {
    const auto button = [&](const char* name) { return form.Get<platform::CommandButton>(name).Caption.Get(); };
    EXPECT_EQ(button("cmd_Animate"), "&Run");
    EXPECT_EQ(button("cmd_Step"), "&Step");
    EXPECT_EQ(button("cmd_Reset"), "Rese&t");
    EXPECT_EQ(button("cmd_Recalc"), "&Recalc");
    EXPECT_EQ(button("cmd_Back"), "< Back");
    EXPECT_EQ(button("cmd_Done"), "Next >");
    EXPECT_EQ(button("cmd_PlotPrint"), "&Print");
    EXPECT_EQ(form.lbl_speed.Caption.Get(), "<< Slow    Fast >>");
    EXPECT_EQ(form.cmb_wait.Text.Get(), "10");
    EXPECT_EQ(form.cmb_wait.Items(), (std::vector<std::string>{"10", "20", "40", "100", "500"}));
    EXPECT_EQ(form.txt_Cycles.Text.Get(), "1");
    EXPECT_EQ(form.txt_LineAngle.Text.Get(), "90");
    EXPECT_EQ(form.txt_Figure.Text.Get(), "Figure");
    EXPECT_EQ(form.hsc_speed.Min(), 0);
    EXPECT_EQ(form.hsc_speed.Max(), 32767);
    EXPECT_EQ(form.hsc_speed.Value(), 16383);
    EXPECT_EQ(form.hsc_speed.SmallChange, 100);
    EXPECT_EQ(form.hsc_speed.LargeChange, 1000);
    EXPECT_EQ(form.opt_OpenCross[1].Caption.Get(), "Crossed");
    EXPECT_EQ(form.pnl_cw.Caption.Get(), "<-- Start");
    EXPECT_EQ(form.pnl_ccw.Caption.Get(), "End -->");
    EXPECT_EQ(form.pnl_time.Caption.Get(), "Time ---->");
    EXPECT_EQ(form.Width(), 11850);
    EXPECT_EQ(form.Height(), 8950);
}

TEST_F(AnimateActivation, EveryInputControlSaysWhatItIsFor) {
    for (platform::Control* control : form.Controls()) {
        auto* visual = dynamic_cast<platform::Visual*>(control);
        if (!visual || dynamic_cast<platform::Label*>(control) || dynamic_cast<platform::Frame*>(control) ||
            dynamic_cast<platform::PictureBox*>(control))
            continue;
        EXPECT_FALSE(visual->Tip.Get().empty()) << control->ObjectName();
    }
}

TEST_F(AnimateActivation, ByAngleTheLimitsAndTheDirectionShow) {
    Inside([&] {
        EXPECT_TRUE(form.pnl_cw.Visible);
        EXPECT_TRUE(form.pnl_ccw.Visible);
        EXPECT_FALSE(form.pnl_time.Visible);
        EXPECT_EQ(form.lbl_Initial[0].Caption.Get(), "Min Theta");
        EXPECT_EQ(form.lbl_Initial[3].Caption.Get(), "Omega2");
        EXPECT_EQ(form.lbl_Unit[3].Caption.Get(), "rad/s");
        EXPECT_EQ(form.lbl_Omega.Caption.Get(), "10");
        EXPECT_EQ(form.txt_initial[0].Text.Get(), "0");
        EXPECT_EQ(form.txt_initial[1].Text.Get(), "360");
        EXPECT_EQ(form.txt_initial[2].Text.Get(), "10");
        EXPECT_TRUE(form.txt_initial[1].Enabled);
        EXPECT_TRUE(form.txt_initial[2].Visible);
        EXPECT_FALSE(form.lbl_camdriven.Visible);
        EXPECT_EQ(form.lbl_StepLabel.Caption.Get(), "Theta2");
        EXPECT_EQ(form.lbl_StepUnit.Caption.Get(), "deg");
        EXPECT_EQ(form.Focus(), &form.cmd_Animate);
    });
}

TEST_F(AnimateActivation, ByTimeTheTimeLegendShows) {
    By_Time(0, 0.2, 0.05);
    Inside([&] {
        EXPECT_FALSE(form.pnl_cw.Visible);
        EXPECT_FALSE(form.pnl_ccw.Visible);
        EXPECT_TRUE(form.pnl_time.Visible);
        EXPECT_EQ(form.lbl_Initial[0].Caption.Get(), "Start Time");
        EXPECT_EQ(form.txt_initial[2].Text.Get(), "0.05");
        EXPECT_EQ(form.lbl_StepLabel.Caption.Get(), "Time");
        EXPECT_TRUE(form.lbl_Omega.Visible);
        EXPECT_EQ(form.Focus(), &form.cmd_Animate);
    });
}

TEST_F(AnimateActivation, OnePositionHasNoRunNoStepAndTheFocusOnNext) {
    Model.Calctype = 1;
    Integer Result;
    Calc_Setup(1, Result);
    Inside([&] {
        EXPECT_FALSE(form.cmd_Animate.Enabled);
        EXPECT_FALSE(form.cmd_Step.Enabled);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        EXPECT_FALSE(form.txt_initial[1].Enabled);
        EXPECT_FALSE(form.txt_initial[2].Enabled);
        EXPECT_TRUE(form.txt_initial[0].Enabled);
        EXPECT_FALSE(form.pnl_cw.Visible);
        EXPECT_FALSE(form.pnl_ccw.Visible);
        EXPECT_FALSE(form.pnl_time.Visible);
        EXPECT_EQ(form.Focus(), &form.cmd_Done);
    });
}

TEST_F(AnimateActivation, OnePositionIsCaptionedAsSuchAlsoBehindARunByTime) {
    By_Time(0, 0.2, 0.05);
    Inside([&] { EXPECT_EQ(form.lbl_Initial[1].Caption.Get(), "End Time"); });
    Model.Calctype = 1;
    Integer Result;
    Calc_Setup(1, Result);
    Inside([&] {
        EXPECT_EQ(form.lbl_Initial[1].Caption.Get(), "Max Theta");
        EXPECT_EQ(form.lbl_StepLabel.Caption.Get(), "Alpha2");
        EXPECT_EQ(form.lbl_StepUnit.Caption.Get(), "rad/s^2");
    });
}

TEST_F(AnimateActivation, ADrivenRunTellsItsFileInsteadOfLimits) {
    By_Cam(3, 30);
    Inside([&] {
        EXPECT_TRUE(form.pnl_cw.Visible);
        EXPECT_TRUE(form.pnl_ccw.Visible);
        EXPECT_FALSE(form.pnl_time.Visible);
        for (int line = 0; line <= 3; ++line) {
            EXPECT_FALSE(form.lbl_Initial[line].Visible);
            EXPECT_FALSE(form.lbl_Unit[line].Visible);
        }
        for (int box = 0; box <= 2; ++box) EXPECT_FALSE(form.txt_initial[box].Visible);
        EXPECT_FALSE(form.lbl_Omega.Visible);
        EXPECT_TRUE(form.lbl_camdriven.Visible);
        EXPECT_EQ(form.lbl_camdriven.Caption.Get(),
                  " This linkage is being driven by s-v-a data imported from the file: \r\n\r\ndrive.sva");
    });
}

TEST_F(AnimateActivation, TheBoxesShowTheLinkage) {
    Inside([&] {
        EXPECT_EQ(Text_In(1), "1.115");
        EXPECT_EQ(Text_In(2), "2.5");
        EXPECT_EQ(Text_In(3), "2.5");
        EXPECT_EQ(Text_In(4), "1.697");
        EXPECT_EQ(Text_In(5), "-92.66");
        EXPECT_EQ(Text_In(0), "2.667");
        EXPECT_EQ(Text_In(6), "0");
        EXPECT_EQ(Text_In(15), "2.667");
        EXPECT_EQ(Text_In(16), "0");
        EXPECT_TRUE(form.opt_OpenCross[0].Value);
        EXPECT_EQ(form.txt_Figure.Text.Get(), "A linkage");
        EXPECT_EQ(form.lbl_Grashof.Caption.Get(), "Linkage is Grashof");
    });
}

TEST_F(AnimateActivation, UnitLabelsFollowTheUnitSystem) {
    Use_Units(5);
    Inside([&] {
        for (int index : {0, 1, 2, 3, 4, 11, 12}) EXPECT_EQ(form.lbl_Units[index].Caption.Get(), "mm") << index;
    });
}

TEST_F(AnimateActivation, SettingsAreTakenFromTheModel) {
    Model.AnimateDelay = 30000;
    Model.Cycles = 4;
    Model.AnimateWait = 40;
    Model.ShowCentrodesFlag = Model.HideLinksFlag = Model.TraceFlag = "Y";
    Inside([&] {
        EXPECT_FALSE(form.chk_Showlinks.Value);
        EXPECT_TRUE(form.chk_Trace.Value);
        EXPECT_EQ(form.hsc_speed.Value(), 2767);
        EXPECT_EQ(form.txt_Cycles.Text.Get(), "4");
        EXPECT_EQ(form.cmb_wait.Text.Get(), "40");
        EXPECT_EQ(Model.AnimateWait, 40);
        EXPECT_TRUE(form.chk_Centrodes.Value);
        EXPECT_EQ(form.hsc_step.Max(), 36);
        EXPECT_EQ(form.hsc_step.Value(), 0);
    });
}

TEST_F(AnimateActivation, ADelayOutsideTheBarGoesToItsEnd) {
    Model.AnimateDelay = 99999;
    Inside([&] { EXPECT_EQ(form.hsc_speed.Value(), 0); });
    Model.AnimateDelay = -5;
    Inside([&] { EXPECT_EQ(form.hsc_speed.Value(), 32767); });
}

TEST_F(AnimateActivation, TheFirstPictureComesWithTheTimerAndOnce) {
    Inside([&] {
        EXPECT_TRUE(form.Timer1.Enabled);
        EXPECT_EQ(form.Timer1.Interval, 250);
        EXPECT_EQ(Model.CurrentStep, 1);
        form.Picture1.Canvas().Cls();
        form.Timer1.Tick();
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_GT(Alive(), 10U);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_EQ(Number(), "0.0");
        form.Picture1.Canvas().Cls();
        form.Timer1.Tick();
        EXPECT_EQ(Alive(), 0U);
    });
}

TEST_F(AnimateActivation, NonGrashofLinkagesShowTheirToggles) {
    Inside([&] { EXPECT_FALSE(form.fra_toggle.Visible); });
    Model.L2 = 2.6;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 90, 10);
    Inside([&] {
        EXPECT_TRUE(form.fra_toggle.Visible);
        EXPECT_NE(form.lbl_Toggle[0].Caption.Get(), "");
        EXPECT_EQ(form.lbl_Grashof.Caption.Get(), "Linkage is Non-Grashof");
    });
}

TEST_F(AnimateActivation, TheZoomMenuFollowsAutoscale) {
    Inside([&] { EXPECT_TRUE(form.zoom.mnu_Zoomcontrol.Enabled); });
    form.chk_autoscale.Value = false;
    EXPECT_FALSE(form.zoom.mnu_Zoomcontrol.Enabled);
    Inside([&] { EXPECT_FALSE(form.zoom.mnu_Zoomcontrol.Enabled); });
}

TEST_F(AnimateActivation, Link1IsColouredByTheWayItIsEntered) {
    Inside([&] {
        EXPECT_TRUE(form.opt_Polar[0].Value);
        EXPECT_EQ(form.txt_Linkout[15].BackColor.Get(), Model.ColorYellow);
        EXPECT_EQ(form.txt_Linkout[0].BackColor.Get(), Model.ColorCyan);
    });
    Model.PolarCoords = true;
    Inside([&] {
        EXPECT_TRUE(form.opt_Polar[1].Value);
        EXPECT_EQ(form.txt_Linkout[16].BackColor.Get(), Model.ColorCyan);
        EXPECT_EQ(form.txt_Linkout[6].BackColor.Get(), Model.ColorYellow);
    });
}

TEST_F(AnimateActivation, FillingTheScreenRunsNoCalculation) {
    // The circuit of a model that was calculated elsewhere is shown, not taken as the user's choice.
    Inside([] {});
    Model.CircuitIndex = 2;
    By_Angle(0, 360, 10);
    Forces_Hold();
    Inside([&] {
        EXPECT_TRUE(form.opt_OpenCross[1].Value);
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_TRUE(Model.SavedFlag);
    });
}

TEST_F(AnimateActivation, TheDragTargetFollowsTheChoiceOfTheInputScreen) {
    Model.ShiftDragTarget = 3;
    Inside([&] {
        EXPECT_TRUE(form.opt_Shift_Drag[3].Value);
        EXPECT_EQ(Model.ShiftDragTarget, 3);
    });
}

TEST_F(AnimateActivation, ANewVisitForgetsTheLastEdit) {
    Model.LinkEdited = true;
    Inside([&] {
        EXPECT_FALSE(Model.LinkEdited);
        EXPECT_FALSE(form.cmd_Recalc.Enabled);
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        EXPECT_TRUE(form.cmd_Step.Enabled);
        EXPECT_TRUE(form.cmd_Reset.Enabled);
        EXPECT_TRUE(form.cmd_PlotPrint.Enabled);
    });
}

TEST_F(AnimateActivation, PassingThroughABoxThatTheScreenHasFilledIsNoChange) {
    Inside([&] {
        form.txt_Linkout[1].SetFocus();
        form.txt_Linkout[2].SetFocus();
        form.cmd_Animate.SetFocus();
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(AnimateActivation, AnEmptyTitleLeavesTheBoxAsItIs) {
    Model.FigureTitle = "";
    Inside([&] { EXPECT_EQ(form.txt_Figure.Text.Get(), "Figure"); });
}

}  // namespace
}  // namespace verlink::test
