// How far a study is, in one line of a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>

namespace verlink {

/// The line, without its end, cut to a terminal of so many columns: a bar, how many are done of how many, how many a
/// second and what is left of the time; neither of these while nothing is done. What went before this call counts as
/// done, but not for the rate.
std::string Study_Line(std::uint64_t done, std::uint64_t all, std::uint64_t before, double seconds, int columns);

/// The line on a terminal, a few times a second.
class Study_Progress {
   public:
    /// Without columns it shows nothing.
    Study_Progress(std::ostream& terminal, int columns, std::uint64_t all, std::uint64_t before)
        : terminal_(terminal), columns_(columns), all_(all), before_(before) {}
    ~Study_Progress() { Clear(); }
    Study_Progress(const Study_Progress&) = delete;
    Study_Progress& operator=(const Study_Progress&) = delete;

    void Show(std::uint64_t done);
    void Clear();

   private:
    using Clock = std::chrono::steady_clock;
    std::ostream& terminal_;
    int columns_;
    std::uint64_t all_, before_;
    bool shown_ = false;
    Clock::time_point start_ = Clock::now(), next_ = start_;
};

}  // namespace verlink
