// The input screen: what happens when a box is left, a choice is made, a button is pressed.
#include <algorithm>
#include <cmath>
#include <string>

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/screen_geometry.h"
#include "core/status_panel.h"
#include "core/text.h"
#include "platform/guard.h"
#include "screens/frm_help.h"
#include "screens/frm_inputnew.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::CR;
using platform::Icon;
using platform::Screens;
using platform::Tell;

namespace {

constexpr double kZoomStep = 1.1;
/// Targets of a shift-drag, by the index of their option.
constexpr int kTargets[] = {2, 0, 1, 3, 4};

double Value_Of(const platform::TextBox& box) { return Val(box.Text.Get()); }

const char* Mode_Name(int Calctype) {
    switch (Calctype) {
        case 1: return "One Position";
        case 2: return "Time Steps";
        case 3: return "Angle Steps";
        case 4: return "Cam Driven";
        default: return "Link Driven";
    }
}

}  // namespace

/// While one exists the screen is filling itself.
class frm_Inputnew::Filling {
   public:
    explicit Filling(frm_Inputnew& screen) : screen_(screen), before_(screen.Loading) { screen_.Loading = true; }
    ~Filling() { screen_.Loading = before_; }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

   private:
    frm_Inputnew& screen_;
    bool before_;
};

void frm_Inputnew::Form_Activate() {
    Guarded("frm_Input.Form_Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Timer1.Enabled = true;
        Filling filling(*this);
        Model.InputScreenOpen = true;
        Model.Calculated = false;
        Disable_Ways_On();
        cmd_PlotPrint.Enabled = true;
        Model.ShowCouplerFlag = "Y";
        Model.ShowCentrodesFlag = "N";
        hsc_step.SetMax(Model.NSteps);
        hsc_step.SetMin(0);
        txt_initial[1].Enabled = true;
        txt_initial[2].Enabled = true;
        Show_Values();
        if (Model.Calctype < 4) {
            txt_initial[0].Text = Model.ThetaStartStr;
            txt_initial[1].Text = Model.ThetaEndStr;
            txt_initial[2].Text = Model.ThetaStepStr;
            txt_initial[3].Text = Text_Of(Model.Omega2Input);
            if (opt_Calctype.Has(Model.Calctype)) opt_Calctype[Model.Calctype].Value = true;
        }
        opt_Modulo[Model.ModuloMode == "180" ? 0 : 1].Value = true;
        for (int option = 0; option < 5; ++option)
            if (kTargets[option] == Model.ShiftDragTarget) opt_Shift_Drag[option].Value = true;
        Show_Toggles(Model.Grashof_Code != "Y");
        Model.CurrentStep = 5;
        AutoCalc = chk_autocalc.Value;
        if (AutoCalc) {
            cmd_Calc_Click();
            Picture1.Canvas().Cls();
        }
        Label_Mode();
        if (!Model.FigureTitle.empty()) txt_Figure.Text = Model.FigureTitle;
        opt_Polar[Model.PolarCoords ? 1 : 0].Value = true;
        Model.LinkEdited = false;
        Edited = false;
        // Results of this first calculation count only once the user has acted on them.
        Model.Calculated = false;
        Refresh_Status();
        Set_Menus();
    });
}

void frm_Inputnew::Form_QueryUnload(bool& cancel) {
    cancel = false;
    Model.InputScreenOpen = false;
}

void frm_Inputnew::Show_Values() {
    Filling filling(*this);
    Put_Linkage_Geometry(*this);
    switch (Model.Calctype) {
        case 1:
            Put_Angle_Initial_Conditions(*this);
            txt_initial[4].Text = Text_Of(Model.Alpha2);
            txt_Thetazero.Text = Text_Of(Model.ThetaZero);
            break;
        case 2:
            Put_Time_Initial_Conditions(*this);
            txt_Thetazero.Text = Text_Of(Model.ThetaZero);
            break;
        case 3: Put_Angle_Initial_Conditions(*this); break;
        case 5: txt_initial[4].Text = Text_Of(Model.Delta2); break;
        default: break;
    }
    Label_Mode();
}

