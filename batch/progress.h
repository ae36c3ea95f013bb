// How far several models are, in one line of a terminal.
#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace verlink {

/// The line, without its end: a bar, how many are done of how many, and the name of what is at work, cut to a terminal
/// of so many columns; without the bar where there is no room for it. Letters count as UTF-8 has them.
std::string Progress_Line(std::size_t done, std::size_t all, const std::string& name, int columns);

/// The line on a terminal, at most so often as an eye can follow.
class Progress {
   public:
    /// Without columns it shows nothing.
    Progress(std::ostream& terminal, int columns, std::size_t all)
        : terminal_(terminal), columns_(columns), all_(all) {}
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::size_t done, const std::string& name);
    /// Makes room for a message; the next Show brings the line back.
    void Clear();

   private:
    std::ostream& terminal_;
    int columns_;
    std::size_t all_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_;
};

}  // namespace verlink
