// What the input and animate screens share: the linkage as boxes and options, beside its picture.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>

#include "animation/shown.h"
#include "core/number.h"
#include "core/record/geometry.h"
#include "platform/lock.h"
#include "platform/screen.h"

namespace verlink {

/// Boxes show lengths in the shown unit and take effect when they are left or Return is pressed; boxes that are typed
/// into are yellow, derived ones cyan. An option shows what the record says, and changes it when a hand chooses
/// another.
class Linkage_Screen : public platform::Screen {
   public:
    /// The part of a pixel that no eye tells apart: a drag writes no more decimals than that takes.
    static double Fine(double pixel) { return pixel / 8; }

    // The moving links: entry n of the labels and units belongs to entry n of `txt_Linkout`.
    platform::Frame fra_Links{*this, "fra_Links", "Linkage Data"};
    platform::ControlArray<platform::Label> lbl_Link{*this,
                                                     "lbl_Link",
                                                     {{1, "Link 2 (Crank)"},
                                                      {2, "Link 3 (Coupler)"},
                                                      {3, "Link 4 (Rocker)"},
                                                      {4, "Dist to Coupler Pt"},
                                                      {5, "Angle to Coupler Pt"},
                                                      {0, "mag"},
                                                      {6, "ang"},
                                                      {15, "x"},
                                                      {16, "y"}}};
    /// 1 L2, 2 L3, 3 L4, 4 Rpa, 5 Delta; link 1: 0 L1 and 6 its angle, or 15 and 16 the place of O4
    platform::ControlArray<platform::TextBox> txt_Linkout{
        *this, "txt_Linkout", {{1, ""}, {2, ""}, {3, ""}, {4, ""}, {5, ""}, {0, ""}, {6, ""}, {15, ""}, {16, ""}}};
    /// The length unit, beside `txt_Linkout`(0) to (4); 11 and 12 beside (15) and (16)
    platform::ControlArray<platform::Label> lbl_Units{
        *this, "lbl_Units", {{1, "len"}, {2, "len"}, {3, "len"}, {4, "len"}, {0, "len"}, {11, "len"}, {12, "len"}}};
    /// The angle unit, beside `txt_Linkout`(5) and (6)
    platform::ControlArray<platform::Label> lbl_Degrees{*this, "lbl_Degrees", {{5, "deg"}, {6, "deg"}}};

    /// At the side of `txt_Linkout` of the same index: no drag changes what stands there. Both screens have them alike.
    platform::ControlArray<platform::Lock> chk_Lock{*this,
                                                    "chk_Lock",
                                                    {{1, "Lock link 2"},
                                                     {2, "Lock link 3"},
                                                     {3, "Lock link 4"},
                                                     {4, "Lock the distance to the coupler point"},
                                                     {5, "Lock the angle to the coupler point"},
                                                     {0, "Lock the length of link 1"},
                                                     {6, "Lock the angle of link 1"},
                                                     {15, "Lock x of O4"},
                                                     {16, "Lock y of O4"}}};

    // The ground link, in one of two forms.
    platform::ControlArray<platform::OptionButton> opt_Polar{*this, "opt_Polar", {{0, "Cartesian"}, {1, "Polar"}}};
    platform::Frame SSFrame1{*this, "SSFrame1", "Link 1 Coords"};
    platform::Frame SSFrame3{*this, "SSFrame3", "Pivot O4 Coords"};

    platform::Frame fra_Circuit{*this, "fra_Circuit", "Circuit"};
    platform::ControlArray<platform::OptionButton> opt_OpenCross;

    // What kind of linkage it is.
    platform::Frame SSFrame6{*this, "SSFrame6", "Grashof Condition"};
    platform::Label lbl_Grashof{*this, "lbl_Grashof"};
    platform::Frame fra_toggle{*this, "fra_toggle", "Toggles at +/-"};
    platform::ControlArray<platform::Label> lbl_Toggle{*this, "lbl_Toggle", {{0, ""}, {1, "deg"}}};

    platform::ControlArray<platform::OptionButton> opt_Shift_Drag{
        *this, "opt_Shift_Drag", {{0, "Cplr Pt"}, {1, "Crnk"}, {2, "Rckr"}, {3, "Grnd"}, {4, "Cplr"}}};

    /// Under the picture: what cannot be, and what would do, for the position shown or for what was refused.
    platform::Label lbl_Why{*this, "lbl_Why"};

    /// The position before the one shown and the one after it; beyond either end stands the other.
    platform::Shortcut key_Before{*this, "key_Before", "Left"};
    platform::Shortcut key_After{*this, "key_After", "Right"};

    void opt_Polar_Click(int Index);
    void opt_Shift_Drag_Click(int Index);
    virtual void opt_OpenCross_Click(int Index) = 0;
    virtual void txt_Linkout_LostFocus(int Index) = 0;
    void chk_Lock_Click(int Index);

    // For the hand on the joints.

    /// Whether the box of `txt_Linkout` with that index keeps its value in a drag.
    bool Held(int box) const;
    /// Makes the run of the linkage in hand anew, without a word about what does not close, and shows that position.
    virtual void Run_Dragged(int step) = 0;
    /// Shows a position of the run that stands, with the bar.
    virtual void Show_Dragged(int step) = 0;
    /// A drag has asked for a linkage that does not close at that step; the one before it stands.
    std::function<void(const Geometry& refused, int step)> OnRefused;

    /// Nothing has followed the hand. Where all these boxes, which alone could, are locked, the line under the picture
    /// says so until the next position is shown, as it says why a linkage is refused.
    void Say_Held(std::initializer_list<int> boxes);
    /// The position of the run in the picture, or `kNoStep`.
    int Shown_Step() const { return line_ear_.Step(); }

   protected:
    static constexpr char kPictureTip[] =
        "The linkage at the present step, and its coupler curve; drag a joint, or press A, B, P or O and the arrow "
        "keys; the wheel zooms, a double click fits";

    Linkage_Screen(const std::string& name, const char* crossed);

    /// Selects the text on arrival, and calls `left` with the index when the box is left or Return is pressed there.
    template <class Left>
    static void Bind_Boxes(platform::ControlArray<platform::TextBox>& boxes, Left left) {
        for (const auto& box : boxes) box->OnGotFocus = [entry = box.get()] { entry->SelectAll(); };
        boxes.On(&platform::Visual::OnLostFocus, left);
        boxes.On(&platform::TextBox::OnReturn, left);
    }
    /// The limits of a run are times or angles, by its type.
    static void Read_As_Limits(platform::ControlArray<platform::TextBox>& boxes);
    /// What is typed into the box with the focus counts, and the cursor stays in it.
    void Take_Typed();
    /// Shows the position so many steps after the one shown.
    void Step_By(int steps);
    /// The options from the record.
    void Show_Choices();
    /// Takes the circuit of the option over; false when the record has it already, or the screen is not up.
    bool Take_Circuit(int Index);
    /// The line where a linkage or a run closes nowhere; empty where that is not so and nothing is shown.
    void Say_Why_Refused();
    /// The same on arriving: what it said of another linkage goes.
    void Say_Anew();
    void Tell_Locks();
    /// The title of the model in its box.
    static std::string Shown_Title();

   private:
    Position_Ear line_ear_{*this, [this](const Shown& now) { Say_Why(now); }};
    void Say(const std::string& words);
    void Say_Why(const Shown& now);
    void Say_Not_Followed(const Geometry& wished, int step);
};

}  // namespace verlink
