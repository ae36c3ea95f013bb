// Running, stepping, zooming and printing on the animate screen.
#include <algorithm>
#include <chrono>

#include "core/parameters.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class AnimateRun : public AnimateScreen {};

constexpr char kMayNotAnimate[] =
    "This linkage cannot connect at some positions\r"
    "and may not animate properly or at all.\r"
    "\r"
    "Use the Step button to move the linkage \r"
    "through all its possible (reachable) positions\r"
    "and note the useable range as reported in \r"
    "the (cyan) box labeled Theta2 at right.\r"
    "\r"
    "Reset Min and Max Theta values accordingly.  \r"
    " It will recalculate and then animate properly.";

constexpr char kPrintNote[] =
    "Note: The image on this screen may not print correctly on some printers.\r\n"
    "\r\n"
    "If this occurs, you can still get a printout of the screen by copying it to the clipboard\r\n"
    "with the key combo Alt-PrintScrn and pasting the image into a word processor,\r\n"
    "a drawing program, or a graphics package, then printing it from that program.\r\n"
    "\r\n"
    "Do you want to send it to the printer now anyway?";

TEST_F(AnimateRun, RunPlaysOneFrameForEachPosition) {
    After_First_Picture([&] {
        desktop.Pauses.clear();
        form.hsc_step.Drag(20);
        form.hsc_step.Drop();
        Press(form, "cmd_Animate");
        EXPECT_EQ(desktop.Pauses.size(), 37U);
        EXPECT_EQ(form.hsc_step.Value(), 0);
        EXPECT_EQ(Model.CurrentStep, 0);
        EXPECT_EQ(Model.RedrawFlag, "N");
        EXPECT_FALSE(form.lbl_StepNumber.Visible);
        EXPECT_GT(Alive(), 40U);
    });
}

TEST_F(AnimateRun, ARunOfNoCyclesShowsTheFirstPosition) {
    After_First_Picture([&] {
        Type(form, "txt_Cycles", platform::kNoIndex, "0");
        form.hsc_step.Drag(20);
        form.hsc_step.Drop();
        ASSERT_EQ(Number(), "200.0");
        desktop.Pauses.clear();
        Press(form, "cmd_Animate");
        EXPECT_TRUE(desktop.Pauses.empty());
        EXPECT_EQ(form.hsc_step.Value(), 0);
        EXPECT_EQ(Number(), "0.0");
    });
}

TEST_F(AnimateRun, AStoppedRunLeavesTheScreenAsAtItsEndAndStepGoesOnFromThere) {
    EXPECT_EQ(form.StopButton, &form.cmd_Reset);
    After_First_Picture([&] {
        Type(form, "txt_Cycles", platform::kNoIndex, "32767");
        desktop.Pauses.clear();
        desktop.StopAtPause = 37 + 8;
        Press(form, "cmd_Animate");
        EXPECT_EQ(desktop.Pauses.size(), 45U);
        EXPECT_FALSE(form.lbl_StepNumber.Visible);
        for (const auto* button : {&form.cmd_Animate, &form.cmd_Step, &form.cmd_Reset, &form.cmd_Done})
            EXPECT_TRUE(button->Enabled) << button->Name();
        EXPECT_FALSE(form.cmd_Recalc.Enabled);
        EXPECT_GT(Alive(), 40U) << "the position stands";
        Press(form, "cmd_Step");
        EXPECT_EQ(Number(), "80.0") << "the eighth position of a cycle is that of 70 degrees";
        Press(form, "cmd_Reset");
        EXPECT_EQ(Number(), "0.0");
    });
}

TEST_F(AnimateRun, SpeedWaitAndCyclesCountFromTheNextRun) {
    After_First_Picture([&] {
        form.hsc_speed.SetValue(32757);
        form.cmb_wait.Choose(2);
        Type(form, "txt_Cycles", platform::kNoIndex, "2");
        desktop.Pauses.clear();
        Press(form, "cmd_Animate");
        ASSERT_EQ(desktop.Pauses.size(), 74U);
        EXPECT_EQ(desktop.Pauses[0], std::chrono::nanoseconds(10 * 40 * 100));
        form.hsc_speed.SetValue(32767);
        Press(form, "cmd_Animate");
        EXPECT_EQ(desktop.Pauses.back(), std::chrono::nanoseconds(0));
    });
}

