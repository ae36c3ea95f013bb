// How verlink-batch comes to set pages, for which it needs more than a run does.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace verlink {

/// Comes first in the process, which has these words behind its name and its program in this folder. verlink-batch
/// itself sets no pages and no letters: where the words ask for a report, or for a graph as a picture, the program
/// beside it that can takes its place, with the same arguments. That one gets ready to set them. Where it is not
/// installed, nothing happens here.
void Get_Ready_For_Paper(const std::vector<std::string>& words, char** arguments, const std::filesystem::path& here);

}  // namespace verlink
