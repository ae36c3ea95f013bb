// What the hand reaches, and how each deed is done through the functions that tests use.
#include "tests/walk/hand.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "platform/charts.h"
#include "platform/graph.h"
#include "platform/plot_box.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::walk {

using namespace platform;

namespace {

constexpr int kPlacesOfAScale = 100;

bool Frame_Lets(const Screen& screen, const std::string& frame, int index = kNoIndex) {
    const auto* found = screen.FindAs<Frame>(frame, index);
    return !found || (found->Enabled && found->Visible);
}

bool Any_Of(const std::string& name, std::initializer_list<const char*> names) {
    return std::ranges::any_of(names, [&](const char* candidate) { return name == candidate; });
}

/// The frames that the program itself closes, by the controls that stand in them.
bool Frames_Let(const Visual& control) {
    const Screen& screen = control.Owner();
    const std::string& name = control.Name();
    if (Any_Of(name, {"cmb_Preset", "cmd_ClearPreset"})) return Frame_Lets(screen, "fra_Preset");
    if (name == "opt_Coord") return Frame_Lets(screen, "fra_coord");
    if (name == "opt_Calctype") return Frame_Lets(screen, "fra_calcmode");
    if (name == "txt_O2") return Frame_Lets(screen, "fra_Pivot", 0);
    if (name == "txt_O4") return Frame_Lets(screen, "fra_Pivot", 1);
    if (name == "txt_P1") return Frame_Lets(screen, "fra_Pivot", 2);
    if (Any_Of(name, {"cmb_Sweep", "txt_From", "txt_To", "txt_Count"})) return Frame_Lets(screen, "fra_Sweep");
    if (Any_Of(name, {"cmb_Tolerance", "txt_PlusMinus", "cmb_Spread", "txt_Samples", "txt_Seed"}))
        return Frame_Lets(screen, "fra_Tolerance");
    const char slot = name.empty() ? ' ' : name.back();
    if (std::isdigit(static_cast<unsigned char>(slot)) != 0 &&
        Any_Of(name.substr(0, name.size() - 1), {"cmb_Var", "cmb_Com", "cmd_OK", "cmd_Clear"}))
        return Frame_Lets(screen, std::string("fra_Function") + slot);
    return true;
}

template <class Kind>
Kind* Reached(const Screen& top, const Action& action) {
    auto* control = top.FindAs<Kind>(action.control, action.index);
    return control && In_Reach(*control) ? control : nullptr;
}

bool Item_There(const Screen& top, const Action& action) {
    const auto* list = Reached<ComboBox>(top, action);
    return list && action.value >= 0 && action.value < static_cast<int>(list->Items().size());
}

bool Value_There(const Screen& top, const Action& action) {
    const auto* bar = Reached<ScrollBar>(top, action);
    return bar && action.value >= std::min(bar->Min(), bar->Max()) && action.value <= std::max(bar->Min(), bar->Max());
}

/// What the key does that a default button or the focus takes.
void Press_Return(Screen& top) {
    if (auto* box = dynamic_cast<TextBox*>(top.Focus()); box && box->OnReturn) return box->Return();
    auto* button = dynamic_cast<CommandButton*>(top.Focus());
    if (!button || !In_Reach(*button)) button = top.DefaultButton;
    if (button && In_Reach(*button)) test::Press(top, button->Name(), button->Index());
}

/// Keys go where the focus is: leaving another box may have kept it there.
void Type_Into(Screen& top, const Action& action) {
    Control* box = top.Find(action.control, action.index);
    top.MoveFocus(box);
    if (top.Focus() == box && top.Visible()) test::Type(top, action.control, action.index, action.text);
}

/// A press takes the focus, as on a desktop.
void Move_Mouse(PictureBox& box, const Action& action) {
    if (action.buttons != 0) box.SetFocus();
    const Picture& drawing = box.Drawing();
    box.OnMouseMove(action.buttons, action.keys, drawing.Left() + action.x * (drawing.Right() - drawing.Left()),
                    drawing.Top() + action.y * (drawing.Bottom() - drawing.Top()));
}

Touch Touch_At(const PictureBox& box, double x, double y, int keys) {
    const Picture& drawing = box.Drawing();
    const Glass& glass = box.Through;
    return {drawing.Left() + glass.Part_Across(x) * (drawing.Right() - drawing.Left()),
            drawing.Top() + glass.Part_Down(y) * (drawing.Bottom() - drawing.Top()), keys, box.Pixel()};
}

/// In a few moves; where there is nothing to be taken, the glass moves.
void Haul_Over(PictureBox& box, const Action& a) {
    constexpr int kMoves = 3;
    box.SetFocus();
    if (!box.OnSeize || !box.OnSeize(Touch_At(box, a.x, a.y, a.keys))) {
        box.Through = Moved(box.Through, a.to_x - a.x, a.to_y - a.y);
        return;
    }
    for (int i = 1; i <= kMoves; ++i) {
        const double part = static_cast<double>(i) / kMoves;
        if (box.OnDrag) box.OnDrag(Touch_At(box, a.x + part * (a.to_x - a.x), a.y + part * (a.to_y - a.y), a.keys));
    }
    if (box.OnRelease) box.OnRelease();
}

void Press_On_Picture(PictureBox& box, const std::string& keys) {
    int held = 0;
    std::string key = keys;
    for (const auto& [name, code] : {std::pair{"Shift+", 1}, std::pair{"Ctrl+", 2}})
        if (key.starts_with(name)) {
            held += code;
            key.erase(0, std::string(name).size());
        }
    box.SetFocus();
    box.OnKey({key, held, box.Pixel()});
}

bool Takes_Key(const PictureBox& box, const std::string& key) {
    const std::vector<std::string> keys = Single_Keys(box.Keys);
    return box.OnKey && std::ranges::find(keys, key) != keys.end();
}

/// Of a plot a part is enlarged, of which without windows nothing is to be seen.
bool Looks_At_A_Plot(const PictureBox& box, Deed deed) {
    return dynamic_cast<const PlotBox*>(&box) && (deed == Deed::kHaul || deed == Deed::kGlass);
}

void Use_Picture(PictureBox& box, const Action& action) {
    if (Looks_At_A_Plot(box, action.deed)) return;
    switch (action.deed) {
        case Deed::kMouse: return Move_Mouse(box, action);
        case Deed::kPicture: return box.OnClick();
        case Deed::kDoublePicture: return box.OnDblClick();
        case Deed::kHover:
            box.OnHover(Touch_At(box, action.x, action.y, 0));
            if (box.OnLeave && action.x < 0) box.OnLeave();
            return;
        case Deed::kHaul: return Haul_Over(box, action);
        case Deed::kGlass: box.Through = Zoomed(box.Through, std::pow(1.2, action.value), action.x, action.y); return;
        default: return Press_On_Picture(box, action.text);
    }
}

void Use_List(Screen& top, const Action& action) {
    auto& list = top.Get<ComboBox>(action.control, action.index);
    list.SetFocus();
    if (action.deed == Deed::kItem && Item_There(top, action)) list.Choose(action.value);
    // Letters go where the cursor is, and a box whose text is refused keeps it.
    if (action.deed == Deed::kWrite && top.Focus() == &list) list.Text = action.text;
    if (action.deed == Deed::kDoubleList && list.Enabled) list.OnDblClick();
}

void Seek_In(Screen& top, const Action& action) {
    Control& control = top.Get<Control>(action.control, action.index);
    if (auto* graph = dynamic_cast<Graph*>(&control)) {
        graph->OnSeek(action.value);
        if (graph->OnSought) graph->OnSought();
    } else if (auto* spread = dynamic_cast<Histogram*>(&control)) {
        const auto& shown = spread->Shown.Get();
        spread->OnPick(shown.from + (shown.to - shown.from) * action.value / kPlacesOfAScale);
    } else if (auto* map = dynamic_cast<Color_Map*>(&control)) {
        const int up = map->Shown().up.count, place = action.value - 1;
        map->OnPick({place / up, place % up});
    }
}

void Use_Bar(Screen& top, const Action& action) {
    auto& bar = top.Get<ScrollBar>(action.control, action.index);
    bar.SetFocus();
    if (!Value_There(top, action)) return;
    if (action.deed == Deed::kScroll) return bar.SetValue(action.value);
    bar.Drag((action.value + bar.Value()) / 2);
    bar.Drag(action.value);
    bar.Drop();
}

}  // namespace

