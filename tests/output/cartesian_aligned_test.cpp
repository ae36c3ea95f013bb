// Plots in aligned windows: curves, numbers along the axes, and windows that fail.
#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "output/cartesian.h"
#include "screens/frm_myplot3.h"
#include "tests/output/plotting.h"

namespace verlink::test {

namespace {

class CartesianAligned : public Plotting {
   protected:
    CartesianAligned() {
        Turn_Ground(20);
        By_Angle(0, 360, 10);
    }
    /// Fills row 1 of `Theta`, which is read as "Theta3", with a wave of that height.
    static void Wave(double height) {
        for (int i = 0; i <= Model.NSteps; ++i)
            Model.RunTable.Theta(i, 1) = i == 9 ? height : i == 27 ? -height / 2 : 0;
    }
    std::string Text_At(const char* name, int window = 0) { return Caption(form, name, window); }
    static std::string Capacity(const std::string& name) {
        return "The magnitude of " + name + " exceeds the capacity of this window.\r\n" +
               "Switch to the 'Annotated' style of plot instead of the 'Aligned' style,\r\n" +
               "or use a plot type with a larger window to see this function.";
    }
    /// The end points of the curve's segments.
    std::vector<std::pair<double, double>> Curve(int window) {
        std::vector<std::pair<double, double>> points;
        for (const auto& primitive : form.pct_Plot[window].Drawing().Primitives())
            if (primitive.alive && primitive.color == Model.ColorBlue &&
                primitive.kind == platform::Picture::Primitive::Kind::kSegment)
                points.emplace_back(primitive.x2, primitive.y2);
        return points;
    }

    /// The curve goes over the angles of the run, within the window, with the value of each step.
    void Expect_Along_The_Axis(double first, double stride) {
        Choose(1, "Omega4", "Mag");
        MyPlot(form, chosen, 2);
        const auto curve = Curve(0);
        ASSERT_EQ(curve.size(), static_cast<std::size_t>(Model.NSteps + 1));
        const double one = form.pct_Plot[0].Drawing().Left(), other = form.pct_Plot[0].Drawing().Right();
        const double left = std::min(one, other), right = std::max(one, other);
        for (int i = 0; i <= Model.NSteps; ++i) {
            const auto point = static_cast<std::size_t>(i);
            EXPECT_NEAR(curve[point].first, first + i * stride, 1e-3) << i;
            EXPECT_EQ(curve[point].second, Model.RunTable.Omega(i, 2)) << i;
            EXPECT_TRUE(left < curve[point].first && curve[point].first < right) << i;
        }
    }

