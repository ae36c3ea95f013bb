// What happens on the balancing screen.
#include "screens/frm_balance.h"

#include <string>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/balancing.h"
#include "dynamics/flywheel.h"
#include "dynamics/typed_units.h"
#include "output/cartesian.h"
#include "platform/guard.h"
#include "screens/frm_matrix.h"
#include "screens/plot_tips.h"
#include "screens/print_questions.h"

namespace verlink {

using platform::Icon;
using platform::TextBox;

namespace {

constexpr int kWhiteGraph = 15, kBlueGraph = 1, kGrayGraph = 7;
constexpr double kLeast = 0.01;  ///< stands in for a mass or radius that was refused

double Value_Of(const TextBox& box) { return Val(box.Text.Get()); }
double Strict_Value_Of(const TextBox& box) { return Number_Of(box.Text.Get()); }

std::string Rounded(double value) { return Text_Of(FNRound(value, 3)); }

/// What a box shows rounded stands for the whole number.
double Value_Of(const TextBox& box, double kept) { return box.Text == Rounded(kept) ? kept : Value_Of(box); }
double Strict_Value_Of(const TextBox& box, double kept) {
    return box.Text == Rounded(kept) ? kept : Strict_Value_Of(box);
}

double Product(int link) { return Model.BerkMass(link) * Model.BerkRadius(link); }

/// A function of a graph: its array, its row there, by its magnitude.
void Fill_Slot(int slot, int group, int row) {
    constexpr int kMagnitude = 2;
    Model.FuncGroup(slot) = group;
    Model.FuncRow(slot) = row;
    Model.FuncComponent(slot) = kMagnitude;
}

}  // namespace

frm_Balance::frm_Balance() : Screen("frm_Balance") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    opt_Back[0].Value = true;
    for (const auto& label : lbl_Function) label->Visible = false;
    for (const auto& label : lbl_Component) label->Visible = false;
    for (const auto& graph : grf_Plot) graph->Visible = false;
    pct_Pict1.Visible = false;
    DefaultButton = &cmd_Calc;
    CancelButton = &cmd_back;
    Write_Tips();
    Bind();
}

void frm_Balance::Write_Tips() {
    for (const int link : {2, 4}) {
        const std::string of = " of the counterweight on link " + std::to_string(link);
        txt_BerkMass[link].Tip = "Mass" + of + "; more than zero; the radius follows, for the same product";
        txt_Radius[link].Tip = "Radius" + of + "; more than zero; the mass follows, for the same product";
        txt_MRproduct[link].Tip = "Mass times radius" + of + "; the mass follows";
    }
    txt_Fluct.Tip = "Variation of the crank's speed over its mean, between zero and one";
    cmd_Calc.Tip = "Calculate forces and torques with these counterweights";
    pct_Pict1.Tip = "Pulses of the crank torque about its average, as energy";
    for (const auto& graph : grf_Plot)
        graph->Tip = std::string("Before and after balancing, by step, with their values") + kPlotHand;
    opt_Back[0].Tip = "White graphs";
    opt_Back[1].Tip = "Blue graphs";
    opt_Back[2].Tip = "Gray graphs";
    cmd_Print.Tip = "Print this screen; calculate first";
    cmd_copy.Tip = "How to copy this screen to the clipboard; calculate first";
    cmd_back.Tip = "Go back to the home screen";
    cmd_Done.Tip = "Leave for the home screen with the balanced linkage; calculate first";
}

