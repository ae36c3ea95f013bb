// The results of a run for other programs: a workbook, a drawing, a picture, a film.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "batch/options.h"

namespace verlink {

// Each makes a whole file from the run in the record; nothing, after a line on the stream, when there is none.

/// All of the run on one sheet, or the transform, and the model on a second.
std::optional<std::string> Workbook_File(const BatchOptions& options, std::ostream& notes);
/// The linkage at its first position that closes, as DXF.
std::optional<std::string> Drawing_File(const BatchOptions& options, std::ostream& notes);
/// As --svg, of the kind that the name says; graphs are SVG only.
std::optional<std::string> Any_Picture(const BatchOptions& options, std::ostream& notes);
std::optional<std::string> Film_File(const BatchOptions& options, std::ostream& notes);

}  // namespace verlink
