// The title, user, quit, about and help screens, and the questions before printing.
#include "screens/frm_help.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_quit.h"
#include "screens/frm_user.h"
#include "screens/help_documents.h"
#include "screens/print_questions.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::CommandButton;
using platform::DocumentView;
using platform::Icon;
using platform::kNoIndex;
using platform::Label;
using platform::MenuEntry;
using platform::Screen;
using platform::Screens;

class SmallScreensTest : public Fixture {
   protected:
    SmallScreensTest() { Set_Identity(); }
};

TEST_F(SmallScreensTest, CaptionsStandAsDesigned) {
    const auto caption = [](const char* screen, const char* button) {
        return Screens::Get(screen).Get<CommandButton>(button).Caption.Get();
    };
    EXPECT_EQ(caption("frm_Title", "cmd_Start"), "&Start >");
    EXPECT_EQ(caption("frm_Title", "cmd_Abort"), "< &Abort");
    EXPECT_EQ(caption("frm_User", "cmd_Done"), "Next >");
    Screen& user = Screens::Get("frm_User");
    EXPECT_EQ(user.Get<Label>("lbl_Prompt", 0).Caption.Get(), "Please enter your name and/or a project ID:");
    EXPECT_EQ(user.Get<Label>("lbl_Prompt", 1).Caption.Get(), "Please enter a design number:");
    EXPECT_EQ(user.Get<Label>("lbl_Prompt", 2).Caption.Get(), "Please enter a disk filename (< 9 chars)");
    EXPECT_EQ(user.Text("txt_Filename").Text.Get(), "Model1");
    EXPECT_EQ(Screens::Get("frm_Quit").Get<Label>("Label1").Caption.Get(), "Do you really want to Quit?");
}

TEST_F(SmallScreensTest, TheTitleFitsItselfToALowDisplay) {
    desktop.Size = {16000, 8400, 1024, 538};
    Screen& title = Screens::Get("frm_Title");
    title.Form_Activate();
    EXPECT_EQ(title.Height().Get(), 8000);
    EXPECT_EQ(title.Width().Get(), 10592);  // 8000 * 11850 / 8950 = 10592.2
    EXPECT_EQ(title.DefaultButton, title.Find("cmd_Start"));
}

TEST_F(SmallScreensTest, TheUserScreenShowsNameNumberAndFile) {
    Model.UserName = "Ada";
    Model.DesignNumber = 7;
    Model.ModelName = "press";
    Screen& user = Screens::Get("frm_User");
    user.Form_Activate();
    EXPECT_EQ(user.Text("txt_UserName").Text.Get(), "Ada");
    EXPECT_EQ(user.Text("txt_DesignNo").Text.Get(), "7");
    EXPECT_EQ(user.Text("txt_Filename").Text.Get(), "press");
    EXPECT_TRUE(user.Text("txt_UserName").SelectedAll);
}

TEST_F(SmallScreensTest, TheUserScreenGoesByTheFullScreenFlagOnlyOnAHighEnoughDisplay) {
    Screens::Get("frm_HomeScreen");
    Screen& user = Screens::Get("frm_User");
    Model.FullScreen = true;
    Model.ScreenWidth = 17500;
    user.Form_Activate();
    EXPECT_EQ(user.Width().Get(), 17500);
    desktop.Size = {16000, 8400, 1024, 538};
    user.Form_Activate();
    EXPECT_EQ(user.Height().Get(), 8000);
}

TEST_F(SmallScreensTest, DoneWithAnEmptyNameKeepsTheUserScreenOpen) {
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "");
        Press(user, "cmd_Done");
        EXPECT_TRUE(user.Visible());
        EXPECT_EQ(user.Focus(), user.Find("txt_UserName"));
        user.Hide();
    });
    Screens::Get("frm_User").ShowModal();
    EXPECT_EQ(Model.UserName, "");
}

TEST_F(SmallScreensTest, DoneTakesNameNumberAndFileAndShowsTheHomeScreen) {
    Initialize();
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "Ada");
        Type(user, "txt_DesignNo", kNoIndex, "12");
        Type(user, "txt_Filename", kNoIndex, "press");
        Press(user, "cmd_Done");
        EXPECT_FALSE(user.Visible());
    });
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& home) {
        EXPECT_FALSE(The_History().Can_Undo()) << "who begins says who he is; that is no step";
        home.Hide();
    });
    The_History().Begin();
    Screens::Get("frm_User").ShowModal();
    EXPECT_EQ(Model.UserName, "Ada");
    EXPECT_EQ(Model.DesignNumber, 12);
    EXPECT_EQ(Model.ModelName, "press");
}