    frm_MyPlot3 form;
};

}  // namespace

TEST_F(CartesianAligned, TheSetUpGivesTitlesPanelsAndCoordinates) {
    Model.CoordSystem = 2;
    MyPlotSetup(form, 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Text_At("pnl_BottomTitle", i), "Crank Angle (Deg)");
    EXPECT_EQ(Caption(form, "lbl_Coord"), "Local Rotating");
    EXPECT_EQ(Text_At("lbl_Initial", 1), "Min Theta");
    EXPECT_NE(Caption(form, "lbl_Header").find("Design No. "), std::string::npos);
    EXPECT_TRUE(form.Summary.fra_Initial.Visible);
    Model.Calctype = 4;
    MyPlotSetup(form, 2);
    EXPECT_EQ(Text_At("pnl_BottomTitle", 0), "Time (Sec)");
    EXPECT_EQ(Text_At("pnl_BottomTitle", 2), "Crank Angle (Deg)");
    EXPECT_EQ(Text_At("lbl_Initial", 1), "Start Time");
    EXPECT_FALSE(form.Summary.fra_Initial.Visible);
}

TEST_F(CartesianAligned, TheCurveJoinsTheValuesOverTheCrankAngle) {
    Choose(1, "Veloc CP", "X");
    Choose(2, "Accel CP", "Mag");
    MyPlot(form, chosen, 2);
    const auto velocity = Curve(0);
    const auto acceleration = Curve(1);
    // The piece from the first point to itself is one of them.
    ASSERT_EQ(velocity.size(), 37U);
    ASSERT_EQ(acceleration.size(), 37U);
    for (int i = 0; i <= 36; ++i) {
        const auto point = static_cast<std::size_t>(i);
        EXPECT_NEAR(velocity[point].first, 10 * i, 1e-4);
        EXPECT_NEAR(velocity[point].second, Velocity(i).x, 1e-4);
        EXPECT_NEAR(acceleration[point].second, Acceleration(i).Mag(), 1e-3);
    }
    EXPECT_EQ(Text_At("pnl_LeftTitle", 0), "Veloc CP");
    EXPECT_EQ(Text_At("pnl_Comp", 0), "X");
    EXPECT_EQ(Text_At("pnl_PlotUnits", 0), Model.UnitLabel(Model.FuncGroup(1)));
    EXPECT_EQ(Text_At("pnl_LeftTitle", 1), "Accel CP");
    EXPECT_EQ(Text_At("pnl_Comp", 1), "Mag");
    EXPECT_EQ(Model.PlotSlot, 2);
}

TEST_F(CartesianAligned, TheWindowIsSymmetricAboutZero) {
    Choose(1, "Accel CP", "Mag");
    MyPlot(form, chosen, 4);
    double most = 0, least = 1e9;
    for (int i = 0; i <= 36; ++i) {
        most = std::max(most, Acceleration(i).Mag());
        least = std::min(least, Acceleration(i).Mag());
    }
    ASSERT_GT(least, 0);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(most, 0));
    EXPECT_EQ(Text_At("pnl_Ymin"), FNRoundStr(-most, 0));
    EXPECT_EQ(Text_At("lbl_Max"), FNRoundStr(most, 0));
    EXPECT_EQ(Text_At("lbl_Min"), FNRoundStr(least, 0));
    EXPECT_EQ(Text_At("lbl_Peak"), FNRoundStr(most - least, 0));
    EXPECT_NEAR(form.pct_Plot[0].Drawing().Top(), 1.15 * most, 0.01);
    EXPECT_NEAR(form.pct_Plot[0].Drawing().Bottom(), -1.7 * most, 0.01);
}

TEST_F(CartesianAligned, TheWindowHoldsTheFirstAndTheLastValueToo) {
    Choose(1, "Theta3", "Mag");
    for (const int step : {0, 36}) {
        Wave(1);
        Model.RunTable.Theta(step, 1) = -200;
        MyPlot(form, chosen, 2);
        EXPECT_EQ(Text_At("pnl_Ymax"), "200.") << step;
        EXPECT_EQ(Text_At("lbl_Min"), "-200.") << step;
        EXPECT_EQ(Text_At("lbl_Max"), "1.") << step;
    }
}

TEST_F(CartesianAligned, AnAngleComponentIsInDegrees) {
    Choose(1, "Veloc CP", "Ang");
    Choose(2, "Veloc CP", "Mag");
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_PlotUnits", 0), "Deg");
    EXPECT_EQ(Text_At("pnl_PlotUnits", 1), Model.UnitLabel(Model.FuncGroup(2)));
}

TEST_F(CartesianAligned, TheXAxisIsMarkedAtItsQuarters) {
    By_Angle(45, 405, 10);
    Choose(1, "Theta4", "Mag");
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Xmin"), FNRoundStr(45, 0));
    EXPECT_EQ(Text_At("pnl_X1"), FNRoundStr(135, 0));
    EXPECT_EQ(Text_At("pnl_X2"), FNRoundStr(225, 0));
    EXPECT_EQ(Text_At("pnl_X3"), FNRoundStr(315, 0));
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(405, 0));
}

TEST_F(CartesianAligned, ARunWithNegativeOmega2HasItsXLabelsFromThetaEndToThetaStart) {
    Model.Omega2 = -10;
    Model.ThetaStart = 360;
    Model.ThetaEnd = 0;
    Choose(1, "Theta4", "Mag");
    MyPlot(form, chosen, 2);
    EXPECT_FALSE(Model.WindowFailed);
    EXPECT_EQ(Text_At("pnl_Xmin"), FNRoundStr(0, 0));
    EXPECT_EQ(Text_At("pnl_X1"), FNRoundStr(90, 0));
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(360, 0));
    EXPECT_NEAR(form.pct_Plot[0].Drawing().Left(), -57.6, 1e-3);
}

TEST_F(CartesianAligned, TheCurveOfARunToTheZeroAngleEndsThere) {
    Model.Omega2Input = -10;
    By_Angle(0, 360, 10);
    ASSERT_EQ(Model.Omega2, -10.0);
    Expect_Along_The_Axis(360, -10);
    EXPECT_EQ(Text_At("pnl_Xmin"), FNRoundStr(360, 0));
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(0, 0));
}

