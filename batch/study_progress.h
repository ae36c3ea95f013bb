// How far a study is, in one line of a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "batch/progress.h"

namespace verlink {

/// The line, without its end, cut to a terminal of so many columns: a bar, how many are done of how many, how many a
/// second and what is left of the time; neither of these while nothing is done. What went before this call counts as
/// done, but not for the rate.
std::string Study_Line(std::uint64_t done, std::uint64_t all, std::uint64_t before, double seconds, int columns);

/// The line on a terminal, a few times a second.
class Study_Progress : public Terminal_Line {
   public:
    Study_Progress(std::ostream& terminal, int columns, std::uint64_t all, std::uint64_t before)
        : Terminal_Line(terminal, columns, std::chrono::milliseconds(200)), all_(all), before_(before) {}
    void Show(std::uint64_t done) {
        Terminal_Line::Show([&](int columns) {
            const std::chrono::duration<double> seconds = Clock::now() - start_;
            return Study_Line(done, all_, before_, seconds.count(), columns);
        });
    }

   private:
    using Clock = std::chrono::steady_clock;
    std::uint64_t all_, before_;
    Clock::time_point start_ = Clock::now();
};

}  // namespace verlink
