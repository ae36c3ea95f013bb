// Changing the linkage in the boxes of the animate screen, recalculating, and leaving.
#include "core/parameters.h"
#include "platform/deed.h"
#include "screens/frm_help.h"
#include "shell/history.h"
#include "tests/screens/frm_animate_fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Icon;

class AnimateEdit : public AnimateScreen {
   protected:
    void Expect_Dirty() {
        EXPECT_FALSE(form.cmd_Animate.Enabled);
        EXPECT_FALSE(form.cmd_Step.Enabled);
        EXPECT_FALSE(form.cmd_Reset.Enabled);
        EXPECT_FALSE(form.cmd_Done.Enabled);
        EXPECT_FALSE(form.cmd_PlotPrint.Enabled);
        EXPECT_TRUE(form.cmd_Recalc.Enabled);
        EXPECT_EQ(Alive(), 0U);
    }
    void Expect_Ready() {
        EXPECT_TRUE(form.cmd_Animate.Enabled);
        EXPECT_TRUE(form.cmd_Step.Enabled);
        EXPECT_TRUE(form.cmd_Reset.Enabled);
        EXPECT_TRUE(form.cmd_Done.Enabled);
        EXPECT_TRUE(form.cmd_PlotPrint.Enabled);
        EXPECT_FALSE(form.cmd_Recalc.Enabled);
    }
};

TEST_F(AnimateEdit, ABoxSelectsItsTextWhenItGetsTheFocus) {
    Inside([&] {
        form.txt_Linkout[3].SetFocus();
        EXPECT_TRUE(form.txt_Linkout[3].SelectedAll);
        form.txt_initial[1].SetFocus();
        EXPECT_TRUE(form.txt_initial[1].SelectedAll);
    });
}

TEST_F(AnimateEdit, AChangedLinkLocksTheRunAndNeverRecalculatesByItself) {
    After_First_Picture([&] {
        Transform_Holds();
        Model.CognateNumber = 2;
        const double before = Model.RunTable.PointXY(0, 0, 0);
        Type(form, "txt_Linkout", 1, "1.2");
        Expect_Ready();
        form.txt_Linkout[2].SetFocus();
        Expect_Dirty();
        EXPECT_EQ(Model.L2, Single(1.2));
        EXPECT_TRUE(Model.LinkEdited);
        EXPECT_EQ(Model.CognateNumber, 1);
        EXPECT_FALSE(Model.FFTDone);
        EXPECT_EQ(Model.RunTable.PointXY(0, 0, 0), before);
    });
}

TEST_F(AnimateEdit, ReturnActsAsLeavingTheBox) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 4, "2");
        EXPECT_EQ(Model.Rpa, 2);
        Expect_Dirty();
    });
}

