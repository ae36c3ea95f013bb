// The run of a model as the input screen's Calculate does it, but from the model's own values.
#pragma once

#include <ostream>

namespace verlink {

/// Link 1 by the model's form of it, negative lengths made positive with the screen's message, the rest as it
/// stands.
void Derive_Geometry();

/// The limits of run types 1 to 3 as the run takes them. False, with the words that a screen would show, when they are
/// refused.
bool Take_Limits();

/// Runs types 1 to 3, or replays the drive table of types 4 and 5. False, with the words that a screen would show,
/// when the limits are refused or the lengths cannot close at all; then there is no table. A drive table without rows
/// is noted on the stream.
bool Run_Model(std::ostream& notes);

/// Says on the stream, in one line, how many positions did not close, if any. False when none closed.
bool Tell_Of_Gaps(std::ostream& notes);

}  // namespace verlink
