// The manual beside the program: what it opens for a screen and a control, how it goes along, and how it is searched.
#include "screens/frm_help.h"

#include <gtest/gtest.h>

#include "platform/settings.h"
#include "screens/help_documents.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using platform::Screen;
using platform::Screens;

class HelpTest : public Fixture {
   protected:
    frm_Help& Reader() { return static_cast<frm_Help&>(Screens::Get("frm_Help")); }
    /// Has the manual come up, and leaves it open.
    void Expect_Help() {
        desktop.Expect_Screen("frm_Help", [](Screen&) {});
    }
    std::string Opened(const char* screen, const char* control, int index = platform::kNoIndex) {
        Screen& owner = Screens::Get(screen);
        return Control_Help(owner, *control ? owner.Find(control, index) : nullptr);
    }
};

TEST_F(HelpTest, HelpStandsBesideAndTheScreenGoesOn) {
    desktop.Expect_Screen("frm_MassProp", [this](Screen& dynamics) {
        Expect_Help();
        Pick_Menu(dynamics, "mnu_Help");
        EXPECT_TRUE(Reader().Visible());
        EXPECT_TRUE(Reader().Beside());
        EXPECT_EQ(Screen::Active(), &dynamics);
        EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/verlink/dynamics_help.pdf");
        dynamics.Hide();
    });
    Screens::Get("frm_MassProp").ShowModal();
    EXPECT_TRUE(Reader().Visible()) << "it stays when the screen goes";
    Press(Reader(), "cmd_Close");
    EXPECT_FALSE(Reader().Visible());
}

TEST_F(HelpTest, F1FindsThePlaceOfTheControlInHand) {
    EXPECT_EQ(Opened("frm_Inputnew", "txt_initial", 2), "helpfiles/linkages/linkage_calc_help.pdf#initial-conditions");
    EXPECT_EQ(Opened("frm_Inputnew", "txt_Linkout", 1), "helpfiles/verlink/linkage_data_help.pdf#linkage-data");
    EXPECT_EQ(Opened("frm_Inputnew", "chk_Lock", 1), "helpfiles/general/under_the_hand.pdf#locks");
    EXPECT_EQ(Opened("frm_Animate", "chk_Centrodes"), "helpfiles/verlink/animate_help.pdf#centrodes");
    EXPECT_EQ(Opened("frm_MassProp", "txt_Mass", 2),
              "helpfiles/verlink/dynamics_help.pdf#mass-properties-and-cg-locations");
    EXPECT_EQ(Opened("frm_MassProp", "txt_MagForce", 2), "helpfiles/verlink/dynamics_help.pdf#external-forces");
    EXPECT_EQ(Opened("frm_Balance", "txt_Fluct"), "helpfiles/verlink/balance_help.pdf#the-pulses-of-the-torque");
    EXPECT_EQ(Opened("frm_HomeScreen", "cmd_Dynamics"), "helpfiles/verlink/dynamics_help.pdf");

    Screen& dynamics = Screens::Get("frm_MassProp");
    dynamics.Text("txt_Mass", 3).SetFocus();
    Expect_Help();
    EXPECT_TRUE(dynamics.Press_Keys("F1"));
    EXPECT_EQ(Reader().WebBrowser1.Document.Get(),
              "helpfiles/verlink/dynamics_help.pdf#mass-properties-and-cg-locations");
}

TEST_F(HelpTest, F1FindsThePageOfTheScreenWhereNothingIsSaidOfTheControl) {
    EXPECT_EQ(Opened("frm_MassProp", "cmd_Done"), "helpfiles/verlink/dynamics_help.pdf");
    EXPECT_EQ(Opened("frm_MassProp", ""), "helpfiles/verlink/dynamics_help.pdf");
    EXPECT_EQ(Opened("frm_PrintSelect", "cmd_Done"), "helpfiles/general/PrintHelp.pdf#the-print-select-screen");
    EXPECT_EQ(Opened("frm_MyPlot4", ""), "helpfiles/linkages/linkage_plot_help.pdf#polar-plots");
    EXPECT_EQ(Opened("frm_Title", ""), "helpfiles/Program_Manual.pdf");
}

TEST_F(HelpTest, EveryRowNamesAScreenAControlAndAnEntryThatThereAre) {
    for (const Help_Place& row : Help_Places()) {
        SCOPED_TRACE(std::string(row.screen) + " " + row.control);
        EXPECT_NE(Help_Document(row.entry), "");
        bool found = false;
        for (const char* name :
             {"frm_HomeScreen",  "frm_Inputnew",  "frm_Animate", "frm_PlotType", "frm_PlotSelect1", "frm_PlotSelect4",
              "frm_PrintSelect", "frm_PrintData", "frm_Plot1",   "frm_Myplot2",  "frm_MyPlot3",     "frm_MyPlot4",
              "frm_FFT",         "frm_MassProp",  "frm_Matrix",  "frm_Balance",  "frm_Cayley",      "frm_Synth2A",
              "frm_Synth2B",     "frm_Synth3",    "frm_Explore", "frm_Studies",  "frm_Checks",      "frm_Report",
              "frm_User",        "frm_Quit",      "frm_Help"}) {
            if (!std::string(name).starts_with(row.screen)) continue;
            for (const platform::Control* control : Screens::Get(name).Controls())
                found = found || control->Name().starts_with(row.control);
        }
        EXPECT_TRUE(found);
    }
}

