// Shows a table of texts: its heads and its first column stay in sight, its cells can be selected and copied.
#pragma once

#include <QWidget>

#include "platform/grid.h"

class QTableView;

namespace verlink::desktop {

/// A view over the grid's own cells. The fixed rows, and the rows of statistics below them, stand in a view of their
/// own above the rest; column 0 is the vertical head of both.
class GridWidget : public QWidget {
   public:
    GridWidget(platform::Grid& grid, QWidget* parent);

    /// Takes over rows, columns, widths and alignments; the cells are read as they are painted.
    void follow();

    QTableView* head() const { return head_; }
    QTableView* body() const { return body_; }
    /// The selected cells, row by row, with tabs between them; a whole row begins with its cell of column 0.
    QString selectedText() const;

    QSize sizeHint() const override { return {640, 420}; }
    QSize minimumSizeHint() const override { return {500, 200}; }  ///< heads of five columns are read whole

   protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    class Rows;
    QTableView* makeView(Rows* rows);
    void tint();
    void fitColumns();

    platform::Grid& grid_;
    Rows* head_rows_;
    Rows* body_rows_;
    QTableView* head_;
    QTableView* body_;
};

}  // namespace verlink::desktop
