// What the picture of a graph is put together from: its curves, and the labels along its axes.
#pragma once

// The library's header uses the short words for signals and loops, which this room has switched off.
#define signals Q_SIGNALS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef signals
#undef foreach

#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/curve_paint.h"
#include "output/graph_scale.h"

namespace verlink::desktop {

inline constexpr int kLabelGap = 6, kTickGap = 5;  ///< pixels between neighbours, at least

inline Span spanOf(const QCPRange& range) { return {range.lower, range.upper}; }
inline QCPRange rangeOf(const Span& span) { return {span.low, span.high}; }

/// The library's own painting of a curve takes seconds where it turns often or is enlarged far.
class Curve : public QCPGraph {
   public:
    using QCPGraph::QCPGraph;

    /// The points in their own order, which the library would sort.
    void setPoints(const QVector<double>& keys, const QVector<double>& values) {
        keys_ = keys;
        values_ = values;
    }

   protected:
    void draw(QCPPainter* painter) override {
        if (keys_.isEmpty()) return QCPGraph::draw(painter);
        QVector<QPointF> line(keys_.size());
        for (qsizetype i = 0; i < keys_.size(); ++i)
            line[i] = QPointF(keyAxis()->coordToPixel(keys_[i]), valueAxis()->coordToPixel(values_[i]));
        drawLinePlot(painter, line);
    }
    void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& lines) const override {
        applyDefaultAntialiasingHint(painter);
        paintCurve(*painter, lines, clipRect(), pen());
    }
    void drawImpulsePlot(QCPPainter* painter, const QVector<QPointF>& lines) const override {
        applyDefaultAntialiasingHint(painter);
        paintSticks(*painter, lines, clipRect(), pen());
    }

   private:
    QVector<double> keys_, values_;
};

/// Labels every so many points, with ticks between them; fewer where they would not fit.
class LabelTicker : public QCPAxisTicker {
   public:
    QStringList labels;
    int tick_every = 1, label_every = 1;
    double width = 400;          ///< pixels of the axis
    std::vector<double> widths;  ///< pixels of each label

    void generate(const QCPRange& range, const QLocale&, QChar, int, QVector<double>& ticks, QVector<double>* between,
                  QVector<QString>* texts) override {
        ticks.clear();
        if (between) between->clear();
        if (texts) texts->clear();
        const int last = static_cast<int>(labels.size()) - 1;
        const int from = std::clamp(static_cast<int>(std::ceil(range.lower - 1e-9)), 0, std::max(0, last));
        const int to = std::min(static_cast<int>(std::floor(range.upper + 1e-9)), last);
        const double points = range.upper - range.lower + 1;
        const int room = static_cast<int>(points) + 1;
        // Where so little is in view that hardly a label is left, the points between get theirs.
        const int label = Labels_Every(room < 2 * label_every ? 1 : label_every, from, to, widths,
                                       width / std::max(range.size(), 1e-9), kLabelGap);
        const int tick = std::min(Thinned(tick_every, room, static_cast<int>(width / kTickGap)), label);
        for (int i = (from + label - 1) / label * label; i <= to; i += label) {
            ticks.append(i);
            if (texts) texts->append(labels[i]);
        }
        for (int i = (from + tick - 1) / tick * tick; between && i <= to; i += tick) between->append(i);
    }
};

/// Round values, as many as the length of the axis has room for.
class ValueTicker : public QCPAxisTicker {
   public:
    int length = 300, apart = 40;

   protected:
    QVector<double> createTickVector(double, const QCPRange& range) override {
        const std::vector<double> values = Round_Values(spanOf(range), std::clamp(length / apart, 3, 12));
        return {values.begin(), values.end()};
    }
    int getSubTickCount(double) override { return 0; }
};

}  // namespace verlink::desktop
