// What the hand does on a picture: it takes what is drawn, or moves the glass over it.
#include <QFontMetricsF>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QPointingDevice>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "desktop/keys.h"
#include "desktop/picture_widget.h"
#include "desktop/text.h"

namespace verlink::desktop {

namespace {

using platform::Glass;
using platform::Touch;

/// A hand that only presses trembles by as much, in logical pixels.
constexpr double kTremble = 1.5;
constexpr double kNotch = 1.2;       ///< closer by, for a notch of the wheel
constexpr double kNotchUnits = 120;  ///< of a wheel's angle
constexpr double kKeyPart = 0.1;     ///< of what is seen, by which a key moves it

int heldKeys(Qt::KeyboardModifiers keys) {
    return (keys & Qt::ShiftModifier ? 1 : 0) + (keys & Qt::ControlModifier ? 2 : 0) + (keys & Qt::AltModifier ? 4 : 0);
}

bool holding(Qt::MouseButtons buttons) { return bool(buttons & (Qt::LeftButton | Qt::MiddleButton)); }

bool apart(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()) > kTremble; }

}  // namespace

WholePictures::WholePictures(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (auto* picture = dynamic_cast<PictureWidget*>(widget)) {
            glasses_.emplace_back(picture, picture->glass());
            picture->setGlass({});
        }
}

WholePictures::~WholePictures() {
    for (const auto& [picture, glass] : glasses_) picture->setGlass(glass);
}

void PictureWidget::magnify() {
    magnifies_ = true;
    setMouseTracking(true);
    grabGesture(Qt::PinchGesture);
    setFocusPolicy(Qt::StrongFocus);
}

bool PictureWidget::setGlass(const Glass& glass) {
    if (glass == glass_) return false;
    glass_ = glass;
    --revision_;  // of no picture: the pixels are stale
    update();
    if (onPlaced) onPlaced();
    return true;
}

void PictureWidget::setLight(const std::optional<platform::Light>& light) {
    if (light == light_) return;
    light_ = light;
    update();
}

void PictureWidget::setGrip(platform::Grip grip) {
    if (grip == grip_) return;
    grip_ = grip;
    showGrip();
}

void PictureWidget::showGrip() {
    if (held_ == Held::kPicture && moves_) return setCursor(Qt::SizeAllCursor);
    switch (grip_) {
        case platform::Grip::kArrow: return unsetCursor();
        case platform::Grip::kOpenHand: return setCursor(Qt::OpenHandCursor);
        case platform::Grip::kClosedHand: return setCursor(Qt::ClosedHandCursor);
    }
}

void PictureWidget::setKeys(const std::string& keys) { keys_ = sequences(keys); }

bool PictureWidget::tells(const QKeyEvent& event) const {
    const auto held = event.modifiers() & ~Qt::KeypadModifier;
    return keys_.contains(QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(event.key()))));
}

bool PictureWidget::takes(const QKeyEvent& event) const {
    if (tells(event)) return true;
    if (!magnifies_) return false;
    switch (event.key()) {
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home: return event.modifiers() == Qt::NoModifier;
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down: return event.modifiers() == Qt::ShiftModifier;
        default: return false;
    }
}

QPointF PictureWidget::seenAt(QPointF at) const {
    const QRectF place = area();
    return {(at.x() - place.x()) / place.width(), (at.y() - place.y()) / place.height()};
}

QPointF PictureWidget::worldAt(QPointF at) const {
    const QPointF seen = seenAt(at);
    return {picture_.Left() + glass_.Part_Across(seen.x()) * (picture_.Right() - picture_.Left()),
            picture_.Top() + glass_.Part_Down(seen.y()) * (picture_.Bottom() - picture_.Top())};
}

double PictureWidget::pixel() const {
    return std::fabs(picture_.Right() - picture_.Left()) / (area().width() * glass_.factor);
}

