// The pieces of a walk through the program: stops at screens, and what a user does there.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/clip.h"
#include "platform/deed.h"
#include "platform/screen.h"

namespace verlink::capture {

using platform::Screen;

/// A numbered circle in a picture, at a place of a widget given in parts of its width and height.
struct Mark {
    std::string widget;
    double across = 0, down = 0.5;
};

/// A picture of a part of a window.
struct Cut {
    std::string picture;
    std::vector<std::string> part = {};  ///< the widgets that it is cut to; empty: the window
    std::vector<Mark> marks = {};        ///< numbered in their order, from 1
    double lower = 1;                    ///< how much of that part is in the picture, from its top
};

/// One stop of the walk: wait for a screen, do something on it, let it settle, save its picture under a name.
struct Stop {
    std::string screen;
    std::string picture;  ///< empty: none
    std::function<void(Screen&)> act;
    int settle_ms = 120;
    bool plays = false;                       ///< the walk waits until the deed has ended
    std::string message = {};                 ///< the name for the picture of a message that comes up here
    std::string words = {};                   ///< what the tutorial says here
    std::vector<std::string> part = {};       ///< the widgets that the picture is cut to; empty: the window
    double lower = 1;                         ///< how much of that part is in the picture, from its top
    std::vector<Mark> marks = {};             ///< numbered in their order, from 1
    std::string file = {};                    ///< typed where a dialog asks for a file; a path, or a name in its folder
    std::function<bool(Screen&)> until = {};  ///< true once the screen has ended what the deed began
    std::vector<Cut> more = {};               ///< further pictures of what is seen then
};

/// Told where the user's hand is, before it does anything; a film is made of this.
inline std::function<void(Screen&, platform::Control&)> On_Hand;

/// What a mouse does over the drawing of a screen.
enum class Mouse { kMove, kPress, kRelease };
/// Does it, at a place of the drawing's world.
inline std::function<void(Screen&, Mouse, platform::Point)> On_Mouse;
/// Told what the hand does and what the walk looks at, each as one line; the account of the walk has them.
inline std::function<void(const std::string&)> On_Account;

inline void Account(const std::string& deed, const std::string& words) {
    if (On_Account) On_Account(deed + " " + words);
}

/// A caption without the marks of its key and of its way.
inline std::string Plain(const std::string& caption) {
    std::string plain;
    for (const char sign : caption)
        if (sign != '&' && sign != '<' && sign != '>') plain += sign;
    const auto first = plain.find_first_not_of(' ');
    return first == std::string::npos ? "" : plain.substr(first, plain.find_last_not_of(' ') - first + 1);
}

/// One deed of the hand on a control, which is seen before it happens.
template <class Control>
void By_Hand(Screen& screen, Control& control, const std::function<void(Control&)>& deed) {
    if (On_Hand) On_Hand(screen, control);
    const platform::Deed whole(control);
    deed(control);
}

inline void Press(Screen& screen, const char* button) {
    By_Hand<platform::CommandButton>(screen, screen.Get<platform::CommandButton>(button), [](auto& control) {
        Account(control.Enabled ? "pressed" : "cannot press", Plain(control.Caption));
        control.SetFocus();
        control.Click();
    });
}

/// Typed as by a hand; what comes of it, the next control takes over as it gets the focus.
inline void Fill(Screen& screen, const char* box, int index, const char* text) {
    auto& control = screen.Text(box, index);
    if (On_Hand) On_Hand(screen, control);
    Account("typed", text);
    const platform::Deed typing(control, platform::Deed::Kind::kTyped);
    control.SetFocus();
    // Leaving the box before may have taken the focus on.
    if (screen.Focus() != &control) control.SetFocus();
    control.Type(text);
}

inline void Tick(Screen& screen, const char* box, bool on, int index = platform::kNoIndex) {
    By_Hand<platform::CheckBox>(screen, screen.Get<platform::CheckBox>(box, index), [on](auto& control) {
        if (control.Value != on) Account("pressed", Plain(control.Caption));
        control.Value = on;
    });
}

/// An entry of a menu.
inline void Choose_Entry(Screen& screen, const char* entry, int index = platform::kNoIndex) {
    auto& control = screen.Get<platform::MenuEntry>(entry, index);
    const platform::Deed whole(control);
    std::vector<std::string> way;
    for (const platform::MenuEntry* at = &control; at; at = at->Parent()) way.insert(way.begin(), Plain(at->Caption));
    for (const std::string& words : way) Account(control.Enabled ? "pressed" : "cannot press", words);
    control.Click();
}

/// Press button 1 with shift and move over the drawing, at a place given in parts of its width and height.
inline void Drag(Screen& screen, double across, double down) {
    auto& box = screen.Get<platform::PictureBox>("Picture1");
    const auto& picture = box.Drawing();
    box.OnMouseMove(1, 1, picture.Left() + across * (picture.Right() - picture.Left()),
                    picture.Top() + down * (picture.Bottom() - picture.Top()));
}

inline void Choose(Screen& screen, const char* box, int entry) {
    By_Hand<platform::ComboBox>(screen, screen.Get<platform::ComboBox>(box), [entry](auto& control) {
        Account("chose", Plain(control.Items().at(static_cast<std::size_t>(entry))));
        control.Choose(entry);
    });
}
inline void Pick(Screen& screen, const char* options, int index) {
    By_Hand<platform::OptionButton>(screen, screen.Get<platform::OptionButton>(options, index), [](auto& control) {
        Account("pressed", Plain(control.Caption));
        control.Value = true;
    });
}

using Stops = std::vector<Stop>;

/// The road of the manual's worked example, and after it the other screens that the manual shows.
Stops Road_Walk();

/// What chapters of their own show, and the short worked examples.
Stops Chapters_Walk();

/// The short worked examples, from the home screen back to it.
Stops Examples_Walk();

/// The worked example with the words of the tutorial.
Stops Tutorial_Walk();

}  // namespace verlink::capture