void frm_Inputnew::Label_Mode() {
    const int mode = Model.Calctype;
    const bool limits = mode == 2 || mode == 3;
    const bool speed = mode < 4;
    const bool last = mode == 1 || mode == 2 || mode == 5;
    for (int i = 0; i <= 4; ++i) {
        const bool shown = i <= 2 ? limits : i == 3 ? speed : last;
        lbl_Initial[i].Visible = shown;
        txt_initial[i].Visible = shown;
        lbl_Unit[i].Visible = shown;
    }
    for (int i = 0; i <= 2; ++i) lbl_Unit[i].Caption = mode == 2 ? "sec" : "deg";
    lbl_Unit[4].Caption = mode == 5 ? "deg" : "rad/s^2";
    if (mode == 5) lbl_Initial[4].Caption = "Delta 2";
    if (mode >= 4) lbl_Initial[5].Caption = "Thetazero";

    fra_calcmode.Visible = speed;
    for (auto& option : opt_Calctype) option->Visible = speed;
    lbl_calctype.Caption = Mode_Name(mode);
    lbl_camdriven.Visible = !speed;
    lbl_camdriven.Caption = std::string(" This linkage is being driven by ") +
                            "s-v-a data imported from the file: " + CR + CR + Model.Model5Name;

    txt_Thetazero.BackColor = mode <= 2 ? Model.ColorYellow : Model.ColorCyan;
    pnl_cw.Visible = mode >= 3;
    pnl_ccw.Visible = mode >= 3;
    pnl_time.Visible = mode == 2;
}

void frm_Inputnew::Show_Toggles(bool shown) {
    fra_toggle.Visible = shown;
    for (auto& label : lbl_Toggle) label->Visible = shown;
    opt_Calctype[2].Enabled = Model.Grashof_Code != "N";
}

void frm_Inputnew::Disable_Ways_On() {
    cmd_Done.Enabled = false;
    cmd_Step.Enabled = false;
    cmd_Animate.Enabled = false;
}

void frm_Inputnew::Invalidate() {
    Model.DynamicsDone = false;
    Model.BalanceDone = false;
    Disable_Ways_On();
    Picture1.Canvas().Cls();
}

// Boxes.

void frm_Inputnew::txt_Linkout_Change(int) {
    if (Loading) return;
    Edited = true;
    if (!AutoCalc) Invalidate();
}

void frm_Inputnew::txt_Linkout_LostFocus(int) {
    if (!Edited) return;
    Get_Linkage_Geometry(*this);
    Model.LinkEdited = true;
    Model.CognateEdit = false;
    Model.CognateNumber = 1;
    if (AutoCalc) cmd_Calc_Click();
    Edited = false;
}

void frm_Inputnew::txt_initial_LostFocus(int Index) {
    if (!Edited) return;
    if (Model.Calctype == 1 && Index == 0) txt_Thetazero.Text = txt_initial[0].Text;  // both hold the one position
    Get_Initial_Conditions(*this);
    if (AutoCalc)
        cmd_Calc_Click();
    else
        Picture1.Canvas().Cls();
    Edited = false;
}

void frm_Inputnew::txt_Thetazero_LostFocus() {
    if (!Edited) return;
    if (Model.Calctype == 3) {
        Jump_To_Angle();
    } else if (Model.Calctype < 3) {
        if (Model.Calctype == 1) txt_initial[0].Text = txt_Thetazero.Text;
        if (AutoCalc)
            cmd_Calc_Click();
        else
            Picture1.Canvas().Cls();
    }
    Edited = false;
}

