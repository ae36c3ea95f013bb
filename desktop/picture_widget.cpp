// Painting a list of primitives.
#include "desktop/picture_widget.h"

#include <QBackingStore>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTimer>
#include <cmath>
#include <utility>
#include <vector>

#include "desktop/overlay_paint.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "platform/picture_part.h"

namespace verlink::desktop {

namespace {

using platform::Picture;
using Kind = Picture::Primitive::Kind;

using platform::Point;

constexpr double kPen = platform::PicturePixels::kPen;
constexpr double kDot = platform::PicturePixels::kDot;
/// A larger circle is written as the part of it that is seen, nowhere further from it than the other.
constexpr double kVast = 1e4, kOff = 0.01;
/// Of a picture that is painted anew, so many primitives before the window answers again: some 20 ms.
constexpr std::size_t kOneTurn = 5000;
/// Of the ring around what the hand can take, logical pixels.
constexpr double kLightRadius = 9;

/// On the white paper, also of a dark desktop, and apart from the colours of drawings.
QColor lightColor() { return {0xF0, 0x80, 0x00}; }

/// Collects what has one colour and hands it to the painter in few calls: within one colour the order shows not.
class Batch {
   public:
    explicit Batch(QPainter& painter) : painter_(painter) {}
    ~Batch() { flush(); }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    void color(platform::Color color) {
        if (color == color_) return;
        flush();
        color_ = color;
    }

    void segment(const QPointF& from, const QPointF& to) {
        if (chain_.empty() || chain_.back() != from) {
            endChain();
            chain_.push_back(from);
        }
        chain_.push_back(to);
    }
    void circle(const QPointF& centre, double radius) { circles_.emplace_back(centre, radius); }
    void dot(const QPointF& place) { dots_.push_back(place); }

    void flush() {
        endChain();
        if (lines_.empty() && chains_.empty() && circles_.empty() && dots_.empty()) return;
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(plainColor(color_), kPen, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin));
        painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
        for (const auto& chain : chains_) painter_.drawPolyline(chain.data(), static_cast<int>(chain.size()));
        for (const auto& [centre, radius] : circles_) painter_.drawEllipse(centre, radius, radius);
        painter_.setPen(QPen(plainColor(color_), kDot, Qt::SolidLine, Qt::RoundCap));
        painter_.drawPoints(dots_.data(), static_cast<int>(dots_.size()));
        lines_.clear();
        chains_.clear();
        circles_.clear();
        dots_.clear();
    }

   private:
    void endChain() {
        if (chain_.size() == 2) lines_.emplace_back(chain_[0], chain_[1]);
        if (chain_.size() > 2) chains_.push_back(chain_);
        chain_.clear();
    }

    QPainter& painter_;
    platform::Color color_ = 0;
    std::vector<QPointF> chain_;
    std::vector<std::vector<QPointF>> chains_;
    std::vector<QLineF> lines_;
    std::vector<std::pair<QPointF, double>> circles_;
    std::vector<QPointF> dots_;
};

/// Of a vast one the part that is seen, as a chain.
void paintCircle(Batch& batch, const platform::ClipBox& seen, Point centre, double radius) {
    if (radius < kVast) {
        if (Circle_Seen(seen, centre, radius)) batch.circle(toQt(centre), radius);
        return;
    }
    const std::vector<Point> arc = Seen_Arc(seen, centre, radius, kOff);
    platform::Each_Piece(arc, [&](platform::Point from, platform::Point to) { batch.segment(toQt(from), toQt(to)); });
}

}  // namespace

void paintPicture(QPainter& painter, const Picture& picture, const QSizeF& size) {
    painter.fillRect(QRectF(QPointF(0, 0), size), plainColor(picture.Back()));
    painter.save();
    painter.setClipRect(QRectF(QPointF(0, 0), size), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);

    const double perX = size.width() / (picture.Right() - picture.Left());
    const double perY = size.height() / (picture.Bottom() - picture.Top());
    const auto place = [&](double x, double y) {
        return Point{(x - picture.Left()) * perX, (y - picture.Top()) * perY};
    };
    const platform::ClipBox seen = platform::ClipBox{0, 0, size.width(), size.height()}.Grown(2 * kPen);
    // A line along an axis of the screen goes through the middles of pixels, or it would be grey and two wide.
    const double density = painter.device()->devicePixelRatioF();
    const auto middle = [density](double value) { return (std::floor(value * density) + 0.5) / density; };

    Batch batch(painter);
    for (const auto& primitive : picture.Primitives()) {
        if (!primitive.alive) continue;
        batch.color(primitive.color);
        Point from = place(primitive.x1 + primitive.dx1, primitive.y1 + primitive.dy1);
        switch (primitive.kind) {
            case Kind::kMark:
            case Kind::kSegment: {
                Point to = place(primitive.x2 + primitive.dx2, primitive.y2 + primitive.dy2);
                if (from.y == to.y)
                    from.y = to.y = middle(from.y);
                else if (from.x == to.x)
                    from.x = to.x = middle(from.x);
                if (Clip_Segment(seen, from, to)) batch.segment(toQt(from), toQt(to));
                break;
            }
            case Kind::kPin:
            case Kind::kCircle: paintCircle(batch, seen, from, primitive.x2 * std::fabs(perX)); break;
            case Kind::kDot:
                if (seen.Holds(from)) batch.dot(toQt(from));
                break;
        }
    }
    batch.flush();
    painter.restore();
}

PictureWidget::PictureWidget(Picture& picture, QWidget* parent) : QWidget(parent), picture_(picture) {
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    picture_.Changed = [this] {
        if (stale_) return;
        stale_ = true;
        update();
    };
}

