// How a joint is found under the pointer, and what the boxes take of its way.
#include "screens/joint_hand.h"

#include <cmath>
#include <iterator>
#include <utility>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "platform/deed.h"
#include "platform/guard.h"
#include "screens/linkage_screen.h"

namespace verlink {

using platform::Grip;
using platform::Picture_Key;
using platform::Point;
using platform::Touch;

namespace {

constexpr int kShift = 1, kControl = 2, kAlt = 4;
constexpr double kReach = 9;       ///< logical pixels around a joint in which a press takes it
constexpr double kRoundOver = 10;  ///< pixels that a round value is at least apart from the next one
constexpr double kFar = 10;        ///< arrows with the shift or the control key go so many times as far

const std::string kLetters = "A B C P O J";
const std::string kInHand =
    kLetters +
    " Esc Left Right Up Down Shift+Left Shift+Right Shift+Up Shift+Down Ctrl+Left Ctrl+Right Ctrl+Up Ctrl+Down"
    " 0 1 2 3 4 5 6 7 8 9 .";

double Apart(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

Point Upward(const Touch& at) { return {at.x, Model.FlipSum - at.y}; }

}  // namespace

Joint_Hand::Joint_Hand(Linkage_Screen& screen, platform::PictureBox& picture)
    : screen_(screen), picture_(picture), ear_(screen, [this](const Shown& shown) { Heard(shown); }) {
    picture.Magnifies = true;
    picture.Keys = kLetters;
    picture.OnHover = [this](const Touch& at) { Hover(at); };
    picture.OnLeave = [this] {
        if (!Holds_Joint()) Light_Up({});
    };
    picture.OnSeize = [this](const Touch& at) { return Seize(at); };
    picture.OnDrag = [this](const Touch& at) { Drag(at); };
    picture.OnRelease = [this] { Let_Go(); };
    picture.OnKey = [this](const Picture_Key& key) { Key(key); };
    picture.OnLostFocus = [this] {
        if (by_key_) Let_Go();
    };
}

void Joint_Hand::Heard(const Shown& shown) {
    if (!shown.Nothing()) step_ = shown.step;
    if (busy_) return;
    if (!Holds_Joint() || shown.playing || shown.Nothing() || !Place(*joint_)) {
        if (Holds_Joint() && by_key_) Let_Go();
        if (!Holds_Joint()) Light_Up({});
        return;
    }
    to_ = *Place(*joint_);
    Light_Up(joint_);
}

std::optional<Point> Joint_Hand::Place(Joint joint) const {
    if (!Model.RunStands || ear_.Step() == kNoStep) return {};
    return Place_Of(joint, Model, ear_.Step());
}

/// Without the links there is nothing of the moving joints in the picture.
bool Joint_Hand::In_Sight(Joint joint) const { return joint == Joint::kO4 || Model.HideLinksFlag == "N"; }

/// The uppermost of those that are nearest.
std::optional<Joint> Joint_Hand::Under(const Touch& at) const {
    std::optional<Joint> nearest;
    double least = kReach * at.pixel;
    for (const Joint joint : kJoints) {
        const auto place = Place(joint);
        if (!place || !In_Sight(joint)) continue;
        const double off = Apart(*place, Upward(at));
        if (off > least) continue;
        least = off;
        nearest = joint;
    }
    return nearest;
}

void Joint_Hand::Light_Up(std::optional<Joint> joint) {
    const auto place = joint ? Place(*joint) : std::nullopt;
    if (!place) {
        picture_.Lit = std::nullopt;
        picture_.Pointer = Grip::kArrow;
        return;
    }
    picture_.Lit = platform::Light{place->x, Model.FlipSum - place->y, Holds_Joint()};
    picture_.Pointer = !Holds_Joint() ? Grip::kOpenHand : by_key_ ? Grip::kArrow : Grip::kClosedHand;
}

void Joint_Hand::Hover(const Touch& at) {
    if (!by_key_) Light_Up(Under(at));
}

bool Joint_Hand::Seize(const Touch& at) {
    Let_Go();
    shifts_ = at.keys == kShift && picture_.OnMouseMove;
    if (!shifts_) joint_ = Under(at);
    if (!shifts_ && !joint_) return false;
    coupler_ = false;
    window_.emplace(screen_);
    if (joint_) picture_.Keys = kInHand;
    Light_Up(joint_);
    return true;
}

void Joint_Hand::Drag(const Touch& at) {
    if (Holds_Joint()) Pull_To(Upward(at), at.keys, at.pixel);
}

void Joint_Hand::Let_Go() {
    if (!Holds_Joint() && !shifts_) return;
    joint_.reset();
    shifts_ = ended_ = false;
    // Moved by keys until now, it is one step.
    if (std::exchange(by_key_, false)) platform::Deed::Drag_Ended();
    typed_.clear();
    picture_.Keys = kLetters;
    Light_Up({});
    window_.reset();
    if (std::exchange(moved_, false) && ear_.Step() != kNoStep) screen_.Show_Dragged(ear_.Step());
}

void Joint_Hand::Typed(int box) {
    if (Holds_Joint()) typed_.insert(box);
}

void Joint_Hand::Typed_Taken() {
    if (!Holds_Joint() || Model.RunStands) return;
    moved_ = true;
    screen_.Run_Dragged(step_);
}

void Joint_Hand::Take_Typed_Boxes() {
    for (const auto& box : screen_.txt_Linkout) {
        if (!box->Touched()) continue;
        box->Leave();
        typed_.insert(box->Index());
    }
    if (Is_Linkage_Touched(screen_)) Get_Linkage_Geometry(screen_, Road::kDrag);
    Typed_Taken();
}

void Joint_Hand::Pull_To(Point to, int keys, double pixel) {
    Guarded(screen_.Name() + ".Pull_To", [&] {
        busy_ = true;
        Take_Typed_Boxes();
        busy_ = false;
        if (!Place(*joint_)) return;
        Pull pull;
        pull.joint = *joint_;
        pull.coupler = coupler_ || (!by_key_ && (keys & kControl) != 0);
        pull.to = to;
        pull.step = ear_.Step();
        pull.fine = Linkage_Screen::Fine(pixel);
        // Some desktops move windows by the alt key, so that it comes too late for them once a joint is held; the shift
        // key is free then.
        if (!by_key_ && (keys & (kAlt | kShift)) != 0) pull.round = Round_Up_1_2_5(kRoundOver * pixel);
        pull.holds = [this](int box) { return typed_.contains(box) || screen_.Held(box); };
        const Followed answer = Follow(pull, Model);
        if (answer.refused) {
            if (screen_.OnRefused) screen_.OnRefused(*answer.refused, answer.step);
            return;
        }
        if (answer.values.empty() && answer.step == pull.step) Say_Held(pull.coupler);
        busy_ = true;
        for (const auto& [box, value, decimals] : answer.values)
            screen_.txt_Linkout[box].Type(Text_Of(FNRound(value, decimals)));
        if (!answer.values.empty()) Get_Linkage_Geometry(screen_, Road::kDrag);
        if (!Model.RunStands)
            screen_.Run_Dragged(answer.step);
        else if (answer.step != pull.step)
            screen_.Show_Dragged(answer.step);
        moved_ = moved_ || !answer.values.empty() || answer.step != pull.step;
    });
    busy_ = false;
    Light_Up(joint_);
}

void Joint_Hand::Say_Held(bool coupler) {
    switch (*joint_) {
        case Joint::kA: return screen_.Say_Held({1});
        case Joint::kB: return coupler ? screen_.Say_Held({2}) : screen_.Say_Held({3});
        case Joint::kP: return screen_.Say_Held({4, 5});
        case Joint::kO4: return Model.PolarCoords ? screen_.Say_Held({0, 6}) : screen_.Say_Held({15, 16});
    }
}

// By the keys.

void Joint_Hand::Take(Joint joint, bool coupler) {
    Let_Go();
    if (!Place(joint) || !In_Sight(joint)) return;
    joint_ = joint;
    coupler_ = coupler;
    by_key_ = true;
    to_ = *Place(joint);
    window_.emplace(screen_);
    picture_.Keys = kInHand;
    Light_Up(joint);
}

/// On to the joint behind the one in hand.
void Joint_Hand::Walk() {
    const int joints = static_cast<int>(std::size(kJoints));
    int at = joint_ ? static_cast<int>(*joint_) : -1;
    for (int tried = 0; tried < joints; ++tried) {
        at = (at + 1) % joints;
        if (!Place(kJoints[at]) || !In_Sight(kJoints[at])) continue;
        return Take(kJoints[at]);
    }
}

void Joint_Hand::Key(const Picture_Key& key) {
    if (Holds_Joint() && key.key == "Esc") return Let_Go();
    const bool digit = key.key == "." || (key.key >= "0" && key.key <= "9");
    if (Holds_Joint() && digit) return Begin_Typing(key.key);
    // The mouse has it.
    if (Holds_Joint() && !by_key_) return;
    if (key.key == "A") return Take(Joint::kA);
    if (key.key == "B") return Take(Joint::kB);
    if (key.key == "C") return Take(Joint::kB, true);
    if (key.key == "P") return Take(Joint::kP);
    if (key.key == "O") return Take(Joint::kO4);
    if (key.key == "J") return Walk();
    if (!Holds_Joint()) return;
    const double by = key.pixel * (key.keys != 0 ? kFar : 1);
    if (key.key == "Left")
        to_.x -= by;
    else if (key.key == "Right")
        to_.x += by;
    else if (key.key == "Up")
        to_.y += by;
    else
        to_.y -= by;
    Pull_To(to_, key.keys, key.pixel);
}

/// A number begun while a joint is held is meant for the value that the joint changes.
void Joint_Hand::Begin_Typing(const std::string& digit) {
    int box = 4;  // of the coupler point
    switch (*joint_) {
        case Joint::kA: box = 1; break;
        case Joint::kB: box = coupler_ ? 2 : 3; break;
        case Joint::kP: break;
        case Joint::kO4: box = Model.PolarCoords ? 0 : 15; break;
    }
    platform::TextBox& target = screen_.txt_Linkout[box];
    target.SetFocus();
    target.SelectedAll = false;
    target.Type(digit);
}

}  // namespace verlink
