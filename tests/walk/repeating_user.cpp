// The user who does what was done before.
#include <algorithm>

#include "tests/walk/hand.h"
#include "tests/walk/users.h"

namespace verlink::walk {

using namespace platform;

namespace {

/// The reply of that kind that comes after those given.
const Reply* Next_Reply(const Action& action, const std::vector<Reply>& given, Reply::To to) {
    auto before = std::ranges::count_if(given, [&](const Reply& reply) { return reply.to == to; });
    for (const Reply& reply : action.replies)
        if (reply.to == to && before-- == 0) return &reply;
    return nullptr;
}

bool Offers(Buttons buttons, Answer answer) {
    switch (buttons) {
        case Buttons::kOk: return answer == Answer::kOk;
        case Buttons::kOkCancel: return answer == Answer::kOk || answer == Answer::kCancel;
        case Buttons::kYesNo: return answer == Answer::kYes || answer == Answer::kNo;
        case Buttons::kRetryCancel: return answer == Answer::kRetry || answer == Answer::kCancel;
        case Buttons::kAbortRetryIgnore:
            return answer == Answer::kAbort || answer == Answer::kRetry || answer == Answer::kIgnore;
    }
    return false;
}

}  // namespace

bool Repeating_User::Begins_At_The_Title() const {
    return !actions_.empty() && (actions_.front().screen == "frm_Title" || actions_.front().screen == "frm_User");
}

std::optional<Action> Repeating_User::Next(Screen& top, bool looking) {
    while (next_ < actions_.size()) {
        const Action& action = actions_[next_++];
        if (Possible(top, action) && (!looking || action.looks)) return action;
    }
    return {};
}

Reply Repeating_User::To_Message(const Message& message, const Action& action, const std::vector<Reply>& given) {
    const Reply* reply = Next_Reply(action, given, Reply::To::kMessage);
    if (reply && Offers(message.buttons, reply->answer)) return *reply;
    return {Reply::To::kMessage, Harmless(message.buttons)};
}

Reply Repeating_User::To_File(const FileDialog&, bool save, const Action& action, const std::vector<Reply>& given) {
    const Reply::To to = save ? Reply::To::kSave : Reply::To::kOpen;
    const Reply* reply = Next_Reply(action, given, to);
    return reply ? *reply : Reply{.to = to};
}

Reply Repeating_User::To_Printer(const Action& action, const std::vector<Reply>& given) {
    const Reply* reply = Next_Reply(action, given, Reply::To::kPrinter);
    return reply ? *reply : Reply{.to = Reply::To::kPrinter};
}

}  // namespace verlink::walk
