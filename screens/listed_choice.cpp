// How a typed text finds its entry.
#include "screens/listed_choice.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/desktop_services.h"
#include "platform/screen.h"

namespace verlink {

using platform::ComboBox;

namespace {

/// Without the blanks around it, in small letters.
std::string Without_Blanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    std::string plain = text.substr(first, text.find_last_not_of(' ') - first + 1);
    std::transform(plain.begin(), plain.end(), plain.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return plain;
}

void Add_Before(std::function<void()>& handler, const std::function<void()>& first) {
    handler = [first, then = std::move(handler)] {
        first();
        if (then) then();
    };
}

}  // namespace

Listed_Choice::Listed_Choice(ComboBox& box, std::string what, std::vector<const platform::Control*> ways_out)
    : box_(box), what_(std::move(what)), ways_out_(std::move(ways_out)) {
    Add_Before(box_.OnChange, [this] { touched_ = touched_ || box_.Owner().Focus() == &box_; });
    const auto stands = [this] {
        before_ = box_.Text;
        touched_ = false;
    };
    Add_Before(box_.OnGotFocus, stands);
    Add_Before(box_.OnClick, stands);
    box_.OnLostFocus = [this] { Settle(); };
}

int Listed_Choice::Entry() const {
    const auto& items = box_.Items();
    const std::string& text = box_.Text;
    auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end())
        found = std::find_if(items.begin(), items.end(), [wanted = Without_Blanks(text)](const std::string& item) {
            return Without_Blanks(item) == wanted;
        });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

bool Listed_Choice::On_Way_Out() const {
    return std::find(ways_out_.begin(), ways_out_.end(), box_.Owner().Focus()) != ways_out_.end();
}

void Listed_Choice::Put_Back() {
    box_.Text = before_;
    touched_ = false;
}

bool Listed_Choice::Resolve() {
    const std::string typed = box_.Text;
    if (Without_Blanks(typed).empty()) return true;
    const int entry = Entry();
    if (entry >= 0) {
        box_.Text = box_.Items()[static_cast<std::size_t>(entry)];
        return true;
    }
    Put_Back();
    platform::Tell("\"" + typed + "\" is not one of the " + what_ + ". Please choose from the list.",
                   platform::Icon::kExclamation);
    return false;
}

bool Listed_Choice::Settle() {
    if (!touched_) return true;
    if (On_Way_Out() || Without_Blanks(box_.Text).empty()) {
        Put_Back();
        return true;
    }
    if (!Resolve()) {
        box_.SetFocus();
        box_.SelectAll();
        return false;
    }
    if (box_.Text.Get() == before_) {
        touched_ = false;
        return true;
    }
    box_.Choose(Entry());
    return false;
}

void Listed_Choice::Forget() {
    before_ = box_.Text;
    touched_ = false;
}

}  // namespace verlink
