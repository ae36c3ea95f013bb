// A table of texts on a screen.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink::platform {

/// Cells by row and column from 0; `FixedRows` at the top and column 0 stay in sight. Watchers are told by `Refresh`,
/// not by every cell. A cell or column outside is failure 380.
class Grid : public Visual {
   public:
    Grid(Screen& owner, std::string name, int index = kNoIndex);

    /// Growing or shrinking keeps the cells that fit.
    void SetRows(int count);
    void SetCols(int count);
    int Rows() const { return rows_; }
    int Cols() const { return cols_; }
    int FixedRows = 3;
    int StatisticRows = 3;  ///< below the fixed ones, in sight with them
    bool Wraps = false;     ///< a long text goes on in a second line of its cell

    const std::string& Cell(int row, int col) const;
    void SetCell(int row, int col, std::string text);

    /// The present cell, as the program walks over it.
    int Row = 0, Col = 0;
    const std::string& Text() const { return Cell(Row, Col); }
    void SetText(std::string text) { SetCell(Row, Col, std::move(text)); }

    /// Twips. The width of the whole grid is told by the desktop.
    int ColWidth(int col) const { return widths_[Column(col)]; }
    void SetColWidth(int col, int width);
    long Width = 11000;
    /// 0 left, 1 right, 2 centred; of the cells and of the fixed ones.
    int ColAlignment(int col) const { return alignments_[Column(col)]; }
    void SetColAlignment(int col, int alignment);
    int FixedAlignment(int col) const { return fixed_alignments_[Column(col)]; }
    void SetFixedAlignment(int col, int alignment);

    void Refresh() { Notify(); }

   private:
    std::size_t At(int row, int col) const;
    std::size_t Column(int col) const;
    int rows_ = 0, cols_ = 0;
    std::vector<std::string> cells_;  ///< row by row
    std::vector<int> widths_, alignments_, fixed_alignments_;
};

}  // namespace verlink::platform
