// The pace of a run that plays: time passes, windows repaint, and nothing is taken in but the wish to stop.
#pragma once

#include <QKeySequence>
#include <QList>
#include <chrono>

class QAbstractButton;
class QWidget;

namespace verlink::desktop {

/// Repaints, and returns true when `pause` has passed since the end of the last call; when the last call ended long
/// ago, since now. Escape and the `keys`, the close button of the window and the button return false at once; the
/// window closes, or the button clicks, when the program waits for events next. Other keys, mouse and wheel are lost
/// meanwhile.
bool pauseFrame(std::chrono::nanoseconds pause, QWidget* window = nullptr, QAbstractButton* button = nullptr,
                const QList<QKeySequence>& keys = {});

/// Is a pause under way?
bool inPause();

/// When a frame is to end: a pause after the end of the last one, or after now when that was long ago.
std::chrono::steady_clock::time_point frameEnd(std::chrono::steady_clock::time_point last_end,
                                               std::chrono::steady_clock::time_point now,
                                               std::chrono::nanoseconds pause);

}  // namespace verlink::desktop
