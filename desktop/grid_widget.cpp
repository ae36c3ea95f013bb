// Two views over one grid, of its head and of its body, that scroll and align as one.
#include "desktop/grid_widget.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <cmath>

#include "desktop/form.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace verlink::desktop {

namespace {

constexpr int kRowAir = 6, kLeastColumn = 60;

Qt::Alignment alignmentOf(int wish) {
    return Qt::AlignVCenter | (wish == 1 ? Qt::AlignRight : wish == 2 ? Qt::AlignHCenter : Qt::AlignLeft);
}

}  // namespace

/// The rows of a grid from one row on.
class GridWidget::Rows : public QAbstractTableModel {
   public:
    Rows(const platform::Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

    void show(int first, int count) {
        beginResetModel();
        first_ = first;
        count_ = count;
        columns_ = std::max(0, grid_.Cols() - 1);
        endResetModel();
    }
    void tint(const QColor& fixed, const QColor& statistics) {
        fixed_ = fixed;
        statistics_ = statistics;
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns_; }

    QVariant data(const QModelIndex& index, int role) const override {
        return at(index.row(), index.column() + 1, role);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Vertical) return {};
        // The style's heads leave no air behind a text at the right.
        if (role == Qt::DisplayRole) return QVariant(lead(section) + u' ');
        return at(section, 0, role);
    }
    QString lead(int row) const { return at(row, 0, Qt::DisplayRole).toString(); }

   private:
    QVariant at(int row, int column, int role) const {
        row += first_;
        // The program may shrink its grid before it says so.
        if (row >= grid_.Rows() || column >= grid_.Cols()) return {};
        const bool fixed = row < grid_.FixedRows;
        switch (role) {
            case Qt::DisplayRole: return toQt(grid_.Cell(row, column));
            case Qt::TextAlignmentRole:
                return QVariant(alignmentOf(fixed ? grid_.FixedAlignment(column) : grid_.ColAlignment(column)));
            case Qt::BackgroundRole:
                if (fixed) return fixed_;
                return row < grid_.FixedRows + grid_.StatisticRows ? QVariant(statistics_) : QVariant();
            case Qt::FontRole:
                if (fixed && row == 0) {
                    QFont bold;
                    bold.setBold(true);
                    return bold;
                }
                return {};
            default: return {};
        }
    }

    const platform::Grid& grid_;
    int first_ = 0, count_ = 0, columns_ = 0;
    QColor fixed_, statistics_;
};

GridWidget::GridWidget(platform::Grid& grid, QWidget* parent)
    : QWidget(parent), grid_(grid), head_rows_(new Rows(grid, this)), body_rows_(new Rows(grid, this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    head_ = makeView(head_rows_);
    body_ = makeView(body_rows_);
    head_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    head_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    body_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    body_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    head_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(body_->horizontalScrollBar(), &QScrollBar::valueChanged, head_->horizontalScrollBar(),
            &QScrollBar::setValue);
    setFocusProxy(body_);
    for (QWidget* widget : {static_cast<QWidget*>(this), static_cast<QWidget*>(head_), static_cast<QWidget*>(body_)})
        widget->setAccessibleName(QStringLiteral("Table"));
    tint();
    follow();
}

QTableView* GridWidget::makeView(Rows* rows) {
    auto* view = new QTableView(this);
    view->setModel(rows);
    view->setFrameShape(QFrame::NoFrame);
    view->setWordWrap(grid_.Wraps);
    view->setCornerButtonEnabled(false);
    view->setTextElideMode(Qt::ElideRight);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setTabKeyNavigation(false);
    view->horizontalHeader()->hide();
    view->horizontalHeader()->setMinimumSectionSize(24);
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + kRowAir);
    view->verticalHeader()->setHighlightSections(false);
    view->installEventFilter(this);
    return view;
}

void GridWidget::tint() {
    const QPalette colors = palette();
    const bool dark = isDark(colors);
    const QColor fixed = dark ? QColor(0x2C, 0x33, 0x3D) : QColor(0xE6, 0xEB, 0xF2);
    const QColor statistics = dark ? QColor(0x22, 0x3A, 0x3D) : QColor(0xEE, 0xF7, 0xF6);
    head_rows_->tint(fixed, statistics);
    body_rows_->tint(fixed, statistics);
}

