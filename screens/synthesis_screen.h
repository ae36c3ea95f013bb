// What the synthesis screens share: the data common to both dyads, the diagram, the ways out.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/number.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "screens/drawing_entry.h"
#include "screens/edit_menu.h"
#include "screens/frm_help.h"
#include "screens/typed_aside.h"
#include "screens/typed_positions.h"

namespace verlink {

namespace design {
struct Choices;
}

/// Lengths in the boxes are in the shown unit, those of the record in stored ones; angles are degrees. A change of any
/// box takes the results back until the next calculation.
class Synthesis_Screen : public platform::Screen {
   public:
    using Label = platform::Label;
    using Frame = platform::Frame;
    using TextBox = platform::TextBox;
    using Button = platform::CommandButton;
    template <class Kind>
    using Array = platform::ControlArray<Kind>;

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    Edit_Menu edit{*this};
    Drawing_Menu drawing{*this, "dyads", [this] { return Diagram(); }};
    Label lbl_Header{*this, "lbl_Header"};

    Frame fra_Given{*this, "fra_Given", "Given Data Common to both Dyads"};
    TextBox txt_P21x{*this, "txt_P21x"};
    TextBox txt_P21y{*this, "txt_P21y"};
    TextBox txt_Alpha2{*this, "txt_Alpha2"};

    Frame fra_Left{*this, "fra_Left", "Left Dyad Assumed"};
    TextBox txt_Beta2{*this, "txt_Beta2"};
    Frame fra_LeftCalc{*this, "fra_LeftCalc", "Calc for Left Dyad"};
    Frame fra_Right{*this, "fra_Right", "Right Dyad Assumed"};
    TextBox txt_Gamma2{*this, "txt_Gamma2"};
    Frame fra_RightCalc{*this, "fra_RightCalc", "Calc for Right Dyad"};
    Frame fra_Ground{*this, "fra_Ground", "Angle of Ground Link"};

    /// The names of boxes and read-outs, and their units: Label13 of angles, lbl_Length of lengths.
    Array<Label> lbl_Name{*this,
                          "lbl_Name",
                          {{0, "P21x"},
                           {1, "P21y"},
                           {2, "Alpha2"},
                           {3, "Theta"},
                           {4, "Beta2"},
                           {5, "Phi"},
                           {6, "Sigma"},
                           {7, "Gamma2"},
                           {8, "Xi"},
                           {9, "W mag"},
                           {10, "Z mag"},
                           {11, "U mag"},
                           {12, "S mag"},
                           {13, "Theta1"}}};
    /// Alpha2, Theta, Beta2, Phi, Sigma, Gamma2, Xi, Theta1
    Array<Label> Label13{*this, "Label13", {1, 2, 3, 4, 5, 6, 7, 8}, "deg"};
    /// P21, W, Z, U, S
    Array<Label> lbl_Length{*this, "lbl_Length", {1, 2, 3, 4, 5}, "len"};
    /// 0 in its frame, 1 on the diagram
    Array<Label> lbl_Theta1{*this, "lbl_Theta1", {0, 1}};

    // The diagram: names of what is drawn, and the values that follow them.
    platform::PictureBox Image1{*this, "Image1"};
    Array<Label> lbl_Symbol{*this,
                            "lbl_Symbol",
                            {{0, "W"},
                             {1, "Z"},
                             {2, "U"},
                             {3, "S"},
                             {4, "P21"},
                             {5, "O2"},
                             {6, "O4"},
                             {7, "P1"},
                             {8, "P2"},
                             {9, "Theta"},
                             {10, "Phi"},
                             {11, "Sigma"},
                             {12, "Xi"},
                             {13, "Alpha2"},
                             {14, "Beta2"},
                             {15, "Gamma2"},
                             {16, "Theta1"}}};
    Label lbl_P21mag{*this, "lbl_P21mag"};
    Label lbl_Theta{*this, "lbl_Theta"};
    Label lbl_Phi{*this, "lbl_Phi"};
    Label lbl_Sigma{*this, "lbl_Sigma"};
    Label lbl_Xi{*this, "lbl_Xi"};
    Label lbl_Alpha2{*this, "lbl_Alpha2"};
    Label lbl_Beta2{*this, "lbl_Beta2"};
    Label lbl_Gamma2{*this, "lbl_Gamma2"};
    Label lbl_Scale{*this, "lbl_Scale"};
    /// Which positions the linkage found reaches, and on which circuit.
    Label lbl_Reach{*this, "lbl_Reach"};

    Button cmd_Calc{*this, "cmd_Calc", "&Calculate"};
    Button cmd_Print{*this, "cmd_Print", "&Print"};
    Button cmd_Copy{*this, "cmd_Copy", "C&opy"};
    Button cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    Button cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    Button cmd_Explore{*this, "cmd_Explore", "&Explore"};

    /// Read-outs of lengths: 0 in a frame, so far as it has them there, and 1 on the diagram.
    Array<Label> lbl_Wmag, lbl_Zmag, lbl_Umag, lbl_Smag;

