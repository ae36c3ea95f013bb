// Tasks of design from the command line.
#pragma once

#include <ostream>
#include <string>

#include "batch/options.h"
#include "batch/printout.h"
#include "design/search.h"

namespace verlink {

/// A header line and a row for each solution, the best first. Lines end in LF.
std::string Solutions_Csv(const design::Task& task, const design::Found& found);

/// Reads the task, searches, and writes what is wanted of the solutions. The exit status: 0, or 1 when the task cannot
/// be read, nothing does it, or a file cannot be written.
int Run_Design(const BatchOptions& options, Printout& print, std::ostream& err);

}  // namespace verlink
