// How printed lines are made of zones.
#include "platform/printer.h"

#include <algorithm>
#include <utility>

#include "platform/desktop_services.h"

namespace verlink::platform {

namespace {
constexpr std::size_t kZone = 14;
}

Printer& Printer::Print(const std::string& text) {
    pages_.back().back() += text;
    return *this;
}

Printer& Printer::Zone() {
    std::string& line = pages_.back().back();
    // Letters count, and not the bytes that follow the first of a letter.
    const auto letters = static_cast<std::size_t>(
        std::count_if(line.begin(), line.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    line.append((letters / kZone + 1) * kZone - letters, ' ');
    return *this;
}

Printer& Printer::EndLine() {
    pages_.back().emplace_back();
    return *this;
}

void Printer::NewPage() { pages_.push_back({{}}); }

void Printer::EndDoc() {
    const auto pages = std::exchange(pages_, {{{}}});
    The_Desktop().Print_Pages(pages);
}

Printer& The_Printer() {
    static Printer printer;
    return printer;
}

}  // namespace verlink::platform
