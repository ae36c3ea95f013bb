// How controls answer to the user's hand and to code.
#include "platform/controls.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>

#include "platform/screen.h"

namespace verlink::platform {

Control::Control(Screen& owner, std::string name, int index) : owner_(owner), name_(std::move(name)), index_(index) {
    if (!name_.empty()) owner.Adopt(*this);
}

std::string Control::ObjectName() const { return index_ == kNoIndex ? name_ : name_ + "_" + std::to_string(index_); }

void Control::SetFocus() { owner_.MoveFocus(this); }

Label::Label(Screen& owner, std::string name, std::string caption, int index)
    : Visual(owner, std::move(name), index), Caption(*this, std::move(caption)) {}

Frame::Frame(Screen& owner, std::string name, std::string caption, int index)
    : Visual(owner, std::move(name), index), Caption(*this, std::move(caption)) {}

TextBox::TextBox(Screen& owner, std::string name, std::string text, int index)
    : Visual(owner, std::move(name), index), Text(*this, std::move(text)) {}

void TextBox::Type(const std::string& text) {
    if (!hand_.typing) {
        hand_.before = Text;
        hand_.touched_before = hand_.touched;
    }
    hand_.typing = hand_.touched = true;
    const bool mends = Refused();
    hand_.refused.clear();
    hand_.note.clear();
    Text.Property::operator=(text);
    if (mends) Notify();
}

void TextBox::Leave() {
    if (!Reads || (!hand_.typing && !Refused())) return;
    const std::string typed = Shown();
    const Reading reading = Reads(typed);
    if (!reading.whole && typed != hand_.told) return Refuse(typed, reading);
    hand_.typing = false;
    hand_.touched = true;
    Forget();
    Text.Property::operator=(reading.text);
}

void TextBox::Refuse(const std::string& typed, const Reading& reading) {
    hand_.refused = hand_.told = typed;
    hand_.note = reading.why;
    if (!hand_.before.empty()) hand_.note += "\n" + hand_.before + " stays until the box is left again.";
    if (reading.text != typed) hand_.note += "\nLeaving it as it is then takes " + reading.text + ".";
    hand_.typing = false;
    hand_.touched = hand_.touched_before;
    Text.Property::operator=(hand_.before);
    Notify();
}

void TextBox::Return() {
    Leave();
    if (OnReturn) OnReturn();
}

void TextBox::Drop_Refused() {
    hand_.refused.clear();
    hand_.note.clear();
    hand_.told.clear();
}

void TextBox::Forget() {
    const bool shown = Refused();
    Drop_Refused();
    if (shown) Notify();
}

void TextBox::SelectAll() {
    SelectedAll = false;
    SelectedAll = true;
}

CommandButton::CommandButton(Screen& owner, std::string name, std::string caption, int index)
    : Visual(owner, std::move(name), index), Caption(*this, std::move(caption)) {}

void CommandButton::Click() {
    if (Enabled && Visible && OnClick) OnClick();
}

OptionButton::OptionButton(Screen& owner, std::string name, std::string caption, int index)
    : Visual(owner, std::move(name), index), Caption(*this, std::move(caption)), Value(*this, false) {
    Value.Event = [this] {
        if (!Value) return;
        for (Control* control : Owner().Controls()) {
            auto* other = dynamic_cast<OptionButton*>(control);
            if (other && other != this && other->Name() == Name()) other->Value = false;
        }
        if (OnClick) OnClick();
    };
}

void OptionButton::Click() {
    if (Enabled && Visible) Value = true;
}

CheckBox::CheckBox(Screen& owner, std::string name, std::string caption, int index)
    : Visual(owner, std::move(name), index), Caption(*this, std::move(caption)), Value(*this, false) {
    Value.Event = [this] {
        if (OnClick) OnClick();
    };
}

void CheckBox::Click() {
    if (Enabled && Visible) Value = !Value.Get();
}

ComboBox::ComboBox(Screen& owner, std::string name, std::string text, int index)
    : Visual(owner, std::move(name), index), Text(*this, std::move(text)) {
    Text.Event = [this] {
        if (choosing_) return;
        index_ = -1;
        if (OnChange) OnChange();
    };
}

void ComboBox::SelectAll() {
    SelectedAll = false;
    SelectedAll = true;
}

void ComboBox::AddItem(const std::string& item) {
    items_.push_back(item);
    Notify();
}

void ComboBox::Clear() {
    items_.clear();
    index_ = -1;
    Notify();
}

void ComboBox::Choose(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size())) Raise(kInvalidProperty);
    index_ = index;
    choosing_ = true;
    Text = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)];
    choosing_ = false;
    Notify();
    if (OnClick) OnClick();
}

