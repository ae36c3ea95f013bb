// What a crash leaves whole: a copy of the model in hand while it is modified, the offer of it at the next start, and
// the word of how the process came to its end.
#pragma once

#include <string>

#include "core/linkage_model.h"
#include "platform/process.h"

namespace verlink {

/// What earlier processes left in the state folder, as a start sees it.
struct Left_Behind {
    bool died = false;     ///< one ended without a word
    bool running = false;  ///< another one runs
};
Left_Behind Look_Around();

/// Whether that process could say what ended it.
bool Said_Its_End(const platform::Process& process);

/// Cleans up after the processes that have ended, and begins the log and the copies of this one. That the state folder
/// cannot be written to is reported as "Begin_Keeping"; without one nothing is kept.
void Begin_Keeping();

/// Offers the copies that were left, the newest first, until one is taken: it becomes the model in hand, unsaved, with
/// its path. True when one was taken. What is refused stays until `Drop_Refused`.
bool Offer_Copies(LinkageModel& model);
void Drop_Refused();

/// After a change: there is a copy as long as the model is modified. Takes no longer than the model's text.
void Keep_Copy(const LinkageModel& model, bool modified);

/// The process is about to be ended by `why`: that is noted, and the copy is fresh and stays as it is.
void Leave_Copy(const char* why);
/// The same for an end that may yet be called off; then the next change takes it back.
void Prepare_To_Leave(const char* why);

/// A normal end: neither copy nor log stays.
void End_Keeping();

}  // namespace verlink
