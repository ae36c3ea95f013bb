// Words of a file in a message of the program.
#pragma once

#include <algorithm>
#include <string>

namespace verlink {

/// The text with a blank for each control character: whatever a file has for a name, a refusal is a line.
inline std::string In_One_Line(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char letter) { return letter < ' ' || letter == 0x7f; }, ' ');
    return text;
}

}  // namespace verlink
