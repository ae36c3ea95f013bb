// The Cayley diagram: the three cognates, all drawn, one chosen.
#pragma once

#include "platform/screen.h"
#include "screens/drawing_entry.h"
#include "screens/frm_help.h"
#include "screens/zoom_menu.h"

namespace verlink {

class frm_Cayley : public platform::Screen {
   public:
    frm_Cayley();
    void Form_Activate() override;

    using Label = platform::Label;
    template <class Kind>
    using Array = platform::ControlArray<Kind>;

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    Zoom_Menu zoom{*this, "frm_Cayley", [this] { Draw(); }};
    platform::MenuEntry mnu_Redraw{*this, "mnu_Redraw", "Redraw"};
    Drawing_Menu drawing{*this, "cognates", [this] { return Diagram(); }};

    platform::Frame fra_Cognate{*this, "fra_Cognate", "Cognate"};
    Array<platform::OptionButton> opt_Cognate{
        *this, "opt_Cognate", {{0, "Cognate &1"}, {1, "Cognate &2"}, {2, "Cognate &3"}}};
    platform::Frame fra_Grashof{*this, "fra_Grashof", "Grashof Condition"};
    Label Pnl_Grashof{*this, "Pnl_Grashof"};

    platform::Frame fra_Links{*this, "fra_Links", "Cognate Data"};
    Array<Label> lbl_Link{*this,
                          "lbl_Link",
                          {{0, "Link 1 (Ground)"},
                           {1, "Link 2 (Crank)"},
                           {2, "Link 3 (Coupler)"},
                           {3, "Link 4 (Rocker)"},
                           {4, "Dist. from I 2,3 to Coupler Pt"},
                           {5, "Angle from Link 3 to Coupler Pt"}}};
    Array<platform::TextBox> txt_Linkout{*this, "txt_Linkout", {0, 1, 2, 3, 4, 5}};
    Array<Label> lbl_Units{*this, "lbl_Units", {0, 1, 2, 3, 4}, "len"};
    Array<Label> lbl_Degrees{*this, "lbl_Degrees", {{5, "deg"}}};

    platform::PictureBox Picture1{*this, "Picture1"};
    /// On the diagram, at the ground links of the three, in their colors' order.
    Array<Label> pnl_CogLabel{*this, "pnl_CogLabel", {{0, "Cognate #1"}, {1, "Cognate #2"}, {2, "Cognate #3"}}};
    /// Ground pivots and the coupler point that all three have in common.
    Array<Label> lbl_Point{*this, "lbl_Point", {{0, "O2"}, {1, "O4"}, {2, "O6"}, {3, "P"}}};

    platform::CommandButton cmd_Redraw{*this, "cmd_Redraw", "&Redraw"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};

    void opt_Cognate_Click(int Index);
    void mnu_Redraw_Click();

   private:
    /// The option of the cognate in force, without taking it.
    void Mark_Present();
    void Fill();
    void Draw();
    std::optional<std::function<std::string()>> Diagram();
    void Place_Labels();
    bool Activating = false;  ///< the screen itself sets an option, whose event is to be ignored
};

}  // namespace verlink
