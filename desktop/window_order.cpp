// The order of windows under X11, by the conventions of its clients.
#include "desktop/window_order.h"

#include <QGuiApplication>
#include <QWindow>
#include <utility>

#if QT_CONFIG(xcb)
#include <xcb/xcb.h>
#endif

namespace verlink::desktop {

#if QT_CONFIG(xcb)
namespace {

/// Null where windows are not X11's.
xcb_connection_t* display() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t number(const QWindow& window) { return static_cast<xcb_window_t>(window.winId()); }

}  // namespace

void standOver(const QWindow& window, const QWindow* below) {
    xcb_connection_t* const to = display();
    if (!to || !window.handle() || (below && !below->handle())) return;
    if (below) {
        const xcb_window_t over = number(*below);
        xcb_change_property(to, XCB_PROP_MODE_REPLACE, number(window), XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32,
                            1, &over);
    } else {
        xcb_delete_property(to, number(window), XCB_ATOM_WM_TRANSIENT_FOR);
    }
    xcb_flush(to);
}

bool KeysToTheTop::nativeEventFilter(const QByteArray& kind, void* message, qintptr*) {
    if (kind != "xcb_generic_event_t") return false;
    constexpr unsigned kSent = 0x80;  // by another client
    const auto* event = static_cast<const xcb_focus_in_event_t*>(message);
    if ((event->response_type & ~kSent) != XCB_FOCUS_IN || event->mode != XCB_NOTIFY_MODE_NORMAL) return false;
    const QWindow* waiting = waiting_(event->event);
    // One that is minimized cannot have them, and comes back by the window manager.
    if (!waiting || !waiting->handle() || waiting->windowStates().testFlag(Qt::WindowMinimized)) return false;
    xcb_set_input_focus(display(), XCB_INPUT_FOCUS_PARENT, number(*waiting), XCB_CURRENT_TIME);
    xcb_flush(display());
    return false;
}
#else
void standOver(const QWindow&, const QWindow*) {}

bool KeysToTheTop::nativeEventFilter(const QByteArray&, void*, qintptr*) { return false; }
#endif

KeysToTheTop::KeysToTheTop(std::function<const QWindow*(WId)> waiting) : waiting_(std::move(waiting)) {
    qGuiApp->installNativeEventFilter(this);
}

KeysToTheTop::~KeysToTheTop() { qGuiApp->removeNativeEventFilter(this); }

}  // namespace verlink::desktop