bool In_Reach(const Visual& control) { return control.Enabled && control.Visible && Frames_Let(control); }

bool In_Reach(const MenuEntry& entry) {
    if (!entry.OnClick || !entry.Children().empty()) return false;
    for (const MenuEntry* above = &entry; above; above = above->Parent())
        if (!above->Enabled || !above->Visible) return false;
    return true;
}

bool Running(const Timer& timer) { return timer.Enabled && timer.OnTimer; }

Timer* Timer_Of(const Action& action) {
    for (const Screen* screen : Screens::Made())
        if (screen->Name() == action.screen) return screen->FindAs<Timer>(action.control, action.index);
    return nullptr;
}

Screen* Beside() {
    for (Screen* screen : Screens::Made())
        if (screen->Visible() && screen->Beside()) return screen;
    return nullptr;
}

Screen& Where(Screen& top, const Action& action) {
    Screen* beside = Beside();
    return beside && action.screen == beside->Name() ? *beside : top;
}

namespace {

bool Possible_On(const Screen& top, const Action& action) {
    // Time passes on screens that are not in sight, too.
    if (action.deed == Deed::kPulse) {
        const Timer* timer = Timer_Of(action);
        return timer && Running(*timer);
    }
    if (top.Name() != action.screen) return false;
    switch (action.deed) {
        case Deed::kPress: return Reached<CommandButton>(top, action);
        case Deed::kType: {
            const auto* box = Reached<TextBox>(top, action);
            return box && !box->Locked;
        }
        case Deed::kGo: return Reached<Visual>(top, action);
        case Deed::kReturn: return true;
        case Deed::kEscape: return top.CancelButton && In_Reach(*top.CancelButton);
        case Deed::kOption: return Reached<OptionButton>(top, action);
        case Deed::kTick: return Reached<CheckBox>(top, action);
        case Deed::kItem: return Item_There(top, action);
        case Deed::kWrite: return Reached<ComboBox>(top, action);
        case Deed::kDoubleList: {
            const auto* list = Reached<ComboBox>(top, action);
            return list && list->OnDblClick;
        }
        case Deed::kPick: {
            const auto* entry = top.FindAs<MenuEntry>(action.control, action.index);
            return entry && In_Reach(*entry);
        }
        case Deed::kScroll:
        case Deed::kThumb: return Value_There(top, action);
        case Deed::kMouse: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && box->OnMouseMove;
        }
        case Deed::kSeek: return action.value >= 1 && action.value <= Places_To_Seek(top, action);
        case Deed::kPicture: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && box->OnClick;
        }
        case Deed::kDoublePicture: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && box->OnDblClick;
        }
        case Deed::kHover: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && box->OnHover;
        }
        case Deed::kHaul:
        case Deed::kGlass: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && (box->Magnifies || Looks_At_A_Plot(*box, action.deed));
        }
        case Deed::kOnPicture: {
            const auto* box = Reached<PictureBox>(top, action);
            return box && Takes_Key(*box, action.text);
        }
        case Deed::kScreen:
        case Deed::kClose: return true;
        case Deed::kKeys: {
            const auto* shortcut = top.FindAs<Shortcut>(action.control, action.index);
            // In a box they would write.
            const bool writes = dynamic_cast<TextBox*>(top.Focus()) || dynamic_cast<ComboBox*>(top.Focus());
            return shortcut && shortcut->Enabled && !writes;
        }
        case Deed::kDrop: return static_cast<bool>(top.OnDrop);
        case Deed::kPulse: break;
    }
    return false;
}

}  // namespace

