// What the user who does anything does next, and what he types and answers.
#include <algorithm>
#include <array>
#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "platform/graph.h"
#include "platform/guard.h"
#include "platform/plot_box.h"
#include "screens/frm_explore.h"
#include "screens/joint_drag.h"
#include "tests/walk/hand.h"
#include "tests/walk/users.h"

namespace verlink::walk {

using namespace platform;

namespace {

const std::vector<std::string> kNasty = {"",      "abc",      "1e39",        "-3",
                                         "0",     "1,5",      "nan",         "inf",
                                         "-0",    "1e-40",    "1e38",        "0.00",
                                         " 2 ",   "2..3",     "--",          "1/3",
                                         "&H10",  "5 in",     "99999999999", "1234567890123456789012345678901234567890",
                                         "1.5e",  "+4",       ".5",          "3.",
                                         "\t",    "\"",       "1,234.5",     "O.5",
                                         "1e400", "-1e39",    "1,500",       "(1+2)/3",
                                         "2*",    "1/0",      "3 mm",        "1 ft - 2 in",
                                         "2 kg",  "10 rad/s", "0,5 rad"};

struct Preference {
    const char* screen;  ///< how its name begins; empty for any
    const char* name;    ///< how the control's name begins
    double weight;
};

/// How much more or less than a control of its kind.
constexpr Preference kPreferences[] = {
    {"frm_HomeScreen", "cmd_Input", 3},
    {"frm_HomeScreen", "cmd_Plot", 5},
    {"frm_HomeScreen", "cmd_Print", 3},
    {"frm_HomeScreen", "cmd_Dynamics", 4},
    {"frm_HomeScreen", "cmd_Balance", 4},
    {"frm_HomeScreen", "cmd_Animate", 2},
    {"frm_Inputnew", "cmd_", 3},
    {"frm_Animate", "cmd_Done", 4},
    {"frm_PlotType", "cmd_PickPlotDone", 5},
    {"frm_PlotSelect", "cmb_Preset", 6},
    {"frm_PlotSelect", "cmd_Done", 8},
    {"frm_PlotSelect", "cmd_OK", 3},
    {"frm_PlotSelect4", "cmb_Var", 5},
    {"frm_PrintSelect", "cmb_Preset", 5},
    {"frm_PrintSelect", "cmd_Done", 6},
    {"frm_MassProp", "cmd_Matrix", 2},
    {"frm_HomeScreen", "cmd_Quit", 0.1},
    {"frm_HomeScreen", "mnu_Open", 8},
    {"frm_HomeScreen", "mnu_Save", 3},
    {"frm_HomeScreen", "mnu_Lobetra", 3},
    {"frm_HomeScreen", "mnu_Link_Data_Import", 3},
    {"frm_HomeScreen", "mnu_New", 3},
    {"frm_HomeScreen", "mnu_Quit", 0.2},
    {"frm_HomeScreen", "mnu_CalcFFT", 5},
    {"frm_HomeScreen", "mnu_Unspec", 2},
    {"frm_HomeScreen", "mnu_Spec", 2},
    {"frm_HomeScreen", "mnu_Twopos", 2},
    {"frm_Synth", "cmd_Explore", 2},
    {"frm_Explore", "cmd_Choices", 3},
    {"frm_HomeScreen", "mnu_Cayley", 2},
    {"frm_HomeScreen", "mnu_Checks", 2},
    {"frm_HomeScreen", "mnu_Report", 2},
    {"frm_HomeScreen", "mnu_Studies", 3},
    {"frm_Studies", "cmd_Start", 4},
    {"frm_Studies", "cmd_Take", 3},
    {"frm_HomeScreen", "mnu_Explore", 3},
    {"frm_Explore", "txt_", 2},
    {"frm_Explore", "pic_Map", 2},
    {"frm_Explore", "cmd_Cancel", 0.5},
    {"frm_Quit", "cmd_YesQuit", 0.05},
    {"frm_Title", "cmd_Start", 3},
    {"frm_Animate", "cmd_Animate", 1.5},
    {"frm_Balance", "cmd_Calc", 2},
    {"frm_MassProp", "cmd_Solve", 2},
    {"", "mnu_Cog", 1.5},
    {"", "mnu_Help", 0.7},
    {"", "cmd_Done", 1.5},
    {"", "cmd_Copy", 0.3},
    {"", "cmd_copy", 0.3},
};

/// The home screen has two dozen entries that lead to the same reader.
bool Is_Help_Entry(const MenuEntry& entry) {
    for (const MenuEntry* above = entry.Parent(); above; above = above->Parent())
        if (above->Name() == "mnu_HelpHeader") return true;
    return false;
}

double Preferred(const Screen& top, const std::string& name) {
    for (const Preference& preference : kPreferences)
        if (top.Name().starts_with(preference.screen) && name.starts_with(preference.name)) return preference.weight;
    return 1;
}

/// A run that draws more than this in one go would hold up the walk; the drawing of each frame is as long as the run.
bool Plays_Long(const Screen& top, const std::string& button) {
    return top.Name() == "frm_Animate" && button == "cmd_Animate" &&
           double(Model.NSteps) * Model.NSteps * std::max<int>(Model.Cycles, 1) > 60000;
}

/// Of these it is said that they only look, when their dialogs are cancelled or their file refused.
bool May_Look(const Screen& top, const Action& action) {
    const std::string& name = action.control;
    if (action.deed == Deed::kPick) {
        const auto& entry = top.Get<MenuEntry>(name, action.index);
        if (Is_Help_Entry(entry)) return true;
        // On the screens of a linkage the file menu takes over what is being typed.
        if (top.Name() != "frm_HomeScreen" && entry.Parent() && entry.Parent()->Name() == "mnu_File") return false;
        for (const char* looking : {"mnu_Help",
                                    "mnu_Linkage",
                                    "mnu_Calculations",
                                    "mnu_HandHelp",
                                    "mnu_Open",
                                    "mnu_Saveas",
                                    "mnu_Lobetra",
                                    "mnu_Link_Data",
                                    "mnu_Export_Torque",
                                    "mnu_pdx",
                                    "mnu_Quit",
                                    "mnu_UserName",
                                    "mnu_FilePath",
                                    "mnu_AppPath",
                                    "mnu_ChangeUser",
                                    "mnu_About",
                                    "mnu_Cayley",
                                    "mnu_Checks",
                                    "mnu_Report",
                                    "mnu_Studies",
                                    "mnu_Explore",
                                    "mnu_New",
                                    "mnu_ViewPoles",
                                    "mnu_ViewVelocities",
                                    "mnu_ViewAccelerations",
                                    "mnu_ViewPinForces",
                                    "mnu_ViewShakingForce",
                                    "mnu_ViewCurvature",
                                    "mnu_ViewGrid",
                                    "mnu_ViewNames",
                                    "mnu_ViewGhosts",
                                    "mnu_SavePicture",
                                    "mnu_CopyPicture",
                                    "mnu_SaveMotion",
                                    "mnu_SaveDrawing",
                                    "mnu_SaveTable",
                                    "mnu_CopyTable"})
            if (name.starts_with(looking)) return true;
    }
    if (action.deed == Deed::kHover || action.deed == Deed::kGlass) return true;
    if (action.deed == Deed::kHaul && top.FindAs<PlotBox>(name, action.index)) return true;
    if (action.deed == Deed::kDrop)
        return top.Name() == "frm_HomeScreen" && std::ranges::count(Places::Foreign(), action.text) > 0;
    // A table of torques that is not taken leaves its box as it was.
    if (action.deed == Deed::kTick && name == "chk_Torque") return !top.Get<CheckBox>(name).Value && !Model.DiskFile;
    if (action.deed == Deed::kPress)
        for (const char* looking : {"cmd_PlotPrint", "cmd_Print", "cmd_Copy", "cmd_copy", "cmd_Quit", "cmd_Matrix"})
            if (name == looking && !(top.Name() == "frm_HomeScreen" && name == "cmd_Print")) return true;
    return false;
}

std::string Extension_Of(const FileDialog& dialog) {
    for (const char* extension : {".sva", ".out", ".trq", ".dat", ".pdx", ".gif", ".png", ".dxf", ".xlsx"})
        if (dialog.filter.find(extension) != std::string::npos) return extension;
    return ".vlk";
}

}  // namespace

Random_User::Random_User(std::uint64_t seed, int actions) : random_(seed), left_(actions), at_title_(Chance(0.1)) {}

double Random_User::Worn(const Action& action) {
    return std::sqrt(1.0 + used_[action.screen + "." + action.control + "." + std::to_string(action.index)]);
}

std::optional<Action> Random_User::Next(Screen& top, bool looking) {
    if (left_-- <= 0) return {};
    if (looking) return Way_Back(top);
    if (Screen* beside = Beside(); beside && Chance(0.15)) {
        Choices choices = All(*beside);
        return Pick_One(choices);
    }
    Choices choices = All(top);
    std::optional<Action> action = Pick_One(choices);
    if (action && May_Look(top, *action) && Chance(0.6)) action->looks = true;
    return action;
}

/// Back from where the user only looks.
Action Random_User::Way_Back(Screen& top) {
    Choices ways;
    for (const char* button : {"cmd_NoQuit", "cmd_Close", "cmd_Done", "cmd_Back", "cmd_Cancel"})
        if (const Action way = Press(top.Name(), button); Possible(top, way)) ways.push_back({way, 1});
    if (top.Name() == "frm_About") ways.push_back({Click(top.Name()), 1});
    if (top.CancelButton) ways.push_back({Escape(top.Name()), 0.5});
    ways.push_back({Close(top.Name()), ways.empty() ? 1 : 0.3});
    Action way = *Pick_One(ways);
    way.looks = true;
    return way;
}

std::optional<Action> Random_User::Pick_One(Choices& choices) {
    double sum = 0;
    for (const Choice& choice : choices) sum += choice.weight;
    if (sum <= 0) return {};
    double at = sum * Below(1 << 30) / (1 << 30);
    for (Choice& choice : choices) {
        at -= choice.weight;
        if (at > 0) continue;
        const Action& action = choice.action;
        ++used_[action.screen + "." + action.control + "." + std::to_string(action.index)];
        return action;
    }
    return choices.back().action;
}

Random_User::Choices Random_User::All(Screen& top) {
    Choices choices;
    const auto boxes = static_cast<double>(std::ranges::count_if(
        top.Controls(), [](const Control* control) { return dynamic_cast<const TextBox*>(control); }));
    for (Control* control : top.Controls()) Add(choices, top, *control, boxes);
    for (const Screen* screen : Screens::Made())
        for (Control* control : screen->Controls())
            if (auto* timer = dynamic_cast<Timer*>(control); timer && Running(*timer))
                choices.push_back({Pulse(screen->Name(), timer->Name()), 6});
    for (Choice& choice : choices) choice.weight *= Preferred(top, choice.action.control) / Worn(choice.action);
    if (top.OnDrop) choices.push_back({Drop(top.Name(), Dropped()), 0.5});
    choices.push_back({Return(top.Name()), 0.5});
    if (top.CancelButton) choices.push_back({Escape(top.Name()), 0.3});
    choices.push_back({Close(top.Name()), top.Name() == "frm_HomeScreen" ? 0.05 : 0.4});
    if (top.Name() == "frm_About") choices.push_back({Click(top.Name()), 3});
    return choices;
}

void Random_User::Add(Choices& choices, Screen& top, Control& control, double boxes) {
    const std::string& screen = top.Name();
    const std::string& name = control.Name();
    const int index = control.Index();
    if (auto* entry = dynamic_cast<MenuEntry*>(&control)) {
        // A film of many positions would hold up the walk.
        const bool long_film = name == "mnu_SaveMotion" && Model.NSteps > 40;
        if (In_Reach(*entry) && !long_film)
            choices.push_back({Pick(screen, name, index), Is_Help_Entry(*entry) ? 0.04 : 0.4});
        return;
    }
    if (dynamic_cast<Shortcut*>(&control)) {
        // The help of a screen is no step of its work.
        if (const Action keys = Keys(screen, name); Possible(top, keys))
            choices.push_back({keys, name == "key_Help" ? 0.04 : 0.7});
        return;
    }
    auto* visual = dynamic_cast<Visual*>(&control);
    if (!visual || !In_Reach(*visual)) return;
    if (dynamic_cast<CommandButton*>(&control)) {
        if (!Plays_Long(top, name)) choices.push_back({Press(screen, name, index), 1.5});
    } else if (auto* box = dynamic_cast<TextBox*>(&control)) {
        if (!box->Locked)
            choices.push_back({Type(screen, name, index, Text_For(top, name, index, box->Text)), 4 / std::sqrt(boxes)});
        choices.push_back({Go(screen, name, index), 1 / boxes});
    } else if (dynamic_cast<OptionButton*>(&control)) {
        choices.push_back({Option(screen, name, index), 0.7});
    } else if (dynamic_cast<CheckBox*>(&control)) {
        choices.push_back({Tick(screen, name, index), 0.7});
    } else if (auto* list = dynamic_cast<ComboBox*>(&control)) {
        const int items = static_cast<int>(list->Items().size());
        if (items > 0) choices.push_back({Item(screen, name, index, Below(items)), 3});
        choices.push_back({Write(screen, name, index, Text_For(top, name, index, list->Text)), 0.4});
        if (list->OnDblClick) choices.push_back({Double_List(screen, name, index), 0.3});
    } else if (auto* bar = dynamic_cast<ScrollBar*>(&control)) {
        const int low = std::min(bar->Min(), bar->Max());
        const int value = low + Below(std::abs(bar->Max() - bar->Min()) + 1);
        choices.push_back({Chance(0.5) ? Scroll(screen, name, index, value) : Thumb(screen, name, index, value), 1});
    } else if (auto* picture = dynamic_cast<PictureBox*>(&control)) {
        Add_Picture(choices, top, *picture);
    } else if (const int places = Places_To_Seek(top, Seek(screen, name, index, 1)); places > 0) {
        choices.push_back({Seek(screen, name, index, 1 + Below(places)), 0.7});
    }
}

void Random_User::Add_Picture(Choices& choices, const Screen& top, const PictureBox& box) {
    const std::string &screen = top.Name(), &name = box.Name();
    if (box.OnMouseMove) choices.push_back({Mouse_Over(top, box), 6});
    if (box.Magnifies) {
        const auto [x, y] = Somewhere(box);
        choices.push_back({Turn_Wheel(screen, name, x, y, Below(9) - 4), 0.5});
        const double far = Chance(0.7) ? 0.1 : 0.5;
        const auto off = [&] { return far * (Below(201) - 100) / 100; };
        choices.push_back(
            {Haul(screen, name, x, y, x + off(), y + off(), Any<int>({0, 0, 0, 0, 2, 4, 1})), box.OnSeize ? 6.0 : 0.3});
        if (box.OnHover) choices.push_back({Hover(screen, name, x, y), 0.7});
        const std::vector<std::string> keys = Single_Keys(box.Keys);
        // With a joint in the hand there is more to do.
        if (!keys.empty()) choices.push_back({On_Picture(screen, name, Any(keys)), box.Lit.Get() ? 8.0 : 1.0});
    }
    if (dynamic_cast<const PlotBox*>(&box)) {
        const auto part = [this] { return Below(1001) / 1000.0; };
        choices.push_back({Haul(screen, name, part(), part(), part(), part(), 0, box.Index()), 0.3});
        choices.push_back({Turn_Wheel(screen, name, part(), part(), Below(9) - 4, box.Index()), 0.3});
    }
    if (box.OnClick) choices.push_back({Click_Picture(top.Name(), box.Name(), box.Index()), 0.3});
    if (box.OnDblClick) choices.push_back({Double_Picture(top.Name(), box.Name(), box.Index()), 0.3});
}

std::pair<double, double> Random_User::Somewhere(const PictureBox& box) {
    if (const auto* explore = dynamic_cast<const frm_Explore*>(&box.Owner()); explore && Chance(0.7)) {
        // Where a body is put down, which can be taken, or a dot of the map.
        const std::vector<design::Place> places = design::Absolute_Positions(explore->The_Task());
        const auto place = places[static_cast<std::size_t>(Below(static_cast<int>(places.size())))].at;
        const Picture& drawing = box.Drawing();
        return {box.Through.Get().Seen_Across((place.real() - drawing.Left()) / (drawing.Right() - drawing.Left())),
                box.Through.Get().Seen_Down((place.imag() - drawing.Top()) / (drawing.Bottom() - drawing.Top()))};
    }
    const Joint joint = kJoints[Below(4)];
    const auto* bar = box.Owner().FindAs<ScrollBar>("hsc_step");
    const auto place = bar && Model.RunStands ? Place_Of(joint, Model, bar->Value()) : std::nullopt;
    if (!place || Chance(0.2)) return {Below(1001) / 1000.0, Below(1001) / 1000.0};
    const Picture& drawing = box.Drawing();
    const Glass& glass = box.Through;
    return {glass.Seen_Across((place->x - drawing.Left()) / (drawing.Right() - drawing.Left())),
            glass.Seen_Down((Model.FlipSum - place->y - drawing.Top()) / (drawing.Bottom() - drawing.Top()))};
}

Action Random_User::Mouse_Over(const Screen& top, const PictureBox& box) {
    constexpr int kLeft = 1, kShift = 1;
    const bool drags = Chance(0.8);
    return Mouse(top.Name(), box.Name(), box.Index(), Below(1001) / 1000.0, Below(1001) / 1000.0,
                 drags ? kLeft : Below(8), drags ? kShift : Below(8));
}

std::string Random_User::Number_Near(const std::string& now) {
    double value = 0;
    if (Failure_Of([&] { value = Val(Ungrouped(now)); }) != 0 || std::abs(value) > 1e4) value = 1;
    if (value == 0) value = 0.5 * (1 + Below(8));
    constexpr std::array<double, 8> kFactors = {0.5, 0.8, 0.9, 1.05, 1.1, 1.25, 2, -1};
    value *= kFactors[static_cast<std::size_t>(Below(static_cast<int>(kFactors.size())))];
    return Text_Of(FNRound(value, Below(4) + 1));
}

/// A file of any kind that is taken, now and then one that is not.
std::string Random_User::Dropped() {
    if (Chance(0.15)) return Any(Places::Foreign());
    const std::string extension = Any<std::string>({".vlk", ".sva", ".out", ".trq"});
    return Chance(0.15) ? Any(Places::Broken(extension)) : Any(Places::Good(extension));
}

/// Limits, speed and acceleration, with few steps mostly.
std::string Random_User::Limit(int index) {
    const bool by_time = Model.Calctype == 2;
    if (Chance(0.03)) return by_time ? "0.0025" : "0.25";
    switch (index) {
        case 0: return by_time ? Any<std::string>({"0", "0.1", "1"}) : Any<std::string>({"0", "10", "45", "-30", "90"});
        case 1:
            return by_time ? Any<std::string>({"0.5", "1", "2"}) : Any<std::string>({"90", "180", "360", "400", "20"});
        case 2:
            return by_time ? Any<std::string>({"0.05", "0.1", "0.2", "0.07"})
                           : Any<std::string>({"10", "15", "20", "30", "45", "7"});
        case 3: return Any<std::string>({"10", "1", "-5", "0", "25", "6.5"});
        default: return Any<std::string>({"0", "-5", "2", "10", "30"});
    }
}

std::string Random_User::Text_For(const Screen& top, const std::string& box, int index, const std::string& now) {
    if (box == "txt_Cycles") return Any<std::string>({"1", "2", "3", "0", "-1", "abc", "", "1.5"});
    if (box == "txt_Figure" || box == "txt_UserName" || box == "txt_Find")
        return Any<std::string>({"A press", "", "of", std::string(300, 'x'), "\"quoted\"", "a,b", " ", "Figure"});
    if (box == "txt_Filename") return Any<std::string>({"mine", "", "a/b", "other.vlk", "na\"me"});
    if (box == "cmb_Harmonics") return Any<std::string>({"3", "0", "-2", "8", "abc", "", "18", "200", "3500"});
    if (box.starts_with("cmb_Var")) return Any<std::string>({"Omega4", "omega4", "", "nonsense", "Theta3"});
    if (box.starts_with("cmb_Com")) return Any<std::string>({"X", "x", "Mag", "", "Z"});
    if (box == "txt_Area")
        return Any<std::string>({"anywhere", "0 0 to 4 3", "-4 -4 to 8 8", "at 1 2", "at 0 0, 3 1", "here", "1 2 3", "",
                                 "at 1e9 0", "8 8 to -4 -4"});
    if (box == "txt_Least") return Any<std::string>({"0", "30", "60", "91", "nan", ""});
    if (Chance(0.12)) return Any(kNasty);
    if (box == "txt_initial") return Limit(index);
    if (box == "txt_Thetazero") return Any<std::string>({"0", "30", "60", "90", "-20", "400"});
    const bool angle = (box == "txt_Linkout" && (index == 5 || index == 6)) || box.starts_with("txt_Ang") ||
                       box.starts_with("txt_Alpha") || box.starts_with("txt_Beta") || box.starts_with("txt_Gamma");
    if (angle && Chance(0.7) && top.Name() != "frm_Balance")
        return Any<std::string>({"0", "30", "-45", "90", "120", "200", "359.99", "61.5", "-12.25"});
    return Number_Near(now);
}

Reply Random_User::To_Message(const Message& message, const Action& action, const std::vector<Reply>& given) {
    Reply reply{Reply::To::kMessage, Harmless(message.buttons)};
    const bool prints = message.text.find("print") != std::string::npos;
    if (action.looks && !prints) return reply;
    switch (message.buttons) {
        case Buttons::kYesNo: reply.answer = Chance(0.5) ? Answer::kYes : Answer::kNo; break;
        case Buttons::kOkCancel: reply.answer = Chance(0.7) ? Answer::kOk : Answer::kCancel; break;
        case Buttons::kRetryCancel:
            reply.answer = given.size() < 4 && Chance(0.5) ? Answer::kRetry : Answer::kCancel;
            break;
        case Buttons::kAbortRetryIgnore:
            if (Chance(0.2))
                reply.answer = Answer::kAbort;
            else if (given.size() < 6 && Chance(0.3))
                reply.answer = Answer::kRetry;
            break;
        case Buttons::kOk: break;
    }
    return reply;
}

Reply Random_User::To_File(const FileDialog& dialog, bool save, const Action& action, const std::vector<Reply>& given) {
    Reply reply{.to = save ? Reply::To::kSave : Reply::To::kOpen};
    const std::string extension = Extension_Of(dialog);
    if (save) {
        // Where nothing can be written nothing is saved, and the file in hand stays the one it was.
        const bool refused = action.looks && !Model.SavedFlag && Chance(0.5);
        if (refused) reply.path = Any(Places::Unwritable());
        if (action.looks || given.size() > 5 || Chance(0.15)) return reply;
        reply.path = Chance(0.15) ? Any(Places::Unwritable()) : Any(Places::Writable(extension));
        return reply;
    }
    if (Chance(action.looks ? 0.5 : 0.1)) return reply;
    if (action.looks || Chance(0.1))
        reply.path = Any(Places::Foreign());
    else
        reply.path = Chance(0.15) ? Any(Places::Broken(extension)) : Any(Places::Good(extension));
    return reply;
}

Reply Random_User::To_Printer(const Action&, const std::vector<Reply>&) {
    return {.to = Reply::To::kPrinter, .accepted = Chance(0.6)};
}

}  // namespace verlink::walk
