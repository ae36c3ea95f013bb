// Columns as comma-separated values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/columns.h"
#include "core/number.h"

namespace verlink {

/// The shortest decimals that read back to the same 32-bit value.
std::string Shortest(Single value);

/// What is nothing but digits, as far as 64 bits hold it.
std::optional<std::uint64_t> Whole_Number(std::string_view text);

/// A text as a field: in quotes, with its own quotes doubled, where it holds a comma, a quote or a line end.
std::string Csv_Field(const std::string& text);

/// A header line and a line for each row, ending in LF.
std::string Csv(const std::vector<Column>& columns);

/// How many of the steps 0 to `NSteps` closed.
int Closed_Positions();

}  // namespace verlink