TEST_F(HelpTest, EveryScreenHasItsWayToHelp) {
    for (const char* name :
         {"frm_MassProp", "frm_Balance", "frm_Explore", "frm_Studies", "frm_Report", "frm_Matrix", "frm_Checks"}) {
        SCOPED_TRACE(name);
        Expect_Help();
        Pick_Menu(Screens::Get(name), "mnu_Help");
        desktop.Verify();
        const std::string opened = Reader().WebBrowser1.Document;
        EXPECT_EQ(Screen_Help(Screens::Get(name)).substr(0, opened.size()), opened);
        Reader().Hide();
    }
    for (const char* name : {"frm_Quit", "frm_About", "frm_Checks", "frm_Explore", "frm_Studies", "frm_Report"}) {
        Expect_Help();
        EXPECT_TRUE(Screens::Get(name).Press_Keys("F1")) << name;
        Reader().Hide();
    }
}

TEST_F(HelpTest, HelpFollowsTheScreenOnTopWhenAsked) {
    Expect_Help();
    Show_Help("helpfiles/Program_Manual.pdf", "a handler");
    desktop.Expect_Screen("frm_MassProp", [](Screen& dynamics) { dynamics.Hide(); });
    Screens::Get("frm_MassProp").ShowModal();
    EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/Program_Manual.pdf") << "not asked";
    EXPECT_FALSE(Reader().KeepsInSight);

    Tick(Reader(), "chk_Follow", true);
    EXPECT_TRUE(Reader().KeepsInSight);
    desktop.Expect_Screen("frm_MassProp", [this](Screen& dynamics) {
        EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/verlink/dynamics_help.pdf");
        desktop.Expect_Screen("frm_Quit", [this](Screen& quit) {
            EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/general/Filemenu_help.pdf#quit");
            quit.Hide();
        });
        Screens::Get("frm_Quit").ShowModal();
        EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/verlink/dynamics_help.pdf") << "and back with it";
        dynamics.Hide();
    });
    Screens::Get("frm_MassProp").ShowModal();
    Press(Reader(), "cmd_Back");
    EXPECT_EQ(Reader().WebBrowser1.Document.Get(), "helpfiles/general/Filemenu_help.pdf#quit");
}

TEST_F(HelpTest, TheTickToFollowIsKeptFromSessionToSession) {
    platform::The_Settings().Open(Path(""));
    Tick(Reader(), "chk_Follow", true);
    Screens::Discard();
    platform::The_Settings().Open(Path(""));
    EXPECT_EQ(platform::The_Settings().Text("view.helpfollows"), "on");
    EXPECT_TRUE(Reader().chk_Follow.Value);
    Tick(Reader(), "chk_Follow", false);
    EXPECT_EQ(platform::The_Settings().Text("view.helpfollows"), "");
}

TEST_F(HelpTest, FindGoesFromTheLastPlaceOfADocumentToTheNextDocument) {
    frm_Help& reader = Reader();
    const std::string balance = Help_Document("mnu_BalanceHelp"), theory = Help_Document("mnu_TheoryHelp");
    reader.Open(balance);
    platform::DocumentView& view = reader.WebBrowser1;
    // What the desktop tells.
    view.Pages = 4;
    view.Watcher = [&] {
        if (view.Sought.Get() != "flywheel") return;
        view.Everywhere = {{balance, "Balance", 2}, {theory, "Theory", 1}};
        view.Finds = view.Document.Get() == balance ? 2 : view.Document.Get() == theory ? 1 : 0;
    };
    Type(reader, "txt_Find", platform::kNoIndex, "flywheel");
    reader.Find_Next(+1);
    EXPECT_EQ(reader.lbl_Finds.Caption.Get(), "1 of 3");
    EXPECT_EQ(reader.cmb_Finds.Items(), (std::vector<std::string>{"Balance (2)", "Theory (1)"}));
    EXPECT_EQ(reader.cmb_Finds.ListIndex(), 0);
    reader.Find_Next(+1);
    reader.Find_Next(+1);
    EXPECT_EQ(view.Document.Get(), theory);
    EXPECT_EQ(view.Find.Get(), 1);
    EXPECT_EQ(reader.lbl_Finds.Caption.Get(), "3 of 3");
    EXPECT_EQ(reader.cmb_Finds.ListIndex(), 1);
    reader.Find_Next(+1);
    EXPECT_EQ(view.Document.Get(), balance) << "round the end";
    EXPECT_EQ(reader.lbl_Finds.Caption.Get(), "1 of 3");
    reader.Find_Next(-1);
    EXPECT_EQ(view.Document.Get(), theory);
    reader.cmb_Finds.Choose(0);
    EXPECT_EQ(view.Document.Get(), balance);
    EXPECT_EQ(view.Find.Get(), 1);
    view.Watcher = nullptr;
}

TEST_F(HelpTest, TheBookIsSoughtThroughAloneAndAPageWithAllOthers) {
    frm_Help& reader = Reader();
    reader.Open(Help_Document("mnu_BalanceHelp"));
    Type(reader, "txt_Find", platform::kNoIndex, "crank");
    reader.Find_Next(+1);
    const auto& library = reader.WebBrowser1.Library;
    EXPECT_GT(library.size(), 25u);
    EXPECT_EQ(std::count(library.begin(), library.end(), Help_Document("mnu_Manual")), 0);
    EXPECT_EQ(std::count(library.begin(), library.end(), Help_Document("mnu_Video1")), 0);
    EXPECT_EQ(reader.lbl_Finds.Caption.Get(), "");
    reader.Open(Help_Document("mnu_Manual"));
    reader.Find_Next(+1);
    EXPECT_TRUE(reader.WebBrowser1.Library.empty());
}

}  // namespace

}  // namespace verlink::test
