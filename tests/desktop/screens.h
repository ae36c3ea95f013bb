// All screens of the program, for tests that go through them.
#pragma once

#include <functional>

#include "platform/screen.h"
#include "tests/desktop/user.h"

namespace verlink::test {

inline constexpr const char* kScreens[] = {
    "frm_About",       "frm_Animate",     "frm_Balance",     "frm_Cayley",      "frm_Checks",   "frm_Explore",
    "frm_FFT",         "frm_Help",        "frm_HomeScreen",  "frm_Inputnew",    "frm_MassProp", "frm_Matrix",
    "frm_MyPlot3",     "frm_MyPlot4",     "frm_Myplot2",     "frm_Plot1",       "frm_Plot2",    "frm_Plot3",
    "frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4", "frm_PlotType", "frm_PrintData",
    "frm_PrintSelect", "frm_Quit",        "frm_Report",      "frm_Studies",     "frm_Synth2A",  "frm_Synth2B",
    "frm_Synth3",      "frm_Title",       "frm_User"};

class ScreensTest : public DesktopTest {
   protected:
    /// Does `check` to each screen and its window, which is made but not shown.
    void ForEach(const std::function<void(platform::Screen&, desktop::Form&)>& check) {
        for (const char* name : kScreens) {
            SCOPED_TRACE(name);
            platform::Screen& screen = platform::Screens::Get(name);
            check(screen, qt.formOf(screen));
        }
    }
};

}  // namespace verlink::test
