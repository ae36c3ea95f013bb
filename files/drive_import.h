// Drive data: the motion of the input link from the files of a cam program or of another stage.
#pragma once

#include "files/text_notation.h"
#include "platform/screen.h"

namespace verlink {

/// An .sva file: a cam-driven run (`Calctype` 4), with the linkage when the file has one. Six-link and slider files
/// are refused with a message; what was read by then stays. Failures go to the reporter under "Read_Cam_Data".
/// False when refused or failed.
bool Read_Cam_Data(TextReader& reader);

/// An .out file: angle (global, degrees), velocity, acceleration of the input link by step: a link-driven run
/// (`Calctype` 5). Failures go to the reporter under "Import_Linkage_Data". False when failed.
bool Import_Linkage_Data(TextReader& reader);

/// The import menu's actions, each a handler of the home screen.
void Menu_Lobetra(platform::Screen& home);
void Menu_Link_Data_Import(platform::Screen& home);

}  // namespace verlink
