// The start of the process, its end, and the marker that tells the next start how this one ended.
#pragma once

#include <string>

namespace verlink {

/// The whole start, up to the title screen; returns when the screens are done. `command_line` is the path of a model
/// or empty.
void Sub_Main(const std::string& command_line);

/// The identity strings of the program: tag, revisions, banner.
void Set_Identity();
/// The user's data folder, with its separator, from the documents folder; becomes `FilePath`.
void Find_Data_Folder();
void Check_for_Crash();
/// Writes the marker's running form; failures are reported under "Write_Checkfile " and the context.
void Write_Checkfile(std::string& Context);
/// Normal end: the marker says so, and the process ends.
void Terminate();

}  // namespace verlink
