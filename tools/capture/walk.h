// The pieces of a walk through the program: stops at screens, and what a user does there.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/screen.h"

namespace verlink::capture {

using platform::Screen;

/// One stop of the walk: wait for a screen, do something on it, let it settle, save its picture under a name.
struct Stop {
    std::string screen;
    std::string picture;  ///< empty: none
    std::function<void(Screen&)> act;
    int settle_ms = 120;
    bool plays = false;        ///< the walk waits until the deed has ended
    std::string message = {};  ///< the name for the picture of a message that comes up here
    std::string words = {};    ///< what the tutorial says here
};

/// Told where the user's hand is, before it does anything; a film is made of this.
inline std::function<void(Screen&, platform::Control&)> On_Hand;

template <class Control>
Control& Hand_On(Screen& screen, Control& control) {
    if (On_Hand) On_Hand(screen, control);
    return control;
}

inline void Press(Screen& screen, const char* button) {
    auto& control = Hand_On(screen, screen.Get<platform::CommandButton>(button));
    control.SetFocus();
    control.Click();
}

inline void Fill(Screen& screen, const char* box, int index, const char* text) {
    auto& control = Hand_On(screen, screen.Text(box, index));
    control.SetFocus();
    control.Text = text;
}

inline void Tick(Screen& screen, const char* box, bool on) {
    Hand_On(screen, screen.Get<platform::CheckBox>(box)).Value = on;
}

/// Press button 1 with shift and move over the drawing, at a place given in parts of its width and height.
inline void Drag(Screen& screen, double across, double down) {
    auto& box = screen.Get<platform::PictureBox>("Picture1");
    const auto& picture = box.Drawing();
    box.OnMouseMove(1, 1, picture.Left() + across * (picture.Right() - picture.Left()),
                    picture.Top() + down * (picture.Bottom() - picture.Top()));
}

inline void Choose(Screen& screen, const char* box, int entry) {
    Hand_On(screen, screen.Get<platform::ComboBox>(box)).Choose(entry);
}
inline void Pick(Screen& screen, const char* options, int index) {
    Hand_On(screen, screen.Get<platform::OptionButton>(options, index)).Value = true;
}

using Stops = std::vector<Stop>;

/// The road of the manual's worked example, and after it the other screens that the manual shows.
Stops Manual_Walk();

/// The worked example with the words of the tutorial.
Stops Tutorial_Walk();

}  // namespace verlink::capture
