// The record and the screens in words.
#include "tests/walk/record.h"

#include <charconv>
#include <cstring>
#include <functional>
#include <utility>

#include "core/text.h"
#include "files/model_file.h"
#include "platform/guard.h"
#include "screens/view_menu.h"

namespace verlink::walk {

using namespace platform;

std::string Word_Of(double value) {
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, end.ptr};
}

namespace {

std::string Word(const std::string& text) { return "\"" + text + "\""; }
std::string Word(bool flag) { return flag ? "yes" : "no"; }
std::string Word(Single value) { return Word_Of(value); }
std::string Word(Integer value) { return std::to_string(int{value}); }
std::string Word(Long value) { return std::to_string(static_cast<long>(value)); }

void Add_Geometry(Words& words) {
    const auto add = [&](const char* name, const auto& value) { words.emplace_back(name, Word(value)); };
    const Geometry& m = Model;
    add("L1", m.L1);
    add("L2", m.L2);
    add("L3", m.L3);
    add("L4", m.L4);
    add("Rpa", m.Rpa);
    add("Delta", m.Delta);
    add("DeltaRad", m.DeltaRad);
    add("Link1X", m.Link1X);
    add("Link1Y", m.Link1Y);
    add("Link1Angle", m.Link1Angle);
    add("Link1AngleRad", m.Link1AngleRad);
    add("Link1LocalX", m.Link1LocalX);
    add("Link1LocalY", m.Link1LocalY);
    for (int i = 0; i <= 8; ++i)
        words.emplace_back("LinkArray(" + std::to_string(i) + ")", Word(Single(m.LinkArray(i))));
    add("Parallelogram", m.Parallelogram);
    add("PolarCoords", m.PolarCoords);
}

void Add_Drive(Words& words) {
    const auto add = [&](const char* name, const auto& value) { words.emplace_back(name, Word(value)); };
    const Drive& m = Model;
    add("CircuitIndex", m.CircuitIndex);
    add("CircuitSign", m.CircuitSign);
    add("CircuitName", m.CircuitName);
    add("Calctype", m.Calctype);
    add("ModuloMode", m.ModuloMode);
    add("NSteps", m.NSteps);
    add("ThetaZero", m.ThetaZero);
    add("ThetaStart", m.ThetaStart);
    add("ThetaEnd", m.ThetaEnd);
    add("ThetaStep", m.ThetaStep);
    add("ThetaStartRad", m.ThetaStartRad);
    add("ThetaEndRad", m.ThetaEndRad);
    add("ThetaStepRad", m.ThetaStepRad);
    add("TimeStart", m.TimeStart);
    add("TimeEnd", m.TimeEnd);
    add("TimeStep", m.TimeStep);
    add("Omega2Input", m.Omega2Input);
    add("Alpha2", m.Alpha2);
    add("Delta2", m.Delta2);
    add("CurrentStep", m.CurrentStep);
    const CamDrive& cam = Model;
    add("CamDirection", cam.CamDirection);
    add("CamPhase", cam.CamPhase);
    add("CamCenterX", cam.CamCenterX);
    add("CamCenterY", cam.CamCenterY);
    add("CamDiameter", cam.CamDiameter);
    add("Model5Name", cam.Model5Name);
}

void Add_Flags(Words& words) {
    const auto add = [&](const char* name, const auto& value) { words.emplace_back(name, Word(value)); };
    const StatusFlags& m = Model;
    add("Calculated", bool{m.Calculated});
    add("DiskFile", bool{m.DiskFile});
    add("CamDriven", bool{m.CamDriven});
    add("LinkDriven", bool{m.LinkDriven});
    add("DynamicsDone", bool{m.DynamicsDone});
    add("BalanceDone", bool{m.BalanceDone});
    add("FFTDone", bool{m.FFTDone});
    add("Synthesized", bool{m.Synthesized});
    add("SavedFlag", bool{m.SavedFlag});
    add("TorqueImported", bool{m.TorqueImported});
    add("LinkEdited", bool{m.LinkEdited});
    add("CognateEdit", bool{m.CognateEdit});
    add("CognateNumber", m.CognateNumber);
}

void Add_Rest(Words& words) {
    const auto add = [&](const char* name, const auto& value) { words.emplace_back(name, Word(value)); };
    add("FilePath", Model.FilePath);
    add("ModelName", Model.ModelName);
    add("TorqueFileName", Model.TorqueFileName);
    for (int i = 3; i <= 4; ++i) {
        words.emplace_back("ExtForceX(" + std::to_string(i) + ")", Word(i == 3 ? Model.ExtForce3X : Model.ExtForce4X));
        words.emplace_back("ExtForceY(" + std::to_string(i) + ")", Word(i == 3 ? Model.ExtForce3Y : Model.ExtForce4Y));
    }
    for (const int i : {2, 4}) {
        words.emplace_back("BerkMass(" + std::to_string(i) + ")", Word(Single(Model.BerkMass(i))));
        words.emplace_back("BerkRadius(" + std::to_string(i) + ")", Word(Single(Model.BerkRadius(i))));
    }
    for (int cognate = 1; cognate <= 3; ++cognate)
        for (int item = 1; item <= 6; ++item)
            words.emplace_back("Cognates(" + std::to_string(cognate) + "," + std::to_string(item) + ")",
                               Word(Single(Model.Cognates(cognate, item))));
    add("DesignTask", Model.DesignTask);
    add("StudySettings", Model.StudySettings);
    words.emplace_back("UnitLabel(6)", Word(Model.UnitLabel(6)));
}

struct Field_Word {
    std::string operator()(const std::string* place) const { return Word(*place); }
    std::string operator()(const bool* place) const { return Word(*place); }
    template <class Number>
    std::string operator()(const Number* place) const {
        return Word(*place);
    }
};

std::string Open_Word(const Visual& control) {
    return control.Visible ? control.Enabled ? "open" : "closed" : "hidden";
}

/// A number is the same with however many zeros it is written.
std::string Box_Word(const std::string& text) {
    double value = 0;
    if (Failure_Of([&] { value = Number_Of(Ungrouped(text)); }) != 0) return Word(text);
    return Word_Of(value);
}

/// What a box counts for: a text that is being typed is what it will be read as.
std::string Taken_For(const TextBox& box) {
    if (!box.Reads || !box.State().typing) return box.Text;
    const Reading reading = box.Reads(box.Text);
    return reading.whole ? reading.text : box.State().before;
}

void Add_Control(const Control& control, Words& words) {
    const std::string name = control.ObjectName();
    if (const auto* visual = dynamic_cast<const Visual*>(&control))
        words.emplace_back(name + " is", Open_Word(*visual));
    if (const auto* label = dynamic_cast<const Label*>(&control)) words.emplace_back(name, Word(label->Caption.Get()));
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) words.emplace_back(name, Box_Word(Taken_For(*box)));
    if (const auto* list = dynamic_cast<const ComboBox*>(&control)) words.emplace_back(name, Word(list->Text.Get()));
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        words.emplace_back(name, Word(option->Value.Get()));
    if (const auto* check = dynamic_cast<const CheckBox*>(&control)) words.emplace_back(name, Word(check->Value.Get()));
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control))
        words.emplace_back(name, std::to_string(bar->Value()));
    if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) {
        words.emplace_back(name + " is", entry->Visible ? entry->Enabled ? "open" : "closed" : "hidden");
        // What is chosen to be seen is no result.
        if (!dynamic_cast<const View_Choice*>(entry)) words.emplace_back(name, Word(entry->Checked.Get()));
    }
    if (const auto* picture = dynamic_cast<const PictureBox*>(&control))
        words.emplace_back(name + " strokes", std::to_string(const_cast<PictureBox*>(picture)->Drawing().Alive()));
}