TEST_F(CartesianAligned, WrappedAnglesStandWhereTheRunHasThem) {
    for (const char* mode : {"180", "abs"}) {
        SCOPED_TRACE(mode);
        Model.ModuloMode = mode;
        Model.Omega2Input = 10;
        By_Angle(0, 360, 10);
        Expect_Along_The_Axis(0, 10);
        By_Angle(-90, 270, 10);
        Expect_Along_The_Axis(-90, 10);
        By_Angle(90, 810, 20);
        Expect_Along_The_Axis(90, 20);
        Model.Omega2Input = -10;
        By_Angle(-90, 270, 10);
        Expect_Along_The_Axis(270, -10);
    }
}

TEST_F(CartesianAligned, AStepThatOvershotStandsAtTheEndOfTheAxis) {
    Model.ModuloMode = "180";
    By_Angle(10, 305, 30);
    Choose(1, "Theta4", "Mag");
    MyPlot(form, chosen, 2);
    ASSERT_EQ(Curve(0).size(), 11U);
    EXPECT_NEAR(Curve(0).back().first, 305, 1e-3);
    EXPECT_NEAR(Curve(0)[9].first, 280, 1e-3);
}

TEST_F(CartesianAligned, PositionsThatDoNotCloseStandAtTheirAnglesAsWell) {
    Model.L2 = 2.4;
    LoadLinkArray();
    By_Angle(0, 360, 10);
    ASSERT_TRUE(Model.NoConnectSeen);
    ASSERT_TRUE(Model.RunTable.Assembled(0));
    Expect_Along_The_Axis(0, 10);
    // Such a position may hold its angle in another frame.
    Model.RunTable.Assembled(7) = false;
    Model.RunTable.Theta(7, 0) = 50;
    Expect_Along_The_Axis(0, 10);
}

TEST_F(CartesianAligned, ASlowCrankGoesItsWayAsAFastOneDoes) {
    Model.Omega2Input = 0.5;
    By_Angle(0, 360, 10);
    Expect_Along_The_Axis(0, 10);
}

TEST_F(CartesianAligned, TheAxisRunsBackwardsForACrankThatDoesAndForNoOther) {
    Choose(1, "Theta4", "Mag");
    for (const double speed : {-0.5, 0.5, 0.0}) {
        Model.Omega2Input = Model.Omega2 = speed;
        MyPlot(form, chosen, 2);
        const auto& window = form.pct_Plot[0].Drawing();
        EXPECT_EQ(window.Left() > window.Right(), speed < 0) << speed;
    }
}

TEST_F(CartesianAligned, ACrankAtRestStandsAtOneAngle) {
    Model.Omega2Input = 0;
    By_Angle(0, 360, 10);
    for (const int open : {2, 30}) Model.RunTable.Assembled(open) = false;
    Choose(1, "Theta4", "Mag");
    MyPlot(form, chosen, 2);
    for (const auto& [x, y] : Curve(0)) EXPECT_NEAR(x, 360, 1e-3);
}

TEST_F(CartesianAligned, TheXAxisOfATimeRunIsTimeAndTheCurveStillStandsByAngle) {
    By_Time(0, 1, 0.1);
    Choose(1, "Omega3", "Mag");
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Xmin"), FNRoundStr(0, 0));
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(1, 0));
    const auto curve = Curve(0);
    EXPECT_EQ(curve.back().first, Model.RunTable.Theta(10, 0));
}

TEST_F(CartesianAligned, AWindowOfExactlyAHundredHasNoDecimalsAndOneBelowItHasOne) {
    Choose(1, "Theta3", "Mag");
    Wave(100);
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Ymax"), "100.");
    EXPECT_EQ(Text_At("pnl_Ymin"), "-100.");
    EXPECT_EQ(Text_At("lbl_Peak"), "150.");
    Wave(99.9);
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(99.9, 1));
    EXPECT_NE(Text_At("pnl_Ymax").find("99.9"), std::string::npos);
    Wave(9.875);
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(9.875, 2));
    Wave(0.5);
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(0.5, 3));
    EXPECT_EQ(Text_At("lbl_Min"), FNRoundStr(-0.25, 3));
}