TEST_F(AnimateRun, ABlankWaitIsZeroAndNoDelayAtAll) {
    After_First_Picture([&] {
        form.hsc_speed.SetValue(0);
        form.cmb_wait.Text = "";
        EXPECT_EQ(Model.AnimateWait, 0);
        Press(form, "cmd_Animate");
        EXPECT_EQ(desktop.Pauses.back(), std::chrono::nanoseconds(0));
    });
}

TEST_F(AnimateRun, ATypedWaitCountsAndAVastOneIsReported) {
    Inside([&] {
        form.cmb_wait.Text = "33";
        EXPECT_EQ(Model.AnimateWait, 33);
        desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_Animate.cmb_wait\r\n\r\n");
        form.cmb_wait.Text = "40000";
        EXPECT_EQ(Model.AnimateWait, 33);
    });
}

TEST_F(AnimateRun, EachDigitOfAVastWaitIsNotReportedAnew) {
    Inside([&] {
        const auto reported = [&] {
            desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_Animate.cmb_wait\r\n\r\n");
        };
        form.cmb_wait.SetFocus();
        reported();
        for (const char* typed : {"4", "40", "400", "4000", "40000", "40001", "40002"}) form.cmb_wait.Text = typed;
        EXPECT_EQ(Model.AnimateWait, 4000);
        EXPECT_EQ(form.cmb_wait.Text.Get(), "4000");
        form.cmd_Animate.SetFocus();
        form.cmb_wait.SetFocus();
        reported();
        form.cmb_wait.Text = "40003";
        EXPECT_EQ(Model.AnimateWait, 4000);
    });
}

TEST_F(AnimateRun, ALinkageThatDoesNotCloseEverywhereIsWarnedOf) {
    Model.L2 = 2.6;
    Derive_Linkage(Leading::kInForce);
    By_Angle(0, 360, 30);
    ASSERT_TRUE(Model.NoConnectSeen);
    After_First_Picture([&] {
        form.lbl_StepNumber.Visible = false;
        std::vector<bool> shown;
        form.lbl_StepNumber.Visible.Event = [&] { shown.push_back(form.lbl_StepNumber.Visible); };
        desktop.Expect_Message(kMayNotAnimate, Answer::kOk, Icon::kExclamation, Buttons::kOk);
        Press(form, "cmd_Animate");
        form.lbl_StepNumber.Visible.Event = nullptr;
        EXPECT_EQ(shown, (std::vector<bool>{true, false}));
        EXPECT_FALSE(desktop.Pauses.empty());
    });
}

TEST_F(AnimateRun, StepGoesThroughThePositions) {
    After_First_Picture([&] {
        EXPECT_EQ(Number(), "0.0");
        Press(form, "cmd_Step");
        Press(form, "cmd_Step");
        EXPECT_EQ(Number(), "20.0");
        EXPECT_EQ(form.hsc_step.Value(), 2);
        EXPECT_EQ(Model.CurrentStep, 3);
        Press(form, "cmd_Reset");
        EXPECT_EQ(Number(), "0.0");
        EXPECT_EQ(form.hsc_step.Value(), 0);
        Press(form, "cmd_Step");
        EXPECT_EQ(Number(), "10.0");
    });
}

TEST_F(AnimateRun, TheBarFollowsItsArrowsOnlyUntilTheFirstStep) {
    Inside([&] {
        form.hsc_step.SetValue(3);
        EXPECT_EQ(Number(), "30.0");
        form.Timer1.Tick();
        form.hsc_step.SetValue(5);
        EXPECT_EQ(Number(), "0.0");
        EXPECT_EQ(Model.CurrentStep, 1);
    });
}

TEST_F(AnimateRun, DraggingTheThumbMovesThePictureAlsoAfterSteps) {
    After_First_Picture([&] {
        form.hsc_step.Drag(9);
        EXPECT_EQ(Number(), "90.0");
        EXPECT_EQ(Model.CurrentStep, 9);
        form.hsc_step.Drag(0);
        EXPECT_EQ(Number(), "0.0");
        form.hsc_step.Drop();
    });
}

TEST_F(AnimateRun, TheBarBackAtZeroDrawsNothing) {
    Inside([&] {
        form.hsc_step.SetValue(3);
        form.Picture1.Canvas().Cls();
        form.hsc_step.SetValue(0);
        EXPECT_EQ(Model.CurrentStep, 0);
        EXPECT_EQ(Alive(), 0U);
    });
}

