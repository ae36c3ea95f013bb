// The picture of the title screen: a four-bar, and the curves that points of its coupler draw.
#pragma once

#include <QPointF>
#include <QWidget>
#include <optional>

namespace verlink::desktop {

/// A crank-rocker with its ground along x, as the artwork shows one.
struct ArtLinkage {
    double crank = 1, coupler = 2.6, rocker = 2.2, ground = 3;

    struct Position {
        QPointF a, b;
        /// The point at these coordinates of the coupler's own frame, along A to B and across.
        QPointF point(double along, double across) const;
    };
    /// Nothing where it does not close.
    std::optional<Position> at(double crank_angle) const;
};

class Artwork : public QWidget {
   public:
    explicit Artwork(QWidget* parent);

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    ArtLinkage linkage_;
};

}  // namespace verlink::desktop
