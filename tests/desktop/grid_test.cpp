// The widget of a table: what stays in sight, what is selected and copied, how soon it is painted.
#include "platform/grid.h"

#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTableView>
#include <sstream>

#include "desktop/form.h"
#include "desktop/grid_widget.h"
#include "tests/desktop/user.h"

namespace verlink::test {

namespace {

using desktop::GridWidget;

class GridWidgetTest : public DesktopTest {
   protected:
    platform::Screen screen{"frm_Grids"};
    platform::Grid grid{screen, "grd_Data"};
    std::unique_ptr<GridWidget> widget;

    static std::string CellText(int row, int column) {
        std::ostringstream text;
        text << 'r' << row << 'c' << column;
        return text.str();
    }
    void Fill(int rows, int columns) {
        grid.SetCols(columns);
        grid.SetRows(rows);
        for (int column = 0; column < columns; ++column) {
            grid.SetColWidth(column, 2000);
            grid.SetColAlignment(column, 1);
            grid.SetFixedAlignment(column, 2);
            for (int row = 0; row < rows; ++row) grid.SetCell(row, column, CellText(row, column));
        }
    }
    void Open() {
        widget = std::make_unique<GridWidget>(grid, nullptr);
        grid.Watcher = [this] { widget->follow(); };
        widget->resize(700, 400);
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
    }
    ~GridWidgetTest() override { grid.Watcher = nullptr; }

