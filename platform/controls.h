// The controls of a screen as plain values that can be watched, free of any toolkit.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/glass.h"
#include "platform/label_places.h"
#include "platform/picture.h"
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

/// A text in the picture of a screen: a caption, a unit, a read-out, a legend.
class Label : public Visual {
   public:
    Label(Screen& owner, std::string name, std::string caption = "", int index = kNoIndex);
    Property<std::string> Caption;
    Property<Color> ForeColor{*this, kStyleColor};  ///< of the text
    /// Where it belongs on the picture that it lies upon, if it lies on one.
    Property<std::optional<Anchor>> At{*this, std::nullopt};
};

/// A group with a title.
class Frame : public Visual {
   public:
    Frame(Screen& owner, std::string name, std::string caption = "", int index = kNoIndex);
    Property<std::string> Caption;
};

/// What a box takes a typed text for.
struct Reading {
    std::string text;   ///< what it shows for what could be read
    bool whole = true;  ///< false: only the beginning could be read, or nothing
    std::string why;    ///< a sentence that says so
};

/// One line of text. `OnReturn` is raised by the Return key. What a hand types marks the box as touched, until somebody
/// takes the text over or code stores another.
class TextBox : public Visual {
   public:
    TextBox(Screen& owner, std::string name, std::string text = "", int index = kNoIndex);

    /// A text that code may store; that takes the mark of the hand away, also where the text is the same.
    class Content : public Property<std::string> {
       public:
        Content(TextBox& box, std::string initial) : Property(box, std::move(initial)), box_(box) {}
        Content(const Content&) = delete;
        Content& operator=(const std::string& text) {
            box_.Settle();
            if (text != Get()) box_.Drop_Refused();
            Property::operator=(text);
            return *this;
        }
        Content& operator=(const Content& other) { return *this = other.Get(); }

       private:
        TextBox& box_;
    };

    Content Text;                         ///< its Event is the Change event
    Property<bool> Locked{*this, false};  ///< the program alone writes into it; the text can be selected
    /// What the user's hand does: replaces the text and marks the box, before the Change event is raised.
    void Type(const std::string& text);
    bool Touched() const { return hand_.touched; }
    /// The text counts as taken over.
    void Settle() { hand_.touched = hand_.typing = false; }
    std::function<void()> OnReturn;

    /// How a number box reads what a hand has typed; null where any text will do.
    std::function<Reading(const std::string& typed)> Reads;
    /// The hand leaves the box: what was typed is read, and `Text` is what was read. A text of which only the
    /// beginning could be read is refused once: it stays to be seen, while `Text` is what it was before the hand came;
    /// when the box is left again with the same text, the beginning is taken. Comes before the LostFocus event.
    void Leave();
    /// The Return key: the box is read as when it is left.
    void Return();
    /// What stands in the box: the refused text, or `Text`.
    const std::string& Shown() const { return Refused() ? hand_.refused : Text.Get(); }
    bool Refused() const { return !hand_.refused.empty(); }
    /// Why it was refused, and what is in force.
    const std::string& Note() const { return hand_.note; }
    /// Drops a refused text.
    void Forget();

    /// What a box knows of the hand, apart from `Text`.
    struct Hand {
        bool touched = false;
        bool typing = false;          ///< since the box was last left
        bool touched_before = false;  ///< as it was when the typing began
        std::string before;           ///< `Text` then
        std::string refused, note;
        std::string told;  ///< the text that was refused last, also while it is being mended
    };
    const Hand& State() const { return hand_; }
    void Put_Back(const Hand& hand) {
        hand_ = hand;
        Notify();
    }
    /// Selects the whole text; the desktop marks it, a test reads `SelectedAll`.
    void SelectAll();
    Property<bool> SelectedAll{*this, false};

   private:
    void Drop_Refused();
    void Refuse(const std::string& typed, const Reading& reading);

    Hand hand_;
};

/// A push button; an ampersand in the caption stands before the mnemonic.
class CommandButton : public Visual {
   public:
    CommandButton(Screen& owner, std::string name, std::string caption = "", int index = kNoIndex);
    Property<std::string> Caption;
    /// Keys that click it wherever the focus is, as `Shortcut` has them.
    Property<std::string> Keys{*this, ""};
    std::function<void()> OnClick;
    /// The click event, if the button is enabled and visible.
    void Click();
};

/// One of a group, of which one is on. The options of one array are a group; setting `Value` true, from code or
/// by hand, puts the others off and raises `OnClick` once.
class OptionButton : public Visual {
   public:
    OptionButton(Screen& owner, std::string name, std::string caption = "", int index = kNoIndex);
    Property<std::string> Caption;
    Property<bool> Value;
    std::function<void()> OnClick;
    /// What the user's hand does, if the option is enabled and visible.
    void Click();
};

