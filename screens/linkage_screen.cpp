// The linkage as boxes and options.
#include "screens/linkage_screen.h"

#include <algorithm>

#include "animation/engine.h"
#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/results.h"
#include "core/why_words.h"
#include "core/window_sizes.h"
#include "dynamics/typed_units.h"
#include "platform/deed.h"
#include "platform/guard.h"

namespace verlink {

Linkage_Screen::Linkage_Screen(const std::string& name, const char* crossed)
    : Screen(name), opt_OpenCross(*this, "opt_OpenCross", {{0, "Open"}, {1, crossed}}) {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    fra_toggle.Visible = false;
    Set_Palette();
    for (auto& box : txt_Linkout) box->BackColor = Model.ColorYellow;
    opt_Polar[0].Value = true;
    opt_OpenCross[0].Value = true;
    opt_Shift_Drag[0].Value = true;
    opt_Polar_Click(Model.PolarCoords ? 1 : 0);

    txt_Linkout[1].Tip = "Length of link 2, the crank, from O2 to A, in the length unit shown; not negative";
    txt_Linkout[2].Tip = "Length of link 3, the coupler, from A to B, in the length unit shown; not negative";
    txt_Linkout[3].Tip = "Length of link 4, the rocker, from O4 to B, in the length unit shown; not negative";
    txt_Linkout[4].Tip = "Distance from A to the coupler point P, in the length unit shown; not negative";
    txt_Linkout[5].Tip = "Angle from the line AB to the line AP, degrees";
    txt_Linkout[0].Tip = "Length of link 1, the ground, from O2 to O4, in the length unit shown; not negative";
    txt_Linkout[6].Tip = "Direction of link 1 from O2 to O4, degrees";
    txt_Linkout[15].Tip = "X of the pivot O4 from O2, in the length unit shown";
    txt_Linkout[16].Tip = "Y of the pivot O4 from O2, in the length unit shown";
    opt_Polar[0].Tip = "Link 1 is entered as the coordinates of the pivot O4";
    opt_Polar[1].Tip = "Link 1 is entered as its length and angle";
    opt_OpenCross[0].Tip = "Assemble the linkage on its open circuit";
    opt_OpenCross[1].Tip = "Assemble the linkage on its crossed circuit";

    opt_Polar.On(&platform::OptionButton::OnClick, [this](int i) { opt_Polar_Click(i); });
    opt_OpenCross.On(&platform::OptionButton::OnClick, [this](int i) { opt_OpenCross_Click(i); });
    opt_Shift_Drag.On(&platform::OptionButton::OnClick, [this](int i) { opt_Shift_Drag_Click(i); });
    Bind_Boxes(txt_Linkout, [this](int i) { txt_Linkout_LostFocus(i); });
    for (const auto& box : txt_Linkout)
        Reads_As(*box, Model, box->Index() == 5 || box->Index() == 6 ? Quantity::kAngle : Quantity::kLength);
    chk_Lock.On(&platform::CheckBox::OnClick, [this](int i) { chk_Lock_Click(i); });
    // As they were set on the other screen.
    for (const platform::Screen* other : platform::Screens::Made())
        for (const auto& lock : chk_Lock)
            if (const auto* set = other->FindAs<platform::Lock>("chk_Lock", lock->Index())) lock->Value = set->Value;
    Tell_Locks();
    OnRefused = [this](const Geometry& refused, int step) { Say_Not_Followed(refused, step); };
    key_Before.OnPress = [this] { Step_By(-1); };
    key_After.OnPress = [this] { Step_By(1); };
}

void Linkage_Screen::Read_As_Limits(platform::ControlArray<platform::TextBox>& boxes) {
    for (const int limit : {0, 1, 2})
        Reads_As(boxes[limit], Model,
                 [] { return Model.Calctype == run::kByTime ? Quantity::kTime : Quantity::kAngle; });
}

void Linkage_Screen::Take_Typed() {
    auto* box = dynamic_cast<platform::TextBox*>(Focus());
    if (!box) return;
    box->Leave();
    if (box->OnLostFocus) platform::Leave_Box(*box, box->OnLostFocus);
}

void Linkage_Screen::Step_By(int steps) {
    Guarded(Name() + ".Step_By", [&] {
        auto& step = Get<platform::CommandButton>("cmd_Step");
        auto& bar = Get<platform::ScrollBar>("hsc_step");
        if (!step.Enabled) return;
        const int positions = Model.NSteps + 1;
        const int wished = (bar.Value() + steps + positions) % positions;
        Model.CurrentStep = wished;
        step.Click();
        // A run that another stage drives is not shown by the button.
        bar.Drag(wished);
        bar.Drop();
    });
}

void Linkage_Screen::Show_Choices() {
    opt_Polar[Model.PolarCoords ? 1 : 0].Value = true;
    for (int option = 0; option < 5; ++option)
        if (shift_drag::kOfOption[option] == Model.ShiftDragTarget) opt_Shift_Drag[option].Value = true;
}

void Linkage_Screen::opt_Polar_Click(int Index) {
    const bool polar = Index == 1;
    if (polar != Model.PolarCoords) {
        Model.PolarCoords = polar;
        Model_Unsaved();
    }
    for (int box : {0, 6}) txt_Linkout[box].BackColor = polar ? Model.ColorYellow : Model.ColorCyan;
    for (int box : {15, 16}) txt_Linkout[box].BackColor = polar ? Model.ColorCyan : Model.ColorYellow;
}

void Linkage_Screen::chk_Lock_Click(int Index) {
    for (const platform::Screen* other : platform::Screens::Made())
        if (auto* lock = other->FindAs<platform::Lock>("chk_Lock", Index)) lock->Value = chk_Lock[Index].Value;
    Tell_Locks();
}

void Linkage_Screen::Tell_Locks() {
    for (const auto& lock : chk_Lock)
        lock->Tip = lock->Value ? "Locked: no drag changes this value; press to unlock it"
                                : "Lock this value, so that no drag changes it";
}

void Linkage_Screen::Say(const std::string& words) {
    lbl_Why.Caption = words;
    // A narrow window has not the room for the longest.
    lbl_Why.Tip = words;
}

void Linkage_Screen::Say_Why(const Shown& now) {
    if (now.Nothing()) return Say_Why_Refused();
    const std::string refused = Why_Refused(Model);
    Say(refused.empty() ? Why_Shown(Model, now.step) : refused);
}

void Linkage_Screen::Say_Why_Refused() {
    const std::string words = Why_Refused(Model);
    // Of a run that was ended the line has told already where it could not go on.
    if (!words.empty() || Shown_Step() == kNoStep) Say(words);
}

void Linkage_Screen::Say_Anew() {
    Say("");
    Say_Why_Refused();
}

void Linkage_Screen::Say_Not_Followed(const Geometry& wished, int step) { Say(Why_Not_Followed(Model, wished, step)); }

void Linkage_Screen::Say_Held(std::initializer_list<int> boxes) {
    if (std::ranges::all_of(boxes, [this](int box) { return Held(box); })) Say(Why_Held(boxes));
}

bool Linkage_Screen::Held(int box) const { return Get<platform::Lock>("chk_Lock", box).Value; }

void Linkage_Screen::opt_Shift_Drag_Click(int Index) { Model.ShiftDragTarget = shift_drag::kOfOption[Index]; }

bool Linkage_Screen::Take_Circuit(int Index) {
    if (!Visible() || (Model.CircuitSign == -1 ? 0 : 1) == Index) return false;
    Enter_Linkage(Road::kBoxes, [Index] {
        Model.CircuitIndex = Index + 1;
        Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
    });
    return true;
}

std::string Linkage_Screen::Shown_Title() { return Model.FigureTitle.empty() ? "Figure" : Model.FigureTitle; }

}  // namespace verlink
