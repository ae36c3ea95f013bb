// The questions that the print buttons of the screens ask before a screen is printed as a picture.
#pragma once

#include "core/number.h"

namespace verlink {

/// Asks, with Yes and No, whether to print the screen directly; `Result` becomes the number of the answer, which is
/// `platform::Answer::kYes` or `kNo`. For the screens with a moving picture, animate and input.
void Print_Note(Integer& Result);
/// The same for all other screens.
void Print_Warning(Integer& Result);

}  // namespace verlink
