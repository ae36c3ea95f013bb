// Files as the program reads and writes them: whole, or not at all.
#pragma once

#include <optional>
#include <string>

namespace verlink::platform {

/// Paths are UTF-8. The failures raised: 53 for a file that is not there, 75 for one that may not be touched, 71
/// for a folder that is not there when writing, 61 for a full disk, 57 for a device that fails, 64 for a name
/// that the system does not take.

/// The whole content of a file, bytes as they are.
std::string Read_File(const std::string& path);

/// Writes beside the file, flushes to the device, and renames over it. On failure nothing is left behind and the
/// old file is whole. A link is followed, so that the file it names is replaced; the old file's permissions stay, and
/// its owner where the system allows it. A device is written to. What ended processes left beside it is swept. With
/// `own_mode` the file gets these permissions, whatever an old one had; so it may be called from another thread.
void Write_File(const std::string& path, const std::string& content, std::optional<unsigned> own_mode = {});

/// The same for a file that is there and is to stay: what it held is kept, with its permissions, in the first free of
/// `path~`, `path~~` and so on, which is given back. On failure there is no such file.
std::string Write_File_And_Keep(const std::string& path, const std::string& content);

/// Whether a file is there that has a content: no folder, no device.
bool Is_Plain_File(const std::string& path);
bool File_Exists(const std::string& path);
/// With the folders above it; a folder that is there already is no failure. False when it cannot be made.
bool Make_Folder(const std::string& path);

}  // namespace verlink::platform