TEST_F(AnimateEdit, ABoxLeftWithoutAChangeDoesNothing) {
    After_First_Picture([&] {
        form.txt_Linkout[1].SetFocus();
        form.txt_Linkout[1].Text = "1.115";
        form.txt_initial[1].SetFocus();
        form.cmd_Step.SetFocus();
        Expect_Ready();
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(AnimateEdit, AnAngleThatStandsTypedGoesWhenTheScreenIsFilledAnew) {
    After_First_Picture([&] {
        form.txt_LineAngle.Type("45");
        form.Form_Activate();
        EXPECT_EQ(form.txt_LineAngle.Text, "90");
        EXPECT_FALSE(form.txt_LineAngle.Touched());
    });
}

TEST_F(AnimateEdit, AChangeThatIsUndoneAndDoneAgainOpensTheRunAndLocksIt) {
    After_First_Picture([&] {
        form.hsc_step.Drag(7);
        form.hsc_step.Drop();
        platform::Deed::By_Itself();
        The_History().Begin();
        {
            const platform::Deed typed("link 2");
            Enter(form, "txt_Linkout", 1, "1.2");
        }
        Expect_Dirty();
        The_History().Undo();
        Expect_Ready();
        EXPECT_GT(Alive(), 10U);
        form.hsc_step.Drag(7);
        form.hsc_step.Drop();
        The_History().Redo();
        EXPECT_EQ(Model.L2, Single(1.2));
        Expect_Dirty();
        EXPECT_EQ(form.hsc_step.Value(), 0);
    });
}

TEST_F(AnimateEdit, AChangedLimitLocksTheRunButIsNoChangeOfALink) {
    After_First_Picture([&] {
        Enter(form, "txt_initial", 1, "180");
        EXPECT_EQ(Model.ThetaEnd, 180);
        EXPECT_EQ(Model.NSteps, 18);
        EXPECT_FALSE(Model.LinkEdited);
        Expect_Dirty();
    });
}

TEST_F(AnimateEdit, ARefusedLimitGoesBackInTheBox) {
    After_First_Picture([&] {
        desktop.Expect_Message(
            "Minimum angle must be smaller than maximum angle.\rTo rotate CW from max to min, use a negative Omega2.",
            Answer::kOk, Icon::kExclamation);
        Enter(form, "txt_initial", 1, "-10");
        EXPECT_EQ(form.txt_initial[1].Text.Get(), "360");
        EXPECT_EQ(Model.ThetaEnd, 360);
    });
}

TEST_F(AnimateEdit, ATextThatIsNoNumberIsRefusedOnceAndThenReadsAsZero) {
    After_First_Picture([&] {
        const Single before = Model.Delta;
        Enter(form, "txt_Linkout", 5, "none");
        EXPECT_EQ(Model.Delta, before);
        EXPECT_TRUE(form.txt_Linkout[5].Refused());
        Enter(form, "txt_Linkout", 5, "none");
        EXPECT_EQ(Model.Delta, 0);
        EXPECT_EQ(form.txt_Linkout[5].Text.Get(), "0");
    });
}

TEST_F(AnimateEdit, RecalcSolvesTheRunAndOpensTheWayOn) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 1, "1.2");
        Enter(form, "txt_initial", 2, "20");
        Forces_Hold();
        Balance_Holds();
        Model.DiskFile = true;
        Model.ScreenReturn = false;
        form.hsc_step.Drag(7);
        form.hsc_step.Drop();
        desktop.Set_Pointer(platform::Pointer::kHourglass);
        Press(form, "cmd_Recalc");
        Expect_Ready();
        EXPECT_EQ(form.hsc_step.Value(), 0);
        EXPECT_NEAR(Model.RunTable.PointXY(0, 0, 0), 1.2, 1e-6);
        EXPECT_EQ(Model.NSteps, 18);
        EXPECT_EQ(form.hsc_step.Max(), 18);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Model.ScreenReturn);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_FALSE(Model.BalanceDone);
        EXPECT_FALSE(Model.DiskFile);
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_GT(Alive(), 10U);
        EXPECT_EQ(desktop.PointerNow, platform::Pointer::kDefault);
    });
}

TEST_F(AnimateEdit, AButtonThatIsOffSaysWhy) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 1, "1.2");
        EXPECT_EQ(form.cmd_Animate.Tip.Get(), "Recalculate first");
        EXPECT_EQ(form.cmd_Done.Tip.Get(), "Recalculate first");
        Press(form, "cmd_Recalc");
        EXPECT_EQ(form.cmd_Animate.Tip.Get(), "Play the run (Space); Escape or Space stops it");
    });
}

TEST_F(AnimateEdit, RecalcRefreshesTheStatusOfTheHomeScreen) {
    Run_Dropped();
    Inside([&] {
        form.cmd_Recalc_Click();
        const auto& home = platform::Screens::Get("frm_HomeScreen");
        EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 0).Visible);
        EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 0).Caption.Get(), "Calculated");
        EXPECT_FALSE(home.Get<platform::Label>("lbl_Status", 8).Visible);
    });
}

TEST_F(AnimateEdit, ATransformFallsWithTheLengthItWasOf) {
    After_First_Picture([&] {
        Transform_Holds();
        Enter(form, "txt_Linkout", 1, "1.2");
        EXPECT_FALSE(Model.FFTDone);
    });
}

TEST_F(AnimateEdit, LimitsThatWereNeverDividedIntoStepsAreDividedAsTheBoxesHaveThem) {
    After_First_Picture([&] {
        const int steps = Model.NSteps;
        ASSERT_GT(steps, 5);
        Model.NSteps = 5;
        Enter(form, "txt_Linkout", 1, "1.2");
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Model.NSteps, steps);
        EXPECT_TRUE(Model.RunStands);
    });
}

