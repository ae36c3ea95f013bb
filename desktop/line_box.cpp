// How a refused line is framed and told.
#include "desktop/line_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include "desktop/theme.h"

namespace verlink::desktop {

namespace {
/// Clear of the box, its unit, and the boxes below.
constexpr QPoint kBeside(32, -24);
}  // namespace

void LineBox::setRefusal(const QString& words) {
    if (words == words_) return;
    words_ = words;
    update();
    if (!refused()) return;
    // Behind the coming of the focus elsewhere, which takes tips away.
    QTimer::singleShot(0, this, [this] {
        if (refused() && isVisible()) QToolTip::showText(mapToGlobal(rect().topRight()) + kBeside, words_, this);
    });
}

void LineBox::keyPressEvent(QKeyEvent* event) {
    const QString letter = event->text();
    if (event->modifiers().testFlag(Qt::AltModifier) && !letter.isEmpty() && letter.at(0).isPrint())
        return event->ignore();
    QLineEdit::keyPressEvent(event);
}

void LineBox::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    bool number = false;
    text().remove(u',').toDouble(&number);
    if (number) selectAll();
}

void LineBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!refused()) return;
    constexpr qreal kWide = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(refusalColor(window()->palette()), kWide));
    painter.drawRoundedRect(QRectF(rect()).adjusted(kWide / 2, kWide / 2, -kWide / 2, -kWide / 2), 2, 2);
}

}  // namespace verlink::desktop
