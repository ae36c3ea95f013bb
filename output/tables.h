// Tables of up to four functions: in a grid, on paper, in a file.
#pragma once

#include <string>

#include "platform/screen.h"

namespace verlink {

/// The titles of a table and of the plot screens' headers.
void Table_Titles(std::string& line1, std::string& line2, std::string& time, std::string& step, std::string& unit);

/// Fills `grd_Data` of `frm_PrintData` and shows the screen. Statistics are those of all steps of the run, printed or
/// not.
void Multiprint(platform::Screen& screen);
void Clear_Grid(int rows, int cols);

/// The whole table, a row for each printed step or each harmonic, with the head on every page.
void Print_to_Printer();
void Print_Header();

/// The data file's content goes to the stream opened by `Open_Data_File`.
void Print_to_File();
void File_Header();
void Row_Lead(int row);

/// File number 1: what is written until `Close_Data_File` goes to that path as a whole, then.
void Open_Data_File(const std::string& path);
void Close_Data_File();

}  // namespace verlink
