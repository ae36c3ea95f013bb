// Designs beside what was asked for: cognates, and positions that a synthesised linkage was to reach.
#pragma once

#include <vector>

#include "checks/check.h"

namespace verlink::checks {

/// The tables of cognates, found afresh where they are due.
void Add_Cognates(const LinkageModel& model, std::vector<Check>& checks);

/// Whether the linkage in hand is the one that the dyads of the synthesis make.
bool Is_Synthesized(const LinkageModel& model);
void Add_Positions(const LinkageModel& model, std::vector<Check>& checks);

}  // namespace verlink::checks
