// Texts that leave the program by the desktop's clipboard, and come into it.
#pragma once

#include <functional>
#include <string>

namespace verlink::platform {

/// Does nothing where there is no clipboard.
void Copy_Text(const std::string& text);
/// What the clipboard holds; empty where it holds no text.
std::string Pasted_Text();
/// Where texts go from now on, and come from; null for nowhere.
void Use_Clipboard(std::function<void(const std::string& text)> clipboard,
                   std::function<std::string()> pasted = nullptr);

}  // namespace verlink::platform
