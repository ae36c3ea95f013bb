// The rules of boxes and options: the screen on top shows the record, and reading it back changes nothing.
#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "dynamics/mass_properties.h"
#include "platform/guard.h"
#include "tests/walk/aside.h"
#include "tests/walk/record.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using namespace platform;

void Pending::Note(const Screen& top, const Action& action) {
    if (action.deed == Deed::kType || action.deed == Deed::kWrite) {
        if (const Control* control = top.Find(action.control, action.index))
            typed_[top.Name()].insert(control->ObjectName());
    }
    // Return is for the default button, unless a box takes it for itself.
    const Control* pressed = action.deed == Deed::kPress ? top.Find(action.control, action.index) : nullptr;
    const auto* box = dynamic_cast<const TextBox*>(top.Focus());
    if (action.deed == Deed::kReturn && !(box && box->OnReturn)) pressed = top.DefaultButton;
    if (pressed && (pressed->Name() == "cmd_Calc" || pressed->Name() == "cmd_Solve")) taken_ = top.Name();
}

void Pending::Settle() {
    // A button that could not do its work leaves the way on closed, one that a refusal kept from being pressed leaves
    // the refused box in hand: what was typed still waits.
    if (const Screen* screen = taken_.empty() ? nullptr : Screens::Find(taken_)) {
        const auto* on = screen->FindAs<CommandButton>("cmd_Done");
        // So does each text that was refused.
        if (on && on->Enabled)
            std::erase_if(typed_[taken_], [&](const std::string& name) {
                return std::ranges::none_of(screen->Controls(), [&](const Control* control) {
                    const auto* box = dynamic_cast<const TextBox*>(control);
                    return box && box->ObjectName() == name && (box->Touched() || box->Refused());
                });
            });
    }
    taken_.clear();
    std::erase_if(typed_, [](const auto& entry) {
        const Screen* screen = Screens::Find(entry.first);
        return !screen || !screen->Visible();
    });
}

bool Pending::Typed(const Control& control) const {
    // It may have waited while its screen was away.
    if (const auto* box = dynamic_cast<const TextBox*>(&control); box && box->Touched()) return true;
    const auto found = typed_.find(control.Owner().Name());
    return found != typed_.end() && found->second.contains(control.ObjectName());
}

bool Pending::In_Hand(const Control& control) const {
    if (control.Owner().Focus() != &control) return false;
    // What is done again is typed by nobody's hand.
    const auto* box = dynamic_cast<const TextBox*>(&control);
    return Typed(control) || (box && box->Touched());
}

bool Pending::Any_In_Hand(const Screen& screen) const { return screen.Focus() && In_Hand(*screen.Focus()); }

