// Shortening by taking away ever smaller parts, then single actions.
#include "tests/walk/shorten.h"

#include <algorithm>
#include <cctype>

#include "tests/walk/users.h"

namespace verlink::walk {

namespace {

std::vector<Action> Without(const std::vector<Action>& actions, std::size_t from, std::size_t count) {
    std::vector<Action> rest(actions.begin(), actions.begin() + static_cast<std::ptrdiff_t>(from));
    rest.insert(rest.end(), actions.begin() + static_cast<std::ptrdiff_t>(std::min(from + count, actions.size())),
                actions.end());
    return rest;
}

std::string Test_Name(const Finding& finding) {
    std::string name;
    for (const char letter : finding.rule + "_" + finding.kind)
        name += std::isalnum(static_cast<unsigned char>(letter)) != 0 ? letter : '_';
    return name.substr(0, 70);
}

}  // namespace

bool Same_Kind(const Finding& a, const Finding& b) { return a.rule == b.rule && a.kind == b.kind; }

Found Repeat(const std::vector<Action>& actions, const Trial& trial) {
    Counts counts;
    Repeating_User user(actions);
    Walker walker(user, trial.places, counts);
    walker.Leave_Out(trial.without);
    trial.stage(walker, trial.places);
    return walker.Outcome();
}

std::vector<Action> Fewest(std::vector<Action> actions, const std::function<bool(const std::vector<Action>&)>& holds,
                           int tries) {
    const auto still = [&](const std::vector<Action>& fewer) { return tries-- > 0 && holds(fewer); };
    for (std::size_t part = std::max<std::size_t>(actions.size() / 2, 1); tries > 0;) {
        bool shorter = false;
        for (std::size_t from = 0; from < actions.size() && tries > 0;) {
            const std::vector<Action> fewer = Without(actions, from, part);
            if (still(fewer)) {
                actions = fewer;
                shorter = true;
            } else {
                from += part;
            }
        }
        if (part > 1)
            part = std::max<std::size_t>(part / 2, 1);
        else if (!shorter)
            break;
    }
    for (Action& action : actions)
        for (std::size_t i = action.replies.size(); i-- > 0;) {
            const std::vector<Reply> replies = action.replies;
            action.replies.erase(action.replies.begin() + static_cast<std::ptrdiff_t>(i));
            if (!still(actions)) action.replies = replies;
        }
    return actions;
}

std::vector<Action> Shorten(const std::vector<Action>& actions, const Finding& finding, const Trial& trial) {
    return Fewest(actions, [&](const std::vector<Action>& fewer) {
        const Found found = Repeat(fewer, trial);
        return found && Same_Kind(*found, finding);
    });
}

std::string Test_Of(const std::vector<Action>& actions, const Finding& finding) {
    std::string test =
        "TEST(WalkFound, " + Test_Name(finding) + ") {\n    // " + finding.told + "\n    Expect_Sound({\n";
    for (const Action& action : actions) test += "        " + Line_Of(action) + ",\n";
    return test + "    });\n}\n";
}

}  // namespace verlink::walk
