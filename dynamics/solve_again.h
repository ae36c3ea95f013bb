// The forces of a run that has come anew under the hand.
#pragma once

namespace verlink {

struct LinkageModel;

/// `Solve_Forces`, but nobody is told of a solve that stopped, and the forces hold only where all steps were solved;
/// false otherwise, and where no run stands.
bool Solve_Forces_Again(LinkageModel& model);

}  // namespace verlink