namespace {

/// What a box is to show: a value, and how much of it its rounding takes away.
struct Shown {
    const char* box;
    int index;
    double value;
    double rounding;
    bool may_wait = false;  ///< what was typed there waits for a button
};

double Half_Unit(int decimals) { return 0.5 * std::pow(10.0, -std::clamp(decimals, 0, 6)); }

constexpr double kAsTyped = 0;

Shown Length(const char* box, int index, double stored, bool may_wait = false) {
    return {box, index, stored * Shown_Factor(), Half_Unit(Model.DecLengthShown), may_wait};
}

using List = std::vector<Shown>;

void Add_Links(List& list) {
    const auto& m = Model;
    list.push_back(Length("txt_Linkout", 0, m.L1));
    list.push_back(Length("txt_Linkout", 1, m.L2));
    list.push_back(Length("txt_Linkout", 2, m.L3));
    list.push_back(Length("txt_Linkout", 3, m.L4));
    list.push_back(Length("txt_Linkout", 4, m.Rpa));
    list.push_back({"txt_Linkout", 5, m.Delta, Half_Unit(2)});
    list.push_back({"txt_Linkout", 6, m.Link1Angle, Half_Unit(2)});
    list.push_back(Length("txt_Linkout", 15, m.Link1X));
    list.push_back(Length("txt_Linkout", 16, m.Link1Y));
}

void Add_Limits(List& list) {
    const auto& m = Model;
    const bool by_time = m.Calctype == 2;
    if (!by_time && m.Calctype != 3) return;
    // A synthesis has its range in two decimals as text, which is what boxes and files hold.
    const auto told = [](const std::string& text) { return double(Single(Val(text))); };
    list.push_back({"txt_initial", 0, by_time ? double(m.TimeStart) : told(m.ThetaStartStr), kAsTyped});
    list.push_back({"txt_initial", 1, by_time ? double(m.TimeEnd) : told(m.ThetaEndStr), kAsTyped});
    list.push_back({"txt_initial", 2, by_time ? double(m.TimeStep) : told(m.ThetaStepStr), kAsTyped});
}

/// On the input screen speed, acceleration and the angle at time zero are taken by a calculation, so what is typed
/// there may wait for one; it may not while results count.
List Of_Input() {
    const auto& m = Model;
    List list;
    Add_Links(list);
    Add_Limits(list);
    const bool waits = !m.Calculated;
    for (Shown& limit : list)
        if (limit.box == std::string("txt_initial")) limit.may_wait = waits;
    if (m.Calctype < 4) list.push_back({"txt_initial", 3, m.Omega2Input, kAsTyped, waits});
    if (m.Calctype < 3) list.push_back({"txt_initial", 4, m.Alpha2, kAsTyped, waits});
    if (m.Calctype == 5) list.push_back({"txt_initial", 4, m.Delta2, kAsTyped, waits});
    // With angle steps the box jumps to an angle and shows where the picture is.
    if (m.Calctype < 3) list.push_back({"txt_Thetazero", kNoIndex, m.ThetaZero, kAsTyped, waits});
    if (m.Calctype == 1) list.push_back({"txt_initial", 0, m.ThetaZero, kAsTyped, waits});
    return list;
}

/// On the animate screen the settings of a run are taken when it is played or a picture is drawn.
List Of_Animate() {
    List list;
    Add_Links(list);
    Add_Limits(list);
    list.push_back({"txt_Cycles", kNoIndex, double(Model.Cycles), Half_Unit(0), true});
    list.push_back({"txt_LineAngle", kNoIndex, Model.LineAngle, Half_Unit(0), true});
    list.push_back({"cmb_wait", kNoIndex, double(Model.AnimateWait), Half_Unit(0)});
    return list;
}

/// The dynamics screen holds no numbers of its own, but for what was typed and not solved for yet.
List Of_Masses() {
    const auto& m = Model;
    List list;
    for (int link = 2; link <= 4; ++link) {
        list.push_back({"txt_Mass", link, m.LinkMass(link), Half_Unit(m.DecMass), true});
        list.push_back({"txt_Inertia", link, m.LinkInertia(link), Half_Unit(m.DecInertia), true});
        list.push_back(Length("txt_DistCG", link, m.CG(link, 0), true));
        list.push_back({"txt_AngCG", link, m.CG(link, 1) * kRadToDeg, Half_Unit(2), true});
    }
    for (int link = 3; link <= 4; ++link) {
        list.push_back({"txt_MagForce", link, m.ExtForceMag(link), kAsTyped, true});
        list.push_back({"txt_AngForce", link, m.ExtForceAng(link), kAsTyped, true});
        list.push_back(Length("txt_DistP", link, link == 3 ? m.ForceDist3 : m.ForceDist4, true));
        list.push_back({"txt_AngP", link, link == 3 ? m.ForceAng3 : m.ForceAng4, kAsTyped, true});
        // A torque from a file takes the place of the box, which shows 0 and is closed.
        if (link == 3 || !m.TorqueImported)
            list.push_back({"txt_Torque", link, m.ExtTorque(link), Half_Unit(m.DecTorque), true});
    }
    list.push_back({"txt_Frict", 3, m.FrictionForce, Half_Unit(m.DecForce), true});
    return list;
}

/// The synthesis screens likewise, until Calculate.
List Of_Synthesis(const Screen& top) {
    const auto& m = Model;
    List list;
    list.push_back(Length("txt_P21x", kNoIndex, m.P21x, true));
    list.push_back(Length("txt_P21y", kNoIndex, m.P21y, true));
    list.push_back({"txt_Alpha2", kNoIndex, m.SynAlpha2, Half_Unit(2), true});
    // Specified pivots give the turns: their boxes are empty until they have been found, then show three decimals.
    if (!(top.Name() == "frm_Synth3" && m.SpecifiedPivots)) {
        list.push_back({"txt_Beta2", kNoIndex, m.SynBeta2, Half_Unit(2), true});
        list.push_back({"txt_Gamma2", kNoIndex, m.SynGamma2, Half_Unit(2), true});
    }
    if (top.Name() != "frm_Synth3") {
        // Of a dyad that there is not no direction is found.
        const auto found = [&top](const char* box) { return !top.Get<TextBox>(box).Text.Get().empty(); };
        const bool given = top.Name() == "frm_Synth2A";
        if (given || found("txt_Theta")) list.push_back({"txt_Theta", kNoIndex, m.SynTheta, Half_Unit(2), true});
        list.push_back({"txt_Phi", kNoIndex, m.SynPhi, Half_Unit(2), true});
        if (given || found("txt_Sigma")) list.push_back({"txt_Sigma", kNoIndex, m.SynSigma, Half_Unit(2), true});
        list.push_back({"txt_Xi", kNoIndex, m.SynXi, Half_Unit(2), true});
        return list;
    }
    list.push_back(Length("txt_P31x", kNoIndex, m.P31x, true));
    list.push_back(Length("txt_P31y", kNoIndex, m.P31y, true));
    list.push_back({"txt_Alpha3", kNoIndex, m.SynAlpha3, Half_Unit(2), true});
    if (!m.SpecifiedPivots) {
        list.push_back({"txt_Beta3", kNoIndex, m.SynBeta3, Half_Unit(2), true});
        list.push_back({"txt_Gamma3", kNoIndex, m.SynGamma3, Half_Unit(2), true});
        return list;
    }
    list.push_back(Length("txt_O2", 0, m.O2x, true));
    list.push_back(Length("txt_O2", 1, m.O2y, true));
    list.push_back(Length("txt_O4", 0, m.O4x, true));
    list.push_back(Length("txt_O4", 1, m.O4y, true));
    list.push_back(Length("txt_P1", 0, m.P1x, true));
    list.push_back(Length("txt_P1", 1, m.P1y, true));
    return list;
}

List Of_Balance() {
    List list;
    for (const int link : {2, 4}) {
        list.push_back({"txt_BerkMass", link, Model.BerkMass(link), Half_Unit(3)});
        list.push_back({"txt_Radius", link, Model.BerkRadius(link) * Shown_Factor(), Half_Unit(3)});
    }
    return list;
}

List Boxes_Of(const Screen& top) {
    const std::string& name = top.Name();
    if (name == "frm_Inputnew") return Of_Input();
    if (name == "frm_Animate") return Of_Animate();
    if (name == "frm_MassProp") return Of_Masses();
    if (name == "frm_Balance") return Of_Balance();
    if (name.starts_with("frm_Synth")) return Of_Synthesis(top);
    return {};
}

Found Check_Box(const Screen& top, const Shown& shown, const Pending& pending) {
    std::string text;
    const Visual* control = nullptr;
    if (const auto* box = top.FindAs<TextBox>(shown.box, shown.index)) {
        control = box;
        text = box->Text;
    } else if (const auto* list = top.FindAs<ComboBox>(shown.box, shown.index)) {
        control = list;
        text = list->Text;
    }
    if (!control || !control->Visible) return {};
    // Free choices are typed by the screen that they come from.
    const auto* typed = dynamic_cast<const TextBox*>(control);
    const bool waits = pending.Typed(*control) || (typed && typed->Touched());
    if (pending.In_Hand(*control) || (shown.may_wait && waits)) return {};
    const double allowed = shown.rounding * 1.0001 + 2e-6 * std::abs(shown.value) + 1e-30;
    bool beyond = false;
    for (const std::string& way : {text, Ungrouped(text)}) {
        double value = 0;
        if (Failure_Of([&] { value = Val(way); }) != 0)
            beyond = true;
        else if (std::abs(value - shown.value) <= allowed)
            return {};
    }
    const std::string name = top.Name() + "." + control->ObjectName();
    return Finding{"boxes", beyond ? top.Name() + " holds a number that no field holds" : name,
                   name + " says \"" + text + "\", the record " + Word_Of(shown.value)};
}

Found Differs(const Screen& top, const std::string& what, const std::string& shown, const std::string& record) {
    if (shown == record) return {};
    return Finding{"boxes", top.Name() + " " + what,
                   top.Name() + " shows " + what + " " + shown + ", the record " + record};
}

std::string Chosen(const Screen& top, const char* name) {
    for (const Control* control : top.Controls()) {
        const auto* option = dynamic_cast<const OptionButton*>(control);
        if (option && option->Name() == name && option->Value) return std::to_string(option->Index());
    }
    return "none";
}

Found Check_Linkage_Options(const Screen& top) {
    const auto& m = Model;
    if (Found found = Differs(top, "circuit", Chosen(top, "opt_OpenCross"), m.CircuitSign == -1 ? "0" : "1"))
        return found;
    if (Found found = Differs(top, "polar", Chosen(top, "opt_Polar"), m.PolarCoords ? "1" : "0")) return found;
    constexpr int kTargets[] = {2, 0, 1, 3, 4};
    const std::string drag = Chosen(top, "opt_Shift_Drag");
    if (Found found =
            Differs(top, "target of a drag", drag == "none" ? drag : std::to_string(kTargets[std::stoi(drag)]),
                    std::to_string(m.ShiftDragTarget)))
        return found;
    if (top.Name() != "frm_Inputnew") return {};
    if (Found found = Differs(top, "modulo", Chosen(top, "opt_Modulo"), m.ModuloMode == "180" ? "0" : "1"))
        return found;
    if (m.Calctype < 4) return Differs(top, "run type", Chosen(top, "opt_Calctype"), std::to_string(m.Calctype));
    return {};
}

const char* Length_Unit() {
    switch (Model.Units) {
        case 1: return "in";
        case 2: return "ft";
        case 3: return "m";
        case 4: return "cm";
        default: return "mm";
    }
}

Found Check_Units(const Screen& top) {
    for (const Control* control : top.Controls()) {
        const auto* label = dynamic_cast<const Label*>(control);
        if (!label || !label->Visible || (label->Name() != "lbl_Units" && label->Name() != "lbl_Length")) continue;
        if (label->Caption != Length_Unit())
            return Finding{"boxes", top.Name() + " unit of length",
                           label->ObjectName() + " says " + label->Caption.Get() + ", the units are " +
                               std::to_string(Model.Units)};
    }
    return {};
}

Found Check_Flag(const Screen& home, int index, bool shown) {
    const auto& label = home.Get<Label>("lbl_Status", index);
    if (label.Visible == shown) return {};
    return Finding{"boxes", "frm_HomeScreen flag " + std::to_string(index),
                   "the flag \"" + label.Caption.Get() + "\" is " + (shown ? "not shown" : "shown")};
}

Found Check_Home(const Screen& home) {
    const auto& m = Model;
    const bool flags[] = {true,      m.LinkDriven,  m.CamDriven, m.DynamicsDone, m.BalanceDone,
                          m.FFTDone, m.Synthesized, true,        m.SavedFlag};
    for (int i = 0; i <= 8; ++i)
        if (Found found = Check_Flag(home, i, flags[i] && m.Calculated)) return found;
    constexpr const char* kUnits[] = {"in-lb-bl-s", "ft-lb-sl-s", "m-kg-N-s", "cm-kg-N-s", "mm-kg-N-s"};
    if (Found found = Differs(home, "units", home.Get<Label>("lbl_Status", 10).Caption, kUnits[m.Units - 1]))
        return found;
    for (int system = 1; system <= 5; ++system)
        if (home.Get<MenuEntry>("mnu_pick", system).Checked != (system == m.Units))
            return Finding{
                "boxes", "frm_HomeScreen ticked units",
                "units " + std::to_string(system) + " are ticked or not, in force are " + std::to_string(m.Units)};
    // A model that is not calculated has a picture too, if its limits are known and it can close.
    const bool pictured = home.Get<PictureBox>("Picture1").Visible;
    if (m.Calculated && !pictured) return Finding{"boxes", "frm_HomeScreen picture", "no picture"};
    if (pictured && m.NSteps < 0) return Finding{"boxes", "frm_HomeScreen picture", "a picture of nothing"};
    return {};
}

}  // namespace

