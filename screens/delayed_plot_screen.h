// The screens that draw their plots for themselves, a moment after they have come up.
#pragma once

#include <chrono>
#include <string>

#include "screens/plot_screen.h"

namespace verlink {

class Delayed_Plot_Screen : public Plot_Screen {
   public:
    platform::CommandButton cmd_Replot{*this, "cmd_Replot", "&Replot"};
    platform::CommandButton cmd_Back{*this, "cmd_Back", "< &Back"};
    platform::CommandButton cmd_PlotDone{*this, "cmd_PlotDone", "&Next >"};
    platform::Timer Timer1{*this, "Timer1"};

    void Form_Activate() override;
    void Timer1_Timer();
    virtual void cmd_Replot_Click() = 0;

   protected:
    Delayed_Plot_Screen(const std::string& name, const std::string& selection);
    /// What comes before the first drawing of another plot.
    virtual void Start_Plot();

   private:
    std::chrono::steady_clock::time_point activated_;
};

}  // namespace verlink
