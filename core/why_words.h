// The quiet line under a picture of the linkage: the facts of core/why.h in words and shown units.
#pragma once

#include <initializer_list>
#include <string>

#include "core/record/geometry.h"

namespace verlink {

struct LinkageModel;

// Lengths are told in the shown unit; crank angles in the frame and on the turn of the read-out Theta2, global and in
// degrees. An angle "that closes" is rounded to the side on which it does. Texts are empty where there is nothing to
// say.

/// Of a position of the run: how it cannot close and where the nearest one does; else how near a toggle it is, within
/// 10 degrees, and its transmission angle under 40. Of a run that was ended at a position that does not close: of that
/// one.
std::string Why_Shown(const LinkageModel& model, int step);

/// While no position can be shown: what length would do for a linkage that closes nowhere, or nowhere in its run.
std::string Why_Refused(const LinkageModel& model);

/// Of a linkage that a drag asked for at a step of the run, stored units, and that was not followed.
std::string Why_Not_Followed(const LinkageModel& model, const Geometry& wished, int step);

/// Of a drag that only boxes of `txt_Linkout` with these indices could follow, which are locked.
std::string Why_Held(std::initializer_list<int> boxes);

}  // namespace verlink
