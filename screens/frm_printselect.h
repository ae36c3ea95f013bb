// Chooses the four functions of a table, and where it goes.
#pragma once

#include "core/number.h"
#include "platform/desktop_services.h"
#include "screens/function_screen.h"
#include "screens/table_menu.h"

namespace verlink {

class frm_PrintSelect : public Preset_Screen {
   public:
    frm_PrintSelect();

    platform::Frame fra_Whereto{*this, "fra_Whereto", "Direct Output to:"};
    platform::ControlArray<platform::OptionButton> opt_Whereto{
        *this, "opt_Whereto", {{0, "Screen"}, {1, "Printer"}, {2, "Disk File"}}};
    platform::Frame fra_Step{*this, "fra_Step", "Print Every"};
    platform::ComboBox cmb_Step{*this, "cmb_Step"};
    platform::Frame fra_Decimal{*this, "fra_Decimal", "Decimal Plcs"};
    platform::ComboBox cmb_Decimal{*this, "cmb_Decimal"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
    Table_Menu table{*this, [this] { return Chosen_Table(); }};

    void Form_Activate() override;
    void cmb_Step_Click();
    void cmd_Cancel_Click() override;
    void cmd_Done_Click() override;

   protected:
    void Take_Preset() override;
    void Count_Functions() override;

   private:
    /// Shows the model's step where it is not the one read here last: another model has come since.
    void Show_Step();
    void Read_Step();
    /// Empties the slots of variables that the lists do not have any more.
    void Blank_What_Is_Gone();
    std::optional<Table_To_Save> Chosen_Table();
    void To_Screen();
    void To_Printer();
    void To_Disk();

    Integer StepRead = 0;  ///< what `PrintStep` was last set to here
};

}  // namespace verlink
