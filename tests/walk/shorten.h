// A walk that came upon something, made as short as it can be.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/walk/walker.h"

namespace verlink::walk {

/// Does the actions from a fresh start, those that are possible. The outcome is whatever was found first.
Found Repeat(const std::vector<Action>& actions, const Places& places, const std::set<std::string>& without = {});

/// The fewest actions, of these and in their order, and the fewest replies, for which it still holds; gives up after so
/// many tries.
std::vector<Action> Fewest(std::vector<Action> actions, const std::function<bool(const std::vector<Action>&)>& holds,
                           int tries = 600);

/// The fewest that come upon the same kind of finding.
std::vector<Action> Shorten(const std::vector<Action>& actions, const Finding& finding, const Places& places,
                            const std::set<std::string>& without = {});

/// A test to paste.
std::string Test_Of(const std::vector<Action>& actions, const Finding& finding);

}  // namespace verlink::walk
