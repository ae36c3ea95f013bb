// The files that verlink-batch exchanges with other stages, taken in as the program's menus would.
#pragma once

#include <ostream>
#include <string>

#include "platform/failure.h"

namespace verlink {

/// The words of a failure and, in brackets, what is the matter with its file.
std::string Why(const platform::RuntimeFailure& failure);

/// Whether the extension is that of cam or link drive data, .sva or .out, in letters of either case.
bool Is_Drive_File(const std::string& path);

/// Imports drive data, by the extension. False, with a line on the stream, when they cannot be read or are refused.
bool Take_Drive(const std::string& path, std::ostream& notes);

/// Imports a table of torque on link 4 for the run at hand. False, with a line on the stream, when it cannot be read
/// or is one of another length.
bool Take_Torque(const std::string& path, std::ostream& notes);

}  // namespace verlink
