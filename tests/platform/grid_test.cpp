// Grids keep texts by row and column.
#include "platform/grid.h"

#include <gtest/gtest.h>

#include "tests/support/fixture.h"

namespace verlink::test {

using platform::Grid;

namespace {

struct GridTest : Fixture {
    static long Failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const platform::RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
    void Fill() {
        for (int row = 0; row < grid.Rows(); ++row)
            for (int col = 0; col < grid.Cols(); ++col)
                grid.SetCell(row, col, std::to_string(row) + "/" + std::to_string(col));
    }
    platform::Screen screen{"frm_Stage"};
    Grid grid{screen, "grd_Data"};
};

}  // namespace

TEST_F(GridTest, StartsEmpty) {
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(grid.FixedRows, 3);
}

TEST_F(GridTest, NewCellsAreEmptyTexts) {
    grid.SetRows(2);
    grid.SetCols(2);
    for (int row = 0; row < 2; ++row)
        for (int col = 0; col < 2; ++col) EXPECT_EQ(grid.Cell(row, col), "");
}

TEST_F(GridTest, ThePresentCellIsWalkedOverByRowAndColumn) {
    grid.SetRows(3);
    grid.SetCols(2);
    grid.Row = 2;
    grid.Col = 1;
    grid.SetText("90.0");
    EXPECT_EQ(grid.Text(), "90.0");
    EXPECT_EQ(grid.Cell(2, 1), "90.0");
    EXPECT_EQ(grid.Cell(1, 1), "");
}

TEST_F(GridTest, MoreAndFewerRowsAndColumnsKeepTheCellsThatFit) {
    grid.SetRows(2);
    grid.SetCols(3);
    Fill();
    grid.SetCols(4);
    grid.SetRows(3);
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 4; ++col)
            EXPECT_EQ(grid.Cell(row, col),
                      row < 2 && col < 3 ? std::to_string(row) + "/" + std::to_string(col) : std::string());
    grid.SetCols(2);
    grid.SetRows(1);
    EXPECT_EQ(grid.Cell(0, 0), "0/0");
    EXPECT_EQ(grid.Cell(0, 1), "0/1");
    grid.SetRows(2);
    EXPECT_EQ(grid.Cell(1, 1), "");
}

TEST_F(GridTest, WidthsAndAlignmentsAreKeptByColumn) {
    grid.SetCols(2);
    grid.SetColWidth(1, 2068);
    grid.SetColAlignment(1, 1);
    grid.SetFixedAlignment(1, 2);
    EXPECT_EQ(grid.ColWidth(0), 0);
    EXPECT_EQ(grid.ColWidth(1), 2068);
    EXPECT_EQ(grid.ColAlignment(0), 0);
    EXPECT_EQ(grid.ColAlignment(1), 1);
    EXPECT_EQ(grid.FixedAlignment(0), 0);
    EXPECT_EQ(grid.FixedAlignment(1), 2);
    grid.SetCols(3);
    EXPECT_EQ(grid.ColWidth(1), 2068);
}

TEST_F(GridTest, ACellOrAColumnOutsideIsFailure380) {
    grid.SetRows(2);
    grid.SetCols(2);
    for (const auto& [row, col] : {std::pair(-1, 0), std::pair(2, 0), std::pair(0, -1), std::pair(0, 2)}) {
        EXPECT_EQ(Failure([&, r = row, c = col] { grid.SetCell(r, c, "x"); }), 380);
        EXPECT_EQ(Failure([&, r = row, c = col] { (void)grid.Cell(r, c); }), 380);
    }
    for (const int col : {-1, 2}) {
        EXPECT_EQ(Failure([&] { grid.SetColWidth(col, 1); }), 380);
        EXPECT_EQ(Failure([&] { grid.SetColAlignment(col, 1); }), 380);
        EXPECT_EQ(Failure([&] { grid.SetFixedAlignment(col, 1); }), 380);
        EXPECT_EQ(Failure([&] { (void)grid.ColWidth(col); }), 380);
    }
    EXPECT_EQ(Failure([&] { grid.SetRows(-1); }), 380);
    EXPECT_EQ(Failure([&] { grid.SetCols(-1); }), 380);
}

TEST_F(GridTest, NoRowsAndNoColumnsAreAGridToo) {
    grid.SetRows(3);
    grid.SetCols(2);
    grid.SetRows(0);
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(Failure([&] { grid.SetCell(0, 0, "x"); }), 380);
    grid.SetCols(0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(Failure([&] { grid.SetColWidth(0, 5); }), 380);
    grid.SetRows(1);
    grid.SetCols(1);
    grid.SetCell(0, 0, "x");
    EXPECT_EQ(grid.Cell(0, 0), "x");
}

TEST_F(GridTest, WatchersAreToldByRefreshAndNotByEveryCell) {
    int told = 0;
    grid.Watcher = [&] { ++told; };
    grid.SetRows(100);
    grid.SetCols(5);
    Fill();
    EXPECT_EQ(told, 0);
    grid.Refresh();
    EXPECT_EQ(told, 1);
}

}  // namespace verlink::test
