// Plots on graphs: sets, legends, patterns, labels and titles, beside values worked out here.
#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "output/cartesian.h"
#include "output/transform.h"
#include "platform/graph.h"
#include "screens/summary_panel.h"
#include "tests/output/plotting.h"

namespace verlink::test {

namespace {

using platform::Graph;
using platform::Screen;

struct Graph_Stage : Screen {
    Graph_Stage() : Screen("frm_Graphs") {}
    platform::ControlArray<Graph> grf_Plot{*this, "grf_Plot", {0, 1, 2, 3}};
    platform::CheckBox chk_HGrid{*this, "chk_HGrid"};
    platform::CheckBox chk_VGrid{*this, "chk_VGrid"};
    platform::CheckBox chk_Line{*this, "chk_Line"};
    platform::CheckBox chk_Sticks{*this, "chk_Sticks"};
    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_Header2{*this, "lbl_Header2"};
    platform::Label lbl_Header3{*this, "lbl_Header3"};
    platform::Label lbl_Coord{*this, "lbl_Coord"};
    Summary_Panel Summary{*this};
};

class CartesianGraph : public Plotting {
   protected:
    CartesianGraph() {
        Turn_Ground(20);
        By_Angle(45, 405, 10);
        Model.PlotStyle = 1;
    }
    void Multi() {
        Plot_Setup(stage, 1);
        MultiPlot(stage, chosen);
    }
    void Single_Plots(int windows) {
        Plot_Setup(stage, windows);
        Plot(stage, chosen, windows);
    }
    /// The transform of some vector, as a preset puts it into the slots.
    void Choose_Transform() {
        // The titles ask the transform's screen for its function; making it sets the harmonics.
        platform::Screens::Get("frm_FFT");
        Model.FFTUnitLabel = "in/s";
        Model.Harmonics = 12;
        for (int row = 0; row <= 3; ++row)
            for (int j = 0; j <= Model.NSteps; ++j) Model.FFTResult(j, row) = 100 * row + j;
        const char* components[] = {"X", "Y", "Mag", "Ang"};
        for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Current FFT", components[slot - 1]);
    }
    Graph& At(int i) { return stage.grf_Plot[i]; }
    const std::vector<double>& Values(int graph, int set) {
        return At(graph).Sets().at(static_cast<std::size_t>(set)).values;
    }
    const std::string& Label_At(int graph, int point) { return At(graph).Labels().at(static_cast<std::size_t>(point)); }

