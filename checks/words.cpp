// Numbers, verdicts and the sum of all in words.
#include "checks/words.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace verlink {

std::string Check_Number(double value) {
    std::array<char, 32> digits{};
    char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 3).ptr;
    std::transform(digits.data(), end, digits.data(), [](unsigned char c) { return std::toupper(c); });
    return {digits.data(), end};
}

std::string Words_Of(Verdict verdict) {
    switch (verdict) {
        case Verdict::kGood: return "good";
        case Verdict::kByDesign: return "by design";
        default: return "fails";
    }
}

std::string Summary_Of(const std::vector<Check>& checks) {
    if (checks.empty()) return "There are no results to check: calculate a linkage on the input screen first.";
    const auto count = [&checks](Verdict verdict) { return std::ranges::count(checks, verdict, &Check::verdict); };
    const auto fail = count(Verdict::kFails), design = count(Verdict::kByDesign);
    const std::string all = std::to_string(checks.size());
    if (fail > 0) return std::to_string(fail) + " of " + all + (fail == 1 ? " checks fails." : " checks fail.");
    if (design == 0) return "All " + all + " checks are good.";
    return "All " + all + " checks are good, " + std::to_string(design) +
           " of them as far as the program goes by design.";
}

}  // namespace verlink
