// Tables in the grid: its size, titles, rows and statistics.
#include <gtest/gtest.h>

#include "tests/output/table_fixture.h"

namespace verlink::test {

using platform::Grid;

namespace {

struct TablesGrid : Tables {
    /// The texts of one column from row to row.
    static std::vector<std::string> Column(const Grid& grid, int col, int first, int last) {
        std::vector<std::string> texts;
        for (int row = first; row <= last; ++row) texts.push_back(grid.Cell(row, col));
        return texts;
    }
    static std::vector<std::string> Titles(const Grid& grid, int col) { return Column(grid, col, 0, 2); }
    using Texts = std::vector<std::string>;
};

}  // namespace

TEST_F(TablesGrid, Of360StepsBy10Has43RowsWithDataInRows6To42) {
    Fill_Run(360);
    Model.PrintStep = 10;
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Model.GridRows, 43);
    EXPECT_EQ(Model.GridCols, 5);
    ASSERT_EQ(grid.Rows(), 43);
    ASSERT_EQ(grid.Cols(), 5);
    for (int row = 6; row <= 42; ++row) {
        const int step = 10 * (row - 6);
        EXPECT_EQ(grid.Cell(row, 4), std::to_string(100 + step) + ".0");
    }
    EXPECT_EQ(grid.Cell(6, 0), "5.0");
    EXPECT_EQ(grid.Cell(42, 0), "3,605.0");
}

TEST_F(TablesGrid, Of100StepsBy3Has40RowsTheLastOneWithData) {
    Fill_Run(100);
    Model.PrintStep = 3;
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Model.GridRows, 40);
    EXPECT_EQ(grid.Cell(39, 4), "199.0");
    EXPECT_EQ(grid.Cell(38, 4), "196.0");
}

TEST_F(TablesGrid, WithFewerRowsIsBlankedWholeFirst) {
    Fill_Run(20);
    Show_Table();
    Fill_Run(11);
    Model.PrintStep = 3;  // rounds to a row more than there are steps to print
    const Grid& grid = Show_Table().grd_Data;
    ASSERT_EQ(grid.Rows(), 11);
    EXPECT_EQ(Column(grid, 4, 9, 10), (Texts{"109.0", ""}));
    EXPECT_EQ(grid.Row, 11);
}

TEST_F(TablesGrid, WithMoreRowsOrAsManyIsNotBlanked) {
    Fill_Run(4);
    Grid& grid = Show_Table().grd_Data;
    ASSERT_EQ(grid.Rows(), 11);
    grid.Row = 0;
    Fill_Run(11);
    Model.PrintStep = 3;
    Show_Table();
    ASSERT_EQ(grid.Rows(), 11);
    EXPECT_EQ(Column(grid, 4, 9, 10), (Texts{"109.0", "104.0"}));  // the last is of the table before
    Fill_Run(30);
    Show_Table();
    EXPECT_EQ(grid.Row, 0);  // nobody walked over the cells
}

TEST_F(TablesGrid, ClearGridBlanksTheRowsAndColumnsThatItIsGiven) {
    Fill_Run(4);
    const Grid& grid = Show_Table().grd_Data;
    Clear_Grid(7, 2);
    EXPECT_EQ(grid.Cell(6, 1), "");
    EXPECT_EQ(grid.Cell(6, 2), "0.0");
    EXPECT_EQ(grid.Cell(7, 1), "15.0");
}

TEST_F(TablesGrid, ColumnsShareNineteenTwentiethsOfTheWidthLeftAndTheFixedCellsAreCentred) {
    Fill_Run(4);
    auto& table = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));
    table.grd_Data.Width = 10003;  // 9402.82 and then 9402
    Show_Table();
    for (int col = 0; col < 5; ++col) {
        EXPECT_EQ(table.grd_Data.ColWidth(col), 1880);
        EXPECT_EQ(table.grd_Data.ColAlignment(col), 1);
        EXPECT_EQ(table.grd_Data.FixedAlignment(col), 2);
    }
}

