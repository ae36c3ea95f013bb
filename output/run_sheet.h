// All that is known of a run, as one sheet.
#pragma once

#include "core/linkage_model.h"
#include "files/sheet.h"

namespace verlink {

/// A row for each step: the step, whether its position closes, the time of a run by time, and every output variable
/// that the run has, scalars in one column and vectors in four, in the global frame or, where they have the choice,
/// each in that of its own link; both centrodes, global. Cells of positions that do not close are empty, and statistics
/// are of the others.
Sheet Run_Sheet(const LinkageModel& model, bool local);

}  // namespace verlink
