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

namespace {

/// Paints one linkage in the colours of a light or a dark desktop.
class ArtPainter {
   public:
    ArtPainter(QPainter& painter, const ArtLinkage& linkage, const QSize& size, bool dark)
        : painter_(painter), linkage_(linkage), size_(size), dark_(dark) {
        painter_.setRenderHint(QPainter::Antialiasing);
    }

    void ground() {
        QLinearGradient ground(0, 0, 0, size_.height());
        ground.setColorAt(0, dark_ ? QColor(0x1B, 0x22, 0x2A) : QColor(0xFF, 0xFF, 0xFF));
        ground.setColorAt(1, dark_ ? QColor(0x24, 0x2E, 0x38) : QColor(0xE9, 0xF0, 0xF5));
        painter_.fillRect(QRect(QPoint(0, 0), size_), ground);
    }

    void curves() {
        const QColor faint = dark_ ? QColor(0x8F, 0xB4, 0xC9, 60) : QColor(0x5A, 0x86, 0xA0, 55);
        painter_.setPen(QPen(faint, 1));
        for (double along = -0.6; along <= 3.3; along += 0.65)
            for (double across = -0.2; across <= 1.9; across += 0.42) painter_.drawPolyline(curve(along, across));
        painter_.setPen(QPen(green(), unit_ * 0.035, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter_.drawPolyline(curve(kAlong, kAcross));
    }

    void links() {
        const auto shown = linkage_.at(62 * std::numbers::pi / 180);
        if (!shown) return;
        const QPointF o2 = place({0, 0}), o4 = place({linkage_.ground, 0});
        const QPointF a = place(shown->a), b = place(shown->b), p = place(shown->point(kAlong, kAcross));
        for (const QPointF& pivot : {o2, o4}) foot(pivot);
        const QColor link = dark_ ? QColor(0xE0, 0x5A, 0xB4) : QColor(0xB8, 0x1E, 0x84);
        QColor body = link;
        body.setAlpha(36);
        painter_.setPen(QPen(link, unit_ * 0.065, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter_.setBrush(body);
        painter_.drawPolygon(QPolygonF{a, p, b});
        painter_.setBrush(Qt::NoBrush);
        painter_.drawLine(o2, a);
        painter_.drawLine(b, o4);
        const QColor fixed = dark_ ? QColor(0x6C, 0x97, 0xF0) : QColor(0x1F, 0x4F, 0xBF);
        for (const QPointF& pivot : {o2, o4}) pin(pivot, 0.11, fixed);
        for (const QPointF& joint : {a, b}) pin(joint, 0.085, link);
        pin(p, 0.085, green());
    }

   private:
    static constexpr double kAlong = 1.35, kAcross = 1.48;

    QColor green() const { return dark_ ? QColor(0x55, 0xC4, 0x74) : QColor(0x23, 0x92, 0x45); }
    QPointF place(const QPointF& p) const { return origin_ + QPointF(p.x() * unit_, -p.y() * unit_); }
    QPolygonF curve(double along, double across) const {
        QPolygonF points;
        for (int i = 0; i <= 240; ++i)
            if (const auto position = linkage_.at(i * std::numbers::pi / 120))
                points << place(position->point(along, across));
        return points;
    }

    void foot(const QPointF& pivot) {
        const QColor steel = dark_ ? QColor(0x9A, 0xA8, 0xB4) : QColor(0x5B, 0x68, 0x73);
        const double foot = unit_ * 0.3;
        painter_.setPen(QPen(steel, unit_ * 0.03, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter_.drawPolyline(QPolygonF{pivot + QPointF(-foot * 0.7, foot), pivot, pivot + QPointF(foot * 0.7, foot)});
        painter_.drawLine(pivot + QPointF(-foot * 1.3, foot), pivot + QPointF(foot * 1.3, foot));
        for (int i = -3; i <= 3; ++i)
            painter_.drawLine(pivot + QPointF(i * foot * 0.4, foot),
                              pivot + QPointF(i * foot * 0.4 - foot * 0.3, foot * 1.35));
    }

    void pin(const QPointF& centre, double radius, const QColor& color) {
        painter_.setPen(QPen(color, unit_ * 0.045));
        painter_.setBrush(dark_ ? QColor(0x20, 0x28, 0x31) : QColor(0xFF, 0xFF, 0xFF));
        painter_.drawEllipse(centre, radius * unit_, radius * unit_);
    }

    QPainter& painter_;
    const ArtLinkage& linkage_;
    QSize size_;
    bool dark_;
    /// The linkage and its curves span about 6 by 4.4 of its units, a little to the right of the middle.
    double unit_ = std::min(size_.width() / 7.0, size_.height() / 5.0);
    QPointF origin_{size_.width() * 0.5 - 0.8 * unit_, size_.height() * 0.5 + 1.35 * unit_};
};

}  // namespace

Artwork::Artwork(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(240, 200);
}

void Artwork::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ArtPainter art(painter, linkage_, size(), isDark(palette()));
    art.ground();
    art.curves();
    art.links();
}

}  // namespace verlink::desktop
