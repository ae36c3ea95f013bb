// Frames are paced by the clock, so that the time of drawing does not add to that of waiting.
#include "desktop/pace.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <algorithm>
#include <thread>

#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

Clock::time_point last_end;
bool pausing = false;

/// Keeps the user's hand away from the windows.
class Deaf : public QObject {
   public:
    Deaf() { qApp->installEventFilter(this); }
    ~Deaf() override { qApp->removeEventFilter(this); }
    Deaf(const Deaf&) = delete;
    Deaf& operator=(const Deaf&) = delete;

   protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::Wheel:
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::Shortcut:
            case QEvent::ShortcutOverride:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd: return true;
            case QEvent::Close: event->ignore(); return true;
            default: return QObject::eventFilter(object, event);
        }
    }
};

}  // namespace

bool inPause() { return pausing; }

Clock::time_point frameEnd(Clock::time_point last, Clock::time_point now, std::chrono::nanoseconds pause) {
    return (now - last > pause + 250ms ? now : last) + pause;
}

void pauseFrame(std::chrono::nanoseconds pause) {
    if (pausing) return;
    const Clock::time_point deadline = frameEnd(last_end, Clock::now(), pause);
    pausing = true;
    {
        const Deaf deaf;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible()) continue;
            for (QWidget* widget : window->findChildren<QWidget*>())
                if (auto* picture = dynamic_cast<PictureWidget*>(widget)) picture->paintNow();
        }
        do {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            const auto left = deadline - Clock::now();
            if (left > 0ns) std::this_thread::sleep_for(std::min<Clock::duration>(left, 4ms));
        } while (Clock::now() < deadline);
    }
    pausing = false;
    last_end = Clock::now();
}

}  // namespace verlink::desktop
