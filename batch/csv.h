// The results of a run as comma-separated values.
#pragma once

#include <string>

#include "core/number.h"

namespace verlink {

/// The shortest decimals that read back to the same 32-bit value.
std::string Shortest(Single value);

/// A text as a field: in quotes, with its own quotes doubled, where it holds a comma, a quote or a line end.
std::string Csv_Field(const std::string& text);

/// A header line and a row for each step 0 to `NSteps`: the step, whether the position closed, its time, every
/// output variable that the run has, and both centrodes. A scalar has one column, any other variable its four
/// components, in the global frame or, each by its own link, in the local one; centrodes are always global. Lengths
/// are in the shown unit, those of the centrodes in the stored one. Rows that did not close stand as the run left
/// them. Lines end in LF.
std::string Run_Table_Csv(bool local = false);

/// How many of the steps 0 to `NSteps` closed.
int Closed_Positions();

}  // namespace verlink
