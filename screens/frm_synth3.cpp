// Three positions.
#include "screens/frm_synth3.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/text.h"
#include "synthesis/dyads.h"

namespace verlink {

namespace {

constexpr int kFoundDecimals = 3;  ///< of angles that come out

bool Given_Up() { return Model.SimqAnswer == static_cast<int>(platform::Answer::kCancel); }

}  // namespace

frm_Synth3::frm_Synth3() : Synthesis_Screen("frm_Synth3", 3, {0, 1}) {
    Label* values[] = {&lbl_P31mag, &lbl_Alpha3, &lbl_Beta3, &lbl_Gamma3, &lbl_Delta2, &lbl_Delta3};
    for (int i = 0; i < 6; ++i) Follow(More_Symbols[18 + i], *values[i]);
    for (const auto& box : txt_Linkout) box->Locked = true;
    Write_Tips();
    Bind_Boxes();
}

void frm_Synth3::Write_Tips() {
    txt_P31x.Tip = "X of the coupler point's way from position 1 to position 3, in the length unit shown";
    txt_P31y.Tip = "Y of the coupler point's way from position 1 to position 3, in the length unit shown";
    txt_Alpha3.Tip = "Turn of the coupler from position 1 to position 3, degrees";
    txt_Beta3.Tip = "Turn of W, the left grounded link, from position 1 to position 3, degrees";
    txt_Gamma3.Tip = "Turn of U, the right grounded link, from position 1 to position 3, degrees";
    txt_O2[0].Tip = "X of the left fixed pivot O2, in the length unit shown";
    txt_O2[1].Tip = "Y of the left fixed pivot O2, in the length unit shown";
    txt_O4[0].Tip = "X of the right fixed pivot O4, in the length unit shown";
    txt_O4[1].Tip = "Y of the right fixed pivot O4, in the length unit shown";
    txt_P1[0].Tip = "X of the coupler point in position 1, in the length unit shown";
    txt_P1[1].Tip = "Y of the coupler point in position 1, in the length unit shown";
    const char* links[] = {"Length of link 1, the ground, from O2 to O4, in the length unit shown",
                           "Length of link 2, the crank, which is W, in the length unit shown",
                           "Length of link 3, the coupler, in the length unit shown",
                           "Length of link 4, the rocker, which is U, in the length unit shown",
                           "Distance from the crank's pin to the coupler point, in the length unit shown",
                           "Angle from the coupler to the line to the coupler point, degrees"};
    for (int i = 0; i < 6; ++i) txt_Linkout[i].Tip = links[i];
}

void frm_Synth3::Show_Point(Array<TextBox>& boxes, Single x, Single y) {
    boxes[0].Text = Length_Text(x);
    boxes[1].Text = Length_Text(y);
}

void frm_Synth3::Read_Point(Array<TextBox>& boxes, Single& x, Single& y) {
    x = Length_Of(boxes[0]);
    y = Length_Of(boxes[1]);
}

void frm_Synth3::Fill() {
    for (const auto& label : More_Degrees) label->Caption = "deg";
    for (const auto& label : More_Lengths) label->Caption = Model.UnitLabel(6);
    Show_Ground_Angle();
    Put_Linkage_Geometry(*this);
    txt_P31x.Text = Length_Text(Model.P31x);
    txt_P31y.Text = Length_Text(Model.P31y);
    txt_Alpha3.Text = Angle_Text(Model.SynAlpha3);
    txt_Beta3.Text = Angle_Text(Model.SynBeta3);
    txt_Gamma3.Text = Angle_Text(Model.SynGamma3);
    for (TextBox* turn : {&txt_Beta2, &txt_Beta3, &txt_Gamma2, &txt_Gamma3}) {
        if (Model.SpecifiedPivots) turn->Text = "";
        turn->Locked = Model.SpecifiedPivots;
    }
    for (const auto& frame : fra_Pivot) frame->Visible = Model.SpecifiedPivots;
    if (!Model.SpecifiedPivots) return;
    Show_Point(txt_O2, Model.O2x, Model.O2y);
    Show_Point(txt_O4, Model.O4x, Model.O4y);
    Show_Point(txt_P1, Model.P1x, Model.P1y);
}

void frm_Synth3::Show_Values() {
    Single P31Mag, P31Angle;
    Show_Displacement(Model.P21x, Model.P21y, Model.P21Mag, Model.P21Angle, lbl_P21mag, lbl_Delta2);
    Show_Displacement(Model.P31x, Model.P31y, P31Mag, P31Angle, lbl_P31mag, lbl_Delta3);
    Synthesis_Screen::Show_Values();
    lbl_Alpha3.Caption = Number_Text(txt_Alpha3);
    lbl_Beta3.Caption = Number_Text(txt_Beta3);
    lbl_Gamma3.Caption = Number_Text(txt_Gamma3);
}

void frm_Synth3::Void_Results() {
    for (const auto& label : lbl_Direction) label->Caption = "";
    for (Label* label : {&lbl_Theta, &lbl_Phi, &lbl_Sigma, &lbl_Xi}) label->Caption = "";
    Synthesis_Screen::Void_Results();
}

bool frm_Synth3::Find_Turns() {
    Read_Point(txt_O2, Model.O2x, Model.O2y);
    Read_Point(txt_P1, Model.P1x, Model.P1y);
    const bool left = FixedPivots(Model.O2x, Model.O2y, Model.SynBeta2, Model.SynBeta3);
    txt_Beta2.Text = left ? FNRoundStr(Model.SynBeta2, kFoundDecimals) : "";
    txt_Beta3.Text = left ? FNRoundStr(Model.SynBeta3, kFoundDecimals) : "";
    Read_Point(txt_O4, Model.O4x, Model.O4y);
    const bool right = FixedPivots(Model.O4x, Model.O4y, Model.SynGamma2, Model.SynGamma3);
    txt_Gamma2.Text = right ? FNRoundStr(Model.SynGamma2, kFoundDecimals) : "";
    txt_Gamma3.Text = right ? FNRoundStr(Model.SynGamma3, kFoundDecimals) : "";
    if (left && right) Show_Values();
    return left && right;
}

bool frm_Synth3::Solve_Dyads() {
    ThreePos(Model.P21x, Model.P21y, Model.P31x, Model.P31y, Model.SynAlpha2, Model.SynAlpha3, Model.SynBeta2,
             Model.SynBeta3, Model.SynWx, Model.SynWy, Model.SynZx, Model.SynZy);
    if (Given_Up()) return false;
    Cart_to_Polar(Model.SynWx, Model.SynWy, Model.SynW, Model.SynTheta);
    Cart_to_Polar(Model.SynZx, Model.SynZy, Model.SynZ, Model.SynPhi);
    ThreePos(Model.P21x, Model.P21y, Model.P31x, Model.P31y, Model.SynAlpha2, Model.SynAlpha3, Model.SynGamma2,
             Model.SynGamma3, Model.SynUx, Model.SynUy, Model.SynSx, Model.SynSy);
    if (Given_Up()) return false;
    Cart_to_Polar(Model.SynUx, Model.SynUy, Model.SynU, Model.SynSigma);
    Cart_to_Polar(Model.SynSx, Model.SynSy, Model.SynS, Model.SynXi);
    return true;
}

void frm_Synth3::Show_Results() {
    Show_Magnitudes();
    const Single angles[] = {Model.SynTheta, Model.SynPhi, Model.SynSigma, Model.SynXi};
    Label* on_diagram[] = {&lbl_Theta, &lbl_Phi, &lbl_Sigma, &lbl_Xi};
    for (int i = 0; i < 4; ++i) {
        const std::string text = Text_Of(FNRound(angles[i], kFoundDecimals));
        lbl_Direction[i].Caption = text;
        on_diagram[i]->Caption = text;
    }
    Show_Values();
    Draw();
}

bool frm_Synth3::Solve() {
    Model.P21x = Length_Of(txt_P21x);
    Model.P21y = Length_Of(txt_P21y);
    Model.P31x = Length_Of(txt_P31x);
    Model.P31y = Length_Of(txt_P31y);
    Model.SynAlpha2 = Value_Of(txt_Alpha2);
    Model.SynAlpha3 = Value_Of(txt_Alpha3);
    if (Model.SpecifiedPivots) {
        if (!Find_Turns()) return false;
    } else {
        Model.SynBeta2 = Value_Of(txt_Beta2);
        Model.SynBeta3 = Value_Of(txt_Beta3);
        Model.SynGamma2 = Value_Of(txt_Gamma2);
        Model.SynGamma3 = Value_Of(txt_Gamma3);
    }
    if (!Solve_Dyads()) return false;
    Show_Results();
    Assemble(Model.SynBeta3);
    Show_Ground_Angle();
    Put_Linkage_Geometry(*this);
    Draw();
    return true;
}

}  // namespace verlink