Touch PictureWidget::touchAt(QPointF at, Qt::KeyboardModifiers keys) const {
    const QPointF world = worldAt(at);
    return {world.x(), world.y(), heldKeys(keys), pixel()};
}

// A press is where a drag begins: it counts as the first move, so that a click alone takes a joint to its place.
void PictureWidget::mousePressEvent(QMouseEvent* event) {
    event->accept();
    // A second button while one holds something does nothing.
    if (area().isEmpty() || (held_ != Held::kNothing && holding(event->buttons() & ~event->button()))) return;
    letGo();
    pressed_ = last_ = event->position();
    moves_ = false;
    if (event->button() == Qt::LeftButton && onSeize && onSeize(touchAt(event->position(), event->modifiers())))
        held_ = Held::kThing;
    else if (magnifies_ && (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton))
        held_ = Held::kPicture;
    if (held_ != Held::kPicture) tellMouse(event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (area().isEmpty()) return;
    // The release was somebody else's, a message's perhaps.
    if (event->buttons() == Qt::NoButton) {
        letGo();
        if (onHover) onHover(touchAt(event->position(), event->modifiers()));
        return;
    }
    if (held_ != Held::kNothing && !moves_ && apart(event->position(), pressed_)) {
        moves_ = true;
        showGrip();
    }
    if (held_ == Held::kPicture) {
        if (moves_) moveBy(event->position() - std::exchange(last_, event->position()));
        return;
    }
    if (held_ == Held::kThing && moves_ && onDrag) onDrag(touchAt(event->position(), event->modifiers()));
    tellMouse(event);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (held_ != Held::kNothing && holding(event->buttons())) return;
    const bool moved = held_ == Held::kPicture && moves_;
    letGo();
    if (onRelease) onRelease();
    if (onHover && !area().isEmpty() && event->buttons() == Qt::NoButton)
        onHover(touchAt(event->position(), event->modifiers()));
    if (event->button() != Qt::LeftButton || !takesClicks || !takesClicks()) {
        if (!moved) QWidget::mouseReleaseEvent(event);
        return;
    }
    if (!std::exchange(was_double_, false) && !moved && onClick && rect().contains(event->position().toPoint()))
        onClick();
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && takesClicks && takesClicks()) {
        was_double_ = true;
        // Posted: the deed may show a screen and not return, and the release is still to come.
        if (onDoubleClick) QTimer::singleShot(0, this, onDoubleClick);
        return;
    }
    if (!magnifies_) return QWidget::mouseDoubleClickEvent(event);
    // Whoever lets go of a thing and soon takes it again has not asked for anything else.
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && held_ == Held::kPicture) handGlass({});
}

void PictureWidget::letGo() {
    const Held held = std::exchange(held_, Held::kNothing);
    if (std::exchange(moves_, false)) showGrip();
    if (held == Held::kThing && onLetGo) onLetGo();
}

void PictureWidget::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (held_ == Held::kNothing && onLeave) onLeave();
}

void PictureWidget::tellMouse(QMouseEvent* event) {
    if (!onMouseMove) return;
    const int button = (event->buttons() & Qt::LeftButton ? 1 : 0) + (event->buttons() & Qt::RightButton ? 2 : 0) +
                       (event->buttons() & Qt::MiddleButton ? 4 : 0);
    const QPointF world = worldAt(event->position());
    onMouseMove(button, heldKeys(event->modifiers()), world.x(), world.y());
}

// The glass.

void PictureWidget::handGlass(const Glass& glass) {
    if (onGlass)
        onGlass(glass);
    else
        setGlass(glass);
}

void PictureWidget::zoomAt(double by, QPointF at) {
    const QPointF seen = seenAt(at);
    handGlass(Zoomed(glass_, by, seen.x(), seen.y()));
}

void PictureWidget::moveBy(QPointF pixels) {
    const QRectF place = area();
    handGlass(Moved(glass_, pixels.x() / place.width(), pixels.y() / place.height()));
}

