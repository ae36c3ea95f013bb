// The animate screen: what it shows at the start, and how it answers to the user.
#include "screens/frm_animate.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "animation/engine.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "core/text.h"
#include "platform/guard.h"
#include "screens/frm_help.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::CR;
using platform::CRLF;
using platform::Visual;

namespace {

constexpr int kSlowest = 32767;
constexpr double kZoomStep = 1.1;

/// Targets of a shift-drag, by the index of their option.
enum Target { kCrank = 0, kRocker = 1, kCouplerPoint = 2, kGround = 3, kCoupler = 4 };
constexpr int kTargets[] = {kCouplerPoint, kCrank, kRocker, kGround, kCoupler};

const std::string kMayNotAnimate =
    std::string("This linkage cannot connect at some positions") + CR + "and may not animate properly or at all." + CR +
    CR + "Use the Step button to move the linkage " + CR + "through all its possible (reachable) positions" + CR +
    "and note the useable range as reported in " + CR + "the (cyan) box labeled Theta2 at right." + CR + CR +
    "Reset Min and Max Theta values accordingly.  " + CR + " It will recalculate and then animate properly.";

}  // namespace

frm_Animate::frm_Animate() : Screen("frm_Animate") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    for (const char* item : {"10", "20", "40", "100", "500"}) cmb_wait.AddItem(item);

    hsc_speed.SetMax(kSlowest);
    hsc_speed.SmallChange = 100;
    hsc_speed.LargeChange = 1000;
    hsc_speed.SetValue(16383);
    hsc_step.SetMax(0);
    Timer1.Interval = 250;

    chk_autoscale.Value = true;
    chk_Showlinks.Value = true;
    chk_Coupler.Value = true;
    opt_Shift_Drag[0].Value = true;

    Set_Palette();
    lbl_StepNumber.BackColor = Model.ColorCyan;
    for (auto& box : txt_Linkout) box->BackColor = Model.ColorYellow;
    for (int derived : {0, 6}) txt_Linkout[derived].BackColor = Model.ColorCyan;
    for (auto& box : txt_initial) box->BackColor = Model.ColorYellow;
    opt_Polar[0].Value = true;
    DefaultButton = &cmd_Animate;
    StopButton = &cmd_Reset;
    Write_Tips();
    Bind();
}

void frm_Animate::Write_Tips() {
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
    Picture1.Tip = "The linkage at the present step, and its coupler curve";
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
    Write_Button_Tips();
}

void frm_Animate::Write_Button_Tips() {
    cmd_Animate.Tip = "Play the run; Escape stops it";
    cmd_Step.Tip = "Show the next position";
    cmd_Reset.Tip = "Go back to the first position; stops a run that plays";
    cmd_Recalc.Tip = "Calculate again with the changed data";
    cmd_PlotPrint.Tip = "Print this screen";
    cmd_Back.Tip = "Go back to the input screen";
    cmd_Done.Tip = "Leave for the home screen";
}

