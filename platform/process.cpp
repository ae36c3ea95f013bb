// A process is known by its number, by when it began, and by which start of the machine that was.
#include "platform/process.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace verlink::platform {

namespace {

struct Status {
    char state = '?';
    unsigned long long start{};
};

/// What the system tells of a process; nothing when it tells nothing.
std::optional<Status> Status_Of(long number) {
    std::ifstream file("/proc/" + std::to_string(number) + "/stat");
    std::string line;
    if (!std::getline(file, line)) return {};
    // The name of the program stands in parentheses and may hold any of them.
    const std::size_t name_end = line.rfind(')');
    if (name_end == std::string::npos) return {};
    std::istringstream fields(line.substr(name_end));
    Status status;
    char parenthesis{};
    fields >> parenthesis >> status.state;
    constexpr int kBetween = 18;
    std::string skipped;
    for (int field = 0; field < kBetween; ++field) fields >> skipped;
    fields >> status.start;
    if (!fields) return {};
    return status;
}

unsigned This_Boot() {
    static const unsigned boot = [] {
        std::ifstream file("/proc/sys/kernel/random/boot_id");
        std::string digits;
        unsigned value{};
        // Up to the first dash.
        if (std::getline(file, digits)) std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        return value;
    }();
    return boot;
}

template <class Number>
bool Take(std::string_view& text, Number& value, int base) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc()) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool Take_Dash(std::string_view& text) {
    if (!text.starts_with('-')) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

Process This_Process() {
    const long number = ::getpid();
    return {number, Status_Of(number).value_or(Status{}).start, This_Boot()};
}

std::string Name_Of(const Process& process) {
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "%ld-%llu-%08x", process.number, process.start, process.boot);
    return name.data();
}

std::optional<Process> Process_Of(std::string_view name) {
    const std::string_view whole = name;
    Process process;
    const bool read = Take(name, process.number, 10) && Take_Dash(name) && Take(name, process.start, 10) &&
                      Take_Dash(name) && Take(name, process.boot, 16) && name.empty();
    // No other spelling of the same process is one of its names.
    if (!read || process.number <= 0 || Name_Of(process) != whole) return {};
    return process;
}

bool Runs(const Process& process) {
    if (process.boot != This_Boot()) return false;
    const std::optional<Status> status = Status_Of(process.number);
    // Where the system tells nothing of a process, it still knows whether there is one of that number.
    if (!status) return ::kill(static_cast<pid_t>(process.number), 0) == 0 || errno == EPERM;
    if (status->state == 'Z' || status->state == 'X') return false;
    return process.start == 0 || status->start == process.start;
}

}  // namespace verlink::platform
