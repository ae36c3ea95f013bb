// The dynamics screen: mass properties and loads are typed, and the forces of the run are solved.
#pragma once

#include <string>

#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/typed_aside.h"

namespace verlink {

/// Holds no numbers of its own: boxes are filled when it comes up and taken over by `cmd_Solve`. Boxes are told
/// apart by link. Link 2 carries no loads here and friction acts on link 3 alone: their places in the table are never
/// read and stay closed.
class frm_MassProp : public platform::Screen {
   public:
    frm_MassProp();

    platform::Label lbl_Header{*this, "lbl_Header"};
    /// The heads of the columns
    platform::ControlArray<platform::Label> lbl_Link{
        *this, "lbl_Link", {{2, "Link 2 (Crank)"}, {3, "Link 3 (Coupler)"}, {4, "Link 4 (Rocker)"}}};

    platform::Frame fra_Mass{*this, "fra_Mass", "Mass Properties"};
    platform::Label lbl_Mass{*this, "lbl_Mass", "Mass of Link"};
    platform::ControlArray<platform::TextBox> txt_Mass{*this, "txt_Mass", {2, 3, 4}};
    platform::Label lbl_MassUnit{*this, "lbl_MassUnit"};
    platform::Label lbl_Inertia{*this, "lbl_Inertia", "Mass Moment of Inertia about CG"};
    platform::ControlArray<platform::TextBox> txt_Inertia{*this, "txt_Inertia", {2, 3, 4}};
    platform::Label lbl_InertiaUnit{*this, "lbl_InertiaUnit"};

    platform::Frame fra_CG{*this, "fra_CG", "CG Locations"};
    platform::Label lbl_DistCG{*this, "lbl_DistCG", "Distance to CG from Pivot"};
    platform::ControlArray<platform::TextBox> txt_DistCG{*this, "txt_DistCG", {2, 3, 4}};
    /// 1 beside `txt_DistCG`, 2 beside `txt_DistP`
    platform::ControlArray<platform::Label> Lbl_DistUnit{*this, "Lbl_DistUnit", {1, 2}};
    platform::Label lbl_AngCG{*this, "lbl_AngCG", "Angle to CG in LRCS*"};
    platform::ControlArray<platform::TextBox> txt_AngCG{*this, "txt_AngCG", {2, 3, 4}};
    /// 1 beside `txt_AngCG`, 2 beside `txt_AngForce`, 3 beside `txt_AngP`
    platform::ControlArray<platform::Label> lbl_AngUnit{*this, "lbl_AngUnit", {1, 2, 3}};

    platform::Frame fra_Force{*this, "fra_Force", "External Forces"};
    platform::Label lbl_MagForce{*this, "lbl_MagForce", "Force Magnitude"};
    platform::ControlArray<platform::TextBox> txt_MagForce{*this, "txt_MagForce", {2, 3, 4}};
    /// 1 beside `txt_MagForce`, 2 beside `txt_Frict`
    platform::ControlArray<platform::Label> lbl_ForceUnit{*this, "lbl_ForceUnit", {1, 2}};
    platform::Label lbl_AngForce{*this, "lbl_AngForce", "Angle of Force in GCS*"};
    platform::ControlArray<platform::TextBox> txt_AngForce{*this, "txt_AngForce", {2, 3, 4}};

    platform::Frame fra_ForceAt{*this, "fra_ForceAt", "External Force Locations"};
    platform::Label lbl_DistP{*this, "lbl_DistP", "Distance to Force Point from CG"};
    platform::ControlArray<platform::TextBox> txt_DistP{*this, "txt_DistP", {2, 3, 4}};
    platform::Label lbl_AngP{*this, "lbl_AngP", "Angle to Force Point in LRCS*"};
    platform::ControlArray<platform::TextBox> txt_AngP{*this, "txt_AngP", {2, 3, 4}};

    platform::Frame fra_Torque{*this, "fra_Torque", "External Torques"};
    platform::Label lbl_Torque{*this, "lbl_Torque", "Torque on Link"};
    platform::ControlArray<platform::TextBox> txt_Torque{*this, "txt_Torque", {2, 3, 4}};
    platform::Label lbl_TorqueUnit{*this, "lbl_TorqueUnit"};
    platform::CheckBox chk_Torque{*this, "chk_Torque", "Import a Torque Function File to Apply to Link 4"};

    platform::Frame fra_Frict{*this, "fra_Frict", "Friction"};
    platform::Label lbl_Frict{*this, "lbl_Frict", "Friction Force on Link"};
    platform::ControlArray<platform::TextBox> txt_Frict{*this, "txt_Frict", {2, 3, 4}};

    platform::Label lbl_Note{*this, "lbl_Note",
                             "*  LCRS = Local Rotating Coordinate System.    GCS = Global Coordinate System"};
    platform::CommandButton cmd_Solve{*this, "cmd_Solve", "&Solve"};
    platform::CommandButton cmd_Matrix{*this, "cmd_Matrix", "Show &Matrix"};
    platform::CommandButton cmd_Print{*this, "cmd_Print", "&Print"};
    platform::CommandButton cmd_Copy{*this, "cmd_Copy", "&Copy"};
    platform::CommandButton cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};

    /// The table of torques of that file is imported as the screen comes up, instead of asking for one.
    void Bring_Torque(const std::string& path) { brought_ = path; }

    void Form_Activate() override;
    void Form_Unload() override;
    void Box_Change();
    void Drop(const std::string& path);
    void chk_Torque_Click();
    void cmd_Solve_Click();
    void cmd_Matrix_Click();
    void cmd_Cancel_Click();
    void cmd_Done_Click();
    /// Three messages on how external loads are to be given.
    void Forcehelp();

   private:
    using Boxes = platform::ControlArray<platform::TextBox>;
    void Write_Tips();
    void Show_Units();
    /// The boxes of the model; what was solved for is to be solved for anew.
    void Show_Model();
    /// What ticking the import does: the table in force, or one from a file; the tick goes where there is none.
    void Take_Torque_Table();
    /// Imports the table that was brought, in place of one that may be in force; that one stays if it cannot be taken.
    void Take_Brought_Table();
    void Write_Solve_Tip();
    /// The buttons that need a solution of the data shown.
    void Allow_Results(bool allowed);

    Typed_Aside typed_;
    std::string brought_;  ///< the path of a table that the user has dropped; empty for none
};

}  // namespace verlink
