// The one failure reporter, and the guard that every procedure of substance stands in.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/failure.h"

namespace verlink {

/// Tells the user of a failure: "Error ", its number, its description, the procedure, and the advice that goes
/// with the number; then brings the mouse pointer back. After number 7 the home screen is shown.
void Report_Error(long ErrorNumber, const std::string& ProcName);

/// Runs `body`; a failure inside goes to `Report_Error` under the procedure's name, and the caller goes on.
/// Nothing is rolled back. Gives back whether the body ran to its end.
template <class Body>
bool Guarded(std::string_view ProcName, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const platform::RuntimeFailure& failure) {
        Report_Error(failure.Number(), std::string(ProcName));
    } catch (const std::bad_alloc&) {
        Report_Error(platform::kOutOfMemory, std::string(ProcName));
    }
    return false;
}

/// The same for handlers of file dialogs: a cancelled dialog ends the body and is not reported.
template <class Body>
bool Guarded_Unless_Cancelled(std::string_view ProcName, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const platform::RuntimeFailure& failure) {
        if (failure.Number() != platform::kDialogCancelled) Report_Error(failure.Number(), std::string(ProcName));
    } catch (const std::bad_alloc&) {
        Report_Error(platform::kOutOfMemory, std::string(ProcName));
    }
    return false;
}

/// Runs `body` and gives back the number of its failure, or 0: for the few places that answer a failure in their own
/// way.
template <class Body>
long Failure_Of(Body&& body) {
    try {
        std::forward<Body>(body)();
        return 0;
    } catch (const platform::RuntimeFailure& failure) {
        return failure.Number();
    } catch (const std::bad_alloc&) {
        return platform::kOutOfMemory;
    }
}

}  // namespace verlink
