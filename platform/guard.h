// The guard that every procedure of substance stands in, and the way from it to the one failure reporter.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/failure.h"

namespace verlink {

/// Takes the number of a failure and the name of the procedure that it ended.
using Reporter = void (*)(long ErrorNumber, const std::string& ProcName);

/// The reporter in force. There is always one: it is installed beside the desktop, before anything can fail.
void Install_Reporter(Reporter reporter);

/// Hands a failure to the reporter, at once or, while a run is told as one, with the others of its kind. Without a
/// reporter a logic_error.
void Report_Failure(long ErrorNumber, const std::string& ProcName);

/// While one exists, failures of one number and procedure are told together when the outermost one ends: the report
/// goes to the reporter once, and `Repeats` tells how many there were.
class Told_As_One {
   public:
    Told_As_One();
    ~Told_As_One();
    Told_As_One(const Told_As_One&) = delete;
    Told_As_One& operator=(const Told_As_One&) = delete;
};

/// How many failures the report that is being told stands for; 1 but for those of a run.
int Repeats();

/// Runs `body`; a failure inside goes to the reporter under the procedure's name, and the caller goes on.
/// Nothing is rolled back. Gives back whether the body ran to its end.
template <class Body>
bool Guarded(std::string_view ProcName, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const platform::RuntimeFailure& failure) {
        Report_Failure(failure.Number(), std::string(ProcName));
    } catch (const std::bad_alloc&) {
        Report_Failure(platform::kOutOfMemory, std::string(ProcName));
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
        if (failure.Number() != platform::kDialogCancelled) Report_Failure(failure.Number(), std::string(ProcName));
    } catch (const std::bad_alloc&) {
        Report_Failure(platform::kOutOfMemory, std::string(ProcName));
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
