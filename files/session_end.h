// The end of the desktop's session, with a model in hand.
#pragma once

#include "platform/screen.h"

namespace verlink {

/// Asks whether a modified model is to be saved before the session ends, and where to. False when the user would
/// rather go on. Nothing is asked of a model that is not modified.
bool May_End_Session(platform::Screen& home);

}  // namespace verlink