    void Form_Activate() override;
    void Form_Unload() override;
    void cmd_Calc_Click();
    void cmd_Done_Click();
    void cmd_Cancel_Click();
    void cmd_Print_Click();
    void cmd_Explore_Click();

    /// Why a calculation of this screen would not come to that linkage, in words; empty where it does.
    virtual std::string Trouble_With(const design::Choices& choices) const = 0;
    /// Types what it takes to calculate that linkage, at once or, where the screen is not shown, as it comes up.
    void Take_Choices(const design::Choices& choices);

   protected:
    Synthesis_Screen(const std::string& name, int positions, std::initializer_list<int> magnitudes);

    /// Gives all boxes their handlers; the screen's own constructor calls it, once they are there.
    void Bind_Boxes();
    /// The value that follows a name of the diagram.
    void Follow(Label& name, Label& value) { followers_.push_back({&name, &value}); }

    /// The boxes from the record, at activation.
    virtual void Fill() = 0;
    /// Dyads, linkage and read-outs from the boxes; false where there are no dyads, or the user gave up: the linkage is
    /// as it was then.
    virtual bool Solve() = 0;
    /// Blanks the read-outs; no way leads on with them.
    virtual void Void_Results();
    /// What the boxes give to a task; a box that no hand has touched stands for the record's number, whose digits it
    /// need not have.
    virtual Typed_Positions Typed() const;
    virtual void Type_Choices(const design::Choices& choices);
    /// The values on the diagram, from boxes and record; here those that all screens have.
    virtual void Show_Values();

    /// The picture, and the places of its names.
    void Draw();
    /// The two dyads of the record make its linkage, with a report. Results of the linkage before are void.
    void Assemble(Single beta3);
    void Show_Ground_Angle();
    void Show_Magnitudes();
    /// Magnitude, in shown units, and direction of a displacement.
    void Show_Displacement(Single x, Single y, Single& magnitude, Single& angle, Label& shown_magnitude,
                           Label& shown_angle) const;

    /// The record's lengths and angles as boxes and read-outs show them, and back.
    std::string Length_Text(double stored) const;
    std::string Rounded_Length(double stored) const;
    static std::string Angle_Text(double degrees);
    Single Length_Of(const TextBox& box) const;
    static Single Value_Of(const TextBox& box);
    /// What is typed into a box, else the stored number as it is shown.
    design::Point Shown_Point(const TextBox& x, const TextBox& y, Single stored_x, Single stored_y) const;
    static double Shown_Angle(const TextBox& box, Single stored);
    /// Types a number of single precision, all of its digits.
    static void Type_Number(TextBox& box, double value);
    static void Type_Point(TextBox& x, TextBox& y, design::Point point);
    /// Shown units in a stored one.
    double Factor() const { return LengthFactor; }
    /// The text of a box, or the number that it is taken for where it is more than one.
    static std::string Number_Text(const TextBox& box);

   private:
    std::optional<std::function<std::string()>> Diagram();
    /// The boxes that only a calculation fills, and what they show.
    std::vector<platform::TextBox*> Result_Boxes();
    std::vector<std::string> Shown_Results();
    void Show_Results(const std::vector<std::string>& texts);

    struct Follower {
        Label* name;
        Label* value;
    };
    void Write_Tips();
    void Box_Change();
    /// The given data of the model; what came of them is to be calculated anew.
    void Show_Model();
    void Allow_Results(bool allowed);
    /// The symbols on the diagram with " =" where a value follows.
    void Lead_To_Values();
    void Show_Reach();
    /// After an undo: as it was left where nothing that the screen shows is another.
    void Show_Undone();
    void Note_Shown();

    int positions_;
    Integer LengthFactor = 1;  ///< shown units in a stored one
    std::vector<Follower> followers_;
    /// The symbols alone; a value may follow one with "=".
    std::map<const Label*, std::string> symbols_;
    std::string shown_;  ///< the record's numbers that stand on the screen
    std::function<void()> to_type_;
    Typed_Aside typed_;
};

/// What the two screens of two positions share: their angles, given or found.
class Two_Position_Screen : public Synthesis_Screen {
   public:
    TextBox txt_Theta{*this, "txt_Theta"};
    TextBox txt_Phi{*this, "txt_Phi"};
    TextBox txt_Sigma{*this, "txt_Sigma"};
    TextBox txt_Xi{*this, "txt_Xi"};
    Label lbl_DeltaName{*this, "lbl_Symbol", "Delta", 17};
    Label lbl_Delta{*this, "lbl_Delta"};

   protected:
    Two_Position_Screen(const std::string& name, std::initializer_list<int> magnitudes);
    void Fill() override;
    void Show_Values() override;
    void Type_Choices(const design::Choices& choices) override;
    /// The displacement and the coupler's turn from their boxes.
    void Read_Given();
};

}  // namespace verlink
