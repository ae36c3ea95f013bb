// The model as one would write it down beside its results.
#pragma once

#include <vector>

#include "core/linkage_model.h"
#include "files/sheet.h"

namespace verlink {

/// Whose it is, the linkage, how it is driven, masses and loads: each with the unit that is shown for it, lengths as
/// the screens show them.
std::vector<Sheet_Fact> Model_Facts(const LinkageModel& model);

}  // namespace verlink
