// How plot windows are scaled and what stands in them, call by call.
#include "output/plot_windows.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "core/linkage_model.h"
#include "platform/graph.h"
#include "tests/support/drawing.h"

namespace verlink::test {

namespace {

using platform::CheckBox;
using platform::ControlArray;
using platform::CRLF;
using platform::Graph;
using platform::PictureBox;
using platform::Screen;

struct Window_Stage : Screen {
    Window_Stage() : Screen("frm_Windows") {}
    ControlArray<PictureBox> pct_Plot{*this, "pct_Plot", {0, 1, 2, 3}};
    ControlArray<Graph> grf_Plot{*this, "grf_Plot", {0, 1, 2, 3}};
    CheckBox chk_HGrid{*this, "chk_HGrid"};
    CheckBox chk_VGrid{*this, "chk_VGrid"};
    CheckBox chk_Line{*this, "chk_Line"};
    CheckBox chk_Sticks{*this, "chk_Sticks"};
};

struct Polar_Stage : Screen {
    Polar_Stage() : Screen("frm_Polar") {}
    PictureBox pct_Plot{*this, "pct_Plot"};
};

const std::string kFirstSentence = "The magnitude of Veloc CP exceeds the capacity of this window.";
const std::string kCapacity = kFirstSentence + CRLF +
                              "Switch to the 'Annotated' style of plot instead of the 'Aligned' style," + CRLF +
                              "or use a plot type with a larger window to see this function.";

class PlotWindows : public Drawing {
   protected:
    PlotWindows() { Model.ColorBlack = 0; }

    void Set_Window(double height, double xmin, double xmax, int windows) {
        ymax = height;
        SetWindow(stage, 1, ymax, xmin, xmax, "Veloc CP", mid, windows);
    }
    platform::Picture& Picture() { return stage.pct_Plot[1].Drawing(); }
    std::vector<std::string>& Calls() {
        stage.pct_Plot[1].Redirect(&log);
        return log.Calls;
    }
    static std::string Black(double x1, double y1, double x2, double y2) { return Row("Line", {x1, y1, x2, y2}, 0); }

