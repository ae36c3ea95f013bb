// The models that were opened or saved last.
#pragma once

#include <string>
#include <vector>

namespace verlink {

inline constexpr int kMostRecent = 10;

/// The model of that path is the latest. Kept from session to session.
void Note_Recent(const std::string& path);

/// The latest first; those that are gone by now are left out.
std::vector<std::string> Recent_Files();
/// Whether there is any, gone or not.
bool Any_Recent();

}  // namespace verlink
