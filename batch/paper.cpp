// The program that sets pages takes the place of this one.
#include "batch/paper.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace verlink {

namespace {

namespace fs = std::filesystem;

bool Is_Option(const std::string& argument, const std::string& option) {
    return argument == option || argument.starts_with(option + '=');
}

/// A report is set, and a graph as a PDF or PNG has letters.
bool Asks_For_Paper(const std::vector<std::string>& arguments) {
    const auto has = [&](const char* option) {
        return std::ranges::any_of(arguments, [option](const auto& each) { return Is_Option(each, option); });
    };
    return has("--report") || (has("--plot") && has("--picture"));
}

}  // namespace

void Get_Ready_For_Paper(int count, char** arguments) {
    if (!Asks_For_Paper({arguments + 1, arguments + count})) return;
    std::error_code none;
    const fs::path here = fs::read_symlink("/proc/self/exe", none).parent_path();
    // Beside it in the build tree; installed, it is no command of its own.
    for (const char* place : {"verlink-paper", "../libexec/verlink/verlink-paper"})
        ::execv((here / place).c_str(), arguments);
}

}  // namespace verlink
