// Two positions by method 2.
#include "screens/frm_synth2b.h"

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/typed_units.h"
#include "synthesis/dyads.h"

namespace verlink {

namespace {

std::string Rounded_Angle(Single degrees) { return Text_Of(FNRound(degrees, 2)); }

}  // namespace

frm_Synth2B::frm_Synth2B() : Two_Position_Screen("frm_Synth2B", {1}) {
    for (TextBox* found : {&txt_Theta, &txt_Wmag, &txt_Sigma, &txt_Umag}) found->Locked = true;
    txt_Zmag.Tip = "Length of Z, from W's moving pin to the coupler point; in m in all metric systems";
    txt_Smag.Tip = "Length of S, from U's moving pin to the coupler point; in m in all metric systems";
    txt_Wmag.Tip = "Length of W, the left grounded link, in the length unit shown";
    txt_Umag.Tip = "Length of U, the right grounded link, in the length unit shown";
    Bind_Boxes();
    for (TextBox* kept : {&txt_Zmag, &txt_Smag}) Reads_As(*kept, Model, Quantity::kKeptLength, {.grouped = true});
}

void frm_Synth2B::Fill() {
    Two_Position_Screen::Fill();
    // As they are read: not in the shown unit.
    txt_Zmag.Text = FNRoundStr(Model.SynZ, Model.DecLength);
    txt_Smag.Text = FNRoundStr(Model.SynS, Model.DecLength);
}

void frm_Synth2B::Void_Results() {
    Synthesis_Screen::Void_Results();
    for (TextBox* found : {&txt_Theta, &txt_Wmag, &txt_Sigma, &txt_Umag}) found->Text = "";
}

bool frm_Synth2B::Solve() {
    Read_Given();
    Model.SynBeta2 = Value_Of(txt_Beta2);
    Model.SynZ = Value_Of(txt_Zmag);
    Model.SynPhi = Value_Of(txt_Phi);
    const bool left = TwoPos(2, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynBeta2, Model.SynTheta, Model.SynPhi,
                             Model.SynW, Model.SynWx, Model.SynWy, Model.SynZ, Model.SynZx, Model.SynZy);
    Model.SynGamma2 = Value_Of(txt_Gamma2);
    Model.SynS = Value_Of(txt_Smag);
    Model.SynXi = Value_Of(txt_Xi);
    const bool right = TwoPos(2, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynGamma2, Model.SynSigma, Model.SynXi,
                              Model.SynU, Model.SynUx, Model.SynUy, Model.SynS, Model.SynSx, Model.SynSy);
    if (!left || !right) return false;
    txt_Wmag.Text = Rounded_Length(Model.SynW);
    txt_Theta.Text = Rounded_Angle(Model.SynTheta);
    txt_Umag.Text = Rounded_Length(Model.SynU);
    txt_Sigma.Text = Rounded_Angle(Model.SynSigma);
    Show_Magnitudes();
    Show_Values();
    Draw();
    Assemble(0);
    Show_Ground_Angle();
    Draw();
    return true;
}

}  // namespace verlink
