// The box beside the pointer in which the values of a plot are read.
#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QStringList>
#include <vector>

class QPainter;

namespace verlink::desktop {

/// Lays the texts beside a place, at the side where the area has room. All but the first have a stroke of their
/// curve's colour before them; `curves` may have fewer, and then the last texts have none.
void paintReadOut(QPainter& painter, const QRectF& area, const QPointF& at, const QStringList& texts,
                  const std::vector<QColor>& curves, const QFont& font, const QColor& ink, const QColor& paper);

}  // namespace verlink::desktop
