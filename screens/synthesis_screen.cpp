// The common ground of the synthesis screens.
#include "screens/synthesis_screen.h"

#include <algorithm>
#include <utility>

#include "animation/engine.h"
#include "checks/positions.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/typed_units.h"
#include "platform/guard.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "synthesis/diagram_dxf.h"
#include "synthesis/dyad_diagram.h"
#include "synthesis/dyads.h"

namespace verlink {

namespace {

constexpr int kAngleDecimals = 2;
constexpr char kSketch[] = "Sketch, not to scale";

bool Is_Angle(const std::string& box) {
    constexpr const char* kAngles[] = {"txt_Alpha", "txt_Beta",  "txt_Gamma", "txt_Theta",
                                       "txt_Phi",   "txt_Sigma", "txt_Xi"};
    return std::ranges::any_of(kAngles, [&box](const char* angle) { return box.starts_with(angle); });
}

void Show(platform::ControlArray<platform::Label>& labels, const std::string& text) {
    for (const auto& label : labels) label->Caption = text;
}

}  // namespace

Synthesis_Screen::Synthesis_Screen(const std::string& name, int positions, std::initializer_list<int> magnitudes)
    : Screen(name),
      lbl_Wmag(*this, "lbl_Wmag", magnitudes),
      lbl_Zmag(*this, "lbl_Zmag", magnitudes),
      lbl_Umag(*this, "lbl_Umag", magnitudes),
      lbl_Smag(*this, "lbl_Smag", magnitudes),
      positions_(positions) {
    Set_Palette();
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = &cmd_Calc;
    CancelButton = &cmd_Cancel;
    cmd_Calc.OnClick = [this] { cmd_Calc_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Print.OnClick = [this] { cmd_Print_Click(); };
    cmd_Print.Keys = "Ctrl+P";
    cmd_Copy.OnClick = [] { Tell_How_To_Copy(); };
    cmd_Explore.OnClick = [this] { cmd_Explore_Click(); };
    mnu_Help.OnClick = [this] { Show_Help(Help_Document("mnu_SynthHelp"), Name() + ".mnu_Help"); };
    Label* values[] = {&lbl_Wmag[1], &lbl_Zmag[1], &lbl_Umag[1], &lbl_Smag[1], &lbl_P21mag};
    for (int i = 0; i < 5; ++i) Follow(lbl_Symbol[i], *values[i]);
    Label* angles[] = {&lbl_Theta, &lbl_Phi, &lbl_Sigma, &lbl_Xi, &lbl_Alpha2, &lbl_Beta2, &lbl_Gamma2, &lbl_Theta1[1]};
    for (int i = 0; i < 8; ++i) Follow(lbl_Symbol[9 + i], *angles[i]);
    Write_Tips();
}

void Synthesis_Screen::Write_Tips() {
    txt_P21x.Tip = "X of the coupler point's way from position 1 to position 2, in the length unit shown";
    txt_P21y.Tip = "Y of the coupler point's way from position 1 to position 2, in the length unit shown";
    txt_Alpha2.Tip = "Turn of the coupler from position 1 to position 2, degrees";
    txt_Beta2.Tip = "Turn of W, the left grounded link, from position 1 to position 2, degrees";
    txt_Gamma2.Tip = "Turn of U, the right grounded link, from position 1 to position 2, degrees";
    Image1.Magnifies = true;
    Image1.Tip = "The two dyads in their positions, the first one in full color; the wheel zooms, a double click fits";
    cmd_Calc.Tip = "Find both dyads and the linkage that they make";
    cmd_Print.Tip = "Print this screen; calculate first";
    cmd_Copy.Tip = "How to copy this screen to the clipboard; calculate first";
    cmd_Cancel.Tip = "Go back to the home screen";
    cmd_Done.Tip = "Go on to the input screen with this linkage; calculate first";
    cmd_Explore.Tip = "See all linkages for these positions";
}

void Synthesis_Screen::Bind_Boxes() {
    for (platform::Control* control : Controls()) {
        auto* box = dynamic_cast<TextBox*>(control);
        if (!box) continue;
        box->Text.Event = [this] { Box_Change(); };
        box->OnGotFocus = [box] { box->SelectAll(); };
        Reads_As(*box, Model, Is_Angle(box->Name()) ? Quantity::kAngle : Quantity::kLength, {.grouped = true});
    }
    Serve_Undo(*this, [this] { Show_Undone(); });
}

void Synthesis_Screen::Box_Change() {
    Allow_Results(false);
    // The diagram is of the data before.
    lbl_Scale.Caption = kSketch;
}

void Synthesis_Screen::Void_Results() {
    for (auto* labels : {&lbl_Wmag, &lbl_Zmag, &lbl_Umag, &lbl_Smag, &lbl_Theta1}) Show(*labels, "");
    Lead_To_Values();
    lbl_Scale.Caption = kSketch;
    Allow_Results(false);
}

void Synthesis_Screen::Allow_Results(bool allowed) {
    if (!allowed) lbl_Reach.Visible = false;
    for (Button* button : {&cmd_Done, &cmd_Copy, &cmd_Print}) button->Enabled = allowed;
}

void Synthesis_Screen::Form_Activate() {
    Guarded(Name() + ".Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Model.Synthesized = false;
        Show_Model();
        typed_.Put_Back();
        txt_P21x.SetFocus();
        if (to_type_) std::exchange(to_type_, nullptr)();
    });
}

void Synthesis_Screen::Show_Model() {
    Guarded(Name() + ".Show_Model", [this] {
        LengthFactor = Shown_Factor();
        for (const auto& label : Label13) label->Caption = "deg";
        for (const auto& label : lbl_Length) label->Caption = Model.UnitLabel(6);
        Void_Results();
        txt_P21x.Text = Length_Text(Model.P21x);
        txt_P21y.Text = Length_Text(Model.P21y);
        txt_Alpha2.Text = Angle_Text(Model.SynAlpha2);
        txt_Beta2.Text = Angle_Text(Model.SynBeta2);
        txt_Gamma2.Text = Angle_Text(Model.SynGamma2);
        Fill();
        Show_Values();
        Draw();
        Titlebox(*this);
        Note_Shown();
    });
}

void Synthesis_Screen::Show_Values() {
    lbl_Alpha2.Caption = Number_Text(txt_Alpha2);
    lbl_Beta2.Caption = Number_Text(txt_Beta2);
    lbl_Gamma2.Caption = Number_Text(txt_Gamma2);
}

void Synthesis_Screen::Show_Displacement(Single x, Single y, Single& magnitude, Single& angle, Label& shown_magnitude,
                                         Label& shown_angle) const {
    Cart_to_Polar(x, y, magnitude, angle);
    shown_magnitude.Caption = Length_Text(magnitude);
    shown_angle.Caption = Angle_Text(angle);
}

std::optional<std::function<std::string()>> Synthesis_Screen::Diagram() {
    const DyadFigure figure = Dyads_In_Force(positions_);
    if (figure.to_scale) return [figure] { return Dyads_Dxf(Model, figure); };
    platform::Tell("The diagram is not to scale yet. Calculate first.", platform::Icon::kInformation);
    return {};
}

void Synthesis_Screen::Draw() {
    const DyadFigure figure = Dyads_In_Force(positions_);
    const std::vector<DyadMark> marks = Draw_Dyads(Image1.Canvas(), figure);
    lbl_Scale.Caption = figure.to_scale ? "To scale" : kSketch;
    for (platform::Control* control : Controls()) {
        if (control->Name() != "lbl_Symbol") continue;
        auto& name = static_cast<Label&>(*control);
        const std::string& symbol = symbols_.try_emplace(&name, name.Caption.Get()).first->second;
        const auto mark = std::find_if(marks.begin(), marks.end(), [&](const DyadMark& m) { return m.name == symbol; });
        const auto follower =
            std::find_if(followers_.begin(), followers_.end(), [&](const Follower& f) { return f.name == &name; });
        Label* value = follower == followers_.end() ? nullptr : follower->value;
        name.Visible = mark != marks.end();
        if (value) value->Visible = name.Visible;
        if (mark != marks.end()) name.At = mark->at;
    }
    Lead_To_Values();
}

void Synthesis_Screen::Lead_To_Values() {
    for (const auto& [name, value] : followers_)
        if (const auto symbol = symbols_.find(name); symbol != symbols_.end())
            name->Caption = symbol->second + (value->Caption.Get().empty() ? "" : " =");
}

void Synthesis_Screen::Assemble(Single beta3) {
    Assemblevlnk(Model.SynPositions, Model.SynWx, Model.SynWy, Model.SynZx, Model.SynZy, Model.SynUx, Model.SynUy,
                 Model.SynSx, Model.SynSy, Model.SynBeta2, beta3, Model.Link1Angle);
}

void Synthesis_Screen::Show_Ground_Angle() { Show(lbl_Theta1, Text_Of(FNRound(Model.Link1Angle, kAngleDecimals))); }

void Synthesis_Screen::Show_Magnitudes() {
    Show(lbl_Wmag, Rounded_Length(Model.SynW));
    Show(lbl_Zmag, Rounded_Length(Model.SynZ));
    Show(lbl_Umag, Rounded_Length(Model.SynU));
    Show(lbl_Smag, Rounded_Length(Model.SynS));
}

std::string Synthesis_Screen::Length_Text(double stored) const {
    return FNRoundStr(LengthFactor * stored, Model.DecLengthShown);
}

std::string Synthesis_Screen::Rounded_Length(double stored) const {
    return Text_Of(FNRound(LengthFactor * stored, Model.DecLengthShown));
}

std::string Synthesis_Screen::Angle_Text(double degrees) { return FNRoundStr(degrees, kAngleDecimals); }

std::string Synthesis_Screen::Number_Text(const TextBox& box) {
    const std::string& text = box.Text;
    return text.find_first_not_of("0123456789+-.,eEdD ") == std::string::npos ? text : Text_Of(Value_Of(box));
}

Single Synthesis_Screen::Value_Of(const TextBox& box) { return Val(Ungrouped(box.Text.Get())); }

Single Synthesis_Screen::Length_Of(const TextBox& box) const { return Value_Of(box) / LengthFactor; }

void Synthesis_Screen::cmd_Calc_Click() {
    const SynthesisData before = Model;
    const std::vector<std::string> shown = Shown_Results();
    const bool ended = Guarded(Name() + ".cmd_Calc", [this] {
        if (!Solve()) return Void_Results();
        Allow_Results(true);
        Show_Reach();
        for (platform::Control* control : Controls())
            if (auto* box = dynamic_cast<TextBox*>(control)) box->Settle();
        Note_Shown();
    });
    // A number that no field holds takes none of the others in.
    if (ended) return;
    static_cast<SynthesisData&>(Model) = before;
    Show_Results(shown);
}

void Synthesis_Screen::Show_Reach() {
    lbl_Reach.Caption = "The linkage " + Words_Of_Positions(Model, Positions_Reached(Model)) + ".";
    lbl_Reach.Visible = true;
}

std::vector<platform::TextBox*> Synthesis_Screen::Result_Boxes() {
    std::vector<TextBox*> boxes;
    for (platform::Control* control : Controls())
        if (auto* box = dynamic_cast<TextBox*>(control); box && box->Locked) boxes.push_back(box);
    return boxes;
}

std::vector<std::string> Synthesis_Screen::Shown_Results() {
    std::vector<std::string> texts;
    for (const TextBox* box : Result_Boxes()) texts.push_back(box->Text);
    return texts;
}

void Synthesis_Screen::Show_Results(const std::vector<std::string>& texts) {
    auto text = texts.begin();
    for (TextBox* box : Result_Boxes()) box->Text = *text++;
}

void Synthesis_Screen::cmd_Done_Click() {
    Guarded(Name() + ".cmd_Done", [this] {
        Hide();
        Show_Centered("frm_Inputnew");
    });
}

void Synthesis_Screen::cmd_Cancel_Click() {
    Form_Unload();
    Hide();
}

void Synthesis_Screen::Form_Unload() {
    typed_.Keep(*this, [this] { Show_Model(); });
}

void Synthesis_Screen::cmd_Print_Click() {
    Guarded(Name() + ".cmd_Print", [this] { Ask_And_Print(*this, CommonDialog1, Print_Note); });
}

Two_Position_Screen::Two_Position_Screen(const std::string& name, std::initializer_list<int> magnitudes)
    : Synthesis_Screen(name, 2, magnitudes) {
    Follow(lbl_DeltaName, lbl_Delta);
    txt_Theta.Tip = "Direction of W, the left grounded link, in position 1, degrees";
    txt_Phi.Tip = "Direction of Z, from W's moving pin to the coupler point, in position 1, degrees";
    txt_Sigma.Tip = "Direction of U, the right grounded link, in position 1, degrees";
    txt_Xi.Tip = "Direction of S, from U's moving pin to the coupler point, in position 1, degrees";
}

void Two_Position_Screen::Fill() {
    txt_Theta.Text = Angle_Text(Model.SynTheta);
    txt_Phi.Text = Angle_Text(Model.SynPhi);
    txt_Sigma.Text = Angle_Text(Model.SynSigma);
    txt_Xi.Text = Angle_Text(Model.SynXi);
}

void Two_Position_Screen::Show_Values() {
    Show_Displacement(Model.P21x, Model.P21y, Model.P21Mag, Model.P21Angle, lbl_P21mag, lbl_Delta);
    Synthesis_Screen::Show_Values();
    lbl_Theta.Caption = Number_Text(txt_Theta);
    lbl_Phi.Caption = Number_Text(txt_Phi);
    lbl_Sigma.Caption = Number_Text(txt_Sigma);
    lbl_Xi.Caption = Number_Text(txt_Xi);
}

void Two_Position_Screen::Read_Given() {
    Model.P21x = Length_Of(txt_P21x);
    Model.P21y = Length_Of(txt_P21y);
    Model.SynAlpha2 = Value_Of(txt_Alpha2);
}

}  // namespace verlink
