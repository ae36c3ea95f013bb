// A walk that came upon something, made as short as it can be.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/walk/walker.h"

namespace verlink::walk {

/// Runs the program from its start with that walker as its user.
using Stage = std::function<void(Walker& walker, const Places& places)>;

/// What a repetition needs beside the actions.
struct Trial {
    const Stage& stage;
    const Places& places;
    std::set<std::string> without = {};  ///< rules that are left out
};

bool Same_Kind(const Finding& a, const Finding& b);

/// Does the actions from a fresh start, those that are possible. The outcome is whatever was found first.
Found Repeat(const std::vector<Action>& actions, const Trial& trial);

/// The fewest actions, of these and in their order, and the fewest replies, for which it still holds; gives up after
/// so many tries.
std::vector<Action> Fewest(std::vector<Action> actions, const std::function<bool(const std::vector<Action>&)>& holds,
                           int tries = 600);

/// The fewest that come upon the same kind of finding.
std::vector<Action> Shorten(const std::vector<Action>& actions, const Finding& finding, const Trial& trial);

/// A test to paste.
std::string Test_Of(const std::vector<Action>& actions, const Finding& finding);

}  // namespace verlink::walk
