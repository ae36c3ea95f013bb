// Frames are paced by the clock, so that the time of drawing does not add to that of waiting.
#include "desktop/pace.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <thread>

#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

Clock::time_point last_end;
bool pausing = false;

/// Keeps the user's hand away from the windows, but for what stops a run.
class Deaf : public QObject {
   public:
    Deaf(QWidget* window, QAbstractButton* button, const QList<QKeySequence>& keys)
        : window_(window), button_(button), keys_(keys) {
        qApp->installEventFilter(this);
    }
    ~Deaf() override {
        qApp->removeEventFilter(this);
        // What stopped the run is done as ever once the handler that plays it has returned.
        if (close_)
            QTimer::singleShot(0, window_, [window = window_] { window->close(); });
        else if (click_)
            QTimer::singleShot(0, button_, [button = button_] { button->click(); });
    }
    Deaf(const Deaf&) = delete;
    Deaf& operator=(const Deaf&) = delete;

    bool stopped() const { return stopped_; }

   protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                if (onButton(*static_cast<QMouseEvent*>(event))) stopped_ = click_ = true;
                return true;
            case QEvent::KeyPress:
                if (stops(*static_cast<QKeyEvent*>(event))) stopped_ = true;
                return true;
            case QEvent::ShortcutOverride:
                // Else it would come as the shortcut of what it starts.
                if (keys_.contains(QKeySequence(static_cast<QKeyEvent*>(event)->keyCombination()))) event->accept();
                return true;
            case QEvent::Shortcut:
                if (button_ && object == button_ && button_->isEnabled()) stopped_ = click_ = true;
                return true;
            case QEvent::MouseMove:
                // The window hears of a free mouse, so that buttons look as they should where it passes.
                return !object->isWindowType() || static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
            // A run can be looked at closely as it plays.
            case QEvent::Wheel: return !object->isWindowType() && !dynamic_cast<PictureWidget*>(object);
            case QEvent::MouseButtonRelease:
            case QEvent::KeyRelease:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd: return true;
            case QEvent::Close:
                if (window_ && (object == window_ || object == window_->windowHandle())) stopped_ = close_ = true;
                event->ignore();
                return true;
            default: return QObject::eventFilter(object, event);
        }
    }

   private:
    bool onButton(const QMouseEvent& press) const {
        return button_ && button_->isEnabled() && button_->isVisible() && press.button() == Qt::LeftButton &&
               button_->rect().contains(button_->mapFromGlobal(press.globalPosition().toPoint()));
    }

    /// A key that is still held down since it started the run stops nothing.
    bool stops(const QKeyEvent& press) const {
        return press.key() == Qt::Key_Escape ||
               (!press.isAutoRepeat() && keys_.contains(QKeySequence(press.keyCombination())));
    }

    QWidget* window_;
    QAbstractButton* button_;
    const QList<QKeySequence>& keys_;
    bool stopped_ = false, close_ = false, click_ = false;
};

}  // namespace

bool inPause() { return pausing; }

Clock::time_point frameEnd(Clock::time_point last, Clock::time_point now, std::chrono::nanoseconds pause) {
    return (now - last > pause + 250ms ? now : last) + pause;
}

bool pauseFrame(std::chrono::nanoseconds pause, QWidget* window, QAbstractButton* button,
                const QList<QKeySequence>& keys) {
    if (pausing) return true;
    const Clock::time_point deadline = frameEnd(last_end, Clock::now(), pause);
    pausing = true;
    bool stopped = false;
    {
        const Deaf deaf(window, button, keys);
        for (QWidget* shown : QApplication::topLevelWidgets()) {
            if (!shown->isVisible()) continue;
            for (QWidget* widget : shown->findChildren<QWidget*>())
                if (auto* picture = dynamic_cast<PictureWidget*>(widget)) picture->paintNow();
        }
        do {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            stopped = deaf.stopped();
            if (stopped) break;
            const auto left = deadline - Clock::now();
            if (left > 0ns) std::this_thread::sleep_for(std::min<Clock::duration>(left, 4ms));
        } while (Clock::now() < deadline);
    }
    pausing = false;
    last_end = Clock::now();
    return !stopped;
}

}  // namespace verlink::desktop
