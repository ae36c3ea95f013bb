// A graph drawn by the plotting library, and the hand on it.
#include "desktop/graph_widget.h"

#include <QHash>
#include <QHelpEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/curve_paint.h"
#include "desktop/graph_cursor.h"
#include "desktop/graph_parts.h"
#include "desktop/picture_menu.h"
#include "desktop/read_out.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "output/graph_scale.h"
#include "screens/picture_entries.h"

namespace verlink::desktop {

using platform::Graph;

namespace {

constexpr double kThin = 1.5, kThick = 2.5;
constexpr int kFew = 64;        ///< points that can be told apart, each with a mark on its stick
constexpr int kLeastFrame = 8;  ///< a smaller frame is a trembling hand
constexpr double kMostEnlarged = 1e-6;
constexpr int kLeastAxes = 50, kLeastAxesInLine = 28;  ///< pixels

bool marksPoints(const Graph& graph) { return Draws_Sticks(graph) && graph.NumPoints() <= kFew; }

QFont fontOf(const QFont& base, const Graph::Font& wish, double scale = 1) {
    QFont font = base;
    font.setPointSizeF(std::max(4.0, base.pointSizeF() * wish.size / 100 * scale));
    font.setBold(wish.style & 2);
    if (wish.family == 1) font.setStyleHint(QFont::SansSerif);
    return font;
}

/// Of each text. Crank angles come back with every turn, and to measure a text takes long.
std::vector<double> widthsOf(const QStringList& texts, const QFontMetricsF& metrics) {
    QHash<QString, double> known;
    std::vector<double> widths;
    for (const QString& text : texts) {
        auto width = known.constFind(text);
        if (width == known.cend()) width = known.insert(text, metrics.horizontalAdvance(text));
        widths.push_back(*width);
    }
    return widths;
}

QPen penOf(const QColor& color, double width, int pattern) {
    QPen pen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    const std::vector<double>& dashes = Dashes_Of(pattern);
    if (!dashes.empty()) pen.setDashPattern(QList<qreal>(dashes.begin(), dashes.end()));
    return pen;
}

}  // namespace

class GraphWidget::Plot : public QCustomPlot {
   public:
    explicit Plot(QWidget* parent)
        : QCustomPlot(parent),
          labels_(new LabelTicker),
          values_(new ValueTicker),
          across_(new ValueTicker),
          title_(new QCPTextElement(this)) {
        across_->apart = 70;
        setMouseTracking(true);
        setCursor(Qt::CrossCursor);
        setInteractions(QCP::iRangeZoom);
        setSelectionRectMode(QCP::srmZoom);
        setAutoAddPlottableToLegend(false);
        xAxis->setTicker(labels_);
        yAxis->setTicker(values_);
        yAxis->setNumberFormat(QStringLiteral("gb"));
        xAxis->grid()->setZeroLinePen(Qt::NoPen);
        axisRect()->setupFullAxesBox();
        for (QCPAxis* axis : {xAxis2, yAxis2}) {
            axis->setTicks(false);
            axis->setTickLabels(false);
        }
        legend->setBorderPen(Qt::NoPen);
        legend->setBrush(Qt::NoBrush);
        legend->setIconSize(34, 12);
        legend->setMargins(QMargins(10, 2, 10, 0));
        legend->setRowSpacing(0);
        axisRect()->insetLayout()->take(legend);
        plotLayout()->setRowSpacing(4);
        connect(xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
                [this](const QCPRange& range) { keepWithin(xAxis, range, points_); });
        connect(yAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
                [this](const QCPRange& range) { keepWithin(yAxis, range, span_); });
        // How wide the axis is, the layout says; how many labels it has room for, the axis.
        connect(this, &QCustomPlot::beforeReplot, this, [this] {
            updateLayout();
            labels_->width = axisRect()->width();
            across_->length = axisRect()->width();
        });
    }

