// The ways out of the input screen, its printing, its help, and its cognates.
#include "core/classification.h"
#include "screens/frm_help.h"
#include "tests/screens/frm_inputnew_fixture.h"

namespace verlink::test {
namespace {

using Leave = InputScreen;
using WithoutAnimateScreen = Fixture;

constexpr char kPrintNote[] =
    "Note: The image on this screen may not print correctly on some printers.\r\n\r\n"
    "If this occurs, you can still get a printout of the screen by copying it to the clipboard\r\n"
    "with the key combo Alt-PrintScrn and pasting the image into a word processor,\r\n"
    "a drawing program, or a graphics package, then printing it from that program.\r\n\r\n"
    "Do you want to send it to the printer now anyway?";

void Hide_It(Screen& screen) { screen.Hide(); }

TEST_F(Leave, NextTakesTheTitleRaisesTheDesignNumberOfAChangedLinkageAndGoesToTheAnimateScreen) {
    Model.Synthesized = true;
    Show([&] {
        Enter_Link(1, "1");
        input.txt_Figure.Text = "A press";
        desktop.Expect_Screen("frm_Animate", [&](Screen& screen) {
            EXPECT_FALSE(input.Visible());
            EXPECT_EQ(Model.FigureTitle, "A press");
            EXPECT_EQ(Model.DesignNumber, 2);
            EXPECT_FALSE(Model.Synthesized);
            EXPECT_FALSE(Model.InputScreenOpen);
            Model.FigureTitle = "";
            screen.Hide();
        });
        Press(input, "cmd_Done");
    });
}

TEST_F(Leave, NextKeepsTheDesignNumberOfAnUnchangedLinkage) {
    Show([&] {
        desktop.Expect_Screen("frm_Animate", Hide_It);
        Press(input, "cmd_Done");
    });
    EXPECT_EQ(Model.DesignNumber, 1);
}

TEST_F(Leave, AfterOnePositionNextGoesBackToTheHomeScreen) {
    Show([&] {
        Choose_Option(input, "opt_Calctype", 1);
        Press(input, "cmd_Calc");
        Press(input, "cmd_Done");
        EXPECT_FALSE(input.Visible());
        EXPECT_EQ(Model.CurrentStep, 0);
    });
}

TEST_F(Leave, TheWordFigureAndAnEmptyTitleLeaveTheTitleAsItWas) {
    for (const char* title : {"Figure", ""}) {
        Model.FigureTitle = "A press";
        Show([&] {
            input.txt_Figure.Text = title;
            Choose_Option(input, "opt_Calctype", 1);
            Press(input, "cmd_Calc");
            Press(input, "cmd_Done");
        });
        EXPECT_EQ(Model.FigureTitle, "A press");
    }
}

TEST_F(Leave, TheAnimateButtonGoesThereWithTheFirstPosition) {
    Show([&] {
        Calculate_Now();
        desktop.Expect_Screen("frm_Animate", [&](Screen& screen) {
            EXPECT_FALSE(input.Visible());
            EXPECT_FALSE(Model.InputScreenOpen);
            screen.Hide();
        });
        Press(input, "cmd_Animate");
    });
}

TEST_F(Leave, BackKeepsWhatTheLastRunStored) {
    Show([&] {
        Calculate_Now();
        Press(input, "cmd_Cancel");
        EXPECT_FALSE(input.Visible());
    });
    EXPECT_FALSE(Model.InputScreenOpen);
    EXPECT_TRUE(Model.Calculated);
    EXPECT_TRUE(Model.RunTable.Assembled(36));
}

TEST_F(Leave, ClosingTheWindowIsGoingBack) {
    Show([&] {
        input.Close();
        EXPECT_FALSE(input.Visible());
    });
    EXPECT_FALSE(Model.InputScreenOpen);
}

TEST_F(Leave, AFailureOnTheWayToTheNextScreenIsReportedUnderTheButtonsName) {
    Show([&] {
        Enter_Link(1, "1");
        Model.DesignNumber = 32767;
        desktop.Expect_Message_With("has occurred in cmd_Done_Click");
        Press(input, "cmd_Done");
        EXPECT_TRUE(input.Visible());
    });
}

TEST_F(WithoutAnimateScreen, AFailureOfTheAnimateButtonIsReportedUnderItsName) {
    Screens::Register("frm_Animate", nullptr);
    Initialize();
    Use_Units(1);
    desktop.Expect_Screen("frm_Inputnew", [&](Screen& screen) {
        desktop.Expect_Message_With("has occurred in frm_Input.cmd_Animate_Click");
        Press(screen, "cmd_Animate");
        EXPECT_FALSE(screen.Visible());
    });
    Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Leave, PrintAsksAndPrintsTheScreenOnYes) {
    Show([&] {
        desktop.Expect_Message(kPrintNote, Answer::kYes, Icon::kQuestion, Buttons::kYesNo).Expect_Printer(true);
        Press(input, "cmd_PlotPrint");
        EXPECT_EQ(desktop.Printed, std::vector<std::string>{"frm_Inputnew"});
    });
}

TEST_F(Leave, PrintDoesNothingOnNo) {
    Show([&] {
        desktop.Expect_Message(kPrintNote, Answer::kNo);
        Press(input, "cmd_PlotPrint");
        EXPECT_TRUE(desktop.Printed.empty());
    });
}

TEST_F(Leave, ACancelledPrinterDialogPrintsNothingInSilence) {
    Show([&] {
        desktop.Expect_Message(kPrintNote, Answer::kYes).Expect_Printer(false);
        Press(input, "cmd_PlotPrint");
        EXPECT_TRUE(desktop.Printed.empty());
    });
}

TEST_F(Leave, APrinterThatRefusesIsReported) {
    desktop.FailPrinting = 482;
    Show([&] {
        desktop.Expect_Message(kPrintNote, Answer::kYes).Expect_Printer(true);
        desktop.Expect_Message_With("has occurred in frm_Input.Print");
        Press(input, "cmd_PlotPrint");
    });
}

TEST_F(Leave, TheHelpMenuOpensTheManualsPages) {
    Without_Autocalc();
    const std::pair<const char*, const char*> pages[] = {
        {"mnu_Linkage", "helpfiles/verlink/linkage_data_help.pdf"},
        {"mnu_Calculations", "helpfiles/linkages/linkage_calc_help.pdf"}};
    Show([&] {
        for (const auto& [entry, page] : pages) {
            desktop.Expect_Screen("frm_Help", [wanted = std::string(page)](Screen& help) {
                EXPECT_EQ(dynamic_cast<frm_Help&>(help).WebBrowser1.Document, wanted);
                help.Hide();
            });
            Pick_Menu(input, entry);
        }
    });
}

TEST_F(Leave, AParallelogramHasNoCognates) {
    const std::string words =
        "Your present linkage is a parallelogram,\rwhich has an infinity of cognates\r"
        "all of which have circular coupler curves.\r\rCognate switching and the Cayley diagram are\r"
        "not available for parallelogram linkages\ras they have no value in this case.\r";
    Without_Autocalc();
    Show([&] {
        Model.Parallelogram = true;
        desktop.Expect_Message(words, Answer::kOk, Icon::kInformation, Buttons::kOk);
        input.mnu_Cog_Click(2);
        desktop.Expect_Message(words, Answer::kOk, Icon::kInformation, Buttons::kOk);
        input.mnu_Cayley_Click();
    });
}

TEST_F(Leave, CognatesAreOffWhileTheirScreenIsMissing) {
    for (auto& entry : input.mnu_Cog) EXPECT_FALSE(entry->Enabled);
    EXPECT_FALSE(input.mnu_Cayley.Enabled);
}

}  // namespace
}  // namespace verlink::test
