// How each screen is made, and what its title says: a row for each.
#include "screens/register.h"

#include <memory>

#include "core/linkage_model.h"
#include "platform/screen.h"
#include "screens/frm_about.h"
#include "screens/frm_animate.h"
#include "screens/frm_balance.h"
#include "screens/frm_cayley.h"
#include "screens/frm_checks.h"
#include "screens/frm_explore.h"
#include "screens/frm_fft.h"
#include "screens/frm_help.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "screens/frm_massprop.h"
#include "screens/frm_matrix.h"
#include "screens/frm_myplot2.h"
#include "screens/frm_myplot3.h"
#include "screens/frm_myplot4.h"
#include "screens/frm_plot1.h"
#include "screens/frm_plot2.h"
#include "screens/frm_plot3.h"
#include "screens/frm_plotselect1.h"
#include "screens/frm_plotselect2.h"
#include "screens/frm_plotselect3.h"
#include "screens/frm_plotselect4.h"
#include "screens/frm_plottype.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"
#include "screens/frm_quit.h"
#include "screens/frm_report.h"
#include "screens/frm_studies.h"
#include "screens/frm_synth2a.h"
#include "screens/frm_synth2b.h"
#include "screens/frm_synth3.h"
#include "screens/frm_title.h"
#include "screens/frm_user.h"

namespace verlink {

namespace {

/// The title is without the banner, which `Set_Screen_Titles` puts behind it.
template <class Form>
void Register_One(const char* name, const char* title) {
    const auto make = [title] {
        auto screen = std::make_unique<Form>();
        screen->Caption() = title;
        return screen;
    };
    platform::Screens::Register(name, make, title);
}

/// The same for a screen that is made when it is first shown, long after the others: it has the banner from the
/// beginning.
template <class Form>
void Register_Late(const char* name, const char* title) {
    platform::Screens::Register(name, [title] {
        auto screen = std::make_unique<Form>();
        screen->Caption() = title + Model.TitleSuffix;
        return screen;
    });
}

}  // namespace

void Register_Screens() {
    Register_One<frm_About>("frm_About", "");
    Register_One<frm_Animate>("frm_Animate", "Animation Screen");
    Register_One<frm_Balance>("frm_Balance", "Linkage Balancing");
    Register_One<frm_Cayley>("frm_Cayley", "Linkage Cognates");
    Register_Late<frm_Checks>("frm_Checks", "Checks");
    Register_Late<frm_Explore>("frm_Explore", "Explore");
    Register_One<frm_FFT>("frm_FFT", "Fourier Transform");
    Register_One<frm_Help>("frm_Help", "");
    Register_One<frm_HomeScreen>("frm_HomeScreen", "");
    Register_One<frm_Inputnew>("frm_Inputnew", "Input Screen");
    Register_One<frm_MassProp>("frm_MassProp", "Dynamics Screen");
    Register_One<frm_Matrix>("frm_Matrix", "Matrix Screen");
    Register_One<frm_Myplot2>("frm_Myplot2", "Output Screen");
    Register_One<frm_MyPlot3>("frm_MyPlot3", "Output Screen");
    Register_One<frm_MyPlot4>("frm_MyPlot4", "Output Screen");
    Register_One<frm_Plot1>("frm_Plot1", "Output Screen");
    Register_One<frm_Plot2>("frm_Plot2", "Output Screen");
    Register_One<frm_Plot3>("frm_Plot3", "Output Screen");
    Register_One<frm_PlotSelect1>("frm_PlotSelect1", "Select Plot Data");
    Register_One<frm_PlotSelect2>("frm_PlotSelect2", "Select Plot Data");
    Register_One<frm_PlotSelect3>("frm_PlotSelect3", "Select Plot Data");
    Register_One<frm_PlotSelect4>("frm_PlotSelect4", "Select Plot Data");
    Register_One<frm_PlotType>("frm_PlotType", "Select Plot Type");
    Register_One<frm_PrintData>("frm_PrintData", "");
    Register_One<frm_PrintSelect>("frm_PrintSelect", "Print Select");
    Register_One<frm_Quit>("frm_Quit", "");
    Register_Late<frm_Report>("frm_Report", "Report");
    Register_Late<frm_Studies>("frm_Studies", "Studies");
    Register_One<frm_Synth2A>("frm_Synth2A", "Two-Position Synthesis");
    Register_One<frm_Synth2B>("frm_Synth2B", "Two-Position Synthesis");
    Register_One<frm_Synth3>("frm_Synth3", "Three-Position Synthesis");
    Register_One<frm_Title>("frm_Title", "");
    Register_One<frm_User>("frm_User", "");
}

}  // namespace verlink
