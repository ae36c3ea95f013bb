// Shows the drawing of a picture box, square and crisp at any density, and tells it where the mouse is.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "platform/picture.h"

namespace verlink::desktop {

/// Paints a picture into a square of `side` logical pixels whose corner is the painter's origin.
void paintPicture(QPainter& painter, const platform::Picture& picture, double side);

class PictureWidget : public QWidget {
   public:
    PictureWidget(platform::Picture& picture, QWidget* parent);
    ~PictureWidget() override;

    /// (button, keys, world x, world y) of each press and each move with a button down.
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    /// The square of the picture within the widget.
    QRectF square() const;
    /// Paints at once if the picture has changed since the last painting.
    void paintNow();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

   private:
    void tellMouse(QMouseEvent* event);

    platform::Picture& picture_;
    QImage image_;
    std::uint64_t revision_ = 0;
    bool stale_ = true;
};

}  // namespace verlink::desktop