int Places_To_Seek(const Screen& top, const Action& action) {
    if (const auto* graph = Reached<Graph>(top, action)) return graph->OnSeek ? graph->NumPoints() : 0;
    if (const auto* spread = Reached<Histogram>(top, action)) return spread->OnPick ? kPlacesOfAScale : 0;
    if (const auto* map = Reached<Color_Map>(top, action))
        return map->OnPick ? static_cast<int>(map->Shown().values.size()) : 0;
    return 0;
}

bool Possible(const Screen& top, const Action& action) {
    const Screen* beside = Beside();
    return Possible_On(beside && action.screen == beside->Name() ? *beside : top, action);
}

void Do(Screen& top, const Action& action) {
    switch (action.deed) {
        case Deed::kPress: return test::Press(top, action.control, action.index);
        case Deed::kType: return Type_Into(top, action);
        case Deed::kGo: return top.MoveFocus(top.Find(action.control, action.index));
        case Deed::kReturn: return Press_Return(top);
        case Deed::kEscape: return test::Press(top, top.CancelButton->Name(), top.CancelButton->Index());
        case Deed::kOption: return test::Choose_Option(top, action.control, action.index);
        case Deed::kTick: {
            auto& box = top.Get<CheckBox>(action.control, action.index);
            box.SetFocus();
            return box.Click();
        }
        case Deed::kItem:
        case Deed::kWrite:
        case Deed::kDoubleList: return Use_List(top, action);
        case Deed::kPick:
            top.Get<MenuEntry>(action.control, action.index).Open();
            return test::Pick_Menu(top, action.control, action.index);
        case Deed::kKeys: return top.Get<Shortcut>(action.control, action.index).Press();
        case Deed::kDrop: return top.OnDrop(action.text);
        case Deed::kScroll:
        case Deed::kThumb: return Use_Bar(top, action);
        case Deed::kMouse:
        case Deed::kPicture:
        case Deed::kDoublePicture:
        case Deed::kHover:
        case Deed::kHaul:
        case Deed::kGlass:
        case Deed::kOnPicture: return Use_Picture(top.Get<PictureBox>(action.control, action.index), action);
        case Deed::kSeek: return Seek_In(top, action);
        case Deed::kScreen: return top.Form_Click();
        case Deed::kClose: return top.Close();
        case Deed::kPulse: return Timer_Of(action)->Tick();
    }
}

}  // namespace verlink::walk
