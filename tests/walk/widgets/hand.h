// The user's hand on real widgets.
#pragma once

#include "desktop/form.h"
#include "tests/walk/action.h"

namespace verlink::walk {

/// Does it with mouse and keys on the widgets of that window. Returns when all that followed has.
void Do_On_Widgets(desktop::Form& form, const Action& action);

/// The first widget that shows another thing than its control; empty when none does.
std::string Unlike(const desktop::Form& form);

}  // namespace verlink::walk
