// Preparing and playing the animation, on a bare screen.
#include "tests/animation/engine.h"

#include <algorithm>
#include <chrono>

#include "core/numeric.h"
#include "core/text.h"

namespace verlink::test {
namespace {

TEST_F(Engine, TheSurfaceIsPreparedInOrder) {
    Model.RedrawFlag = "N";
    Animate_Setup(stage);
    const Rows rows = Take();
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0], "Cls");
    const double lower = Model.AnimMin;
    const double upper = Model.AnimMax;
    Expect_Rows({rows[1]}, {Row("Scale", {lower, lower, upper, upper})});
    EXPECT_EQ(rows[2], "DrawMode 13");
    EXPECT_EQ(rows[3], "BackColor FFFFFF");
    EXPECT_FLOAT_EQ(Model.FlipSum, Model.AnimMin + Model.AnimMax);
}

TEST_F(Engine, ASingleStepIsClearedByTheBackColourAlone) {
    Model.RedrawFlag = "Y";
    Animate_Setup(stage);
    EXPECT_EQ(Take().size(), 3U);
}

TEST_F(Engine, RadiiAndColoursComeFromTheWindow) {
    stage.chk_autoscale.Value = false;
    Model.AnimMax = -200;
    Model.AnimMin = -300;
    Model.ColorMagenta = Model.ColorBlue = Model.ColorWhite = 0x123456;
    for (platform::Color* color : {&Model.LinkColor, &Model.DrawColor, &Model.PenColor, &Model.PivotColor,
                                   &Model.TracePinColor, &Model.EraseColor})
        *color = 0x654321;
    Animate_Setup(stage);
    EXPECT_FLOAT_EQ(Model.CentrodeRadius, 1.6F);
    EXPECT_FLOAT_EQ(Model.PinRadius, 3);
    EXPECT_FLOAT_EQ(Model.CouplerPinRadius, 2.4F);
    EXPECT_FLOAT_EQ(Model.PivotRadius, 6);
    EXPECT_FLOAT_EQ(Model.CouplerLineLength, 6);
    EXPECT_EQ(Model.LinkColor, 0xFF00FF);
    EXPECT_EQ(Model.DrawColor, 0xFF00FF);
    EXPECT_EQ(Model.PenColor, 0xFF00FF);
    EXPECT_EQ(Model.PivotColor, 0xFF0000);
    EXPECT_EQ(Model.TracePinColor, 0);
    EXPECT_EQ(Model.EraseColor, 0xFFFFFF);
    EXPECT_EQ(Model.ColorPassStep, 0xFFFFFF - 0xFF00FF);
    EXPECT_EQ(Model.FirstStep, 0);
    EXPECT_EQ(Model.LastStep, 4);
    EXPECT_EQ(Model.StepIncrement, 1);
}

TEST_F(Engine, ThePaletteHasTenColoursWithRedInTheLowByte) {
    Set_Palette();
    const platform::Color held[] = {Model.ColorRed,    Model.ColorGreen, Model.ColorBlue,   Model.ColorBlack,
                                    Model.ColorWhite,  Model.ColorCyan,  Model.ColorYellow, Model.ColorMagenta,
                                    Model.ColorPurple, Model.ColorGray};
    const platform::Color wanted[] = {255,      255 << 8, 255 << 16, 0,        0xFFFFFF,
                                      0xFFFF00, 0x00FFFF, 0xFF00FF,  0x800080, 0x808080};
    for (int i = 0; i < 10; ++i) EXPECT_EQ(held[i], wanted[i]) << i;
}

TEST_F(Engine, WithoutAutoscaleTheLastWindowStaysAndTheZoomDoesNothing) {
    Animate_Setup(stage);
    const double before = Model.AnimMax;
    stage.chk_autoscale.Value = false;
    Model.ZoomFactor = 0.5;
    Animate_Setup(stage);
    EXPECT_EQ(Model.AnimMax, before);
    stage.chk_autoscale.Value = true;
    Animate_Setup(stage);
    EXPECT_FLOAT_EQ(Model.AnimMax, 0.5 * before);
}