TEST_F(AnimateRun, ALinkDrivenRunCountsItsStepsAndTheThumbStillWorks) {
    By_Cam(5, 30);
    Model.Calctype = 5;
    After_First_Picture([&] {
        EXPECT_TRUE(form.cmd_Step.Enabled);
        form.Picture1.Canvas().Cls();
        Press(form, "cmd_Step");
        EXPECT_EQ(Model.CurrentStep, 2);
        EXPECT_EQ(Alive(), 0U);
        form.hsc_step.Drag(4);
        EXPECT_GT(Alive(), 10U);
    });
}

TEST_F(AnimateRun, ZoomInDividesZoomOutMultipliesAndNormalIsOne) {
    After_First_Picture([&] {
        const double before = Model.AnimMax;
        Pick_Menu(form, "mnu_Plus");
        EXPECT_FLOAT_EQ(Model.ZoomFactor, static_cast<float>(1 / 1.1));
        EXPECT_NEAR(Model.AnimMax, before / 1.1, 1e-5);
        Pick_Menu(form, "mnu_Normal");
        EXPECT_EQ(Model.ZoomFactor, 1);
        Pick_Menu(form, "mnu_Minus");
        EXPECT_FLOAT_EQ(Model.ZoomFactor, 1.1F);
        EXPECT_NEAR(Model.AnimMax, before * 1.1, 1e-5);
        EXPECT_EQ(Model.CurrentStep, 1);
    });
}

TEST_F(AnimateRun, TheZoomActsOnlyWhileAutoscaleIsTicked) {
    After_First_Picture([&] {
        const double before = Model.AnimMax;
        Tick(form, "chk_autoscale", false);
        Pick_Menu(form, "mnu_Plus");
        EXPECT_EQ(Model.ZoomFactor, 1);
        Tick(form, "chk_autoscale", true);
        Pick_Menu(form, "mnu_Plus");
        Tick(form, "chk_autoscale", false);
        Model.ZoomFactor = 1;
        Press(form, "cmd_Step");
        EXPECT_NEAR(Model.AnimMax, before / 1.1, 1e-5);
    });
}

TEST_F(AnimateRun, RedrawShowsTheFirstPosition) {
    After_First_Picture([&] {
        Press(form, "cmd_Step");
        form.Picture1.Canvas().Cls();
        Pick_Menu(form, "mnu_Redraw");
        EXPECT_EQ(Number(), "0.0");
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_GT(Alive(), 10U);
    });
}

TEST_F(AnimateRun, TickBoxesCountFromTheNextPicture) {
    After_First_Picture([&] {
        const auto before = Alive();
        Tick(form, "chk_Coupler", false);
        Tick(form, "chk_Showlinks", false);
        EXPECT_EQ(Alive(), before);
        Press(form, "cmd_Step");
        // Two rings at each pivot, and the axes.
        EXPECT_EQ(Alive(), 6U);
        EXPECT_EQ(Model.HideLinksFlag, "Y");
        EXPECT_EQ(Model.ShowCouplerFlag, "N");
    });
}

TEST_F(AnimateRun, CentrodesAreFlaggedAtOnce) {
    Inside([&] {
        Tick(form, "chk_Centrodes", true);
        EXPECT_EQ(Model.ShowCentrodesFlag, "Y");
        Tick(form, "chk_Centrodes", false);
        EXPECT_EQ(Model.ShowCentrodesFlag, "N");
    });
}

TEST_F(AnimateRun, CouplerLinesShowAtOnceAtStepZero) {
    After_First_Picture([&] {
        Press(form, "cmd_Step");
        const auto before = Alive();
        Tick(form, "chk_CouplerLines", true);
        EXPECT_EQ(Number(), "0.0");
        EXPECT_EQ(Model.ShowCouplerLinesFlag, "Y");
        EXPECT_GT(Alive(), before + 36 * 3);
    });
}

TEST_F(AnimateRun, TheLineAngleIsReadFromItsBox) {
    After_First_Picture([&] {
        Type(form, "txt_LineAngle", platform::kNoIndex, "45");
        Press(form, "cmd_Reset");
        EXPECT_EQ(Model.LineAngle, 45);
        EXPECT_EQ(form.txt_LineAngle.Text.Get(), "45");
        form.cmd_Animate.SetFocus();
        form.txt_LineAngle.SetFocus();
        EXPECT_TRUE(form.txt_LineAngle.SelectedAll);
    });
}