/// A row of an array by its elements' bytes.
template <class T, int Rows, int Axes>
bool Same(const StepArray<T, Rows, Axes>& a, const StepArray<T, Rows, Axes>& b, int first, int last, int row,
          int axis) {
    if (last < first) return true;
    return std::memcmp(&a(first, row, axis), &b(first, row, axis),
                       sizeof(T) * static_cast<std::size_t>(last - first + 1)) == 0;
}

/// Calls with the name of each array, its rows in question, and its place in both tables.
template <class Call>
void For_Motion(const RunResults& a, const RunResults& b, Call call) {
    call("Assembled", a.Assembled, b.Assembled, 0, 0);
    call("PointXY", a.PointXY, b.PointXY, 0, 2);
    call("Theta", a.Theta, b.Theta, 0, 3);
    call("Omega", a.Omega, b.Omega, 0, 2);
    call("Alpha", a.Alpha, b.Alpha, 0, 2);
    call("VelXY", a.VelXY, b.VelXY, 0, 2);
    call("AccXY", a.AccXY, b.AccXY, 0, 4);
    call("OmegaRatio", a.OmegaRatio, b.OmegaRatio, 0, 0);
    call("MechAdvantage", a.MechAdvantage, b.MechAdvantage, 0, 0);
    call("FixedCentrode", a.FixedCentrode, b.FixedCentrode, 0, 0);
    call("MovingCentrode", a.MovingCentrode, b.MovingCentrode, 0, 0);
}

