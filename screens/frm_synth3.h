// Three positions, with fixed pivots that come out or that are specified.
#pragma once

#include "screens/synthesis_screen.h"

namespace verlink {

/// With specified pivots the turns of the grounded links come out, and their boxes are blank and locked at first.
class frm_Synth3 : public Synthesis_Screen {
   public:
    frm_Synth3();

    TextBox txt_P31x{*this, "txt_P31x"};
    TextBox txt_P31y{*this, "txt_P31y"};
    TextBox txt_Alpha3{*this, "txt_Alpha3"};
    TextBox txt_Beta3{*this, "txt_Beta3"};
    TextBox txt_Gamma3{*this, "txt_Gamma3"};

    Array<Frame> fra_Pivot{
        *this, "fra_Pivot", {{0, "Coords of Pivot O2"}, {1, "Coords of Pivot O4"}, {2, "Coords of Point P1"}}};
    Array<TextBox> txt_O2{*this, "txt_O2", {0, 1}};
    Array<TextBox> txt_O4{*this, "txt_O4", {0, 1}};
    Array<TextBox> txt_P1{*this, "txt_P1", {0, 1}};

    /// Beyond those of all synthesis screens
    Array<Label> More_Names{*this,
                            "lbl_Name",
                            {{14, "P31x"},
                             {15, "P31y"},
                             {16, "Alpha3"},
                             {17, "Beta3"},
                             {18, "Gamma3"},
                             {19, "x"},
                             {20, "y"},
                             {21, "x"},
                             {22, "y"},
                             {23, "x"},
                             {24, "y"}}};
    /// Alpha3, Beta3, Gamma3
    Array<Label> More_Degrees{*this, "Label13", {9, 10, 11}, "deg"};
    /// P31, O2, O4, P1
    Array<Label> More_Lengths{*this, "lbl_Length", {6, 7, 8, 9}, "len"};
    /// Directions found: 0 Theta, 1 Phi, 2 Sigma, 3 Xi
    Array<Label> lbl_Direction{*this, "lbl_Direction", {0, 1, 2, 3}};

    Array<Label> More_Symbols{
        *this,
        "lbl_Symbol",
        {{17, "P3"}, {18, "P31"}, {19, "Alpha3"}, {20, "Beta3"}, {21, "Gamma3"}, {22, "Delta2"}, {23, "Delta3"}}};
    Label lbl_P31mag{*this, "lbl_P31mag"};
    Label lbl_Alpha3{*this, "lbl_Alpha3"};
    Label lbl_Beta3{*this, "lbl_Beta3"};
    Label lbl_Gamma3{*this, "lbl_Gamma3"};
    Label lbl_Delta2{*this, "lbl_Delta2"};
    Label lbl_Delta3{*this, "lbl_Delta3"};

    /// The linkage that the dyads make: names, values and units by the entries of `txt_Linkout`.
    Frame fra_Links{*this, "fra_Links", "Linkage Data"};
    Array<Label> lbl_Link{*this,
                          "lbl_Link",
                          {{0, "Link 1 (Ground)"},
                           {1, "Link 2 (Crank)"},
                           {2, "Link 3 (Coupler)"},
                           {3, "Link 4 (Rocker)"},
                           {4, "Dist to Coupler Pt"},
                           {5, "Angle to Coupler Pt"}}};
    Array<TextBox> txt_Linkout{*this, "txt_Linkout", {0, 1, 2, 3, 4, 5}};
    Array<Label> lbl_Units{*this, "lbl_Units", {0, 1, 2, 3, 4}, "len"};
    Array<Label> lbl_Degrees{*this, "lbl_Degrees", {{5, "deg"}}};

    std::string Trouble_With(const design::Choices& choices) const override;

   protected:
    Typed_Positions Typed() const override;
    void Type_Choices(const design::Choices& choices) override;
    void Fill() override;
    bool Solve() override;
    void Void_Results() override;
    void Show_Values() override;

   private:
    void Write_Tips();
    void Show_Point(Array<TextBox>& boxes, Single x, Single y);
    void Read_Point(Array<TextBox>& boxes, Single& x, Single& y);
    bool Find_Turns();
    bool Solve_Dyads();
    void Show_Results();
};

}  // namespace verlink
