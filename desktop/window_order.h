// Which window stands over which, for the window manager.
#pragma once

#include <QtGui/qwindowdefs.h>

#include <QAbstractNativeEventFilter>
#include <functional>

class QWindow;

namespace verlink::desktop {

/// Tells the window manager that a window that has been shown waits over another one, or over none: a click on the one
/// below does not raise it. The toolkit tells so of dialogs alone, and dialogs have no frame of their own under some
/// window managers. Only where windows are X11's; elsewhere they need no telling.
void standOver(const QWindow& window, const QWindow* below);

/// Leads the keys back to the window that waits when one below it has got them by a click; the toolkit would leave them
/// where nothing takes them. While it lives; under X11 alone.
class KeysToTheTop : public QAbstractNativeEventFilter {
   public:
    /// `waiting` gives the window that has to answer before the one of that number can; null where that one can.
    explicit KeysToTheTop(std::function<const QWindow*(WId)> waiting);
    ~KeysToTheTop() override;
    KeysToTheTop(const KeysToTheTop&) = delete;
    KeysToTheTop& operator=(const KeysToTheTop&) = delete;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

   private:
    std::function<const QWindow*(WId)> waiting_;
};

}  // namespace verlink::desktop