TEST_F(AnimateEdit, LengthsThatCannotCloseAreRefusedAndLeaveNothingToGoOnWith) {
    After_First_Picture([&] {
        form.hsc_step.Drag(7);
        form.hsc_step.Drop();
        Enter(form, "txt_Linkout", 1, "20");
        desktop.Expect_Message_With("Your link lengths are incompatible");
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Model.Grashof_Code, "NL");
        EXPECT_EQ(form.hsc_step.Value(), 0);
        Expect_Dirty();
        EXPECT_FALSE(Model.Calculated);
        Enter(form, "txt_Linkout", 1, "1.2");
        Press(form, "cmd_Recalc");
        Expect_Ready();
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(AnimateEdit, AnAbortedDrivenRunAsksNoMoreIsNotCalculatedAndDrawsNothing) {
    By_Cam(2, 30);
    Model.CamDriven = true;
    After_First_Picture([&] {
        // Crank and ground link in one line are longer than coupler and rocker.
        Model.CamPhase = 150;
        Enter(form, "txt_Linkout", 1, "2.6");
        desktop.Expect_Message_With("Linkage cannot connect or is indeterminate", Answer::kAbort);
        Press(form, "cmd_Recalc");
        EXPECT_FALSE(Model.Calculated);
        EXPECT_EQ(Alive(), 0U);
        EXPECT_TRUE(Model.ScreenReturn);
    });
}

TEST_F(AnimateEdit, ADrivenRunIsReplayed) {
    By_Cam(3, 30);
    Run_Dropped();
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 1, "1.2");
        Press(form, "cmd_Recalc");
        EXPECT_TRUE(Model.Calculated);
        const double x = Model.RunTable.PointXY(1, 0, 0);
        const double y = Model.RunTable.PointXY(1, 0, 1);
        EXPECT_NEAR(x * x + y * y, 1.44, 1e-5);
    });
}

TEST_F(AnimateEdit, ChoosingTheCircuitRecalculatesAtOnce) {
    After_First_Picture([&] {
        const double before = Model.RunTable.PointXY(1, 1, 1);
        Choose_Option(form, "opt_OpenCross", 1);
        EXPECT_EQ(Model.CircuitSign, 1);
        EXPECT_EQ(Model.CircuitName, "Crossed");
        EXPECT_NE(Model.RunTable.PointXY(1, 1, 1), before);
        Expect_Ready();
        EXPECT_FALSE(Model.SavedFlag);
        Choose_Option(form, "opt_OpenCross", 0);
        EXPECT_EQ(Model.RunTable.PointXY(1, 1, 1), before);
    });
}

TEST_F(AnimateEdit, TheCircuitOfAModelFromDiskIsChosenLikeAnyOther) {
    After_First_Picture([&] {
        Model.DiskFile = true;
        Choose_Option(form, "opt_OpenCross", 1);
        EXPECT_EQ(Model.CircuitSign, 1);
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(AnimateEdit, TheCircuitIsNotChosenBeforeTheScreenIsUp) {
    form.opt_OpenCross[1].Value = true;
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_TRUE(Model.SavedFlag);
}

TEST_F(AnimateEdit, PolarCoordinatesAreTypedInYellowAndDeriveTheOthersInCyan) {
    After_First_Picture([&] {
        EXPECT_TRUE(Model.SavedFlag);
        Choose_Option(form, "opt_Polar", 1);
        EXPECT_FALSE(Model.SavedFlag) << "a file keeps the choice";
        EXPECT_TRUE(Model.PolarCoords);
        for (int box : {15, 16}) EXPECT_EQ(form.txt_Linkout[box].BackColor.Get(), Model.ColorCyan);
        for (int box : {0, 6}) EXPECT_EQ(form.txt_Linkout[box].BackColor.Get(), Model.ColorYellow);
        Enter(form, "txt_Linkout", 6, "90");
        EXPECT_EQ(Text_In(15), "0");
        EXPECT_EQ(Text_In(16), "2.667");
        Choose_Option(form, "opt_Polar", 0);
        EXPECT_FALSE(Model.PolarCoords);
        for (int box : {15, 16}) EXPECT_EQ(form.txt_Linkout[box].BackColor.Get(), Model.ColorYellow);
        for (int box : {0, 6}) EXPECT_EQ(form.txt_Linkout[box].BackColor.Get(), Model.ColorCyan);
    });
}

TEST_F(AnimateEdit, TheTogglesComeAndGoWithTheLinkage) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 1, "2.6");
        Press(form, "cmd_Recalc");
        EXPECT_EQ(Model.Grashof_Code, "N");
        EXPECT_TRUE(form.fra_toggle.Visible);
        Enter(form, "txt_Linkout", 1, "1.115");
        Press(form, "cmd_Recalc");
        EXPECT_FALSE(form.fra_toggle.Visible);
    });
}

