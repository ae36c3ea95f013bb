// Drive data: the motion of the input link from the files of a cam program or of another stage.
#pragma once

#include <string>

#include "files/text_notation.h"
#include "platform/screen.h"

namespace verlink {

// Both read a file whole before anything of it enters the record: a file that is refused, or breaks off, leaves the
// model as it was. `path` is that of the file; without one, its names stay as the caller has set them.

/// An .sva file: a cam-driven run (`Calctype` 4), with the linkage when the file has one, in the units of the file; the
/// rest of the model is converted to these. Six-link and slider files are refused with a message. Failures go to the
/// reporter under "Read_Cam_Data". False when refused or failed.
bool Read_Cam_Data(TextReader& reader, const std::string& path = {});

/// An .out file: angle (global, degrees), velocity, acceleration of the input link by step: a link-driven run
/// (`Calctype` 5). Failures go to the reporter under "Import_Linkage_Data". False when failed.
bool Import_Linkage_Data(TextReader& reader, const std::string& path = {});

/// The import menu's actions, each a handler of the home screen.
void Menu_Lobetra(platform::Screen& home);
void Menu_Link_Data_Import(platform::Screen& home);
/// The same for a file that is known already.
void Import_Cam_File(platform::Screen& home, const std::string& path);
void Import_Link_File(platform::Screen& home, const std::string& path);

}  // namespace verlink
