// Strokes of one curve are gathered as ink and laid upon the graph at once.
#include "desktop/curve_paint.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "desktop/text.h"
#include "platform/clip.h"
#include "platform/ink.h"

namespace verlink::desktop {

namespace {

using platform::Clip_Segment;
using platform::ClipBox;
using platform::Ink;
using platform::Point;

bool byPixel(const QPainter& painter) {
    const auto engine = painter.paintEngine()->type();
    return engine == QPaintEngine::Raster || engine == QPaintEngine::OpenGL2;
}

/// Kept from one curve to the next, empty: as much memory as a graph has pixels, made anew for each, costs more than
/// the curve.
struct Blank {
    Ink ink;
    std::vector<std::uint32_t> pixels;
};

Blank& blankOf(int wide, int high) {
    static Blank blank;
    if (blank.ink.Width() != wide || blank.ink.Height() != high)
        blank = {Ink(wide, high),
                 std::vector<std::uint32_t>(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high))};
    return blank;
}

/// The ink of one pen on the device pixels of an area.
class Sheet {
   public:
    Sheet(QPainter& painter, const QRectF& area, const QPen& pen)
        : painter_(painter),
          pen_(pen),
          scale_(painter.deviceTransform().m11()),
          corner_(std::floor(area.left() * scale_), std::floor(area.top() * scale_)),
          wide_(static_cast<int>(std::ceil(area.right() * scale_ - corner_.x()))),
          high_(static_cast<int>(std::ceil(area.bottom() * scale_ - corner_.y()))),
          width_(pen.widthF() * scale_),
          seen_(ClipBox{0, 0, static_cast<double>(wide_), static_cast<double>(high_)}.Grown(2 * width_)),
          blank_(blankOf(wide_, high_)),
          ink_(blank_.ink) {
        for (const double part : pen.dashPattern()) dashes_.push_back(part * width_);
        for (const double dash : dashes_) round_ += dash;
    }

    Point place(const QPointF& at) const { return {at.x() * scale_ - corner_.x(), at.y() * scale_ - corner_.y()}; }

    /// The pattern of dashes goes on from where the last line ended, seen or not.
    void line(Point from, Point to) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        Point first = from, last = to;
        if (Clip_Segment(seen_, first, last)) {
            if (round_ > 0)
                dash(first, last, walked_ + std::hypot(first.x - from.x, first.y - from.y));
            else
                ink_.Line(first, last, width_);
        }
        if (round_ > 0 && std::isfinite(length)) walked_ = std::fmod(walked_ + length, round_);
    }

    /// Each pair of points is a line; upright ones are drawn together.
    void sticks(const QVector<QPointF>& ends) {
        std::vector<Ink::Upright> upright;
        for (qsizetype i = 1; i < ends.size(); i += 2) {
            const Point from = place(ends[i - 1]), to = place(ends[i]);
            if (round_ > 0 || from.x != to.x)
                line(from, to);
            else
                upright.push_back({from.x, from.y, to.y});
        }
        ink_.Lines(upright, width_);
    }

    void lay() {
        const Ink::Area area = ink_.Covered();
        if (area.right == 0) return;
        const QColor color = pen_.color();
        ink_.Pour_Upon_Nothing(blank_.pixels, color.red() + 256 * color.green() + 65536 * color.blue(), color.alpha());
        const auto row = [&](int y) {
            return blank_.pixels.data() + static_cast<std::ptrdiff_t>(y) * wide_ + area.left;
        };
        const int wide = area.right - area.left, high = area.bottom - area.top;
        QImage image(reinterpret_cast<const uchar*>(row(area.top)), wide, high, qsizetype{4} * wide_,
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale_);
        painter_.drawImage((corner_ + QPointF(area.left, area.top)) / scale_, image);
        for (int y = area.top; y < area.bottom; ++y) std::fill_n(row(y), wide, 0U);
    }

