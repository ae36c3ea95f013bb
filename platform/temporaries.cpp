// Names of temporaries, and the sweeping of those that nobody will rename any more.
#include "platform/temporaries.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/process.h"

namespace verlink::platform {

namespace {

constexpr std::string_view kHead = ".verlink-";
constexpr std::string_view kPlaces = "XXXXXX";

Folder_Watcher watching = nullptr;

/// Whose temporary a file of that name is; nothing for all other files.
std::optional<Process> Writer_Of(std::string_view name) {
    if (!name.starts_with(kHead)) return {};
    name.remove_prefix(kHead.size());
    const std::size_t dash = name.rfind('-');
    return name.size() - dash == kPlaces.size() + 1 ? Process_Of(name.substr(0, dash)) : std::nullopt;
}

}  // namespace

std::string Temporary_Beside(const std::string& target) {
    const std::filesystem::path folder = std::filesystem::path(target).parent_path();
    if (watching) watching(folder.string());
    std::string name(kHead);
    name += Name_Of(This_Process()) + "-";
    name += kPlaces;
    return (folder / name).string();
}

void Sweep_Temporaries(const std::string& folder) {
    DIR* entries = ::opendir(folder.empty() ? "." : folder.c_str());
    if (!entries) return;
    while (const dirent* entry = ::readdir(entries)) {
        const std::optional<Process> writer = Writer_Of(entry->d_name);
        if (!writer || Runs(*writer)) continue;
        struct stat file {};
        if (::fstatat(::dirfd(entries), entry->d_name, &file, AT_SYMLINK_NOFOLLOW) != 0) continue;
        if (!S_ISREG(file.st_mode) || file.st_uid != ::geteuid()) continue;
        ::unlinkat(::dirfd(entries), entry->d_name, 0);
    }
    ::closedir(entries);
}

void Watch_Temporaries(Folder_Watcher watcher) { watching = watcher; }

}  // namespace verlink::platform
