// Chooses the vector of a polar plot.
#pragma once

#include "screens/function_screen.h"

namespace verlink {

class frm_PlotSelect4 : public Function_Screen {
   public:
    frm_PlotSelect4();

    platform::Frame frm_Plotstyle{*this, "frm_Plotstyle", "Polar Plot - One Function"};

    void Form_Activate() override;
    void cmd_Done_Click() override;

   protected:
    void Pick_Variable(int slot) override;
    void Count_Functions() override;
};

}  // namespace verlink
