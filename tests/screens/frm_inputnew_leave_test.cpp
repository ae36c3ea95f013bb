// The ways out of the input screen, its printing, its help, and its cognates.
#include "core/classification.h"
#include "core/numeric.h"
#include "core/text.h"
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
        input.txt_Figure.Type("A press");
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
        EXPECT_FALSE(Model.Calculated);
        desktop.Expect_Screen("frm_Animate", [](Screen& screen) {
            EXPECT_TRUE(Model.Calculated) << "the run that was shown counts from here";
            screen.Hide();
        });
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
            input.txt_Figure.Type(title);
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
        for (const char* way : {"cmd_Animate", "cmd_Plot"})
            EXPECT_TRUE(Screens::Get("frm_HomeScreen").Get<platform::CommandButton>(way).Enabled) << way;
        Model.CurrentStep = 5;
        desktop.Expect_Screen("frm_Animate", [&](Screen& screen) {
            EXPECT_FALSE(input.Visible());
            EXPECT_FALSE(Model.InputScreenOpen);
            EXPECT_EQ(Model.CurrentStep, 1) << "the first position is shown, and the second comes next";
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

TEST_F(Leave, ClosingTheWindowTakesTheBoxThatIsBeingTyped) {
    Show([&] {
        Type(input, "txt_Linkout", 1, "1");
        input.Close();
    });
    EXPECT_EQ(Model.L2, 1.0);
    Show([&] {
        Type(input, "txt_Linkout", 1, "1 + 0.25");
        input.Close();
    });
    EXPECT_EQ(Model.L2, 1.25) << "which is read as it is left";
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
        {"mnu_Calculations", "helpfiles/linkages/linkage_calc_help.pdf"},
        {"mnu_HandHelp", "helpfiles/general/under_the_hand.pdf"}};
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

TEST_F(Leave, ACognateOfTheMenuStandsInTheBoxesAndWaitsForItsCalculation) {
    Show([&] {
        Calculate_Now();
        Model.Synthesized = true;
        Forces_Hold();
        Balance_Holds();
        Pick_Menu(input, "mnu_Cog", 2);
        EXPECT_EQ(Model.CognateNumber, 2);
        EXPECT_TRUE(Model.CognateEdit);
        EXPECT_EQ(Model.L2, Model.Cognates(2, 2));
        EXPECT_EQ(Model.LinkArray(2), Model.L2);
        EXPECT_EQ(Val(input.txt_Linkout[1].Text.Get()), FNRound(Model.L2, 3));
        EXPECT_EQ(Val(input.txt_Linkout[4].Text.Get()), FNRound(Model.Rpa, 3));
        EXPECT_FALSE(input.mnu_Cog[1].Checked);
        EXPECT_TRUE(input.mnu_Cog[2].Checked);
        for (const bool flag :
             std::initializer_list<bool>{Model.Calculated, Model.Synthesized, Model.DynamicsDone, Model.BalanceDone})
            EXPECT_FALSE(flag);
        Expect_Ways_On(false, false);
        EXPECT_TRUE(Picture_Is_Empty());
        EXPECT_TRUE(input.Visible());
    });
}

TEST_F(Leave, ACalculationOfACognateKeepsItsNumberAndItsFellows) {
    Show([&] {
        Calculate_Now();
        const Single first = Model.Cognates(1, 2);
        Pick_Menu(input, "mnu_Cog", 3);
        Calculate_Now();
        EXPECT_EQ(Model.CognateNumber, 3);
        EXPECT_EQ(Model.Cognates(1, 2), first);
        Pick_Menu(input, "mnu_Cog", 1);
        EXPECT_EQ(Model.L2, first);
        EXPECT_FALSE(Model.CognateEdit);
    });
}

TEST_F(Leave, AnEditedCognateIsALinkageOfItsOwn) {
    Without_Autocalc();
    Show([&] {
        Calculate_Now();
        Pick_Menu(input, "mnu_Cog", 3);
        Enter_Link(4, "2");
        EXPECT_EQ(Model.CognateNumber, 1);
        EXPECT_FALSE(Model.CognateEdit);
        Calculate_Now();
        EXPECT_EQ(Model.Cognates(1, 5), 2);
        EXPECT_TRUE(input.mnu_Cog[1].Checked);
    });
}

TEST_F(Leave, TheCayleyDiagramComesUpFromTheMenu) {
    Show([&] {
        desktop.Expect_Screen("frm_Cayley", Hide_It);
        Pick_Menu(input, "mnu_Cayley");
    });
}

TEST_F(Leave, ACognateTakenOnTheDiagramIsInTheBoxesAfterwards) {
    Show([&] {
        desktop.Expect_Screen("frm_Cayley", [](Screen& cayley) {
            Choose_Option(cayley, "opt_Cognate", 2);
            Press(cayley, "cmd_Done");
        });
        Pick_Menu(input, "mnu_Cayley");
        EXPECT_EQ(Model.CognateNumber, 3);
        EXPECT_EQ(Val(input.txt_Linkout[2].Text.Get()), FNRound(Model.Cognates(3, 3), 3));
        EXPECT_TRUE(input.mnu_Cog[3].Checked);
    });
}

}  // namespace
}  // namespace verlink::test
