// The pace of a run that plays: time passes, windows repaint, and nothing is taken in.
#pragma once

#include <chrono>

namespace verlink::desktop {

/// Repaints, and returns when `pause` has passed since the end of the last call; when the last call ended long
/// ago, since now. Mouse, keys, wheel and closing are lost meanwhile.
void pauseFrame(std::chrono::nanoseconds pause);

/// Is a pause under way?
bool inPause();

/// When a frame is to end: a pause after the end of the last one, or after now when that was long ago.
std::chrono::steady_clock::time_point frameEnd(std::chrono::steady_clock::time_point last_end,
                                               std::chrono::steady_clock::time_point now,
                                               std::chrono::nanoseconds pause);

}  // namespace verlink::desktop
