// The models that were opened or saved last, among the settings.
#include "files/recent_files.h"

#include <algorithm>
#include <filesystem>

#include "platform/file_system.h"
#include "platform/settings.h"

namespace verlink {

namespace {

constexpr char kSetting[] = "recent";
/// More than are shown: those that are gone may come back, as on a disk that is taken away and brought again.
constexpr std::size_t kMostKept = 30;

}  // namespace

void Note_Recent(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path full = std::filesystem::absolute(path, failed);
    const std::string latest = failed ? path : full.lexically_normal().string();
    platform::Settings& settings = platform::The_Settings();
    settings.Look_Again();
    std::vector<std::string> recent = settings.List(kSetting);
    std::erase(recent, latest);
    recent.insert(recent.begin(), latest);
    recent.resize(std::min(recent.size(), kMostKept));
    settings.Put(kSetting, recent);
    settings.Save();
}

std::vector<std::string> Recent_Files() {
    std::vector<std::string> there;
    for (const std::string& path : platform::The_Settings().List(kSetting)) {
        if (there.size() == kMostRecent) break;
        if (platform::Is_Plain_File(path)) there.push_back(path);
    }
    return there;
}

bool Any_Recent() { return !platform::The_Settings().List(kSetting).empty(); }

}  // namespace verlink