TEST_F(SmallScreensTest, ADesignNumberThatIsNoNumberIsReportedAndKeepsTheScreenOpen) {
    Model.UserName = "before";
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "Ada");
        Type(user, "txt_DesignNo", kNoIndex, "twelve");
        Press(user, "cmd_Done");
        EXPECT_TRUE(user.Visible());
        user.Hide();
    });
    desktop.Expect_Message("Error 13   (Type mismatch)  has occurred in frm_User.cmd_Done_Click\r\n\r\n", Answer::kOk,
                           Icon::kInformation);
    Screens::Get("frm_User").ShowModal();
    EXPECT_EQ(Model.UserName, "before");
}

TEST_F(SmallScreensTest, ReturnInABoxOfTheUserScreenGoesOn) {
    Initialize();
    desktop.Expect_Screen("frm_User", [](Screen& user) { Enter(user, "txt_UserName", kNoIndex, "Ada"); });
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& home) { home.Hide(); });
    Screens::Get("frm_User").ShowModal();
}

TEST_F(SmallScreensTest, ChangingTheUserLeadsBackToTheHomeScreenThatIsUp) {
    Initialize();
    Model.UserName = "Ada";
    desktop.Expect_Screen("frm_HomeScreen", [this](Screen& home) {
        home.Left() = 7;
        Pick_Menu(home, "mnu_ChangeUser");
        EXPECT_TRUE(home.Visible());
        EXPECT_EQ(Screen::Active(), &home);
        EXPECT_EQ(home.Left(), (desktop.Size.width - home.Width()) / 2);
        home.Hide();
    });
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "Grace");
        Press(user, "cmd_Done");
    });
    Screens::Get("frm_HomeScreen").ShowModal();
    EXPECT_EQ(Model.UserName, "Grace");
}

TEST_F(SmallScreensTest, ClosingTheUserScreenBeforeTheHomeScreenAsksWhetherToQuit) {
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        user.Close();
        EXPECT_TRUE(user.Visible());
        user.Hide();
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
    Screens::Get("frm_User").ShowModal();
}

TEST_F(SmallScreensTest, WhatWasTypedOnTheUserScreenOutlastsTheQuestionWhetherToQuit) {
    Initialize();
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "Grace");
        Type(user, "txt_DesignNo", kNoIndex, "12");
        user.Close();
        EXPECT_EQ(user.Text("txt_UserName").Text.Get(), "Grace");
        EXPECT_EQ(user.Text("txt_DesignNo").Text.Get(), "12");
        user.Hide();
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
    Screens::Get("frm_User").ShowModal();
    EXPECT_EQ(Model.UserName, "") << "it is taken over by Next alone";
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        EXPECT_EQ(user.Text("txt_UserName").Text.Get(), "") << "the screen shows the model when it comes up anew";
        user.Hide();
    });
    Screens::Get("frm_User").ShowModal();
}

TEST_F(SmallScreensTest, ClosingTheUserScreenAboveTheHomeScreenGoesBackToIt) {
    Initialize();
    Model.UserName = "Ada";
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& home) {
        Pick_Menu(home, "mnu_ChangeUser");
        home.Hide();
    });
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", kNoIndex, "Grace");
        user.Close();
        EXPECT_FALSE(user.Visible());
    });
    Screens::Get("frm_HomeScreen").ShowModal();
    EXPECT_EQ(Model.UserName, "Ada");
}

