// What all plots answer to, in the words that their tips end with.
#pragma once

namespace verlink {

inline constexpr char kPlotHand[] =
    "; the wheel or a frame drawn by dragging enlarges, a double click shows all, a right click saves or copies";

}  // namespace verlink
