// How links are followed, one at a time.
#include "platform/links.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/file_trouble.h"
#include "platform/system.h"

namespace verlink::platform {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

/// Where the link leads; empty when it is none.
std::string Next(const std::string& path) {
    std::error_code none;
    const fs::path link = path;
    return fs::is_symlink(link, none) ? (link.parent_path() / fs::read_symlink(link, none)).string() : std::string();
}

std::optional<int> Number_In(std::string_view text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 0) return {};
    return number;
}

}  // namespace

std::string Folder_Of(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

std::string Link_Target(const std::string& path) {
    struct stat status {};
    const bool nothing_there = The_System().Stat(path, status) != 0;
    if (nothing_there && errno != ENOENT) Raise_File(path, Way::kWriting, errno);
    std::string target = path;
    for (int links = 0; links <= kMostLinks; ++links) {
        const std::string next = Next(target);
        if (next.empty()) return target;
        if (nothing_there && Others_May_Write(Folder_Of(target)))
            Refuse_File(path, Way::kWriting,
                        "it is a link to " + next + ", which is not there, and others may have put it here");
        target = next;
    }
    Raise_File(path, Way::kWriting, ELOOP);
}

std::optional<int> Descriptor_Named(const std::string& path) {
    const std::string own = "/proc/" + std::to_string(::getpid()) + "/fd/";
    std::string name = path;
    for (int links = 0; links <= kMostLinks && !name.empty(); ++links) {
        const std::string plain = fs::path(name).lexically_normal().string();
        if (plain == "/dev/stdout") return STDOUT_FILENO;
        if (plain == "/dev/stderr") return STDERR_FILENO;
        for (const std::string& folder : {std::string("/dev/fd/"), std::string("/proc/self/fd/"), own})
            if (plain.starts_with(folder)) return Number_In(std::string_view(plain).substr(folder.size()));
        name = Next(name);
    }
    return {};
}

bool Others_May_Write(const std::string& folder) {
    struct stat status {};
    if (The_System().Stat(folder, status) != 0) return true;
    if (status.st_uid != ::geteuid() && status.st_uid != 0) return true;
    if ((status.st_mode & S_IWOTH) != 0) return true;
    return (status.st_mode & S_IWGRP) != 0 && status.st_gid != ::getegid() && status.st_gid != 0;
}

}  // namespace verlink::platform
