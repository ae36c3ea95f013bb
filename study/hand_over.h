// A linkage of a study becomes the one in hand.
#pragma once

#include <span>

namespace verlink {
struct LinkageModel;
}

namespace verlink::study {

/// Values of some of `Fields()`, as the model file has them, through the door for linkages. What was known of another
/// linkage falls: the run where lengths or the drive are others, the forces where masses or loads are.
void Hand_Over(std::span<const int> fields, std::span<const float> values, LinkageModel& model);

}  // namespace verlink::study
