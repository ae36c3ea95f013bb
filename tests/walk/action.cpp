// Actions as tests write them, and as they are printed for one.
#include "tests/walk/action.h"

#include <cstdio>
#include <utility>

namespace verlink::walk {

using platform::Answer;
using platform::kNoIndex;

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (letter == '"' || letter == '\\')
            quoted += std::string("\\") + letter;
        else if (code < 32 || code > 126) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\%03o", code);
            quoted += buffer;
        } else {
            quoted += letter;
        }
    }
    return quoted + "\"";
}

std::string Short(double number) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.4g", number);
    return buffer;
}

const char* Word(Answer answer) {
    switch (answer) {
        case Answer::kOk: return "Ok";
        case Answer::kCancel: return "Cancel";
        case Answer::kAbort: return "Abort";
        case Answer::kRetry: return "Retry";
        case Answer::kIgnore: return "Ignore";
        case Answer::kYes: return "Yes";
        case Answer::kNo: return "No";
    }
    return "Ok";
}

/// The function that makes such an action, and what stands behind the control.
std::string Call_Of(const Action& a) {
    const std::string on = "(" + Quoted(a.screen) + ", " + Quoted(a.control);
    const std::string index = a.index == kNoIndex ? "kNoIndex" : std::to_string(a.index);
    const std::string last = a.index == kNoIndex ? ")" : ", " + index + ")";
    switch (a.deed) {
        case Deed::kPress: return "Press" + on + last;
        case Deed::kType: return "Type" + on + ", " + index + ", " + Quoted(a.text) + ")";
        case Deed::kGo: return "Go" + on + last;
        case Deed::kReturn: return "Return(" + Quoted(a.screen) + ")";
        case Deed::kEscape: return "Escape(" + Quoted(a.screen) + ")";
        case Deed::kOption: return "Option" + on + ", " + index + ")";
        case Deed::kTick: return "Tick" + on + last;
        case Deed::kItem: return "Item" + on + ", " + index + ", " + std::to_string(a.value) + ")";
        case Deed::kWrite: return "Write" + on + ", " + index + ", " + Quoted(a.text) + ")";
        case Deed::kDoubleList: return "Double_List" + on + last;
        case Deed::kPick: return "Pick" + on + last;
        case Deed::kScroll: return "Scroll" + on + ", " + index + ", " + std::to_string(a.value) + ")";
        case Deed::kThumb: return "Thumb" + on + ", " + index + ", " + std::to_string(a.value) + ")";
        case Deed::kMouse:
            return "Mouse" + on + ", " + index + ", " + Short(a.x) + ", " + Short(a.y) + ", " +
                   std::to_string(a.buttons) + ", " + std::to_string(a.keys) + ")";
        case Deed::kSeek: return "Seek" + on + ", " + index + ", " + std::to_string(a.value) + ")";
        case Deed::kPicture: return "Click_Picture" + on + last;
        case Deed::kDoublePicture: return "Double_Picture" + on + last;
        case Deed::kHover: return "Hover" + on + ", " + Short(a.x) + ", " + Short(a.y) + ")";
        case Deed::kHaul:
            return "Haul" + on + ", " + Short(a.x) + ", " + Short(a.y) + ", " + Short(a.to_x) + ", " + Short(a.to_y) +
                   ", " + std::to_string(a.keys) + last;
        case Deed::kGlass:
            return "Turn_Wheel" + on + ", " + Short(a.x) + ", " + Short(a.y) + ", " + std::to_string(a.value) + last;
        case Deed::kOnPicture: return "On_Picture" + on + ", " + Quoted(a.text) + ")";
        case Deed::kScreen: return "Click(" + Quoted(a.screen) + ")";
        case Deed::kClose: return "Close(" + Quoted(a.screen) + ")";
        case Deed::kPulse: return "Pulse" + on + ")";
        case Deed::kKeys: return "Keys" + on + ")";
        case Deed::kDrop: return "Drop(" + Quoted(a.screen) + ", " + Quoted(a.text) + ")";
    }
    return "";
}

}  // namespace

Action Action::Says(Answer answer) && {
    replies.push_back({Reply::To::kMessage, answer});
    return std::move(*this);
}
Action Action::Opens(const std::string& path) && {
    replies.push_back({.to = Reply::To::kOpen, .path = path});
    return std::move(*this);
}
Action Action::Saves(const std::string& path) && {
    replies.push_back({.to = Reply::To::kSave, .path = path});
    return std::move(*this);
}
Action Action::Opens_Nothing() && {
    replies.push_back({.to = Reply::To::kOpen});
    return std::move(*this);
}
Action Action::Saves_Nothing() && {
    replies.push_back({.to = Reply::To::kSave});
    return std::move(*this);
}
Action Action::Prints(bool accepted) && {
    replies.push_back({.to = Reply::To::kPrinter, .accepted = accepted});
    return std::move(*this);
}
Action Action::Looks() && {
    looks = true;
    return std::move(*this);
}

