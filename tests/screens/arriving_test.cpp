// What every screen does when it is arrived at: it takes its own size, and says whose model it shows.
#include <map>

#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {
namespace {

using platform::Label;
using platform::Screen;
using platform::Screens;

struct Arriving : Forces {
    Arriving() {
        Model.UserName = "Ada";
        Model.DesignNumber = 7;
        Model.DateStr = "11/21/2026";
        Model.TimeStr = "10:15:00";
        Model.FilePath = "/models/press.vlk";
        Model.ModelName = "press";
    }
    static void Expect_Size(const char* name, long width, long height) {
        Screen& screen = Screens::Get(name);
        screen.Width() = 500;
        screen.Height() = 400;
        screen.Form_Activate();
        EXPECT_EQ(screen.Width().Get(), width) << name;
        EXPECT_EQ(screen.Height().Get(), height) << name;
    }
};

constexpr char kHeader[] = "Ada\r Design No. 7\r\n11/21/2026\r at 10:15:00\r File: press";

TEST_F(Arriving, GivesAScreenOfWorkTheSizeOfAllOfThem) {
    for (const char* name :
         {"frm_PlotType",    "frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4",
          "frm_PrintSelect", "frm_PrintData",   "frm_Checks",      "frm_Explore",     "frm_Studies",
          "frm_Synth2A",     "frm_Synth2B",     "frm_Synth3",      "frm_Cayley",      "frm_MassProp",
          "frm_Matrix",      "frm_User",        "frm_Inputnew",    "frm_Animate",     "frm_Balance",
          "frm_FFT",         "frm_Plot1",       "frm_Plot2",       "frm_Plot3",       "frm_Myplot2",
          "frm_MyPlot3",     "frm_MyPlot4"})
        Expect_Size(name, 11850, 8950);
}

TEST_F(Arriving, GivesTheOthersTheirOwn) {
    Expect_Size("frm_About", 6000, 3000);
    Expect_Size("frm_Quit", 6000, 2250);
    Expect_Size("frm_Report", 9000, 6000);
    Expect_Size("frm_HomeScreen", 11850, 9480);
}

TEST_F(Arriving, FillsTheDisplayWhereScreensAreFull) {
    Model.FullScreen = true;
    Model.ScreenWidth = 15800;
    // 15800 by 8950/11850
    for (const char* name :
         {"frm_PlotType", "frm_PrintSelect", "frm_Checks", "frm_Explore", "frm_Studies", "frm_Synth3"})
        Expect_Size(name, 15800, 11933);
}

TEST_F(Arriving, WritesWhoseModelItIs) {
    for (const char* name : {"frm_Balance", "frm_Checks", "frm_MassProp", "frm_Synth2A", "frm_Synth2B", "frm_Synth3"}) {
        Screen& screen = Screens::Get(name);
        screen.Get<Label>("lbl_Header").Caption = "";
        screen.Form_Activate();
        EXPECT_EQ(screen.Get<Label>("lbl_Header").Caption.Get(), kHeader) << name;
    }
}

}  // namespace
}  // namespace verlink::test
