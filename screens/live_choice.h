// Which functions the live plots show, and how: chosen by a preset or one by one, and kept from session to session.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "output/presets.h"
#include "output/series.h"

namespace verlink {

struct Live_Choice {
    static constexpr int kSlots = 4;
    std::array<Output_Function, kSlots> functions;  ///< slot n at n - 1; without a variable for an empty slot
    std::string preset;                             ///< the text of the one that filled the slots; else empty
    Abscissa abscissa = Abscissa::kAngle;
    bool one_scale = false;  ///< all in one graph; else each in one of its own

    /// The slots by a preset; one that leaves the components as they stand finds those of the slots, or goes through
    /// all four.
    void Take(const Preset& preset);
    /// The slots one after another, the rest empty.
    void Take(const std::vector<Output_Function>& chosen);
    bool Empty() const;

    void Keep() const;
    /// The kept one; nothing chosen where there is none, or where a hand has spoilt it.
    static Live_Choice Kept();
};

/// All presets that are no transform, those of four functions first.
std::vector<const Preset*> Live_Presets();
/// The most that a preset's functions need.
Needs Needs_Of(const Preset& preset);
/// What was chosen last for a plot; empty where nothing was. A polar plot stands for magnitude and angle.
std::vector<Output_Function> Last_Plotted();

}  // namespace verlink
