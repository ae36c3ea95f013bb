// Which document of the manual each help entry opens.
#pragma once

#include <span>
#include <string>
#include <utility>

namespace verlink {

/// The path of the entry's document below the folder of the help documents; empty for an entry that has none.
std::string Help_Document(const std::string& entry);

/// Every help entry of the home screen with its document.
std::span<const std::pair<const char*, const char*>> Help_Documents();

}  // namespace verlink
