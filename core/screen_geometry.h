// Where screens stand and how large they are, in twips.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// Design size of the work screens.
inline constexpr long kWorkHeight = 8950;
inline constexpr long kWorkWidth = 11850;

/// Centres a screen across the display; its top goes to `HomeTop`, or 0 if that is negative.
void Centerform(platform::Screen& screen);
/// `Centerform` and then the modal showing.
void Show_Centered(const char* name);

void Maximize_Screen(platform::Screen& screen, long width, long height);
/// The design size, centred.
void Reset_Screen(platform::Screen& screen, long width, long height);
/// One of the two, by `FullScreen`.
void Fit_Screen(platform::Screen& screen, long width, long height);
/// What the title and user screens do: the design size where the display is high enough, else the height of the
/// display less 400 twips and the width by the same ratio; centred.
void Fit_Display(platform::Screen& screen);

}  // namespace verlink
