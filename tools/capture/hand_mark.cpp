// Palm, thumb and fingers as one outline.
#include "tools/capture/hand_mark.h"

#include <QPainter>
#include <QPainterPath>

namespace verlink::capture {

void Paint_Hand(QPainter& painter, QPointF at, bool closed) {
    constexpr double kFinger = 4, kOpen = 11, kClosed = 4, kPalm = 11;
    const double fingers = closed ? kClosed : kOpen;
    QPainterPath hand;
    hand.addRoundedRect(QRectF(-2 * kFinger, fingers - 2, 4 * kFinger, kPalm), 5, 5);
    for (int finger = 0; finger < 4; ++finger) {
        // The outer ones are shorter.
        const double top = finger == 0 || finger == 3 ? fingers / 4 : 0;
        QPainterPath one;
        one.addRoundedRect(QRectF((finger - 2) * kFinger, top, kFinger, fingers - top + 4), 2, 2);
        hand = hand.united(one);
    }
    QPainterPath thumb;
    thumb.addRoundedRect(QRectF(-3 * kFinger, fingers, 1.6 * kFinger, 6), 2.5, 2.5);
    hand = hand.united(thumb);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at);
    painter.setPen(QPen(Qt::black, 1.2));
    painter.setBrush(Qt::white);
    painter.drawPath(hand);
    painter.restore();
}

}  // namespace verlink::capture
