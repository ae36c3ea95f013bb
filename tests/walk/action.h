// One thing that the user does, told so exactly that it can be done again, and what he answers on the way.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_services.h"

namespace verlink::walk {

/// What the user says to a message that leaves him a choice, or to a dialog.
struct Reply {
    enum class To { kMessage, kOpen, kSave, kPrinter };
    To to;
    platform::Answer answer = platform::Answer::kOk;
    std::optional<std::string> path = {};  ///< of a file dialog, as `Places` writes it; nothing when cancelled
    bool accepted = false;                 ///< of the printer dialog
};

enum class Deed {
    kPress,       ///< a button
    kType,        ///< a text into a box, which is then not left yet
    kGo,          ///< the focus to a control
    kReturn,      ///< the key, where the focus is
    kEscape,      ///< the key
    kOption,      ///< an option is chosen
    kTick,        ///< a check box changes
    kItem,        ///< the item of that number of a list is chosen
    kWrite,       ///< a text into the box of a list
    kDoubleList,  ///< a double click on the box of a list
    kPick,        ///< an entry of a menu
    kScroll,      ///< a bar is set
    kThumb,       ///< the thumb of a bar is dragged there and dropped
    kMouse,       ///< the mouse is over a picture: x and y in parts of it, from the top left
    kPicture,     ///< a click on a picture
    kDoublePicture,
    kHover,      ///< the mouse is over a picture with no button down: x and y as with `kMouse`
    kHaul,       ///< the left button goes down on a picture at x and y, and up at to_x and to_y
    kGlass,      ///< the wheel is turned there by so many notches
    kOnPicture,  ///< a key for a picture, in `text` as `Shortcut` has it
    kScreen,     ///< a click on the screen itself
    kClose,      ///< the window is closed
    kPulse,      ///< a timer has run down
    kKeys,       ///< keys that no button and no entry has
    kSeek,       ///< the point of that number of a graph is sought by the mouse, which lets go there
    kDrop,       ///< a file is dropped on the window: `text` as `Places` writes it
};

struct Action {
    Deed deed;
    std::string screen;
    std::string control = {};
    int index = platform::kNoIndex;
    std::string text = {};
    int value = 0;
    double x = 0, y = 0;
    int buttons = 0, keys = 0;
    double to_x = 0, to_y = 0;
    /// Only to look: when the user has the screen before him again, everything is as it was. What he does on the
    /// screens in between, to come back, is marked likewise.
    bool looks = false;
    std::vector<Reply> replies = {};

    // The replies, in the order of the questions.
    Action Says(platform::Answer answer) &&;
    Action Opens(const std::string& path) &&;
    Action Saves(const std::string& path) &&;
    Action Opens_Nothing() &&;
    Action Saves_Nothing() &&;
    Action Prints(bool accepted) &&;
    Action Looks() &&;
};

// What a test writes.
Action Press(std::string screen, std::string button, int index = platform::kNoIndex);
Action Type(std::string screen, std::string box, int index, std::string text);
Action Go(std::string screen, std::string control, int index = platform::kNoIndex);
Action Return(std::string screen);
Action Escape(std::string screen);
Action Option(std::string screen, std::string option, int index);
Action Tick(std::string screen, std::string box, int index = platform::kNoIndex);
Action Item(std::string screen, std::string list, int index, int item);
Action Write(std::string screen, std::string list, int index, std::string text);
Action Double_List(std::string screen, std::string list, int index = platform::kNoIndex);
Action Pick(std::string screen, std::string entry, int index = platform::kNoIndex);
Action Scroll(std::string screen, std::string bar, int index, int value);
Action Thumb(std::string screen, std::string bar, int index, int value);
Action Mouse(std::string screen, std::string picture, int index, double x, double y, int buttons, int keys);
Action Click_Picture(std::string screen, std::string picture, int index = platform::kNoIndex);
Action Double_Picture(std::string screen, std::string picture, int index = platform::kNoIndex);
Action Hover(std::string screen, std::string picture, double x, double y);
Action Haul(std::string screen, std::string picture, double x, double y, double to_x, double to_y, int keys,
            int index = platform::kNoIndex);
Action Turn_Wheel(std::string screen, std::string picture, double x, double y, int notches,
                  int index = platform::kNoIndex);
Action On_Picture(std::string screen, std::string picture, std::string key);
Action Click(std::string screen);
Action Close(std::string screen);
Action Pulse(std::string screen, std::string timer);
Action Keys(std::string screen, std::string shortcut);
Action Seek(std::string screen, std::string graph, int index, int point);
Action Drop(std::string screen, std::string path);

/// A reply as it stands behind an action in a test.
std::string Words_Of(const Reply& reply);
/// The action as the line of a test that does it again.
std::string Line_Of(const Action& action);

}  // namespace verlink::walk
