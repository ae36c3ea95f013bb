// Results for another stage or program: motion of link 4, driving torque, the geared sister program's input.
#pragma once

#include <string>

#include "core/number.h"
#include "files/text_notation.h"
#include "platform/screen.h"

namespace verlink {

/// Of the last run: number of steps, start, end and step in seconds, and by step angle (global, degrees), speed (rad/s)
/// and acceleration (rad/s^2) of link 4, as `Import_Linkage_Data` reads them.
std::string Link4_Content();
/// Number of steps, and by step the driving torque of the last solve, in the unit that results have, as
/// `Import_Torque_Data` reads it; zeros without a solve.
std::string Torque_Content();
/// The linkage with a triangle in place of coupler and coupler point: lengths as stored, the phase of the triangle in
/// degrees.
std::string Pendrix_Content();

/// Each writes its file to `FilePath` and sets `SavedFlag`; failures go to the reporter under the writer's own name
/// and leave an old file whole. False when it failed.
bool Export_Link4_to_File();
bool Export_Torque_Data();
bool Write_Pend();

/// The export menu's actions, each a handler of the home screen.
void Menu_Link_Data_Export(platform::Screen& home);
void Menu_Export_Torque(platform::Screen& home);
void Menu_pdx(platform::Screen& home);

/// Reads a table of torque on link 4 into `ImportedTorque`; `Failed` when its length is not that of the run, or it
/// cannot be read to its end, and the table of before stays.
void Import_Torque_Data(TextReader& reader, bool& Failed);
/// The dialog, file and consequences of `chk_Torque` on `frm_MassProp`; `Index` is the row of `txt_Torque`. A table
/// that is not taken leaves `FilePath`, `TorqueFileName` and `SavedFlag` as they were. With a path nobody is asked for
/// it.
void Import_Torque(Integer Index, const std::string& path = {});

}  // namespace verlink
