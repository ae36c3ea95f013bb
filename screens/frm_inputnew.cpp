// The input screen: what its controls say and how they start.
#include "screens/frm_inputnew.h"

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/screen_geometry.h"

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

    Set_Palette();
    for (auto& box : txt_Linkout) box->BackColor = Model.ColorYellow;
    for (int derived : {0, 6}) txt_Linkout[derived].BackColor = Model.ColorCyan;
    for (auto& box : txt_initial) box->BackColor = Model.ColorYellow;
    txt_Thetazero.BackColor = Model.ColorYellow;
    Width() = kWorkWidth;
    Height() = kWorkHeight;

    Write_Tips();
    Bind_Boxes();
    Bind_Choices();
    Bind_Actions();
}

void frm_Inputnew::Write_Tips() {
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
    Picture1.Tip = "The linkage at the present step, and its coupler curve";
    opt_Shift_Drag[0].Tip = "A shift-drag on the animate screen moves the coupler point";
    opt_Shift_Drag[1].Tip = "A shift-drag on the animate screen changes the crank's length";
    opt_Shift_Drag[2].Tip = "A shift-drag on the animate screen changes the rocker's length";
    opt_Shift_Drag[3].Tip = "A shift-drag on the animate screen moves the ground pivot O4";
    opt_Shift_Drag[4].Tip = "A shift-drag on the animate screen changes the coupler's length";
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Cancel.Tip = "Go back to the home screen";
    cmd_Done.Tip = "Take the linkage over and go on; calculate first";
}

void frm_Inputnew::Bind_Boxes() {
    const auto select = [this](platform::TextBox& box) {
        // What the program has written into the boxes since the last one was left is no edit of the user's.
        Edited = false;
        box.SelectAll();
    };
    txt_Linkout.On(&platform::Visual::OnGotFocus, [this, select](int i) { select(txt_Linkout[i]); });
    txt_Linkout.On(&platform::Visual::OnLostFocus, [this](int i) { txt_Linkout_LostFocus(i); });
    txt_Linkout.On(&platform::TextBox::OnReturn, [this](int i) { txt_Linkout_LostFocus(i); });
    txt_Linkout.OnTextChange([this](int i) { txt_Linkout_Change(i); });
    txt_initial.On(&platform::Visual::OnGotFocus, [this, select](int i) { select(txt_initial[i]); });
    txt_initial.On(&platform::Visual::OnLostFocus, [this](int i) { txt_initial_LostFocus(i); });
    txt_initial.On(&platform::TextBox::OnReturn, [this](int i) { txt_initial_LostFocus(i); });
    txt_initial.OnTextChange([this](int) { Edited = Edited || !Loading; });
    txt_Thetazero.OnGotFocus = [this, select] { select(txt_Thetazero); };
    txt_Thetazero.OnLostFocus = txt_Thetazero.OnReturn = [this] { txt_Thetazero_LostFocus(); };
    txt_Thetazero.Text.Event = [this] { Edited = Edited || !Loading; };
}

void frm_Inputnew::Bind_Choices() {
    opt_Polar.On(&platform::OptionButton::OnClick, [this](int i) { opt_Polar_Click(i); });
    opt_Calctype.On(&platform::OptionButton::OnClick, [this](int i) { opt_Calctype_Click(i); });
    opt_OpenCross.On(&platform::OptionButton::OnClick, [this](int i) { opt_OpenCross_Click(i); });
    opt_Modulo.On(&platform::OptionButton::OnClick, [this](int i) { opt_Modulo_Click(i); });
    opt_Shift_Drag.On(&platform::OptionButton::OnClick, [this](int i) { opt_Shift_Drag_Click(i); });
    chk_autocalc.OnClick = [this] { chk_autocalc_Click(); };
}

void frm_Inputnew::Bind_Actions() {
    cmd_Calc.OnClick = [this] { cmd_Calc_Click(); };
    cmd_Step.OnClick = [this] { cmd_Step_Click(); };
    cmd_Reset.OnClick = [this] { cmd_Reset_Click(); };
    cmd_Animate.OnClick = [this] { cmd_Animate_Click(); };
    cmd_PlotPrint.OnClick = [this] { cmd_PlotPrint_Click(); };
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    hsc_step.OnChange = [this] { hsc_step_Change(); };
    hsc_step.OnScroll = [this] { hsc_step_Scroll(); };
    mnu_Redraw.OnClick = [this] { mnu_Redraw_Click(); };
    mnu_Plus.OnClick = [this] { mnu_Plus_Click(); };
    mnu_Normal.OnClick = [this] { mnu_Normal_Click(); };
    mnu_Minus.OnClick = [this] { mnu_Minus_Click(); };
    mnu_Cog.On(&platform::MenuEntry::OnClick, [this](int i) { mnu_Cog_Click(i); });
    mnu_Cayley.OnClick = [this] { mnu_Cayley_Click(); };
    mnu_Linkage.OnClick = [this] { mnu_Linkage_Click(); };
    mnu_Calculations.OnClick = [this] { mnu_Calculations_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
}

}  // namespace verlink
