// Shows a graph: its curves as the program set them, their values under the mouse, and parts of it enlarged.
#pragma once

#include <QRectF>
#include <QStringList>
#include <QWidget>
#include <functional>

#include "platform/graph.h"

namespace verlink::desktop {

class GraphPlot;
struct PictureSource;

/// Draws what the graph holds when its `Draw` is called, and nothing in between but a cursor that moves. The wheel
/// enlarges about the mouse, the left button draws the frame of the part wanted or, in a graph whose points can be
/// sought, seeks one; a double click shows all again; a menu saves and copies the picture.
class GraphWidget : public QWidget {
   public:
    GraphWidget(const platform::Graph& graph, QWidget* parent);
    ~GraphWidget() override;

    /// Takes over what the graph holds, if it was drawn since the last call.
    void follow();

    /// The part in view: points, counted from 0, across, and values up, the lowest at `top()`.
    QRectF view() const;
    /// Shows the whole graph.
    void showAll();
    /// The hand seeks a point, counted from 1, and lets go.
    std::function<void(int point)> onSeek;
    std::function<void()> onSought;

    /// Where a point and a value stand.
    QPoint place(double point, double value) const;
    /// The labels along the x axis.
    QStringList labels() const;
    /// What is read at a place: the point's label, then each curve's legend and value; empty beside the axes.
    QStringList readOut(const QPoint& at) const;

    QSize sizeHint() const override { return {520, 340}; }
    QSize minimumSizeHint() const override { return {220, 150}; }

   protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

   private:
    void follow(bool drawn);
    PictureSource source();

    const platform::Graph& graph_;
    GraphPlot* plot_;
    int seen_ = 0;
};

}  // namespace verlink::desktop