    ~Plot() override {
        // The library destroys what stands in the layout; what stands outside is ours.
        if (!title_->layout()) delete title_;
        if (!legend->layout()) delete legend;
    }

    void take(const Graph& graph) {
        const bool same = sameData(graph);
        const QRectF before(QPointF(xAxis->range().lower, yAxis->range().lower),
                            QPointF(xAxis->range().upper, yAxis->range().upper));
        sets_ = graph.Sets();
        curves_ = graph.NumSets();
        first_color_ = graph.FirstColor;
        cursor_ = graph.Cursor - 1;
        points_ = Point_Span(graph);
        span_ = Value_Span(graph);
        // A mark at zero is not cut in half by the frame.
        if (marksPoints(graph)) {
            const double air = 0.03 * span_.Width();
            if (span_.low == 0) span_.low -= air;
            if (span_.high == 0) span_.high += air;
        }
        bottom_title_ = lines(graph.BottomTitle);
        colors_ = &Colors_Of(graph.Background);

        takeAcross(graph);
        labels_->tick_every = graph.TickEvery;
        labels_->label_every = graph.LabelEvery;
        text_font_ = fontOf(font(), graph.TextFont());
        title_font_ = fontOf(font(), graph.TitleFont());
        heading_font_ = fontOf(font(), graph.TitleFont(), 1.15);

        paintAxes(graph);
        makeCurves(graph);
        arrange(lines(graph.GraphTitle));
        // A change of style leaves an enlarged part where it was.
        if (same && !all_) {
            xAxis->setRange(before.left(), before.right());
            yAxis->setRange(before.top(), before.bottom());
        } else {
            showAll();
        }
        redraw();
    }

    void setCursor(int point) {
        if (point == cursor_) return;
        // Only what the cursor leaves and where it comes to is painted anew.
        update(cursorPlace(cursorMarks()).bounds.toAlignedRect());
        cursor_ = point;
        update(cursorPlace(cursorMarks()).bounds.toAlignedRect());
    }

    /// What takes a point that the hand seeks; null for nobody.
    std::function<void(int)> onSeek;
    std::function<void()> onSought;

    void redraw() {
        if (isVisible()) replot(rpQueuedReplot);
    }

    void showAll() {
        all_ = true;
        full_ = true;
        xAxis->setRange(rangeOf(points_));
        yAxis->setRange(rangeOf(span_));
        full_ = false;
    }

    /// What depends on the room there is.
    void fit() {
        values_->length = std::max(60, height() - 60);
        const QFontMetricsF metrics(text_font_);
        if (labels_->widths.empty()) labels_->widths = widthsOf(labels_->labels, metrics);
        int cell = 1;
        // A row of the legend that is not full has empty places.
        for (int i = 0; i < legend->itemCount(); ++i)
            if (const QCPAbstractLegendItem* item = legend->item(i))
                cell = std::max(cell, item->minimumOuterSizeHint().width() + 12);
        const int room = std::max(1, (width() - 20) / cell);
        legend->setWrap(room >= 4 ? 4 : std::min(room, curves_ == 4 ? 2 : 3));
        legend->setFillOrder(QCPLayoutGrid::foColumnsFirst, true);
    }

    int nearest(const QPointF& at) const {
        if (!axisRect()->rect().contains(at.toPoint()) || labels_->labels.isEmpty()) return -1;
        return nearestTo(xAxis->pixelToCoord(at.x()));
    }

    /// Where a point stands on the x axis, also between two at equal distances.
    double placeOf(double point) const { return places_.empty() ? point : across(static_cast<int>(point)); }
    double across(int point) const { return places_.empty() ? point : places_[static_cast<std::size_t>(point)]; }

    QStringList readOut(const QPointF& at) const {
        const int point = nearest(at);
        if (point < 0) return {};
        QStringList texts{(bottom_title_ + u' ' + labels_->labels[point]).trimmed()};
        for (const std::size_t set : read(point))
            texts << (toQt(sets_[set].legend).trimmed() + u' ' +
                      QString::number(sets_[set].values[static_cast<std::size_t>(point)], 'g', 6))
                         .trimmed();
        return texts;
    }