// Leaving.

TEST_F(AnimateEdit, NextCountsAChangedDesignOnce) {
    desktop.Expect_Screen("frm_Animate", [&](platform::Screen&) {
        form.Timer1.Tick();
        Enter(form, "txt_Linkout", 1, "1.2");
        Enter(form, "txt_Linkout", 2, "2.6");
        Press(form, "cmd_Done");
        EXPECT_TRUE(form.Visible());
        Press(form, "cmd_Recalc");
        Press(form, "cmd_Done");
    });
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(Model.DesignNumber, 2);
    Inside([&] { Press(form, "cmd_Done"); });
    EXPECT_EQ(Model.DesignNumber, 2);
}

TEST_F(AnimateEdit, TheTitleIsTakenOnLeavingTheBoxAndTheScreen) {
    Inside([&] {
        Type(form, "txt_Figure", platform::kNoIndex, "Press drive");
        form.cmd_Done.SetFocus();
        EXPECT_EQ(Model.FigureTitle, "Press drive");
        EXPECT_FALSE(Model.SavedFlag) << "a file keeps the title";
        EXPECT_FALSE(form.txt_Figure.Touched());
    });
    Inside([&] {
        form.txt_Figure.Type("Other");
        Press(form, "cmd_Done");
    });
    EXPECT_EQ(Model.FigureTitle, "Other");
}

TEST_F(AnimateEdit, AnEmptyTitleAndTheWordFigureAreTakenToo) {
    Inside([&] {
        form.txt_Figure.Type("Figure");
        Press(form, "cmd_Done");
    });
    EXPECT_EQ(Model.FigureTitle, "Figure");
    Inside([&] {
        form.txt_Figure.Type("");
        Press(form, "cmd_Done");
    });
    EXPECT_EQ(Model.FigureTitle, "");
}

TEST_F(AnimateEdit, BackLeadsToTheInputScreen) {
    desktop.Expect_Screen("frm_Animate", [&](platform::Screen&) {
        Enter(form, "txt_Linkout", 1, "1.2");
        form.txt_Figure.Type("Mine");
        Press(form, "cmd_Back");
    });
    desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& input) {
        EXPECT_FALSE(form.Visible());
        EXPECT_EQ(Model.DesignNumber, 2);
        EXPECT_EQ(Model.FigureTitle, "Mine");
        input.Hide();
    });
    form.ShowModal();
}

TEST_F(AnimateEdit, ClosingTheWindowIsLeavingTheScreen) {
    desktop.Expect_Screen("frm_Animate", [&](platform::Screen&) {
        Enter(form, "txt_Linkout", 1, "1.2");
        form.Close();
    });
    form.ShowModal();
    EXPECT_EQ(Model.DesignNumber, 2);
    form.opt_OpenCross[1].Value = true;
    EXPECT_EQ(Model.CircuitSign, -1);
}

TEST_F(AnimateEdit, HelpLeavesTheScreenAsItIsAlsoWithARecalculationPending) {
    desktop.Expect_Screen("frm_Animate", [&](platform::Screen&) {
        Enter(form, "txt_Linkout", 1, "1.2");
        Type(form, "txt_Linkout", 2, "2.6");
        desktop.Expect_Screen("frm_Help", [&](platform::Screen& help) {
            EXPECT_EQ(static_cast<frm_Help&>(help).WebBrowser1.Document.Get(), "helpfiles/verlink/animate_help.pdf");
            help.Hide();
        });
        Pick_Menu(form, "mnu_Help");
        EXPECT_TRUE(form.Visible());
        EXPECT_EQ(form.txt_Linkout[2].Text, "2.6");
        EXPECT_TRUE(form.txt_Linkout[2].Touched());
        Expect_Dirty();
        EXPECT_FALSE(Model.Calculated);
        EXPECT_TRUE(Model.LinkEdited);
        form.Hide();
    });
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace verlink::test