    Window_Stage stage;
    Polar_Stage polar;
    LogSurface log;
    Single ymax, mid;
};

}  // namespace

TEST_F(PlotWindows, TwoWindowsHaveFourteenPercentAboveAndFortyBelow) {
    Set_Window(50, 0, 360, 2);
    EXPECT_FALSE(Model.WindowFailed);
    EXPECT_NEAR(Picture().Left(), -57.6, 1e-4);
    EXPECT_NEAR(Picture().Right(), 374.4, 1e-4);
    EXPECT_NEAR(Picture().Top(), 57, 1e-4);
    EXPECT_NEAR(Picture().Bottom(), -70, 1e-4);
    EXPECT_NEAR(mid, -13, 1e-5);
}

TEST_F(PlotWindows, FourWindowsHaveFifteenPercentAboveAndSeventyBelow) {
    Set_Window(50, 45, 405, 4);
    EXPECT_FALSE(Model.WindowFailed);
    EXPECT_NEAR(Picture().Left(), 45 - 0.18 * 360, 1e-4);
    EXPECT_NEAR(Picture().Right(), 405 + 0.04 * 360, 1e-4);
    EXPECT_NEAR(Picture().Top(), 57.5, 1e-4);
    EXPECT_NEAR(Picture().Bottom(), -85, 1e-4);
    EXPECT_NEAR(mid, -27.5, 1e-5);
}

TEST_F(PlotWindows, APlotIsUpright) {
    Set_Window(10, 0, 360, 2);
    EXPECT_GT(Picture().Top(), Picture().Bottom());
    CartesianAxes(stage, 1, ymax, 0, 360);
    ASSERT_EQ(Picture().Primitives().size(), 2U);
    const auto& x_axis = Picture().Primitives()[0];
    EXPECT_EQ(x_axis.y1, 0);
    EXPECT_EQ(x_axis.y2, 0);
}

TEST_F(PlotWindows, SettingAWindowClearsIt) {
    Picture().Line(0, 0, 1, 1, 255);
    Set_Window(10, 0, 360, 2);
    EXPECT_EQ(Picture().Alive(), 0U);
}

TEST_F(PlotWindows, AFunctionThatIsZeroEverywhereGetsAWindowOfATenThousandth) {
    Set_Window(0, 0, 360, 2);
    EXPECT_FALSE(Model.WindowFailed);
    EXPECT_EQ(ymax, Single(0.0001));
    EXPECT_NEAR(Picture().Top(), 0.000114, 1e-10);
}

TEST_F(PlotWindows, XminEqualToXmaxTellsTheCapacity) {
    desktop.Expect_Message(kCapacity, platform::Answer::kOk, platform::Icon::kNone);
    Set_Window(10, 45, 45, 2);
    EXPECT_TRUE(Model.WindowFailed);
}

TEST_F(PlotWindows, AVerySmallMagnitudeTellsTheCapacity) {
    desktop.Expect_Message(kCapacity);
    Set_Window(1e-30, 0, 360, 4);
    EXPECT_TRUE(Model.WindowFailed);
    EXPECT_EQ(ymax, Single(1e-30));
}

TEST_F(PlotWindows, AVeryLargeMagnitudeTellsTheCapacity) {
    desktop.Expect_Message(kCapacity);
    Set_Window(3e38, 0, 360, 2);
    EXPECT_TRUE(Model.WindowFailed);
}

TEST_F(PlotWindows, AnyOtherNumberOfWindowsHasNoBoundsAndTellsTheCapacity) {
    desktop.Expect_Message(kCapacity);
    Set_Window(10, 0, 360, 1);
    EXPECT_TRUE(Model.WindowFailed);
}

TEST_F(PlotWindows, TheNextWindowIsNoFailureAnyMore) {
    desktop.Expect_Message(kCapacity);
    Set_Window(10, 45, 45, 2);
    Set_Window(10, 0, 360, 2);
    EXPECT_FALSE(Model.WindowFailed);
    desktop.Expect_Message(kFirstSentence);
    ymax = 1e-30;
    SetPolarWindow(polar, 0, ymax, "Veloc CP", mid);
    EXPECT_TRUE(Model.WindowFailed);
    ymax = 1;
    SetPolarWindow(polar, 0, ymax, "Veloc CP", mid);
    EXPECT_FALSE(Model.WindowFailed);
}

TEST_F(PlotWindows, APolarWindowIsWiderThanItsVectorsAndIsNotCleared) {
    platform::Picture& picture = polar.pct_Plot.Drawing();
    picture.Line(0, 0, 1, 1, 255);
    ymax = 20;
    SetPolarWindow(polar, 0, ymax, "Veloc CP", mid);
    EXPECT_EQ(picture.Alive(), 1U);
    // 1.1 and 1.115 are singles.
    EXPECT_EQ(picture.Right(), static_cast<double>(1.1F) * 20);
    EXPECT_EQ(picture.Left(), -picture.Right());
    EXPECT_EQ(picture.Top(), static_cast<double>(1.115F) * 20);
    EXPECT_EQ(picture.Bottom(), -picture.Top());
    EXPECT_EQ(mid, 0);
}

TEST_F(PlotWindows, APolarWindowOfZeroIsATenThousandth) {
    ymax = 0;
    SetPolarWindow(polar, 0, ymax, "Veloc CP", mid);
    EXPECT_EQ(ymax, Single(0.0001));
    EXPECT_FALSE(Model.WindowFailed);
}

TEST_F(PlotWindows, APolarWindowThatFailsTellsTheFirstSentenceAlone) {
    desktop.Expect_Message(kFirstSentence, platform::Answer::kOk, platform::Icon::kNone);
    ymax = 1e-30;
    SetPolarWindow(polar, 0, ymax, "Veloc CP", mid);
    EXPECT_TRUE(Model.WindowFailed);
}

TEST_F(PlotWindows, AScreenWithoutPicturesIsReportedUnderTheName) {
    Screen bare("frm_Bare");
    ymax = 1;
    desktop.Expect_Message_With("SetWindow");
    SetWindow(bare, 0, ymax, 0, 360, "Veloc CP", mid, 2);
    EXPECT_TRUE(Model.WindowFailed);
    desktop.Expect_Message_With("SetPolarWindow");
    SetPolarWindow(bare, 0, ymax, "Veloc CP", mid);
    desktop.Expect_Message_With("CartesianAxes");
    CartesianAxes(bare, 0, 1, 0, 360);
}

TEST_F(PlotWindows, AxesInBlack) {
    Calls();
    CartesianAxes(stage, 1, 8, 45, 405);
    Expect_Rows(log.Calls, {Black(45, 0, 405, 0), Black(45, -8, 45, 8)});
    polar.pct_Plot.Redirect(&log);
    log.Calls.clear();
    PolarAxes(polar, 0, 8);
    Expect_Rows(log.Calls, {Black(-8, 0, 8, 0), Black(0, -8, 0, 8)});
}

TEST_F(PlotWindows, XTicsStandEveryTwentyFourthBySinglesAndOneAtTheEndExactly) {
    Calls();
    XticMarks(stage, 1, 10, 0, 360);
    std::vector<std::string> expected;
    const float step = static_cast<float>(360.0F * 0.04166667);
    for (float x = 0; x <= 360.0F; x += step) expected.push_back(Black(x, -0.7, x, 0.7));
    // 24 steps of the literal come out a little beyond the end.
    EXPECT_EQ(expected.size(), 24U);
    expected.push_back(Black(360, -0.7, 360, 0.7));
    Expect_Rows(log.Calls, expected);
}

TEST_F(PlotWindows, XTicsOfABackwardAxisGoBackward) {
    Calls();
    XticMarks(stage, 1, 10, 405, 45);
    std::vector<std::string> expected;
    const float step = static_cast<float>(-360.0F * 0.04166667);
    for (float x = 405; x >= 45.0F; x += step) expected.push_back(Black(x, -0.7, x, 0.7));
    EXPECT_GE(expected.size(), 24U);
    expected.push_back(Black(45, -0.7, 45, 0.7));
    Expect_Rows(log.Calls, expected);
}

TEST_F(PlotWindows, TicsTooCloseToBeCountedBySinglesEnd) {
    Calls();
    XticMarks(stage, 1, 10, 1e8, 1e8 + 8);
    EXPECT_EQ(log.Calls.size(), 2U);
    log.Calls.clear();
    Vertical_lines(stage, 1, 10, 1e8, 1e8 + 8);
    EXPECT_LE(log.Calls.size(), 2U);
}

TEST_F(PlotWindows, TicsWhoseStepIsNothingInSinglesAreNone) {
    Calls();
    YticMarks(stage, 1, std::numeric_limits<float>::denorm_min(), 5, 0, 360);
    EXPECT_TRUE(log.Calls.empty());
}

TEST_F(PlotWindows, YTicsStandEveryFifthAndGoOneBeyondTheTop) {
    Calls();
    YticMarks(stage, 1, 10, 5, 45, 405);
    std::vector<std::string> expected;
    const float f = 0.2F;
    const auto step = static_cast<float>(static_cast<double>(f) * 10);
    const auto last = static_cast<float>((static_cast<double>(f) + 1) * 10);
    for (float y = -10; y <= last; y += step) expected.push_back(Black(41.4, y, 48.6, y));
    EXPECT_GE(expected.size(), 11U);
    Expect_Rows(log.Calls, expected);
}

TEST_F(PlotWindows, PolarTicsStandOnBothAxes) {
    polar.pct_Plot.Redirect(&log);
    PolarTicmarks(polar, 0, 5, 10);
    std::vector<std::string> expected;
    const auto step = static_cast<float>(static_cast<double>(0.1F) * 5);
    for (float s = -5; s <= 5; s += step) {
        expected.push_back(Black(s, -0.05, s, 0.05));
        expected.push_back(Black(-0.05, s, 0.05, s));
    }
    EXPECT_GE(expected.size(), 40U);
    Expect_Rows(log.Calls, expected);
}

TEST_F(PlotWindows, FourQuarterLinesTheLastAtTheEnd) {
    Calls();
    Vertical_lines(stage, 1, 10, 45, 405);
    Expect_Rows(log.Calls, {Black(135, -9.5, 135, 9.5), Black(225, -9.5, 225, 9.5), Black(315, -9.5, 315, 9.5),
                            Black(405, -9.5, 405, 9.5)});
}

TEST_F(PlotWindows, TheLargestMagnitudeMayBeNegative) {
    const std::array<double, 5> values{99, 3, -7, 5, -99};
    const Element arr = [&](int i) { return Single(values.at(static_cast<std::size_t>(i))); };
    CartesianMax(arr, 1, 3, ymax);
    EXPECT_EQ(ymax, 7);
    CartesianMax(arr, 0, 3, ymax);
    EXPECT_EQ(ymax, 99);
    CartesianMax(arr, 3, 3, ymax);
    EXPECT_EQ(ymax, 5);
}

TEST_F(PlotWindows, DecimalsGrowAsTheWindowShrinks) {
    EXPECT_EQ(Decimals_Of(1000), 0);
    EXPECT_EQ(Decimals_Of(100), 0);
    EXPECT_EQ(Decimals_Of(99.9), 1);
    EXPECT_EQ(Decimals_Of(10), 1);
    EXPECT_EQ(Decimals_Of(9.99), 2);
    EXPECT_EQ(Decimals_Of(1), 2);
    EXPECT_EQ(Decimals_Of(0.99), 3);
    EXPECT_EQ(Decimals_Of(0.0001), 3);
}

TEST_F(PlotWindows, GridAndStyleOfGraphsFollowTheBoxes) {
    for (const bool h : {false, true})
        for (const bool v : {false, true})
            for (const bool line : {false, true})
                for (const bool sticks : {false, true}) {
                    stage.chk_HGrid.Value = h;
                    stage.chk_VGrid.Value = v;
                    stage.chk_Line.Value = line;
                    stage.chk_Sticks.Value = sticks;
                    stage.grf_Plot[2].GridStyle = stage.grf_Plot[2].GraphStyle = 77;
                    SetGridstyle(stage, 2);
                    for (const int i : {0, 1}) {
                        const int grid = h && v ? 3 : v ? 2 : h ? 1 : 0;
                        const int style = line && sticks ? 6 : line ? 4 : sticks ? 2 : 0;
                        EXPECT_EQ(stage.grf_Plot[i].GridStyle, grid);
                        EXPECT_EQ(stage.grf_Plot[i].GraphStyle, style);
                    }
                    EXPECT_EQ(stage.grf_Plot[2].GridStyle, 77);
                    EXPECT_EQ(stage.grf_Plot[2].GraphStyle, 77);
                }
}

}  // namespace verlink::test