/// A box to tick. A change of `Value`, from code or by hand, raises `OnClick`.
class CheckBox : public Visual {
   public:
    CheckBox(Screen& owner, std::string name, std::string caption = "", int index = kNoIndex);
    Property<std::string> Caption;
    Property<bool> Value;
    std::function<void()> OnClick;
    /// What the user's hand does, if the box is enabled and visible.
    void Click();
};

/// A list with a box. A text typed raises `OnChange`; choosing an item, from code or by hand, sets the text and
/// raises `OnClick`, once for each choice.
class ComboBox : public Visual {
   public:
    ComboBox(Screen& owner, std::string name, std::string text = "", int index = kNoIndex);
    Property<std::string> Text;
    std::function<void()> OnChange;
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;
    /// Selects the whole text; the desktop marks it, a test reads `SelectedAll`.
    void SelectAll();
    Property<bool> SelectedAll{*this, false};
    void AddItem(const std::string& item);
    void Clear();
    const std::vector<std::string>& Items() const { return items_; }
    /// -1 when the text was typed.
    int ListIndex() const { return index_; }
    void Choose(int index);

   private:
    std::vector<std::string> items_;
    int index_ = -1;
    bool choosing_ = false;
};

/// A bar with a thumb. `OnChange` follows every change of `Value`; `OnScroll` only the dragging of the thumb.
/// A value outside the limits is failure 380; limits that leave the value outside pull it in.
class ScrollBar : public Visual {
   public:
    ScrollBar(Screen& owner, std::string name, int index = kNoIndex);
    int Min() const { return min_; }
    int Max() const { return max_; }
    int Value() const { return value_; }
    void SetMin(int min);
    void SetMax(int max);
    void SetValue(int value);
    /// The thumb under the user's hand: the value follows, with `OnScroll`; `Drop` ends it, with `OnChange` when
    /// the value is another than before.
    void Drag(int value);
    void Drop();
    int SmallChange = 1;
    int LargeChange = 10;
    /// With the focus the arrow keys are its own, also where they are those of a `Shortcut`.
    bool KeepsArrows = true;
    std::function<void()> OnChange;
    std::function<void()> OnScroll;

   private:
    void PullIn();
    int min_ = 0, max_ = 32767, value_ = 0;
    int before_drag_ = 0;
    bool dragging_ = false;
};

/// Where the hand is on a picture.
struct Touch {
    double x = 0, y = 0;  ///< world, as the `Surface` has it
    int keys = 0;         ///< that are held: 1 shift, 2 control, 4 alt
    double pixel = 0;     ///< how much of the world one logical pixel is, as magnified
};

/// A key on a picture: its name as `Shortcut` has it, but for the keys that are held with it.
struct Picture_Key {
    std::string key;
    int keys = 0;
    double pixel = 0;
};

/// A ring upon a picture around what a hand can take or has taken; of one size on the screen.
struct Light {
    double x = 0, y = 0;  ///< world
    bool held = false;
    bool operator==(const Light&) const = default;
};

/// What the mouse's pointer looks like.
enum class Grip { kArrow, kOpenHand, kClosedHand };

/// A square drawing surface on a screen. The program draws on `Canvas()`; the desktop paints `Drawing()`, and over it
/// the text lines from the top left corner down, in a font of one width. On paper and in files it stands whole and
/// without a light, however it is looked at.
class PictureBox : public Visual {
   public:
    PictureBox(Screen& owner, std::string name, int index = kNoIndex);
    Property<std::vector<std::string>> Lines{*this, {}};
    /// A line of text below those that are there.
    void Print(const std::string& line);
    Surface& Canvas() { return log_ ? *log_ : static_cast<Surface&>(picture_); }
    Picture& Drawing() { return picture_; }
    const Picture& Drawing() const { return picture_; }
    /// Sends the calls elsewhere (a test's log); null brings them back.
    void Redirect(Surface* log) { log_ = log; }
    /// A move of the mouse: buttons (1 left, 2 right, 4 middle), keys (1 shift, 2 control, 4 alt), world position.
    std::function<void(int button, int shift, double x, double y)> OnMouseMove;
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;

    // A hand that takes what is drawn. None of these is raised while a run plays.
    /// The pointer has come here with no button down.
    std::function<void(const Touch&)> OnHover;
    /// The pointer has gone from the picture.
    std::function<void()> OnLeave;
    /// The left button goes down. True: something is taken, and each move until the release is an `OnDrag`.
    std::function<bool(const Touch&)> OnSeize;
    std::function<void(const Touch&)> OnDrag;
    /// The left button is let go after something was taken, or the hand was interrupted.
    std::function<void()> OnRelease;
    Property<Grip> Pointer{*this, Grip::kArrow};
    Property<std::optional<Light>> Lit{*this, std::nullopt};
    /// Keys that it takes while it has the focus, as `Shortcut` has them.
    Property<std::string> Keys{*this, ""};
    std::function<void(const Picture_Key&)> OnKey;

