// The widget of a graph around its plot.
#include "desktop/graph_widget.h"

#include "desktop/graph_plot.h"
#include "desktop/picture_menu.h"
#include "desktop/text.h"
#include "screens/picture_entries.h"

namespace verlink::desktop {

using platform::Graph;

GraphWidget::GraphWidget(const Graph& graph, QWidget* parent)
    : QWidget(parent), graph_(graph), plot_(new GraphPlot(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // The library's widget keeps the mouse to itself, so that its parent never sees a right click.
    plot_->installEventFilter(new PictureMenu(graph, *this, kPlotPicture, [this] { return source(); }));
    if (graph_.OnSeek) {
        plot_->onSeek = [this](int point) {
            if (onSeek) onSeek(point);
        };
        plot_->onSought = [this] {
            if (onSought) onSought();
        };
    }
    follow(true);
}

GraphWidget::~GraphWidget() = default;

void GraphWidget::follow() {
    follow(graph_.Drawings() != seen_);
    plot_->setCursor(graph_.Cursor - 1);
}

void GraphWidget::follow(bool drawn) {
    if (!drawn) return;
    seen_ = graph_.Drawings();
    plot_->take(graph_);
    const QString title = lines(graph_.GraphTitle);
    setAccessibleName(title.isEmpty() ? QStringLiteral("Graph") : title);
}

QRectF GraphWidget::view() const {
    const QCPRange x = plot_->xAxis->range(), y = plot_->yAxis->range();
    return {x.lower, y.lower, x.size(), y.size()};
}

void GraphWidget::showAll() {
    plot_->showAll();
    plot_->redraw();
}

QPoint GraphWidget::place(double point, double value) const {
    return {qRound(plot_->xAxis->coordToPixel(plot_->placeOf(point))), qRound(plot_->yAxis->coordToPixel(value))};
}

QStringList GraphWidget::labels() const { return plot_->shownLabels(); }
QStringList GraphWidget::readOut(const QPoint& at) const { return plot_->readOut(at); }

PictureSource GraphWidget::source() {
    return {.title = lines(graph_.GraphTitle),
            .size = size(),
            .dpi = logicalDpiX(),
            .vectors =
                [this](QPaintDevice& device) {
                    QCPPainter painter;
                    if (!painter.begin(&device)) platform::Raise(platform::kOutOfMemory);
                    painter.setMode(QCPPainter::pmVectorized);
                    painter.setWindow(rect());
                    plot_->toPainter(&painter, width(), height());
                    painter.end();
                },
            .image = [this](double density) { return plot_->toPixmap(width(), height(), density).toImage(); }};
}

void GraphWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    plot_->setGeometry(rect());
    plot_->fit();
}

void GraphWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    plot_->fit();
    plot_->replot(QCustomPlot::rpQueuedRefresh);
}

}  // namespace verlink::desktop