   private:
    void dash(Point from, Point to, double start) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (length == 0) return;
        std::size_t part = 0;
        double in_part = std::fmod(start, round_);
        while (in_part >= dashes_[part]) {
            in_part -= dashes_[part];
            part = (part + 1) % dashes_.size();
        }
        for (double at = 0; at < length;) {
            const double end = std::min(length, at + dashes_[part] - in_part);
            // The round ends of ink stand out by half its width.
            if (part % 2 == 0) stroke(from, to, length, at, end);
            at = end;
            in_part = 0;
            part = (part + 1) % dashes_.size();
        }
    }
    void stroke(Point from, Point to, double length, double first, double last) {
        const double in = std::min(width_ / 2, (last - first) / 2);
        // Where the line goes on beyond a corner, the dash does.
        const double a = (first > 0 ? first + in : first) / length, b = (last < length ? last - in : last) / length;
        const double x = to.x - from.x, y = to.y - from.y;
        ink_.Line({from.x + a * x, from.y + a * y}, {from.x + b * x, from.y + b * y}, width_);
    }

    QPainter& painter_;
    const QPen& pen_;
    double scale_;
    QPointF corner_;  ///< in device pixels
    int wide_, high_;
    double width_;
    ClipBox seen_;
    Blank& blank_;
    Ink& ink_;
    std::vector<double> dashes_;
    double round_ = 0;   ///< the length of all dashes and gaps
    double walked_ = 0;  ///< of that
};

Point pointOf(const QPointF& at) { return {at.x(), at.y()}; }
ClipBox around(const QRectF& area, const QPen& pen) {
    return ClipBox{area.left(), area.top(), area.right(), area.bottom()}.Grown(2 * pen.widthF());
}

/// The parts of a curve that are seen, each as one line with its corners.
void drawAsLines(QPainter& painter, const QVector<QPointF>& points, const ClipBox& seen) {
    QVector<QPointF> chain;
    const auto end = [&] {
        if (chain.size() > 1) painter.drawPolyline(chain.constData(), static_cast<int>(chain.size()));
        chain.clear();
    };
    for (qsizetype i = 1; i < points.size(); ++i) {
        Point from = pointOf(points[i - 1]), to = pointOf(points[i]);
        if (!Clip_Segment(seen, from, to)) continue;
        if (chain.isEmpty() || chain.back() != toQt(from)) {
            end();
            chain.append(toQt(from));
        }
        chain.append(toQt(to));
    }
    end();
}

}  // namespace

void paintCurve(QPainter& painter, const QVector<QPointF>& points, const QRectF& area, const QPen& pen) {
    if (pen.style() == Qt::NoPen || points.size() < 2 || area.isEmpty()) return;
    if (!byPixel(painter)) {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        return drawAsLines(painter, points, around(area, pen));
    }
    Sheet sheet(painter, area, pen);
    // Steps of less than half a pixel are taken together.
    constexpr double kThinnest = 0.5;
    Point drawn = sheet.place(points[0]), last = drawn;
    for (qsizetype i = 1; i < points.size(); ++i) {
        const Point to = sheet.place(points[i]);
        const double far = std::hypot(to.x - drawn.x, to.y - drawn.y);
        if (far < kThinnest && i + 1 < points.size()) {
            last = to;
            continue;
        }
        if (std::isfinite(far)) {
            sheet.line(drawn, to);
        } else if (last != drawn) {
            sheet.line(drawn, last);
        }
        drawn = last = to;
    }
    sheet.lay();
}

void paintSticks(QPainter& painter, const QVector<QPointF>& ends, const QRectF& area, const QPen& pen) {
    if (pen.style() == Qt::NoPen || area.isEmpty()) return;
    if (!byPixel(painter)) {
        painter.setPen(pen);
        const ClipBox seen = around(area, pen);
        for (qsizetype i = 1; i < ends.size(); i += 2) {
            Point from = pointOf(ends[i - 1]), to = pointOf(ends[i]);
            if (Clip_Segment(seen, from, to)) painter.drawLine(toQt(from), toQt(to));
        }
        return;
    }
    Sheet sheet(painter, area, pen);
    sheet.sticks(ends);
    sheet.lay();
}

}  // namespace verlink::desktop
