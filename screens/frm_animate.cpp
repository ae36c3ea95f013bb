// The animate screen: what it shows at the start, and how it answers to the user.
#include "screens/frm_animate.h"

#include <algorithm>
#include <cmath>
#include <optional>
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
#include "core/window_sizes.h"
#include "dynamics/typed_units.h"
#include "platform/deed.h"
#include "platform/guard.h"
#include "platform/unheard.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "synthesis/cognates.h"

namespace verlink {

using platform::CR;
using platform::CRLF;

namespace {

constexpr int kSlowest = 32767;

const std::string kMayNotAnimate =
    std::string("This linkage cannot connect at some positions") + CR + "and may not animate properly or at all." + CR +
    CR + "Use the Step button to move the linkage " + CR + "through all its possible (reachable) positions" + CR +
    "and note the useable range as reported in " + CR + "the (cyan) box labeled Theta2 at right." + CR + CR +
    "Reset Min and Max Theta values accordingly.  " + CR + " It will recalculate and then animate properly.";

}  // namespace

frm_Animate::frm_Animate() : Linkage_Screen("frm_Animate", "Crossed") {
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

    lbl_StepNumber.BackColor = Model.ColorCyan;
    for (auto& box : txt_initial) box->BackColor = Model.ColorYellow;
    DefaultButton = &cmd_Animate;
    StopButton = &cmd_Reset;
    StopKeys = "Space";
    cmd_Animate.Keys = "Space";
    cmd_PlotPrint.Keys = "Ctrl+P";
    hsc_step.KeepsArrows = false;
    Write_Tips();
    Bind();
    Serve_Undo(*this, [this] { Show_Model(); });
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
    chk_Centrodes.OnClick = [this] { Model.ShowCentrodesFlag = chk_Centrodes.Value ? "Y" : "N"; };
    chk_CouplerLines.OnClick = [this] { cmd_Reset_Click(); };
    chk_autoscale.OnClick = [this] { zoom.mnu_Zoomcontrol.Enabled = chk_autoscale.Value; };
    cmb_wait.OnChange = [this] { cmb_wait_Change(); };
    cmb_wait.OnClick = [this] { cmb_wait_Change(); };
    cmb_wait.OnLostFocus = [this] { WaitRefused = false; };
    Bind_Boxes(txt_initial, [this](int Index) { txt_initial_LostFocus(Index); });
    Read_As_Limits(txt_initial);
    Reads_As(txt_Cycles, Model, Quantity::kNumber);
    Reads_As(txt_LineAngle, Model, Quantity::kAngle);
    txt_Figure.OnLostFocus = [this] { txt_Figure_LostFocus(); };
    txt_Figure.OnReturn = [this] { txt_Figure_LostFocus(); };
    txt_Cycles.OnGotFocus = [this] { txt_Cycles.SelectAll(); };
    txt_LineAngle.OnGotFocus = [this] { txt_LineAngle.SelectAll(); };
    // What is set here counts at once, also for who leaves without playing.
    hsc_speed.OnChange = chk_Trace.OnClick = chk_Showlinks.OnClick =
        chk_Coupler.OnClick = [this] { Check_Parameters(*this); };
    txt_LineAngle.OnLostFocus = [this] {
        Check_Parameters(*this);
        txt_LineAngle.Settle();
    };
    txt_Cycles.OnLostFocus = [this] {
        Check_Parameters(*this);
        txt_Cycles.Text = Text_Of(Model.Cycles);
    };

    mnu_Redraw.OnClick = [this] { mnu_Redraw_Click(); };
    mnu_Help.OnClick = [] { Show_Help(Help_Document("mnu_AnimateHelp"), "frm_Animate.mnu_Help"); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    Picture1.OnMouseMove = [this](int Button, int Shift, double X, double Y) {
        Picture1_MouseMove(Button, Shift, X, Y);
    };
}

void frm_Animate::Form_Activate() {
    Guarded("frm_Animate.Activate", [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        joints_.Let_Go();
        Timer1.Interval = 250;
        Timer1.Enabled = true;
        Fill();
        Model.CurrentStep = 0;
        cmd_Reset_Click();
        if (Model.Grashof_Code == "N") Toggle();
        txt_Figure.Text = Shown_Title();
        live.Arrived();
        Unlock_Run_Buttons();
        zoom.mnu_Zoomcontrol.Enabled = chk_autoscale.Value;
        (Model.Calctype < run::kByTime ? cmd_Done : cmd_Animate).SetFocus();
        Unlock_Run_Buttons();
        Model.LinkEdited = false;
    });
}

/// All that there is of the model, untouched by any hand.
void frm_Animate::Fill() {
    Say_Anew();
    for (auto* boxes : {&txt_Linkout, &txt_initial})
        for (const auto& box : *boxes) box->Settle();
    txt_LineAngle.Settle();
    WaitRefused = false;
    Show_Choices();
    Show_Settings();
    hsc_step.SetMax(Model.NSteps);
    hsc_step.SetValue(0);
    if (Model.Grashof_Code == "NL") cmd_Animate.Enabled = false;
    fra_toggle.Visible = Model.Grashof_Code == "N";
    for (int box : {1, 2}) txt_initial[box].Enabled = Model.Calctype != run::kOnePosition;
    for (auto& label : lbl_Units) label->Caption = Model.UnitLabel(6);
    Fill_By_Calctype();
    Show_Initial_Panel();
}

void frm_Animate::Show_Model() {
    Guarded("frm_Animate.Show_Model", [this] {
        Fill();
        Classify_Linkage();
        txt_Figure.Text = Shown_Title();
        if (Model.RunStands) {
            Unlock_Run_Buttons();
            const int shown = Shown_Step();
            cmd_Reset_Click();
            // A step back leaves the user in the position that he looks at.
            if (shown > 0 && shown <= Model.NSteps) Show_Dragged(shown);
        } else {
            Lock_Run_Buttons();
        }
        live.Arrived();
        Refresh_Status();
        Set_Menus();
    });
}

/// The settings of the record in their controls, all before any of them is read back.
void frm_Animate::Show_Settings() {
    const DisplaySettings kept = Model;
    cmb_wait.Text = Text_Of(kept.AnimateWait);
    hsc_speed.SetValue(kSlowest - std::clamp<int>(kept.AnimateDelay, 0, kSlowest));
    txt_Cycles.Text = Text_Of(kept.Cycles);
    chk_Showlinks.Value = kept.HideLinksFlag == "N";
    chk_Trace.Value = kept.TraceFlag == "Y";
    chk_Centrodes.Value = kept.ShowCentrodesFlag == "Y";
    static_cast<DisplaySettings&>(Model) = kept;
}

void frm_Animate::Fill_By_Calctype() {
    const int mode = Model.Calctype;
    const bool by_angle = mode >= run::kByAngle;
    Put_Linkage_Geometry(*this);
    if (mode == run::kOnePosition || mode == run::kByAngle) Put_Angle_Initial_Conditions(*this);
    if (mode == run::kByTime) Put_Time_Initial_Conditions(*this);
    pnl_cw.Visible = by_angle;
    pnl_ccw.Visible = by_angle;
    pnl_time.Visible = mode == run::kByTime;
    ShowInitial = !Model.Imported();
    ShowCamDriven = Model.Imported();
}

void frm_Animate::Form_Unload() {
    Guarded("frm_Animate.Unload", [&] { Leave(); });
}

void frm_Animate::Leave() {
    txt_Figure_LostFocus();
    platform::Deed::So_Far();
    if (Model.LinkEdited) ++Model.DesignNumber;
    platform::Deed::By_Itself();
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
    Transform_Dropped();
    Refresh_Status();
    Show_Nothing(*this);
    for (auto* button : {&cmd_Animate, &cmd_Step, &cmd_Reset, &cmd_Done, &cmd_PlotPrint}) {
        button->Enabled = false;
        button->Tip = "Recalculate first";
    }
    cmd_Recalc.Enabled = true;
}

void frm_Animate::Unlock_Run_Buttons() {
    const bool several = Model.Calctype >= run::kByTime;
    cmd_Animate.Enabled = several;
    cmd_Step.Enabled = several;
    cmd_Reset.Enabled = true;
    cmd_Done.Enabled = true;
    cmd_Recalc.Enabled = false;
    cmd_PlotPrint.Enabled = true;
    Write_Button_Tips();
    if (!several) cmd_Animate.Tip = cmd_Step.Tip = "A single position does not move";
}

void frm_Animate::Solve() {
    Integer Result = kRetrying;
    if (!Model.Imported()) {
        // An undo may have come to a linkage that was synthesised and never run.
        if (Divided_Into_Steps(Model) || Get_Initial_Conditions(*this)) Calc_Setup(Model.Calctype, Result);
    } else {
        Classify_Linkage();
        Imported_Run(Result);
    }
}

void frm_Animate::Settle_Run(const std::function<void()>& show) {
    if (Model.RunStands) {
        hsc_step.SetMax(Model.NSteps);
        live.Run_Made();
        show();
        if (!Model.CamDriven && !Model.CognateEdit) SeedCognate();
        Model.DiskFile = false;
        Unlock_Run_Buttons();
    } else {
        // Nothing that could be played, plotted or left with.
        Lock_Run_Buttons();
    }
    Model_Unsaved();
    Model.ScreenReturn = true;
    Refresh_Status();
    platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
}

void frm_Animate::Recalculate() {
    Solve();
    Settle_Run([this] {
        Model.CurrentStep = 0;
        cmd_Step_Click();
    });
}

void frm_Animate::Run_Dragged(int step) {
    Run_Unasked(Model);
    Settle_Run([&] { Show_Dragged(step); });
}

void frm_Animate::Show_Dragged(int step) {
    const bool lock = std::exchange(StepLock, true);
    Integer shown = step;
    Step(*this, shown);
    hsc_step.SetValue(step);
    StepLock = lock;
    Model.CurrentStep = Model.Calctype > run::kOnePosition ? step + 1 : 0;
}

void frm_Animate::txt_Linkout_LostFocus(int Index) {
    Guarded("frm_Animate.txt_Linkout", [&] {
        if (!txt_Linkout[Index].Touched()) return;
        joints_.Typed(Index);
        Get_Linkage_Geometry(*this);
        Model.LinkEdited = true;
        Lock_Run_Buttons();
        joints_.Typed_Taken();
    });
}

void frm_Animate::txt_initial_LostFocus(int Index) {
    Guarded("frm_Animate.txt_initial", [&] {
        if (!txt_initial[Index].Touched()) return;
        Get_Initial_Conditions(*this);
        Lock_Run_Buttons();
    });
}

void frm_Animate::txt_Figure_LostFocus() {
    if (!txt_Figure.Touched()) return;
    txt_Figure.Settle();
    if (txt_Figure.Text == Model.FigureTitle) return;
    Model.FigureTitle = txt_Figure.Text;
    Model_Unsaved();
}

void frm_Animate::cmd_Animate_Click() {
    Guarded("frm_Animate.cmd_Animate", [&] {
        hsc_step.SetValue(0);
        if (Model.NoConnectSeen) {
            for (auto* label : {&lbl_StepLabel, &lbl_StepNumber, &lbl_StepUnit}) label->Visible = true;
            platform::Tell(kMayNotAnimate, platform::Icon::kExclamation);
        }
        Model.RedrawFlag = "N";
        Animate(*this);
        // Where nothing plays, the picture would be none of the scale that was set up.
        if (Model.Cycles < 1) Step_Reset(*this);
    });
}

void frm_Animate::cmd_Step_Click() {
    Guarded("frm_Animate.cmd_Step", [&] {
        if (!Model.RunStands) return;
        Model.ShowCouplerLinesFlag = "N";
        Step_Setup(*this, StepLock);
    });
}

void frm_Animate::cmd_Reset_Click() {
    Guarded("frm_Animate.cmd_Reset", [&] {
        if (Model.RunStands) Step_Reset(*this);
    });
}

void frm_Animate::cmd_Recalc_Click() {
    Guarded("frm_Animate.cmd_Recalc", [&] {
        hsc_step.SetValue(0);
        Recalculate();
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
        if (StepLock || !Model.RunStands) return;
        Model.CurrentStep = hsc_step.Value();
        if (Model.CurrentStep > 0) Step(*this, Model.CurrentStep);
    });
}

void frm_Animate::hsc_step_Scroll() {
    Guarded("frm_Animate.hsc_step", [&] {
        if (!Model.RunStands) return;
        Model.CurrentStep = hsc_step.Value();
        Step(*this, Model.CurrentStep);
    });
}

void frm_Animate::cmb_wait_Change() {
    // Of a number that is too large each further digit would be told of.
    std::optional<platform::Unheard> silence;
    if (WaitRefused) silence.emplace();
    const bool taken = Guarded("frm_Animate.cmb_wait", [&] { Model.AnimateWait = Val(cmb_wait.Text.Get()); });
    if (taken) return;
    WaitRefused = true;
    cmb_wait.Text = Text_Of(Model.AnimateWait);
}

void frm_Animate::opt_OpenCross_Click(int Index) {
    Guarded("frm_Animate.opt_OpenCross", [&] {
        if (!Take_Circuit(Index)) return;
        Put_Linkage_Geometry(*this);
        Recalculate();
    });
}

void frm_Animate::mnu_Redraw_Click() {
    Model.CurrentStep = 0;
    cmd_Step_Click();
}

void frm_Animate::Timer1_Timer() {
    Timer1.Enabled = false;
    // Who has left already is not drawn for, and his settings are not read again.
    if (Visible()) mnu_Redraw_Click();
}

}  // namespace verlink