TEST_F(AnimateRun, ALineAngleThatItsBoxShowsRoundedStaysAsItWasTyped) {
    After_First_Picture([&] {
        Type(form, "txt_LineAngle", platform::kNoIndex, "99.2");
        Press(form, "cmd_Reset");
        Type(form, "txt_Linkout", 1, "1.2");
        Press(form, "cmd_Recalc");
        Press(form, "cmd_Reset");
        EXPECT_EQ(Model.LineAngle, Single(99.2));
    });
}

TEST_F(AnimateRun, TicksCountWhenTheyAreSetAndNotWhenSomethingIsDrawnNext) {
    After_First_Picture([&] {
        Tick(form, "chk_Trace", true);
        Tick(form, "chk_Showlinks", false);
        Tick(form, "chk_Coupler", false);
        EXPECT_EQ(Model.TraceFlag, "Y");
        EXPECT_EQ(Model.HideLinksFlag, "Y");
        EXPECT_EQ(Model.ShowCouplerFlag, "N");
    });
}

TEST_F(AnimateRun, AVastWaitIsReportedAgainWhenTheScreenComesUpAnew) {
    Inside([&] {
        const auto refused = [&] {
            desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_Animate.cmb_wait\r\n\r\n");
            form.cmb_wait.Text = "40000";
        };
        refused();
        form.Form_Activate();
        refused();
    });
}

TEST_F(AnimateRun, AStepClearsTheFlagOfTheCouplersLinesWhichADrawingReadsBackFromItsBox) {
    After_First_Picture([&] {
        Tick(form, "chk_CouplerLines", true);
        Press(form, "cmd_Animate");
        Press(form, "cmd_Step");
        EXPECT_EQ(Model.ShowCouplerLinesFlag, "Y");
        Model.Calctype = run::kLinkDriven;
        Press(form, "cmd_Step");
        EXPECT_EQ(Model.ShowCouplerLinesFlag, "N") << "a run that another stage drives is not drawn by the button";
    });
}

TEST_F(AnimateRun, ATraceLeavesAllPositions) {
    After_First_Picture([&] {
        Tick(form, "chk_Trace", true);
        Tick(form, "chk_Coupler", false);
        Press(form, "cmd_Animate");
        EXPECT_GT(Alive(), 36U * 8);
        Tick(form, "chk_Trace", false);
        Press(form, "cmd_Animate");
        EXPECT_EQ(Alive(), 14U);
    });
}

TEST_F(AnimateRun, PrintingAsksFirst) {
    Inside([&] {
        desktop.Expect_Message(kPrintNote, Answer::kNo, {}, Buttons::kYesNo);
        Press(form, "cmd_PlotPrint");
        EXPECT_TRUE(desktop.Printed.empty());
        desktop.Expect_Message(kPrintNote, Answer::kYes, {}, Buttons::kYesNo).Expect_Printer(true);
        Press(form, "cmd_PlotPrint");
        EXPECT_EQ(desktop.Printed, std::vector<std::string>{"frm_Animate"});
    });
}

TEST_F(AnimateRun, ACancelledPrinterDialogIsReported) {
    Inside([&] {
        desktop.Expect_Message(kPrintNote, Answer::kYes)
            .Expect_Printer(false)
            .Expect_Message("Error 32755   (Cancel was selected)  has occurred in frm_Animate.cmd_PlotPrint\r\n\r\n",
                            Answer::kOk, Icon::kInformation);
        Press(form, "cmd_PlotPrint");
        EXPECT_TRUE(desktop.Printed.empty());
    });
}

TEST_F(AnimateRun, APrinterThatFailsIsReported) {
    Inside([&] {
        desktop.FailPrinting = platform::kPrinterError;
        desktop.Expect_Message(kPrintNote, Answer::kYes)
            .Expect_Printer(true)
            .Expect_Message("Error 482   (Printer error)  has occurred in frm_Animate.cmd_PlotPrint\r\n\r\n");
        Press(form, "cmd_PlotPrint");
    });
}

}  // namespace
}  // namespace verlink::test
