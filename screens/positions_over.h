// The positions that a linkage was found for, laid over its picture.
#pragma once

#include <vector>

#include "core/linkage_model.h"
#include "design/wanted.h"
#include "platform/overlay.h"

namespace verlink {

/// A corner at each, its long leg along the body, with a ring around the body's point and its number: in full lines
/// what the run passes, in dashes, and without the ring, what it does not. The legend says which is which.
void Lay_Over(platform::Overlay& over, const LinkageModel& model, const std::vector<design::Wanted>& wanted);

}  // namespace verlink
