// Ends that come from outside: signals, the end of the desktop's session, the loss of the display.
#pragma once

#include <QObject>

class QSessionManager;
class QSocketNotifier;

namespace verlink::platform {
class Desktop;
}

namespace verlink::desktop {

/// While it lives, SIGTERM, SIGHUP and SIGINT end the program in order: what is not saved is kept, the marker says why,
/// and all that is shown goes. A signal that was ignored when the process began stays so. If the program does not come
/// to its end in time, the system ends it; its log says by then what came. One at a time, in the thread of the windows.
class Endings : public QObject {
   public:
    explicit Endings(platform::Desktop& desktop);
    ~Endings() override;

    /// The signal that the program is going down by; 0 for none.
    int signal() const { return signal_; }

   private:
    void arrived();

    platform::Desktop& desktop_;
    QSocketNotifier* notifier_ = nullptr;
    int signal_ = 0;
};

/// From now on, a display that goes away, after which Qt ends the process at once, is noted before that.
void watchDisplay();

/// Ends the process by the signal, as whoever sent it expects.
void dieOf(int signal);

}  // namespace verlink::desktop
