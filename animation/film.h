// A run as a film: which of its positions are shown, and for how long.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/record/drive.h"
#include "core/record/run_table.h"
#include "core/record/settings.h"

namespace verlink {

/// One picture of a film.
struct Film_Frame {
    int step;        ///< of the run
    int hundredths;  ///< of a second for which it stands
    bool operator==(const Film_Frame&) const = default;
};

/// No picture stands for less: many programs show those that do much more slowly.
inline constexpr int kShortestFrame = 2;

/// The steps that are shown when the run plays, in their order: those that close, up to the first whose coupler point
/// lies at the exact origin.
std::vector<int> Steps_Shown(const Drive& drive, const RunResults& table);

/// Seconds from one step of the run to the next: of a run by time or with imported drive its own; of a run by angle
/// what the crank takes at its speed; nothing where the crank stands, and for one position.
std::optional<double> Real_Stride(const Drive& drive);
/// Seconds for which each step stands when the run plays on the screen.
double Played_Stride(const DisplaySettings& settings);

/// The pictures of a film of those steps. A step that would stand for less than `kShortestFrame` is left out. What is
/// rounded off one picture is added to the next, so that the film lasts as long as the run to half a hundredth, but for
/// a run that is shorter than one picture.
std::vector<Film_Frame> Film_Of(const std::vector<int>& steps, double stride);

/// While it lives, each frame of a run that `Animate` plays is handed to `take` when it has been drawn, and is not
/// held. False from `take` ends the run as the user's stop does.
class Frame_Taker {
   public:
    using Take = std::function<bool(int step)>;
    explicit Frame_Taker(Take take);
    ~Frame_Taker();
    Frame_Taker(const Frame_Taker&) = delete;
    Frame_Taker& operator=(const Frame_Taker&) = delete;

    /// Null for none.
    static const Take* InForce();

   private:
    Take take_;
};

}  // namespace verlink