void PictureWidget::wheelEvent(QWheelEvent* event) {
    if (!magnifies_ || area().isEmpty()) return QWidget::wheelEvent(event);
    event->accept();
    // Two fingers on a pad move what is seen, as they do everywhere; with the control key they zoom like a wheel.
    const bool pad = event->device()->type() == QInputDevice::DeviceType::TouchPad && !event->pixelDelta().isNull();
    if (pad && !(event->modifiers() & Qt::ControlModifier)) return moveBy(event->pixelDelta());
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    if (turned != 0) zoomAt(std::pow(kNotch, turned / kNotchUnits), event->position());
}

bool PictureWidget::glassKey(const QKeyEvent& event) {
    const QRectF place = area();
    const double by = kKeyPart * place.width();
    switch (event.key()) {
        case Qt::Key_PageUp: zoomAt(kNotch, place.center()); break;
        case Qt::Key_PageDown: zoomAt(1 / kNotch, place.center()); break;
        case Qt::Key_Home: handGlass({}); break;
        // The key points where the eye goes.
        case Qt::Key_Left: moveBy({by, 0}); break;
        case Qt::Key_Right: moveBy({-by, 0}); break;
        case Qt::Key_Up: moveBy({0, by}); break;
        case Qt::Key_Down: moveBy({0, -by}); break;
        default: return false;
    }
    return true;
}

void PictureWidget::keyPressEvent(QKeyEvent* event) {
    if (!takes(*event) || area().isEmpty()) return QWidget::keyPressEvent(event);
    if (!tells(*event)) {
        glassKey(*event);
    } else if (onKey) {
        const QString name = QKeySequence(event->key()).toString(QKeySequence::PortableText);
        onKey({fromQt(name), heldKeys(event->modifiers()), pixel()});
    }
}

bool PictureWidget::nativeGesture(const QNativeGestureEvent& event) {
    switch (event.gestureType()) {
        case Qt::ZoomNativeGesture: zoomAt(1 + event.value(), event.position()); return true;
        case Qt::PanNativeGesture: moveBy(event.delta()); return true;
        case Qt::SmartZoomNativeGesture: handGlass({}); return true;
        default: return false;
    }
}

/// Two fingers on a screen.
bool PictureWidget::gesture(QEvent* event) {
    auto* gestures = static_cast<QGestureEvent*>(event);
    auto* pinch = static_cast<QPinchGesture*>(gestures->gesture(Qt::PinchGesture));
    if (!pinch) return false;
    gestures->accept(pinch);
    // The first finger has pressed as a mouse does.
    letGo();
    const QPointF at = mapFromGlobal(pinch->centerPoint());
    // The toolkit tells each move of the fingers twice.
    const bool again =
        pinch->scaleFactor() == pinch->lastScaleFactor() && pinch->centerPoint() == pinch->lastCenterPoint();
    if (again) return true;
    if (pinch->changeFlags() & QPinchGesture::CenterPointChanged && pinch->state() == Qt::GestureUpdated)
        moveBy(pinch->centerPoint() - pinch->lastCenterPoint());
    if (pinch->changeFlags() & QPinchGesture::ScaleFactorChanged && pinch->scaleFactor() > 0)
        zoomAt(pinch->scaleFactor(), at);
    return true;
}

bool PictureWidget::event(QEvent* event) {
    if (magnifies_ && !area().isEmpty()) {
        if (event->type() == QEvent::Gesture && gesture(event)) return true;
        if (event->type() == QEvent::NativeGesture && nativeGesture(*static_cast<QNativeGestureEvent*>(event)))
            return true;
    }
    return QWidget::event(event);
}

void PictureWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const double across = area().width();
    if (across > 0 && across_ != across && onSize) onSize(across);
    across_ = across;
    if (onPlaced) onPlaced();
}

}  // namespace verlink::desktop