Action Press(std::string screen, std::string button, int index) { return {Deed::kPress, screen, button, index}; }
Action Type(std::string screen, std::string box, int index, std::string text) {
    return {Deed::kType, screen, box, index, text};
}
Action Go(std::string screen, std::string control, int index) { return {Deed::kGo, screen, control, index}; }
Action Return(std::string screen) { return {Deed::kReturn, screen}; }
Action Escape(std::string screen) { return {Deed::kEscape, screen}; }
Action Option(std::string screen, std::string option, int index) { return {Deed::kOption, screen, option, index}; }
Action Tick(std::string screen, std::string box, int index) { return {Deed::kTick, screen, box, index}; }
Action Item(std::string screen, std::string list, int index, int item) {
    return {.deed = Deed::kItem, .screen = screen, .control = list, .index = index, .value = item};
}
Action Write(std::string screen, std::string list, int index, std::string text) {
    return {Deed::kWrite, screen, list, index, text};
}
Action Double_List(std::string screen, std::string list, int index) { return {Deed::kDoubleList, screen, list, index}; }
Action Pick(std::string screen, std::string entry, int index) { return {Deed::kPick, screen, entry, index}; }
Action Scroll(std::string screen, std::string bar, int index, int value) {
    return {.deed = Deed::kScroll, .screen = screen, .control = bar, .index = index, .value = value};
}
Action Thumb(std::string screen, std::string bar, int index, int value) {
    return {.deed = Deed::kThumb, .screen = screen, .control = bar, .index = index, .value = value};
}
Action Mouse(std::string screen, std::string picture, int index, double x, double y, int buttons, int keys) {
    return {.deed = Deed::kMouse,
            .screen = screen,
            .control = picture,
            .index = index,
            .x = x,
            .y = y,
            .buttons = buttons,
            .keys = keys};
}
Action Seek(std::string screen, std::string graph, int index, int point) {
    return {.deed = Deed::kSeek, .screen = screen, .control = graph, .index = index, .value = point};
}
Action Click_Picture(std::string screen, std::string picture, int index) {
    return {Deed::kPicture, screen, picture, index};
}
Action Double_Picture(std::string screen, std::string picture, int index) {
    return {Deed::kDoublePicture, screen, picture, index};
}
Action Hover(std::string screen, std::string picture, double x, double y) {
    return {.deed = Deed::kHover, .screen = screen, .control = picture, .x = x, .y = y};
}
Action Haul(std::string screen, std::string picture, double x, double y, double to_x, double to_y, int keys,
            int index) {
    return {.deed = Deed::kHaul,
            .screen = screen,
            .control = picture,
            .index = index,
            .x = x,
            .y = y,
            .keys = keys,
            .to_x = to_x,
            .to_y = to_y};
}
Action Turn_Wheel(std::string screen, std::string picture, double x, double y, int notches, int index) {
    return {
        .deed = Deed::kGlass, .screen = screen, .control = picture, .index = index, .value = notches, .x = x, .y = y};
}
Action On_Picture(std::string screen, std::string picture, std::string key) {
    return {.deed = Deed::kOnPicture, .screen = screen, .control = picture, .text = key};
}
Action Click(std::string screen) { return {Deed::kScreen, screen}; }
Action Close(std::string screen) { return {Deed::kClose, screen}; }
Action Pulse(std::string screen, std::string timer) { return {Deed::kPulse, screen, timer}; }

Action Keys(std::string screen, std::string shortcut) { return {Deed::kKeys, screen, shortcut}; }
Action Drop(std::string screen, std::string path) { return {.deed = Deed::kDrop, .screen = screen, .text = path}; }

std::string Words_Of(const Reply& reply) {
    switch (reply.to) {
        case Reply::To::kMessage: return std::string(".Says(Answer::k") + Word(reply.answer) + ")";
        case Reply::To::kOpen: return reply.path ? ".Opens(" + Quoted(*reply.path) + ")" : ".Opens_Nothing()";
        case Reply::To::kSave: return reply.path ? ".Saves(" + Quoted(*reply.path) + ")" : ".Saves_Nothing()";
        case Reply::To::kPrinter: return reply.accepted ? ".Prints(true)" : ".Prints(false)";
    }
    return "";
}

std::string Line_Of(const Action& action) {
    std::string line = Call_Of(action);
    for (const Reply& reply : action.replies) line += Words_Of(reply);
    if (action.looks) line += ".Looks()";
    return line;
}

}  // namespace verlink::walk
