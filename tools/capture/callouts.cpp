// A dark disc with a light rim, so that it stands out on forms and on drawings.
#include "tools/capture/callouts.h"

#include <QFont>
#include <QPainter>
#include <QString>

namespace verlink::capture {

void Paint_Callout(QPainter& painter, QPointF at, int number) {
    const QColor ink(0x1F, 0x3B, 0x57);
    const QRectF disc(at.x() - kCalloutSize / 2, at.y() - kCalloutSize / 2, kCalloutSize, kCalloutSize);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(ink);
    painter.drawEllipse(disc);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(14);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(disc, Qt::AlignCenter, QString::number(number));
    painter.restore();
}

}  // namespace verlink::capture
