// The summary panels that tables and plots show beside their data.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// Link lengths in the shown unit, and the coupler angle.
void Show_Link_Data(platform::Screen& screen);
/// Of one position.
void Show_Linkage_Panel(platform::Screen& screen);
void Show_Time_Panel(platform::Screen& screen);
void Show_Angle_Panel(platform::Screen& screen);
/// The one of these three that belongs to the run.
void Show_Run_Panel(platform::Screen& screen);

}  // namespace verlink
