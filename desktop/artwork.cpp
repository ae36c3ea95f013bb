// How the linkage of the title screen closes, and how it is painted.
#include "desktop/artwork.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/theme.h"

namespace verlink::desktop {

QPointF ArtLinkage::Position::point(double along, double across) const {
    const QPointF axis = b - a;
    const double length = std::hypot(axis.x(), axis.y());
    const QPointF unit = axis / length;
    return a + unit * along + QPointF(-unit.y(), unit.x()) * across;
}

std::optional<ArtLinkage::Position> ArtLinkage::at(double crank_angle) const {
    const QPointF a(crank * std::cos(crank_angle), crank * std::sin(crank_angle));
    const QPointF diagonal = QPointF(ground, 0) - a;
    const double d = std::hypot(diagonal.x(), diagonal.y());
    const double along = (coupler * coupler - rocker * rocker + d * d) / (2 * d);
    const double square = coupler * coupler - along * along;
    if (square < 0) return {};
    const QPointF unit = diagonal / d;
    return Position{a, a + unit * along + QPointF(-unit.y(), unit.x()) * std::sqrt(square)};
}

Artwork::Artwork(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(240, 200);
}

void Artwork::paintEvent(QPaintEvent*) {
    const bool dark = isDark(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    QLinearGradient ground(0, 0, 0, height());
    ground.setColorAt(0, dark ? QColor(0x1B, 0x22, 0x2A) : QColor(0xFF, 0xFF, 0xFF));
    ground.setColorAt(1, dark ? QColor(0x24, 0x2E, 0x38) : QColor(0xE9, 0xF0, 0xF5));
    painter.fillRect(rect(), ground);

    // The linkage and its curves span about 6 by 4.4 of its units, a little to the right of the middle.
    const double unit = std::min(width() / 7.0, height() / 5.0);
    const QPointF origin(width() * 0.5 - 0.8 * unit, height() * 0.5 + 1.35 * unit);
    const auto place = [&](const QPointF& p) { return origin + QPointF(p.x() * unit, -p.y() * unit); };

    const auto curve = [&](double along, double across) {
        QPolygonF points;
        for (int i = 0; i <= 240; ++i)
            if (const auto position = linkage_.at(i * std::numbers::pi / 120))
                points << place(position->point(along, across));
        return points;
    };
    const QColor faint = dark ? QColor(0x8F, 0xB4, 0xC9, 60) : QColor(0x5A, 0x86, 0xA0, 55);
    painter.setPen(QPen(faint, 1));
    for (double along = -0.6; along <= 3.3; along += 0.65)
        for (double across = -0.2; across <= 1.9; across += 0.42) painter.drawPolyline(curve(along, across));

    constexpr double kAlong = 1.35, kAcross = 1.48;
    painter.setPen(QPen(dark ? QColor(0x55, 0xC4, 0x74) : QColor(0x23, 0x92, 0x45), unit * 0.035, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(curve(kAlong, kAcross));

    const auto shown = linkage_.at(62 * std::numbers::pi / 180);
    if (!shown) return;
    const QPointF o2 = place({0, 0}), o4 = place({linkage_.ground, 0});
    const QPointF a = place(shown->a), b = place(shown->b), p = place(shown->point(kAlong, kAcross));

    const QColor steel = dark ? QColor(0x9A, 0xA8, 0xB4) : QColor(0x5B, 0x68, 0x73);
    const double foot = unit * 0.3;
    for (const QPointF& pivot : {o2, o4}) {
        painter.setPen(QPen(steel, unit * 0.03, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{pivot + QPointF(-foot * 0.7, foot), pivot, pivot + QPointF(foot * 0.7, foot)});
        painter.drawLine(pivot + QPointF(-foot * 1.3, foot), pivot + QPointF(foot * 1.3, foot));
        for (int i = -3; i <= 3; ++i)
            painter.drawLine(pivot + QPointF(i * foot * 0.4, foot),
                             pivot + QPointF(i * foot * 0.4 - foot * 0.3, foot * 1.35));
    }

    const QColor link = dark ? QColor(0xE0, 0x5A, 0xB4) : QColor(0xB8, 0x1E, 0x84);
    QColor body = link;
    body.setAlpha(36);
    painter.setPen(QPen(link, unit * 0.065, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(body);
    painter.drawPolygon(QPolygonF{a, p, b});
    painter.setBrush(Qt::NoBrush);
    painter.drawLine(o2, a);
    painter.drawLine(b, o4);

    const QColor paper = dark ? QColor(0x20, 0x28, 0x31) : QColor(0xFF, 0xFF, 0xFF);
    const auto pin = [&](const QPointF& centre, double radius, const QColor& color) {
        painter.setPen(QPen(color, unit * 0.045));
        painter.setBrush(paper);
        painter.drawEllipse(centre, radius * unit, radius * unit);
    };
    const QColor fixed = dark ? QColor(0x6C, 0x97, 0xF0) : QColor(0x1F, 0x4F, 0xBF);
    pin(o2, 0.11, fixed);
    pin(o4, 0.11, fixed);
    pin(a, 0.085, link);
    pin(b, 0.085, link);
    pin(p, 0.085, dark ? QColor(0x55, 0xC4, 0x74) : QColor(0x23, 0x92, 0x45));
}

}  // namespace verlink::desktop
