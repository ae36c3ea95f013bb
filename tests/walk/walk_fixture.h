// What the tests of walks share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "tests/walk/shorten.h"
#include "tests/walk/users.h"
#include "tests/walk/walk_desktop.h"

namespace verlink::walk {

/// A sequence after which nothing may be found; what the walk prints is pasted as one.
inline void Expect_Sound(const std::vector<Action>& actions) {
    const Places places;
    const Stage stage = Walk_Once;
    if (const Found found = Repeat(actions, {stage, places})) ADD_FAILURE() << found->rule << ": " << found->told;
}

/// Does what is said, then something happens behind the program's back, then one more thing is done.
class Planting_User : public Repeating_User {
   public:
    Planting_User(std::vector<Action> before, std::function<void(platform::Screen&)> plant, Action after)
        : Repeating_User(std::move(before)), plant_(std::move(plant)), after_(std::move(after)) {}
    std::optional<Action> Next(platform::Screen& top, bool looking) override {
        if (auto action = Repeating_User::Next(top, looking)) return action;
        if (planted_) return {};
        planted_ = true;
        plant_(top);
        return after_;
    }

   private:
    std::function<void(platform::Screen&)> plant_;
    Action after_;
    bool planted_ = false;
};

}  // namespace verlink::walk
