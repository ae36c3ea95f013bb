// A linkage found becomes the one in hand.
#pragma once

#include "design/search.h"

namespace verlink {
struct LinkageModel;
}

namespace verlink::design {

/// Lengths, ground link, circuit and crank range of the solution, by the road of synthesis through the door for
/// linkages, in the unit system in force, which is to be the task's. The range goes from the first position to the last
/// in 36 steps; where the crank turns to the right, limits ascend and the speed is negative. The synthesis data become
/// those of its positions, of the first three where there are more, so that the checks ask for them and the screens of
/// synthesis show them.
void Hand_Over(const Task& task, const Solution& solution, LinkageModel& model);

}  // namespace verlink::design
