// Values find their places from the highest down, and are pushed up again from below.
#include "desktop/graph_cursor.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace verlink::desktop {

namespace {

constexpr double kDot = 3.5, kAway = 8, kBoxInset = 3;

}  // namespace

std::vector<double> cursorBoxes(const std::vector<double>& heights, double box, double top, double bottom) {
    std::vector<std::size_t> order(heights.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return heights[a] < heights[b]; });
    std::vector<double> places(heights.size());
    double free = top;
    for (const std::size_t i : order) free = (places[i] = std::max(free, heights[i] - box / 2)) + box;
    double limit = bottom - box;
    for (std::size_t n = order.size(); n-- > 0;) limit = (places[order[n]] = std::min(limit, places[order[n]])) - box;
    // Where there is too little room for all, the highest stay in sight.
    if (!order.empty() && places[order.front()] < top)
        for (std::size_t n = 0; n < order.size(); ++n) places[order[n]] = top + static_cast<double>(n) * box;
    return places;
}

CursorPlace placeCursor(const QRectF& area, double x, const std::vector<CursorMark>& marks, const QFont& font) {
    CursorPlace place;
    if (x < area.left() - 1 || x > area.right() + 1) return place;
    place.line = std::floor(x) + 0.5;
    const QFontMetricsF metrics(font);
    std::vector<double> widths, heights;
    for (const CursorMark& mark : marks) {
        widths.push_back(metrics.horizontalAdvance(mark.text) + 2 * kBoxInset);
        heights.push_back(std::clamp(mark.y, area.top(), area.bottom()));
    }
    const double widest = widths.empty() ? 0 : *std::max_element(widths.begin(), widths.end());
    const bool right = area.right() - x >= widest + kAway || area.right() - x >= x - area.left();
    const std::vector<double> tops = cursorBoxes(heights, metrics.height(), area.top(), area.bottom());
    place.bounds = QRectF(place.line - kDot - 2, area.top() - kDot - 2, 2 * kDot + 4, area.height() + 2 * kDot + 4);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const double left = right ? place.line + kAway : place.line - kAway - widths[i];
        place.boxes.emplace_back(left, tops[i], widths[i], metrics.height());
        place.bounds |= place.boxes.back().adjusted(-1, -1, 1, 1);
    }
    return place;
}

void paintCursor(QPainter& painter, const QRectF& area, const CursorPlace& place, const std::vector<CursorMark>& marks,
                 const QFont& font, const QColor& ink, const QColor& paper) {
    if (place.bounds.isEmpty()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1));
    painter.drawLine(QPointF(place.line, area.top()), QPointF(place.line, area.bottom()));
    const double ascent = QFontMetricsF(font).ascent();
    QColor back = paper;
    back.setAlpha(225);
    painter.setFont(font);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        painter.setPen(Qt::NoPen);
        if (area.top() <= marks[i].y && marks[i].y <= area.bottom()) {
            painter.setBrush(marks[i].color);
            painter.drawEllipse(QPointF(place.line, marks[i].y), kDot, kDot);
        }
        painter.setBrush(back);
        painter.drawRoundedRect(place.boxes[i], 3, 3);
        painter.setPen(marks[i].color);
        painter.drawText(QPointF(place.boxes[i].left() + kBoxInset, place.boxes[i].top() + ascent), marks[i].text);
    }
}

}  // namespace verlink::desktop
