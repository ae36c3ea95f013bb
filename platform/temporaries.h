// The hidden files in which content lies until it takes its place, and what ended processes left of them.
#pragma once

#include <string>

namespace verlink::platform {

/// A pattern for `mkostemp` in the folder of `target`: hidden, short whatever the target's name, and with this process
/// in it, so that a later one can tell whether anybody still writes there. Whoever watches hears of the folder.
std::string Temporary_Beside(const std::string& target);

/// Removes from the folder the temporaries of processes that have ended: plain files of this user under the names that
/// `Temporary_Beside` gives.
void Sweep_Temporaries(const std::string& folder);

/// Hears of every folder before a temporary is made in it; null for nobody. Not to be changed while files are written.
using Folder_Watcher = void (*)(const std::string& folder);
void Watch_Temporaries(Folder_Watcher watcher);

}  // namespace verlink::platform
