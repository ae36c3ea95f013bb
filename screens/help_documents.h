// Which document of the manual each help entry opens.
#pragma once

#include <span>
#include <string>
#include <utility>

namespace verlink {

/// The path of the entry's document below the folder of the help documents; empty for an entry that has none.
std::string Help_Document(const std::string& entry);

/// The document of a screen of the output by the words that its caption begins with, before the banner: "Select Plot
/// Data", "Select Plot Type", "Print Select" or "Output Screen"; empty for any other.
std::string Screen_Help_Document(const std::string& caption);

/// Every help entry of the home screen with its document.
std::span<const std::pair<const char*, const char*>> Help_Documents();

}  // namespace verlink
