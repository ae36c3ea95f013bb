// Each chart in an area that leaves room for its scale and its words.
#include "desktop/chart_widgets.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/picture_menu.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "output/graph_scale.h"
#include "screens/picture_entries.h"

namespace verlink::desktop {

namespace {

using platform::Bars;
using platform::Color_Map;
using platform::Histogram;

constexpr int kMargin = 10, kTick = 4;
const QColor kBar(0x3B, 0x6F, 0xB6), kStrong(0xB0, 0x30, 0x30), kQuiet(0x80, 0x80, 0x80), kNothing(0xE4, 0xE4, 0xE4);

QColor ink() { return plainColor(Colors_Of(15).ink); }
QString numberOf(double value) { return QString::number(value, 'g', 6); }

/// Dark blue by green to yellow, lighter all the way.
QRgb shade(double part) {
    struct Anchor {
        int red, green, blue;
    };
    constexpr Anchor kAnchors[] = {{68, 1, 84},    {65, 68, 135},  {42, 120, 142}, {34, 168, 132},
                                   {122, 209, 81}, {253, 231, 37}, {253, 231, 37}};
    const double at = std::clamp(part, 0.0, 1.0) * 5;
    const auto from = static_cast<std::size_t>(at);
    const Anchor &a = kAnchors[from], &b = kAnchors[from + 1];
    const double rest = at - static_cast<double>(from);
    const auto mix = [rest](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * rest)); };
    return qRgb(mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue));
}

/// An axis may go down.
Span ordered(Span span) { return {std::min(span.low, span.high), std::max(span.low, span.high)}; }

/// Round numbers below a line, with ticks and the title under them.
void paintScale(QPainter& painter, const QRectF& area, Span span, const QString& title) {
    const QFontMetricsF metrics(painter.font());
    painter.setPen(ink());
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    const double widest = metrics.horizontalAdvance(QStringLiteral("-00.0000"));
    const int room = std::max(2, static_cast<int>(area.width() / widest / 1.3));
    for (const double value : Round_Values(ordered(span), room)) {
        const double x = area.left() + area.width() * (value - span.low) / span.Width();
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + kTick));
        const QString words = numberOf(value);
        const double wide = metrics.horizontalAdvance(words);
        painter.drawText(QPointF(x - wide / 2, area.bottom() + kTick + metrics.ascent()), words);
    }
    painter.drawText(QRectF(area.left(), area.bottom() + kTick + metrics.height(), area.width(), metrics.height()),
                     Qt::AlignHCenter, metrics.elidedText(title, Qt::ElideRight, area.width()));
}

}  // namespace

ChartWidget::ChartWidget(const platform::Visual& control, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    new PictureMenu(control, *this, kPlotPicture, [this] { return sourceOf(*this, rect(), accessibleName()); });
}

void ChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), plainColor(Colors_Of(15).back));
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
}

HistogramWidget::HistogramWidget(const Histogram& histogram, QWidget* parent)
    : ChartWidget(histogram, parent), histogram_(histogram) {
    follow();
}

void HistogramWidget::follow() {
    const std::string& title = histogram_.Shown.Get().title;
    setAccessibleName(title.empty() ? QStringLiteral("Histogram") : QStringLiteral("Histogram of ") + toQt(title));
    update();
}

QRectF HistogramWidget::area() const {
    const int line = fontMetrics().height();
    return QRectF(rect()).adjusted(2 * kMargin, kMargin + line, -2 * kMargin, -(2 * line + kTick + kMargin));
}

double HistogramWidget::placeOf(double value) const {
    const Histogram::Content& shown = histogram_.Shown;
    return area().left() + area().width() * (value - shown.from) / (shown.to - shown.from);
}

void HistogramWidget::paint(QPainter& painter) {
    const Histogram::Content& shown = histogram_.Shown;
    if (shown.counts.empty()) return;
    const QRectF bars = area();
    const double most = std::max(1.0, *std::ranges::max_element(shown.counts));
    const double wide = bars.width() / static_cast<double>(shown.counts.size());
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBar);
    for (std::size_t i = 0; i < shown.counts.size(); ++i) {
        const double high = bars.height() * shown.counts[i] / most;
        painter.drawRect(
            QRectF(bars.left() + wide * static_cast<double>(i), bars.bottom() - high, std::max(1.0, wide - 1), high));
    }
    paintLines(painter, bars);
    paintScale(painter, bars, {shown.from, shown.to}, toQt(shown.title));
}