    /// The sets that have a value at a point.
    std::vector<std::size_t> read(int point) const {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < sets_.size(); ++i)
            if (std::isfinite(sets_[i].values[static_cast<std::size_t>(point)])) found.push_back(i);
        return found;
    }

    QStringList shownLabels() const { return QStringList(xAxis->tickVectorLabels().toList()); }

   protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter probe(this);
        const auto engine = probe.paintEngine()->type();
        probe.end();
        if (engine != QPaintEngine::Raster && engine != QPaintEngine::OpenGL2) {
            QCPPainter painter(this);
            painter.setMode(QCPPainter::pmVectorized);
            toPainter(&painter, width(), height());
            return;
        }
        QCustomPlot::paintEvent(event);
        paintTheCursor();
        if (underMouse() && !seeking_) paintCrosshair();
    }

    bool event(QEvent* event) override {
        // The read-out stands where a tip would.
        if (event->type() == QEvent::ToolTip && nearest(static_cast<QHelpEvent*>(event)->pos()) >= 0) return true;
        return QCustomPlot::event(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        if (!onSeek) return QCustomPlot::mousePressEvent(event);
        seeking_ = nearest(event->position()) >= 0;
        seek(event->position());
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        mouse_ = event->position();
        if (seeking_) return seek(mouse_);
        QCustomPlot::mouseMoveEvent(event);
        update();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        if (onSeek) {
            if (std::exchange(seeking_, false) && onSought) onSought();
            return update();
        }
        const QRectF frame = selectionRect()->rect().normalized();
        if (selectionRect()->isActive() && (frame.width() < kLeastFrame || frame.height() < kLeastFrame))
            selectionRect()->cancel();
        QCustomPlot::mouseReleaseEvent(event);
        event->accept();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        showAll();
        redraw();
    }
    void leaveEvent(QEvent* event) override {
        QCustomPlot::leaveEvent(event);
        update();
    }

   private:
    static bool alike(const std::vector<double>& a, const std::vector<double>& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
    }
    bool sameData(const Graph& graph) const {
        if (sets_.size() != graph.Sets().size()) return false;
        for (std::size_t i = 0; i < sets_.size(); ++i)
            if (!alike(sets_[i].values, graph.Sets()[i].values)) return false;
        return true;
    }

    /// The labels, the places and how the axis goes on about them. What is as it was costs nothing.
    void takeAcross(const Graph& graph) {
        const bool same_labels = graph.Labels() == names_;
        if (!same_labels) {
            names_ = graph.Labels();
            labels_->labels.clear();
            for (const std::string& label : names_) labels_->labels << toQt(label);
        }
        const QFont font = fontOf(this->font(), graph.TextFont());
        if (!same_labels || font != text_font_) labels_->widths.clear();
        places_ = graph.Places;
        if (places_.size() != names_.size()) places_.clear();
        if (!places_.empty()) {
            const auto [low, high] = std::minmax_element(places_.begin(), places_.end());
            const double beside = *low == *high ? 0.5 : 0;
            points_ = {*low - beside, *high + beside};
        }
        xAxis->setTicker(places_.empty() ? QSharedPointer<QCPAxisTicker>(labels_) : across_);
        xAxis->setTickLabels(graph.Labelled);
        // Left enough for any value, so that graphs under one another have their points in line.
        const int left = graph.InLine ? QFontMetrics(font).horizontalAdvance(QStringLiteral("-0.00000")) + 24 : 0;
        axisRect()->setMinimumMargins(QMargins(left, 0, graph.InLine ? 16 : 0, 0));
        axisRect()->setMinimumSize(kLeastAxes, graph.InLine ? kLeastAxesInLine : kLeastAxes);
    }

    /// The point that stands nearest to a place of the axis; of several there, the one next to the cursor.
    int nearestTo(double place) const {
        const int last = static_cast<int>(labels_->labels.size()) - 1;
        if (places_.empty()) return std::clamp(static_cast<int>(std::lround(place)), 0, last);
        int best = 0;
        for (int i = 1; i <= last; ++i) {
            const double better = std::abs(across(best) - place) - std::abs(across(i) - place);
            if (better > 0 || (better == 0 && std::abs(i - cursor_) < std::abs(best - cursor_))) best = i;
        }
        return best;
    }

    void seek(const QPointF& at) {
        if (!seeking_ || !onSeek || labels_->labels.isEmpty()) return;
        const QRect area = axisRect()->rect();
        const double x = std::clamp<double>(at.x(), area.left(), area.right());
        onSeek(nearestTo(xAxis->pixelToCoord(x)) + 1);
    }

    QColor colorOf(std::size_t set) const {
        const std::size_t number = set + static_cast<std::size_t>(std::max(0, first_color_));
        return plainColor(colors_->curves[number % colors_->curves.size()]);
    }

    std::vector<CursorMark> cursorMarks() const {
        std::vector<CursorMark> marks;
        if (cursor_ < 0 || cursor_ >= static_cast<int>(names_.size())) return marks;
        for (const std::size_t i : read(cursor_)) {
            const double value = sets_[i].values[static_cast<std::size_t>(cursor_)];
            marks.push_back({yAxis->coordToPixel(value), colorOf(i),
                             (QString::number(value, 'g', 6) + u' ' + toQt(sets_[i].unit)).trimmed()});
        }
        return marks;
    }

    CursorPlace cursorPlace(const std::vector<CursorMark>& marks) const {
        if (cursor_ < 0 || cursor_ >= static_cast<int>(names_.size())) return {};
        return placeCursor(axisRect()->rect(), xAxis->coordToPixel(across(cursor_)), marks, font());
    }

    void paintTheCursor() {
        const std::vector<CursorMark> marks = cursorMarks();
        const CursorPlace place = cursorPlace(marks);
        if (place.bounds.isEmpty()) return;
        QPainter painter(this);
        paintCursor(painter, axisRect()->rect(), place, marks, font(), plainColor(colors_->ink),
                    plainColor(colors_->back));
    }

    /// Only what there is can be looked at, and not through a keyhole.
    void keepWithin(QCPAxis* axis, const QCPRange& wished, const Span& whole) {
        if (full_) return;
        const double least = whole.Width() * kMostEnlarged;
        QCPRange range = wished;
        if (range.size() < least) range = QCPRange(range.center() - least / 2, range.center() + least / 2);
        range = range.bounded(whole.low, whole.high);
        if (range != wished) axis->setRange(range);
        all_ = xAxis->range() == rangeOf(points_) && yAxis->range() == rangeOf(span_);
    }

    void paintAxes(const Graph& graph) {
        const QColor ink = plainColor(colors_->ink);
        const QPen line(ink, 1), grid(plainColor(colors_->grid), 1);
        setBackground(QBrush(plainColor(colors_->back)));
        for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
            axis->setBasePen(line);
            axis->setTickPen(line);
            axis->setSubTickPen(line);
            axis->setTickLabelColor(ink);
            axis->setLabelColor(ink);
            axis->setTickLabelFont(text_font_);
            axis->setLabelFont(title_font_);
            axis->setTickLengthIn(0);
            axis->setTickLengthOut(7);
            axis->setSubTickLengthIn(0);
            axis->setSubTickLengthOut(4);
        }
        xAxis->setLabel(bottom_title_);
        xAxis->setLabelPadding(2);
        xAxis->grid()->setPen(graph.GridStyle & 2 ? grid : QPen(Qt::NoPen));
        yAxis->grid()->setPen(graph.GridStyle & 1 ? grid : QPen(Qt::NoPen));
        yAxis->grid()->setZeroLinePen(span_.low < 0 && span_.high > 0 ? line : QPen(Qt::NoPen));
        legend->setFont(text_font_);
        legend->setTextColor(ink);
        QColor veil = ink;
        veil.setAlpha(28);
        selectionRect()->setPen(QPen(ink, 1, Qt::DashLine));
        selectionRect()->setBrush(veil);
    }

    QCPGraph* addCurve(const QVector<double>& keys, const Graph::Set& set) {
        auto* curve = new Curve(xAxis, yAxis);  // the plot's
        const QVector<double> values(set.values.begin(), set.values.end());
        curve->setAdaptiveSampling(false);
        curve->setData(keys, values, true);
        if (!places_.empty()) curve->setPoints(QVector<double>(places_.begin(), places_.end()), values);
        return curve;
    }

    void makeCurves(const Graph& graph) {
        clearPlottables();
        const int points = graph.NumPoints();
        QVector<double> keys(points);
        for (int i = 0; i < points; ++i) keys[i] = i;
        const double width = graph.ThickLines == 1 ? kThick : kThin;
        for (std::size_t i = 0; i < sets_.size(); ++i) {
            const QColor color = colorOf(i);
            const QPen pen = penOf(color, width, Pattern_Of(graph, sets_[i]));
            QCPGraph* shown = nullptr;
            if (Draws_Sticks(graph)) {
                shown = addCurve(keys, sets_[i]);
                shown->setLineStyle(QCPGraph::lsImpulse);
                QColor faint = color;
                faint.setAlpha(points > kFew ? 120 : 200);
                shown->setPen(QPen(faint, points > kFew ? 1 : 2, Qt::SolidLine, Qt::FlatCap));
                if (marksPoints(graph))
                    shown->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, color, color, 5));
            }
            if (Draws_Lines(graph)) {
                shown = addCurve(keys, sets_[i]);
                shown->setPen(pen);
                if (points == 1) shown->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, color, color, 6));
            }
            if (sets_[i].legend.empty() || !shown) continue;
            shown->setName(lines(sets_[i].legend));
            shown->addToLegend();
            // At some densities a letter that hangs would be cut.
            if (graph.InLine) legend->itemWithPlottable(shown)->setMargins(QMargins(0, 0, 0, 1));
        }
    }

    /// Title, legend and axes under one another, each if it is there.
    void arrange(const QString& title) {
        QCPAxisRect* axes = axisRect();
        QCPLayoutGrid* all = plotLayout();
        for (QCPLayoutElement* element : {static_cast<QCPLayoutElement*>(title_),
                                          static_cast<QCPLayoutElement*>(legend), static_cast<QCPLayoutElement*>(axes)})
            if (element->layout() == all) all->take(element);
        all->simplify();
        int rows = 0;
        title_->setVisible(!title.isEmpty());
        if (!title.isEmpty()) {
            title_->setText(title);
            title_->setFont(heading_font_);
            title_->setTextColor(plainColor(colors_->ink));
            title_->setMargins(QMargins(4, 4, 4, 0));
            all->addElement(rows, 0, title_);
            all->setRowStretchFactor(rows++, 0.001);
        }
        legend->setVisible(legend->itemCount() > 0);
        if (legend->itemCount() > 0) {
            all->addElement(rows, 0, legend);
            all->setRowStretchFactor(rows++, 0.001);
        }
        all->addElement(rows, 0, axes);
        all->setRowStretchFactor(rows, 1);
        fit();
    }

    void paintCrosshair() {
        const int point = nearest(mouse_);
        if (point < 0) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = axisRect()->rect();
        QColor ink = plainColor(colors_->ink);
        ink.setAlpha(110);
        painter.setPen(QPen(ink, 1));
        const double x = std::floor(xAxis->coordToPixel(across(point))) + 0.5, y = std::floor(mouse_.y()) + 0.5;
        if (area.left() <= x && x <= area.right()) painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(Qt::NoPen);
        const std::vector<std::size_t> shown = read(point);
        for (const std::size_t i : shown) {
            const QPointF at(x, yAxis->coordToPixel(sets_[i].values[static_cast<std::size_t>(point)]));
            if (!area.contains(at)) continue;
            painter.setBrush(colorOf(i));
            painter.drawEllipse(at, 3.5, 3.5);
        }
        std::vector<QColor> strokes;
        strokes.reserve(strokes.size() + shown.size());
        for (const std::size_t i : shown) strokes.push_back(colorOf(i));
        paintReadOut(painter, area, mouse_, readOut(mouse_), strokes, font(), plainColor(colors_->ink),
                     plainColor(colors_->back));
    }

    QSharedPointer<LabelTicker> labels_;
    QSharedPointer<ValueTicker> values_, across_;
    QCPTextElement* title_;
    QFont text_font_, title_font_, heading_font_;
    QString bottom_title_;
    std::vector<Graph::Set> sets_;
    std::vector<std::string> names_;  ///< the labels as the program set them
    std::vector<double> places_;      ///< empty for points at equal distances
    int curves_ = 0, first_color_ = 0;
    int cursor_ = -1;
    bool seeking_ = false;
    Span points_{-0.5, 0.5}, span_{-1, 1};
    const Graph_Colors* colors_ = &Colors_Of(15);
    QPointF mouse_{-1, -1};
    bool all_ = true;    ///< nothing is enlarged
    bool full_ = false;  ///< the whole is being shown
};

