// What the boxes, choices and stepping controls of the input screen do.
#include <algorithm>

#include "animation/engine.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

using Edit = InputScreen;

TEST_F(Edit, WithAutocalcALinkIsCalculatedWhenItsBoxIsLeft) {
    Show([&] {
        Model.CognateEdit = true;
        Model.CognateNumber = 3;
        Type(input, "txt_Linkout", 1, "1");
        EXPECT_EQ(Model.L2, Single(1.115));
        input.txt_Linkout[2].SetFocus();
        EXPECT_EQ(Model.L2, 1.0);
        EXPECT_NEAR(std::hypot(Model.RunTable.PointXY(9, 0, 0), Model.RunTable.PointXY(9, 0, 1)), 1, 1e-6);
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Model.LinkEdited);
        EXPECT_FALSE(Model.CognateEdit);
        EXPECT_EQ(Model.CognateNumber, 1);
        EXPECT_FALSE(Picture_Is_Empty());
    });
}

TEST_F(Edit, TheReturnKeyActsAsLeavingTheBox) {
    Show([&] {
        Enter(input, "txt_Linkout", 1, "1.25");
        EXPECT_EQ(Model.L2, 1.25);
        Enter(input, "txt_initial", 2, "5");
        EXPECT_EQ(Model.NSteps, 72);
    });
}

