// Rounded for the eye.
#include "study/pace.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace verlink::study {

std::string Short_Number(double number) {
    constexpr std::array kMarks{"", "k", "M", "G"};
    std::size_t mark = 0;
    while (number >= 999.5 && mark + 1 < kMarks.size()) {
        number /= 1000;
        ++mark;
    }
    char text[sizeof "1000000000000G"];
    std::snprintf(text, sizeof text, "%.*f%s", number < 9.95 && mark > 0 ? 1 : 0, number, kMarks[mark]);
    return text;
}

std::string Time_Words(double seconds) {
    const auto whole = static_cast<long long>(std::ceil(seconds));
    if (whole < 60) return std::to_string(whole) + " s";
    if (whole < 3600) return std::to_string(whole / 60) + " min " + std::to_string(whole % 60) + " s";
    if (whole < 86400) return std::to_string(whole / 3600) + " h " + std::to_string(whole % 3600 / 60) + " min";
    return std::to_string(whole / 86400) + " d " + std::to_string(whole % 86400 / 3600) + " h";
}

}  // namespace verlink::study
