// The words of the one failure reporter.
#pragma once

#include <string>

namespace verlink {

/// Tells the user of a failure: "Error ", its number, its description, the procedure, and the advice that goes
/// with the number; then brings the mouse pointer back. After number 7 the home screen is shown. Failures of a run
/// that are told as one get the count behind the advice; a failure at a file ends with the file and what is the matter
/// with it.
void Report_Error(long ErrorNumber, const std::string& ProcName);

/// While one exists, the file that the program was started with is being opened: a failure whose number has no advice
/// comes with the advice for files that were clicked on.
class Opening_Clicked_File {
   public:
    Opening_Clicked_File();
    ~Opening_Clicked_File();
    Opening_Clicked_File(const Opening_Clicked_File&) = delete;
    Opening_Clicked_File& operator=(const Opening_Clicked_File&) = delete;
};

}  // namespace verlink
