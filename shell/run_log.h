// What each process of the program tells of itself in the user's state folder while it runs, for starts after it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/process.h"

namespace verlink {

/// What a process that has ended left.
struct Past_Run {
    platform::Process process;
    std::string end;                   ///< what ended it from outside, as "SIGTERM"; empty when it could not say
    std::vector<std::string> folders;  ///< where it wrote files
};

/// The program's folder for what is kept between runs, with its separator; empty where the desktop has none.
std::string State_Folder();

/// Begins the log of this process in `folder`, which is made when it is not there. Folders that files are written to
/// are noted from now on. Throws `RuntimeFailure`. The log of a process that ends without `End_Run_Log` stays.
void Begin_Run_Log(const std::string& folder);
/// The process goes down, and why. May be called in the handler of a signal; does nothing where there is no log.
void Log_End(const char* why) noexcept;
/// It was taken back.
void Log_Going_On() noexcept;
/// A normal end: nothing of it stays.
void End_Run_Log();

/// The runs whose processes have ended.
std::vector<Past_Run> Past_Runs(const std::string& folder);
/// The other processes that run.
std::vector<platform::Process> Other_Runs(const std::string& folder);
/// What was to be learned from it is known.
void Forget_Run(const std::string& folder, const Past_Run& run);

/// A text without line ends, as it stands in one line of a log, and back.
std::string In_One_Line(std::string_view text);
std::string From_One_Line(std::string_view line);

}  // namespace verlink
