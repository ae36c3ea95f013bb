// How the box finds its side.
#include "desktop/read_out.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace verlink::desktop {

void paintReadOut(QPainter& painter, const QRectF& area, const QPointF& at, const QStringList& texts,
                  const std::vector<QColor>& curves, const QFont& font, const QColor& ink, const QColor& paper) {
    painter.setFont(font);
    const QFontMetricsF metrics(font);
    const auto stroke = [&](qsizetype text) { return text > 0 && text <= static_cast<qsizetype>(curves.size()); };
    double width = 0;
    for (qsizetype i = 0; i < texts.size(); ++i)
        width = std::max(width, metrics.horizontalAdvance(texts[i]) + (stroke(i) ? 16 : 0));
    constexpr double kEdge = 8, kFromPointer = 14;
    const double line = metrics.height();
    QRectF box(0, 0, width + 2 * kEdge, line * static_cast<double>(texts.size()) + kEdge);
    box.moveLeft(at.x() + kFromPointer + box.width() <= area.right() ? at.x() + kFromPointer
                                                                     : at.x() - kFromPointer - box.width());
    box.moveTop(at.y() + kFromPointer + box.height() <= area.bottom() ? at.y() + kFromPointer
                                                                      : at.y() - kFromPointer - box.height());
    box.moveLeft(std::max(2.0, box.left()));
    box.moveTop(std::max(2.0, box.top()));
    QColor back = paper, border = ink;
    back.setAlpha(235);
    border.setAlpha(120);
    painter.setBrush(back);
    painter.setPen(border);
    painter.drawRoundedRect(box, 4, 4);
    double top = box.top() + kEdge / 2;
    for (qsizetype i = 0; i < texts.size(); ++i, top += line) {
        double left = box.left() + kEdge;
        if (stroke(i)) {
            painter.setPen(QPen(curves[static_cast<std::size_t>(i - 1)], 2.5));
            painter.drawLine(QPointF(left, top + line / 2), QPointF(left + 10, top + line / 2));
            left += 16;
        }
        painter.setPen(ink);
        painter.drawText(QPointF(left, top + metrics.ascent()), texts[i]);
    }
}

}  // namespace verlink::desktop
