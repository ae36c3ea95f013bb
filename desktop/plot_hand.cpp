// Parts of a plot, and the values under the pointer.
#include "desktop/plot_hand.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/picture_widget.h"
#include "desktop/read_out.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "output/graph_scale.h"
#include "platform/picture_part.h"

namespace verlink::desktop {

using platform::Picture;
using platform::Plot_Reading;

namespace {

constexpr double kBeside = 4;                           ///< pixels beside a curve at which it is still read
constexpr int kLeastFrame = 8;                          ///< a smaller frame is a trembling hand
constexpr double kMostEnlarged = 1e-6;                  ///< part of the window
constexpr double kWheelStep = 0.85;                     ///< as graphs have it, for a notch
constexpr double kWheelNotch = 120;                     ///< eighths of a degree
constexpr int kBetweenValues = 70, kBetweenLines = 40;  ///< pixels between round values across and down
constexpr platform::Color kInk = 0, kPaper = 0xFFFFFF;

int valuesIn(double pixels, int apart) { return std::clamp(static_cast<int>(pixels) / apart, 3, 12); }

}  // namespace

PlotHand::PlotHand(const platform::PlotBox& box, PictureWidget* picture)
    : QWidget(picture), box_(box), picture_(picture) {
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setFocusPolicy(Qt::ClickFocus);
    setFocusProxy(picture);
}

PlotHand::Window PlotHand::window() const {
    const Picture& drawing = picture_->picture();
    return {drawing.Left(), drawing.Top(), drawing.Right(), drawing.Bottom()};
}

PlotHand::Window PlotHand::seen() const {
    const Window all = window();
    const double wide = all.right - all.left, high = all.bottom - all.top;
    return {all.left + view_.left() * wide, all.top + view_.top() * high, all.left + view_.right() * wide,
            all.top + view_.bottom() * high};
}

void PlotHand::follow() {
    look();
    update();
}

void PlotHand::look() {
    if (const Window now = window(); now != before_) {
        before_ = now;
        view_ = {0, 0, 1, 1};
    }
    if (revision_ != picture_->picture().Revision()) stale_ = true;
    revision_ = picture_->picture().Revision();
}

void PlotHand::setView(QRectF wished) {
    wished.setWidth(std::clamp(wished.width(), kMostEnlarged, 1.0));
    wished.setHeight(std::clamp(wished.height(), kMostEnlarged, 1.0));
    wished.moveLeft(std::clamp(wished.left(), 0.0, 1 - wished.width()));
    wished.moveTop(std::clamp(wished.top(), 0.0, 1 - wished.height()));
    if (wished == view_) return;
    view_ = wished;
    stale_ = true;
    update();
}

void PlotHand::showAll() { setView({0, 0, 1, 1}); }

QPointF PlotHand::place(double x, double y) const {
    const Window part = seen();
    return {(x - part.left) / (part.right - part.left) * width(), (y - part.top) / (part.bottom - part.top) * height()};
}

int PlotHand::nearest(const QPointF& at) const {
    const Plot_Reading& reading = box_.Reading();
    if (reading.Empty() || !rect().contains(at.toPoint())) return -1;
    if (!reading.polar) {
        const auto [first, last] = std::ranges::minmax_element(reading.x);
        const double from = place(*first, 0).x(), to = place(*last, 0).x();
        if (at.x() < std::min(from, to) - kBeside || at.x() > std::max(from, to) + kBeside) return -1;
    }
    int best = -1;
    double least = 0;
    for (std::size_t i = 0; i < reading.labels.size(); ++i) {
        const QPointF from = place(reading.x[i], reading.y[i]) - at;
        // Beside one another only the distance across counts, and among those that stand above one another the other.
        const double far =
            reading.polar ? std::hypot(from.x(), from.y()) : std::abs(from.x()) + 1e-6 * std::abs(from.y());
        if (!std::isfinite(far) || (best >= 0 && far >= least)) continue;
        best = static_cast<int>(i);
        least = far;
    }
    return best;
}

QStringList PlotHand::readOut(const QPointF& at) const {
    const int point = nearest(at);
    if (point < 0) return {};
    const Plot_Reading& reading = box_.Reading();
    const auto number = static_cast<std::size_t>(point);
    QStringList texts{(toQt(reading.across) + u' ' + toQt(reading.labels[number])).trimmed()};
    for (const Plot_Reading::Value& value : reading.values)
        texts << (toQt(value.name) + u' ' + QString::number(value.at[number], 'g', 6) + u' ' + toQt(value.unit))
                     .simplified();
    return texts;
}

void PlotHand::paintPart(QPainter& painter) {
    if (stale_) {
        const Window part = seen();
        part_ = platform::Part_Of(picture_->picture(), part.left, part.top, part.right, part.bottom);
        pixels_.Release();  // they know another picture by its changes alone
        stale_ = false;
    }
    const auto engine = painter.paintEngine()->type();
    if (engine != QPaintEngine::Raster && engine != QPaintEngine::OpenGL2)
        return paintPicture(painter, part_, QSizeF(size()));
    const double density = painter.device()->devicePixelRatioF();
    const int wide = qRound(width() * density), high = qRound(height() * density);
    pixels_.Paint(part_, wide, high, density, width(), height());
    QImage image(reinterpret_cast<const uchar*>(pixels_.Pixels().data()), wide, high, qsizetype{4} * wide,
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    painter.drawImage(QPointF(0, 0), image);
}

/// Round values at the left and the lower edge, with a short stroke at each.
void PlotHand::paintScale(QPainter& painter) const {
    const Window part = seen();
    const QFontMetricsF metrics(font());
    painter.setFont(font());
    const auto text = [&](const QRectF& box, double value, Qt::Alignment how) {
        const QString words = QString::number(value, 'g', 6);
        QRectF under = metrics.boundingRect(words);
        under.moveCenter(box.center());
        if (how & Qt::AlignLeft) under.moveLeft(box.left());
        painter.setOpacity(0.85);
        painter.fillRect(under.adjusted(-2, 0, 2, 0), plainColor(kPaper));
        painter.setOpacity(1);
        painter.setPen(plainColor(kInk));
        painter.drawText(box, how, words);
    };
    const Span across{std::min(part.left, part.right), std::max(part.left, part.right)};
    for (const double value : Round_Values(across, valuesIn(width(), kBetweenValues))) {
        const double x = place(value, 0).x();
        if (x < 30 || x > width() - 30) continue;
        painter.setPen(plainColor(kInk));
        painter.drawLine(QPointF(x, height()), QPointF(x, height() - 6));
        text({x - 40, height() - 8 - metrics.height(), 80, metrics.height()}, value, Qt::AlignCenter);
    }
    const Span down{std::min(part.top, part.bottom), std::max(part.top, part.bottom)};
    for (const double value : Round_Values(down, valuesIn(height(), kBetweenLines))) {
        const double y = place(0, value).y();
        if (y < metrics.height() || y > height() - 2.5 * metrics.height()) continue;
        painter.setPen(plainColor(kInk));
        painter.drawLine(QPointF(0, y), QPointF(6, y));
        text({10, y - metrics.height() / 2, 80, metrics.height()}, value, Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void PlotHand::paintCrosshair(QPainter& painter) const {
    const int point = nearest(mouse_);
    if (point < 0) return;
    const Plot_Reading& reading = box_.Reading();
    const auto number = static_cast<std::size_t>(point);
    const QPointF at = place(reading.x[number], reading.y[number]);
    QColor ink = plainColor(kInk);
    ink.setAlpha(110);
    painter.setPen(QPen(ink, 1));
    if (reading.polar) {
        painter.drawLine(place(0, 0), at);
    } else {
        const double x = std::floor(at.x()) + 0.5, y = std::floor(mouse_.y()) + 0.5;
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(plainColor(reading.color));
    if (rect().contains(at.toPoint())) painter.drawEllipse(at, 3.5, 3.5);
    paintReadOut(painter, rect(), mouse_, readOut(mouse_), {plainColor(reading.color)}, font(), plainColor(kInk),
                 plainColor(kPaper));
}

void PlotHand::paintEvent(QPaintEvent*) {
    look();
    QPainter painter(this);
    painter.setClipRect(rect());
    if (!whole()) {
        paintPart(painter);
        painter.setRenderHint(QPainter::Antialiasing);
        paintScale(painter);
    }
    const auto engine = painter.paintEngine()->type();
    if (picture_->bare() || (engine != QPaintEngine::Raster && engine != QPaintEngine::OpenGL2)) return;
    painter.setRenderHint(QPainter::Antialiasing);
    if (framing_) {
        QColor veil = plainColor(kInk);
        painter.setPen(QPen(veil, 1, Qt::DashLine));
        veil.setAlpha(28);
        painter.setBrush(veil);
        painter.drawRect(QRectF(pressed_, mouse_).normalized());
    }
    if (underMouse()) paintCrosshair(painter);
}

void PlotHand::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressed_ = mouse_ = event->position();
    framing_ = true;
}

void PlotHand::mouseMoveEvent(QMouseEvent* event) {
    mouse_ = event->position();
    update();
}

void PlotHand::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !framing_) return;
    framing_ = false;
    mouse_ = event->position();
    QRectF frame = QRectF(pressed_, mouse_).normalized().intersected(rect());
    update();
    if (frame.width() < kLeastFrame || frame.height() < kLeastFrame) return;
    if (box_.Reading().polar) {
        const QPointF middle = frame.center();
        const double scale = std::max(frame.width() / width(), frame.height() / height());
        frame.setSize(QSizeF(size()) * scale);
        frame.moveCenter(middle);
    }
    setView({view_.left() + frame.left() / width() * view_.width(),
             view_.top() + frame.top() / height() * view_.height(), frame.width() / width() * view_.width(),
             frame.height() / height() * view_.height()});
}

void PlotHand::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) showAll();
}

void PlotHand::wheelEvent(QWheelEvent* event) {
    event->accept();
    const double by = std::pow(kWheelStep, event->angleDelta().y() / kWheelNotch);
    const double across = event->position().x() / width(), down = event->position().y() / height();
    const QSizeF now(std::clamp(view_.width() * by, kMostEnlarged, 1.0),
                     std::clamp(view_.height() * by, kMostEnlarged, 1.0));
    setView({QPointF(view_.left() + across * (view_.width() - now.width()),
                     view_.top() + down * (view_.height() - now.height())),
             now});
}

void PlotHand::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    update();
}

/// The picture has the menu.
void PlotHand::contextMenuEvent(QContextMenuEvent* event) { QCoreApplication::sendEvent(picture_, event); }

bool PlotHand::event(QEvent* event) {
    // The read-out stands where a tip would.
    if (event->type() == QEvent::ToolTip && nearest(static_cast<QHelpEvent*>(event)->pos()) >= 0) return true;
    return QWidget::event(event);
}

}  // namespace verlink::desktop
