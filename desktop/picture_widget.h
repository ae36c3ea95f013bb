// Shows the drawing of a picture box, square unless told otherwise, crisp at any density and under a glass, and tells
// it what the hand does there.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/glass.h"
#include "platform/overlay.h"
#include "platform/picture.h"
#include "platform/picture_pixels.h"

class QKeyEvent;
class QNativeGestureEvent;

namespace verlink::desktop {

/// Paints a picture, for printing, as vectors, with all its points that are to be seen, into a rectangle of `size`
/// logical pixels whose corner is the painter's origin.
void paintPicture(QPainter& painter, const platform::Picture& picture, const QSizeF& size);
inline void paintPicture(QPainter& painter, const platform::Picture& picture, double side) {
    paintPicture(painter, picture, QSizeF(side, side));
}

/// While it lives, the pictures of a window stand whole, as paper and files have them.
class WholePictures {
   public:
    explicit WholePictures(QWidget& window);
    ~WholePictures();
    WholePictures(const WholePictures&) = delete;
    WholePictures& operator=(const WholePictures&) = delete;

   private:
    std::vector<std::pair<class PictureWidget*, platform::Glass>> glasses_;
};

class PictureWidget : public QWidget {
   public:
    PictureWidget(platform::Picture& picture, QWidget* parent);
    ~PictureWidget() override;

    /// (button, keys, world x, world y) of each press and each move with a button down, unless it moves the glass.
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    /// A button was let go.
    std::function<void()> onRelease;

    // As `PictureBox` has them.
    std::function<void(const platform::Touch&)> onHover, onDrag;
    std::function<void()> onLeave, onLetGo;
    std::function<bool(const platform::Touch&)> onSeize;
    std::function<void(const platform::Picture_Key&)> onKey;
    void setLight(const std::optional<platform::Light>& light);
    void setGrip(platform::Grip grip);
    /// Keys that are told; all others are the window's, but for those that move the glass.
    void setKeys(const std::string& keys);
    /// Is a key its own while it has the focus?
    bool takes(const QKeyEvent& event) const;

    /// From now on the hand can look at it closely.
    void magnify();
    bool magnifies() const { return magnifies_; }
    /// False when it was the same.
    bool setGlass(const platform::Glass& glass);
    const platform::Glass& glass() const { return glass_; }
    /// The hand has moved the glass.
    std::function<void(const platform::Glass&)> onGlass;
    /// The picture has another size, or was just made: logical pixels across.
    std::function<void(double across)> onSize;
    /// The glass or the place of the picture has changed, for what lies upon it.
    std::function<void()> onPlaced;

    /// Does the program want to know of clicks? If not they are the window's.
    std::function<bool()> takesClicks;
    std::function<void()> onClick, onDoubleClick;
    /// The picture fills the whole widget from now on instead of a square.
    void fill();
    /// Text over the picture, from its top left corner down, in a font of one width.
    void setLines(const std::vector<std::string>& lines);
    /// What lies over the picture, on paper as well.
    void setOverlay(const platform::Overlay& overlay);
    const platform::Overlay& overlay() const { return overlay_; }
    const platform::Picture& picture() const { return picture_; }
    /// The place of the picture within the widget.
    QRectF area() const;
    /// While it is painted for a file nothing of the pointer is upon it, and no frame around it.
    void setBare(bool bare) { bare_ = bare; }
    bool bare() const { return bare_; }
    /// Paints at once if the picture has changed since the last painting.
    void paintNow();
    /// Does the window show all that is drawn? What is much comes in turns.
    bool paintedAll() const { return !stale_ && !pixels_.Behind(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

   private:
    enum class Held { kNothing, kThing, kPicture };

    void tellMouse(QMouseEvent* event);
    void letGo();
    void showGrip();
    void handGlass(const platform::Glass& glass);
    void zoomAt(double by, QPointF at);
    void moveBy(QPointF pixels);
    bool tells(const QKeyEvent& event) const;
    bool glassKey(const QKeyEvent& event);
    bool gesture(QEvent* event);
    bool nativeGesture(const QNativeGestureEvent& event);
    QPointF seenAt(QPointF at) const;
    QPointF worldAt(QPointF at) const;
    platform::Touch touchAt(QPointF at, Qt::KeyboardModifiers keys) const;
    /// World of one logical pixel.
    double pixel() const;
    void paintLines(QPainter& painter) const;
    void paintPixels(QPainter& painter, const QRectF& place);
    void paintVectors(QPainter& painter, const QSizeF& size) const;
    void paintLight(QPainter& painter) const;

    platform::Picture& picture_;
    std::vector<std::string> lines_;
    platform::Overlay overlay_;
    platform::PicturePixels pixels_;
    platform::PicturePixels apart_;  ///< for files, of another density
    std::uint64_t revision_ = 0;
    bool stale_ = true;
    bool fills_ = false;
    bool bare_ = false;
    bool was_double_ = false;  ///< the release to come ends a double click

    platform::Glass glass_;
    std::optional<platform::Light> light_;
    platform::Grip grip_ = platform::Grip::kArrow;
    QList<QKeySequence> keys_;
    bool magnifies_ = false;
    Held held_ = Held::kNothing;
    bool moves_ = false;  ///< what is held has begun to move
    QPointF pressed_, last_;
    double across_ = 0;  ///< as told
};

}  // namespace verlink::desktop
