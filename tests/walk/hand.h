// The user's hand on the controls of a screen: what it can do there, and the doing.
#pragma once

#include "platform/screen.h"
#include "tests/walk/action.h"

namespace verlink::walk {

/// Enabled and visible, and in no frame that is not.
bool In_Reach(const platform::Visual& control);
bool In_Reach(const platform::MenuEntry& entry);

/// A timer that will run down.
bool Running(const platform::Timer& timer);
/// The timer of an action, whatever screen it is of; null when there is none.
platform::Timer* Timer_Of(const Action& action);

/// The screen that stands beside the others; null when there is none.
platform::Screen* Beside();
/// The screen that an action is done on: the one beside when it is of that, else the one on top.
platform::Screen& Where(platform::Screen& top, const Action& action);

/// How many places of a plot, a scale or a map the hand can click upon.
int Places_To_Seek(const platform::Screen& top, const Action& action);

/// True when the hand can do it on this screen as it stands, or on the one that stands beside it.
bool Possible(const platform::Screen& top, const Action& action);

/// Does it. Returns when all that followed has, other screens included.
void Do(platform::Screen& top, const Action& action);

}  // namespace verlink::walk
