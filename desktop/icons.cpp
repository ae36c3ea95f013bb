// The strokes of each icon on a field of 24 by 24.
#include "desktop/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <cmath>

namespace verlink::desktop {

namespace {

QPainterPath polyline(std::initializer_list<QPointF> points) {
    QPainterPath path;
    for (const QPointF& point : points) path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
    return path;
}

QPainterPath ring(double x, double y, double radius) {
    QPainterPath path;
    path.addEllipse(QPointF(x, y), radius, radius);
    return path;
}

/// A four-bar on its two pivots.
QPainterPath inputStrokes() {
    QPainterPath path = polyline({{4.9, 17.4}, {7.3, 9.6}});
    path.addPath(polyline({{9.8, 7.7}, {15.4, 6.2}}));
    path.addPath(polyline({{17.6, 7.6}, {18.9, 17.1}}));
    path.addPath(polyline({{2, 21.5}, {22, 21.5}}));
    for (const auto& [x, y] : {std::pair{4.2, 19.2}, {8, 8.1}, {17.2, 5.7}, {19.2, 19.2}})
        path.addPath(ring(x, y, 1.9));
    return path;
}

/// A play mark in a circle.
QPainterPath animateStrokes() {
    QPainterPath path = ring(12, 12, 9.5);
    path.addPath(polyline({{9.8, 7.8}, {16.2, 12}, {9.8, 16.2}, {9.8, 7.8}}));
    return path;
}

/// Axes and a wave.
QPainterPath plotStrokes() {
    QPainterPath path = polyline({{3, 3}, {3, 21}, {21.5, 21}});
    QPainterPath wave(QPointF(5.5, 13));
    for (int i = 1; i <= 30; ++i) wave.lineTo(5.5 + i * 0.5, 12 - 5.5 * std::sin(i * 0.23) * (1 - i * 0.008));
    path.addPath(wave);
    return path;
}

QPainterPath printStrokes() {
    QPainterPath path = polyline({{6.5, 9}, {6.5, 2.8}, {17.5, 2.8}, {17.5, 9}});
    QPainterPath body;
    body.addRoundedRect(2.8, 9, 18.4, 8, 1.8, 1.8);
    path.addPath(body);
    path.addPath(polyline({{6.5, 14.5}, {6.5, 21.2}, {17.5, 21.2}, {17.5, 14.5}, {6.5, 14.5}}));
    return path;
}

/// A force on a turning body.
QPainterPath dynamicsStrokes() {
    QPainterPath path = ring(9.5, 14.5, 2.2);
    QPainterPath turn;
    turn.arcMoveTo(2.5, 7.5, 14, 14, 100);
    turn.arcTo(2.5, 7.5, 14, 14, 100, 250);
    path.addPath(turn);
    path.addPath(polyline({{11.2, 12.8}, {20.6, 3.4}}));
    path.addPath(polyline({{15.4, 3.2}, {20.8, 3.2}, {20.8, 8.6}}));
    return path;
}

/// A beam balance.
QPainterPath balanceStrokes() {
    QPainterPath path = polyline({{12, 3}, {12, 20.5}});
    path.addPath(polyline({{7.5, 20.8}, {16.5, 20.8}}));
    path.addPath(polyline({{4.5, 6}, {19.5, 6}}));
    for (const double x : {4.8, 19.2}) {
        path.addPath(polyline({{x - 3.2, 13}, {x, 6}, {x + 3.2, 13}}));
        QPainterPath pan;
        pan.arcMoveTo(x - 3.2, 9.8, 6.4, 6.4, 180);
        pan.arcTo(x - 3.2, 9.8, 6.4, 6.4, 180, 180);
        pan.closeSubpath();
        path.addPath(pan);
    }
    return path;
}

/// A door and the way out.
QPainterPath quitStrokes() {
    QPainterPath path = polyline({{14, 6.5}, {14, 3}, {3.5, 3}, {3.5, 21}, {14, 21}, {14, 17.5}});
    path.addPath(polyline({{8.5, 12}, {21, 12}}));
    path.addPath(polyline({{17, 8}, {21, 12}, {17, 16}}));
    return path;
}

/// A padlock; open, its shackle stands up on one side.
QPainterPath lockStrokes(bool open) {
    QPainterPath path;
    path.addRoundedRect(4.5, 11, 15, 10.5, 1.8, 1.8);
    path.addPath(polyline({{12, 15}, {12, 17.5}}));
    const double left = open ? 11.5 : 7.5, top = 2.5;
    QPainterPath shackle(QPointF(left, 11));
    shackle.lineTo(left, top + 4.5);
    shackle.arcTo(left, top, 9, 9, 180, -180);
    if (!open) shackle.lineTo(left + 9, 11);
    path.addPath(shackle);
    return path;
}

QPainterPath strokesOf(Picto picto) {
    switch (picto) {
        case Picto::kInput: return inputStrokes();
        case Picto::kAnimate: return animateStrokes();
        case Picto::kPlot: return plotStrokes();
        case Picto::kPrint: return printStrokes();
        case Picto::kDynamics: return dynamicsStrokes();
        case Picto::kBalance: return balanceStrokes();
        case Picto::kQuit: return quitStrokes();
        case Picto::kLocked: return lockStrokes(false);
        case Picto::kUnlocked: return lockStrokes(true);
    }
    return {};
}

class LineIcon : public QIconEngine {
   public:
    explicit LineIcon(Picto picto) : picto_(picto) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 24.0, rect.height() / 24.0);
        painter->setPen(QPen(QApplication::palette().color(group, QPalette::ButtonText), 1.5, Qt::SolidLine,
                             Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        painter->drawPath(strokesOf(picto_));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return image;
    }
    QIconEngine* clone() const override { return new LineIcon(picto_); }

   private:
    Picto picto_;
};

}  // namespace

QIcon lineIcon(Picto picto) { return QIcon(new LineIcon(picto)); }

QIcon programIcon() {
    QIcon icon;
    QSvgRenderer large(QStringLiteral(":/verlink.svg")), small(QStringLiteral(":/verlink-small.svg"));
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap image(side, side);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        (side < 32 ? small : large).render(&painter);
        painter.end();
        icon.addPixmap(image);
    }
    return icon;
}

}  // namespace verlink::desktop