void GridWidget::follow() {
    const int head = std::min(grid_.Rows(), grid_.FixedRows + grid_.StatisticRows);
    head_rows_->show(0, head);
    body_rows_->show(head, grid_.Rows() - head);
    head_->setFixedHeight(head * head_->verticalHeader()->defaultSectionSize());
    body_->scrollToTop();
    fitColumns();
    resizeEvent(nullptr);
}

void GridWidget::fitColumns() {
    const int columns = grid_.Cols();
    if (columns == 0) return;
    const int room = width() - body_->verticalScrollBar()->sizeHint().width();
    double wished = 0;
    for (int i = 0; i < columns; ++i) wished += grid_.ColWidth(i);
    // The widths are shares of the whole: the table is as wide as the window lets it be.
    const auto share = [&](int column) {
        const double part = wished > 0 ? grid_.ColWidth(column) / wished : 1.0 / columns;
        return std::max(kLeastColumn, static_cast<int>(room * part));
    };
    for (QTableView* view : {head_, body_}) {
        view->verticalHeader()->setFixedWidth(share(0));
        int taken = share(0);
        for (int i = 1; i < columns; ++i) {
            // The last of wrapped columns makes up for what others need more than their share.
            const bool last = grid_.Wraps && i == columns - 1;
            const int wide = last ? std::max(kLeastColumn, room - taken) : share(i);
            view->setColumnWidth(i - 1, wide);
            taken += wide;
        }
    }
    if (grid_.Wraps) body_->resizeRowsToContents();
}

QString GridWidget::selectedText() const {
    QStringList rows;
    for (const QTableView* view : {head_, body_}) {
        const QItemSelectionModel* chosen = view->selectionModel();
        const auto* model = static_cast<const Rows*>(view->model());
        if (!chosen->hasSelection()) continue;
        // The columns in which anything is selected, so that cells stay under one another.
        int left = model->columnCount(), right = -1, top = model->rowCount(), bottom = -1;
        for (const QItemSelectionRange& range : chosen->selection()) {
            left = std::min(left, range.left());
            right = std::max(right, range.right());
            top = std::min(top, range.top());
            bottom = std::max(bottom, range.bottom());
        }
        const bool whole = left == 0 && right == model->columnCount() - 1;
        for (int row = top; row <= bottom; ++row) {
            if (!chosen->rowIntersectsSelection(row)) continue;
            QStringList cells;
            if (whole) cells << model->lead(row);
            for (int column = left; column <= right; ++column) {
                const QModelIndex cell = model->index(row, column);
                cells << (chosen->isSelected(cell) ? cell.data().toString() : QString());
            }
            rows << cells.join(u'\t');
        }
    }
    return rows.isEmpty() ? QString() : rows.join(u'\n') + u'\n';
}

bool GridWidget::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy) ||
         static_cast<QKeyEvent*>(event)->matches(QKeySequence::SelectAll))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
            const QString text = selectedText();
            if (!text.isEmpty()) QApplication::clipboard()->setText(text);
            return true;
        }
        if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::SelectAll)) {
            head_->selectAll();
            body_->selectAll();
            return true;
        }
    }
    // A press in one view ends the selection in the other, unless it is to be added to.
    if (event->type() == QEvent::FocusIn && static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason &&
        !(QApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)))
        (object == head_ ? body_ : head_)->clearSelection();
    return QWidget::eventFilter(object, event);
}

void GridWidget::resizeEvent(QResizeEvent* event) {
    if (event) {
        QWidget::resizeEvent(event);
        grid_.Width = std::lround(width() * Form::twipsPerPixel());
        fitColumns();
    }
    const int bar = body_->verticalScrollBar()->sizeHint().width();
    head_->setGeometry(0, 0, width() - bar, head_->height());
    body_->setGeometry(0, head_->height(), width(), std::max(0, height() - head_->height()));
}

void GridWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) tint();
}

}  // namespace verlink::desktop
