// The input screen: a run is calculated, stepped through and zoomed.
#include <cmath>
#include <string>
#include <utility>

#include "animation/engine.h"
#include "animation/shown.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/parameters.h"
#include "core/results.h"
#include "core/runs.h"
#include "core/text.h"
#include "platform/guard.h"
#include "screens/frm_inputnew.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::Icon;
using platform::Screens;
using platform::Tell;

namespace {

double Value_Of(const platform::TextBox& box) { return Val(box.Text.Get()); }

}  // namespace

void frm_Inputnew::cmd_Calc_Click() {
    Guarded("frm_Input.cmd_Calc_Click", [this] {
        hsc_step.Enabled = false;
        Run_Dropped();
        Model.ModuloMode = opt_Modulo[0].Value ? "180" : "abs";
        Integer Result = kRetrying;
        if (Run(Result))
            Show_Run();
        else
            Disable_Ways_On();
        Say_Why_Refused();
        Refresh_Status();
        Set_Menus();
        platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
    });
    hsc_step.Enabled = true;
}

/// What the screen shows of a run that was made, as far as it came.
void frm_Inputnew::Show_Run() {
    Allow_Time_Steps();
    hsc_step.SetMax(Model.NSteps);
    Model.CurrentStep = 0;
    Show_Ways_On();
    if (!Model.CamDriven && !Model.CognateEdit) SeedCognate();
    Model.ScreenReturn = true;
}

/// The first step, and the buttons that lead on from a run.
void frm_Inputnew::Show_Ways_On() {
    Show_Step();
    const bool several = Model.Calctype != run::kOnePosition;
    cmd_Done.Enabled = Model.RunStands;
    cmd_Animate.Enabled = Model.RunStands && several;
    cmd_Step.Enabled = Model.RunStands && several;
    if (Model.Calctype == run::kByAngle) Show_Step();
    if (Model.Calctype == run::kOnePosition) Show_First_Step();
}

/// The run of the present mode from what the boxes hold; false when there was none.
bool frm_Inputnew::Run(Integer& Result) {
    if (Model.Imported()) {
        Take_Speeds();
        txt_Thetazero.Text = Text_Of(Model.ThetaZero);
        // The boxes of a model from a file are read once they have been typed into.
        if (!Model.DiskFile || Is_Linkage_Touched(*this)) Get_Linkage_Geometry(*this);
        Classify_Linkage();
        Imported_Run(Result);
        return Model.Grashof_Code != "NL";
    }
    if (Model.Calctype == run::kOnePosition) {
        Take_Motion(txt_Thetazero, Model.ThetaZero);
        txt_initial[0].Text = txt_Thetazero.Text;
    }
    const bool accepted = Get_Initial_Conditions(*this);
    Get_Linkage_Geometry(*this);
    if (!accepted) return false;
    return Model.Calctype == run::kByAngle ? AngleStepDone(Result) : TimeStepDone(Result);
}

/// The run itself, once its limits are in the model.
bool frm_Inputnew::Run_Setup(Integer& Result) {
    Calc_Setup(Model.Calctype, Result);
    if (Model.Grashof_Code == "NL") return false;
    if (Screen* animate = Screens::Find("frm_Animate")) {
        Put_Linkage_Geometry(*animate);
        if (Model.Calctype == run::kByAngle)
            Put_Angle_Initial_Conditions(*animate);
        else
            Put_Time_Initial_Conditions(*animate);
    }
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
        Take_Motion(txt_initial[3], Model.Omega2Input);
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
        Take_Speeds();
        Single Start = Model.TimeStart, End = Model.TimeEnd, Increment = Model.TimeStep;
        if (Model.Calctype == run::kByTime) {
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
        if (Model.Calctype == run::kByTime) {
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

// The picture.

void frm_Inputnew::Show_Step() {
    Model.ShowCouplerLinesFlag = "N";
    Step_Setup(*this, Stepping);
    Stepping = false;
}

void frm_Inputnew::Run_Dragged(int step) {
    Run_Unasked(Model);
    const bool several = Model.Calctype != run::kOnePosition;
    Allow_Time_Steps();
    if (Model.RunStands) {
        hsc_step.SetMax(Model.NSteps);
        Show_Dragged(step);
        if (!Model.CamDriven && !Model.CognateEdit) SeedCognate();
        Model.ScreenReturn = true;
    } else {
        Show_Nothing(*this);
    }
    cmd_Done.Enabled = Model.RunStands;
    cmd_Animate.Enabled = cmd_Step.Enabled = Model.RunStands && several;
    Refresh_Status();
    Set_Menus();
}

void frm_Inputnew::Show_Dragged(int step) {
    const bool stepping = std::exchange(Stepping, true);
    Model.ShowCouplerLinesFlag = "N";
    Integer shown = step;
    Step(*this, shown);
    hsc_step.SetValue(step);
    Stepping = stepping;
    Model.CurrentStep = Model.Calctype > run::kOnePosition ? step + 1 : 0;
}

void frm_Inputnew::Show_First_Step() { Step_Reset(*this); }

void frm_Inputnew::cmd_Step_Click() {
    Show_Step();
    Run_Counts();
    Refresh_Status();
    Set_Menus();
}

void frm_Inputnew::cmd_Reset_Click() {
    if (Model.RunStands) Show_First_Step();
}

void frm_Inputnew::hsc_step_Change() {
    if (Stepping || !Model.Calculated) return;
    Model.CurrentStep = hsc_step.Value();
    Step(*this, Model.CurrentStep);
}

void frm_Inputnew::hsc_step_Scroll() {
    if (!Model.Calculated) return;
    Model.CurrentStep = hsc_step.Value();
    Step(*this, Model.CurrentStep);
}

void frm_Inputnew::mnu_Redraw_Click() {
    if (!Model.RunStands) return;
    Model.CurrentStep = 0;
    Show_Step();
}

void frm_Inputnew::Timer1_Timer() {
    Timer1.Enabled = false;
    Show_Nothing(*this);
}

}  // namespace verlink
