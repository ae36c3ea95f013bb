// The input screen: what happens when a box is left, a choice is made, a button is pressed.
#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "animation/engine.h"
#include "animation/shown.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/parameters.h"
#include "core/results.h"
#include "core/runs.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "platform/deed.h"
#include "platform/guard.h"
#include "screens/frm_inputnew.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::CR;

namespace {

const char* Mode_Name(int Calctype) {
    switch (Calctype) {
        case 1: return "One Position";
        case 2: return "Time Steps";
        case 3: return "Angle Steps";
        case 4: return "Cam Driven";
        default: return "Link Driven";
    }
}

/// What was found out from a run, and an imported torque, fall with the next run; not where the screen only makes the
/// same run again as it comes up.
class Kept_Results {
   public:
    Kept_Results() {
        if (Model.TorqueImported || Model.DynamicsDone || Model.FFTDone)
            kept_ = std::make_unique<const LinkageModel>(Model);
    }
    void Put_Back() const {
        if (!kept_ || Model.NSteps != kept_->NSteps) return;
        if (kept_->TorqueImported) {
            Model.RunTable.ImportedTorque = kept_->RunTable.ImportedTorque;
            Model.TorqueImported = true;
        }
        if (!Model.RunStands || !Is_The_Same_Run()) return;
        Model.RunTable = kept_->RunTable;  // with the rows of mass centres
        if (kept_->DynamicsDone) Forces_Hold();
        if (kept_->BalanceDone) Balance_Holds();
        if (kept_->FFTDone) Transform_Holds();
    }

   private:
    bool Is_The_Same_Run() const {
        const RunResults &now = Model.RunTable, &then = kept_->RunTable;
        for (int step = 0; step <= Model.NSteps; ++step) {
            if (now.Assembled(step) != then.Assembled(step)) return false;
            for (int row = 0; row <= 2; ++row)
                if (now.Theta(step, row) != then.Theta(step, row) || now.Omega(step, row) != then.Omega(step, row) ||
                    now.Alpha(step, row) != then.Alpha(step, row) || !Is_At(now, then, step, row))
                    return false;
        }
        return true;
    }
    static bool Is_At(const RunResults& now, const RunResults& then, int step, int row) {
        return now.PointXY(step, row, 0) == then.PointXY(step, row, 0) &&
               now.PointXY(step, row, 1) == then.PointXY(step, row, 1);
    }

    std::unique_ptr<const LinkageModel> kept_;
};

}  // namespace

void frm_Inputnew::Form_Activate() {
    Guarded("frm_Input.Form_Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        joints_.Let_Go();
        Timer1.Enabled = true;
        Model.InputScreenOpen = true;
        Run_Held_Back();
        Disable_Ways_On();
        cmd_PlotPrint.Enabled = true;
        Model.ShowCouplerFlag = "Y";
        Model.ShowCentrodesFlag = "N";
        Fill();
        Model.CurrentStep = 5;
        AutoCalc = chk_autocalc.Value;
        if (AutoCalc) {
            const Kept_Results results;
            cmd_Calc_Click();
            results.Put_Back();
            Show_Nothing(*this);
        }
        txt_Figure.Text = Shown_Title();
        Model.LinkEdited = false;
        Run_Held_Back();
        Refresh_Status();
        Set_Menus();
    });
}

/// All that there is of the model, untouched by any hand.
void frm_Inputnew::Fill() {
    Say_Anew();
    hsc_step.SetMax(Model.NSteps);
    hsc_step.SetMin(0);
    txt_initial[1].Enabled = true;
    txt_initial[2].Enabled = true;
    for (auto* boxes : {&txt_Linkout, &txt_initial})
        for (const auto& box : *boxes) box->Settle();
    txt_Thetazero.Settle();
    Show_Values();
    Show_Choices();
    opt_Modulo[Model.ModuloMode == "180" ? 0 : 1].Value = true;
    Classify_Linkage();
    Allow_Time_Steps();
}

void frm_Inputnew::Show_Model() {
    Guarded("frm_Input.Show_Model", [this] {
        Fill();
        txt_Figure.Text = Shown_Title();
        Disable_Ways_On();
        Show_Nothing(*this);
        if (Model.RunStands) {
            Stepping = true;
            Model.CurrentStep = 0;
            Show_Ways_On();
            Stepping = false;
        }
        Check_Cognates();
        Refresh_Status();
        Set_Menus();
    });
}

void frm_Inputnew::Form_QueryUnload(bool& cancel) {
    cancel = false;
    Take_Pending();
    Run_Counts();
    Model.InputScreenOpen = false;
}

