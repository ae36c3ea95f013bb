// The transform screen: the harmonic content of one output function in four graphs.
#pragma once

#include <memory>

#include "platform/desktop_services.h"
#include "platform/graph.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/listed_choice.h"
#include "screens/table_menu.h"

namespace verlink {

class frm_FFT : public platform::Screen {
   public:
    frm_FFT();

    platform::MenuEntry mnu_Help{*this, "mnu_Help", "Help"};
    Help_Key key_Help{*this};
    Table_Menu table{*this, [this] { return Transform_Table(); }};

    platform::Frame fra_Function1{*this, "fra_Function1", "Function for FFT"};
    platform::ControlArray<platform::Label> lbl_Var{*this, "lbl_Var", {{0, "Variable"}, {1, "No of Harmonics"}}};
    platform::ControlArray<platform::Label> lbl_Comp{*this, "lbl_Comp", {{0, "Component"}}};
    platform::ComboBox cmb_Var1{*this, "cmb_Var1"};
    platform::ComboBox cmb_Com1{*this, "cmb_Com1"};
    platform::ComboBox cmb_Harmonics{*this, "cmb_Harmonics"};
    platform::CommandButton cmd_Clear1{*this, "cmd_Clear1", "&Clear"};
    platform::CommandButton cmd_Calc{*this, "cmd_Calc", "&Calculate"};

    platform::CheckBox chk_HGrid{*this, "chk_HGrid", "Horiz"};
    platform::CheckBox chk_VGrid{*this, "chk_VGrid", "Vertic"};
    platform::CheckBox chk_Line{*this, "chk_Line", "Envelope"};
    platform::CheckBox chk_Sticks{*this, "chk_Sticks", "Spectral Lines"};

    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_Header2{*this, "lbl_Header2"};
    /// 0 real, 1 imaginary, 2 magnitude, 3 phase
    platform::ControlArray<platform::Graph> grf_Plot{*this, "grf_Plot", {{0, ""}, {1, ""}, {2, ""}, {3, ""}}};

    platform::CommandButton cmd_Print{*this, "cmd_Print", "&Print"};
    platform::CommandButton cmd_Copy{*this, "cmd_Copy", "C&opy"};
    platform::CommandButton cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    platform::CommandButton cmd_Done{*this, "cmd_Done", "&Next >"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

    void Form_Activate() override;
    void Form_Unload() override;
    void cmb_Var1_Click();
    void cmb_Com1_Click();
    void cmb_Harmonics_Click();
    void cmb_Harmonics_LostFocus();
    void cmd_Calc_Click();
    void cmd_Clear1_Click();
    void cmd_Done_Click();
    void cmd_Cancel_Click();

   private:
    void Form_Load();
    std::optional<Table_To_Save> Transform_Table();
    void Redraw();
    void Fill_Harmonics();
    /// `Harmonics` from the box, at most half the steps; whether more was wished for.
    bool Read_Harmonics();
    /// The same for a user who waits for it: none are refused, too many are cut, either with a message.
    bool Harmonics_Good();
    bool Function_Good();
    void Clear_Results(int last);
    bool clearing_ = false;  ///< the program itself empties the boxes
    std::unique_ptr<Listed_Choice> variable_, component_;
};

}  // namespace verlink
