// The animate screen: what it shows at the start, and how it answers to the user.
#include "screens/frm_animate.h"

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/screen_geometry.h"

namespace verlink {

frm_Animate::frm_Animate() : Screen("frm_Animate") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    for (const char* item : {"10", "20", "40", "100", "500"}) cmb_wait.AddItem(item);

    hsc_speed.SetMax(32767);
    hsc_speed.SmallChange = 100;
    hsc_speed.LargeChange = 1000;
    hsc_speed.SetValue(16383);
    hsc_step.SetMax(0);
    Timer1.Interval = 250;

    chk_autoscale.Value = true;
    chk_Showlinks.Value = true;
    chk_Coupler.Value = true;
    opt_Shift_Drag[0].Value = true;

    cmb_wait.Tip = "Multiplies the delay of a frame";
    hsc_speed.Tip = "Speed of a run; at the right end there is no delay";
    hsc_step.Tip = "The position shown, by step";
    txt_Figure.Tip = "One line that describes the model";
    txt_Cycles.Tip = "How many times a run plays";
    chk_autoscale.Tip = "Fit the window to the motion; zooming acts only then";
    chk_Trace.Tip = "Leave all positions of a run in the picture";
    chk_Showlinks.Tip = "Show crank, coupler and rocker";
    chk_Coupler.Tip = "Show the path of the coupler point: a line by angle, dots by time";
    chk_Centrodes.Tip = "Show the fixed centrode in black, the moving one in red";
    chk_CouplerLines.Tip = "Show a line of the coupler through the coupler point at each step";
    txt_LineAngle.Tip = "Angle of the coupler lines to the coupler, degrees";
    opt_Shift_Drag[0].Tip = "Shift-drag in the picture moves the coupler point";
    opt_Shift_Drag[1].Tip = "Shift-drag in the picture changes the length of the crank";
    opt_Shift_Drag[2].Tip = "Shift-drag in the picture changes the length of the rocker";
    opt_Shift_Drag[3].Tip = "Shift-drag in the picture moves the fixed pivot O4";
    opt_Shift_Drag[4].Tip = "Shift-drag in the picture changes the length of the coupler";
    opt_Polar[0].Tip = "Enter link 1 by the coordinates of its pivot O4";
    opt_Polar[1].Tip = "Enter link 1 by its length and angle";
    opt_OpenCross[0].Tip = "The open circuit of the linkage";
    opt_OpenCross[1].Tip = "The crossed circuit of the linkage";
    txt_Linkout[0].Tip = "Length of the ground link O2 to O4, length unit";
    txt_Linkout[1].Tip = "Length of the crank O2 to A, length unit";
    txt_Linkout[2].Tip = "Length of the coupler A to B, length unit";
    txt_Linkout[3].Tip = "Length of the rocker O4 to B, length unit";
    txt_Linkout[4].Tip = "Distance from A to the coupler point P, length unit";
    txt_Linkout[5].Tip = "Angle from the coupler A to B to the coupler point, degrees";
    txt_Linkout[6].Tip = "Angle of the ground link in the global frame, degrees";
    txt_Linkout[15].Tip = "x of the fixed pivot O4 from O2, length unit";
    txt_Linkout[16].Tip = "y of the fixed pivot O4 from O2, length unit";
    txt_initial[0].Tip = "Where the run starts: smallest crank angle in degrees, or time in seconds";
    txt_initial[1].Tip = "Where the run ends: largest crank angle in degrees, or time in seconds";
    txt_initial[2].Tip = "From step to step: crank angle in degrees, or time in seconds";
    cmd_Animate.Tip = "Play the run";
    cmd_Step.Tip = "Show the next position";
    cmd_Reset.Tip = "Go back to the first position";
    cmd_Recalc.Tip = "Calculate again with the changed data";
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Back.Tip = "Go back to the input screen";
    cmd_Done.Tip = "Leave for the home screen";

    Set_Palette();
    lbl_StepNumber.BackColor = Model.ColorCyan;
    for (auto& box : txt_Linkout) box->BackColor = Model.ColorYellow;
    for (int derived : {0, 6}) txt_Linkout[derived].BackColor = Model.ColorCyan;
    for (auto& box : txt_initial) box->BackColor = Model.ColorYellow;
    opt_Polar[0].Value = true;
    DefaultButton = &cmd_Animate;
}

}  // namespace verlink
