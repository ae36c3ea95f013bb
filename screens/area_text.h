// Where a pivot may lie, as it is typed.
#pragma once

#include <optional>
#include <string>

#include "design/task.h"

namespace verlink {

/// "anywhere", "0 0 to 4 3" (two corners of a rectangle), "at 1 2, 3 4" (points); rounded to 5 decimals.
std::string Area_Text(const design::Area& area);
/// Reads what `Area_Text` writes; nothing for what is none of these. An empty text is anywhere; corners may be any two
/// that lie across.
std::optional<design::Area> Area_Of(const std::string& text);

}  // namespace verlink
