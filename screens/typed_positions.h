// The positions that a synthesis screen has, as positions of the task of all linkages.
#pragma once

#include <optional>
#include <vector>

#include "design/task.h"

namespace verlink {

struct LinkageModel;

/// Lengths in the shown unit, angles in degrees.
struct Typed_Positions {
    std::vector<design::Place> moved;  ///< of positions 2 and 3 from the first
    struct Pivots {
        design::Point O2, O4, P1;
    };
    std::optional<Pivots> pivots;  ///< where they are specified
};

/// The task of the record in the unit system in force; without any limits where there is none.
design::Task Task_In_Hand(const LinkageModel& model);

/// The task with these positions behind its first; nothing where they are its positions, within single precision. What
/// the screen says nothing of stays: limits, weights, and the place of the first position where no point P1 is
/// specified. Specified pivots are the places of the fixed pivots.
std::optional<design::Task> With_Positions(const design::Task& task, const Typed_Positions& typed);

}  // namespace verlink