TEST_F(TablesGrid, OfAnAngleRunShowsCrankAnglesInDegrees) {
    Fill_Run(2);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Titles(grid, 0), (Texts{"Crank", "Angle", "deg"}));
    EXPECT_EQ(Column(grid, 0, 3, 5), (Texts{"Min", "Avg", "Max"}));
    EXPECT_EQ(Column(grid, 0, 6, 8), (Texts{"5.0", "15.0", "25.0"}));
}

TEST_F(TablesGrid, OfATimeRunShowsTimesInSeconds) {
    Fill_Run(2);
    for (const int calctype : {2, 4, 5}) {
        By_Time(calctype, 0.5, 0.25);
        Model.DecimalPlaces = 2;
        const Grid& grid = Show_Table().grd_Data;
        EXPECT_EQ(Titles(grid, 0), (Texts{"Time", "Step", "sec"})) << calctype;
        EXPECT_EQ(Column(grid, 0, 6, 8), (Texts{"0.50", "0.75", "1.00"})) << calctype;
    }
}

TEST_F(TablesGrid, ColumnsAreTitledByTheSelectionScreenWithTheirUnits) {
    Fill_Run(2);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Titles(grid, 1), (Texts{"Theta2", "Mag", "degrees"}));
    EXPECT_EQ(Titles(grid, 2), (Texts{"Veloc CP", "X", "in/sec"}));
    EXPECT_EQ(Titles(grid, 3), (Texts{"Veloc CP", "Ang", "deg"}));  // the angle of a vector
    EXPECT_EQ(Titles(grid, 4), (Texts{"Omega4", "Mag", "rad/sec"}));
}

TEST_F(TablesGrid, ValuesAreThoseOfTheChosenFunctionsAndComponents) {
    Fill_Run(3);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Column(grid, 1, 6, 9), (Texts{"5.0", "15.0", "25.0", "35.0"}));
    EXPECT_EQ(Column(grid, 2, 6, 9), (Texts{"0.0", "1.0", "2.0", "3.0"}));
    EXPECT_EQ(Column(grid, 3, 7, 9), (Texts{"63.4", "63.4", "63.4"}));  // the arc tangent of 2
    EXPECT_EQ(Column(grid, 4, 6, 9), (Texts{"100.0", "101.0", "102.0", "103.0"}));
}

TEST_F(TablesGrid, DecimalPlacesOfZeroLeaveATrailingPoint) {
    Fill_Run(2);
    Model.DecimalPlaces = 0;
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Column(grid, 0, 6, 8), (Texts{"5.", "15.", "25."}));
    EXPECT_EQ(Column(grid, 4, 3, 5), (Texts{"100.", "101.", "102."}));
}

TEST_F(TablesGrid, StatisticsOfAFullTableAreThoseOfTheColumn) {
    Fill_Run(4);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Column(grid, 1, 3, 5), (Texts{"5.0", "25.0", "45.0"}));
    EXPECT_EQ(Column(grid, 4, 3, 5), (Texts{"100.0", "102.0", "104.0"}));
}

TEST_F(TablesGrid, StatisticsAreThoseOfTheRunHoweverManyStepsArePrinted) {
    Fill_Run(10);
    Model.RunTable.Omega(7, 2) = 130;
    Model.RunTable.Omega(8, 2) = 85;
    for (const int every : {1, 5, 10}) {
        Model.PrintStep = every;
        const Grid& grid = Show_Table().grd_Data;
        EXPECT_EQ(Column(grid, 4, 3, 5), (Texts{"85.0", "105.0", "130.0"})) << every;
        EXPECT_EQ(Column(grid, 1, 3, 5), (Texts{"5.0", "55.0", "105.0"})) << every;
    }
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Column(grid, 4, 6, 7), (Texts{"100.0", "110.0"}));
}

TEST_F(TablesGrid, AConstantIsItsOwnLeastMeanAndLargestValue) {
    Fill_Run(36);
    Choose(4, "Omega2", "Mag");
    for (int i = 0; i <= 36; ++i) Model.RunTable.Omega(i, 0) = 10;
    Model.PrintStep = 10;
    EXPECT_EQ(Column(Show_Table().grd_Data, 4, 3, 5), Texts(3, "10.0"));
    for (int i = 0; i <= 36; ++i) Model.RunTable.Omega(i, 0) = -10;
    EXPECT_EQ(Column(Show_Table().grd_Data, 4, 3, 5), Texts(3, "-10.0"));
}

