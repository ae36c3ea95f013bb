// The animate screen: the linkage moves, joints are dragged, and links are changed beside the picture.
#pragma once

#include <functional>

#include "core/linkage_model.h"
#include "core/number.h"
#include "platform/desktop_services.h"
#include "platform/overlaid_picture.h"
#include "screens/drawing_entry.h"
#include "screens/edit_menu.h"
#include "screens/file_entries.h"
#include "screens/frm_help.h"
#include "screens/joint_hand.h"
#include "screens/linkage_screen.h"
#include "screens/live_plots.h"
#include "screens/picture_entries.h"
#include "screens/view_menu.h"
#include "screens/zoom_menu.h"

namespace verlink {

class frm_Animate : public Linkage_Screen {
   public:
    frm_Animate();

    void Form_Activate() override;
    void Form_Unload() override;

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    Zoom_Menu zoom{*this, "frm_Animate", [this] { cmd_Reset_Click(); }};
    platform::MenuEntry mnu_Redraw{*this, "mnu_Redraw", "Redraw"};
    File_Entries Files{*this, [this] { Take_Typed(); }};
    Edit_Menu edit{*this};
    View_Menu view{*this};
    platform::MenuEntry mnu_ViewBar1{view.mnu_View, "mnu_ViewBar1", ""};
    View_Choice mnu_ViewLive{view.mnu_View, "mnu_ViewLive", "Live Plots", "live",
                             "Functions of the run beside the drawing, which move with it"};
    Picture_Entries pictures{view.mnu_View, Picture1};
    Motion_Entry motion{view.mnu_View};
    Linkage_Drawing_Entry drawing{view.mnu_View};
    Positions_Entry positions{view};

    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::TextBox txt_Figure{*this, "txt_Figure", "Figure"};
    platform::Overlaid_Picture Picture1{*this, "Picture1"};

    platform::Label pnl_cw{*this, "pnl_cw", "<-- Start"};
    platform::ScrollBar hsc_step{*this, "hsc_step"};
    platform::Label pnl_ccw{*this, "pnl_ccw", "End -->"};
    platform::Label pnl_time{*this, "pnl_time", "Time ---->"};
    platform::Label lbl_StepLabel{*this, "lbl_StepLabel", "Theta2"};
    platform::Label lbl_StepNumber{*this, "lbl_StepNumber"};
    platform::Label lbl_StepUnit{*this, "lbl_StepUnit", "deg"};

    platform::Frame fra_Speed{*this, "fra_Speed", "Animation Speed"};
    platform::ScrollBar hsc_speed{*this, "hsc_speed"};
    platform::Label lbl_speed{*this, "lbl_speed", "<< Slow    Fast >>"};
    platform::Frame fra_Range{*this, "fra_Range", "Range"};
    platform::ComboBox cmb_wait{*this, "cmb_wait", "10"};
    platform::Frame fra_Cycles{*this, "fra_Cycles", "Cycles"};
    platform::TextBox txt_Cycles{*this, "txt_Cycles", "1"};

    platform::Frame fra_Settings{*this, "fra_Settings", "Animation Settings"};
    platform::CheckBox chk_autoscale{*this, "chk_autoscale", "Autoscale"};
    platform::CheckBox chk_Trace{*this, "chk_Trace", "Trace"};
    platform::Frame fra_Show{*this, "fra_Show", "Show"};
    platform::CheckBox chk_Showlinks{*this, "chk_Showlinks", "Links"};
    platform::CheckBox chk_Coupler{*this, "chk_Coupler", "Coupler Path"};
    platform::CheckBox chk_Centrodes{*this, "chk_Centrodes", "Centrodes"};
    platform::CheckBox chk_CouplerLines{*this, "chk_CouplerLines", "Cplr Lines @"};
    platform::TextBox txt_LineAngle{*this, "txt_LineAngle", "90"};
    platform::Label lbl_LineAngle{*this, "lbl_LineAngle", "deg"};

    platform::Label pnl_ShiftDrag{*this, "pnl_ShiftDrag", "Shift-Click-Drag on"};
    platform::Label pnl_ShiftDragNote{*this, "pnl_ShiftDragNote", "to change coupler curve"};

    platform::Frame fra_initial{*this, "fra_initial", "Initial Conditions"};
    platform::ControlArray<platform::Label> lbl_Initial{
        *this, "lbl_Initial", {{0, "Min Theta"}, {1, "Max Theta"}, {2, "Delta Theta"}, {3, "Omega2"}}};
    platform::ControlArray<platform::TextBox> txt_initial{*this, "txt_initial", {{0, ""}, {1, ""}, {2, ""}}};
    platform::Label lbl_Omega{*this, "lbl_Omega"};
    platform::ControlArray<platform::Label> lbl_Unit{
        *this, "lbl_Unit", {{0, "deg"}, {1, "deg"}, {2, "deg"}, {3, "rad/s"}}};
    platform::Label lbl_camdriven{*this, "lbl_camdriven"};

    platform::CommandButton cmd_Animate{*this, "cmd_Animate", "&Run"};
    platform::CommandButton cmd_Step{*this, "cmd_Step", "&Step"};
    platform::CommandButton cmd_Reset{*this, "cmd_Reset", "Rese&t"};
    platform::CommandButton cmd_Recalc{*this, "cmd_Recalc", "&Recalc"};
    platform::CommandButton cmd_PlotPrint{*this, "cmd_PlotPrint", "&Print"};
    platform::CommandButton cmd_Back{*this, "cmd_Back", "< Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "Next >"};

    platform::Timer Timer1{*this, "Timer1"};
    /// Name and file of the model in hand, and whether it was modified.
    platform::Label lbl_Model{*this, "lbl_Model"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

    Live_Plots live{*this, Model, hsc_step, mnu_ViewLive};

    void cmd_Animate_Click();
    void cmd_Step_Click();
    void cmd_Reset_Click();
    void cmd_Recalc_Click();
    void cmd_Back_Click();
    void cmd_Done_Click();
    void cmd_PlotPrint_Click();
    void hsc_step_Change();
    void hsc_step_Scroll();
    void cmb_wait_Change();
    void opt_OpenCross_Click(int Index) override;
    void txt_Linkout_LostFocus(int Index) override;
    void txt_initial_LostFocus(int Index);
    void txt_Figure_LostFocus();
    void mnu_Redraw_Click();
    void Timer1_Timer();
    /// Shift-drag: the target's length follows the mouse, measured at the position in the picture, and the whole run is
    /// solved anew. X and Y are world coordinates of the picture, Y as drawn.
    void Picture1_MouseMove(int Button, int Shift, double X, double Y);

    void Run_Dragged(int step) override;
    void Show_Dragged(int step) override;

   private:
    void Bind();
    void Write_Tips();
    void Write_Button_Tips();
    void Fill();
    /// The screen as it is with this model, run or not.
    void Show_Model();
    void Fill_By_Calctype();
    void Show_Settings();
    void Leave();
    void Drag(double X, double Y);
    void Say_Held_Target();

    void Lock_Run_Buttons();
    void Unlock_Run_Buttons();
    void Recalculate();
    void Solve();
    void Settle_Run(const std::function<void()>& show);
    void Show_Initial_Panel();

    Joint_Hand joints_{*this, Picture1};
    bool WaitRefused = false;    ///< since `cmb_wait` has the focus a number was too large for it, and that was told
    bool StepLock = false;       ///< after the first step `hsc_step` follows its thumb alone
    bool ShowInitial = true;     ///< the run is generated: its limits are shown
    bool ShowCamDriven = false;  ///< the run is imported: its file is told instead
};

}  // namespace verlink
