// Chooses up to four functions for a plot in a single window.
#pragma once

#include "screens/function_screen.h"

namespace verlink {

class frm_PlotSelect1 : public Preset_Screen {
   public:
    frm_PlotSelect1();

    platform::Frame frm_Plotstyle{*this, "frm_Plotstyle", "Single Window - Up to Four Functions"};

    void Form_Activate() override;
    void cmb_Var_DblClick(int slot) override;
    void cmd_Done_Click() override;

   protected:
    void Take_Preset() override;
    void Count_Functions() override;
};

}  // namespace verlink