    Graph_Stage stage;
};

}  // namespace

TEST_F(CartesianGraph, AngleRunsHaveATickEverySixPointsAndALabelEveryTwelve) {
    Model.PlotCount = 2;
    Plot_Setup(stage, 2);
    for (const int i : {0, 1}) {
        EXPECT_EQ(At(i).TickEvery, 6);
        EXPECT_EQ(At(i).LabelEvery, 12);
        EXPECT_EQ(At(i).BottomTitle, "Crank Angle (Deg)");
        EXPECT_EQ(At(i).NumSets(), 2);
        EXPECT_EQ(At(i).NumPoints(), 37);
    }
    EXPECT_EQ(At(2).BottomTitle, "");
    EXPECT_EQ(At(2).NumPoints(), 0);
    EXPECT_EQ(Caption(stage, "lbl_Initial", 1), "Min Theta");
}

TEST_F(CartesianGraph, TimeRunsHaveATickEveryFivePointsAndALabelEveryTen) {
    for (const int type : {2, 4, 5}) {
        Model.Calctype = type;
        Plot_Setup(stage, 1);
        EXPECT_EQ(At(0).TickEvery, 5);
        EXPECT_EQ(At(0).LabelEvery, 10);
        EXPECT_EQ(At(0).BottomTitle, "Time (Sec)");
        EXPECT_EQ(Caption(stage, "lbl_Initial", 1), "Start Time");
        EXPECT_EQ(stage.Summary.fra_Initial.Visible, type == 2);
    }
}

TEST_F(CartesianGraph, OnePositionIsLabelledWithItsCrankAngle) {
    By_Time(0.25, 1, 0.25);
    Plot_Setup(stage, 1);
    Model.Calctype = 1;
    Model.NSteps = 0;
    Model.RunTable.Theta(0, 0) = 77;
    Choose(1, "Theta3", "Mag");
    Multi();
    EXPECT_EQ(At(0).BottomTitle, "Crank Angle (Deg)");
    EXPECT_EQ(At(0).NumPoints(), 1);
    EXPECT_EQ(Label_At(0, 0), FNRoundStr(77, 0));
    EXPECT_EQ(Values(0, 0).at(0), Model.RunTable.Theta(0, 1));
}

TEST_F(CartesianGraph, TransformsHaveATickForEachHarmonicAndALabelForEverySecond) {
    Choose_Transform();
    Plot_Setup(stage, 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(At(i).TickEvery, 1);
        EXPECT_EQ(At(i).LabelEvery, 2);
        EXPECT_EQ(At(i).BottomTitle, "Harmonic Number");
        EXPECT_EQ(At(i).NumPoints(), 13);
    }
    EXPECT_EQ(Caption(stage, "lbl_Header3").substr(0, 22), "Fourier Transform of  ");
}

TEST_F(CartesianGraph, TheNumberOfSetsStaysForPolarPlotsAndTheTransformScreen) {
    Model.PlotCount = 3;
    for (const int style : {4, 5}) {
        Model.PlotStyle = style;
        Plot_Setup(stage, 1);
        EXPECT_EQ(At(0).NumSets(), 1);
    }
    Model.PlotStyle = 3;
    Plot_Setup(stage, 1);
    EXPECT_EQ(At(0).NumSets(), 3);
}

TEST_F(CartesianGraph, HeaderLinesCoordinatesAndFonts) {
    Model.CoordSystem = 2;
    stage.chk_VGrid.Value = true;
    stage.chk_Sticks.Value = true;
    Plot_Setup(stage, 1);
    EXPECT_EQ(Caption(stage, "lbl_Header2"), "Selected Linkage Parameters");
    EXPECT_EQ(Caption(stage, "lbl_Header3"), "");
    EXPECT_NE(Caption(stage, "lbl_Header").find("Design No. "), std::string::npos);
    EXPECT_EQ(Caption(stage, "lbl_Coord"), "Local Rotating");
    EXPECT_TRUE(stage.Summary.fra_Initial.Visible);
    EXPECT_EQ(At(0).GridStyle, 2);
    EXPECT_EQ(At(0).GraphStyle, 2);
    EXPECT_EQ(At(0).FontUse, 0);
    EXPECT_EQ(At(0).FontSize, 90);
    EXPECT_EQ(At(0).TextFont().size, 90);
    EXPECT_EQ(At(0).TitleFont().size, 90);
    EXPECT_EQ(At(0).FontStyle, 2);
    EXPECT_EQ(At(0).FontFamily, 1);
    Model.CoordSystem = 0;
    Plot_Setup(stage, 1);
    EXPECT_EQ(Caption(stage, "lbl_Coord"), "Global");
}

TEST_F(CartesianGraph, FourFunctionsInOneGraphEachWithItsPatternAndLegend) {
    Choose(1, "Veloc CP", "X");
    Choose(2, "Veloc CP", "Mag");
    Choose(3, "Accel CP", "Y");
    Choose(4, "Theta3", "Mag");
    Multi();
    ASSERT_EQ(At(0).NumSets(), 4);
    ASSERT_EQ(At(0).NumPoints(), 37);
    EXPECT_EQ(At(0).PatternedLines, 1);
    const std::array<std::string, 4> names{"Veloc CP X ", "Veloc CP Mag ", "Accel CP Y ", "Theta3 Mag "};
    for (std::size_t set = 0; set < 4; ++set) {
        EXPECT_EQ(At(0).Sets()[set].pattern, static_cast<int>(set));
        EXPECT_EQ(At(0).Sets()[set].legend, names[set] + Model.UnitLabel(Model.FuncGroup(static_cast<int>(set) + 1)));
    }
    EXPECT_EQ(At(0).Sets()[3].legend, "Theta3 Mag degrees");
    for (int i = 0; i <= 36; ++i) {
        const auto point = static_cast<std::size_t>(i);
        EXPECT_NEAR(Values(0, 0)[point], Velocity(i).x, 1e-4);
        EXPECT_NEAR(Values(0, 1)[point], Velocity(i).Mag(), 1e-4);
        EXPECT_NEAR(Values(0, 2)[point], Acceleration(i).y, 1e-3);
        EXPECT_EQ(Values(0, 3)[point], Model.RunTable.Theta(i, 1));
        EXPECT_EQ(Label_At(0, i), FNRoundStr(45 + 10 * i, 0));
    }
    EXPECT_EQ(At(0).Drawings(), 1);
    EXPECT_EQ(Model.PlotSlot, 4);
}

TEST_F(CartesianGraph, FewerFunctionsLeaveNoSetBehind) {
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Theta2", "Mag");
    Multi();
    Model.PlotCount = 2;
    Multi();
    EXPECT_EQ(At(0).NumSets(), 2);
}

TEST_F(CartesianGraph, InLocalCoordinatesEachFunctionIsTurnedByTheLinkOfItsOwnSlot) {
    Model.CoordSystem = 2;
    Choose(1, "Veloc I 2,3", "X");  // by link 2
    Choose(2, "Veloc I 3,4", "X");  // by link 4
    Choose(3, "Veloc CP", "Y");     // by link 3
    Multi();
    const auto& v = Model.RunTable.VelXY;
    const auto& Theta = Model.RunTable.Theta;
    for (int i = 0; i <= 36; ++i) {
        const auto point = static_cast<std::size_t>(i);
        const auto local = [&](int row, int link) {
            return Plane_Vector{v(i, row, 0), v(i, row, 1)}.Turned(Model.Link1Angle - Theta(i, link));
        };
        EXPECT_NEAR(Values(0, 0)[point], local(0, 0).x, 2e-4);
        EXPECT_NEAR(Values(0, 1)[point], local(1, 2).x, 2e-4);
        EXPECT_NEAR(Values(0, 2)[point], local(2, 1).y, 2e-4);
    }
    const auto together = At(0).Sets();
    Single_Plots(3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Values(i, 0), together[static_cast<std::size_t>(i)].values);
}

TEST_F(CartesianGraph, TimeAndDrivenRunsAreLabelledWithTimes) {
    By_Time(0.5, 1, 0.05);
    Choose(1, "Omega3", "Mag");
    for (const int type : {2, 4, 5}) {
        Model.Calctype = type;
        Multi();
        ASSERT_EQ(At(0).NumPoints(), 11);
        for (int i = 0; i <= 10; ++i) {
            EXPECT_EQ(Label_At(0, i), FNRoundStr(0.5 + 0.05 * i, 2));
            EXPECT_EQ(Values(0, 0)[static_cast<std::size_t>(i)], Model.RunTable.Omega(i, 1));
        }
    }
}

TEST_F(CartesianGraph, AnAngleComponentHasDegreesBesideIt) {
    Choose(1, "Veloc CP", "Ang");
    Choose(2, "Accel CP", "Ang");
    Multi();
    EXPECT_EQ(At(0).Sets()[0].legend, "Veloc CP Ang Deg");
    Single_Plots(2);
    EXPECT_EQ(At(0).GraphTitle, "Veloc CP  (Deg)");
    EXPECT_EQ(At(1).GraphTitle, "Accel CP  (Deg)");
    for (int i = 0; i <= 36; ++i) EXPECT_NEAR(Values(0, 0)[static_cast<std::size_t>(i)], Velocity(i).Ang(), 1e-3);
}

TEST_F(CartesianGraph, OneFunctionInEachGraph) {
    Model.PlotStyle = 2;
    Choose(1, "Veloc CP", "Y");
    Choose(2, "Theta4", "Mag");
    At(1).ThickLines = 1;
    Plot_Setup(stage, 2);
    At(0).ThisSet = 1;
    At(0).SetPatternData(3);
    At(0).ThisSet = 2;
    Plot(stage, chosen, 2);
    for (const int i : {0, 1}) {
        EXPECT_EQ(At(i).PatternedLines, 1);
        EXPECT_EQ(At(i).Sets()[0].pattern, 0);
        EXPECT_EQ(At(i).ThickLines, 0);
        EXPECT_EQ(At(i).NumPoints(), 37);
        EXPECT_EQ(At(i).Drawings(), 1);
        // There is room for both functions in each, and one is there.
        ASSERT_EQ(At(i).NumSets(), 2);
        for (const double value : Values(i, 0)) EXPECT_TRUE(std::isfinite(value));
        for (const double value : Values(i, 1)) EXPECT_TRUE(std::isnan(value));
    }
    EXPECT_EQ(At(0).GraphTitle, "Veloc CP  (" + Model.UnitLabel(Model.FuncGroup(1)) + ")");
    EXPECT_EQ(At(0).Sets()[0].legend, "Y");
    EXPECT_EQ(At(1).GraphTitle, "Theta4  (" + Model.UnitLabel(Model.FuncGroup(2)) + ")");
    EXPECT_EQ(At(1).Sets()[0].legend, "Mag");
    for (int i = 0; i <= 36; ++i) {
        EXPECT_NEAR(Values(0, 0)[static_cast<std::size_t>(i)], Velocity(i).y, 1e-4);
        EXPECT_EQ(Values(1, 0)[static_cast<std::size_t>(i)], Model.RunTable.Theta(i, 2));
        EXPECT_EQ(Label_At(1, i), FNRoundStr(45 + 10 * i, 0));
    }
}

TEST_F(CartesianGraph, ATransformInItsOwnGraphsHasAPointForEachHarmonic) {
    Choose_Transform();
    Model.PlotStyle = 3;
    Single_Plots(4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(At(i).GraphTitle, i == 3 ? "Current FFT  (Deg)" : "Current FFT  (in/s)");
        ASSERT_EQ(At(i).NumPoints(), 13);
        for (int j = 0; j <= 12; ++j) {
            EXPECT_EQ(Values(i, 0)[static_cast<std::size_t>(j)], 100 * i + j);
            EXPECT_EQ(Label_At(i, j), std::to_string(j));
        }
    }
}

TEST_F(CartesianGraph, ATransformInOneGraphHasItsHarmonicsToo) {
    Choose_Transform();
    Multi();
    ASSERT_EQ(At(0).NumPoints(), 13);
    EXPECT_EQ(Label_At(0, 1), "1");
    EXPECT_EQ(Values(0, 3)[12], 312);
    EXPECT_EQ(At(0).Sets()[2].legend, "Current FFT Mag ");
    EXPECT_EQ(At(0).Sets()[3].legend, "Current FFT Ang Deg");
}

TEST_F(CartesianGraph, ATransformOfATimeRunIsLabelledWithHarmonics) {
    By_Time(0, 1, 0.05);
    Choose_Transform();
    Single_Plots(1);
    EXPECT_EQ(Label_At(0, 3), "3");
    EXPECT_EQ(At(0).BottomTitle, "Harmonic Number");
    EXPECT_EQ(At(0).LabelEvery, 2);
}

TEST_F(CartesianGraph, FailuresAreReportedUnderTheNames) {
    Screen bare("frm_Bare");
    desktop.Expect_Message_With("Plot_Setup");
    Plot_Setup(bare, 1);
    desktop.Expect_Message_With("MultiPlot");
    MultiPlot(bare, chosen);
    desktop.Expect_Message_With("Plot");
    Plot(bare, chosen, 1);
    Choose(1, "Theta2", "Mag");
    Plot_Setup(stage, 1);
    desktop.Expect_Message_With("MultiPlot");
    MultiPlot(stage, bare);
}

TEST_F(CartesianGraph, ARunOfFullCapacityIsPlottedWhole) {
    By_Angle(0, 360, 0.125);
    ASSERT_EQ(Model.NSteps, 2880);
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Accel CP", slot < 3 ? "X" : "Y");
    Multi();
    ASSERT_EQ(At(0).NumPoints(), 2881);
    EXPECT_NEAR(Values(0, 3)[2880], Acceleration(2880).y, 1e-3);
    EXPECT_EQ(Label_At(0, 2880), FNRoundStr(Model.RunTable.Theta(2880, 0), 0));
}

TEST_F(CartesianGraph, TheFourGraphsOfATransformAreSetUpByItsHarmonics) {
    Choose_Transform();
    stage.chk_HGrid.Value = stage.chk_Sticks.Value = true;
    for (const auto& [harmonics, every] : {std::pair{0, 1}, {15, 1}, {16, 2}, {30, 2}, {31, 3}}) {
        Model.Harmonics = harmonics;
        for (int i = 0; i < 4; ++i) At(i).TickEvery = 5;
        FFT_Plot_Setup(stage);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(At(i).NumPoints(), harmonics + 1);
            EXPECT_EQ(At(i).BottomTitle, "Harmonic Number");
            EXPECT_EQ(At(i).TickEvery, 1);
            EXPECT_EQ(At(i).LabelEvery, every) << "at most 16 labels";
            EXPECT_EQ(At(i).GridStyle, 1);
            EXPECT_EQ(At(i).GraphStyle, 2);
        }
    }
    EXPECT_NE(Caption(stage, "lbl_Header").find("Design No. "), std::string::npos);
}

TEST_F(CartesianGraph, TheFourGraphsOfATransformHaveAPartOfItEach) {
    Choose_Transform();
    FFT_Plot_Setup(stage);
    Model.GraphWindows = 4;
    At(2).SetNumSets(2);
    At(2).ThisSet = 2;
    FFT_Plot(stage);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(At(i).Drawings(), 1);
        ASSERT_EQ(Values(i, 0).size(), 13U);
        for (int j = 0; j <= 12; ++j) {
            EXPECT_EQ(Values(i, 0)[static_cast<std::size_t>(j)], 100 * i + j);
            EXPECT_EQ(Label_At(i, j), std::to_string(j));
        }
    }
    EXPECT_EQ(Model.PlotSlot, 4);
    Model.GraphWindows = 2;
    FFT_Plot(stage);
    EXPECT_EQ(At(1).Drawings(), 2);
    EXPECT_EQ(At(2).Drawings(), 1) << "there are two windows";
}

}  // namespace verlink::test