/// Names that would stand upon each other are left out but for the first of them.
void HistogramWidget::paintLines(QPainter& painter, const QRectF& bars) {
    const QFontMetricsF metrics(painter.font());
    std::vector<QRectF> taken;
    for (const Histogram::Line& line : histogram_.Shown.Get().lines) {
        const double x = placeOf(line.at);
        if (!(x >= bars.left() - 1 && x <= bars.right() + 1)) continue;
        const QColor color = line.faint ? kQuiet : kStrong;
        painter.setPen(QPen(color, line.faint ? 1 : 1.6, line.faint ? Qt::DashLine : Qt::SolidLine));
        painter.drawLine(QPointF(x, bars.top()), QPointF(x, bars.bottom()));
        const QString name = toQt(line.name);
        const double wide = metrics.horizontalAdvance(name);
        const double left = std::clamp(x - wide / 2, 0.0, std::max(0.0, width() - wide));
        const QRectF place(left, bars.top() - metrics.height(), wide, metrics.height());
        if (std::ranges::any_of(taken,
                                [&](const QRectF& other) { return other.adjusted(-4, 0, 4, 0).intersects(place); }))
            continue;
        taken.push_back(place);
        painter.drawText(place, Qt::AlignCenter, name);
    }
}

void HistogramWidget::mousePressEvent(QMouseEvent* event) {
    const QRectF bars = area();
    if (event->button() != Qt::LeftButton || !onPick || histogram_.Shown.Get().counts.empty()) return;
    const Histogram::Content& shown = histogram_.Shown;
    const double part = (event->position().x() - bars.left()) / bars.width();
    if (part >= 0 && part <= 1) onPick(shown.from + part * (shown.to - shown.from));
}

BarsWidget::BarsWidget(const Bars& bars, QWidget* parent) : ChartWidget(bars, parent), bars_(bars) { follow(); }

void BarsWidget::follow() {
    const std::string& title = bars_.Shown.Get().title;
    setAccessibleName(title.empty() ? QStringLiteral("Bars") : toQt(title));
    QString all;
    for (const Bars::Bar& bar : bars_.Shown.Get().bars) all += toQt(bar.name) + u' ' + toQt(bar.words) + u'\n';
    setAccessibleDescription(all);
    update();
}

void BarsWidget::paint(QPainter& painter) {
    const Bars::Content& shown = bars_.Shown;
    if (shown.bars.empty()) return;
    const QFontMetricsF metrics(painter.font());
    double names = 0, words = 0;
    for (const Bars::Bar& bar : shown.bars) {
        names = std::max(names, metrics.horizontalAdvance(toQt(bar.name)));
        words = std::max(words, metrics.horizontalAdvance(toQt(bar.words)));
    }
    const double top = kMargin / 2.0 + metrics.height() + 4;
    painter.setPen(ink());
    painter.drawText(QPointF(kMargin, kMargin / 2.0 + metrics.ascent()),
                     metrics.elidedText(toQt(shown.title), Qt::ElideRight, width() - 2 * kMargin));
    const double row =
        std::min((height() - top - kMargin / 2.0) / static_cast<double>(shown.bars.size()), 1.7 * metrics.height());
    const double left = kMargin + names + 8, room = std::max(20.0, width() - left - words - kMargin - 8);
    double y = top;
    for (const Bars::Bar& bar : shown.bars) {
        painter.setPen(ink());
        painter.drawText(QRectF(kMargin, y, names, row), Qt::AlignRight | Qt::AlignVCenter, toQt(bar.name));
        const double length = std::isfinite(bar.length) ? room * std::clamp(bar.length, 0.0, 1.0) : 0;
        painter.fillRect(QRectF(left, y + 0.15 * row, length, 0.7 * row), kBar);
        painter.drawText(QRectF(left + length + 6, y, words + kMargin, row), Qt::AlignLeft | Qt::AlignVCenter,
                         toQt(bar.words));
        y += row;
    }
}

ColorMapWidget::ColorMapWidget(const Color_Map& map, QWidget* parent) : ChartWidget(map, parent), map_(map) {
    setCursor(Qt::CrossCursor);
    follow();
}

void ColorMapWidget::follow() {
    const std::string& title = map_.Shown().title;
    setAccessibleName(title.empty() ? QStringLiteral("Map") : QStringLiteral("Map of ") + toQt(title));
    update();
}

/// Numbers of the axis at the left, the legend at the right.
QRectF ColorMapWidget::area() const {
    const int line = fontMetrics().height(), number = fontMetrics().horizontalAdvance(QStringLiteral("-00.00"));
    return QRectF(rect()).adjusted(kMargin + line + number + kTick, kMargin + line, -(4 * kMargin + kTick + number),
                                   -(2 * line + kTick + kMargin));
}

QPointF ColorMapWidget::placeOf(Color_Map::Cell cell) const {
    const Color_Map::Content& shown = map_.Shown();
    const QRectF cells = area();
    return {cells.left() + cells.width() * (cell.across + 0.5) / shown.across.count,
            cells.bottom() - cells.height() * (cell.up + 0.5) / shown.up.count};
}

void ColorMapWidget::paint(QPainter& painter) {
    const Color_Map::Content& shown = map_.Shown();
    if (shown.across.count < 1 || shown.up.count < 1) return;
    double least = std::numeric_limits<double>::infinity(), most = -least;
    for (const double value : shown.values) {
        if (!std::isfinite(value)) continue;
        least = std::min(least, value);
        most = std::max(most, value);
    }
    paintCells(painter, least, most);
    paintAxes(painter);
    if (least <= most) paintLegend(painter, least, most);
}

