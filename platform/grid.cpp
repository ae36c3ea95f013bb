// How a grid keeps its cells.
#include "platform/grid.h"

#include <algorithm>

namespace verlink::platform {

Grid::Grid(Screen& owner, std::string name, int index) : Visual(owner, std::move(name), index) {}

std::size_t Grid::At(int row, int col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) Raise(kInvalidProperty);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(col);
}

std::size_t Grid::Column(int col) const {
    if (col < 0 || col >= cols_) Raise(kInvalidProperty);
    return static_cast<std::size_t>(col);
}

void Grid::SetRows(int count) {
    if (count < 0) Raise(kInvalidProperty);
    rows_ = count;
    cells_.resize(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_));
}

void Grid::SetCols(int count) {
    if (count < 0) Raise(kInvalidProperty);
    std::vector<std::string> cells(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(count));
    for (int row = 0; row < rows_; ++row)
        for (int col = 0; col < std::min(cols_, count); ++col)
            cells[static_cast<std::size_t>(row * count + col)] = std::move(cells_[At(row, col)]);
    cells_ = std::move(cells);
    cols_ = count;
    widths_.resize(static_cast<std::size_t>(count));
    alignments_.resize(static_cast<std::size_t>(count));
    fixed_alignments_.resize(static_cast<std::size_t>(count));
}

const std::string& Grid::Cell(int row, int col) const { return cells_[At(row, col)]; }
void Grid::SetCell(int row, int col, std::string text) { cells_[At(row, col)] = std::move(text); }

void Grid::SetColWidth(int col, int width) { widths_[Column(col)] = width; }
void Grid::SetColAlignment(int col, int alignment) { alignments_[Column(col)] = alignment; }
void Grid::SetFixedAlignment(int col, int alignment) { fixed_alignments_[Column(col)] = alignment; }

}  // namespace verlink::platform
