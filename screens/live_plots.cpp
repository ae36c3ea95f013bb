// What the pane shows follows from the choice and from what holds of the run.
#include "screens/live_plots.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "core/linkage_model.h"
#include "core/results_turns.h"
#include "core/text.h"
#include "dynamics/solve_again.h"
#include "output/reading.h"
#include "platform/guard.h"

namespace verlink {

using platform::ComboBox;
using platform::Graph;
using platform::Screen;

namespace {

constexpr char kNone[] = "(none)", kGlobal[] = "Global", kLocalFrame[] = "Local";
constexpr char kLastLivePlot[] = "Last Plot";
constexpr char kNothingChosen[] = "Choose a preset, or functions one by one.";
constexpr char kNoRun[] = "Nothing is calculated for this linkage as it stands.";
constexpr char kNoForces[] = "The forces of this linkage are not solved.";
constexpr char kNoBalance[] = "The balance of this linkage is not calculated.";
constexpr char kSingular[] = "The forces of this linkage cannot be solved at every step of the run.";
constexpr char kTorqueFell[] =
    "The imported torque has a row for each step of the run before; import it again to solve the forces.";

/// Puts a text into a box without picking anything.
void Put(ComboBox& box, const std::string& text) {
    if (box.Text != text) box.Text = text;
}

}  // namespace

Live_Slot::Live_Slot(Screen& owner, int slot)
    : cmb_LiveVar(owner, Numbered("cmb_LiveVar", slot)),
      cmb_LiveCom(owner, Numbered("cmb_LiveCom", slot)),
      cmb_LiveFrame(owner, Numbered("cmb_LiveFrame", slot)) {}

Live_Plots::Live_Plots(Screen& owner, LinkageModel& model, platform::ScrollBar& bar, View_Choice& open)
    : fra_Live(owner, "fra_Live", "Live Plots"),
      lbl_LivePreset(owner, "lbl_LivePreset", "Preset"),
      cmb_LivePreset(owner, "cmb_LivePreset"),
      fra_LiveScale(owner, "fra_LiveScale", "Scale"),
      opt_LiveScale(owner, "opt_LiveScale", {{0, "Each Its Own"}, {1, "One for All"}}),
      fra_LiveX(owner, "fra_LiveX", "X Axis"),
      opt_LiveX(owner, "opt_LiveX", {{0, "Crank Angle"}, {1, "Time"}}),
      lbl_LiveNote(owner, "lbl_LiveNote"),
      grf_Live(owner, "grf_Live", {0, 1, 2, 3, 4}),
      screen_(owner),
      model_(model),
      bar_(bar),
      open_(open),
      choice_(Live_Choice::Kept()),
      ear_(owner, [this](const Shown& shown) {
          if (!shown.playing) Follow();
          Set_Cursor(shown.step);
      }) {
    for (const auto& graph : grf_Live) graph->Visible = false;
    for (int slot = 1; slot <= Live_Choice::kSlots; ++slot) {
        Slots.push_back(std::make_unique<Live_Slot>(owner, slot));
        for (const char* component : {"X", "Y", "Mag", "Ang"}) Slots.back()->cmb_LiveCom.AddItem(component);
        for (const char* frame : {kGlobal, kLocalFrame}) Slots.back()->cmb_LiveFrame.AddItem(frame);
    }
    opt_LiveScale[choice_.one_scale ? 1 : 0].Value = true;
    opt_LiveX[choice_.abscissa == Abscissa::kTime ? 1 : 0].Value = true;
    Write_Tips();
    Bind();
    Open_Or_Close();
}

void Live_Plots::Write_Tips() {
    cmb_LivePreset.Tip = "Fills the functions by one choice; the first is what was plotted last";
    for (const auto& slot : Slots) {
        const std::string number = std::to_string(&slot - Slots.data() + 1);
        slot->cmb_LiveVar.Tip = "The variable of function " + number;
        slot->cmb_LiveCom.Tip = "The component of function " + number + ", where its variable has components";
        slot->cmb_LiveFrame.Tip = "The frame of function " + number + ": global, or rotating with its link";
    }
    opt_LiveScale[0].Tip = "Each function has a graph and a scale of its own";
    opt_LiveScale[1].Tip = "All functions stand in one graph and one scale";
    opt_LiveX[0].Tip = "The functions stand over the crank angle, degrees";
    opt_LiveX[1].Tip = "The functions stand over the time, seconds; of a run by angle, by the speed of its crank";
    for (const auto& graph : grf_Live)
        graph->Tip =
            "Click or drag to show a position, wheel to enlarge, double click for the whole, right click for "
            "the picture";
}

void Live_Plots::Bind() {
    open_.OnChoice = [this] { Open_Or_Close(); };
    cmb_LivePreset.OnClick = [this] { Take_Preset(); };
    for (int number = 1; number <= Live_Choice::kSlots; ++number) {
        Live_Slot& slot = *Slots[static_cast<std::size_t>(number - 1)];
        slot.cmb_LiveVar.OnClick = [this, number] { Take_Variable(number); };
        slot.cmb_LiveCom.OnClick = slot.cmb_LiveFrame.OnClick = [this, number] { Take_Part(number); };
    }
    typed_.push_back(
        std::make_unique<Listed_Choice>(cmb_LivePreset, "presets", std::vector<const platform::Control*>{}));
    for (const auto& slot : Slots)
        for (const auto& [box, what] : {std::pair{&slot->cmb_LiveVar, "variables"},
                                        {&slot->cmb_LiveCom, "components"},
                                        {&slot->cmb_LiveFrame, "frames"}})
            typed_.push_back(std::make_unique<Listed_Choice>(*box, what, std::vector<const platform::Control*>{}));
    opt_LiveScale.On(&platform::OptionButton::OnClick, [this](int index) {
        choice_.one_scale = index == 1;
        Chosen();
    });
    opt_LiveX.On(&platform::OptionButton::OnClick, [this](int index) {
        choice_.abscissa = index == 1 ? Abscissa::kTime : Abscissa::kAngle;
        Chosen();
    });
    for (const auto& graph : grf_Live) {
        graph->OnSeek = [this](int point) { Seek(point); };
        graph->OnSought = [this] { bar_.Drop(); };
    }
}

// The hand on the pane.

void Live_Plots::Open_Or_Close() {
    Guarded("Live_Plots.Open", [this] {
        const bool open = open_.On();
        // Closed, nothing of the pane can be reached.
        for (platform::Visual* control : std::initializer_list<platform::Visual*>{
                 &fra_Live, &lbl_LivePreset, &cmb_LivePreset, &fra_LiveScale, &opt_LiveScale[0], &opt_LiveScale[1],
                 &fra_LiveX, &opt_LiveX[0], &opt_LiveX[1], &lbl_LiveNote})
            control->Visible = open;
        for (const auto& slot : Slots)
            for (platform::Visual* box : {&slot->cmb_LiveVar, &slot->cmb_LiveCom, &slot->cmb_LiveFrame})
                box->Visible = open;
        if (open) return Arrived();
        for (const auto& graph : grf_Live) Empty(*graph);
        turns_ = -1;
    });
}

void Live_Plots::Take_Preset() {
    Guarded("Live_Plots.Preset", [this] {
        const std::string wished = cmb_LivePreset.Text;
        if (wished == kLastLivePlot) {
            choice_.Take(Last_Plotted());
            choice_.preset = kLastLivePlot;
        }
        for (const Preset* preset : Live_Presets())
            if (preset->text == wished) choice_.Take(*preset);
        Chosen();
    });
}

void Live_Plots::Take_Variable(int slot) {
    Guarded("Live_Plots.Variable", [&] {
        Output_Function& function = choice_.functions[static_cast<std::size_t>(slot - 1)];
        const std::string& wished = Slots[static_cast<std::size_t>(slot - 1)]->cmb_LiveVar.Text;
        function.variable = Facts_Of(wished) ? wished : "";
        const bool vector = !function.variable.empty() && Facts_Of(function.variable)->vector;
        if (!vector) function.component.clear();
        if (vector && function.component.empty()) function.component = "Mag";
        if (!vector || !Has_Frames(function)) function.local = false;
        choice_.preset.clear();
        Chosen();
    });
}

void Live_Plots::Take_Part(int slot) {
    Guarded("Live_Plots.Component", [&] {
        Output_Function& function = choice_.functions[static_cast<std::size_t>(slot - 1)];
        const Live_Slot& boxes = *Slots[static_cast<std::size_t>(slot - 1)];
        if (!Can_Be_Read(function)) return;
        if (Has_Components(function)) function.component = boxes.cmb_LiveCom.Text;
        if (Has_Frames(function)) function.local = boxes.cmb_LiveFrame.Text == kLocalFrame;
        choice_.preset.clear();
        Chosen();
    });
}

void Live_Plots::Chosen() {
    choice_.Keep();
    if (open_.On()) Renew();
}

void Live_Plots::Seek(int point) {
    const auto* step = screen_.FindAs<platform::CommandButton>("cmd_Step");
    if (!model_.RunStands || (step && !step->Enabled)) return;
    bar_.Drag(std::clamp(point - 1, bar_.Min(), bar_.Max()));
}

// What is chosen, in its boxes.

void Live_Plots::Fill_Lists() {
    const bool balance = model_.BalanceDone, forces = model_.DynamicsDone || balance;
    const auto offered = [&](Needs needs) {
        return needs == Needs::kRun || (needs == Needs::kForces ? forces : balance);
    };
    std::vector<std::string> presets;
    if (!Last_Plotted().empty()) presets.emplace_back(kLastLivePlot);
    for (const Preset* preset : Live_Presets())
        if (offered(Needs_Of(*preset))) presets.emplace_back(preset->text);
    if (presets != cmb_LivePreset.Items()) {
        cmb_LivePreset.Clear();
        for (const std::string& preset : presets) cmb_LivePreset.AddItem(preset);
    }
    ComboBox& first = Slots.front()->cmb_LiveVar;
    const std::vector<std::string> variables = Variables_Up_To(balance  ? Needs::kBalance
                                                               : forces ? Needs::kForces
                                                                        : Needs::kRun);
    if (first.Items().size() == variables.size() + 1) return;
    for (const auto& slot : Slots) {
        slot->cmb_LiveVar.Clear();
        slot->cmb_LiveVar.AddItem(kNone);
        for (const std::string& variable : variables) slot->cmb_LiveVar.AddItem(variable);
    }
}

void Live_Plots::Show_Choice() {
    Fill_Lists();
    Put(cmb_LivePreset, choice_.preset);
    for (int slot = 1; slot <= Live_Choice::kSlots; ++slot) Show_Slot(slot);
    const bool timeless = Abscissa_In_Force(Abscissa::kTime, model_) == Abscissa::kAngle;
    opt_LiveX[1].Enabled = !timeless;
}

void Live_Plots::Show_Slot(int slot) {
    const Output_Function& function = choice_.functions[static_cast<std::size_t>(slot - 1)];
    Live_Slot& boxes = *Slots[static_cast<std::size_t>(slot - 1)];
    const bool chosen = Can_Be_Read(function);
    const bool vector = chosen && Has_Components(function), frames = chosen && Has_Frames(function);
    Put(boxes.cmb_LiveVar, chosen ? function.variable : kNone);
    Put(boxes.cmb_LiveCom, vector ? function.component : "");
    Put(boxes.cmb_LiveFrame, !frames ? "" : function.local ? kLocalFrame : kGlobal);
    boxes.cmb_LiveCom.Enabled = vector;
    boxes.cmb_LiveFrame.Enabled = frames;
}

// What there is to be shown.

bool Live_Plots::There(Needs needs) const {
    if (!model_.RunStands) return false;
    return needs == Needs::kRun || (needs == Needs::kForces ? model_.DynamicsDone : model_.BalanceDone);
}

bool Live_Plots::Shows(Needs needs) const {
    return std::any_of(choice_.functions.begin(), choice_.functions.end(),
                       [&](const auto& function) { return Can_Be_Read(function) && Needs_Of(function) == needs; });
}

std::string Live_Plots::What_Is_Missing() const {
    if (choice_.Empty()) return kNothingChosen;
    if (!model_.RunStands) return kNoRun;
    if (Shows(Needs::kForces) && !There(Needs::kForces)) return unsolved_.empty() ? kNoForces : unsolved_;
    if (Shows(Needs::kBalance) && !There(Needs::kBalance)) return kNoBalance;
    return "";
}

void Live_Plots::Arrived() {
    forces_held_ = model_.DynamicsDone;
    torque_held_ = model_.TorqueImported;
    unsolved_.clear();
    if (!open_.On()) return;
    if (choice_.Empty()) choice_.Take(Last_Plotted());
    Renew();
}

void Live_Plots::Run_Made() {
    unsolved_.clear();
    if (!open_.On() || !forces_held_ || !Shows(Needs::kForces) || There(Needs::kForces)) return;
    if (torque_held_ && !model_.TorqueImported)
        unsolved_ = kTorqueFell;
    else if (!Solve_Forces_Again(model_))
        unsolved_ = kSingular;
}

void Live_Plots::Follow() {
    if (!open_.On() || turns_ == Results_Turns()) return;
    if (model_.RunStands && unsolved_.empty()) {
        forces_held_ = model_.DynamicsDone;
        torque_held_ = model_.TorqueImported;
    }
    Renew();
}

void Live_Plots::Renew() {
    Guarded("Live_Plots.Renew", [this] {
        turns_ = Results_Turns();
        Show_Choice();
        lbl_LiveNote.Caption = What_Is_Missing();
        std::vector<int> shown;
        for (int slot = 1; slot <= Live_Choice::kSlots; ++slot) {
            const Output_Function& function = choice_.functions[static_cast<std::size_t>(slot - 1)];
            if (Can_Be_Read(function) && There(Needs_Of(function))) shown.push_back(slot);
        }
        if (!shown.empty()) Put_Stations();
        const auto fill = [&](int index, const std::vector<int>& slots) {
            slots.empty() ? Empty(grf_Live[index]) : Fill(grf_Live[index], slots);
        };
        fill(0, choice_.one_scale ? shown : std::vector<int>{});
        for (int slot = 1; slot <= Live_Choice::kSlots; ++slot) {
            const bool own = !choice_.one_scale && std::find(shown.begin(), shown.end(), slot) != shown.end();
            grf_Live[slot].Labelled = own && slot == shown.back();
            fill(slot, own ? std::vector<int>{slot} : std::vector<int>{});
        }
        Set_Cursor(ear_.Step());
    });
}

void Live_Plots::Put_Stations() {
    const Drive& drive = model_;
    const std::vector<double> by{double(drive.Calctype), double(drive.NSteps),    drive.ThetaStart, drive.ThetaEnd,
                                 drive.ThetaStep,        drive.ThetaZero,         drive.TimeStart,  drive.TimeStep,
                                 drive.Omega2Input,      double(choice_.abscissa)};
    // Angles of a run by time and of a driven one come from the run itself.
    if (by == stations_by_ && stations_.places.empty()) return;
    stations_by_ = by;
    stations_ = Stations_Of(choice_.abscissa, drive, model_.RunTable, model_.Link1Angle);
}

void Live_Plots::Fill(Graph& graph, const std::vector<int>& slots) {
    const int points = model_.NSteps + 1;
    const bool by_angle = Abscissa_In_Force(choice_.abscissa, model_) == Abscissa::kAngle;
    graph.SetNumSets(static_cast<int>(slots.size()));
    graph.SetNumPoints(points);
    if (graph.Labels() != stations_.labels)
        for (graph.ThisPoint = 1; graph.ThisPoint <= points; ++graph.ThisPoint)
            graph.SetLabelText(stations_.labels[static_cast<std::size_t>(graph.ThisPoint - 1)]);
    graph.Places = stations_.places;
    graph.BottomTitle = graph.Index() == 0 || graph.Labelled ? stations_.title : "";
    graph.TickEvery = by_angle ? 6 : 5;
    graph.LabelEvery = 2 * graph.TickEvery;
    graph.GridStyle = 3;
    graph.InLine = graph.Index() > 0;
    graph.FontUse = 4;
    graph.FontSize = 85;
    graph.FirstColor = slots.front() - 1;
    for (graph.ThisSet = 1; graph.ThisSet <= graph.NumSets(); ++graph.ThisSet) {
        const int slot = slots[static_cast<std::size_t>(graph.ThisSet - 1)];
        const Output_Function& function = choice_.functions[static_cast<std::size_t>(slot - 1)];
        const std::string unit = Unit_Of(function, model_);
        graph.SetLegendText(Words_Of(function) + "  " + unit);
        graph.SetUnitText(unit);
        const std::vector<double> values = Series(function, model_.RunTable, model_.Link1Angle, model_.NSteps);
        for (graph.ThisPoint = 1; graph.ThisPoint <= points; ++graph.ThisPoint)
            graph.SetGraphData(values[static_cast<std::size_t>(graph.ThisPoint - 1)]);
    }
    graph.Visible = true;
    graph.Draw();
}

void Live_Plots::Empty(Graph& graph) {
    graph.Visible = false;
    graph.Cursor = 0;
    if (graph.NumPoints() == 0) return;
    graph.Places.clear();
    graph.SetNumSets(0);
    graph.SetNumPoints(0);
    graph.Draw();
}

void Live_Plots::Set_Cursor(int step) {
    for (const auto& graph : grf_Live) graph->Cursor = step < graph->NumPoints() ? step + 1 : 0;  // 0 for no step, too
}

}  // namespace verlink
