// Where the results of a batch go, and that none goes over an input or over another.
#pragma once

#include <string>

#include "batch/options.h"

namespace verlink {

/// Whether a path is standard output, by any of its names: "-", "/dev/stdout", "/dev/fd/1".
bool Is_Standard_Output(const std::string& path);

/// False, with the fault, when something is to be written to a file that is read or written by the same call as well,
/// also under another name. Devices take as much as they are given.
bool Outputs_Apart(const BatchOptions& options, std::string& fault);

}  // namespace verlink
