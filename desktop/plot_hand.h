// The hand on a plot that is drawn as a picture: read-out, enlarged parts, and all again.
#pragma once

#include <QRectF>
#include <QStringList>
#include <QWidget>

#include "platform/picture.h"
#include "platform/picture_pixels.h"
#include "platform/plot_box.h"

namespace verlink::desktop {

class PictureWidget;

/// Lies over the picture and its labels, and takes the mouse as a graph does: the wheel enlarges about the pointer, the
/// left button draws the frame of the part wanted, a double click shows all. What is enlarged covers the labels along
/// the axes, and round values stand at its own edges. A polar plot keeps its shape. The part stays while the plot is
/// drawn anew over the same window.
class PlotHand : public QWidget {
   public:
    PlotHand(const platform::PlotBox& box, PictureWidget* picture);

    /// The plot or the place of the picture has changed.
    void follow();
    /// In parts of the picture's window, from its top left corner.
    QRectF view() const { return view_; }
    void showAll();
    /// What is read with the pointer there, in pixels of this widget: the label of the point, then name, value and unit
    /// of each of its values.
    QStringList readOut(const QPointF& at) const;
    /// Where a place of the plot is seen.
    QPointF place(double x, double y) const;

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;

   private:
    struct Window {
        double left = 0, top = 0, right = 1, bottom = 1;
        bool operator==(const Window&) const = default;
    };
    Window window() const;
    Window seen() const;
    bool whole() const { return view_ == QRectF(0, 0, 1, 1); }
    void look();
    void setView(QRectF wished);
    int nearest(const QPointF& at) const;
    void paintPart(QPainter& painter);
    void paintScale(QPainter& painter) const;
    void paintCrosshair(QPainter& painter) const;

    const platform::PlotBox& box_;
    PictureWidget* picture_;
    QRectF view_{0, 0, 1, 1};
    Window before_;
    platform::Picture part_;
    platform::PicturePixels pixels_;
    std::uint64_t revision_ = 0;
    bool stale_ = true, framing_ = false;
    QPointF mouse_{-1, -1}, pressed_;
};

}  // namespace verlink::desktop
