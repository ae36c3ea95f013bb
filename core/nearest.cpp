// How words are compared.
#include "core/nearest.h"

#include <algorithm>

#include "core/text.h"

namespace verlink {

std::size_t Letters_Apart(const std::string& one, const std::string& other) {
    const std::size_t rows = one.size() + 1, columns = other.size() + 1;
    std::vector<std::size_t> apart(rows * columns);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& { return apart[i * columns + j]; };
    for (std::size_t i = 0; i < rows; ++i) {
        for (std::size_t j = 0; j < columns; ++j) {
            at(i, j) = std::max(i, j);
            if (i == 0 || j == 0) continue;
            const std::size_t exchanged = at(i - 1, j - 1) + (one[i - 1] == other[j - 1] ? 0 : 1);
            at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, exchanged});
            if (one[i - 1] == Char_At(other, j - 2) && Char_At(one, i - 2) == other[j - 1])
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
        }
    }
    return apart.back();
}

std::string Nearest(const std::string& word, const std::vector<std::string>& words) {
    const std::string letters = word.substr(std::min(word.find_first_not_of('-'), word.size()));
    if (letters.size() < 2) return {};
    std::vector<std::string> nearest;
    std::size_t least = std::max<std::size_t>(1, letters.size() / 3);
    for (const std::string& right : words) {
        const std::string name = right.substr(std::min(right.find_first_not_of('-'), right.size()));
        const bool part = name.starts_with(letters) || name.ends_with("-" + letters);
        const std::size_t apart = part ? 1 : Letters_Apart(letters, name);
        if (apart > least) continue;
        if (apart < least) nearest.clear();
        least = apart;
        nearest.push_back(right);
    }
    std::string list;
    for (std::size_t i = 0; i < nearest.size(); ++i)
        list += (i == 0 ? "" : i + 1 == nearest.size() ? " or " : ", ") + nearest[i];
    return list;
}

}  // namespace verlink
