// The input screen: what its controls say and how they start.
#include "screens/frm_inputnew.h"

#include "core/linkage_model.h"
#include "dynamics/typed_units.h"
#include "screens/help_documents.h"

namespace verlink {

frm_Inputnew::frm_Inputnew() : Linkage_Screen("frm_Inputnew", "X-ed") {
    opt_Calctype[3].Value = true;
    opt_Modulo[1].Value = true;
    chk_autocalc.Value = true;
    chk_autoscale.Value = true;
    Timer1.Interval = 250;
    DefaultButton = &cmd_Calc;
    CancelButton = &cmd_Cancel;
    cmd_Animate.Enabled = false;
    cmd_Step.Enabled = false;
    cmd_Done.Enabled = false;

    cmd_PlotPrint.Keys = "Ctrl+P";
    hsc_step.KeepsArrows = false;

    for (auto& box : txt_initial) box->BackColor = Model.ColorYellow;

    Write_Tips();
    Bind_Boxes();
    Bind_Choices();
    Bind_Actions();
    Serve_Undo(*this, [this] { Show_Model(); });
}

void frm_Inputnew::Write_Tips() {
    opt_Calctype[1].Tip = "Calculate at one crank angle";
    opt_Calctype[2].Tip = "Calculate at equal steps of time, seconds, with constant crank acceleration";
    opt_Calctype[3].Tip = "Calculate at equal steps of crank angle, degrees, with constant crank speed";
    txt_initial[0].Tip = "Start of the run: smallest crank angle, degrees, or first time, seconds; less than the end";
    txt_initial[1].Tip = "End of the run: largest crank angle, degrees, or last time, seconds; more than the start";
    txt_initial[2].Tip =
        "Step of the run: crank angle, degrees, or time, seconds; more than zero, and at most 2880 steps in all";
    txt_initial[3].Tip = "Crank speed, rad/s; negative turns clockwise";
    txt_initial[4].Tip = "Crank acceleration, rad/s^2; phase of the driving angle, degrees, when link driven";
    txt_Thetazero.Tip = "Crank angle at time zero, degrees; with angle steps, the angle past the start to jump to";
    opt_Modulo[0].Tip = "Show angles from -180 to 180 degrees";
    opt_Modulo[1].Tip = "Show angles from 0 to 360 degrees";
    cmd_Calc.Tip = "Calculate the linkage with the data shown";
    chk_autocalc.Tip = "Calculate after every change of the data";
    txt_Figure.Tip = "Title of the model, one line";
    chk_autoscale.Tip = "Fit the picture to the linkage";
    hsc_step.Tip = "Position shown, by step of the run";
    cmd_Step.Tip = "Show the next position; the arrow keys go on and back";
    cmd_Reset.Tip = "Show the first position";
    cmd_Animate.Tip = "Go to the animate screen";
    Picture1.Tip = kPictureTip;
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
    txt_Linkout.OnTextChange([this](int i) { txt_Linkout_Change(i); });
    Linkage_Screen::Bind_Boxes(txt_initial, [this](int i) { txt_initial_LostFocus(i); });
    txt_Thetazero.OnGotFocus = [this] { txt_Thetazero.SelectAll(); };
    txt_Thetazero.OnLostFocus = txt_Thetazero.OnReturn = [this] { txt_Thetazero_LostFocus(); };
    Read_As_Limits(txt_initial);
    Reads_As(txt_initial[3], Model, Quantity::kSpeed);
    Reads_As(txt_initial[4], Model,
             [] { return Model.Calctype == run::kLinkDriven ? Quantity::kAngle : Quantity::kAcceleration; });
    Reads_As(txt_Thetazero, Model, Quantity::kAngle);
    txt_Figure.OnLostFocus = txt_Figure.OnReturn = [this] { txt_Figure_LostFocus(); };
}

void frm_Inputnew::Bind_Choices() {
    opt_Calctype.On(&platform::OptionButton::OnClick, [this](int i) { opt_Calctype_Click(i); });
    opt_Modulo.On(&platform::OptionButton::OnClick, [this](int i) { opt_Modulo_Click(i); });
    chk_autocalc.OnClick = [this] { AutoCalc = chk_autocalc.Value; };
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
    mnu_Cog.On(&platform::MenuEntry::OnClick, [this](int i) { mnu_Cog_Click(i); });
    mnu_Cayley.OnClick = [this] { mnu_Cayley_Click(); };
    mnu_Linkage.OnClick = [] { Show_Help(Help_Document("mnu_Linkdata"), "frm_Input.mnu_Linkage"); };
    mnu_Calculations.OnClick = [] { Show_Help(Help_Document("mnu_LinkCalc"), "frm_Input.mnu_Calculations"); };
    mnu_HandHelp.OnClick = [] { Show_Help(Help_Document("mnu_HandHelp"), "frm_Input.mnu_HandHelp"); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
}

}  // namespace verlink
