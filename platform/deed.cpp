// Where deeds begin and end, and what they are called.
#include "platform/deed.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/controls.h"

namespace verlink::platform {

namespace {

Deed_Watch watch;
Deed* at_work = nullptr;

void Tell_Done(const std::string& what, bool goes_on) {
    if (watch.done) watch.done(what, goes_on);
}

/// Without the marks of mnemonics and directions, and the blanks around.
std::string Plain(const std::string& caption) {
    std::string plain;
    for (const char c : caption)
        if (c != '&' && c != '<' && c != '>') plain += c;
    const auto from = plain.find_first_not_of(' ');
    if (from == std::string::npos) return {};
    return plain.substr(from, plain.find_last_not_of(' ') - from + 1);
}

/// "Length of link 2, the crank, from O2 to A" is called "length of link 2".
std::string Beginning(const std::string& tip) {
    std::string words = Plain(tip.substr(0, tip.find_first_of(",:;(")));
    // A name with a capital within or a letter alone keeps its own.
    if (words.size() > 1 && std::islower(static_cast<unsigned char>(words[1])) != 0)
        words[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(words[0])));
    return words;
}

}  // namespace

void Watch_Deeds(Deed_Watch whoever) { watch = std::move(whoever); }

std::string Deed_Name(const Control& control) {
    std::string name;
    if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) name = Plain(entry->Caption.Get());
    if (const auto* button = dynamic_cast<const CommandButton*>(&control)) name = Plain(button->Caption.Get());
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) name = Plain(option->Caption.Get());
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) name = Plain(box->Caption.Get());
    if (dynamic_cast<const PictureBox*>(&control)) return "drag";
    if (const auto* visual = dynamic_cast<const Visual*>(&control); visual && name.empty())
        name = Beginning(visual->Tip.Get());
    return name.empty() ? "change" : name;
}

Deed::Deed(std::string what, Kind kind) : what_(std::move(what)), kind_(kind), around_(std::exchange(at_work, this)) {}

Deed::Deed(const Control& control, Kind kind) : Deed(Deed_Name(control), kind) {
    if (kind == Kind::kTyped && watch.to_be_typed) watch.to_be_typed(control);
}

Deed::~Deed() {
    at_work = around_;
    if (around_) return;
    switch (kind_) {
        case Kind::kTyped:
            if (watch.typed) watch.typed();
            break;
        case Kind::kTimed: By_Itself(); break;
        case Kind::kWhole:
        case Kind::kDrag: Tell_Done(what_, kind_ == Kind::kDrag); break;
    }
}

void Deed::Drag_Ended() { Tell_Done({}, false); }

void Deed::So_Far() {
    Deed* outermost = at_work;
    while (outermost && outermost->around_) outermost = outermost->around_;
    Tell_Done(outermost ? outermost->what_ : std::string(), false);
}

void Deed::By_Itself() {
    if (watch.by_itself) watch.by_itself();
}

Deed::Waiting::Waiting() : at_work_(std::exchange(at_work, nullptr)) {}

Deed::Waiting::~Waiting() { at_work = at_work_; }

void Leave_Box(Control& box, const std::function<void()>& left) {
    const auto* text = dynamic_cast<const TextBox*>(&box);
    if (!text || !text->Touched()) return left();
    Deed::So_Far();
    left();
    Tell_Done(Deed_Name(box), false);
}

}  // namespace verlink::platform