/// The boxes and options of the screen on top show the record, scaled to the unit and rounded.
/// Except: the box that is being typed into; and what waits for a button, as told above at each screen.
Found Screen_Shows_The_Record(const Screen& top, const Pending& pending) {
    for (const Shown& shown : Boxes_Of(top))
        if (Found found = Check_Box(top, shown, pending)) return found;
    if (Found found = Check_Units(top)) return found;
    if (top.Name() == "frm_Inputnew" || top.Name() == "frm_Animate") return Check_Linkage_Options(top);
    if (top.Name() == "frm_HomeScreen") return Check_Home(top);
    return {};
}

namespace {

/// Takes the boxes of a screen into the record, as its own handlers do.
void Read_Back(Screen& top) {
    if (top.Name() == "frm_MassProp") return Get_Mass_Properties(top, Model, Model);
    Get_Linkage_Geometry(top);
    if (Model.Calctype == 2 || Model.Calctype == 3) Get_Initial_Conditions(top);
}

struct Value {
    const char* name;
    double value;
    double rounding;
};

/// What is read back, by name, each with what the rounding of its box may change; the last digits count for none.
std::vector<Value> Read_Values() {
    const auto& m = Model;
    const double length = Half_Unit(m.DecLengthShown) / Shown_Factor();
    // One form of link 1 follows from the other, to its last digits.
    const double place = 4e-6 * m.L1;
    const double direction = m.L1 > 0 ? 1e-3 : 360;
    std::vector<Value> values = {{"L1", m.L1, 0},
                                 {"L2", m.L2, 0},
                                 {"L3", m.L3, 0},
                                 {"L4", m.L4, 0},
                                 {"Rpa", m.Rpa, 0},
                                 {"Delta", m.Delta, 0},
                                 {"DeltaRad", m.DeltaRad, 0},
                                 {"Link1X", m.Link1X, place},
                                 {"Link1Y", m.Link1Y, place},
                                 {"Link1Angle", m.Link1Angle, direction},
                                 {"CircuitSign", double(m.CircuitSign), 0},
                                 {"Delta2", m.Delta2, 0},
                                 // A synthesis rounds its range where it becomes text.
                                 {"ThetaStart", m.ThetaStart, 0.0051},
                                 {"ThetaEnd", m.ThetaEnd, 0.0051},
                                 {"ThetaStep", m.ThetaStep, 0.0051},
                                 {"TimeStart", m.TimeStart, 0},
                                 {"TimeEnd", m.TimeEnd, 0},
                                 {"TimeStep", m.TimeStep, 0},
                                 {"FrictionForce", m.FrictionForce, Half_Unit(m.DecForce)}};
    constexpr const char* kMasses[] = {"LinkMass(2)", "LinkMass(3)", "LinkMass(4)"};
    constexpr const char* kInertias[] = {"LinkInertia(2)", "LinkInertia(3)", "LinkInertia(4)"};
    constexpr const char* kCentres[] = {"CG(2,0)", "CG(3,0)", "CG(4,0)"};
    for (int link = 2; link <= 4; ++link) {
        values.push_back({kMasses[link - 2], m.LinkMass(link), Half_Unit(m.DecMass)});
        values.push_back({kInertias[link - 2], m.LinkInertia(link), Half_Unit(m.DecInertia)});
        values.push_back({kCentres[link - 2], m.CG(link, 0), length});
    }
    return values;
}

Found Compare_Values(const Screen& top, const char* rule, const std::vector<Value>& before,
                     const std::vector<Value>& after, bool exact) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        double apart = std::abs(after[i].value - before[i].value);
        if (before[i].name == std::string("Link1Angle")) apart = std::abs(std::remainder(apart, 360));
        const double allowed = exact ? 0.0 : before[i].rounding * 1.0001 + 4e-6 * std::abs(before[i].value) + 1e-30;
        if (apart > allowed)
            return Finding{rule, top.Name() + " " + before[i].name,
                           std::string(before[i].name) + " is " + Word_Of(before[i].value) + ", read back " +
                               Word_Of(after[i].value)};
    }
    return {};
}

}  // namespace

