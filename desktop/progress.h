// How far work has come, in a small window that can end it.
#pragma once

#include <string>

#include "platform/progress.h"

namespace verlink::desktop {

/// Does the work. Once it takes longer than half a second a dialog over the window in use shows how far it has come,
/// with a button that ends it; until then nothing is to be seen.
void showProgress(const std::string& what, const platform::Work& work);

}  // namespace verlink::desktop