TEST_F(Edit, LeavingABoxThatWasNotChangedDoesNothing) {
    Show([&] {
        input.txt_Linkout[1].SetFocus();
        input.txt_initial[1].SetFocus();
        input.txt_Thetazero.SetFocus();
        input.cmd_Done.SetFocus();
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(Edit, WhatStepsWriteIntoBoxesIsNoEdit) {
    Show([&] {
        input.cmd_Step.Click();
        EXPECT_EQ(input.txt_Thetazero.Text, "65.0");
        input.txt_Linkout[1].SetFocus();
        input.cmd_Done.SetFocus();
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(Edit, ASpeedTurnedPositiveByAChoiceIsNoEdit) {
    Show([&] {
        Enter_Limit(3, "-10");
        Choose_Option(input, "opt_Calctype", 1);
        EXPECT_EQ(input.txt_initial[3].Text, "10");
        input.txt_Linkout[1].SetFocus();
        input.cmd_Calc.SetFocus();
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(Edit, WhatAnotherScreensStepWritesIntoABoxIsNoEdit) {
    Show([&] {
        Calculate_Now();
        Integer step = 4;
        Step(animate, step);
        EXPECT_EQ(input.txt_Thetazero.Text, "85.0");
        input.txt_Linkout[1].SetFocus();
        input.cmd_Done.SetFocus();
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(Edit, ABoxThatGetsTheFocusSelectsItsText) {
    Show([&] {
        for (TextBox* box : {&input.txt_Linkout[3], &input.txt_initial[1], &input.txt_Thetazero}) {
            box->SetFocus();
            EXPECT_TRUE(box->SelectedAll) << box->ObjectName();
        }
    });
}

TEST_F(Edit, WithAutocalcOffALinkChangeDisablesTheWaysOnUntilCalculate) {
    Show([&] {
        Calculate_Now();
        Tick(input, "chk_autocalc", false);
        Forces_Hold();
        Balance_Holds();
        Expect_Ways_On(true, true);
        Type(input, "txt_Linkout", 1, "1");
        Expect_Ways_On(false, false);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_FALSE(Model.BalanceDone);
        EXPECT_TRUE(Picture_Is_Empty());
        input.txt_Linkout[2].SetFocus();
        EXPECT_EQ(Model.L2, 1.0);
        EXPECT_TRUE(Model.LinkEdited);
        Expect_Ways_On(false, false);
        Press(input, "cmd_Calc");
        Expect_Ways_On(true, true);
        EXPECT_FALSE(Picture_Is_Empty());
    });
}

TEST_F(Edit, WithAutocalcOnALinkChangeAloneDisablesNothing) {
    Show([&] {
        Type(input, "txt_Linkout", 1, "1");
        Expect_Ways_On(true, true);
    });
}

TEST_F(Edit, WithAutocalcOffALimitIsReadAndThePictureCleared) {
    Show([&] {
        Calculate_Now();
        Tick(input, "chk_autocalc", false);
        Enter_Limit(2, "5");
        EXPECT_EQ(Model.NSteps, 72);
        EXPECT_FALSE(Model.RunTable.Assembled(72));
        EXPECT_TRUE(Picture_Is_Empty());
        EXPECT_FALSE(input.cmd_Done.Enabled);
        EXPECT_FALSE(input.cmd_Animate.Enabled);
    });
}

TEST_F(Edit, ALimitOfAnAngleRunIsNoAngleToJumpTo) {
    Without_Autocalc();
    Show([&] {
        const std::string before = input.txt_Thetazero.Text;
        Enter_Limit(0, "20");
        EXPECT_EQ(input.txt_Thetazero.Text, before);
        EXPECT_FALSE(input.txt_Thetazero.Touched());
    });
}

TEST_F(Edit, AStepThatIsUndoneAndDoneAgainShowsItsRunAndThenNone) {
    Without_Autocalc();
    Show([&] {
        Calculate_Now();
        Deed::By_Itself();
        The_History().Begin();
        {
            const Deed typed("link 2");
            Enter_Link(1, "1");
        }
        EXPECT_TRUE(Picture_Is_Empty());
        The_History().Undo();
        EXPECT_FALSE(Picture_Is_Empty());
        Expect_Ways_On(true, true);
        The_History().Redo();
        EXPECT_EQ(Model.L2, 1.0);
        EXPECT_TRUE(Picture_Is_Empty());
        Expect_Ways_On(false, false);
    });
}

TEST_F(Edit, AnUndoneStepLeavesNoAngleToJumpToBehind) {
    Without_Autocalc();
    Show([&] {
        Deed::By_Itself();
        The_History().Begin();
        Enter_Link(1, "1");
        input.txt_Thetazero.Type("90");
        The_History().Undo();
        EXPECT_EQ(Model.L2, Single(1.115));
        EXPECT_FALSE(input.txt_Thetazero.Touched());
    });
}

TEST_F(Edit, TheStartAngleIsTheFirstLimitOfOnePositionAndNoneOfARunByTime) {
    Without_Autocalc();
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        const std::string start = input.txt_initial[0].Text;
        Enter(input, "txt_Thetazero", kNoIndex, "33");
        EXPECT_EQ(input.txt_initial[0].Text, start);
        Choose_Option(input, "opt_Calctype", 1);
        Enter(input, "txt_Thetazero", kNoIndex, "34");
        EXPECT_EQ(input.txt_initial[0].Text, "34");
    });
}

TEST_F(Edit, WithAutocalcOffTheStartAngleIsTakenAndClearsThePicture) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        Calculate_Now();
        Tick(input, "chk_autocalc", false);
        Enter(input, "txt_Thetazero", kNoIndex, "33");
        EXPECT_TRUE(Picture_Is_Empty());
        EXPECT_EQ(Model.ThetaZero, 33.0);
        EXPECT_FALSE(Model.Calculated);
        Calculate_Now();
        EXPECT_EQ(Model.ThetaZero, 33.0);
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(Edit, InAnAngleRunTheStartAngleJumpsToAPosition) {
    Show([&] {
        Calculate_Now();
        Enter(input, "txt_Thetazero", kNoIndex, "90");
        EXPECT_EQ(input.hsc_step.Value(), 9);  // 90 of 360 degrees, of 36 steps
        EXPECT_EQ(Model.CurrentStep, 10);
        EXPECT_EQ(input.txt_Thetazero.Text, "135.0");
        Enter(input, "txt_Thetazero", kNoIndex, "95");
        EXPECT_EQ(input.hsc_step.Value(), 9);
        log.Calls.clear();
        Enter(input, "txt_Thetazero", kNoIndex, "180");
        EXPECT_EQ(input.hsc_step.Value(), 18);
        EXPECT_EQ(std::count(log.Calls.begin(), log.Calls.end(), "BackColor FFFFFF"), 1) << "drawn once";
    });
}

TEST_F(Edit, AJumpBeyondTheRangeGoesToTheLastPositionAndOneBeforeItToTheFirst) {
    Show([&] {
        Calculate_Now();
        for (const char* beyond : {"360", "370"}) {
            Enter(input, "txt_Thetazero", kNoIndex, beyond);
            EXPECT_EQ(input.hsc_step.Value(), 36);
            EXPECT_EQ(Model.CurrentStep, 37);
        }
        Enter(input, "txt_Thetazero", kNoIndex, "-20");
        EXPECT_EQ(input.hsc_step.Value(), 0);
        EXPECT_EQ(Model.CurrentStep, 1);
    });
}

TEST_F(Edit, AJumpBeforeTheFirstRunDoesNothing) {
    Without_Autocalc();
    Show([&] {
        Enter(input, "txt_Thetazero", kNoIndex, "90");
        EXPECT_EQ(Model.CurrentStep, 5);
        EXPECT_TRUE(log.Calls.empty());
    });
}

TEST_F(Edit, OnePositionTurnsANegativeSpeedInItsBoxPositive) {
    Show([&] {
        Enter_Limit(3, "-12.5");
        ASSERT_EQ(Model.Omega2Input, -12.5);
        Choose_Option(input, "opt_Calctype", 1);
        EXPECT_EQ(Model.Calctype, 1);
        EXPECT_EQ(input.txt_initial[3].Text, "12.5");
        Enter_Limit(3, "0.5");
        Choose_Option(input, "opt_Calctype", 2);
        EXPECT_EQ(Model.Omega2Input, 0.5) << "a slow one is none that turns back";
    });
}

TEST_F(Edit, AnotherModeShowsItsOwnValuesAndWaitsForItsRun) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        EXPECT_EQ(Model.Calctype, 2);
        EXPECT_EQ(input.txt_initial[1].Text, "5");
        EXPECT_EQ(input.lbl_Initial[2].Caption, "Delta Time");
        EXPECT_TRUE(input.pnl_time.Visible);
        Expect_Ways_On(false, false);
        Press(input, "cmd_Calc");
        EXPECT_EQ(Model.NSteps, 100);
        Expect_Ways_On(true, true);
        Choose_Option(input, "opt_Calctype", 3);
        EXPECT_EQ(Model.Calctype, 3);
        EXPECT_EQ(input.lbl_Initial[2].Caption, "Delta Theta");
    });
}

TEST_F(Edit, EachModeFindsItsOwnLimitsAgain) {
    Show([&] {
        Calculate_Now();
        Choose_Option(input, "opt_Calctype", 1);
        Calculate_Now();
        Choose_Option(input, "opt_Calctype", 2);
        EXPECT_EQ(input.txt_initial[1].Text, "5");
        EXPECT_EQ(Model.ThetaEndStr, "5");
        Calculate_Now();
        Choose_Option(input, "opt_Calctype", 3);
        EXPECT_EQ(input.txt_initial[0].Text, "45");
        EXPECT_EQ(input.txt_initial[1].Text, "405");
        EXPECT_EQ(input.txt_initial[2].Text, "10");
        Calculate_Now();
        EXPECT_EQ(Model.NSteps, 36);
    });
}

TEST_F(Edit, ATimeModeThatWasOnlyChosenIsThereAgainAtTheNextVisit) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 2);
        Press(input, "cmd_Cancel");
    });
    Show([&] {
        EXPECT_EQ(input.txt_initial[1].Text, "5");
        EXPECT_EQ(Model.NSteps, 100);
    });
}

TEST_F(Edit, ASpeedTooLargeForASingleIsToldWhenItsBoxIsLeftAndTheBoxGoesBack) {
    Without_Autocalc();
    Show([&] {
        Type(input, "txt_initial", 3, "-1e60");
        desktop.Expect_Message("Error 6   (Overflow)  has occurred in frm_Input.txt_initial\r\n\r\n");
        Choose_Option(input, "opt_Calctype", 1);
        EXPECT_EQ(Model.Omega2Input, 10);
        EXPECT_EQ(input.txt_initial[3].Text, "10");
    });
}

TEST_F(Edit, ACamDrivenModelKeepsItsMode) {
    Without_Autocalc();
    Model.Calctype = 4;
    Show([&] {
        input.opt_Calctype[1].Value = true;
        EXPECT_EQ(Model.Calctype, 4);
    });
}

TEST_F(Edit, TheCircuitIsCalculatedWhenItIsChosen) {
    Show([&] {
        Choose_Option(input, "opt_OpenCross", 1);
        EXPECT_EQ(Model.CircuitSign, 1);
        EXPECT_EQ(Model.CircuitName, "Crossed");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_LT(Model.RunTable.PointXY(0, 1, 1), 0.0);  // the crossed rocker hangs below the ground line
    });
}

TEST_F(Edit, TheCircuitOfADrivenModelIsTakenAndRunWhenItIsChosen) {
    Without_Autocalc();
    Model.Calctype = 4;
    Model.DiskFile = true;
    Model.NSteps = 2;
    Show([&] {
        Choose_Option(input, "opt_OpenCross", 1);
        EXPECT_EQ(Model.CircuitSign, 1);
        EXPECT_EQ(Model.CircuitName, "Crossed");
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(Edit, TheFormOfLink1TakesYellowAndTheDerivedFormCyan) {
    constexpr Color kYellow = 0x00FFFF, kCyan = 0xFFFF00;
    Show([&] {
        for (const bool polar : {true, false}) {
            Choose_Option(input, "opt_Polar", polar ? 1 : 0);
            EXPECT_EQ(Model.PolarCoords, polar);
            for (int box : {0, 6}) EXPECT_EQ(input.txt_Linkout[box].BackColor, polar ? kYellow : kCyan);
            for (int box : {15, 16}) EXPECT_EQ(input.txt_Linkout[box].BackColor, polar ? kCyan : kYellow);
        }
        for (int box = 1; box <= 5; ++box) EXPECT_EQ(input.txt_Linkout[box].BackColor, kYellow);
    });
}

TEST_F(Edit, TheDragOptionsSetTheTarget) {
    Show([&] {
        const int targets[] = {2, 0, 1, 3, 4};
        for (int option : {1, 2, 3, 4, 0}) {
            Choose_Option(input, "opt_Shift_Drag", option);
            EXPECT_EQ(Model.ShiftDragTarget, targets[option]);
        }
    });
}

TEST_F(Edit, StepWrapsToTheFirstPositionAfterTheLast) {
    Show([&] {
        Calculate_Now();
        Model.ShowCouplerLinesFlag = "Y";
        Model.CurrentStep = 36;
        input.cmd_Step.Click();
        EXPECT_EQ(Model.ShowCouplerLinesFlag, "N");
        EXPECT_EQ(input.hsc_step.Value(), 36);
        EXPECT_EQ(Model.CurrentStep, 37);
        input.cmd_Step.Click();
        EXPECT_EQ(input.hsc_step.Value(), 0);
        EXPECT_EQ(Model.CurrentStep, 1);
    });
}

TEST_F(Edit, TheBarShowsItsPositionWhenTheRunCounts) {
    Show([&] {
        input.hsc_step.SetValue(7);
        EXPECT_TRUE(Picture_Is_Empty()) << "nothing has been calculated by the user yet";
        Calculate_Now();
        input.hsc_step.SetValue(12);
        EXPECT_EQ(Model.CurrentStep, 12);
        EXPECT_EQ(input.txt_Thetazero.Text, "165.0");
        input.hsc_step.Drag(15);
        EXPECT_EQ(Model.CurrentStep, 15);
        EXPECT_EQ(input.txt_Thetazero.Text, "195.0");
        // Unlike on the animate screen the bar stays alive after a step.
        input.cmd_Step.Click();
        input.hsc_step.SetValue(3);
        EXPECT_EQ(Model.CurrentStep, 3);
    });
}

TEST_F(Edit, ResetShowsTheFirstPositionAndStepTheSecond) {
    Show([&] {
        Calculate_Now();
        input.cmd_Step.Click();
        input.cmd_Reset.Click();
        EXPECT_EQ(input.hsc_step.Value(), 0);
        EXPECT_EQ(Model.CurrentStep, 1);
        EXPECT_EQ(input.txt_Thetazero.Text, "45.0");
        input.cmd_Step.Click();
        EXPECT_EQ(input.txt_Thetazero.Text, "55.0");
    });
}

TEST_F(Edit, RedrawBeginsAtTheFirstPosition) {
    Show([&] {
        Calculate_Now();
        input.hsc_step.SetValue(12);
        Pick_Menu(input, "mnu_Redraw");
        EXPECT_EQ(input.hsc_step.Value(), 0);
        EXPECT_EQ(Model.CurrentStep, 1);
        Tick(input, "chk_autocalc", false);
        Enter_Link(1, "1");
        Pick_Menu(input, "mnu_Redraw");
        EXPECT_TRUE(Picture_Is_Empty()) << "there is no run of this linkage";
    });
}

TEST_F(Edit, TheStepButtonMakesTheRunCountOnTheHomeScreenToo) {
    Show([&] {
        ASSERT_FALSE(Model.Calculated);
        const Screen& home = Screens::Get("frm_HomeScreen");
        EXPECT_FALSE(home.Get<Label>("lbl_Status", 0).Visible);
        Press(input, "cmd_Step");
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(home.Get<Label>("lbl_Status", 0).Visible);
        EXPECT_TRUE(home.Get<CommandButton>("cmd_Plot").Enabled);
    });
}

TEST_F(Edit, ZoomingInDividesTheWindowAndNormalRestoresIt) {
    Show([&] {
        Calculate_Now();
        const double normal = Model.AnimMax;
        Pick_Menu(input, "mnu_Plus");
        EXPECT_NEAR(Model.ZoomFactor, 1 / 1.1, 1e-6);
        EXPECT_NEAR(Model.AnimMax, normal / 1.1, 1e-5);
        Pick_Menu(input, "mnu_Normal");
        EXPECT_EQ(Model.ZoomFactor, 1.0);
        Pick_Menu(input, "mnu_Minus");
        EXPECT_NEAR(Model.AnimMax, normal * 1.1, 1e-5);
    });
}

TEST_F(Edit, ThePictureTakesNoMouse) { EXPECT_FALSE(input.Picture1.OnMouseMove); }

}  // namespace
}  // namespace verlink::test
