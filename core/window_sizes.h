// Where the windows of screens stand and how large they are, in twips.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// Design size of the work screens.
inline constexpr long kWorkHeight = 8950;
inline constexpr long kWorkWidth = 11850;
/// Design size of the home screen.
inline constexpr long kHomeHeight = 9480;
inline constexpr long kHomeWidth = 11850;
/// What a screen leaves of the display's height.
inline constexpr long kDisplayMargin = 400;

/// Centres a screen across the display; its top goes to `HomeTop`, or 0 if that is negative.
void Centerform(platform::Screen& screen);
/// `Centerform` and then the modal showing; failure 9 when the program has no screen of that name.
void Show_Centered(const char* name);
/// The same for a screen that shows another linkage than those above the home screen: they go.
void Arrive_At(const char* name);

/// The largest size of the screen's own proportions, centred; `ScreenWidth` and `ScreenHeight` keep it. The home
/// screen takes the display's height less 400 twips, and its width divided by `AspectCorrection`, as far as the
/// display is wide enough; every other screen takes the home screen's width, and its own height times
/// `AspectCorrection`. While `AspectActive`, the correction is 1.6 over the display's own ratio.
void Maximize_Screen(platform::Screen& screen, long width, long height);
/// The design size, centred.
void Reset_Screen(platform::Screen& screen, long width, long height);
/// One of the two, by `FullScreen`.
void Fit_Screen(platform::Screen& screen, long width, long height);
/// False where the display less 400 twips is lower than a work screen.
bool Display_Is_High_Enough();
/// What the title and user screens do: the design size where the display is high enough, else the height of the
/// display less 400 twips and the width by the same ratio; centred.
void Fit_Display(platform::Screen& screen);

}  // namespace verlink
