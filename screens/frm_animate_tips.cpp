// What the animate screen says of each of its controls.
#include "screens/frm_animate.h"

namespace verlink {

void frm_Animate::Write_Tips() {
    cmb_wait.Tip = "Multiplies the delay of a frame";
    hsc_speed.Tip = "Speed of a run; at the right end there is no delay";
    hsc_step.Tip = "The position shown, by step";
    txt_Figure.Tip = "One line that describes the model";
    txt_Cycles.Tip = "How many times a run plays, from 1 to 32767";
    chk_autoscale.Tip = "Fit the window to the motion; zooming acts only then";
    chk_Trace.Tip = "Leave all positions of a run in the picture";
    chk_Showlinks.Tip = "Show crank, coupler and rocker";
    chk_Coupler.Tip = "Show the path of the coupler point: a line by angle, dots by time";
    chk_Centrodes.Tip = "Show the fixed centrode in black, the moving one in red";
    chk_CouplerLines.Tip = "Show a line of the coupler through the coupler point at each step";
    txt_LineAngle.Tip = "Angle of the coupler lines to the coupler, degrees";
    Picture1.Tip = kPictureTip;
    opt_Shift_Drag[0].Tip = "Shift-drag in the picture moves the coupler point";
    opt_Shift_Drag[1].Tip = "Shift-drag in the picture changes the length of the crank";
    opt_Shift_Drag[2].Tip = "Shift-drag in the picture changes the length of the rocker";
    opt_Shift_Drag[3].Tip = "Shift-drag in the picture moves the fixed pivot O4";
    opt_Shift_Drag[4].Tip = "Shift-drag in the picture changes the length of the coupler";
    txt_initial[0].Tip = "Where the run starts: smallest crank angle in degrees, or time in seconds; less than the end";
    txt_initial[1].Tip = "Where the run ends: largest crank angle in degrees, or time in seconds; more than the start";
    txt_initial[2].Tip =
        "From step to step: crank angle in degrees, or time in seconds; more than zero, and at most 2880 steps in all";
    Write_Button_Tips();
}

void frm_Animate::Write_Button_Tips() {
    cmd_Animate.Tip = "Play the run (Space); Escape or Space stops it";
    cmd_Step.Tip = "Show the next position; the arrow keys go on and back";
    cmd_Reset.Tip = "Go back to the first position; stops a run that plays";
    cmd_Recalc.Tip = "Calculate again with the changed data";
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Back.Tip = "Go back to the input screen";
    cmd_Done.Tip = "Leave for the home screen";
}

}  // namespace verlink
