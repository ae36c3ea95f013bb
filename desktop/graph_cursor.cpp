// Values find their places from the highest down, and are pushed up again from below.
#include "desktop/graph_cursor.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace verlink::desktop {

namespace {

constexpr double kDot = 3.5, kAway = 8, kInset = 3;

}  // namespace

std::vector<double> cursorBoxes(const std::vector<double>& heights, double box, double top, double bottom) {
    std::vector<std::size_t> order(heights.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return heights[a] < heights[b]; });
    std::vector<double> places(heights.size());
    double free = top;
    for (const std::size_t i : order) free = (places[i] = std::max(free, heights[i] - box / 2)) + box;
    double limit = bottom - box;
    for (auto i = order.rbegin(); i != order.rend(); ++i) limit = (places[*i] = std::min(limit, places[*i])) - box;
    // Where there is too little room for all, the highest stay in sight.
    if (!order.empty() && places[order.front()] < top)
        for (std::size_t n = 0; n < order.size(); ++n) places[order[n]] = top + static_cast<double>(n) * box;
    return places;
}

void paintCursor(QPainter& painter, const QRectF& area, double x, const std::vector<CursorMark>& marks,
                 const QFont& font, const QColor& ink, const QColor& paper) {
    if (x < area.left() - 1 || x > area.right() + 1) return;
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = std::floor(x) + 0.5;
    painter.setPen(QPen(ink, 1));
    painter.drawLine(QPointF(line, area.top()), QPointF(line, area.bottom()));
    const QFontMetricsF metrics(font);
    double wide = 0;
    std::vector<double> heights;
    for (const CursorMark& mark : marks) {
        wide = std::max(wide, metrics.horizontalAdvance(mark.text) + 2 * kInset);
        heights.push_back(std::clamp(mark.y, area.top(), area.bottom()));
    }
    const std::vector<double> tops = cursorBoxes(heights, metrics.height(), area.top(), area.bottom());
    const bool right = area.right() - x >= wide + kAway || area.right() - x >= x - area.left();
    QColor back = paper;
    back.setAlpha(225);
    painter.setFont(font);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        painter.setPen(Qt::NoPen);
        if (area.top() <= marks[i].y && marks[i].y <= area.bottom()) {
            painter.setBrush(marks[i].color);
            painter.drawEllipse(QPointF(line, marks[i].y), kDot, kDot);
        }
        const double width = metrics.horizontalAdvance(marks[i].text) + 2 * kInset;
        const QRectF box(right ? line + kAway : line - kAway - width, tops[i], width, metrics.height());
        painter.setBrush(back);
        painter.drawRoundedRect(box, 3, 3);
        painter.setPen(marks[i].color);
        painter.drawText(QPointF(box.left() + kInset, box.top() + metrics.ascent()), marks[i].text);
    }
}

}  // namespace verlink::desktop
