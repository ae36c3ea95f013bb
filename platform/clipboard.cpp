// The clipboard in force.
#include "platform/clipboard.h"

#include <utility>

namespace verlink::platform {

namespace {

struct Clipboard {
    std::function<void(const std::string&)> take;
    std::function<std::string()> give;
};

Clipboard& In_Force() {
    static Clipboard clipboard;
    return clipboard;
}

}  // namespace

void Copy_Text(const std::string& text) {
    if (In_Force().take) In_Force().take(text);
}

std::string Pasted_Text() { return In_Force().give ? In_Force().give() : std::string(); }

void Use_Clipboard(std::function<void(const std::string& text)> clipboard, std::function<std::string()> pasted) {
    In_Force() = {std::move(clipboard), std::move(pasted)};
}

}  // namespace verlink::platform
