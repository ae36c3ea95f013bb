// Files as the program reads and writes them: whole, or not at all.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace verlink::platform {

/// Paths are UTF-8. The failures raised, each with the path and what is the matter: 53 for a file that is not there, 75
/// for one that may not be touched or is none, 76 for a folder that is not there when writing, 61 for a full disk, 57
/// for a device that fails, 64 for a name that the system does not take, 71 for a device that is not there.

/// No file that is larger is read.
inline constexpr std::size_t kLargestFile = std::size_t{64} << 20U;

/// The whole content of a file, bytes as they are. A folder, a pipe, a device and a file larger than `kLargestFile` are
/// refused at once.
std::string Read_File(const std::string& path);

/// The same, but not more than so many bytes of a file of any size.
std::string Read_Beginning(const std::string& path, std::size_t most);

/// Writes beside the file, flushes to the device, renames over it, and flushes the folder. On failure nothing is left
/// behind and the old file is whole; where it is the folder's flushing that failed, the new one. A link is followed, so
/// that the file it names is replaced, but not one to nothing in a folder that others may write. The old file's
/// permissions, attributes and owner stay as far as the system allows it. A device or a pipe is written to, and what is
/// open already ("/dev/stdout", "/dev/fd/3") goes on where it is. What ended processes left beside the file is swept.
/// With `own_mode` the file gets these permissions, whatever an old one had; so it may be called from another thread.
void Write_File(const std::string& path, const std::string& content, std::optional<unsigned> own_mode = {});

/// The same for a file that is there and is to stay: it is kept, with its permissions, under the first free of `path~`,
/// `path~~` and so on, which is given back. On failure there is no such file.
std::string Write_File_And_Keep(const std::string& path, const std::string& content);

/// Whether a file is there that has a content: no folder, no device.
bool Is_Plain_File(const std::string& path);
bool File_Exists(const std::string& path);
/// With the folders above it; a folder that is there already is no failure. False when it cannot be made.
bool Make_Folder(const std::string& path);

}  // namespace verlink::platform
