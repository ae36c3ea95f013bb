// Numbered circles in pictures of the manual.
#pragma once

#include <QPointF>

class QPainter;

namespace verlink::capture {

constexpr double kCalloutSize = 22;  ///< across, in pixels of the window

/// A disc with a number, its middle at a place.
void Paint_Callout(QPainter& painter, QPointF at, int number);

}  // namespace verlink::capture
