// A task in another unit system.
#pragma once

#include "design/task.h"

namespace verlink::design {

/// The same positions and limits with their lengths in the shown unit of another system, 1 to 5. Beyond
/// `kLargestLength` a length may come of it that no file takes.
Task In_Units(const Task& task, int units);

}  // namespace verlink::design
