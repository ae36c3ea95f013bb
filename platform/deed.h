// A deed of the user's hand, from its beginning to its end, for whoever keeps a history of what was done.
#pragma once

#include <functional>
#include <string>

namespace verlink::platform {

class Control;

/// Follows the hand. All are optional.
struct Deed_Watch {
    /// What was done so far, since the last call, is one deed of this name. `goes_on` while it is part of a drag.
    std::function<void(const std::string& what, bool goes_on)> done;
    /// What has changed since is nobody's doing: a screen has come up, or the program counts on by itself.
    std::function<void()> by_itself;
    /// A box is about to be typed into, and has been.
    std::function<void(const Control& box)> to_be_typed;
    std::function<void()> typed;
};
void Watch_Deeds(Deed_Watch watch);

/// What a control is called where it is told what was done with it: its caption without marks, or the beginning of
/// its tip.
std::string Deed_Name(const Control& control);

/// While one exists the hand is at work. Deeds within a deed are part of it, but for those on a screen that it has
/// shown.
class Deed {
   public:
    enum class Kind {
        kWhole,  ///< ends with itself
        kTyped,  ///< only the leaving of the box tells what came of it
        kTimed,  ///< nobody's, since time alone has passed
        kDrag    ///< goes on with the next of the same name, until `Drag_Ended` or another deed
    };
    explicit Deed(std::string what, Kind kind = Kind::kWhole);
    explicit Deed(const Control& control, Kind kind = Kind::kWhole);
    ~Deed();
    Deed(const Deed&) = delete;
    Deed& operator=(const Deed&) = delete;

    /// The button of the mouse has been let go.
    static void Drag_Ended();

    // For screens.

    /// What was done so far is done, under the name of the deed around: a screen is about to come up.
    static void So_Far();
    /// What was changed since has changed by itself.
    static void By_Itself();

    /// While one exists the hand is free for deeds of their own, as a screen waits for them.
    class Waiting {
       public:
        Waiting();
        ~Waiting();
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;

       private:
        Deed* at_work_;
    };

   private:
    std::string what_;
    Kind kind_;
    Deed* around_;
};

/// The leaving of a box that was typed into is a deed of its own, also within another.
void Leave_Box(Control& box, const std::function<void()>& left);

}  // namespace verlink::platform
