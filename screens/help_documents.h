// Which document of the manual each help entry opens.
#pragma once

#include <span>
#include <string>
#include <utility>

#include "platform/screen.h"

namespace verlink {

/// The path of the entry's document below the folder of the help documents; empty for an entry that has none.
std::string Help_Document(const std::string& entry);

/// The document of a screen of the output by the words that its caption begins with, before the banner: "Select Plot
/// Data", "Select Plot Type", "Print Select" or "Output Screen"; empty for any other.
std::string Screen_Help_Document(const std::string& caption);

/// Where the manual is about a screen: a document, with "#" and the name of a heading behind it where a part of it is;
/// the whole manual for a screen of which none is.
std::string Screen_Help(const platform::Screen& screen);
/// Where it is about a control of that screen, as above; what it says of the screen where there is nothing of the
/// control, and for none.
std::string Control_Help(const platform::Screen& screen, const platform::Control* control);

/// A row of what these go by: how the names of screen and control begin, the help entry whose document it is, and the
/// heading.
struct Help_Place {
    const char* screen;
    const char* control;  ///< empty for the screen itself
    const char* entry;
    const char* heading;  ///< empty for the beginning
};
std::span<const Help_Place> Help_Places();

/// Every help entry of the home screen with its document.
std::span<const std::pair<const char*, const char*>> Help_Documents();

}  // namespace verlink