TEST_F(SmallScreensTest, TheQuestionPutsTheFocusOnNoSoThatReturnKeepsTheProgramRunning) {
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) {
        EXPECT_EQ(quit.Focus(), quit.Find("cmd_NoQuit"));
        EXPECT_EQ(quit.DefaultButton, quit.Find("cmd_NoQuit"));
        EXPECT_EQ(quit.CancelButton, quit.Find("cmd_NoQuit"));
        quit.DefaultButton->Click();
    });
    Screens::Get("frm_Quit").ShowModal();
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(SmallScreensTest, AboutShowsTheVersionAndClosesAtAClick) {
    Initialize();
    desktop.Expect_Screen("frm_About", [](Screen& about) {
        EXPECT_EQ(about.Get<Label>("lbl_Version").Caption.Get(), "2008 - Release 9.0 Rev 2.2");
        about.Form_Click();
        EXPECT_FALSE(about.Visible());
    });
    Pick_Menu(Screens::Get("frm_HomeScreen"), "mnu_About");
}

TEST_F(SmallScreensTest, EveryHelpEntryOpensItsDocument) {
    Screen& home = Screens::Get("frm_HomeScreen");
    int entries = 0;
    for (platform::Control* control : home.Controls()) {
        auto* entry = dynamic_cast<MenuEntry*>(control);
        if (!entry || !entry->Children().empty() || entry->Caption.Get().empty()) continue;
        const MenuEntry* top = entry;
        while (top->Parent()) top = top->Parent();
        if (top->Name() != "mnu_HelpHeader") continue;
        ++entries;
        const std::string document = Help_Document(entry->Name());
        EXPECT_EQ(document.substr(0, 10), "helpfiles/") << entry->Name();
        desktop.Expect_Screen("frm_Help", [&](Screen& help) {
            EXPECT_EQ(help.Get<DocumentView>("WebBrowser1").Document.Get(), document);
            Pick_Menu(help, "mnu_Close");
            EXPECT_FALSE(help.Visible());
        });
        entry->Click();
    }
    EXPECT_EQ(entries, 33);
}

TEST_F(SmallScreensTest, DocumentsOfTheManualLieWhereTheyWereSettled) {
    EXPECT_EQ(Help_Document("mnu_Manual"), "helpfiles/Program_Manual.pdf");
    EXPECT_EQ(Help_Document("mnu_CopyHelp"), "helpfiles/general/CopyHelp.pdf");
    EXPECT_EQ(Help_Document("mnu_UnitsHelp"), "helpfiles/general/UnitsHelp.pdf");
    EXPECT_EQ(Help_Document("mnu_PrintHelp"), "helpfiles/general/PrintHelp.pdf");
    EXPECT_EQ(Help_Document("mnu_FileGeneral"), "helpfiles/general/Filemenu_help.pdf");
    EXPECT_EQ(Help_Document("mnu_FFTHelp"), "helpfiles/linkages/linkage_fft_help.pdf");
    EXPECT_EQ(Help_Document("mnu_ExampleHelp"), "helpfiles/linkages/linkage_examples_help.pdf");
    EXPECT_EQ(Help_Document("mnu_PlotHelp"), "helpfiles/linkages/linkage_plot_help.pdf");
    EXPECT_EQ(Help_Document("mnu_LinkCalc"), "helpfiles/linkages/linkage_calc_help.pdf");
    EXPECT_EQ(Help_Document("mnu_Nothing"), "");
}

TEST_F(SmallScreensTest, TheHelpScreenEnlargesToTheDisplayAndShrinksBack) {
    Screens::Get("frm_HomeScreen");
    Screen& help = Screens::Get("frm_Help");
    Pick_Menu(help, "mnu_Full");
    EXPECT_EQ(help.Width().Get(), 25600);
    EXPECT_EQ(help.Height().Get(), 14400);
    EXPECT_EQ(help.Left().Get(), 0);
    EXPECT_EQ(help.Top().Get(), 0);
    Pick_Menu(help, "mnu_Shrink");
    EXPECT_EQ(help.Width().Get(), 11850);
    EXPECT_EQ(help.Height().Get(), 8950);
    EXPECT_EQ(help.Get<MenuEntry>("mnu_Resize").Caption.Get(), "Resize Form");
    EXPECT_EQ(help.Get<MenuEntry>("mnu_Full").Caption.Get(), "Enlarge");
    EXPECT_EQ(help.Get<MenuEntry>("mnu_Shrink").Caption.Get(), "Shrink");
    EXPECT_EQ(help.Get<MenuEntry>("mnu_Close").Caption.Get(), "Close Form");
}

