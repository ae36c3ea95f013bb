// What a run has to tell, as columns of numbers with their units.
#pragma once

#include <string>
#include <vector>

#include "batch/options.h"
#include "core/number.h"

namespace verlink {

struct Column {
    std::string name;
    std::string unit;  ///< empty for a count and for yes or no
    std::vector<Single> values;
    bool where_closed = false;  ///< whether a value says something only in a row whose position closes
};

/// A row for each step 0 to `NSteps`: the step, whether the position closed, its time unless the run is by angle or one
/// position, every output variable that the run has, and both centrodes. A scalar has one column, any other variable
/// its four components, in the global frame or, each by its own link, in the local one; centrodes are always global.
/// Lengths are in the shown unit, those of the centrodes in the stored one. Rows that did not close stand as the run
/// left them.
std::vector<Column> Run_Columns(bool local);

/// The transform of a function over the steps of the run: a row for each harmonic below half the number of steps.
std::vector<Column> Transform_Columns(const FunctionChoice& choice, bool local);

}  // namespace verlink
