// The pace of a run that plays: time passes, windows repaint, and nothing is taken in.
#pragma once

#include <chrono>

namespace verlink::desktop {

/// Repaints, and returns when `pause` has passed since the end of the last call; when the last call ended long
/// ago, since now. Mouse, keys, wheel and closing are lost meanwhile.
void pauseFrame(std::chrono::nanoseconds pause);

/// Is a pause under way?
bool inPause();

}  // namespace verlink::desktop
