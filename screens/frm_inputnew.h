// The input screen: the linkage is typed, calculated and stepped through.
#pragma once

#include "core/number.h"
#include "platform/desktop_services.h"
#include "platform/overlaid_picture.h"
#include "screens/drawing_entry.h"
#include "screens/edit_menu.h"
#include "screens/file_entries.h"
#include "screens/frm_help.h"
#include "screens/joint_hand.h"
#include "screens/linkage_screen.h"
#include "screens/picture_entries.h"
#include "screens/view_menu.h"
#include "screens/zoom_menu.h"

namespace verlink {

/// With `chk_autocalc` ticked every change runs the calculation at once, else `cmd_Calc` does. The run that is made
/// when the screen comes up is shown, and counts from the user's next action: Next, Animate, Step, or Back.
class frm_Inputnew : public Linkage_Screen {
   public:
    frm_Inputnew();
    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel) override;

    /// Takes the limits and speed of an angle run from the boxes and runs it. False when the limits are refused, with
    /// a message, or the links can close nowhere: the model then keeps the limits it had, and nothing is run.
    bool AngleStepDone(Integer& Result);
    /// The same for time and one-position runs.
    bool TimeStepDone(Integer& Result);
    /// Runs the present mode again without reading a box, and shows the first position.

    // Menus.
    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    platform::MenuEntry mnu_Linkage{mnu_Help, "mnu_Linkage", "Linkage Data"};
    platform::MenuEntry mnu_Calculations{mnu_Help, "mnu_Calculations", "Calculations"};
    platform::MenuEntry mnu_HandHelp{mnu_Help, "mnu_HandHelp", "Under the Hand"};
    Help_Key key_Help{*this};
    Zoom_Menu zoom{*this, "frm_Input", [this] { cmd_Reset_Click(); }};
    platform::MenuEntry mnu_Cognate{*this, "mnu_Cognate", "Cognates"};
    platform::ControlArray<platform::MenuEntry> mnu_Cog{
        mnu_Cognate, "mnu_Cog", {{1, "Cognate 1"}, {2, "Cognate 2"}, {3, "Cognate 3"}}};
    platform::MenuEntry mnu_Cayley{mnu_Cognate, "mnu_Cayley", "Cayley Diagram"};
    platform::MenuEntry mnu_Redraw{*this, "mnu_Redraw", "Redraw"};
    File_Entries Files{*this, [this] { Settle(); }};
    Edit_Menu edit{*this};
    View_Menu view{*this};
    Picture_Entries pictures{view.mnu_View, Picture1};
    Linkage_Drawing_Entry drawing{view.mnu_View};
    Positions_Entry positions{view};

    // How the crank is driven.
    platform::Frame fra_calcmode{*this, "fra_calcmode", "Calculation Mode"};
    platform::ControlArray<platform::OptionButton> opt_Calctype{
        *this, "opt_Calctype", {{1, "&One Position"}, {2, "&Time Steps"}, {3, "&Angle Steps"}}};
    platform::Label lbl_calctype{*this, "lbl_calctype"};
    platform::Frame fra_initial{*this, "fra_initial", "Initial Conditions"};
    /// 0 to 4 belong to `txt_initial`, 5 to `txt_Thetazero`
    platform::ControlArray<platform::Label> lbl_Initial{
        *this,
        "lbl_Initial",
        {{0, "Min Theta"}, {1, "Max Theta"}, {2, "Delta Theta"}, {3, "Omega2"}, {4, "Alpha2"}, {5, "Theta Zero"}}};
    platform::ControlArray<platform::TextBox> txt_initial{
        *this, "txt_initial", {{0, ""}, {1, ""}, {2, ""}, {3, ""}, {4, ""}}};
    platform::TextBox txt_Thetazero{*this, "txt_Thetazero", "0"};
    platform::ControlArray<platform::Label> lbl_Unit{
        *this, "lbl_Unit", {{0, "deg"}, {1, "deg"}, {2, "deg"}, {3, "rad/s"}, {4, "rad/s^2"}, {5, "deg"}}};
    platform::Label lbl_camdriven{*this, "lbl_camdriven"};

