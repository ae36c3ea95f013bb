// What screens show of the model as a whole: status, menus, heads and banners, all by the controls' names.
#pragma once

#include "core/number.h"
#include "platform/screen.h"

namespace verlink {

/// `lbl_Status`(0) to (10) of the home screen from the flags and the unit system.
void Refresh_Status();

/// Enables the home screen's menus and buttons by the state of the model. An entry that leads to a screen which the
/// program does not have stays disabled.
void Set_Menus();

/// Marks the entry of the units menu; a system below 1 becomes 1.
void Check_mnu_Units(platform::Screen& HomeScreen, Integer& Units);

/// `lbl_Header` of a screen: user, design number, date and time, and the model's name once it has a path.
void Titlebox(platform::Screen& screen);

/// The banner behind every screen's caption.
void Set_Screen_Titles();

}  // namespace verlink
