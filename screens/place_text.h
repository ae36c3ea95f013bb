// Positions of a body as a spreadsheet copies them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "design/task.h"

namespace verlink {

/// A line for each position: x, y and angle in degrees, between tabs, blanks, semicolons or commas; lines without any
/// number, as heads are, are passed over. Nothing where another line has not three numbers, or where there are not two
/// to five positions.
std::optional<std::vector<design::Place>> Places_Of(const std::string& text);

}  // namespace verlink
