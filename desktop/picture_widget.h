// Shows the drawing of a picture box, square unless told otherwise, crisp at any density, and tells it where the mouse
// is.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/picture.h"
#include "platform/picture_pixels.h"

namespace verlink::desktop {

/// Paints a picture, for printing, as vectors, with all its points that are to be seen, into a rectangle of `size`
/// logical pixels whose corner is the painter's origin.
void paintPicture(QPainter& painter, const platform::Picture& picture, const QSizeF& size);
inline void paintPicture(QPainter& painter, const platform::Picture& picture, double side) {
    paintPicture(painter, picture, QSizeF(side, side));
}

class PictureWidget : public QWidget {
   public:
    PictureWidget(platform::Picture& picture, QWidget* parent);
    ~PictureWidget() override;

    /// (button, keys, world x, world y) of each press and each move with a button down.
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    std::function<void()> onRelease;
    /// Does the program want to know of clicks? If not they are the window's.
    std::function<bool()> takesClicks;
    std::function<void()> onClick, onDoubleClick;
    /// The picture fills the whole widget from now on instead of a square.
    void fill();
    /// Text over the picture, from its top left corner down, in a font of one width.
    void setLines(const std::vector<std::string>& lines);
    const platform::Picture& picture() const { return picture_; }
    /// The place of the picture within the widget.
    QRectF area() const;
    /// Paints at once if the picture has changed since the last painting.
    void paintNow();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

   private:
    void tellMouse(QMouseEvent* event);
    void paintLines(QPainter& painter) const;
    void paintPixels(QPainter& painter, const QRectF& place);

    platform::Picture& picture_;
    std::vector<std::string> lines_;
    platform::PicturePixels pixels_;
    std::uint64_t revision_ = 0;
    bool stale_ = true;
    bool fills_ = false;
    bool was_double_ = false;  ///< the release to come ends a double click
};

}  // namespace verlink::desktop