GraphWidget::GraphWidget(const Graph& graph, QWidget* parent) : QWidget(parent), graph_(graph), plot_(new Plot(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // The library's widget keeps the mouse to itself, so that its parent never sees a right click.
    plot_->installEventFilter(new PictureMenu(graph, *this, kPlotPicture, [this] { return source(); }));
    if (graph_.OnSeek) {
        plot_->onSeek = [this](int point) {
            if (onSeek) onSeek(point);
        };
        plot_->onSought = [this] {
            if (onSought) onSought();
        };
    }
    follow(true);
}

GraphWidget::~GraphWidget() = default;

void GraphWidget::follow() {
    follow(graph_.Drawings() != seen_);
    plot_->setCursor(graph_.Cursor - 1);
}

void GraphWidget::follow(bool drawn) {
    if (!drawn) return;
    seen_ = graph_.Drawings();
    plot_->take(graph_);
    const QString title = lines(graph_.GraphTitle);
    setAccessibleName(title.isEmpty() ? QStringLiteral("Graph") : title);
}

QRectF GraphWidget::view() const {
    const QCPRange x = plot_->xAxis->range(), y = plot_->yAxis->range();
    return {x.lower, y.lower, x.size(), y.size()};
}

void GraphWidget::showAll() {
    plot_->showAll();
    plot_->redraw();
}

QPoint GraphWidget::place(double point, double value) const {
    return {qRound(plot_->xAxis->coordToPixel(plot_->placeOf(point))), qRound(plot_->yAxis->coordToPixel(value))};
}

QStringList GraphWidget::labels() const { return plot_->shownLabels(); }
QStringList GraphWidget::readOut(const QPoint& at) const { return plot_->readOut(at); }

PictureSource GraphWidget::source() {
    return {.title = lines(graph_.GraphTitle),
            .size = size(),
            .dpi = logicalDpiX(),
            .vectors =
                [this](QPaintDevice& device) {
                    QCPPainter painter;
                    if (!painter.begin(&device)) platform::Raise(platform::kOutOfMemory);
                    painter.setMode(QCPPainter::pmVectorized);
                    painter.setWindow(rect());
                    plot_->toPainter(&painter, width(), height());
                    painter.end();
                },
            .image = [this](double density) { return plot_->toPixmap(width(), height(), density).toImage(); }};
}

void GraphWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    plot_->setGeometry(rect());
    plot_->fit();
}

void GraphWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    plot_->fit();
    plot_->replot(QCustomPlot::rpQueuedRefresh);
}

}  // namespace verlink::desktop
