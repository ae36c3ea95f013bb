// The built-in linkages, as plain data.
#include "synthesis/examples.h"

#include "core/linkage_model.h"
#include "core/text.h"
#include "platform/screen.h"
#include "shell/failure_report.h"

namespace verlink {

namespace {

void Put_Initial(int index, double value) {
    platform::With<platform::TextBox>("frm_Inputnew", "txt_initial", index,
                                      [&](platform::TextBox& box) { box.Text = Text_Of(Single(value)); });
}

void Put_Time_Fields() {
    Put_Initial(0, Model.TimeStart);
    Put_Initial(1, Model.TimeEnd);
    Put_Initial(2, Model.TimeStep);
}

void Put_Initial_Values() {
    Put_Initial(0, Val(Model.ThetaStartStr));
    Put_Initial(1, Val(Model.ThetaEndStr));
    Put_Initial(2, Val(Model.ThetaStepStr));
    Put_Initial(3, Model.Omega2Input);
}

void Set_Geometry() {
    Model.Link1Angle = 0;
    Model.L2 = 1.115;
    Model.L3 = 2.5;
    Model.L4 = 2.5;
    Model.L1 = 2.667;
    Model.Link1X = Model.L1;
    Model.Link1Y = 0;
    Model.Rpa = 1.697;
    Model.Delta = -92.66;
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    Model.CircuitIndex = 1;
    Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
}

void Set_Drive() {
    Model.CamDriven = false;
    Model.Omega2Input = 10;
    Model.ThetaStart = 45;
    Model.ThetaEnd = 405;
    Model.ThetaStep = 10;
    Model.ThetaStartStr = "45";
    Model.ThetaEndStr = "405";
    Model.ThetaStepStr = "10";
    Model.ThetaStartRad = 45.0;  // unconverted, and the step in radians is left as it was
    Model.ThetaEndRad = 7.0685834715;
}

void Set_Masses() {
    Model.LinkMass(2) = 0.003;
    Model.LinkMass(3) = 0.006;
    Model.LinkMass(4) = 0.006;
    Model.ExtTorque(3) = 0;
    Model.ExtTorque(4) = 0;
    Model.CG(2, 0) = 0.5;
    Model.CG(2, 1) = 0;
    Model.CG(3, 0) = 0.9;
    Model.CG(3, 1) = -0.8726646261111112;
    Model.CG(4, 0) = 1.0;
    Model.CG(4, 1) = 0;
    Model.LinkInertia(2) = 0.028;
    Model.LinkInertia(3) = 0.22;
    Model.LinkInertia(4) = 0.129;
}

void Set_Synthesis() {
    Model.P21x = -0.575;
    Model.P21y = 0.803;
    Model.P31x = -1.928;
    Model.P31y = 0.553;
    Model.SynAlpha2 = -8.686;
    Model.SynAlpha3 = -10.961;
    Model.SynBeta2 = 45;
    Model.SynBeta3 = 90;
    Model.SynGamma2 = 3.355;
    Model.SynGamma3 = 14.972;
    Model.O2x = -2.264;
    Model.O2y = -5.279;
    Model.O4x = 7.111;
    Model.O4y = -5.279;
    Model.SynTheta = 30;
    Model.SynTheta2 = 120;
    Model.SynPhi = 83;
    Model.SynSigma = 100.77;
    Model.SynXi = 194.98;
    Model.SynS = 5.969534;
    Model.SynZ = 4.3072429;
}

}  // namespace

void Testlinkage() {
    Guarded("Testlinkage", [] {
        Model.ModelName = "Testlink";
        Model.FigureTitle = "A Grashof Crank-Rocker Linkage";
        Model.Grashof_Code = "Y";
        Set_Geometry();
        Set_Drive();
        Set_Masses();
        Set_Synthesis();
        LoadLinkArray();
        Put_Time_Fields();
        Put_Initial_Values();
    });
}

}  // namespace verlink
