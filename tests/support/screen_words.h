// What a user sees of a screen, in lines.
#pragma once

#include <string>
#include <vector>

#include "platform/screen.h"

namespace verlink::test {

/// A line for the window and one for each control in the order in which they were made: its name, its texts, and what
/// is not as it is of a control that nobody has touched. A picture has its window and how much is drawn in which
/// colours, a graph what its sets come from and go to, a grid its first rows.
std::vector<std::string> Screen_Words(platform::Screen& screen);

/// The same, each control's name and then its words.
std::vector<std::vector<std::string>> Words_By_Control(platform::Screen& screen);

/// Compares lines with tests/logs/<name>.log, as `Expect_Log` does.
void Expect_Words(const std::string& name, const std::vector<std::string>& lines);

}  // namespace verlink::test
