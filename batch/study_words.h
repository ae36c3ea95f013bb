// The options of a study, read against the model in hand.
#pragma once

#include <optional>
#include <string>

#include "batch/options.h"
#include "core/linkage_model.h"
#include "study/study.h"

namespace verlink {

/// The study of a model whose limits are read. Nothing, and the fault in words, when an option cannot be read or asks
/// for what there is not.
std::optional<study::Study> Study_Of(const BatchOptions& options, const LinkageModel& model, std::string& fault);

}  // namespace verlink