bool Is_Read_Back(const Screen& top) {
    return top.Name() == "frm_Inputnew" || top.Name() == "frm_Animate" || top.Name() == "frm_MassProp";
}

/// Reading all boxes back changes nothing of a linkage, nothing else beyond the rounding of a box, and once that has
/// come, nothing at all. Except: while a box is being typed into, or what was typed waits for a button.
Found Reading_Back_Changes_Nothing(const Aside& aside, Screen& top, const Pending& pending) {
    if (!Is_Read_Back(top) || pending.Any_In_Hand(top)) return {};
    for (const Shown& shown : Boxes_Of(top))
        if (const Control* control = top.Find(shown.box, shown.index);
            control && pending.Typed(*control) && shown.may_wait)
            return {};
    aside.Again();
    const std::vector<Value> before = Read_Values();
    Read_Back(top);
    if (Found found = Compare_Values(top, "read back", before, Read_Values(), false)) return found;
    // What was typed with more digits than its box shows is rounded when the program writes the boxes.
    Read_Back(top);
    const std::vector<Value> rounded = Read_Values();
    if (Found found = Compare_Values(top, "read back", before, rounded, false)) return found;
    Read_Back(top);
    return Compare_Values(top, "read back again", rounded, Read_Values(), true);
}

}  // namespace verlink::walk