    static QString Text(const QTableView* view, int row, int column) {
        return view->model()->index(row, column).data().toString();
    }
    static void Select(QTableView* view, int top, int left, int bottom, int right) {
        view->selectionModel()->select(
            QItemSelection(view->model()->index(top, left), view->model()->index(bottom, right)),
            QItemSelectionModel::Select);
    }
};

TEST_F(GridWidgetTest, Heads_and_statistics_stand_above_the_rows_and_the_first_column_beside_them) {
    Fill(50, 5);
    Open();
    EXPECT_EQ(widget->head()->model()->rowCount(), 6);
    EXPECT_EQ(widget->body()->model()->rowCount(), 44);
    EXPECT_EQ(widget->body()->model()->columnCount(), 4);
    EXPECT_EQ(Text(widget->head(), 0, 0), "r0c1");
    EXPECT_EQ(Text(widget->head(), 5, 3), "r5c4");
    EXPECT_EQ(Text(widget->body(), 0, 0), "r6c1");
    EXPECT_EQ(widget->head()->model()->headerData(3, Qt::Vertical).toString().trimmed(), "r3c0");
    EXPECT_EQ(widget->body()->model()->headerData(43, Qt::Vertical).toString().trimmed(), "r49c0");
    EXPECT_FALSE(widget->head()->verticalScrollBar()->isVisible());
    EXPECT_EQ(widget->head()->verticalScrollBar()->maximum(), 0) << "all of the head is in sight";
}

TEST_F(GridWidgetTest, Scrolling_down_leaves_the_head_in_sight) {
    Fill(500, 5);
    Open();
    widget->body()->verticalScrollBar()->setValue(300);
    EXPECT_EQ(widget->head()->verticalScrollBar()->value(), 0);
    EXPECT_TRUE(widget->head()->isVisible());
}

TEST_F(GridWidgetTest, Scrolling_sideways_moves_the_head_along) {
    Fill(50, 20);
    Open();
    const int far = widget->body()->horizontalScrollBar()->maximum();
    ASSERT_GT(far, 0);
    widget->body()->horizontalScrollBar()->setValue(far);
    EXPECT_EQ(widget->head()->columnViewportPosition(18), widget->body()->columnViewportPosition(18));
}

TEST_F(GridWidgetTest, Columns_share_the_width_alike_in_head_and_body) {
    Fill(20, 5);
    Open();
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(widget->head()->columnWidth(column), widget->body()->columnWidth(column));
        EXPECT_NEAR(widget->body()->columnWidth(column), 137, 4);
    }
    EXPECT_EQ(widget->head()->verticalHeader()->width(), widget->body()->verticalHeader()->width());
}

TEST_F(GridWidgetTest, Cells_and_fixed_cells_are_aligned_as_told) {
    Fill(20, 5);
    Open();
    const auto alignment = [](const QTableView* view, int row) {
        return view->model()->index(row, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(alignment(widget->head(), 0), Qt::AlignHCenter);
    EXPECT_EQ(alignment(widget->head(), 3), Qt::AlignRight);
    EXPECT_EQ(alignment(widget->body(), 0), Qt::AlignRight);
}

TEST_F(GridWidgetTest, The_statistics_are_tinted_and_the_rows_are_not) {
    Fill(20, 5);
    Open();
    const auto back = [](const QTableView* view, int row) {
        return view->model()->index(row, 0).data(Qt::BackgroundRole);
    };
    EXPECT_TRUE(back(widget->head(), 3).isValid());
    EXPECT_NE(back(widget->head(), 3), back(widget->head(), 0));
    EXPECT_FALSE(back(widget->body(), 0).isValid());
}

TEST_F(GridWidgetTest, The_grid_is_told_its_width_in_twips) {
    Fill(20, 5);
    Open();
    EXPECT_NEAR(static_cast<double>(grid.Width), 700 * desktop::Form::twipsPerPixel(), 1);
    widget->resize(900, 400);
    QCoreApplication::processEvents();
    EXPECT_NEAR(static_cast<double>(grid.Width), 900 * desktop::Form::twipsPerPixel(), 1);
}

TEST_F(GridWidgetTest, Selected_cells_are_copied_with_tabs) {
    Fill(20, 5);
    Open();
    Select(widget->body(), 0, 1, 1, 2);
    widget->body()->setFocus();
    QTest::keyClick(widget->body(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "r6c2\tr6c3\nr7c2\tr7c3\n");
}

TEST_F(GridWidgetTest, Whole_rows_are_copied_with_their_first_column) {
    Fill(20, 5);
    Open();
    widget->body()->selectRow(2);
    EXPECT_EQ(widget->selectedText(), "r8c0\tr8c1\tr8c2\tr8c3\tr8c4\n");
}

TEST_F(GridWidgetTest, Everything_can_be_selected_and_copied_with_the_head) {
    Fill(9, 3);
    Open();
    QTest::keyClick(widget->body(), Qt::Key_A, Qt::ControlModifier);
    const QStringList rows = widget->selectedText().split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(rows.size(), 9);
    EXPECT_EQ(rows[0], "r0c0\tr0c1\tr0c2");
    EXPECT_EQ(rows[8], "r8c0\tr8c1\tr8c2");
}

TEST_F(GridWidgetTest, Cells_apart_keep_their_columns_when_copied) {
    Fill(20, 5);
    Open();
    Select(widget->body(), 0, 0, 0, 0);
    Select(widget->body(), 2, 2, 2, 2);
    EXPECT_EQ(widget->selectedText(), "r6c1\t\t\n\t\tr8c3\n");
}

TEST_F(GridWidgetTest, A_refreshed_grid_has_its_new_size) {
    Fill(20, 5);
    Open();
    Fill(8, 3);
    grid.Refresh();
    EXPECT_EQ(widget->body()->model()->rowCount(), 2);
    EXPECT_EQ(widget->body()->model()->columnCount(), 2);
    grid.SetRows(0);
    grid.Refresh();
    EXPECT_EQ(widget->head()->model()->rowCount(), 0);
}

TEST_F(GridWidgetTest, A_grid_that_shrank_before_it_said_so_shows_blanks) {
    Fill(20, 5);
    Open();
    grid.SetRows(4);
    EXPECT_EQ(Text(widget->body(), 3, 0), "");
    widget->repaint();
}

}  // namespace

}  // namespace verlink::test
