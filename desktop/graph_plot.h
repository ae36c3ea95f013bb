// The picture of a graph, drawn by the plotting library, and the hand on it.
#pragma once

#include <QFont>
#include <QPointF>
#include <QSharedPointer>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "desktop/graph_cursor.h"
#include "desktop/graph_parts.h"
#include "output/graph_scale.h"
#include "platform/graph.h"

namespace verlink::desktop {

/// Shows what the graph held when it was last taken; the part in view is never more than there is.
class GraphPlot : public QCustomPlot {
   public:
    explicit GraphPlot(QWidget* parent);
    ~GraphPlot() override;
    void take(const platform::Graph& graph);
    /// Counted from 0; -1 for none.
    void setCursor(int point);

    /// What takes a point that the hand seeks; null for nobody.
    std::function<void(int)> onSeek;
    std::function<void()> onSought;

    void redraw();
    void showAll();

    /// What depends on the room there is.
    void fit();
    /// The point whose place is nearest to one of the widget; -1 beside the axes.
    int nearest(const QPointF& at) const;

    /// Where a point stands on the x axis, also between two at equal distances.
    double placeOf(double point) const { return places_.empty() ? point : across(static_cast<int>(point)); }
    double across(int point) const { return places_.empty() ? point : places_[static_cast<std::size_t>(point)]; }

    QStringList readOut(const QPointF& at) const;

    /// The sets that have a value at a point.
    std::vector<std::size_t> read(int point) const;

    QStringList shownLabels() const { return QStringList(xAxis->tickVectorLabels().toList()); }

   protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

   private:
    static bool alike(const std::vector<double>& a, const std::vector<double>& b);
    bool sameData(const platform::Graph& graph) const;

    /// The labels, the places and how the axis goes on about them. What is as it was costs nothing.
    void takeAcross(const platform::Graph& graph);

    /// The point that stands nearest to a place of the axis; of several there, the one next to the cursor.
    int nearestTo(double place) const;
    void seek(const QPointF& at);
    QColor colorOf(std::size_t set) const;
    std::vector<CursorMark> cursorMarks() const;
    CursorPlace cursorPlace(const std::vector<CursorMark>& marks) const;
    void paintTheCursor();

    /// Only what there is can be looked at, and not through a keyhole.
    void keepWithin(QCPAxis* axis, const QCPRange& wished, const Span& whole);
    void paintAxes(const platform::Graph& graph);
    QCPGraph* addCurve(const QVector<double>& keys, const platform::Graph::Set& set);
    void makeCurves(const platform::Graph& graph);

    /// Title, legend and axes under one another, each if it is there.
    void arrange(const QString& title);
    void paintCrosshair();

    QSharedPointer<LabelTicker> labels_;
    QSharedPointer<ValueTicker> values_, across_;
    QCPTextElement* title_;
    QFont text_font_, title_font_, heading_font_;
    QString bottom_title_;
    std::vector<platform::Graph::Set> sets_;
    std::vector<std::string> names_;     ///< the labels as the program set them
    std::vector<std::string> readings_;  ///< in place of them where a hand reads; by point
    std::vector<double> places_;         ///< empty for points at equal distances
    int curves_ = 0, first_color_ = 0;
    int cursor_ = -1;
    bool seeking_ = false;
    Span points_{-0.5, 0.5}, span_{-1, 1};
    const Graph_Colors* colors_ = &Colors_Of(15);
    QPointF mouse_{-1, -1};
    bool all_ = true;    ///< nothing is enlarged
    bool full_ = false;  ///< the whole is being shown
};

}  // namespace verlink::desktop