void frm_Balance::Bind() {
    for (Boxes* boxes : {&txt_BerkMass, &txt_Radius, &txt_MRproduct})
        for (const auto& box : *boxes) box->OnGotFocus = [entry = box.get()] { entry->SelectAll(); };
    for (const int link : {2, 4}) {
        Reads_As(txt_BerkMass[link], Model, Quantity::kMass);
        Reads_As(txt_Radius[link], Model, Quantity::kLength);
        Reads_As(txt_MRproduct[link], Model, Quantity::kMassLength);
    }
    Reads_As(txt_Fluct, Model, Quantity::kNumber);
    txt_Fluct.OnGotFocus = [this] { txt_Fluct.SelectAll(); };
    txt_BerkMass.On(&platform::Visual::OnLostFocus, [this](int link) { txt_BerkMass_LostFocus(link); });
    txt_BerkMass.On(&TextBox::OnReturn, [this](int link) { txt_BerkMass_LostFocus(link); });
    txt_Radius.On(&platform::Visual::OnLostFocus, [this](int link) { txt_Radius_LostFocus(link); });
    txt_Radius.On(&TextBox::OnReturn, [this](int link) { txt_Radius_LostFocus(link); });
    txt_MRproduct.On(&platform::Visual::OnLostFocus, [this](int link) { txt_MRproduct_LostFocus(link); });
    txt_Fluct.OnLostFocus = txt_Fluct.OnReturn = [this] { txt_Fluct_LostFocus(); };
    opt_Back.On(&platform::OptionButton::OnClick, [this](int) { opt_Back_Click(); });
    cmd_Calc.OnClick = [this] { cmd_Calc_Click(); };
    cmd_Print.OnClick = [this] { Print_Form(*this, CommonDialog1, "frm_Balance.cmd_Print"); };
    cmd_Print.Keys = "Ctrl+P";
    cmd_copy.OnClick = [] { Tell_How_To_Copy(); };
    cmd_back.OnClick = [this] { Hide(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
}

void frm_Balance::Form_Activate() {
    const bool ended = Guarded("frm_Balance.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Titlebox(*this);
        Set_Up();
        for (const auto& graph : grf_Plot) graph->Visible = false;
        pct_Pict1.Visible = false;
        Show_Units();
        cmd_Done.Enabled = false;
        cmd_copy.Enabled = false;
        cmd_Print.Enabled = false;
        cmd_back.Enabled = true;
        cmd_Calc.SetFocus();
    });
    if (!ended) Show_Weights();
}

void frm_Balance::Set_Up() {
    Berkof_Setup(Model);
    lbl_MR2.Caption = FNRoundStr(Model.MRNeeded(2), 3);
    lbl_MR4.Caption = FNRoundStr(Model.MRNeeded(4), 3);
    lbl_Ang2.Caption = FNRoundStr(Model.MRAngle(2) * kRadToDeg, 2);
    lbl_Ang4.Caption = FNRoundStr(Model.MRAngle(4) * kRadToDeg, 2);
    // The weights of a balance that holds are the user's.
    if (!Model.BalanceDone) Place_Weights(Model);
    Show_Weights();
}

void frm_Balance::Show_Weights() {
    for (const int i : {2, 4}) {
        txt_BerkMass[i].Text = Rounded(Model.BerkMass(i));
        txt_Radius[i].Text = Rounded(Model.BerkRadius(i) * Shown_Factor());
        txt_MRproduct[i].Text = Rounded(Product(i));
    }
}

void frm_Balance::Show_Units() {
    for (const int i : {0, 2}) lbl_Unit[i].Caption = Model.UnitLabel(14);
    for (const int i : {1, 3}) lbl_Unit[i].Caption = Model.UnitLabel(6);
    const std::string length = Model.Units > 3 ? "m" : Model.UnitLabel(6);
    for (const auto& label : lbl_MRUnit) label->Caption = Model.UnitLabel(14) + "-" + length;
    for (const auto& label : lbl_AngUnit) label->Caption = Model.UnitLabel(1);
}

void frm_Balance::Put_Colors() {
    const int background = opt_Back[1].Value ? kBlueGraph : opt_Back[2].Value ? kGrayGraph : kWhiteGraph;
    for (const auto& graph : grf_Plot) graph->Background = background;
}

void frm_Balance::Refuse(TextBox& box) {
    platform::Tell("This value must be positive.  Please redo.", Icon::kExclamation);
    Put_Back(box, kLeast);
}

void frm_Balance::Put_Back(TextBox& box, double value) {
    // It waits to be taken over, as if it had been typed; before the box that loses the focus by it is read.
    box.Type(Text_Of(value));
    box.SetFocus();
    box.SelectAll();
}

void frm_Balance::Calculate_Anew() {
    cmd_Done.Enabled = false;
    // Before the focus moves on: leaving the box is no second edit.
    for (Boxes* boxes : {&txt_BerkMass, &txt_Radius, &txt_MRproduct})
        for (const auto& box : *boxes) box->Settle();
    txt_Fluct.Settle();
    cmd_Calc_Click();
}

template <class Body>
void frm_Balance::Take_Over(const char* procedure, TextBox& box, Body body) {
    if (!box.Touched()) return;
    // A number that no weight can have gives way to the weights in force.
    if (!Guarded(procedure, body)) Show_Weights();
}

void frm_Balance::txt_BerkMass_LostFocus(int Index) {
    Take_Over("frm_Balance.txt_BerkMass", txt_BerkMass[Index], [&] {
        const double value = Value_Of(txt_BerkMass[Index]);
        if (value <= 0) return Refuse(txt_BerkMass[Index]);
        const double product = Value_Of(txt_MRproduct[Index], Product(Index));
        Balance_Dropped();
        Model.BerkMass(Index) = value;
        Model.BerkRadius(Index) = product / value;
        txt_Radius[Index].Text = Text_Of(Single(Model.BerkRadius(Index) * Shown_Factor()));
        Calculate_Anew();
    });
}

void frm_Balance::txt_Radius_LostFocus(int Index) {
    Take_Over("frm_Balance.txt_Radius", txt_Radius[Index], [&] {
        const double value = Value_Of(txt_Radius[Index]) / Shown_Factor();
        if (value <= 0) return Refuse(txt_Radius[Index]);
        const double product = Value_Of(txt_MRproduct[Index], Product(Index));
        Balance_Dropped();
        Model.BerkRadius(Index) = value;
        Model.BerkMass(Index) = product / value;
        txt_BerkMass[Index].Text = Text_Of(Model.BerkMass(Index));
        Calculate_Anew();
    });
}

void frm_Balance::txt_MRproduct_LostFocus(int Index) {
    Take_Over("frm_Balance.txt_MRproduct", txt_MRproduct[Index], [&] {
        Model.BerkMass(Index) = Value_Of(txt_MRproduct[Index]) / Model.BerkRadius(Index);
        txt_BerkMass[Index].Text = Rounded(Model.BerkMass(Index));
        Calculate_Anew();
    });
}

void frm_Balance::txt_Fluct_LostFocus() {
    Guarded("frm_Balance.txt_Fluct", [this] {
        if (!txt_Fluct.Touched()) return;
        const double value = Value_Of(txt_Fluct);
        // The upper limit is tested on the coefficient held so far: one above 1 is taken once, and refused then.
        if (value > 0 && Fluct <= 1.0) {
            Fluct = value;
            Calculate_Anew();
            return;
        }
        platform::Tell(" Coefficient of fluctuation must be between zero and one - Try .05 ", Icon::kExclamation);
        Fluct = kUsualFluct;
        Put_Back(txt_Fluct, kUsualFluct);
    });
}

void frm_Balance::Take_Weights() {
    auto mass = Model.BerkMass;
    auto radius = Model.BerkRadius;
    for (const int i : {2, 4}) {
        mass(i) = Strict_Value_Of(txt_BerkMass[i], Model.BerkMass(i));
        radius(i) = Strict_Value_Of(txt_Radius[i], Model.BerkRadius(i) * Shown_Factor()) / Shown_Factor();
    }
    Fluct = Strict_Value_Of(txt_Fluct);
    Model.BerkMass = mass;
    Model.BerkRadius = radius;
}

void frm_Balance::cmd_Calc_Click() {
    const bool ended = Guarded("frm_Balance.cmd_Calc", [this] {
        platform::The_Desktop().Set_Pointer(platform::Pointer::kHourglass);
        const Told_As_One once;
        Balance_Dropped();
        Take_Weights();
        for (const auto& graph : grf_Plot) graph->Visible = false;
        // There is nothing to balance without the forces of this run.
        if (!Model.DynamicsDone) Solve_Forces(Model);
        const ForceSolve weights = Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
        if (weights.first) PrintAmatrix(weights.first->A, weights.first->C);
        Fly(Model, *this, Fluct, Model.RunTable.BalancedMoment);
        PlotForceTorque();
        for (const auto& graph : grf_Plot) graph->Visible = true;
        pct_Pict1.Visible = true;
        cmd_Done.Enabled = true;
        cmd_Done.SetFocus();
        cmd_Print.Enabled = true;
        cmd_copy.Enabled = true;
        PlotForceTorque();
        Model_Unsaved();
        Refresh_Status();
        platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
    });
    if (!ended) Show_Weights();
}

void frm_Balance::PlotForceTorque() {
    Guarded("PlotForceTorque", [this] {
        constexpr int kBothGrids = 3, kLines = 4, kFunctions = 2;
        constexpr int kPinForce = 10, kBalancedForce = 11, kShaking = 7;
        constexpr int kLinkTorque = 9, kBalancedMoment = 12, kDriving = 0;
        Model.PlotCount = kFunctions;
        Model.FFTFunction = false;
        grf_Plot[0].GraphTitle = "Shaking Force";
        grf_Plot[1].GraphTitle = "Shaking Torque";
        for (const auto& graph : grf_Plot) {
            Set_Up_Axes(*graph);
            graph->SetNumSets(kFunctions);
            graph->GridStyle = kBothGrids;
            graph->GraphStyle = kLines;
            graph->BottomTitle = "Crank Angle (Deg)";
        }
        Fill_Slot(1, kPinForce, kShaking);
        Fill_Slot(2, kBalancedForce, kShaking);
        MultiPlot(*this, *this, 0);
        // The second graph shows the driving torque.
        Fill_Slot(1, kLinkTorque, kDriving);
        Fill_Slot(2, kBalancedMoment, kDriving);
        MultiPlot(*this, *this, 1);
    });
}

void frm_Balance::opt_Back_Click() {
    Guarded("frm_Balance.opt_Back", [this] {
        Put_Colors();
        PlotForceTorque();
    });
}

void frm_Balance::cmd_Done_Click() {
    Model.ScreenReturn = true;
    Hide();
}

}  // namespace verlink
