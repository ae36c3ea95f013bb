// What is painted behind the text of a label.
#include "desktop/caption.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

#include "desktop/theme.h"

namespace verlink::desktop {

Caption::Caption(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void Caption::setLook(Look look) {
    look_ = look;
    if (look == Look::kReadOut) setContentsMargins(6, 3, 6, 3);
    if (look == Look::kBadge) setContentsMargins(9, 2, 9, 2);
    update();
}

void Caption::setBack(const QColor& color) {
    if (color == back_) return;
    back_ = color;
    update();
}

void Caption::setFore(const QColor& color) {
    if (color.isValid() && palette().color(QPalette::Active, QPalette::WindowText) == color) return;
    QPalette own;
    if (color.isValid()) own.setColor(QPalette::WindowText, color);
    setPalette(own);
}

void Caption::setAnchor(const std::optional<platform::Anchor>& anchor) {
    if (anchor == anchor_) return;
    anchor_ = anchor;
    updateGeometry();
}

void Caption::setQuiet() {
    quiet_ = true;
    const QColor shade = quietText(parentWidget() ? parentWidget()->palette() : QApplication::palette());
    if (palette().color(QPalette::Active, QPalette::WindowText) == shade) return;
    QPalette own;
    own.setColor(QPalette::WindowText, shade);
    setPalette(own);
}

void Caption::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (quiet_ && event->type() == QEvent::PaletteChange) setQuiet();
}

void Caption::setBoxWhenEmpty(bool shown) {
    box_when_empty_ = shown;
    update();
}

void Caption::paintEvent(QPaintEvent* event) {
    if (!box_when_empty_ && text().isEmpty()) return;
    if (look_ != Look::kPlain || back_.isValid()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        const double radius = look_ == Look::kBadge ? area.height() / 2 : look_ == Look::kReadOut ? 3 : 0;
        QColor fill = back_;
        if (look_ == Look::kBadge && !fill.isValid()) {
            fill = palette().color(QPalette::Highlight);
            fill.setAlpha(isDark(palette()) ? 70 : 40);
        }
        painter.setPen(look_ == Look::kReadOut ? QPen(borderColor(palette()), 1) : QPen(Qt::NoPen));
        painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(area, radius, radius);
    }
    QLabel::paintEvent(event);
}

void layUpon(QLabel* label, QWidget* pane) {
    label->setParent(pane);
    QPalette ink;
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        ink.setColor(group, QPalette::WindowText, Qt::black);
    label->setPalette(ink);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->raise();
}

}  // namespace verlink::desktop