void frm_Inputnew::Jump_To_Angle() {
    Guarded("frm_Input.txt_Thetazero_LostFocus", [this] {
        if (Model.NSteps < 0) return;  // nothing has been run yet
        const double T = Value_Of(txt_Thetazero);
        const double range = Model.ThetaEnd - Model.ThetaStart;
        if (T < range)
            Model.CurrentStep = std::max(0.0, std::floor(Divide(T, range) * Model.NSteps));
        else
            Model.CurrentStep = Model.NSteps;
        Draw_Position(Model.CurrentStep);
        if (Model.CurrentStep > Model.NSteps) Model.CurrentStep = 0;
        Stepping = true;
        hsc_step.SetMax(Model.NSteps);
        hsc_step.SetValue(Model.CurrentStep);
        Stepping = false;
        Model.CurrentStep += 1;
    });
}

// Choices.

void frm_Inputnew::opt_Polar_Click(int Index) {
    Model.PolarCoords = Index == 1;
    const platform::Color polar = Model.PolarCoords ? Model.ColorYellow : Model.ColorCyan;
    const platform::Color cartesian = Model.PolarCoords ? Model.ColorCyan : Model.ColorYellow;
    for (int box : {0, 6}) txt_Linkout[box].BackColor = polar;
    for (int box : {15, 16}) txt_Linkout[box].BackColor = cartesian;
}

void frm_Inputnew::opt_Calctype_Click(int Index) {
    if (Loading || !Visible() || Model.Calctype == 4) return;
    Guarded("frm_Input.opt_Calctype_Click", [this, Index] {
        Model.Calctype = Index;
        // The texts of the limits are shared by the modes: each finds its own there.
        if (Index == 2) Derive_Time_Limits();
        if (Index == 3) Derive_Angle_Limits();
        Disable_Ways_On();
        Show_Values();
        const Single speed = Value_Of(txt_initial[3]);
        if (speed < 0.0) txt_initial[3].Text = Text_Of(Single(-speed));
    });
}

void frm_Inputnew::opt_OpenCross_Click(int) {
    if (Loading || !Visible()) return;
    if (!Model.DiskFile && Model.Calctype < 4) Get_Linkage_Geometry(*this);
    if (Model.Calctype < 4) cmd_Calc_Click();
}

void frm_Inputnew::opt_Modulo_Click(int Index) { Model.ModuloMode = Index == 0 ? "180" : "abs"; }

void frm_Inputnew::opt_Shift_Drag_Click(int Index) { Model.ShiftDragTarget = kTargets[Index]; }

void frm_Inputnew::chk_autocalc_Click() { AutoCalc = chk_autocalc.Value; }

// Calculation.

void frm_Inputnew::cmd_Calc_Click() {
    Guarded("frm_Input.cmd_Calc_Click", [this] {
        Filling filling(*this);
        hsc_step.Enabled = false;
        Model.Calculated = false;
        Model.ModuloMode = opt_Modulo[0].Value ? "180" : "abs";
        Integer Result = kRetrying;
        if (!Run(Result)) {
            Disable_Ways_On();
            Refresh_Status();
            Set_Menus();
            return;
        }
        if (Result != kAborted) Model.Calculated = true;
        Show_Toggles(Model.Grashof_Code == "N");
        Model.CurrentStep = 0;
        cmd_Step_Click();
        cmd_Done.Enabled = true;
        if (Model.Calctype != 1) {
            cmd_Animate.Enabled = true;
            cmd_Step.Enabled = true;
        }
        if (Model.Calctype == 3) cmd_Step_Click();
        if (Model.Calctype == 1) cmd_Reset_Click();
        if (!Model.CamDriven && !Model.CognateEdit) SeedCognate();
        Model.Calculated = true;  // also after an abort: the positions up to there are on show
        Model.ScreenReturn = true;
        hsc_step.SetMax(Model.NSteps);
        Refresh_Status();
        Set_Menus();
        platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
    });
    hsc_step.Enabled = true;
}

