// The input screen: what its controls say and how they start.
#include "screens/frm_inputnew.h"

namespace verlink {

frm_Inputnew::frm_Inputnew() : Screen("frm_Inputnew") {
    opt_OpenCross[0].Value = true;
    opt_Calctype[3].Value = true;
    opt_Modulo[1].Value = true;
    opt_Shift_Drag[0].Value = true;
    opt_Polar[0].Value = true;
    chk_autocalc.Value = true;
    chk_autoscale.Value = true;
    Timer1.Interval = 250;
    DefaultButton = &cmd_Calc;
    CancelButton = &cmd_Cancel;
    cmd_Animate.Enabled = false;
    cmd_Step.Enabled = false;
    cmd_Done.Enabled = false;
    fra_toggle.Visible = false;

    txt_Linkout[1].Tip = "Length of link 2, the crank, from O2 to A, in the length unit shown";
    txt_Linkout[2].Tip = "Length of link 3, the coupler, from A to B, in the length unit shown";
    txt_Linkout[3].Tip = "Length of link 4, the rocker, from O4 to B, in the length unit shown";
    txt_Linkout[4].Tip = "Distance from A to the coupler point P, in the length unit shown";
    txt_Linkout[5].Tip = "Angle from the line AB to the line AP, degrees";
    txt_Linkout[0].Tip = "Length of link 1, the ground, from O2 to O4, in the length unit shown";
    txt_Linkout[6].Tip = "Direction of link 1 from O2 to O4, degrees";
    txt_Linkout[15].Tip = "X of the pivot O4 from O2, in the length unit shown";
    txt_Linkout[16].Tip = "Y of the pivot O4 from O2, in the length unit shown";
    opt_Polar[0].Tip = "Link 1 is entered as the coordinates of the pivot O4";
    opt_Polar[1].Tip = "Link 1 is entered as its length and angle";
    opt_Calctype[1].Tip = "Calculate at one crank angle";
    opt_Calctype[2].Tip = "Calculate at equal steps of time, seconds, with constant crank acceleration";
    opt_Calctype[3].Tip = "Calculate at equal steps of crank angle, degrees, with constant crank speed";
    txt_initial[0].Tip = "Start of the run: smallest crank angle, degrees, or first time, seconds";
    txt_initial[1].Tip = "End of the run: largest crank angle, degrees, or last time, seconds";
    txt_initial[2].Tip = "Step of the run: crank angle, degrees, or time, seconds";
    txt_initial[3].Tip = "Crank speed, rad/s; negative turns clockwise";
    txt_initial[4].Tip = "Crank acceleration, rad/s^2; phase of the driving angle, degrees, when link driven";
    txt_Thetazero.Tip = "Crank angle at time zero, degrees; with angle steps, the angle past the start to jump to";
    opt_OpenCross[0].Tip = "Assemble the linkage on its open circuit";
    opt_OpenCross[1].Tip = "Assemble the linkage on its crossed circuit";
    opt_Modulo[0].Tip = "Show angles from -180 to 180 degrees";
    opt_Modulo[1].Tip = "Show angles from 0 to 360 degrees";
    cmd_Calc.Tip = "Calculate the linkage with the data shown";
    chk_autocalc.Tip = "Calculate after every change of the data";
    txt_Figure.Tip = "Title of the model, one line";
    chk_autoscale.Tip = "Fit the picture to the linkage";
    hsc_step.Tip = "Position shown, by step of the run";
    cmd_Step.Tip = "Show the next position";
    cmd_Reset.Tip = "Show the first position";
    cmd_Animate.Tip = "Go to the animate screen";
    opt_Shift_Drag[0].Tip = "A shift-drag on the animate screen moves the coupler point";
    opt_Shift_Drag[1].Tip = "A shift-drag on the animate screen changes the crank's length";
    opt_Shift_Drag[2].Tip = "A shift-drag on the animate screen changes the rocker's length";
    opt_Shift_Drag[3].Tip = "A shift-drag on the animate screen moves the ground pivot O4";
    opt_Shift_Drag[4].Tip = "A shift-drag on the animate screen changes the coupler's length";
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Cancel.Tip = "Go back to the home screen";
    cmd_Done.Tip = "Take the linkage over and go on; calculate first";
}

void frm_Inputnew::Form_Activate() {}

}  // namespace verlink