TEST_F(SmallScreensTest, HelpAndAboutTakeTheSizeThatIsSetForAllScreens) {
    Initialize();
    Screen& home = Screens::Get("frm_HomeScreen");
    const auto size_of = [&](const char* name, const std::function<void()>& show) {
        std::pair<long, long> size;
        desktop.Expect_Screen(name, [&](Screen& screen) {
            size = {screen.Width().Get(), screen.Height().Get()};
            screen.Hide();
        });
        show();
        return size;
    };
    const auto help = [&] {
        return size_of("frm_Help", [] { Show_Help("helpfiles/Program_Manual.pdf", "a handler"); });
    };
    const auto about = [&] { return size_of("frm_About", [&home] { Pick_Menu(home, "mnu_About"); }); };
    using Size = std::pair<long, long>;
    EXPECT_EQ(help(), Size(10240, 14000)) << "at first it stands beside the program";
    EXPECT_EQ(Screens::Get("frm_Help").Left().Get(), 25600 - 10240);
    Pick_Menu(Screens::Get("frm_Help"), "mnu_Shrink");
    EXPECT_EQ(help(), Size(11850, 8950));
    EXPECT_EQ(about(), Size(6000, 3000));
    Pick_Menu(home, "mnu_Fullscreen");
    EXPECT_EQ(help(), Size(17500, 13217));
    EXPECT_EQ(about(), Size(17500, 8750));
    Pick_Menu(home, "mnu_Standardsize");
    EXPECT_EQ(help(), Size(11850, 8950));
    EXPECT_EQ(about(), Size(6000, 3000));

    Pick_Menu(Screens::Get("frm_Help"), "mnu_Full");
    EXPECT_EQ(help(), Size(25600, 14400)) << "what the user chose for the manual stays";
    Pick_Menu(Screens::Get("frm_Help"), "mnu_Shrink");
    EXPECT_EQ(help(), Size(11850, 8950));
    Pick_Menu(Screens::Get("frm_Help"), "mnu_Beside");
    EXPECT_EQ(help(), Size(10240, 14000));
    EXPECT_TRUE(Screens::Get("frm_Help").Get<MenuEntry>("mnu_Beside").Checked);
}

TEST_F(SmallScreensTest, AFailureOfTheHelpGoesToTheReporterUnderTheHandlersName) {
    Screens::Discard();
    Screens::Register("frm_Help", [] { return std::make_unique<Screen>("frm_Help"); });
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in frm_Homescreen.mnu_Manual\r\n\r\n");
    Show_Help("helpfiles/Program_Manual.pdf", "frm_Homescreen.mnu_Manual");
}

TEST_F(SmallScreensTest, PrintWarningAsksWithYesAndNoAndHandsTheAnswerBack) {
    constexpr char question[] =
        "You can print this form directly to a printer from here.\r\n\r\n"
        "But a better quality print can be obtained by copying the\r\n"
        "screen to the clipboard with the key combo Alt-PrintScrn,\r\n"
        "and pasting it into a word processing or graphics program,\r\n"
        "then printing it from that program.\r\n\r\n"
        "Do you want to proceed with a direct print?";
    Integer result;
    desktop.Expect_Message(question, Answer::kYes, Icon::kQuestion, Buttons::kYesNo);
    Print_Warning(result);
    EXPECT_EQ(result, 6);
    desktop.Expect_Message(question, Answer::kNo);
    Print_Warning(result);
    EXPECT_EQ(result, 7);
}

TEST_F(SmallScreensTest, PrintNoteAsksWithYesAndNoAndHandsTheAnswerBack) {
    constexpr char question[] =
        "Note: The image on this screen may not print correctly on some printers.\r\n\r\n"
        "If this occurs, you can still get a printout of the screen by copying it to the clipboard\r\n"
        "with the key combo Alt-PrintScrn and pasting the image into a word processor,\r\n"
        "a drawing program, or a graphics package, then printing it from that program.\r\n\r\n"
        "Do you want to send it to the printer now anyway?";
    Integer result;
    desktop.Expect_Message(question, Answer::kNo, Icon::kQuestion, Buttons::kYesNo);
    Print_Note(result);
    EXPECT_EQ(result, 7);
    desktop.Expect_Message(question, Answer::kYes);
    Print_Note(result);
    EXPECT_EQ(result, 6);
}

}  // namespace
}  // namespace verlink::test
