// The kinds of controls that a screen is made of.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/label_places.h"
#include "platform/picture_box.h"

namespace verlink::platform {

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

}  // namespace verlink::platform
