// Columns as JSON.
#pragma once

#include <string>
#include <vector>

#include "batch/columns.h"

namespace verlink {

/// What stands above the columns: by name, a text each.
using Json_Heads = std::vector<std::pair<std::string, std::string>>;

/// One object: the heads, `rows`, and `columns`, an array of objects with `name`, `unit` (null where there is none) and
/// `values`. A value is null where it would speak of a position that does not close. Numbers have the shortest decimals
/// that read back to the same 32-bit value. Ends in LF.
std::string Json(const Json_Heads& heads, const std::vector<Column>& columns);

}  // namespace verlink