void frm_Inputnew::Show_Values() {
    const int mode = Model.Calctype;
    Put_Linkage_Geometry(*this);
    if (mode == run::kByTime) Put_Time_Initial_Conditions(*this);
    if (mode == run::kOnePosition || mode == run::kByAngle) Put_Angle_Initial_Conditions(*this);
    if (mode == run::kOnePosition) txt_initial[0].Text = Text_Of(Model.ThetaZero);
    if (mode <= run::kByTime) {
        txt_initial[4].Text = Text_Of(Model.Alpha2);
        txt_Thetazero.Text = Text_Of(Model.ThetaZero);
    }
    if (!Model.Imported()) {
        txt_initial[3].Text = Text_Of(Model.Omega2Input);
        if (opt_Calctype.Has(mode)) opt_Calctype[mode].Value = true;
    }
    if (mode == run::kLinkDriven) txt_initial[4].Text = Text_Of(Model.Delta2);
    Label_Mode();
}

void frm_Inputnew::Label_Mode() {
    const int mode = Model.Calctype;
    const bool limits = mode == run::kByTime || mode == run::kByAngle;
    const bool speed = !Model.Imported();
    const bool last = mode == run::kOnePosition || mode == run::kByTime || mode == run::kLinkDriven;
    for (int i = 0; i <= 4; ++i) {
        const bool shown = i <= 2 ? limits : i == 3 ? speed : last;
        lbl_Initial[i].Visible = shown;
        txt_initial[i].Visible = shown;
        lbl_Unit[i].Visible = shown;
    }
    for (int i = 0; i <= 2; ++i) lbl_Unit[i].Caption = mode == run::kByTime ? "sec" : "deg";
    lbl_Unit[4].Caption = mode == run::kLinkDriven ? "deg" : "rad/s^2";
    if (mode == run::kLinkDriven) lbl_Initial[4].Caption = "Delta 2";
    if (Model.Imported()) lbl_Initial[5].Caption = "Thetazero";

    fra_calcmode.Visible = speed;
    for (auto& option : opt_Calctype) option->Visible = speed;
    lbl_calctype.Caption = Mode_Name(mode);
    lbl_camdriven.Visible = !speed;
    lbl_camdriven.Caption = std::string(" This linkage is being driven by ") +
                            "s-v-a data imported from the file: " + CR + CR + Model.Model5Name;

    txt_Thetazero.BackColor = mode <= run::kByTime ? Model.ColorYellow : Model.ColorCyan;
    pnl_cw.Visible = mode >= run::kByAngle;
    pnl_ccw.Visible = mode >= run::kByAngle;
    pnl_time.Visible = mode == run::kByTime;
}

void frm_Inputnew::Allow_Time_Steps() { opt_Calctype[2].Enabled = Model.Grashof_Code != "N"; }

void frm_Inputnew::Disable_Ways_On() {
    cmd_Done.Enabled = false;
    cmd_Step.Enabled = false;
    cmd_Animate.Enabled = false;
}

void frm_Inputnew::Invalidate() {
    Forces_Dropped();
    Disable_Ways_On();
    Show_Nothing(*this);
}

// Boxes.

void frm_Inputnew::Take_Speeds() {
    const int mode = Model.Calctype;
    if (!Model.Imported()) Take_Motion(txt_initial[3], Model.Omega2Input);
    if (mode <= run::kByTime) {
        Take_Motion(txt_initial[4], Model.Alpha2);
        Take_Motion(txt_Thetazero, Model.ThetaZero);
    }
    if (mode == run::kLinkDriven) Take_Motion(txt_initial[4], Model.Delta2);
}

void frm_Inputnew::Take_Pending() {
    MoveFocus(nullptr);
    txt_Figure_LostFocus();
}

void frm_Inputnew::Settle() {
    Take_Typed();
    txt_Figure_LostFocus();
    Run_Counts();
    Refresh_Status();
    Set_Menus();
}

void frm_Inputnew::After_Change() {
    if (AutoCalc) return cmd_Calc_Click();
    if (!Model.RunStands) Disable_Ways_On();
    Show_Nothing(*this);
}

void frm_Inputnew::txt_Linkout_Change(int Index) {
    if (txt_Linkout[Index].Touched() && !AutoCalc) Invalidate();
}

void frm_Inputnew::txt_Linkout_LostFocus(int Index) {
    if (!txt_Linkout[Index].Touched()) return;
    joints_.Typed(Index);
    Get_Linkage_Geometry(*this);
    Model.LinkEdited = true;
    After_Change();
    joints_.Typed_Taken();
}

void frm_Inputnew::txt_initial_LostFocus(int Index) {
    if (!txt_initial[Index].Touched()) return;
    Guarded("frm_Input.txt_initial", [&] {
        Get_Initial_Conditions(*this);
        Take_Speeds();
    });
    After_Change();
}