ScrollBar::ScrollBar(Screen& owner, std::string name, int index) : Visual(owner, std::move(name), index) {}

void ScrollBar::SetMin(int min) {
    if (min == min_) return;
    min_ = min;
    Notify();
    PullIn();
}

void ScrollBar::SetMax(int max) {
    if (max == max_) return;
    max_ = max;
    Notify();
    PullIn();
}

void ScrollBar::PullIn() { SetValue(std::clamp(value_, std::min(min_, max_), std::max(min_, max_))); }

void ScrollBar::SetValue(int value) {
    if (value < std::min(min_, max_) || value > std::max(min_, max_)) Raise(kInvalidProperty);
    if (value == value_) return;
    value_ = value;
    Notify();
    if (OnChange) OnChange();
}

void ScrollBar::Drag(int value) {
    if (!dragging_) before_drag_ = value_;
    dragging_ = true;
    value = std::clamp(value, std::min(min_, max_), std::max(min_, max_));
    if (value == value_) return;
    value_ = value;
    Notify();
    if (OnScroll) OnScroll();
}

void ScrollBar::Drop() {
    if (!dragging_) return;
    dragging_ = false;
    if (value_ != before_drag_ && OnChange) OnChange();
}

PictureBox::PictureBox(Screen& owner, std::string name, int index) : Visual(owner, std::move(name), index) {}

void PictureBox::Print(const std::string& line) {
    std::vector<std::string> lines = Lines;
    lines.push_back(line);
    Lines = lines;
}

double PictureBox::Pixel() const {
    return std::fabs(picture_.Right() - picture_.Left()) / (Across * Through.Get().factor);
}

DocumentView::DocumentView(Screen& owner, std::string name, int index)
    : Visual(owner, std::move(name), index), Document(*this, "") {}

Timer::Timer(Screen& owner, std::string name, int index) : Control(owner, std::move(name), index) {}

void Timer::Tick() {
    if (Enabled && OnTimer) OnTimer();
}

Shortcut::Shortcut(Screen& owner, std::string name, std::string keys, int index)
    : Control(owner, std::move(name), index), Keys(*this, std::move(keys)) {}

void Shortcut::Press() {
    if (Enabled && OnPress) OnPress();
}

std::vector<std::string> Single_Keys(const std::string& keys) {
    std::istringstream text(keys);
    return {std::istream_iterator<std::string>(text), {}};
}

MenuEntry::MenuEntry(Screen& owner, std::string name, std::string caption, int index)
    : Control(owner, std::move(name), index), Caption(*this, std::move(caption)), parent_(nullptr) {}

MenuEntry::MenuEntry(MenuEntry& parent, std::string name, std::string caption, int index)
    : Control(parent.Owner(), std::move(name), index), Caption(*this, std::move(caption)), parent_(&parent) {
    parent.children_.push_back(this);
}

namespace {

/// A menu leaves the focus where it is. What is being typed is read all the same, though it does not count as left.
void Read_In_Hand(TextBox& box) {
    const auto forget_told = [&box] {
        TextBox::Hand hand = box.State();
        hand.told.clear();
        box.Put_Back(hand);
    };
    if (!box.State().typing) return;
    forget_told();
    box.Leave();
    if (box.Refused()) forget_told();
}

}  // namespace

void MenuEntry::Click() {
    for (const MenuEntry* entry = this; entry; entry = entry->parent_)
        if (!entry->Enabled || !entry->Visible) return;
    if (auto* box = dynamic_cast<TextBox*>(Owner().Focus())) Read_In_Hand(*box);
    if (OnClick) OnClick();
}

void MenuEntry::Open() {
    if (parent_) parent_->Open();
    if (OnOpen) OnOpen();
}

}  // namespace verlink::platform