TEST_F(TablesGrid, TheTipSaysWhoseStatisticsTheyAre) {
    Fill_Run(2);
    EXPECT_NE(Show_Table().grd_Data.Tip.Get().find("of all steps of the run"), std::string::npos);
}

TEST_F(TablesGrid, StatisticsAreMadeForFourFunctionsHoweverManyColumnsThereAre) {
    Fill_Run(2);
    Model.PrintCount = 2;
    const Grid& grid = Show_Table().grd_Data;
    ASSERT_EQ(grid.Cols(), 3);
    EXPECT_EQ(Column(grid, 1, 3, 5), (Texts{"5.0", "15.0", "25.0"}));
    EXPECT_EQ(Column(grid, 2, 3, 5), (Texts{"0.0", "1.0", "2.0"}));
}

TEST_F(TablesGrid, OfATransformHasARowForEachHarmonic) {
    Fill_Run(40);
    Model.Harmonics = 6;
    Model.FFTUnitLabel = "in/sec^2";
    for (int j = 0; j <= 40; ++j)
        for (int row = 0; row <= 3; ++row) Model.FFTResult(j, row) = 10 * j + row;
    const std::array<const char*, 4> components{"X", "Y", "Mag", "Ang"};
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Current FFT", components[static_cast<std::size_t>(slot - 1)]);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(grid.Rows(), 13);
    EXPECT_EQ(Titles(grid, 0), (Texts{"Harmonic", "Number", ""}));
    EXPECT_EQ(Column(grid, 0, 6, 12), (Texts{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(Titles(grid, 3), (Texts{"Current FFT", "Mag", "in/sec^2"}));
    EXPECT_EQ(Titles(grid, 4), (Texts{"Current FFT", "Ang", "deg"}));
    EXPECT_EQ(Column(grid, 2, 3, 5), (Texts{"1.0", "31.0", "61.0"}));
    EXPECT_EQ(grid.Cell(12, 4), "63.0");
}

TEST_F(TablesGrid, OfATransformOfATimeRunShowsHarmonics) {
    Fill_Run(40);
    By_Time(2, 1, 0.5);
    Model.Harmonics = 3;
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Current FFT", "X");
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(Titles(grid, 0), (Texts{"Harmonic", "Number", ""}));
    EXPECT_EQ(Column(grid, 0, 6, 9), (Texts{"0", "1", "2", "3"}));
    auto& table = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));
    EXPECT_TRUE(table.lbl_Header3.Caption.Get().starts_with("Fourier Transform of"));
}

TEST_F(TablesGrid, TheScreenIsCentredWithItsHeadersAndTheDataOfTheLinkage) {
    Fill_Run(2);
    Model.FilePath = "/home/ada/press.vlk";
    frm_PrintData& table = Show_Table();
    EXPECT_EQ(table.lbl_Header.Caption, "Ada\r Design No. 3\r\n11/21/2026\r at 10:15:00\r File: press");
    EXPECT_EQ(table.lbl_Header2.Caption, "Selected Linkage Parameters");
    EXPECT_EQ(table.lbl_Header3.Caption, "");
    EXPECT_EQ(table.Left(), (desktop.Size.width - table.Width()) / 2);
    EXPECT_EQ(table.Summary.lbl_Initial[1].Caption, "Min Theta");
    By_Time(2, 0, 0.1);
    table.Left() = 7;
    Show_Table();
    EXPECT_EQ(table.Left(), (desktop.Size.width - table.Width()) / 2);
    EXPECT_EQ(table.Summary.lbl_Initial[1].Caption, "Start Time");
    EXPECT_TRUE(table.Summary.lbl_Initial[1].Visible);
    Model.Calctype = 1;
    Show_Table();
    EXPECT_FALSE(table.Summary.lbl_Initial[1].Visible);
}

TEST_F(TablesGrid, TheGridIsToldOnceWhenItIsFull) {
    Fill_Run(100);
    auto& table = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));
    int told = 0;
    table.grd_Data.Watcher = [&] { ++told; };
    Show_Table();
    EXPECT_EQ(told, 1);
}

