// Which word somebody meant who wrote another.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace verlink {

/// How many letters have to be put in, left out, exchanged or swapped with their neighbour to make one word of the
/// other (optimal string alignment, after Damerau).
std::size_t Letters_Apart(const std::string& one, const std::string& other);

/// Those of `words` that are nearest to `word`: at most a third of its letters apart, or begun by it, or ended by it
/// behind a hyphen. As a list in words; empty when none is near, or the word is a single letter.
std::string Nearest(const std::string& word, const std::vector<std::string>& words);

}  // namespace verlink
