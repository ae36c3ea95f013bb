// A walk that came upon something, made as short as it can be.
#pragma once

#include <vector>

#include "tests/walk/walker.h"

namespace verlink::walk {

/// Does the actions from a fresh start, those that are possible. The outcome is whatever was found first.
Found Repeat(const std::vector<Action>& actions, const Places& places, const std::set<std::string>& without = {});

/// The fewest actions, of these and in their order, that come upon the same kind of finding; gives up after so many
/// repetitions.
std::vector<Action> Shorten(std::vector<Action> actions, const Finding& finding, const Places& places,
                            const std::set<std::string>& without = {}, int repetitions = 600);

/// A test to paste.
std::string Test_Of(const std::vector<Action>& actions, const Finding& finding);

}  // namespace verlink::walk
