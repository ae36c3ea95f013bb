// Playing a finished run on a screen's picture, and stepping through it.
#pragma once

#include <chrono>

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

/// The ten colours, red in the low byte.
void Set_Palette();

/// Window bounds `AnimMin` and `AnimMax` for the whole run, both axes alike, zoomed by `ZoomFactor`.
void Autoscale();
/// While it lives, the pictures of one screen are drawn in the window that they have, Autoscale or not.
class Held_Window {
   public:
    explicit Held_Window(const platform::Screen& form);
    ~Held_Window();
    Held_Window(const Held_Window&) = delete;
    Held_Window& operator=(const Held_Window&) = delete;

   private:
    const platform::Screen& form_;
};

/// Settings, window, radii and colours for the next picture or run, on the surface of the form's `Picture1`.
void Animate_Setup(platform::Screen& form);
/// Plays `Cycles` times from step 0 to `NSteps`; holds the thread, while the desktop repaints. The user may stop it:
/// the frame that was on show stays, and stepping goes on from there.
void Animate(platform::Screen& form);
/// One frame: drawn, held for the delay, erased. `stop` when the coupler point lies at the exact origin. Gives back
/// false when the user has stopped the run.
bool Drawone(int step, platform::Screen& form, bool& stop);
/// Shows one position with its read-out; an angle run's step beyond the last becomes 0.
void Step(platform::Screen& form, Integer& step);
/// The still picture of one position.
void DrawLinkage(platform::Screen& form, int step);
/// What the Step button does; `lock` is set and stays set.
void Step_Setup(platform::Screen& form, bool& lock);
/// Back to step 0.
void Step_Reset(platform::Screen& form);

/// What one turn of the frame delay's count costs.
inline constexpr int kNanosecondsPerTurn = 100;
/// No frame is held for longer, so that a run can be watched and stopped.
inline constexpr std::chrono::milliseconds kLongestFrame{250};

}  // namespace verlink
