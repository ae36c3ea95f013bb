// How the line is made and taken away.
#include "batch/progress.h"

#include <algorithm>

namespace verlink {

namespace {

bool Begins_Letter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

/// As many letters from the front as there is room for; those that move the cursor are left out.
std::string Cut(const std::string& text, std::size_t most) {
    std::string cut;
    std::size_t letters = 0;
    for (const char byte : text) {
        if (static_cast<unsigned char>(byte) < ' ' || byte == '\x7f') continue;
        if (Begins_Letter(byte) && ++letters > most) break;
        cut += byte;
    }
    return cut;
}

}  // namespace

std::string Progress_Line(std::size_t done, std::size_t all, const std::string& name, int columns) {
    constexpr std::size_t kBar = 30;
    const std::size_t room = static_cast<std::size_t>(std::max(columns, 1)) - 1;
    const std::string count = std::to_string(done) + "/" + std::to_string(all);
    const std::size_t full = all == 0 ? kBar : kBar * done / all;
    std::string line = "[" + std::string(full, '#') + std::string(kBar - full, ' ') + "] " + count;
    if (line.size() > room) line = count;
    return Cut(line + " " + name, room);
}

void Terminal_Line::Show(const std::function<std::string(int columns)>& line) {
    const auto now = std::chrono::steady_clock::now();
    if (columns_ <= 0 || (shown_ && now < next_)) return;
    next_ = now + apart_;
    shown_ = true;
    terminal_ << "\r" << line(columns_) << "\x1b[K" << std::flush;
}

void Terminal_Line::Clear() {
    if (shown_) terminal_ << "\r\x1b[K" << std::flush;
    shown_ = false;
}

}  // namespace verlink