TEST_F(Engine, WhileItsWindowIsHeldAScreenKeepsItThoughItWouldFit) {
    Animate_Setup(stage);
    const double before = Model.AnimMax;
    Model.ZoomFactor = 0.5;
    {
        const Held_Window outer(stage);
        {
            const Held_Window inner(stage);
            Animate_Setup(stage);
            EXPECT_EQ(Model.AnimMax, before);
        }
        Animate_Setup(stage);
        EXPECT_EQ(Model.AnimMax, before) << "the outer one holds it still";
    }
    {
        Stage other;
        const Held_Window of_another(other);
        Animate_Setup(stage);
        EXPECT_FLOAT_EQ(Model.AnimMax, 0.5 * before);
    }
    stage.chk_autoscale.Value = false;
    Model.AnimMin = 3;
    Model.AnimMax = 3;
    Animate_Setup(stage);
    EXPECT_FLOAT_EQ(Model.AnimMax, 0.5 * before) << "there was no window to keep";
}

TEST_F(Engine, TheBoxesAreFilledByTheKindOfRun) {
    stage.txt_initial[0].Text = "kept";
    Model.Calctype = 1;
    Animate_Setup(stage);
    EXPECT_EQ(stage.txt_initial[0].Text.Get(), "kept");
    Model.Calctype = 3;
    Animate_Setup(stage);
    EXPECT_EQ(stage.txt_initial[1].Text.Get(), "360");
    for (int mode : {2, 4, 5}) {
        stage.txt_initial[1].Text = "";
        Model.Calctype = mode;
        Animate_Setup(stage);
        EXPECT_EQ(stage.txt_initial[1].Text.Get(), "5") << mode;
    }
    EXPECT_NE(stage.lbl_Header.Caption.Get().find(" Design No. 1"), std::string::npos);
}

TEST_F(Engine, TheLengthsStandBesideEveryRun) {
    struct With_Lengths : Stage {
        platform::ControlArray<platform::TextBox> txt_Linkout{*this, "txt_Linkout", {{0, ""}, {1, ""}}};
    } lengths;
    for (const int mode : {1, 2, 3, 4, 5}) {
        lengths.txt_Linkout[1].Text = "";
        Model.Calctype = mode;
        Animate_Setup(lengths);
        const std::string& shown = lengths.txt_Linkout[1].Text;
        if (mode == 1)
            EXPECT_EQ(shown, "") << "one position leaves the boxes as they are";
        else
            EXPECT_NEAR(std::atof(shown.c_str()), Model.L2, 1e-3) << mode;
    }
}

TEST_F(Engine, ARunDrawsHoldsAndErasesEachPositionAndLeavesTheLast) {
    const Rows rows = Played();
    EXPECT_EQ(rows, Whole_Run());
    EXPECT_EQ(Model.PenColor, Model.ColorMagenta);
    EXPECT_EQ(Model.CurrentStep, 0);
}

TEST_F(Engine, TheCouplerCurveIsDrawnAgainAtEveryFrame) {
    Model.ShowCouplerFlag = "Y";
    const Rows rows = Played();
    EXPECT_EQ(rows, Whole_Run());
    EXPECT_EQ(std::count(rows.begin(), rows.end(), Curve()[0]), 7);
}

TEST_F(Engine, ARunHidesTheReadOut) {
    Animate(stage);
    EXPECT_FALSE(stage.lbl_StepLabel.Visible);
    EXPECT_FALSE(stage.lbl_StepNumber.Visible);
    EXPECT_FALSE(stage.lbl_StepUnit.Visible);
}

TEST_F(Engine, EveryCycleStartsAgainOnAClearSurface) {
    Model.Cycles = 3;
    Rows rows = Played();
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "Cls"), 3);
    const Rows third(rows.begin() + static_cast<long>(rows.size()) / 3 * 2, rows.end());
    const Rows first(rows.begin(), rows.begin() + static_cast<long>(rows.size()) / 3);
    EXPECT_EQ(third, first);
}

TEST_F(Engine, NoCyclesOnlyPrepareTheSurface) {
    for (int cycles : {0, -2}) {
        Model.Cycles = cycles;
        EXPECT_EQ(Played(), Rows{});
    }
    EXPECT_TRUE(desktop.Pauses.empty());
}

