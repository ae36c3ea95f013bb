// The results of a run that verlink-batch writes, each by an option with a path.
#pragma once

#include <optional>
#include <ostream>
#include <span>
#include <string>

#include "batch/options.h"

namespace verlink {

/// A new result is a row of this.
struct ResultRow {
    const char* option;
    const char* words;  ///< of the help, in lines of 64 letters
    bool forces;        ///< whether there is such a thing only of a run whose forces are solved
    /// The content, from the run in the record; nothing, after a line on the stream, when there is none.
    std::optional<std::string> (*make)(const BatchOptions& options, std::ostream& notes);
    bool is_table = false;  ///< whether it stands in place of the table that is printed else
};

/// In the order in which they are written.
std::span<const ResultRow> Result_Rows();

}  // namespace verlink
