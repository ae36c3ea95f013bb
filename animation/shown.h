// Which position of the run a screen shows, told to whoever goes along with the drawing.
#pragma once

#include <functional>

#include "platform/screen.h"

namespace verlink {

inline constexpr int kNoStep = -1;

/// What the picture of a screen shows of the run.
struct Shown {
    platform::Screen& screen;
    int step;      ///< `kNoStep` for nothing; it need not be a position that closes
    bool playing;  ///< a frame of a run that plays: the run and the window are those of the frame before

    bool Nothing() const { return step == kNoStep; }
};

/// Told by the drawing: this position stands in the picture from now on.
void Position_Shown(platform::Screen& form, int step, bool playing = false);
/// Nothing of the run is in the picture any more.
void Nothing_Shown(platform::Screen& form);
/// Clears `Picture1` and says so.
void Show_Nothing(platform::Screen& form);
/// Tells each ear again what it heard last, if results are others than when this was asked last: what goes along with
/// the drawing belongs to the model as it stands, also where nothing is drawn anew.
void Follow_Results();

/// Hears, for as long as it lives, what one screen shows: by Step, the bar, each frame of a run, a drag, and all else
/// that draws the linkage. It is told after the drawing and, in a run, before the frame is held, so that what it does
/// is to be seen with the frame; in a run it has to be quick.
class Position_Ear {
   public:
    using Hear = std::function<void(const Shown&)>;
    Position_Ear(platform::Screen& screen, Hear hear);
    ~Position_Ear();
    Position_Ear(const Position_Ear&) = delete;
    Position_Ear& operator=(const Position_Ear&) = delete;

    /// What it heard last; `kNoStep` as long as nothing was shown.
    int Step() const { return step_; }

   private:
    friend void Position_Shown(platform::Screen& form, int step, bool playing);
    friend void Follow_Results();
    platform::Screen& screen_;
    Hear hear_;
    int step_ = kNoStep;
};

}  // namespace verlink