/// The run of the present mode from what the boxes hold; false when there was none.
bool frm_Inputnew::Run(Integer& Result) {
    if (Model.Calctype >= 4) {
        txt_Thetazero.Text = Text_Of(Model.ThetaZero);
        if (!Model.DiskFile) Get_Linkage_Geometry(*this);
        Imported_Run(Result);
        return Model.Grashof_Code != "NL";
    }
    if (Model.Calctype == 1) txt_initial[0].Text = txt_Thetazero.Text;
    const bool accepted = Get_Initial_Conditions(*this);
    Get_Linkage_Geometry(*this);
    if (!accepted) return false;
    return Model.Calctype == 3 ? AngleStepDone(Result) : TimeStepDone(Result);
}

/// The run itself, once its limits are in the model.
bool frm_Inputnew::Run_Setup(Integer& Result) {
    Calc_Setup(Model.Calctype, Result);
    if (Model.Grashof_Code == "NL") return false;
    if (Screen* animate = Screens::Find("frm_Animate")) {
        Put_Linkage_Geometry(*animate);
        if (Model.Calctype == 3)
            Put_Angle_Initial_Conditions(*animate);
        else
            Put_Time_Initial_Conditions(*animate);
    }
    if (Result != kAborted) Model.Calculated = true;
    Set_Menus();
    return true;
}

bool frm_Inputnew::AngleStepDone(Integer& Result) {
    bool done = false;
    Guarded("frm_Input.AngleStepDone", [&] {
        const Single Start = Value_Of(txt_initial[0]);
        const Single End = Value_Of(txt_initial[1]);
        const Single Increment = Value_Of(txt_initial[2]);
        const Single StartRad = Start * kDegToRad, EndRad = End * kDegToRad, StepRad = Increment * kDegToRad;
        if (StepRad == 0.0) {
            Tell("Cannot have a zero step size - Please check your data.", Icon::kExclamation);
            return;
        }
        const double steps = Steps_Of(StartRad, EndRad, StepRad);
        if (steps > kLastStep) {
            Tell(Too_Many_Steps("angle", "Delta Theta"));
            return;
        }
        Model.ThetaStart = Start;
        Model.ThetaEnd = End;
        Model.ThetaStep = Increment;
        Model.Omega2Input = Value_Of(txt_initial[3]);
        Derive_Angle_Limits();
        Model.NSteps = steps;
        Model.Alpha2 = 0;
        done = Run_Setup(Result);
    });
    return done;
}

bool frm_Inputnew::TimeStepDone(Integer& Result) {
    bool done = false;
    Guarded("frm_Input.TimeStepDone", [&] {
        Model.ThetaZero = Value_Of(txt_Thetazero);
        Model.Omega2Input = Value_Of(txt_initial[3]);
        Model.Alpha2 = Value_Of(txt_initial[4]);
        Single Start = Model.TimeStart, End = Model.TimeEnd, Increment = Model.TimeStep;
        if (Model.Calctype == 2) {
            Start = Value_Of(txt_initial[0]);
            End = Value_Of(txt_initial[1]);
            Increment = Value_Of(txt_initial[2]);
        }
        // The time limits of the model are looked at for one position too.
        const double steps = Increment > 0.0 ? Steps_Of(Start, End, Increment) : kLastStep + 1.0;
        if (steps > kLastStep) {
            Tell(Too_Many_Steps("time", "Delta Time or Reduce Finish Time"));
            return;
        }
        if (Model.Calctype == 2) {
            Model.TimeStart = Start;
            Model.TimeEnd = End;
            Model.TimeStep = Increment;
            Derive_Time_Limits();
        }
        Model.NSteps = steps;
        done = Run_Setup(Result);
    });
    return done;
}

void frm_Inputnew::Recalculate() {
    Guarded("frm_Input.Recalculate", [this] {
        Integer Result = kRetrying;
        if (Model.Calctype < 4)
            Calc_Setup(Model.Calctype, Result);
        else
            Imported_Run(Result);
        const bool good = Result != kAborted && Model.Grashof_Code != "NL";
        if (good) {
            Model.CurrentStep = 0;
            cmd_Step_Click();
        }
        Model.Calculated = good;
        Model.ScreenReturn = true;
    });
}