void frm_Animate::Bind() {
    cmd_Animate.OnClick = [this] { cmd_Animate_Click(); };
    cmd_Step.OnClick = [this] { cmd_Step_Click(); };
    cmd_Reset.OnClick = [this] { cmd_Reset_Click(); };
    cmd_Recalc.OnClick = [this] { cmd_Recalc_Click(); };
    cmd_Back.OnClick = [this] { cmd_Back_Click(); };
    cmd_Done.OnClick = [this] { cmd_Done_Click(); };
    cmd_PlotPrint.OnClick = [this] { cmd_PlotPrint_Click(); };
    hsc_step.OnChange = [this] { hsc_step_Change(); };
    hsc_step.OnScroll = [this] { hsc_step_Scroll(); };
    chk_Centrodes.OnClick = [this] { chk_Centrodes_Click(); };
    chk_CouplerLines.OnClick = [this] { chk_CouplerLines_Click(); };
    chk_autoscale.OnClick = [this] { chk_autoscale_Click(); };
    cmb_wait.OnChange = [this] { cmb_wait_Change(); };
    cmb_wait.OnClick = [this] { cmb_wait_Change(); };
    opt_Shift_Drag.On(&platform::OptionButton::OnClick, [this](int Index) { opt_Shift_Drag_Click(Index); });
    opt_OpenCross.On(&platform::OptionButton::OnClick, [this](int Index) { opt_OpenCross_Click(Index); });
    opt_Polar.On(&platform::OptionButton::OnClick, [this](int Index) { opt_Polar_Click(Index); });

    for (auto* boxes : {&txt_Linkout, &txt_initial}) {
        boxes->OnTextChange([this](int) { TextChanged = true; });
        for (const auto& box : *boxes) box->OnGotFocus = [this, entry = box.get()] { Box_Got_Focus(*entry); };
    }
    txt_Linkout.On(&Visual::OnLostFocus, [this](int Index) { txt_Linkout_LostFocus(Index); });
    txt_Linkout.On(&platform::TextBox::OnReturn, [this](int Index) { txt_Linkout_LostFocus(Index); });
    txt_initial.On(&Visual::OnLostFocus, [this](int Index) { txt_initial_LostFocus(Index); });
    txt_initial.On(&platform::TextBox::OnReturn, [this](int Index) { txt_initial_LostFocus(Index); });
    txt_Figure.OnLostFocus = [this] { txt_Figure_LostFocus(); };
    txt_Figure.OnReturn = [this] { txt_Figure_LostFocus(); };
    txt_Cycles.OnGotFocus = [this] { txt_Cycles.SelectAll(); };
    txt_LineAngle.OnGotFocus = [this] { txt_LineAngle.SelectAll(); };

    mnu_Plus.OnClick = [this] { mnu_Plus_Click(); };
    mnu_Normal.OnClick = [this] { mnu_Normal_Click(); };
    mnu_Minus.OnClick = [this] { mnu_Minus_Click(); };
    mnu_Redraw.OnClick = [this] { mnu_Redraw_Click(); };
    mnu_Help.OnClick = [this] { mnu_Help_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    Picture1.OnMouseMove = [this](int Button, int Shift, double X, double Y) {
        Picture1_MouseMove(Button, Shift, X, Y);
    };
}

void frm_Animate::Form_Activate() {
    Guarded("frm_Animate.Activate", [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Timer1.Interval = 250;
        Timer1.Enabled = true;
        // What the model holds is shown before the options answer as to the user's hand.
        Activated = false;
        if (!Model.Synthesized) Put_Circuit(*this);
        opt_Polar[Model.PolarCoords ? 1 : 0].Value = true;
        for (int option = 0; option < 5; ++option)
            if (kTargets[option] == Model.ShiftDragTarget) opt_Shift_Drag[option].Value = true;
        cmb_wait.Text = Text_Of(Model.AnimateWait);
        Activated = true;
        cmd_Recalc.Enabled = false;
        hsc_speed.SetValue(kSlowest - std::clamp<int>(Model.AnimateDelay, 0, kSlowest));
        txt_Cycles.Text = Text_Of(Model.Cycles);
        hsc_step.SetMax(Model.NSteps);
        hsc_step.SetValue(0);
        if (Model.Grashof_Code == "NL") cmd_Animate.Enabled = false;
        fra_toggle.Visible = Model.Grashof_Code == "N";
        for (int box : {1, 2}) txt_initial[box].Enabled = Model.Calctype != 1;
        for (auto& label : lbl_Units) label->Caption = Model.UnitLabel(6);
        chk_Centrodes.Value = Model.ShowCentrodesFlag == "Y";
        Fill_By_Calctype();
        Show_Initial_Panel();
        TextChanged = false;
        Model.CurrentStep = 0;
        cmd_Reset_Click();
        if (Model.Grashof_Code == "N") Toggle();
        if (!Model.FigureTitle.empty()) txt_Figure.Text = Model.FigureTitle;
        Unlock_Run_Buttons();
        mnu_Zoomcontrol.Enabled = chk_autoscale.Value;
        (Model.Calctype < 2 ? cmd_Done : cmd_Animate).SetFocus();
        Unlock_Run_Buttons();
        Model.LinkEdited = false;
    });
}

void frm_Animate::Fill_By_Calctype() {
    const int mode = Model.Calctype;
    const bool by_angle = mode >= 3;
    if (mode >= 1 && mode <= 5) Put_Linkage_Geometry(*this);
    if (mode == 1 || mode == 3) Put_Angle_Initial_Conditions(*this);
    if (mode == 2) Put_Time_Initial_Conditions(*this);
    pnl_cw.Visible = by_angle;
    pnl_ccw.Visible = by_angle;
    pnl_time.Visible = mode == 2;
    ShowInitial = mode < 4;
    ShowCamDriven = mode >= 4;
}

void frm_Animate::Form_Unload() {
    Guarded("frm_Animate.Unload", [&] { Leave(); });
}

void frm_Animate::Leave() {
    if (Model.LinkEdited) ++Model.DesignNumber;
    // The title is taken as it stands, empty or untouched.
    Model.FigureTitle = txt_Figure.Text;
    Activated = false;
}

void frm_Animate::Show_Initial_Panel() {
    for (auto& label : lbl_Initial) label->Visible = ShowInitial;
    for (auto& label : lbl_Unit) label->Visible = ShowInitial;
    for (auto& box : txt_initial) box->Visible = ShowInitial;
    lbl_Omega.Visible = ShowInitial;
    lbl_camdriven.Visible = ShowCamDriven;
    lbl_camdriven.Caption = std::string(" This linkage is being driven by s-v-a data imported from the file: ") + CRLF +
                            CRLF + Model.Model5Name;
}

void frm_Animate::Lock_Run_Buttons() {
    Model.FFTDone = false;
    Refresh_Status();
    Picture1.Canvas().Cls();
    for (auto* button : {&cmd_Animate, &cmd_Step, &cmd_Reset, &cmd_Done, &cmd_PlotPrint}) {
        button->Enabled = false;
        button->Tip = "Recalculate first";
    }
    cmd_Recalc.Enabled = true;
}

void frm_Animate::Unlock_Run_Buttons() {
    const bool several = Model.Calctype >= 2;
    cmd_Animate.Enabled = several;
    cmd_Step.Enabled = several;
    cmd_Reset.Enabled = true;
    cmd_Done.Enabled = true;
    cmd_Recalc.Enabled = false;
    cmd_PlotPrint.Enabled = true;
    Write_Button_Tips();
    if (!several) cmd_Animate.Tip = cmd_Step.Tip = "A single position does not move";
}

void frm_Animate::Recalculate() {
    Integer Result = kRetrying;
    if (Model.Calctype < 4) {
        Calc_Setup(Model.Calctype, Result);
    } else {
        Imported_Run(Result);
        Model.Calculated = true;
    }
    if (Result == kAborted) {
        Model.Calculated = false;
    } else {
        Model.CurrentStep = 0;
        cmd_Step_Click();
        if (!Model.CamDriven && !Model.CognateEdit) SeedCognate();
        Model.Calculated = true;
        Model.DynamicsDone = false;
        Model.BalanceDone = false;
        Model.FFTDone = false;
        Model.DiskFile = false;
        Model.SavedFlag = false;
    }
    fra_toggle.Visible = Model.Grashof_Code == "N";
    Model.ScreenReturn = true;
    Refresh_Status();
    platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
}

void frm_Animate::Box_Got_Focus(platform::TextBox& box) {
    // What the program has written into the boxes since the last one was left is no change of the user's.
    TextChanged = false;
    box.SelectAll();
}

void frm_Animate::txt_Linkout_LostFocus(int) {
    Guarded("frm_Animate.txt_Linkout", [&] {
        if (!TextChanged) return;
        Get_Linkage_Geometry(*this);
        Model.LinkEdited = true;
        Model.CognateNumber = 1;
        Lock_Run_Buttons();
        TextChanged = false;
    });
}

void frm_Animate::txt_initial_LostFocus(int) {
    Guarded("frm_Animate.txt_initial", [&] {
        if (!TextChanged) return;
        Get_Initial_Conditions(*this);
        Lock_Run_Buttons();
        TextChanged = false;
    });
}

void frm_Animate::txt_Figure_LostFocus() { Model.FigureTitle = txt_Figure.Text; }

void frm_Animate::cmd_Animate_Click() {
    Guarded("frm_Animate.cmd_Animate", [&] {
        hsc_step.SetValue(0);
        if (Model.NoConnectSeen) {
            for (auto* label : {&lbl_StepLabel, &lbl_StepNumber, &lbl_StepUnit}) label->Visible = true;
            platform::Tell(kMayNotAnimate, platform::Icon::kExclamation);
        }
        Model.RedrawFlag = "N";
        Animate(*this);
    });
}

void frm_Animate::cmd_Step_Click() {
    Guarded("frm_Animate.cmd_Step", [&] {
        Model.ShowCouplerLinesFlag = "N";
        Step_Setup(*this, StepLock);
    });
}

void frm_Animate::cmd_Reset_Click() {
    Guarded("frm_Animate.cmd_Reset", [&] { Step_Reset(*this); });
}

void frm_Animate::cmd_Recalc_Click() {
    Guarded("frm_Animate.cmd_Recalc", [&] {
        hsc_step.SetValue(0);
        Recalculate();
        Unlock_Run_Buttons();
        Model.SavedFlag = false;
        Refresh_Status();
        hsc_step.SetMax(Model.NSteps);
    });
}

void frm_Animate::cmd_Back_Click() {
    Guarded("frm_Animate.cmd_Back", [&] {
        Leave();
        Hide();
        Show_Centered("frm_Inputnew");
    });
}

void frm_Animate::cmd_Done_Click() {
    Guarded("frm_Animate.cmd_Done", [&] {
        Hide();
        Leave();
    });
}

void frm_Animate::cmd_PlotPrint_Click() {
    Guarded("frm_Animate.cmd_PlotPrint", [&] { Ask_And_Print(*this, CommonDialog1, Print_Note); });
}

void frm_Animate::hsc_step_Change() {
    Guarded("frm_Animate.hsc_step", [&] {
        if (StepLock) return;
        Model.CurrentStep = hsc_step.Value();
        if (Model.CurrentStep > 0) Step(*this, Model.CurrentStep);
    });
}

void frm_Animate::hsc_step_Scroll() {
    Guarded("frm_Animate.hsc_step", [&] {
        Model.CurrentStep = hsc_step.Value();
        Step(*this, Model.CurrentStep);
    });
}

void frm_Animate::chk_Centrodes_Click() { Model.ShowCentrodesFlag = chk_Centrodes.Value ? "Y" : "N"; }

void frm_Animate::chk_CouplerLines_Click() { cmd_Reset_Click(); }

void frm_Animate::chk_autoscale_Click() { mnu_Zoomcontrol.Enabled = chk_autoscale.Value; }

void frm_Animate::cmb_wait_Change() {
    Guarded("frm_Animate.cmb_wait", [&] { Model.AnimateWait = Val(cmb_wait.Text.Get()); });
}

void frm_Animate::opt_Shift_Drag_Click(int Index) { Model.ShiftDragTarget = kTargets[Index]; }

void frm_Animate::opt_OpenCross_Click(int) {
    Guarded("frm_Animate.opt_OpenCross", [&] {
        if (Model.DiskFile || !Activated) return;
        Get_Linkage_Geometry(*this);
        Recalculate();
        Unlock_Run_Buttons();
    });
}

void frm_Animate::opt_Polar_Click(int Index) {
    Model.PolarCoords = Index == 1;
    for (int box : {15, 16}) txt_Linkout[box].BackColor = Model.PolarCoords ? Model.ColorCyan : Model.ColorYellow;
    for (int box : {0, 6}) txt_Linkout[box].BackColor = Model.PolarCoords ? Model.ColorYellow : Model.ColorCyan;
}

void frm_Animate::Zoom(double factor) {
    Guarded("frm_Animate.Zoom", [&] {
        Model.ZoomFactor = factor;
        cmd_Reset_Click();
    });
}

void frm_Animate::mnu_Plus_Click() { Zoom(Model.ZoomFactor / kZoomStep); }
void frm_Animate::mnu_Normal_Click() { Zoom(1); }
void frm_Animate::mnu_Minus_Click() { Zoom(Model.ZoomFactor * kZoomStep); }

void frm_Animate::mnu_Redraw_Click() {
    Model.CurrentStep = 0;
    cmd_Step_Click();
}

void frm_Animate::mnu_Help_Click() {
    Hide();
    Show_Help(Help_Document("mnu_AnimateHelp"), "frm_Animate.mnu_Help");
    ShowModal();
}

void frm_Animate::Timer1_Timer() {
    Timer1.Enabled = false;
    mnu_Redraw_Click();
}

void frm_Animate::Picture1_MouseMove(int Button, int Shift, double X, double Y) {
    constexpr int kLeft = 1;
    constexpr int kShiftAlone = 1;
    if (Button != kLeft || Shift != kShiftAlone) return;
    Guarded("frm_Animate.Picture1", [&] {
        Single x;
        Single y;
        Rotate(X, Model.FlipSum - Y, Model.Link1Angle, -1, x, y);
        Drag(x, y);
        Get_Linkage_Geometry(*this);
        TextChanged = false;
        Recalculate();
        Unlock_Run_Buttons();
    });
}

void frm_Animate::Drag(Single x, Single y) {
    const auto write = [&](int box, double value, int decimals = 3) {
        txt_Linkout[box].Text = Text_Of(FNRound(value, decimals));
    };
    // After the last step the next one to be shown is the first.
    const int step = Model.CurrentStep > Model.NSteps ? 0 : int{Model.CurrentStep};
    const Single from_A_x = x - Model.RunTable.PointXY(step, 0, 0);
    const Single from_A_y = y - Model.RunTable.PointXY(step, 0, 1);
    const auto length = [](Single dx, Single dy) { return Single(std::sqrt(dy * dy + dx * dx)); };
    switch (Model.ShiftDragTarget) {
        case kCrank: {
            const Single L = length(x, y);
            write(1, L);
            lbl_StepNumber.Caption = Text_Of(FNRound(Atan2D(x, y), 1));
            Picture1.Canvas().Circle(0, Model.FlipSum, L, Model.ColorBlue);
            break;
        }
        // O4 is taken where it lies in the global frame, and in stored units.
        case kRocker: write(3, length(x - Model.Link1X, y - Model.Link1Y)); break;
        case kCouplerPoint:
            write(4, length(from_A_x, from_A_y));
            write(5, Atan2D(from_A_x, from_A_y) - Model.RunTable.Theta(step, 1));
            break;
        case kGround:
            if (Model.PolarCoords) {
                // The new angle is measured in the frame of the old one.
                write(0, length(x, y));
                write(6, Atan2D(x, y), 2);
            } else {
                write(15, x);
                write(16, y);
            }
            break;
        case kCoupler: write(2, length(from_A_x, from_A_y)); break;
        default: break;
    }
}

}  // namespace verlink
