// The questions that the print buttons of the screens ask before a screen is printed as a picture.
#pragma once

#include <string>

#include "core/number.h"
#include "platform/desktop_services.h"

namespace verlink {

/// Asks, with Yes and No, whether to print the screen directly; `Result` becomes the number of the answer, which is
/// `platform::Answer::kYes` or `kNo`. For the screens with a drawing: animate, input and synthesis.
void Print_Note(Integer& Result);
/// The same for all other screens.
void Print_Warning(Integer& Result);

/// Asks the question, and on Yes lets the user choose a printer and prints the screen as a picture.
void Ask_And_Print(platform::Screen& screen, platform::CommonDialog& dialog, void (*question)(Integer& Result));

/// What a print button does: `Print_Warning`, then the choice of a printer in the screen's dialog, then the printing
/// of the screen. Failures are reported under the name of the handler.
void Print_Form(platform::Screen& screen, platform::CommonDialog& dialog, const std::string& handler);

/// What a copy button does: tells how to copy the screen.
void Tell_How_To_Copy();

}  // namespace verlink