void frm_Inputnew::txt_Thetazero_LostFocus() {
    if (!txt_Thetazero.Touched()) return;
    Guarded("frm_Input.txt_Thetazero_LostFocus", [this] {
        if (Model.Calctype == run::kByAngle) return Jump_To_Angle();
        if (Model.Imported()) {
            txt_Thetazero.Text = Text_Of(Model.ThetaZero);
            return;
        }
        Take_Speeds();
        if (Model.Calctype == run::kOnePosition) txt_initial[0].Text = txt_Thetazero.Text;
        After_Change();
    });
}

void frm_Inputnew::txt_Figure_LostFocus() {
    if (!txt_Figure.Touched()) return;
    txt_Figure.Settle();
    const std::string& title = txt_Figure.Text;
    if (title.empty() || title == "Figure" || title == Model.FigureTitle) return;
    Model.FigureTitle = title;
    Model_Unsaved();
}

void frm_Inputnew::Jump_To_Angle() {
    txt_Thetazero.Settle();
    if (!Model.RunStands) return;
    const double T = Val(txt_Thetazero.Text.Get());
    const double range = Model.ThetaEnd - Model.ThetaStart;
    if (T < range)
        Model.CurrentStep = std::max(0.0, std::floor(Divide(T, range) * Model.NSteps));
    else
        Model.CurrentStep = Model.NSteps;
    Step(*this, Model.CurrentStep);
    if (Model.CurrentStep > Model.NSteps) Model.CurrentStep = 0;
    Stepping = true;
    hsc_step.SetValue(Model.CurrentStep);
    Stepping = false;
    Model.CurrentStep += 1;
}

// Choices.

void frm_Inputnew::opt_Calctype_Click(int Index) {
    if (!Visible() || Model.Calctype == Index || Model.Calctype == run::kCamDriven) return;
    Guarded("frm_Input.opt_Calctype_Click", [this, Index] {
        Model.Calctype = Index;
        Run_Dropped();
        Nothing_Shown(*this);
        Model_Unsaved();
        // The texts of the limits are shared by the modes: each finds its own there.
        if (Index == 2) Derive_Time_Limits();
        if (Index == 3) Derive_Angle_Limits();
        if (Model.Omega2Input < 0.0) Model.Omega2Input = -Model.Omega2Input;
        Disable_Ways_On();
        Show_Values();
    });
}

void frm_Inputnew::opt_OpenCross_Click(int Index) {
    if (!Take_Circuit(Index)) return;
    Put_Linkage_Geometry(*this);
    cmd_Calc_Click();
}

void frm_Inputnew::opt_Modulo_Click(int Index) {
    const char* mode = Index == 0 ? "180" : "abs";
    if (Model.ModuloMode == mode) return;
    Model.ModuloMode = mode;
    Run_Dropped();
    After_Change();
}

// Other screens.

void frm_Inputnew::mnu_Cog_Click(int Index) {
    Guarded("frm_Input.mnu_Cog", [this, Index] {
        if (Refuse_Parallelogram()) return;
        Switch_Cognate(Index);
        Put_Linkage_Geometry(*this);
        Invalidate();
    });
}

void frm_Inputnew::mnu_Cayley_Click() {
    Guarded("frm_Input.mnu_Cayley", [this] {
        if (Refuse_Parallelogram()) return;
        const bool stood = Model.RunStands;
        const Integer before = Model.CognateNumber;
        Show_Centered("frm_Cayley");
        if (stood == Model.RunStands && before == Model.CognateNumber) return;
        Put_Linkage_Geometry(*this);
        Invalidate();
    });
}

void frm_Inputnew::Leave() {
    Model.InputScreenOpen = false;
    Hide();
}

void frm_Inputnew::cmd_Done_Click() {
    Guarded("cmd_Done_Click", [this] {
        Take_Pending();
        Run_Counts();
        if (Model.LinkEdited) Model.DesignNumber += 1;
        platform::Deed::By_Itself();
        Leave();
        Model.Synthesized = false;
        Model.CurrentStep = 0;
        if (Model.Calctype == run::kByTime || Model.Calctype == run::kByAngle) Show_Centered("frm_Animate");
    });
}

void frm_Inputnew::cmd_Animate_Click() {
    Guarded("frm_Input.cmd_Animate_Click", [this] {
        Run_Counts();
        Leave();
        Show_Centered("frm_Animate");
    });
}

void frm_Inputnew::cmd_Cancel_Click() {
    Run_Counts();
    Leave();
}

void frm_Inputnew::cmd_PlotPrint_Click() {
    Guarded_Unless_Cancelled("frm_Input.Print", [this] { Ask_And_Print(*this, CommonDialog1, Print_Note); });
}

}  // namespace verlink
