// The cursor of a graph: a line through one of its points, with the values beside it.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <vector>

class QPainter;

namespace verlink::desktop {

/// A value at the cursor: the height of its curve there, and the words for it.
struct CursorMark {
    double y;
    QColor color;
    QString text;
};

/// Where a cursor and its values stand; nothing of it lies outside `bounds`.
struct CursorPlace {
    double line = 0;
    std::vector<QRectF> boxes;  ///< of the values, in the order of the marks
    QRectF bounds;              ///< empty where the cursor is out of sight
};
/// For a line at `x`: the values on the side where there is more room, each as near to its curve as the others let it.
CursorPlace placeCursor(const QRectF& area, double x, const std::vector<CursorMark>& marks, const QFont& font);
/// Lays the cursor over what is painted: the line, a dot on each curve within `area`, and the values.
void paintCursor(QPainter& painter, const QRectF& area, const CursorPlace& place, const std::vector<CursorMark>& marks,
                 const QFont& font, const QColor& ink, const QColor& paper);

/// Where the boxes of the values stand: tops of boxes of that height for curves at `heights`, within the area, in the
/// order given, none over another where there is room.
std::vector<double> cursorBoxes(const std::vector<double>& heights, double box, double top, double bottom);

}  // namespace verlink::desktop
