// Lines of three numbers.
#include "screens/place_text.h"

#include <algorithm>
#include <sstream>

#include "core/text.h"

namespace verlink {

namespace {

bool Is_Number(const std::string& word) { return Leading_Number(word).size() == word.size(); }

std::vector<std::string> Words(std::string line) {
    std::ranges::replace_if(
        line, [](char c) { return c == ';' || c == ','; }, ' ');
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

}  // namespace

std::optional<std::vector<design::Place>> Places_Of(const std::string& text) {
    std::vector<design::Place> places;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> words = Words(line);
        if (std::ranges::none_of(words, Is_Number)) continue;
        if (words.size() != 3 || !std::ranges::all_of(words, Is_Number)) return {};
        places.push_back({{Val(words[0]), Val(words[1])}, Val(words[2])});
    }
    if (places.size() < design::kFewestPositions || places.size() > design::kMostPositions) return {};
    return places;
}

}  // namespace verlink