    // How closely it is looked at.
    /// The wheel, the middle button and a drag on what cannot be taken zoom and move the picture under its glass.
    bool Magnifies = false;
    Property<Glass> Through{*this, {}};
    /// Told by the desktop: logical pixels across.
    double Across = 480;
    /// How much of the world one logical pixel is, as magnified: for what keeps its size on the screen.
    double Pixel() const;
    /// `Pixel` has become another, by the glass or the window.
    std::function<void()> OnPixel;

   private:
    Picture picture_;
    Surface* log_ = nullptr;
};

/// A reader of documents. The program says what is to be shown; the desktop tells what there is, and when it has
/// changed raises `OnChange`.
class DocumentView : public Visual {
   public:
    DocumentView(Screen& owner, std::string name, int index = kNoIndex);

    /// The path of the document below the folder that holds the program's help; empty for none. With "#name" behind
    /// it, it opens at that heading, and the name falls off once it has.
    Property<std::string> Document;
    Property<int> Page{*this, 1};     ///< the page in view, from 1; the user's scrolling changes it
    Property<double> Zoom{*this, 0};  ///< 1 is the size of the paper, 0 fits the width
    Property<std::string> Sought{*this, ""};
    Property<int> Find{*this, 0};  ///< which of the places found is the present one, from 1; 0 for none

    struct Heading {
        int level;  ///< 1 is the document's title
        std::string title;
        std::string name;  ///< as links know it
    };
    /// The documents in which words are sought, beside the one that is shown; to be filled before `Sought`.
    std::vector<std::string> Library;
    struct Place {
        std::string document;
        std::string title;
        int finds;
    };
    // Told by the desktop.
    std::vector<Place> Everywhere;  ///< the documents of `Library` in which the words sought stand, in its order
    int Pages = 0;                  ///< 0 while no document is shown
    int Finds = 0;                  ///< in how many places the words sought stand
    double Scale = 1;               ///< the zoom in force, where 0 was asked for too
    std::vector<Heading> Headings;

    std::function<void()> OnChange;
    /// A link to another place, in this document or another, was clicked: a path as in `Document`.
    std::function<void(const std::string& target)> OnLink;
};

/// A pulse. While `Enabled` it raises `OnTimer` every `Interval` milliseconds.
class Timer : public Control {
   public:
    Timer(Screen& owner, std::string name, int index = kNoIndex);
    Property<bool> Enabled{*this, false};
    Property<int> Interval{*this, 0};
    std::function<void()> OnTimer;
    /// One pulse, if the timer is enabled.
    void Tick();
};

/// Keys that do something by themselves, on a screen that has no button and no entry for it. They are written as
/// "Ctrl+S", "F1", "Space", "Left"; several stand with blanks between them. While a key is held down it is pressed
/// again and again. A key that writes or moves the cursor in a box with the focus, or chooses there, does only that.
class Shortcut : public Control {
   public:
    Shortcut(Screen& owner, std::string name, std::string keys, int index = kNoIndex);
    Property<std::string> Keys;
    Property<bool> Enabled{*this, true};
    std::function<void()> OnPress;
    /// The keys are pressed, if they are enabled.
    void Press();
};

/// The single keys of a text of several.
std::vector<std::string> Single_Keys(const std::string& keys);

/// An entry of a menu; entries with children open a menu of their own. An empty caption is a separator.
class MenuEntry : public Control {
   public:
    /// An entry of the menu bar.
    MenuEntry(Screen& owner, std::string name, std::string caption, int index = kNoIndex);
    /// An entry below another.
    MenuEntry(MenuEntry& parent, std::string name, std::string caption, int index = kNoIndex);
    Property<std::string> Caption;
    Property<bool> Enabled{*this, true};
    Property<bool> Visible{*this, true};
    Property<bool> Checked{*this, false};
    /// Keys that click it without its menu, as `Shortcut` has them; the first stand beside it.
    Property<std::string> Keys{*this, ""};
    /// One line beside the entry that says more than its caption.
    Property<std::string> Tip{*this, ""};
    std::function<void()> OnClick;
    /// Raised before the entries below this one come into sight.
    std::function<void()> OnOpen;
    /// The click event, if the entry and those above it are enabled and visible.
    void Click();
    /// What the user's hand does to see the entries below: `OnOpen`, first of those above.
    void Open();
    MenuEntry* Parent() const { return parent_; }
    const std::vector<MenuEntry*>& Children() const { return children_; }

   private:
    MenuEntry* parent_;
    std::vector<MenuEntry*> children_;
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
