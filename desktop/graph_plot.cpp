// How a graph looks: its axes, curves, title and legend, and the part of it in view.
#include "desktop/graph_plot.h"

#include <QHash>
#include <algorithm>
#include <cmath>

#include "desktop/text.h"
#include "desktop/theme.h"

namespace verlink::desktop {

using platform::Graph;

namespace {

constexpr double kThin = 1.5, kThick = 2.5;
constexpr int kFew = 64;  ///< points that can be told apart, each with a mark on its stick
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

GraphPlot::GraphPlot(QWidget* parent)
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

GraphPlot::~GraphPlot() {
    // The library destroys what stands in the layout; what stands outside is ours.
    if (!title_->layout()) delete title_;
    if (!legend->layout()) delete legend;
}

void GraphPlot::take(const Graph& graph) {
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

void GraphPlot::redraw() {
    if (isVisible()) replot(rpQueuedReplot);
}

void GraphPlot::showAll() {
    all_ = true;
    full_ = true;
    xAxis->setRange(rangeOf(points_));
    yAxis->setRange(rangeOf(span_));
    full_ = false;
}

void GraphPlot::fit() {
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

bool GraphPlot::alike(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

bool GraphPlot::sameData(const Graph& graph) const {
    if (sets_.size() != graph.Sets().size()) return false;
    for (std::size_t i = 0; i < sets_.size(); ++i)
        if (!alike(sets_[i].values, graph.Sets()[i].values)) return false;
    return true;
}

void GraphPlot::takeAcross(const Graph& graph) {
    const bool same_labels = graph.Labels() == names_;
    if (!same_labels) {
        names_ = graph.Labels();
        labels_->labels.clear();
        for (const std::string& label : names_) labels_->labels << toQt(label);
    }
    const QFont font = fontOf(this->font(), graph.TextFont());
    if (!same_labels || font != text_font_) labels_->widths.clear();
    readings_ = graph.Readings.size() == names_.size() ? graph.Readings : names_;
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

QColor GraphPlot::colorOf(std::size_t set) const {
    const std::size_t number = set + static_cast<std::size_t>(std::max(0, first_color_));
    return plainColor(colors_->curves[number % colors_->curves.size()]);
}

void GraphPlot::keepWithin(QCPAxis* axis, const QCPRange& wished, const Span& whole) {
    if (full_) return;
    const double least = whole.Width() * kMostEnlarged;
    QCPRange range = wished;
    if (range.size() < least) range = QCPRange(range.center() - least / 2, range.center() + least / 2);
    range = range.bounded(whole.low, whole.high);
    if (range != wished) axis->setRange(range);
    all_ = xAxis->range() == rangeOf(points_) && yAxis->range() == rangeOf(span_);
}

void GraphPlot::paintAxes(const Graph& graph) {
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

QCPGraph* GraphPlot::addCurve(const QVector<double>& keys, const Graph::Set& set) {
    auto* curve = new Curve(xAxis, yAxis);  // the plot's
    const QVector<double> values(set.values.begin(), set.values.end());
    curve->setAdaptiveSampling(false);
    curve->setData(keys, values, true);
    if (!places_.empty()) curve->setPoints(QVector<double>(places_.begin(), places_.end()), values);
    return curve;
}

void GraphPlot::makeCurves(const Graph& graph) {
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
            if (marksPoints(graph)) shown->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, color, color, 5));
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

void GraphPlot::arrange(const QString& title) {
    QCPAxisRect* axes = axisRect();
    QCPLayoutGrid* all = plotLayout();
    for (QCPLayoutElement* element : {static_cast<QCPLayoutElement*>(title_), static_cast<QCPLayoutElement*>(legend),
                                      static_cast<QCPLayoutElement*>(axes)})
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

}  // namespace verlink::desktop
