// Curves and sticks of a graph: quick however many points they have and however far they are enlarged.
#pragma once

#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QVector>

class QPainter;

namespace verlink::desktop {

/// The lines from point to point, with gaps where one is not a number, as far as they lie within `area`. On a screen
/// they are painted by the pixel, elsewhere they are lines; dashes are the pen's.
void paintCurve(QPainter& painter, const QVector<QPointF>& points, const QRectF& area, const QPen& pen);

/// One line for every two points.
void paintSticks(QPainter& painter, const QVector<QPointF>& ends, const QRectF& area, const QPen& pen);

}  // namespace verlink::desktop