// The picture.

void frm_Inputnew::Draw_Position(Integer& step) {
    Filling filling(*this);
    Step(*this, step);
}

void frm_Inputnew::cmd_Step_Click() {
    Filling filling(*this);
    Model.ShowCouplerLinesFlag = "N";
    Step_Setup(*this, Stepping);
    Stepping = false;
}

void frm_Inputnew::cmd_Reset_Click() {
    Filling filling(*this);
    Step_Reset(*this);
}

void frm_Inputnew::hsc_step_Change() {
    if (Stepping || !Model.Calculated) return;
    Model.CurrentStep = hsc_step.Value();
    Draw_Position(Model.CurrentStep);
}

void frm_Inputnew::hsc_step_Scroll() {
    if (!Model.Calculated) return;
    Model.CurrentStep = hsc_step.Value();
    Draw_Position(Model.CurrentStep);
}

void frm_Inputnew::mnu_Redraw_Click() {
    Model.CurrentStep = 0;
    cmd_Step_Click();
}

void frm_Inputnew::Zoom(double factor) {
    Guarded("frm_Input.Zoom", [this, factor] {
        Model.ZoomFactor = factor;
        cmd_Reset_Click();
    });
}

void frm_Inputnew::mnu_Plus_Click() { Zoom(Model.ZoomFactor / kZoomStep); }
void frm_Inputnew::mnu_Normal_Click() { Zoom(1); }
void frm_Inputnew::mnu_Minus_Click() { Zoom(Model.ZoomFactor * kZoomStep); }

void frm_Inputnew::Timer1_Timer() {
    Timer1.Enabled = false;
    Picture1.Canvas().Cls();
}

// Other screens.

void frm_Inputnew::mnu_Cog_Click(int Index) {
    Guarded("frm_Input.mnu_Cog", [this, Index] {
        if (Refuse_Parallelogram()) return;
        Switch_Cognate(Index);
        // The boxes hold the cognate from here on, and there is no run of it yet.
        Filling filling(*this);
        Put_Linkage_Geometry(*this);
        Edited = false;
        Invalidate();
    });
}

void frm_Inputnew::mnu_Cayley_Click() {
    Guarded("frm_Input.mnu_Cayley", [] {
        if (!Refuse_Parallelogram()) Show_Centered("frm_Cayley");
    });
}

void frm_Inputnew::mnu_Linkage_Click() { Show_Help(Help_Document("mnu_Linkdata"), "frm_Input.mnu_Linkage"); }

void frm_Inputnew::mnu_Calculations_Click() { Show_Help(Help_Document("mnu_LinkCalc"), "frm_Input.mnu_Calculations"); }

void frm_Inputnew::Leave() {
    Model.InputScreenOpen = false;
    Hide();
}

void frm_Inputnew::cmd_Done_Click() {
    Guarded("cmd_Done_Click", [this] {
        if (Model.LinkEdited) Model.DesignNumber += 1;
        const std::string& title = txt_Figure.Text;
        if (!title.empty() && title != "Figure") Model.FigureTitle = title;
        Leave();
        Model.Synthesized = false;
        Model.CurrentStep = 0;
        if (Model.Calctype == 2 || Model.Calctype == 3) Show_Centered("frm_Animate");
    });
}

void frm_Inputnew::cmd_Animate_Click() {
    Guarded("frm_Input.cmd_Animate_Click", [this] {
        Leave();
        Model.CurrentStep = 0;
        Show_Centered("frm_Animate");
    });
}

void frm_Inputnew::cmd_Cancel_Click() { Leave(); }

void frm_Inputnew::cmd_PlotPrint_Click() {
    Guarded_Unless_Cancelled("frm_Input.Print", [this] { Ask_And_Print(*this, CommonDialog1, Print_Note); });
}

}  // namespace verlink
