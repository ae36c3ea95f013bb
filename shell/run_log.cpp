// The log is a text of lines that are only ever added, each by a single call, so that it is whole at every moment.
#include "shell/run_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <set>
#include <sstream>

#include "platform/desktop_services.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/temporaries.h"

namespace verlink {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRunSuffix = ".run";
constexpr std::string_view kEnd = "end ";
constexpr std::string_view kGoingOn = "going on";
constexpr std::string_view kWrites = "writes ";

constexpr int kNone = -1;  ///< is no file, and what is written there goes nowhere
std::atomic<int> log_file = kNone;
std::atomic<bool> end_logged;
std::string log_path;
std::mutex noting;
std::set<std::string> noted;

std::string Path_Of(const std::string& folder, const platform::Process& process) {
    return folder + platform::Name_Of(process) + std::string(kRunSuffix);
}

/// As long as it is short, the system adds it whole.
void Add(std::string_view line) noexcept {
    [[maybe_unused]] const ssize_t count = ::write(log_file, line.data(), line.size());
}

void Note_Folder(const std::string& folder) {
    const std::scoped_lock lock(noting);
    std::error_code none;
    const fs::path whole = fs::absolute(folder.empty() ? "." : folder, none);
    if (none || !noted.insert(whole.string()).second) return;
    Add(std::string(kWrites) + In_One_Line(whole.string()) + "\n");
}

/// The logs in the folder, by their processes.
std::vector<platform::Process> Logged(const std::string& folder) {
    std::vector<platform::Process> found;
    std::error_code none;
    for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
        std::string name = entry->path().filename().string();
        if (!name.ends_with(kRunSuffix)) continue;
        name.resize(name.size() - kRunSuffix.size());
        const auto process = platform::Process_Of(name);
        if (process && *process != platform::This_Process()) found.push_back(*process);
    }
    return found;
}

Past_Run Read_Run(const std::string& folder, const platform::Process& process) {
    Past_Run run{process, {}, {}};
    std::string content;
    if (Failure_Of([&] { content = platform::Read_File(Path_Of(folder, process)); }) != 0) return run;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(kEnd)) run.end = line.substr(kEnd.size());
        if (line == kGoingOn) run.end.clear();
        if (line.starts_with(kWrites)) run.folders.push_back(From_One_Line(line.substr(kWrites.size())));
    }
    return run;
}

}  // namespace

std::string State_Folder() {
    const std::string folder = platform::The_Desktop().State_Folder();
    return folder.empty() ? folder : folder + "/verlink/";
}

void Begin_Run_Log(const std::string& folder) {
    End_Run_Log();
    std::error_code none;
    if (platform::Make_Folder(folder)) fs::permissions(folder, fs::perms::owner_all, none);
    log_path = Path_Of(folder, platform::This_Process());
    // Here already: writing whole raises the failure that fits, and the descriptor adds to what was written.
    platform::Write_File(log_path, "running\n", 0600);
    log_file = ::open(log_path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW);
    end_logged = false;
    platform::Watch_Temporaries(Note_Folder);
}

void Log_End(const char* why) noexcept {
    char line[80] = "end ";
    std::size_t length = kEnd.size();
    while (*why && length < sizeof line - 1) line[length++] = *why++;
    line[length++] = '\n';
    end_logged = true;
    Add({line, length});
}

void Log_Going_On() noexcept {
    if (end_logged.exchange(false)) Add("going on\n");
}

void End_Run_Log() {
    platform::Watch_Temporaries(nullptr);
    ::close(log_file.exchange(kNone));
    std::error_code none;
    fs::remove(log_path, none);
    noted.clear();
}

std::vector<Past_Run> Past_Runs(const std::string& folder) {
    std::vector<Past_Run> runs;
    for (const platform::Process& process : Logged(folder))
        if (!platform::Runs(process)) runs.push_back(Read_Run(folder, process));
    return runs;
}

std::vector<platform::Process> Other_Runs(const std::string& folder) {
    std::vector<platform::Process> running;
    for (const platform::Process& process : Logged(folder))
        if (platform::Runs(process)) running.push_back(process);
    return running;
}

void Forget_Run(const std::string& folder, const Past_Run& run) {
    std::error_code none;
    fs::remove(Path_Of(folder, run.process), none);
}

std::string In_One_Line(std::string_view text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string line;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x20 && c != '%') {
            line += c;
            continue;
        }
        line += '%';
        line += kDigits[code >> 4U];
        line += kDigits[code & 15U];
    }
    return line;
}

std::string From_One_Line(std::string_view line) {
    const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'A' + 10; };
    const auto is_digit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); };
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '%' && i + 2 < line.size() && is_digit(line[i + 1]) && is_digit(line[i + 2])) {
            text += static_cast<char>(digit(line[i + 1]) * 16 + digit(line[i + 2]));
            i += 2;
        } else {
            text += line[i];
        }
    }
    return text;
}

}  // namespace verlink
