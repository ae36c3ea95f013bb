// The hand on the joints of a linkage in a screen's picture: mouse and keys.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "animation/engine.h"
#include "animation/shown.h"
#include "platform/controls.h"
#include "screens/joint_drag.h"

namespace verlink {

class Linkage_Screen;

/// A joint under the pointer lights up, and a press takes it. What is dragged is written into the boxes of the screen
/// and taken from there, so that they follow; the run is made anew and the same position shown, in the window that the
/// picture had at the press. Letting go fits the window again. A box that is typed into meanwhile keeps what was typed
/// until then. With the keys a joint is taken by its letter and moved by the arrows.
class Joint_Hand {
   public:
    Joint_Hand(Linkage_Screen& screen, platform::PictureBox& picture);

    /// The step in the picture; where there is none, the one that was there last.
    int Step() const { return step_; }
    bool Holds_Joint() const { return joint_.has_value(); }
    /// By `OnMouseMove`, for which a press with the shift key alone takes the picture, something was drawn in a held
    /// window.
    void Shift_Dragged() { moved_ = true; }
    /// A message has asked for another place: until the next press nothing follows.
    void End_Shift_Drag() { ended_ = shifts_; }
    bool Shift_Drag_Ended() const { return ended_; }
    /// While something is held: a box was typed into and is about to be taken over, and has been.
    void Typed(int box);
    void Typed_Taken();
    void Let_Go();

   private:
    void Heard(const Shown& shown);
    void Hover(const platform::Touch& at);
    bool Seize(const platform::Touch& at);
    void Drag(const platform::Touch& at);
    void Key(const platform::Picture_Key& key);
    void Take(Joint joint, bool coupler = false);
    void Walk();
    void Begin_Typing(const std::string& digit);
    void Take_Typed_Boxes();
    void Pull_To(platform::Point to, int keys, double pixel);
    void Say_Held(bool coupler);
    void Light_Up(std::optional<Joint> joint);
    std::optional<Joint> Under(const platform::Touch& at) const;
    std::optional<platform::Point> Place(Joint joint) const;
    bool In_Sight(Joint joint) const;

    Linkage_Screen& screen_;
    platform::PictureBox& picture_;
    Position_Ear ear_;
    int step_ = 0;
    std::optional<Joint> joint_;  ///< in the hand
    bool coupler_ = false;        ///< it was taken for the coupler
    bool by_key_ = false;
    bool shifts_ = false;
    bool ended_ = false;
    bool moved_ = false;    ///< the window is to be fitted again
    bool busy_ = false;     ///< what is drawn is drawn by the hand itself
    platform::Point to_{};  ///< where the keys have moved it; global frame, shown unit
    std::set<int> typed_;   ///< boxes that keep what was typed
    std::optional<Held_Window> window_;
};

}  // namespace verlink
