// The start of verlink-batch.
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "batch/batch.h"
#include "batch/paper.h"
#include "platform/system.h"

namespace {

verlink::Terminal Terminal_Of_Messages() {
    constexpr int kUsual = 80;
    if (::isatty(STDERR_FILENO) == 0) return {};
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return {known ? size.ws_col : kUsual, ::isatty(STDOUT_FILENO) != 0};
}

std::filesystem::path Own_Folder() {
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

/// As one who writes into a pipe without a reader ends: whoever started it knows this end.
void End_By_Pipe() {
    ::signal(SIGPIPE, SIG_DFL);
    ::raise(SIGPIPE);
}

}  // namespace

int main(int count, char** arguments) {
    std::ios::sync_with_stdio(false);
    verlink::platform::Let_Writes_Fail(true);
    const std::vector<std::string> words(arguments + 1, arguments + count);
    verlink::Get_Ready_For_Paper(words, arguments, Own_Folder());
    try {
        const int status = verlink::Batch_Main(words, std::cout, std::cerr, Terminal_Of_Messages());
        if (status == verlink::kNobodyReads) End_By_Pipe();
        return status;
    } catch (const std::exception& failure) {
        std::cerr << "verlink-batch: " << failure.what() << '\n';
        return 1;
    }
}
