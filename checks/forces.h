// Forces and torques beside the laws of mechanics.
#pragma once

#include <vector>

#include "checks/check.h"
#include "checks/motion.h"

namespace verlink::checks {

/// Power, each link's balance, the shaking force and moment, and what the solve leaves out. Of the forces that hold.
void Add_Forces(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks);

/// The mass centre of the links with their counterweights, and the shaking force with them. Of a balance that holds.
void Add_Balance(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks);

}  // namespace verlink::checks
