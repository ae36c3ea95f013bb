// The words of the one failure reporter.
#pragma once

#include <string>

namespace verlink {

/// Tells the user of a failure: "Error ", its number, its description, the procedure, and the advice that goes
/// with the number; then brings the mouse pointer back. After number 7 the home screen is shown. Failures of a run
/// that are told as one get the count behind the advice.
void Report_Error(long ErrorNumber, const std::string& ProcName);

}  // namespace verlink
