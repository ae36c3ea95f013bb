// What is the matter with a file that cannot be read or written.
#pragma once

#include <string>

namespace verlink::platform {

enum class Way { kReading, kWriting };

/// Ends in the failure for an error of the system at a file, with the file's path and what is the matter with it.
[[noreturn]] void Raise_File(const std::string& path, Way way, int error);
/// The same for what the system would take and the program does not: failure 75 for the reason given.
[[noreturn]] void Refuse_File(const std::string& path, Way way, const std::string& matter);

}  // namespace verlink::platform
