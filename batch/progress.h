// How far several models are, in one line of a terminal.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

namespace verlink {

/// The line, without its end: a bar, how many are done of how many, and the name of what is at work, cut to a terminal
/// of so many columns; without the bar where there is no room for it. Letters count as UTF-8 has them.
std::string Progress_Line(std::size_t done, std::size_t all, const std::string& name, int columns);

/// A line that is shown in place of the one before, not more often than an eye can follow, and goes with this.
class Terminal_Line {
   public:
    /// Without columns it shows nothing.
    Terminal_Line(std::ostream& terminal, int columns, std::chrono::milliseconds apart)
        : terminal_(terminal), columns_(columns), apart_(apart) {}
    ~Terminal_Line() { Clear(); }
    Terminal_Line(const Terminal_Line&) = delete;
    Terminal_Line& operator=(const Terminal_Line&) = delete;

    void Show(const std::function<std::string(int columns)>& line);
    /// Makes room for a message; the next Show brings the line back.
    void Clear();

   private:
    std::ostream& terminal_;
    int columns_;
    std::chrono::milliseconds apart_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_;
};

/// The line of several models.
class Progress : public Terminal_Line {
   public:
    Progress(std::ostream& terminal, int columns, std::size_t all)
        : Terminal_Line(terminal, columns, std::chrono::milliseconds(50)), all_(all) {}
    void Show(std::size_t done, const std::string& name) {
        Terminal_Line::Show([&](int columns) { return Progress_Line(done, all_, name, columns); });
    }

   private:
    std::size_t all_;
};

}  // namespace verlink