template <class Call>
void For_Forces(const RunResults& a, const RunResults& b, Call call) {
    call("PinForce", a.PinForce, b.PinForce, 0, 7);
    call("LinkTorque", a.LinkTorque, b.LinkTorque, 0, 3);
}

template <class Call>
void For_Mass_Centres(const RunResults& a, const RunResults& b, Call call) {
    call("VelXY of mass centres", a.VelXY, b.VelXY, 3, 5);
    call("AccXY of mass centres", a.AccXY, b.AccXY, 5, 7);
}

template <class Call>
void For_Balance(const RunResults& a, const RunResults& b, Call call) {
    call("BerkForce", a.BerkForce, b.BerkForce, 0, 7);
    call("BerkTorque", a.BerkTorque, b.BerkTorque, 0, 3);
    call("BalancedForce", a.BalancedForce, b.BalancedForce, 0, 7);
    call("BalancedMoment", a.BalancedMoment, b.BalancedMoment, 0, 3);
}

template <class T, int Rows, int Axes>
constexpr int Axes_Of(const StepArray<T, Rows, Axes>&) {
    return Axes;
}

template <class T>
std::string Element_Word(T value) {
    return Word(value);
}

}  // namespace

Words Record_Words() {
    Words words;
    for (const FileField& field : File_Fields()) words.emplace_back(field.name, std::visit(Field_Word{}, field.place));
    Add_Geometry(words);
    Add_Drive(words);
    Add_Flags(words);
    Add_Rest(words);
    return words;
}

Words Screen_Words(const Screen& screen) {
    Words words;
    for (const Control* control : screen.Controls()) Add_Control(*control, words);
    return words;
}

Difference Compare(const Words& before, const Words& after) {
    constexpr int kTold = 6;
    Difference difference;
    int told = 0;
    std::map<std::string, std::string> then(before.begin(), before.end());
    for (const auto& [name, value] : after) {
        const auto found = then.find(name);
        if (found == then.end() || found->second == value) continue;
        const std::string was = std::exchange(found->second, value);  // a field may stand in more than one list
        if (++told > kTold) continue;
        difference.names += (told > 1 ? ", " : "") + name;
        difference.values += (told > 1 ? ", " : "") + name + " was " + was + " and is " + value;
    }
    if (told > kTold) difference.values += " and " + std::to_string(told - kTold) + " more";
    return difference;
}

Difference Compare_Results(const RunResults& before, const RunResults& after, int last, Results which) {
    Difference difference;
    int told = 0;
    const auto compare = [&](const char* name, const auto& a, const auto& b, int first_row, int last_row) {
        for (int axis = 0; axis < Axes_Of(a); ++axis)
            for (int row = first_row; row <= last_row; ++row) {
                if (Same(a, b, 0, last, row, axis)) continue;
                int step = 0;
                while (step < last && Same(a, b, step, step, row, axis)) ++step;
                difference.names += (difference.Any() ? ", " : "") + std::string(name);
                constexpr int kTold = 3;
                if (++told > kTold) return;
                difference.values += (difference.values.empty() ? "" : "; ") + std::string(name) + "(" +
                                     std::to_string(step) + "," + std::to_string(row) + "," + std::to_string(axis) +
                                     ") is " + Element_Word(a(step, row, axis)) + ", made anew " +
                                     Element_Word(b(step, row, axis));
                return;
            }
    };
    const bool all = which == Results::kAll, forces = all || which == Results::kForces;
    if (all || which == Results::kMotion) For_Motion(before, after, compare);
    if (forces || which == Results::kLoads) For_Forces(before, after, compare);
    if (forces) For_Mass_Centres(before, after, compare);
    if (all || which == Results::kBalance) For_Balance(before, after, compare);
    return difference;
}

int First_Difference(const RunResults& before, const RunResults& after, int last) {
    for (int step = 0; step <= last; ++step) {
        bool same = true;
        For_Motion(before, after, [&](const char*, const auto& a, const auto& b, int first_row, int last_row) {
            for (int axis = 0; axis < Axes_Of(a); ++axis)
                for (int row = first_row; row <= last_row; ++row) same = same && Same(a, b, step, step, row, axis);
        });
        if (!same) return step;
    }
    return -1;
}

bool Empty_From(const RunResults& table, int first, int last) {
    static const auto empty = std::make_unique<RunResults>();
    bool same = true;
    For_Motion(table, *empty, [&](const char*, const auto& a, const auto& b, int first_row, int last_row) {
        for (int axis = 0; axis < Axes_Of(a); ++axis)
            for (int row = first_row; row <= last_row; ++row) same = same && Same(a, b, first, last, row, axis);
    });
    return same;
}

}  // namespace verlink::walk