TEST_F(TablesGrid, TheLargestRunFillsARowForEachStep) {
    Fill_Run(2880);
    const Grid& grid = Show_Table().grd_Data;
    EXPECT_EQ(grid.Rows(), 2887);
    EXPECT_EQ(grid.Cell(2886, 4), "2,980.0");
    EXPECT_EQ(grid.Cell(4, 4), "1,540.0");
}

TEST_F(TablesGrid, AStepOfZeroIsReportedUnderMultiprintAndNothingIsShown) {
    Fill_Run(10);
    Model.PrintStep = 0;
    desktop.Expect_Message(Failed("11   (Division by zero)", "Multiprint"));
    Multiprint(platform::Screens::Get("frm_PrintData"));
}

TEST_F(TablesGrid, AScreenWithoutAGridIsReportedUnderMultiprint) {
    platform::Screen bare("frm_Stage");
    desktop.Expect_Message(Failed("9   (Subscript out of range)", "Multiprint"));
    Multiprint(bare);
}

TEST_F(TablesGrid, EachColumnIsInTheFrameOfItsOwnLink) {
    Fill_Run(2);
    Model.CoordSystem = 2;
    Model.RunTable.Theta(1, 0) = 90;
    Model.RunTable.Theta(1, 1) = 180;
    Choose(1, "Veloc CP", "X");
    for (const int plotted : {0, 1, 4}) {
        Model.PlotSlot = plotted;
        const Grid& grid = Show_Table().grd_Data;
        EXPECT_EQ(grid.Cell(7, 1), "-1.0") << "(1, 2) seen from link 3 at 180 degrees, whatever was plotted before";
    }
}

TEST_F(TablesGrid, ATableThatIsClearedLosesTheCellsOfItsRowsAndColumns) {
    Grid& grid = platform::Screens::Get("frm_PrintData").Get<Grid>("grd_Data");
    grid.SetRows(4);
    grid.SetCols(4);
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col) grid.SetCell(row, col, "old");
    Clear_Grid(2, 3);
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col) EXPECT_EQ(grid.Cell(row, col), row < 2 && col < 3 ? "" : "old");
}

TEST_F(TablesGrid, TheTableStandsInTheMiddleOfTheDisplay) {
    Fill_Run(2);
    auto& table = platform::Screens::Get("frm_PrintData");
    table.Left() = -77;
    Show_Table();
    EXPECT_EQ(table.Left(), (desktop.Size.width - table.Width()) / 2);
}

TEST_F(TablesGrid, TitlesOfTablesFollowTheKindOfRun) {
    std::string line1, line2 = "of a transform before", time, step, unit;
    for (const int calctype : {2, 4, 5}) {
        Model.Calctype = calctype;
        Table_Titles(line1, line2, time, step, unit);
        EXPECT_EQ((Texts{line1, line2, time, step, unit}),
                  (Texts{"Selected Linkage Parameters", "", "Time", "Step", "Sec"}));
    }
    for (const int calctype : {1, 3}) {
        Model.Calctype = calctype;
        Table_Titles(line1, line2, time, step, unit);
        EXPECT_EQ((Texts{line1, line2, time, step, unit}),
                  (Texts{"Selected Linkage Parameters", "", "Angle", "Step", "Deg"}));
    }
}

TEST_F(TablesGrid, TitlesOfATransformNameTheFunctionBehindTwoBlanks) {
    dynamic_cast<frm_FFT&>(platform::Screens::Get("frm_FFT")).cmb_Var1.Text = "Accel CP";
    Model.FFTFunction = true;
    std::string line1, line2, time, step, unit;
    Table_Titles(line1, line2, time, step, unit);
    EXPECT_EQ(line2, "Fourier Transform of  Accel CP");
}

}  // namespace verlink::test