void ColorMapWidget::paintCells(QPainter& painter, double least, double most) {
    const Color_Map::Content& shown = map_.Shown();
    const int high = shown.up.count;
    QImage image(shown.across.count, high, QImage::Format_RGB32);
    image.fill(kNothing);
    for (std::size_t i = 0; i < shown.values.size(); ++i) {
        if (!std::isfinite(shown.values[i])) continue;
        const int across = static_cast<int>(i) / high, up = static_cast<int>(i) % high;
        if (across < image.width())
            image.setPixel(across, high - 1 - up,
                           shade(most > least ? (shown.values[i] - least) / (most - least) : 0.5));
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(area(), image);
    const Color_Map::Cell cell = map_.Picked;
    if (cell.across < 0 || cell.up < 0) return;
    const QPointF at = placeOf(cell);
    constexpr double kRing = 6;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 4));
    painter.drawEllipse(at, kRing, kRing);
    painter.setPen(QPen(Qt::black, 1.6));
    painter.drawEllipse(at, kRing, kRing);
}

/// The numbers of an axis stand under the middles of their cells.
void ColorMapWidget::paintAxes(QPainter& painter) {
    const Color_Map::Content& shown = map_.Shown();
    const QRectF cells = area();
    const auto span = [](const Color_Map::Axis& axis) {
        const double last = axis.count > 1 ? axis.to : axis.from;
        const double half = last != axis.from ? (last - axis.from) / (axis.count - 1) / 2 : 0.5;
        return Span{axis.from - half, last + half};
    };
    painter.setPen(ink());
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(cells);
    const double room_above = width() - kMargin;
    painter.drawText(QRectF(kMargin / 2.0, 0, room_above, cells.top() - 2), Qt::AlignCenter,
                     QFontMetricsF(painter.font()).elidedText(toQt(shown.title), Qt::ElideRight, room_above));
    const Span across = span(shown.across), up = span(shown.up);
    paintScale(painter, cells, across, toQt(shown.across.title));
    const QFontMetricsF metrics(painter.font());
    const int room = std::max(2, static_cast<int>(cells.height() / metrics.height() / 2));
    double widest = 0;
    for (const double value : Round_Values(ordered(up), room)) {
        const double y = cells.bottom() - cells.height() * (value - up.low) / up.Width();
        painter.drawLine(QPointF(cells.left() - kTick, y), QPointF(cells.left(), y));
        const QString words = numberOf(value);
        widest = std::max(widest, metrics.horizontalAdvance(words));
        painter.drawText(QRectF(0, y - metrics.height() / 2, cells.left() - kTick - 2, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, words);
    }
    painter.save();
    painter.translate(kMargin / 2.0, cells.center().y());
    painter.rotate(-90);
    painter.drawText(QRectF(-cells.height() / 2, 0, cells.height(), metrics.height()), Qt::AlignCenter,
                     metrics.elidedText(toQt(shown.up.title), Qt::ElideRight, cells.height()));
    painter.restore();
}

void ColorMapWidget::paintLegend(QPainter& painter, double least, double most) {
    const QRectF cells = area();
    const QFontMetricsF metrics(painter.font());
    constexpr double kWide = 14;
    const QRectF strip(cells.right() + 1.5 * kMargin, cells.top(), kWide, cells.height());
    constexpr int kShades = 128;
    QImage shades(1, kShades, QImage::Format_RGB32);
    for (int i = 0; i < kShades; ++i) shades.setPixel(0, i, shade(1 - (i + 0.5) / kShades));
    painter.drawImage(strip, shades);
    painter.setPen(ink());
    painter.drawRect(strip);
    const Span span = most > least ? Span{least, most} : Span{least - 0.5, least + 0.5};
    const int room = std::max(2, static_cast<int>(strip.height() / metrics.height() / 2));
    for (const double value : Round_Values(span, room)) {
        const double y = strip.bottom() - strip.height() * (value - span.low) / span.Width();
        painter.drawLine(QPointF(strip.right(), y), QPointF(strip.right() + kTick, y));
        painter.drawText(QPointF(strip.right() + kTick + 3, y + metrics.ascent() / 2 - 1), numberOf(value));
    }
}

void ColorMapWidget::pick(const QPointF& at) {
    const Color_Map::Content& shown = map_.Shown();
    const QRectF cells = area();
    if (!onPick || shown.across.count < 1 || shown.up.count < 1) return;
    const double across = (at.x() - cells.left()) / cells.width(), up = (cells.bottom() - at.y()) / cells.height();
    if (!(across >= 0 && across < 1 && up >= 0 && up < 1)) return;
    onPick({static_cast<int>(across * shown.across.count), static_cast<int>(up * shown.up.count)});
}

void ColorMapWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pick(event->position());
}

void ColorMapWidget::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) pick(event->position());
}

}  // namespace verlink::desktop
