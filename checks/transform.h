// The transform beside the function that it was made of.
#pragma once

#include <vector>

#include "checks/check.h"

namespace verlink::checks {

/// Of a transform that holds. The function is looked for among all that the run has: slots may have been chosen anew.
void Add_Transform(const LinkageModel& model, std::vector<Check>& checks);

}  // namespace verlink::checks
