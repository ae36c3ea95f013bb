// The report of a run.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "batch/options.h"

namespace verlink {

/// All chapters that there is something for, of the run in the record; `plots` in place of the usual ones. Nothing,
/// after a line on the stream, where no pages can be set. The date of the report is today's, or that of
/// SOURCE_DATE_EPOCH where it is set, so that a report can be made again to the letter.
std::optional<std::string> Report_Pdf(const std::vector<FunctionChoice>& plots, bool local, std::ostream& notes);

}  // namespace verlink