PictureWidget::~PictureWidget() { picture_.Changed = nullptr; }

QSize PictureWidget::sizeHint() const { return fills_ ? QSize(320, 240) : QSize(480, 480); }
QSize PictureWidget::minimumSizeHint() const { return fills_ ? QSize(60, 40) : QSize(240, 240); }

void PictureWidget::fill() {
    fills_ = true;
    updateGeometry();
    update();
}

QRectF PictureWidget::area() const {
    if (fills_) return QRectF(rect()).adjusted(1, 1, -1, -1);
    const int side = std::min(width(), height()) - 2;
    return {std::floor((width() - side) / 2.0), std::floor((height() - side) / 2.0), static_cast<double>(side),
            static_cast<double>(side)};
}

void PictureWidget::paintNow() {
    if (stale_ && isVisible()) repaint();
}

void PictureWidget::setLines(const std::vector<std::string>& lines) {
    if (lines == lines_) return;
    lines_ = lines;
    update();
}

void PictureWidget::setOverlay(const platform::Overlay& overlay) {
    if (overlay == overlay_) return;
    overlay_ = overlay;
    stale_ = true;
    update();
}

void PictureWidget::paintLines(QPainter& painter) const {
    if (lines_.empty()) return;
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QFontMetricsF metrics(font);
    const QRectF place = area().adjusted(4, 4, -4, -4);
    painter.save();
    painter.setClipRect(area(), Qt::IntersectClip);
    painter.setFont(font);
    painter.setPen(plainColor(0));
    QPointF at = place.topLeft() + QPointF(0, metrics.ascent());
    for (const std::string& line : lines_) {
        painter.drawText(at, toQt(line));
        at.ry() += metrics.lineSpacing();
    }
    painter.restore();
}

void PictureWidget::paintLight(QPainter& painter) const {
    if (!light_) return;
    const QRectF place = area();
    const platform::Picture& drawing = picture_;
    const double across = (light_->x - drawing.Left()) / (drawing.Right() - drawing.Left());
    const double down = (light_->y - drawing.Top()) / (drawing.Bottom() - drawing.Top());
    const QPointF at =
        place.topLeft() + QPointF(glass_.Seen_Across(across) * place.width(), glass_.Seen_Down(down) * place.height());
    // Far outside a painter's numbers end.
    if (!place.adjusted(-kLightRadius, -kLightRadius, kLightRadius, kLightRadius).contains(at)) return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = lightColor();
    QColor within = color;
    within.setAlpha(light_->held ? 90 : 45);
    painter.setPen(QPen(color, light_->held ? 2.5 : 1.5));
    painter.setBrush(within);
    painter.drawEllipse(at, kLightRadius, kLightRadius);
    painter.restore();
}

void PictureWidget::paintPixels(QPainter& painter, const QRectF& place) {
    const double density = bare_ ? painter.device()->devicePixelRatioF() : devicePixelRatioF();
    const int wide = qRound(place.width() * density), high = qRound(place.height() * density);
    platform::PicturePixels& pixels = bare_ ? apart_ : pixels_;
    // Who takes the window's likeness gets the whole of it.
    QBackingStore* shown = window()->backingStore();
    QPoint offset;
    const bool in_turns = !bare_ && shown && redirected(&offset) == shown->paintDevice();
    pixels.Paint_In_Turns(in_turns ? kOneTurn : platform::PicturePixels::kAll);
    if (bare_ || pixels.Behind() || revision_ != picture_.Revision() || pixels.Wide() != wide || pixels.High() != high)
        pixels.Paint(picture_, wide, high, density, place.width(), place.height(), glass_);
    const auto* bits = reinterpret_cast<const uchar*>(pixels.Pixels().data());
    QImage image(bits, wide, high, qsizetype{4} * wide, QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    painter.drawImage(place.topLeft(), image);
    if (bare_) return;
    revision_ = picture_.Revision();
    stale_ = false;
    if (pixels.Behind()) QTimer::singleShot(0, this, [this] { update(); });
}

/// Under the glass the part that is seen, as a picture of its own.
void PictureWidget::paintVectors(QPainter& painter, const QSizeF& size) const {
    if (glass_ == platform::Glass{}) return paintPicture(painter, picture_, size);
    const double wide = picture_.Right() - picture_.Left(), high = picture_.Bottom() - picture_.Top();
    paintPicture(painter,
                 Part_Of(picture_, picture_.Left() + glass_.Part_Across(0) * wide,
                         picture_.Top() + glass_.Part_Down(0) * high, picture_.Left() + glass_.Part_Across(1) * wide,
                         picture_.Top() + glass_.Part_Down(1) * high, glass_.factor),
                 size);
}

void PictureWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    letGo();
    pixels_.Release();
    apart_.Release();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF place = area();
    if (place.isEmpty()) return;
    const auto engine = painter.paintEngine()->type();
    const bool on_screen = engine == QPaintEngine::Raster || engine == QPaintEngine::OpenGL2;
    if (on_screen) {
        paintPixels(painter, place);
    } else {
        painter.translate(place.topLeft());
        paintVectors(painter, place.size());
        painter.translate(-place.topLeft());
    }
    painter.translate(place.topLeft());
    paintOverlay(painter, overlay_, sightOf(picture_, place.size(), glass_));
    painter.translate(-place.topLeft());
    paintLines(painter);
    if (bare_) return;
    if (on_screen) paintLight(painter);
    // Who came here by the keys sees it.
    const bool chosen = on_screen && magnifies_ && hasFocus();
    painter.setPen(QPen(chosen ? palette().color(QPalette::Highlight) : borderColor(palette()), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(-0.5, -0.5, 0.5, 0.5));
}

}  // namespace verlink::desktop
