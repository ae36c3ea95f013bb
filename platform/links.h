// Where a path leads that is to be written: through links, to a file or to what is open already.
#pragma once

#include <optional>
#include <string>

namespace verlink::platform {

/// The folder of a file, "." for a bare name.
std::string Folder_Of(const std::string& path);

/// The path with a link at its end followed to what it names, whether that is there or not; not to nothing in a folder
/// that others may write, since they may have put the link there.
std::string Link_Target(const std::string& path);

/// The number under which this process has open what the path names, as "/dev/stdout" or "/dev/fd/3", links followed;
/// nothing for other paths.
std::optional<int> Descriptor_Named(const std::string& path);

/// Whether anybody but the user and the administrator may make and take files in a folder. The user's own group counts
/// as the user.
bool Others_May_Write(const std::string& folder);

}  // namespace verlink::platform
