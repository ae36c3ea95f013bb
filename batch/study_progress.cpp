// How the line of a study is made.
#include "batch/study_progress.h"

#include <algorithm>

#include "study/pace.h"

namespace verlink {

std::string Study_Line(std::uint64_t done, std::uint64_t all, std::uint64_t before, double seconds, int columns) {
    constexpr int kBar = 30;
    const double share = all == 0 ? 1 : static_cast<double>(done) / static_cast<double>(all);
    const auto full = static_cast<std::size_t>(kBar * share);
    std::string line = "[" + std::string(full, '#') + std::string(kBar - full, ' ') + "] ";
    std::string words = std::to_string(done) + "/" + std::to_string(all);
    if (done > before && seconds > 0) {
        const double rate = static_cast<double>(done - before) / seconds;
        words += "  " + study::Short_Number(rate) + "/s  " + study::Time_Words(static_cast<double>(all - done) / rate) +
                 " left";
    }
    const std::size_t room = static_cast<std::size_t>(std::max(columns, 1)) - 1;
    line += words;
    return line.size() <= room ? line : words.substr(0, room);
}

}  // namespace verlink