TEST_F(Engine, WithNoStepAssembledPivotsAxesAndCurveAreAllThatShows) {
    for (int step = 0; step <= 4; ++step) {
        Model.RunTable.Assembled(step) = false;
        for (int row = 0; row <= 2; ++row)
            Model.RunTable.PointXY(step, row, 0) = Model.RunTable.PointXY(step, row, 1) = 0;
    }
    Model.ShowCouplerFlag = "Y";
    Rows rows = Played();
    Rows expected = Opening();
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
    EXPECT_TRUE(desktop.Pauses.empty());
}

TEST_F(Engine, StepsThatDidNotCloseArePassedOver) {
    Model.RunTable.Assembled(1) = Model.RunTable.Assembled(2) = false;
    Rows rows = Played();
    Rows expected = Opening();
    for (int step : {0, 3, 4}) Append(expected, Frame(step));
    Append(expected, Links(4, Model.ColorMagenta));
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, ARunWhoseLastStepDidNotCloseLeavesNoLinkage) {
    Model.RunTable.Assembled(4) = false;
    Rows rows = Played();
    Rows expected = Opening();
    for (int step : {0, 1, 2, 3}) Append(expected, Frame(step));
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, ACouplerPointAtTheExactOriginEndsTheCycleAtTheLastGoodPosition) {
    Model.RunTable.PointXY(2, 2, 0) = Model.RunTable.PointXY(2, 2, 1) = 0;
    Model.Cycles = 2;
    Rows rows = Played();
    Rows expected;
    for (int cycle = 0; cycle < 2; ++cycle) {
        Append(expected, Opening());
        for (int step : {0, 1}) Append(expected, Frame(step));
        Append(expected, Links(1, Model.ColorMagenta));
        Append(expected, Closing());
    }
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(desktop.Pauses.size(), 4U);
}

TEST_F(Engine, ACouplerPointOnOneOfTheAxesIsAPositionLikeAnyOther) {
    Model.RunTable.PointXY(1, 2, 0) = 0;
    Model.RunTable.PointXY(3, 2, 1) = 0;
    Model.ShowCouplerFlag = "Y";
    const Rows rows = Played();
    EXPECT_EQ(rows, Whole_Run());
    EXPECT_EQ(desktop.Pauses.size(), 5U);
}

TEST_F(Engine, AtStepZeroTheExactOriginLeavesNothing) {
    Model.RunTable.PointXY(0, 2, 0) = Model.RunTable.PointXY(0, 2, 1) = 0;
    Rows rows = Played();
    Rows expected = Opening();
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, ATraceErasesNothingAndHasBlackPins) {
    Model.TraceFlag = "Y";
    Rows rows = Played();
    for (const auto& row : rows) EXPECT_EQ(row.find("FFFFFF"), std::string::npos) << row;
    Rows expected = Opening();
    for (int step = 0; step <= 4; ++step) {
        for (int pass = 0; pass < 2; ++pass) Append(expected, Links(step, Model.ColorMagenta));
        Append(expected, Pivots());
    }
    Append(expected, Links(4, Model.ColorMagenta));
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
}

TEST_F(Engine, HiddenLinksWithoutACurveLeavePivotsAxesAndCentrodes) {
    Model.HideLinksFlag = "Y";
    Model.ShowCentrodesFlag = "Y";
    Rows rows = Played();
    Rows expected = Opening();
    std::size_t circles = 0;
    for (int step = 0; step <= 4; ++step) {
        const Rows centrodes = Drawn([&] { PlotCentrodeCircles(step, stage); });
        circles += centrodes.size();
        Append(expected, centrodes);
        Append(expected, Pivots());
    }
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
    EXPECT_GT(circles, 0U);
}

TEST_F(Engine, EachFrameIsHeldForTheWaitTimesTheDelay) {
    Animate(stage);
    ASSERT_EQ(desktop.Pauses.size(), 5U);
    for (const auto pause : desktop.Pauses) EXPECT_EQ(pause, std::chrono::nanoseconds(16383000));
}

TEST_F(Engine, AWaitOfZeroIsNoDelayAtAll) {
    Model.AnimateWait = 0;
    Animate(stage);
    EXPECT_EQ(desktop.Pauses.at(0), std::chrono::nanoseconds(0));
}

TEST_F(Engine, ANegativeCountOfTurnsIsNoDelay) {
    Model.AnimateWait = -5;
    Animate(stage);
    EXPECT_EQ(desktop.Pauses.at(0), std::chrono::nanoseconds(0));
}

