// Strokes, heads and words of an overlay in Qt's terms.
#include "desktop/overlay_paint.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include "desktop/text.h"
#include "desktop/theme.h"
#include "platform/picture_pixels.h"

namespace verlink::desktop {

namespace {

using platform::Color;
using platform::Point;

constexpr double kMarkPen = platform::PicturePixels::kPen;
constexpr int kLetters = 12;                ///< pixels
constexpr int kFaint = 70, kOnPaper = 215;  ///< of 255: how much of it covers what lies below

class QtOverlayPen : public platform::Overlay_Pen {
   public:
    explicit QtOverlayPen(QPainter& painter) : painter_(painter), metrics_(font(), painter.device()) {
        painter_.setFont(font());
    }

    void Line(Point from, Point to, Stroke stroke, Color color) override {
        QColor ink = plainColor(color);
        if (stroke == Stroke::kFaint) ink.setAlpha(kFaint);
        QPen pen(ink, stroke == Stroke::kDashed ? 1 : kMarkPen, Qt::SolidLine, Qt::FlatCap);
        if (stroke == Stroke::kDashed) pen.setDashPattern({5, 4});
        painter_.setPen(pen);
        painter_.drawLine(toQt(from), toQt(to));
    }
    void Circle(Point centre, double radius, Color color) override {
        painter_.setPen(QPen(plainColor(color), kMarkPen));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawEllipse(toQt(centre), radius, radius);
    }
    void Triangle(Point a, Point b, Point c, Color color) override {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(plainColor(color));
        painter_.drawPolygon(QPolygonF({toQt(a), toQt(b), toQt(c)}));
    }
    void Paper(Point corner, double wide, double high) override {
        QColor paper = plainColor(0xFFFFFF);
        paper.setAlpha(kOnPaper);
        painter_.fillRect(QRectF(corner.x, corner.y, wide, high), paper);
    }
    void Text(Point corner, const std::string& text, Color color) override {
        painter_.setPen(plainColor(color));
        painter_.drawText(QPointF(corner.x, corner.y + metrics_.ascent()), desktop::toQt(text));
    }
    double Text_Wide(const std::string& text) override { return metrics_.horizontalAdvance(desktop::toQt(text)); }
    double Text_High() override { return metrics_.height(); }

   private:
    QFont font() const {
        QFont letters = painter_.font();
        letters.setPixelSize(kLetters);
        return letters;
    }

    QPainter& painter_;
    QFontMetricsF metrics_;
};

}  // namespace

platform::Sight sightOf(const platform::Picture& picture, const QSizeF& size, const platform::Glass& glass) {
    const double wide = picture.Right() - picture.Left(), high = picture.Bottom() - picture.Top();
    return {picture.Left() + glass.Part_Across(0) * wide,
            picture.Top() + glass.Part_Down(0) * high,
            wide / glass.factor,
            high / glass.factor,
            size.width(),
            size.height(),
            glass.factor};
}

void paintOverlay(QPainter& painter, const platform::Overlay& overlay, const platform::Sight& sight) {
    if (overlay.Empty()) return;
    painter.save();
    painter.setClipRect(QRectF(0, 0, sight.across, sight.down), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    QtOverlayPen pen(painter);
    platform::Draw_Overlay(overlay, sight, pen);
    painter.restore();
}

}  // namespace verlink::desktop