TEST_F(CartesianAligned, AFunctionThatIsZeroIsALineOnTheAxis) {
    Choose(1, "Theta3", "Mag");
    Wave(0);
    MyPlot(form, chosen, 2);
    EXPECT_FALSE(Model.WindowFailed);
    EXPECT_EQ(Model.PlotYmax, Single(0.0001));
    for (const auto& [x, y] : Curve(0)) EXPECT_EQ(y, 0);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(0.0001, 3));
    EXPECT_EQ(Text_At("lbl_Peak"), FNRoundStr(0, 3));
}

TEST_F(CartesianAligned, AWindowThatFailsIsToldSkippedAndNumberedAllTheSame) {
    Choose(1, "Theta3", "Mag");
    Choose(2, "Theta4", "Mag");
    Wave(1e-30);
    desktop.Expect_Message(Capacity("Theta3"));
    MyPlot(form, chosen, 2);
    EXPECT_TRUE(Curve(0).empty());
    EXPECT_EQ(form.pct_Plot[0].Drawing().Alive(), 0U);
    EXPECT_EQ(Text_At("pnl_Ymax"), FNRoundStr(1e-30, 3));
    EXPECT_EQ(Text_At("pnl_X2"), FNRoundStr(180, 0));
    EXPECT_EQ(Text_At("lbl_Max"), FNRoundStr(1e-30, 3));
    // The next window is drawn.
    EXPECT_EQ(Curve(1).size(), 37U);
    EXPECT_EQ(Text_At("pnl_LeftTitle", 1), "Theta4");
}

TEST_F(CartesianAligned, ASpanOfNothingFailsInEveryWindow) {
    Model.ThetaEnd = Model.ThetaStart;
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Theta4", "Mag");
    for (int slot = 1; slot <= 4; ++slot) desktop.Expect_Message(Capacity("Theta4"));
    MyPlot(form, chosen, 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(form.pct_Plot[i].Drawing().Alive(), 0U);
        EXPECT_EQ(Text_At("pnl_Xmax", i), Text_At("pnl_Xmin", i));
    }
}

TEST_F(CartesianAligned, ATransformHasNoUnitAndAnAxisOfHarmonics) {
    Model.Harmonics = 12;
    for (int j = 0; j <= 36; ++j) Model.FFTResult(j, 0) = j;
    Choose(1, "Current FFT", "X");
    MyPlotSetup(form, 2);
    MyPlot(form, chosen, 2);
    EXPECT_EQ(Text_At("pnl_PlotUnits"), "");
    EXPECT_EQ(Text_At("pnl_BottomTitle"), "Harmonic Number");
    EXPECT_EQ(Text_At("pnl_Xmax"), FNRoundStr(12, 0));
    EXPECT_EQ(Text_At("pnl_X1"), FNRoundStr(3, 0));
    EXPECT_EQ(Curve(0).size(), 13U);
}

TEST_F(CartesianAligned, TwoWindowsCallByCall) {
    By_Angle(0, 360, 45);
    Choose(1, "Veloc CP", "X");
    Choose(2, "Veloc CP", "Y");
    LogSurface log;
    for (const int i : {0, 1}) form.pct_Plot[i].Redirect(&log);
    MyPlot(form, chosen, 2);
    Expect_Log("plot_two_windows", log);
}

TEST_F(CartesianAligned, FourWindowsCallByCall) {
    By_Angle(0, 360, 45);
    Choose(1, "Theta3", "Mag");
    Choose(2, "Omega3", "Mag");
    Choose(3, "Accel CP", "Ang");
    Choose(4, "Coupler Pt", "Y");
    LogSurface log;
    for (int i = 0; i < 4; ++i) form.pct_Plot[i].Redirect(&log);
    MyPlot(form, chosen, 4);
    Expect_Log("plot_four_windows", log);
}

TEST_F(CartesianAligned, FailuresAreReportedUnderTheNames) {
    platform::Screen bare("frm_Bare");
    desktop.Expect_Message_With("MyPlot");
    MyPlot(form, bare, 2);
    Choose(1, "Theta4", "Mag");
    // Without pictures the window is no window, and the numbers go nowhere.
    desktop.Expect_Message_With("SetWindow");
    desktop.Expect_Message_With("SetWindow");
    MyPlot(bare, chosen, 2);
}

}  // namespace verlink::test
