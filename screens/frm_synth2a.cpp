// Two positions by method 1.
#include "screens/frm_synth2a.h"

#include "core/linkage_model.h"
#include "synthesis/dyads.h"

namespace verlink {

frm_Synth2A::frm_Synth2A() : Two_Position_Screen("frm_Synth2A", {0, 1}) { Bind_Boxes(); }

bool frm_Synth2A::Solve() {
    Read_Given();
    Model.SynTheta = Value_Of(txt_Theta);
    Model.SynBeta2 = Value_Of(txt_Beta2);
    Model.SynPhi = Value_Of(txt_Phi);
    const bool left = TwoPos(1, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynBeta2, Model.SynTheta, Model.SynPhi,
                             Model.SynW, Model.SynWx, Model.SynWy, Model.SynZ, Model.SynZx, Model.SynZy);
    Model.SynSigma = Value_Of(txt_Sigma);
    Model.SynGamma2 = Value_Of(txt_Gamma2);
    Model.SynXi = Value_Of(txt_Xi);
    const bool right = TwoPos(1, Model.P21x, Model.P21y, Model.SynAlpha2, Model.SynGamma2, Model.SynSigma, Model.SynXi,
                              Model.SynU, Model.SynUx, Model.SynUy, Model.SynS, Model.SynSx, Model.SynSy);
    if (!left || !right) return false;
    Assemble(0);
    Show_Values();
    Show_Magnitudes();
    Show_Ground_Angle();
    Draw();
    return true;
}

}  // namespace verlink
