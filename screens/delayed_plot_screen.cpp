// The delay before the first drawing, and the ways out.
#include "screens/delayed_plot_screen.h"

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "platform/guard.h"

namespace verlink {

Delayed_Plot_Screen::Delayed_Plot_Screen(const std::string& name, const std::string& selection)
    : Plot_Screen(name, selection) {
    cmd_Replot.Tip = "Draw the plot again";
    Bind_Ways_Out(cmd_Back, cmd_PlotDone);
    cmd_Replot.OnClick = [this] { cmd_Replot_Click(); };
    cmd_Back.OnClick = [this] { Go_Back(); };
    cmd_PlotDone.OnClick = [this] { Leave(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
}

void Delayed_Plot_Screen::Form_Activate() {
    Guarded(Procedure("Activate"), [&] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Start_Plot();
    });
}

void Delayed_Plot_Screen::Start_Plot() {
    // The integer makes it 0: the first tick draws.
    Model.ReplotDelay = 0.1;
    activated_ = std::chrono::steady_clock::now();
    Timer1.Interval = 250;
    Timer1.Enabled = true;
}

void Delayed_Plot_Screen::Timer1_Timer() {
    if (std::chrono::steady_clock::now() - activated_ < std::chrono::seconds(Model.ReplotDelay)) return;
    Timer1.Enabled = false;
    // Who has left already wants no plot, and no word about one that fails.
    if (Visible()) cmd_Replot_Click();
}

}  // namespace verlink
