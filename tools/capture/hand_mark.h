// The pointer, which no picture of a window has.
#pragma once

#include <QPointF>

class QPainter;

namespace verlink::capture {

/// A hand, open or closed, whose fingers end at a place.
void Paint_Hand(QPainter& painter, QPointF at, bool closed);

}  // namespace verlink::capture
