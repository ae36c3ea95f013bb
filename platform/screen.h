// Screens: named sets of controls with a focus, that are shown and hidden.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink::platform {

/// A screen of the program. A class `frm_*` derives from it, declares its controls as members, and gives its
/// handlers to their events in its constructor. Sizes and places are twips, a unit of the display: the desktop
/// tells how many of them the display has.
class Screen {
   public:
    explicit Screen(std::string name);
    virtual ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const std::string& Name() const { return name_; }

    /// In the order of their declaration.
    const std::vector<Control*>& Controls() const { return controls_; }

    /// The control of that name and index, or null.
    Control* Find(const std::string& name, int index = kNoIndex) const;
    /// The control of that name, index and kind, or null.
    template <class T>
    T* FindAs(const std::string& name, int index = kNoIndex) const {
        return dynamic_cast<T*>(Find(name, index));
    }
    /// The same; failure 9 when there is none.
    template <class T>
    T& Get(const std::string& name, int index = kNoIndex) const {
        if (T* control = FindAs<T>(name, index)) return *control;
        Raise(kSubscript);
    }
    TextBox& Text(const std::string& name, int index = kNoIndex) const { return Get<TextBox>(name, index); }

    /// Shows the screen and makes it the active one (`Form_Activate`), and returns when it is next hidden; the screen
    /// below then gets `Form_Return`.
    /// A screen may be shown again while an earlier showing has not returned yet; hiding ends every showing.
    /// Does nothing once the process is ending.
    void ShowModal();
    /// Shows the screen beside the others, or brings it to the front, and returns at once. The others go on as they
    /// are: it is never the active one, and stands there until it is hidden.
    void ShowBeside();
    /// Was it shown so the last time?
    bool Beside() const { return beside_; }
    /// While it stands beside: screens that come up do not cover it.
    bool KeepsInSight = false;

    /// Hides the screen, which ends its showings. The screen below becomes active when they have returned.
    void Hide();
    bool Visible() const { return visible_; }
    /// Counts the hidings; a showing ends when the count has moved on from where it began.
    int Hidings() const { return hidings_; }

    /// The control with the focus, or null.
    Control* Focus() const { return focus_; }
    /// Moves the focus: the control that had it gets its LostFocus event, the new one, if it has the focus still,
    /// its GotFocus event. Moving to where the focus is does nothing.
    void MoveFocus(Control* control);

    Property<std::string>& Caption() { return shape_.Caption; }
    Property<long>& Left() { return shape_.Left; }
    Property<long>& Top() { return shape_.Top; }
    Property<long>& Width() { return shape_.Width; }
    Property<long>& Height() { return shape_.Height; }
    /// Called by the desktop's side after a change of caption, place or size.
    std::function<void()>& ShapeWatcher() { return shape_.Watcher; }

    /// Raised when the screen is arrived at: shown, and not active already.
    virtual void Form_Activate() {}
    /// Raised when the screen becomes the active one again because those above it have gone. All is as it was left.
    virtual void Form_Return() {}
    /// Raised when the user closes the window; set `cancel` to keep it. By default the screen hides.
    virtual void Form_QueryUnload(bool& cancel) { cancel = false; }
    /// Raised when such a close was not cancelled and the window has gone.
    virtual void Form_Unload() {}
    /// Raised by a click on the screen itself or on a label or picture of it.
    virtual void Form_Click() {}
    /// The button that Return presses where no other control takes the key, and the one for Escape; null for none.
    CommandButton* DefaultButton = nullptr;
    CommandButton* CancelButton = nullptr;
    /// The button that ends a run which plays on the screen, before it does its own work; null for none.
    CommandButton* StopButton = nullptr;

    /// Does what those keys do on this screen, as a button, an entry or a `Shortcut` has them; false where nothing has.
    bool Press_Keys(const std::string& keys);
    /// The keys that stop a run which plays, beside Escape.
    std::string StopKeys;

    /// Takes a file that was dropped on the window, by its path; null where none is taken.
    std::function<void(const std::string& path)> OnDrop;

    /// The user's attempt to close the window: `Form_QueryUnload`, then, unless cancelled, hiding and `Form_Unload`.
    void Close();

    /// Called with the control each time the focus has moved; for the desktop's side.
    std::function<void(Control*)> FocusWatcher;

    /// Hides what was shown after that screen, the last first; nothing when it is not shown itself.
    static void Hide_Above(const Screen& base);

    /// The screen that was made active last and is visible, or null.
    static Screen* Active();
    /// Called when a screen has become the active one, after its own event; for one that goes along with the user.
    static std::function<void(Screen&)>& ActiveWatcher();

   private:
    friend class Control;
    void Adopt(Control& control) { controls_.push_back(&control); }

    /// The properties of the window itself.
    struct Shape : Control {
        explicit Shape(Screen& screen);
        Property<std::string> Caption{*this, ""};
        Property<long> Left{*this, 0}, Top{*this, 0}, Width{*this, 11850}, Height{*this, 8950};
    };

    std::string name_;
    std::vector<Control*> controls_;
    bool visible_ = false;
    bool beside_ = false;
    int hidings_ = 0;
    Control* focus_ = nullptr;
    Shape shape_;
};

/// Screens by name, made on first use and kept for the life of the process.
class Screens {
   public:
    using Maker = std::function<std::unique_ptr<Screen>()>;
    /// Tells how a screen is made, and the words of its title; a second maker of the same name replaces the first, and
    /// a null one takes the name away.
    static void Register(const std::string& name, Maker maker, std::optional<std::string> title = {});
    /// The words, of all names that were registered with some.
    static const std::map<std::string, std::string>& Titles();
    static bool Knows(const std::string& name);
    /// The screen of that name, made if need be; null for a name that nobody registered.
    static Screen* Find(const std::string& name);
    /// The same; failure 9 for an unknown name.
    static Screen& Get(const std::string& name);
    /// The screens made so far.
    static std::vector<Screen*> Made();
    /// Destroys all screens made; the makers stay. For tests, and for the end of the process.
    static void Discard();
};

/// Does `action` to a control of a screen, both by name, if both exist: the way in which a lower room reaches a
/// caption, a button or a box.
template <class T, class Action>
void With(const std::string& screen, const std::string& control, int index, Action action) {
    if (Screen* found = Screens::Find(screen))
        if (T* wanted = found->FindAs<T>(control, index)) action(*wanted);
}
template <class T, class Action>
void With(Screen& screen, const std::string& control, int index, Action action) {
    if (T* wanted = screen.FindAs<T>(control, index)) action(*wanted);
}

/// Writes a label of a screen, if it has one of that name and index.
void Put_Caption(Screen& screen, const std::string& label, int index, const std::string& text);

}  // namespace verlink::platform
