// The options of studies, as rows of the table of options.
#pragma once

#include <vector>

#include "batch/option_rows.h"

namespace verlink {

std::vector<OptionRow> Study_Rows();

/// Whether the options of a study go together, and with the others. The fault when they do not.
bool Study_Goes_Together(const BatchOptions& options, std::string& fault);

}  // namespace verlink
