// The failures that errors of the system become, and the words for each.
#include "platform/file_trouble.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace verlink::platform {

namespace {

namespace fs = std::filesystem;

long Number_Of(int error, Way way) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: return way == Way::kWriting ? kPathNotFound : kFileNotFound;
        case ENXIO:
        case ENODEV:
        case ENOMEDIUM: return kDiskNotReady;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return kDiskFull;
        case ENAMETOOLONG:
        case EINVAL:
        case ELOOP: return kBadFileName;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY: return kPathAccess;
        default: return kDeviceError;
    }
}

/// What of a path is not there: the first folder on the way that is missing, or that is none; else the file itself.
std::string What_Is_Missing(const std::string& path) {
    if (path.empty()) return "it has no name";
    std::error_code none;
    fs::path way;
    for (const fs::path& part : fs::path(path).parent_path()) {
        way /= part;
        if (!fs::exists(way, none)) return "there is no folder " + way.string();
        if (!fs::is_directory(way, none)) return way.string() + " is no folder";
    }
    if (fs::is_symlink(path, none))
        return "it is a link to " + fs::read_symlink(path, none).string() + ", which is not there";
    return "there is no such file";
}

std::string Who_Refuses(const std::string& path, Way way) {
    if (way == Way::kReading) return "you may not read it";
    std::error_code none;
    return fs::exists(path, none) ? "you may not write it, or not in its folder" : "you may not write in its folder";
}

std::string Matter_Of(const std::string& path, Way way, int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: return What_Is_Missing(path);
        case EACCES:
        case EPERM: return Who_Refuses(path, way);
        case EROFS: return "its disk can only be read";
        case EISDIR: return "it is a folder";
        case ENOSPC: return "the disk is full";
        case EDQUOT: return "your share of the disk is used up";
        case EFBIG: return "it would be larger than a file may be";
        case ENAMETOOLONG: return "its name is too long";
        case EINVAL: return "the system does not take its name";
        case ELOOP: return "its links lead in a circle";
        case ENXIO: return "there is nothing behind it";
        case EPIPE: return "nobody reads it any more";
        case EBADF: return "it is not open for that";
        default: return "the system says \"" + std::generic_category().message(error) + "\"";
    }
}

}  // namespace

void Raise_File(const std::string& path, Way way, int error) {
    throw RuntimeFailure(Number_Of(error, way), {path, way == Way::kWriting, Matter_Of(path, way, error)});
}

void Refuse_File(const std::string& path, Way way, const std::string& matter) {
    throw RuntimeFailure(kPathAccess, {path, way == Way::kWriting, matter});
}

}  // namespace verlink::platform
