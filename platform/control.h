// What all controls of a screen have in common: plain values that can be watched, free of any toolkit.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/surface.h"

namespace verlink::platform {

class Screen;

/// The index of a control that is not part of an array.
inline constexpr int kNoIndex = -1;

/// The default colour of a control: whatever the desktop's style gives it.
inline constexpr Color kStyleColor = -1;

/// What every control has: an owner, a name, perhaps an index, and somebody who may watch it.
class Control {
   public:
    Control(Screen& owner, std::string name, int index);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Screen& Owner() const { return owner_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    /// "txt_Linkout_1" for an entry of an array, else the name.
    std::string ObjectName() const;

    /// Moves the screen's focus here, with the events of losing and getting it.
    void SetFocus();

    /// Set by the toolkit's side: called after any property of the control has changed.
    std::function<void()> Watcher;
    void Notify() const {
        if (Watcher) Watcher();
    }

   private:
    Screen& owner_;
    std::string name_;
    int index_;
};

/// A value of a control. Storing a different value tells the watcher and then raises the value's event; storing
/// the same value does nothing.
template <class T>
class Property {
   public:
    Property(Control& owner, T initial) : owner_(&owner), value_(std::move(initial)) {}
    Property(const Property&) = delete;

    // NOLINTNEXTLINE(google-explicit-constructor): a property reads as its value
    operator const T&() const { return value_; }
    const T& Get() const { return value_; }

    Property& operator=(const T& value) {
        if (value == value_) return *this;
        value_ = value;
        owner_->Notify();
        if (Event) Event();
        return *this;
    }
    Property& operator=(const Property& other) { return *this = other.value_; }

    std::function<void()> Event;

   private:
    Control* owner_;
    T value_;
};

template <class T, class U>
bool operator==(const Property<T>& a, const U& b) {
    return a.Get() == b;
}

/// A control that the user sees, with what all of them share.
class Visual : public Control {
   public:
    using Control::Control;
    Property<bool> Enabled{*this, true};
    Property<bool> Visible{*this, true};
    Property<Color> BackColor{*this, kStyleColor};
    /// One line that says what the control is for, with its unit, or why it is disabled.
    Property<std::string> Tip{*this, ""};
    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;
};

/// Controls of one name, told apart by an index; any set of indices.
template <class T>
class ControlArray {
   public:
    /// (index, caption or start text) each.
    template <class Owner>
    ControlArray(Owner& owner, const std::string& name, std::initializer_list<std::pair<int, const char*>> entries) {
        for (const auto& [index, text] : entries) {
            if constexpr (std::is_constructible_v<T, Owner&, std::string, std::string, int>)
                controls_.push_back(std::make_unique<T>(owner, name, std::string(text), index));
            else  // a kind that has no text of its own
                controls_.push_back(std::make_unique<T>(owner, name, index));
        }
    }

    /// The same text for each index; kinds without a text take none.
    template <class Owner>
    ControlArray(Owner& owner, const std::string& name, std::initializer_list<int> indices, const char* text = "") {
        for (const int index : indices) {
            if constexpr (std::is_constructible_v<T, Owner&, std::string, std::string, int>)
                controls_.push_back(std::make_unique<T>(owner, name, std::string(text), index));
            else
                controls_.push_back(std::make_unique<T>(owner, name, index));
        }
    }

    bool Has(int index) const {
        for (const auto& control : controls_)
            if (control->Index() == index) return true;
        return false;
    }
    /// Failure 9 when there is none of that index.
    T& operator[](int index) {
        for (auto& control : controls_)
            if (control->Index() == index) return *control;
        Raise(kSubscript);
    }
    auto begin() const { return controls_.begin(); }
    auto end() const { return controls_.end(); }

    /// Gives every entry the same handler, which takes the index.
    template <class Member, class Handler>
    void On(Member member, Handler handler) {
        for (auto& control : controls_) {
            int index = control->Index();
            (*control).*member = [handler, index] { handler(index); };
        }
    }
    template <class Handler>
    void OnTextChange(Handler handler) {
        for (auto& control : controls_) {
            int index = control->Index();
            control->Text.Event = [handler, index] { handler(index); };
        }
    }

   private:
    std::vector<std::unique_ptr<T>> controls_;
};

}  // namespace verlink::platform
