// The run beside a second solution of its positions, speeds and accelerations.
#pragma once

#include <vector>

#include "checks/check.h"
#include "checks/expected.h"
#include "checks/pose.h"

namespace verlink::checks {

/// A step of the run, in stored lengths.
struct Step {
    int number = 0;
    Driven drive{};
    Pose pose;  ///< by the second solution, at the crank's angle
    Expected expected;
    /// What the first acceleration term of a driven run is off by, taken through the equations: speeds of turning.
    double design_alpha3 = 0, design_alpha4 = 0;
};

/// The steps of the run that close.
std::vector<Step> Checked_Steps(const LinkageModel& model);

/// Closure, positions, angles, speeds, accelerations and ratios.
void Add_Motion(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks);

/// Speeds and accelerations against differences of the positions in the table, over seven steps by the crank's angle;
/// their error is told by those over five.
void Add_Differences(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks);

}  // namespace verlink::checks
