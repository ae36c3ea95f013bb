// Stepping through a run, on a bare screen.
#include "core/numeric.h"
#include "core/text.h"
#include "tests/animation/engine.h"

namespace verlink::test {
namespace {

TEST_F(Engine, AStepShowsItsReadOutAndStillPicture) {
    Animate(stage);
    Take();
    Integer step = 2;
    Model.RedrawFlag = "Y";
    Step(stage, step);
    EXPECT_TRUE(stage.lbl_StepLabel.Visible);
    EXPECT_TRUE(stage.lbl_StepNumber.Visible);
    EXPECT_TRUE(stage.lbl_StepUnit.Visible);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "180.0");
    Rows rows = Take();
    rows.erase(rows.begin(), rows.begin() + 3);
    Rows expected = Pivots();
    Append(expected, Axis_Lines());
    Append(expected, Links(2, Model.ColorMagenta));
    Append(expected, Pivots());
    Append(expected, Axis_Lines());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, TheStillPictureOfTheLastStepHasItsLinksTwice) {
    Model.ShowCouplerFlag = "Y";
    Model.ShowCentrodesFlag = "Y";
    Animate_Setup(stage);
    Take();
    DrawLinkage(stage, 4);
    const Rows rows = Take();
    Rows expected = Pivots();
    Append(expected, Axis_Lines());
    Append(expected, Curve());
    for (int time = 0; time < 2; ++time) Append(expected, Links(4, Model.ColorMagenta));
    Append(expected, Drawn([&] { PlotCentrodeCircles(4, stage); }));
    Append(expected, Pivots());
    Append(expected, Axis_Lines());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, OnePositionReadsOutTheCrankAcceleration) {
    Model.Calctype = 1;
    Model.Alpha2 = -2.5;
    Integer step = 0;
    Step(stage, step);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "-2.5");
}

TEST_F(Engine, TimeStepsAndDrivenRunsReadOutTheTime) {
    Model.TimeStart = 0.5;
    Model.TimeStep = 0.25;
    for (int mode : {2, 4, 5}) {
        Model.Calctype = mode;
        Integer step = 3;
        Step(stage, step);
        EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "1.25") << mode;
    }
}

TEST_F(Engine, AnAngleStepIsShownOnTheInputScreenToo) {
    Integer step = 3;
    Step(stage, step);
    EXPECT_EQ(platform::Screens::Get("frm_Inputnew").Text("txt_Thetazero").Text.Get(), "270.0");
}

TEST_F(Engine, AnAngleStepBeyondTheLastBecomesTheFirst) {
    Integer step = 5;
    Step(stage, step);
    EXPECT_EQ(step, 0);
    EXPECT_EQ(platform::Screens::Get("frm_Inputnew").Text("txt_Thetazero").Text.Get(), "0.0");
}

TEST_F(Engine, SteppingByAngleGoesThroughTheRunAndWraps) {
    Model.RunTable.Theta(5, 0) = 77;  // left from a longer run
    bool lock = false;
    for (const char* angle : {"0.0", "90.0", "180.0", "270.0", "360.0", "0.0", "90.0"}) {
        Step_Setup(stage, lock);
        EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), angle);
    }
    EXPECT_TRUE(lock);
    EXPECT_EQ(Model.CurrentStep, 2);
    EXPECT_EQ(stage.hsc_step.Value(), 1);
    EXPECT_EQ(stage.hsc_step.Max(), 4);
    EXPECT_EQ(Model.RedrawFlag, "Y");
}

TEST_F(Engine, SteppingByTimeMovesTheBarWithThePicture) {
    By_Time(0, 0.3, 0.1);
    bool lock = false;
    Model.CurrentStep = 3;
    Step_Setup(stage, lock);
    EXPECT_EQ(stage.hsc_step.Value(), 3);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "0.30");
    Step_Setup(stage, lock);
    EXPECT_EQ(stage.hsc_step.Value(), 0);
    EXPECT_EQ(Model.CurrentStep, 1);
}

TEST_F(Engine, SteppingACamDrivenRunDrawsItsPositions) {
    By_Cam(3, 30);
    bool lock = false;
    Step_Setup(stage, lock);
    EXPECT_FALSE(Take().empty());
    EXPECT_EQ(Model.CurrentStep, 1);
}

TEST_F(Engine, SteppingOnePositionDrawsNothing) {
    Model.Calctype = 1;
    Model.CurrentStep = 4;
    bool lock = false;
    Step_Setup(stage, lock);
    EXPECT_EQ(Model.CurrentStep, 0);
    EXPECT_EQ(Take(), Rows{});
    EXPECT_TRUE(lock);
}

TEST_F(Engine, SteppingALinkDrivenRunCountsAndDrawsNothing) {
    Model.Calctype = 5;
    bool lock = false;
    for (int count = 1; count <= 7; ++count) {
        Step_Setup(stage, lock);
        EXPECT_EQ(Model.CurrentStep, count);
    }
    EXPECT_EQ(Take(), Rows{});
    EXPECT_EQ(stage.hsc_step.Value(), 0);
}

TEST_F(Engine, AfterAResetTheNextStepIsTheSecond) {
    bool lock = false;
    Step_Setup(stage, lock);
    Step_Setup(stage, lock);
    Step_Reset(stage);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "0.0");
    EXPECT_EQ(stage.hsc_step.Value(), 0);
    EXPECT_EQ(Model.CurrentStep, 1);
    Step_Setup(stage, lock);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "90.0");
}

}  // namespace
}  // namespace verlink::test
