// The output variables of a run, by their names.
#pragma once

#include <string>

#include "batch/options.h"

namespace verlink {

/// The number of the last variable that a run has: with dynamics and with balancing there are more.
int Last_Variable(bool dynamics, bool balance);
/// Whether a variable up to that number is called that, exactly.
bool Is_Variable(const std::string& label, int last);

/// The slot through which variables are read, and which is transformed.
inline constexpr int kSlot = 1;

/// Puts a function into a slot 1 to 4.
void Take_Function(const FunctionChoice& choice, int slot);
/// The frame of all vectors, which are read through `kSlot`.
void Use_Frame(bool local);

}  // namespace verlink
