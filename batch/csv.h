// Columns as comma-separated values.
#pragma once

#include <string>
#include <vector>

#include "batch/columns.h"
#include "core/number.h"

namespace verlink {

/// The shortest decimals that read back to the same 32-bit value.
std::string Shortest(Single value);

/// A text as a field: in quotes, with its own quotes doubled, where it holds a comma, a quote or a line end.
std::string Csv_Field(const std::string& text);

/// A header line and a line for each row, ending in LF.
std::string Csv(const std::vector<Column>& columns);

/// How many of the steps 0 to `NSteps` closed.
int Closed_Positions();

}  // namespace verlink
