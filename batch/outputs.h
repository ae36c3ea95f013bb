// Where the results of a batch go, and that none goes over an input or over another.
#pragma once

#include <string>
#include <vector>

#include "batch/options.h"

namespace verlink {

/// Whether a path is standard output, by any of its names: "-", "/dev/stdout", "/dev/fd/1".
bool Is_Standard_Output(const std::string& path);

/// Whether anything is printed, or goes there by name.
bool Writes_To_Standard_Output(const BatchOptions& job);

/// False, with the fault, when something is to be written to a file that is read or written by the same call as well,
/// also under another name. Devices take as much as they are given, and standard output the tables of all models.
bool Outputs_Apart(const std::vector<BatchOptions>& jobs, std::string& fault);

/// Of several models: false, with the fault, when a folder is not there that one of them is to write into.
bool Folders_There(const std::vector<BatchOptions>& jobs, std::string& fault);

}  // namespace verlink
