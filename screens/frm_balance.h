// The balancing screen: counterweights on links 2 and 4, and the forces and torques with and without them.
#pragma once

#include "core/number.h"
#include "platform/desktop_services.h"
#include "platform/graph.h"
#include "platform/screen.h"
#include "screens/frm_help.h"

namespace verlink {

/// Mass and radius of a counterweight may be traded for one another; each edit of a box, once left, calculates anew.
/// Boxes are told apart by link, 2 or 4.
class frm_Balance : public platform::Screen {
   public:
    frm_Balance();

    platform::Label lbl_Header{*this, "lbl_Header"};

    platform::Frame fra_Needed{*this, "fra_Needed"};
    platform::Label lbl_Needed2{*this, "lbl_Needed2", "Needed for Complete Link 2 Balance"};
    platform::Label lbl_Needed4{*this, "lbl_Needed4", "Needed for Complete Link 4 Balance"};
    platform::ControlArray<platform::Label> lbl_MRName{*this, "lbl_MRName", {2, 4}, "MR product"};
    platform::ControlArray<platform::Label> lbl_AngName{*this, "lbl_AngName", {2, 4}, "at Angle"};
    platform::Label lbl_MR2{*this, "lbl_MR2"};
    platform::Label lbl_Ang2{*this, "lbl_Ang2"};
    platform::Label lbl_MR4{*this, "lbl_MR4"};
    platform::Label lbl_Ang4{*this, "lbl_Ang4"};

    platform::ControlArray<platform::Frame> fra_Link{
        *this, "fra_Link", {{2, "Balance Mass and Radius for Link 2"}, {4, "Balance Mass and Radius for Link 4"}}};
    platform::ControlArray<platform::Label> lbl_BerkMass{*this, "lbl_BerkMass", {2, 4}, "Mass"};
    platform::ControlArray<platform::TextBox> txt_BerkMass{*this, "txt_BerkMass", {2, 4}};
    platform::ControlArray<platform::Label> lbl_Radius{*this, "lbl_Radius", {2, 4}, "Radius"};
    platform::ControlArray<platform::TextBox> txt_Radius{*this, "txt_Radius", {2, 4}};
    platform::ControlArray<platform::Label> lbl_MRproduct{*this, "lbl_MRproduct", {2, 4}, "MR product"};
    platform::ControlArray<platform::TextBox> txt_MRproduct{*this, "txt_MRproduct", {2, 4}};
    /// Mass and radius of link 2, mass and radius of link 4
    platform::ControlArray<platform::Label> lbl_Unit{*this, "lbl_Unit", {0, 1, 2, 3}};
    /// Of mass-radius products, in stored lengths: 0 and 1 needed, by link, 2 and 3 given
    platform::ControlArray<platform::Label> lbl_MRUnit{*this, "lbl_MRUnit", {0, 1, 2, 3}};
    platform::ControlArray<platform::Label> lbl_AngUnit{*this, "lbl_AngUnit", {2, 4}};

    platform::Frame fra_Fluct{*this, "fra_Fluct", "Flywheel Coefficient of Fluctuation"};
    platform::TextBox txt_Fluct{*this, "txt_Fluct", "0.05"};
    platform::CommandButton cmd_Calc{*this, "cmd_Calc", "&Calculate"};

    platform::PictureBox pct_Pict1{*this, "pct_Pict1"};
    /// 0 shaking force, 1 torque
    platform::ControlArray<platform::Graph> grf_Plot{*this, "grf_Plot", {0, 1}};
    /// The words of the graphs' legends
    platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {{0, "Unbalanced"}, {1, "Balanced"}}};
    platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {{0, "Mag"}, {1, "Mag"}}};
    platform::Frame fra_Back{*this, "fra_Back", "Background"};
    platform::ControlArray<platform::OptionButton> opt_Back{
        *this, "opt_Back", {{0, "White"}, {1, "Blue"}, {2, "Gray"}}};

    platform::CommandButton cmd_Print{*this, "cmd_Print", "&Print"};
    platform::CommandButton cmd_copy{*this, "cmd_copy", "&Copy"};
    platform::CommandButton cmd_back{*this, "cmd_back", "&< Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};

    void Form_Activate() override;
    void txt_BerkMass_LostFocus(int Index);
    void txt_Radius_LostFocus(int Index);
    void txt_MRproduct_LostFocus(int Index);
    void txt_Fluct_LostFocus();
    void opt_Back_Click();
    void cmd_Calc_Click();
    void cmd_Done_Click();
    /// Magnitude of the shaking force, and driving torque, each before and after balancing, over the crank angle.
    void PlotForceTorque();

   private:
    using Boxes = platform::ControlArray<platform::TextBox>;
    void Write_Tips();
    void Bind();
    /// The counterweights for complete balance at half the links' lengths.
    void Set_Up();
    void Show_Units();
    void Put_Colors();
    void Show_Weights();
    /// All weights and the fluctuation from the boxes, or none of them: failure 6 or 13.
    void Take_Weights();
    /// Runs the body of an edit if a hand has touched the box.
    template <class Body>
    void Take_Over(const char* procedure, platform::TextBox& box, Body body);
    /// What every accepted edit ends with.
    void Calculate_Anew();
    /// Tells that the value must be positive, and puts a small one in its place.
    void Refuse(platform::TextBox& box);
    /// Back to a box that was refused, with another value in it that is yet to be taken over.
    void Put_Back(platform::TextBox& box, double value);

    Single Fluct = 0.05;  ///< coefficient of fluctuation
};

}  // namespace verlink
