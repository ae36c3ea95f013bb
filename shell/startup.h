// The start of the process, its end, and the marker that tells the next start how this one ended.
#pragma once

#include <string>

namespace verlink {

/// The whole start, up to the title screen; returns when the screens are done, or at once when another instance
/// runs already. `command_line` is the path of a model or empty.
void Sub_Main(const std::string& command_line);

/// The identity strings of the program: tag, revisions, banner.
void Set_Identity();
/// "2008 - Release 9.0 Rev 2.2", as the title and about screens show it.
std::string Version_Line();
/// The user's data folder, with its separator, from the documents folder; becomes `FilePath`.
void Find_Data_Folder();
/// Reads the marker and renews it, unless it is that of another process that runs. An abnormal end is told of: a
/// process in the marker or in the logs of the state folder is dead and could not say why. Ends the process, and leaves
/// the marker, when a model was double-clicked while another instance runs, or one did of which the marker says no
/// more. Failures are reported under "Check_for_Crash " and what was being done.
void Check_for_Crash();
/// Writes the marker's running form; `Context` becomes what was being done, and failures are reported under
/// "Write_Checkfile " and it.
void Write_Checkfile(std::string& Context);
/// Normal end: the marker says so, or names another process that still runs, and the process ends.
void Terminate();
/// The process is being ended by `why`, no wish of the user's: the marker says so, and the copy of what was not saved
/// stays for the next start. Does nothing after `Terminate` or another `Leave`. The caller ends the process.
void Leave(const char* why);

}  // namespace verlink
