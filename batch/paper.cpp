// The program that sets pages takes the place of this one.
#include "batch/paper.h"

#include <unistd.h>

#include <algorithm>

namespace verlink {

namespace {

namespace fs = std::filesystem;

bool Is_Option(const std::string& word, const std::string& option) {
    return word == option || word.starts_with(option + '=');
}

/// A report is set, and a graph as a PDF or PNG has letters.
bool Asks_For_Paper(const std::vector<std::string>& words) {
    const auto has = [&](const char* option) {
        return std::ranges::any_of(words, [option](const auto& each) { return Is_Option(each, option); });
    };
    return has("--report") || (has("--plot") && has("--picture"));
}

}  // namespace

void Get_Ready_For_Paper(const std::vector<std::string>& words, char** arguments, const fs::path& here) {
    if (!Asks_For_Paper(words)) return;
    // Beside it in the build tree; installed, it is no command of its own.
    for (const char* place : {"verlink-paper", "../libexec/verlink/verlink-paper"})
        ::execv((here / place).c_str(), arguments);
}

}  // namespace verlink