    platform::Frame fra_Modulo{*this, "fra_Modulo", "Modulo"};
    platform::ControlArray<platform::OptionButton> opt_Modulo{*this, "opt_Modulo", {{0, "180"}, {1, "360"}}};

    platform::CommandButton cmd_Calc{*this, "cmd_Calc", "&Calculate"};
    platform::CheckBox chk_autocalc{*this, "chk_autocalc", "Autocalc On"};

    // The picture and its stepping.
    platform::TextBox txt_Figure{*this, "txt_Figure", "Figure"};
    platform::Overlaid_Picture Picture1{*this, "Picture1"};
    platform::CheckBox chk_autoscale{*this, "chk_autoscale", "Autoscale"};
    platform::ScrollBar hsc_step{*this, "hsc_step"};
    platform::Label pnl_cw{*this, "pnl_cw", "<-- Start"};
    platform::Label pnl_ccw{*this, "pnl_ccw", "End -->"};
    platform::Label pnl_time{*this, "pnl_time", "Time ---->"};
    platform::CommandButton cmd_Step{*this, "cmd_Step", "&Step"};
    platform::CommandButton cmd_Reset{*this, "cmd_Reset", "Rese&t"};
    platform::CommandButton cmd_Animate{*this, "cmd_Animate", "&Animate"};

    /// The two panels around the drag options
    platform::ControlArray<platform::Label> pnl_shift{
        *this, "pnl_shift", {{0, "Shift-Click-Drag on"}, {1, "to change coupler curve"}}};

    platform::CommandButton cmd_PlotPrint{*this, "cmd_PlotPrint", "&Print"};
    platform::CommandButton cmd_Cancel{*this, "cmd_Cancel", "< Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "Next >"};

    platform::Timer Timer1{*this, "Timer1"};
    /// Name and file of the model in hand, and whether it was modified.
    platform::Label lbl_Model{*this, "lbl_Model"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

    void txt_Linkout_Change(int Index);
    void txt_Linkout_LostFocus(int Index) override;
    void txt_initial_LostFocus(int Index);
    void txt_Thetazero_LostFocus();
    void txt_Figure_LostFocus();
    void opt_Calctype_Click(int Index);
    void opt_OpenCross_Click(int Index) override;
    void opt_Modulo_Click(int Index);
    void cmd_Calc_Click();
    void cmd_Step_Click();
    void cmd_Reset_Click();
    void cmd_Animate_Click();
    void cmd_PlotPrint_Click();
    void cmd_Cancel_Click();
    void cmd_Done_Click();
    void hsc_step_Change();
    void hsc_step_Scroll();
    void mnu_Redraw_Click();
    void mnu_Cog_Click(int Index);
    void mnu_Cayley_Click();
    void Timer1_Timer();

    void Run_Dragged(int step) override;
    void Show_Dragged(int step) override;

   private:
    void Write_Tips();
    void Bind_Boxes();
    void Bind_Choices();
    void Bind_Actions();
    /// The mode's words, colours and visible boxes.
    void Label_Mode();
    /// The model's values in the boxes of the mode.
    void Show_Values();
    void Allow_Time_Steps();
    /// The screen as it is with this model, run or not.
    void Show_Model();
    /// The drive's speed, acceleration and starting angle from the boxes that the mode has for them.
    void Take_Speeds();
    /// What has been typed and not been left yet is taken over.
    void Take_Pending();
    /// The model becomes what leaving the screen would make it.
    void Settle();
    void After_Change();
    void Invalidate();
    void Disable_Ways_On();
    void Show_Step();
    void Show_First_Step();
    void Jump_To_Angle();
    void Leave();
    bool Run(Integer& Result);
    bool Run_Setup(Integer& Result);
    void Show_Run();
    void Show_Ways_On();
    void Fill();

    Joint_Hand joints_{*this, Picture1};
    bool Stepping = false;  ///< a step is being drawn; the scroll bar's change event is to be ignored
    bool AutoCalc = true;   ///< `chk_autocalc` is ticked
};

}  // namespace verlink