TEST_F(Engine, NoFrameIsHeldForMoreThanAQuarterOfASecond) {
    Model.AnimateDelay = 32767;
    for (const auto& [wait, milliseconds] : {std::pair{76, 249.0292}, {77, 250.0}, {500, 250.0}, {32767, 250.0}}) {
        Model.AnimateWait = wait;
        desktop.Pauses.clear();
        Animate(stage);
        ASSERT_EQ(desktop.Pauses.size(), 5U);
        for (const auto pause : desktop.Pauses)
            EXPECT_EQ(std::chrono::duration<double>(pause).count(), milliseconds / 1000) << wait;
    }
}

TEST_F(Engine, ADelayTooLongToCountEndsEachFrameWithAnOverflowThatIsToldOnce) {
    By_Angle(0, 90, 90);
    Model.AnimateWait = 32767;
    Model.AnimateDelay = 65600;
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Drawone\r\n\r\nIt has occurred 2 times in this run.",
                           platform::Answer::kOk, platform::Icon::kInformation);
    Animate(stage);
}

TEST_F(Engine, AStoppedRunLeavesTheFrameThatWasOnShow) {
    Model.ShowCouplerFlag = "Y";
    Model.Cycles = 32767;
    desktop.StopAtPause = 3;
    Rows rows = Played();
    Rows expected = Opening();
    for (int step : {0, 1, 2}) Append(expected, Frame(step));
    Append(expected, Links(2, Model.ColorMagenta));
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(desktop.Pauses.size(), 3U);
    EXPECT_EQ(Model.PenColor, Model.ColorMagenta);
}

TEST_F(Engine, ARunStoppedInALaterCycleEndsThere) {
    Model.Cycles = 5;
    desktop.StopAtPause = 6;
    Rows rows = Played();
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "Cls"), 2);
    EXPECT_EQ(desktop.Pauses.size(), 6U);
    Animate(stage);
    EXPECT_EQ(desktop.Pauses.size(), 31U) << "the next run plays to its end";
}

TEST_F(Engine, SteppingGoesOnFromWhereARunWasStopped) {
    desktop.StopAtPause = 3;
    Animate(stage);
    EXPECT_EQ(Model.CurrentStep, 3);
    bool lock = false;
    Step_Setup(stage, lock);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "270.0");
    EXPECT_EQ(stage.hsc_step.Value(), 3);
    Step_Reset(stage);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "0.0");
}

TEST_F(Engine, ARunStoppedAtItsLastFrameHasThatOnce) {
    desktop.StopAtPause = 5;
    const Rows rows = Played();
    EXPECT_EQ(rows, Whole_Run());
    bool lock = false;
    Step_Setup(stage, lock);
    EXPECT_EQ(stage.lbl_StepNumber.Caption.Get(), "0.0");
}

TEST_F(Engine, ARunThatShowsNothingDoesNotRepeatIt) {
    for (int step = 0; step <= 4; ++step) Model.RunTable.Assembled(step) = false;
    Model.Cycles = 32767;
    Rows rows = Played();
    Rows expected = Opening();
    Append(expected, Closing());
    EXPECT_EQ(rows, expected);
    Model.RunTable.Assembled(0) = true;
    Model.RunTable.PointXY(0, 2, 0) = Model.RunTable.PointXY(0, 2, 1) = 0;
    EXPECT_EQ(Played(), expected);
}

TEST_F(Engine, NothingOfTheModelsGeometryOrTableIsChanged) {
    const auto sum = [] {
        double total = Model.L1 + Model.L2 + Model.L3 + Model.L4 + Model.Rpa + Model.Delta + Model.Link1Angle;
        for (int step = 0; step <= 4; ++step)
            for (int row = 0; row < 4; ++row)
                total += (step + 1) * (row + 3) *
                         (Model.RunTable.PointXY(step, row, 0) + 2 * Model.RunTable.PointXY(step, row, 1));
        return total;
    };
    const double before = sum();
    Model.ShowCouplerFlag = Model.ShowCentrodesFlag = "Y";
    Animate(stage);
    Step_Reset(stage);
    EXPECT_EQ(sum(), before);
}

}  // namespace
}  // namespace verlink::test
