// The positions that the linkage in hand was found for, and whether its run passes them.
#pragma once

#include <string>
#include <vector>

#include "design/plane.h"

namespace verlink {
struct LinkageModel;
}

namespace verlink::design {

/// The body at a position of the task.
struct Wanted {
    enum class Is { kPassed, kOnOtherCircuit, kBeyondRun, kMissed };
    int number = 1;
    Point at;          ///< from O2, global frame, stored length
    double angle = 0;  ///< degrees
    Is is = Is::kPassed;
    double off = 0, askew = 0;  ///< where the circuit in force comes nearest: stored length, degrees
    bool operator==(const Wanted&) const = default;
};

/// Empty where the record has no task, where its task is another than the one that the linkage was found for, or where
/// the linkage is another one. A linkage of which some lengths were changed is still that one. What is passed is asked
/// of the run in the table, which is to stand, and of the circuit in force, within what the roundings of the boxes come
/// to.
std::vector<Wanted> Positions_Wanted(const LinkageModel& model);

/// What is to be said of them, each a line: "positions 1, 3 passed", with the most that they are off by where that is
/// seen in the decimals shown, "position 2 missed by 0.31 in, 4.2 deg".
std::vector<std::string> Words_Of(const LinkageModel& model, const std::vector<Wanted>& wanted);

}  // namespace verlink::design
