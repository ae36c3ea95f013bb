// The hand on a graph: the values under the mouse, the frame of a part, the point that is sought.
#include <QHelpEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/graph_plot.h"
#include "desktop/read_out.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace verlink::desktop {

namespace {

constexpr int kLeastFrame = 8;  ///< a smaller frame is a trembling hand

}  // namespace

void GraphPlot::setCursor(int point) {
    if (point == cursor_) return;
    // Only what the cursor leaves and where it comes to is painted anew.
    update(cursorPlace(cursorMarks()).bounds.toAlignedRect());
    cursor_ = point;
    update(cursorPlace(cursorMarks()).bounds.toAlignedRect());
}

int GraphPlot::nearest(const QPointF& at) const {
    if (!axisRect()->rect().contains(at.toPoint()) || labels_->labels.isEmpty()) return -1;
    return nearestTo(xAxis->pixelToCoord(at.x()));
}

QStringList GraphPlot::readOut(const QPointF& at) const {
    const int point = nearest(at);
    if (point < 0) return {};
    QStringList texts{(bottom_title_ + u' ' + toQt(readings_[static_cast<std::size_t>(point)])).trimmed()};
    for (const std::size_t set : read(point))
        texts << (toQt(sets_[set].legend).trimmed() + u' ' +
                  QString::number(sets_[set].values[static_cast<std::size_t>(point)], 'g', 6))
                     .trimmed();
    return texts;
}

std::vector<std::size_t> GraphPlot::read(int point) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < sets_.size(); ++i)
        if (std::isfinite(sets_[i].values[static_cast<std::size_t>(point)])) found.push_back(i);
    return found;
}

void GraphPlot::paintEvent(QPaintEvent* event) {
    QPainter probe(this);
    const auto engine = probe.paintEngine()->type();
    probe.end();
    if (engine != QPaintEngine::Raster && engine != QPaintEngine::OpenGL2) {
        QCPPainter painter(this);
        painter.setMode(QCPPainter::pmVectorized);
        toPainter(&painter, width(), height());
        return;
    }
    QCustomPlot::paintEvent(event);
    paintTheCursor();
    if (underMouse() && !seeking_) paintCrosshair();
}

bool GraphPlot::event(QEvent* event) {
    // The read-out stands where a tip would.
    if (event->type() == QEvent::ToolTip && nearest(static_cast<QHelpEvent*>(event)->pos()) >= 0) return true;
    return QCustomPlot::event(event);
}

void GraphPlot::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (!onSeek) return QCustomPlot::mousePressEvent(event);
    seeking_ = nearest(event->position()) >= 0;
    seek(event->position());
}

void GraphPlot::mouseMoveEvent(QMouseEvent* event) {
    mouse_ = event->position();
    if (seeking_) return seek(mouse_);
    QCustomPlot::mouseMoveEvent(event);
    update();
}

void GraphPlot::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (onSeek) {
        if (std::exchange(seeking_, false) && onSought) onSought();
        return update();
    }
    const QRectF frame = selectionRect()->rect().normalized();
    if (selectionRect()->isActive() && (frame.width() < kLeastFrame || frame.height() < kLeastFrame))
        selectionRect()->cancel();
    QCustomPlot::mouseReleaseEvent(event);
    event->accept();
}

void GraphPlot::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    showAll();
    redraw();
}

void GraphPlot::leaveEvent(QEvent* event) {
    QCustomPlot::leaveEvent(event);
    update();
}

int GraphPlot::nearestTo(double place) const {
    const int last = static_cast<int>(labels_->labels.size()) - 1;
    if (places_.empty()) return std::clamp(static_cast<int>(std::lround(place)), 0, last);
    int best = 0;
    for (int i = 1; i <= last; ++i) {
        const double better = std::abs(across(best) - place) - std::abs(across(i) - place);
        if (better > 0 || (better == 0 && std::abs(i - cursor_) < std::abs(best - cursor_))) best = i;
    }
    return best;
}

void GraphPlot::seek(const QPointF& at) {
    if (!seeking_ || !onSeek || labels_->labels.isEmpty()) return;
    const QRect area = axisRect()->rect();
    const double x = std::clamp<double>(at.x(), area.left(), area.right());
    onSeek(nearestTo(xAxis->pixelToCoord(x)) + 1);
}

std::vector<CursorMark> GraphPlot::cursorMarks() const {
    std::vector<CursorMark> marks;
    if (cursor_ < 0 || cursor_ >= static_cast<int>(names_.size())) return marks;
    for (const std::size_t i : read(cursor_)) {
        const double value = sets_[i].values[static_cast<std::size_t>(cursor_)];
        marks.push_back({yAxis->coordToPixel(value), colorOf(i),
                         (QString::number(value, 'g', 6) + u' ' + toQt(sets_[i].unit)).trimmed()});
    }
    return marks;
}

CursorPlace GraphPlot::cursorPlace(const std::vector<CursorMark>& marks) const {
    if (cursor_ < 0 || cursor_ >= static_cast<int>(names_.size())) return {};
    return placeCursor(axisRect()->rect(), xAxis->coordToPixel(across(cursor_)), marks, font());
}

void GraphPlot::paintTheCursor() {
    const std::vector<CursorMark> marks = cursorMarks();
    const CursorPlace place = cursorPlace(marks);
    if (place.bounds.isEmpty()) return;
    QPainter painter(this);
    paintCursor(painter, axisRect()->rect(), place, marks, font(), plainColor(colors_->ink), plainColor(colors_->back));
}

void GraphPlot::paintCrosshair() {
    const int point = nearest(mouse_);
    if (point < 0) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = axisRect()->rect();
    QColor ink = plainColor(colors_->ink);
    ink.setAlpha(110);
    painter.setPen(QPen(ink, 1));
    const double x = std::floor(xAxis->coordToPixel(across(point))) + 0.5, y = std::floor(mouse_.y()) + 0.5;
    if (area.left() <= x && x <= area.right()) painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
    painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    painter.setPen(Qt::NoPen);
    const std::vector<std::size_t> shown = read(point);
    for (const std::size_t i : shown) {
        const QPointF at(x, yAxis->coordToPixel(sets_[i].values[static_cast<std::size_t>(point)]));
        if (!area.contains(at)) continue;
        painter.setBrush(colorOf(i));
        painter.drawEllipse(at, 3.5, 3.5);
    }
    std::vector<QColor> strokes;
    strokes.reserve(strokes.size() + shown.size());
    for (const std::size_t i : shown) strokes.push_back(colorOf(i));
    paintReadOut(painter, area, mouse_, readOut(mouse_), strokes, font(), plainColor(colors_->ink),
                 plainColor(colors_->back));
}

}  // namespace verlink::desktop
