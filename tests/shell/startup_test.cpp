// The start of the process, the run marker in all its states, and the end.
#include "shell/startup.h"

#include <unistd.h>

#include <filesystem>

#include "core/results.h"
#include "files/in_hand.h"
#include "platform/file_system.h"
#include "platform/process.h"
#include "platform/settings.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Label;
using platform::MenuEntry;
using platform::Screen;
using platform::Screens;

/// As it was before the marker named a process.
constexpr char kNamelessRunning[] =
    "\"Running\"\r\n\"\"\r\n\"This file records an abnormal exit from the program on last execution\"\r\n"
    "\"and is checked at each startup.  Please do not move or delete it.\"\r\n";
std::string Running(const platform::Process& process = platform::This_Process()) {
    return kNamelessRunning + ("\"" + platform::Name_Of(process)) + "\"\r\n";
}
/// One whose number this process has now.
platform::Process Dead() {
    platform::Process process = platform::This_Process();
    process.start -= 1;
    return process;
}
/// One that runs as long as the tests do.
platform::Process Alive() {
    platform::Process process = platform::This_Process();
    process.number = ::getppid();
    process.start = 0;
    return process;
}
constexpr char kNormalExit[] =
    "\"Normal Exit\"\r\n\"\"\r\n\"This file records a normal exit from the program on last run\"\r\n"
    "\"and is checked at each startup.  Please do not move or delete.\"\r\n";
constexpr char kCrashMessage[] =
    "   The program did not shut down properly on its last run.     \r\r"
    "            This problem will now be corrected.\r\r"
    "   To avoid this problem in the future, please use the   \r"
    "   Quit button or File/Quit menu to stop the program.   \r";
constexpr char kSecondInstance[] =
    "   You double-clicked on a VERLINK data file when the program was already running.\r"
    "   You cannot have two instances of VERLINK running at once.\r\r"
    "   Please open the data file from within VERLINK with File/Open  \r";

class StartupTest : public Fixture {
   protected:
    StartupTest() { Set_Identity(); }
    std::string Folder() const { return desktop.Documents + "/VERLINK/"; }
    std::string Marker() const { return Folder() + "Run_Check.txt"; }
    std::string Marked() const { return platform::Read_File(Marker()); }
    void Leave_Marker(const std::string& content) const {
        platform::Make_Folder(Folder());
        platform::Write_File(Marker(), content);
    }
    /// The user stops at the title screen: Abort, and Yes to the question.
    void Expect_Title_And_Abort() {
        desktop.Expect_Screen("frm_Title", [](Screen& title) { Press(title, "cmd_Abort"); });
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    }
};

TEST_F(StartupTest, TheBannerIsBuiltFromTheIdentityOfTheProgram) {
    EXPECT_EQ(Model.ProgramTag, "VERLINK");
    EXPECT_EQ(Model.RevNumber, "9.0");
    EXPECT_EQ(Model.FileVersion, "2.2");
    EXPECT_EQ(Model.RevDate, "11/30/08");
    EXPECT_EQ(Model.TitleSuffix, "VERLINK - 2008   Release 9.0   Rev 2.2   11/30/08                    ");
    EXPECT_EQ(Version_Line(), "2008 - Release 9.0 Rev 2.2");
}

TEST_F(StartupTest, AFirstRunCreatesTheFolderAndTheMarkerWithoutAMessage) {
    ASSERT_FALSE(platform::File_Exists(Folder()));
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
    EXPECT_EQ(Model.FilePath, Folder());
    EXPECT_EQ(Model.RunMarker, Marker());
    EXPECT_EQ(Model.SessionUser, "tester");
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(StartupTest, AStartAfterANormalExitTakesTheMarkerWithoutAMessage) {
    Leave_Marker(kNormalExit);
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, ARunKilledFromOutsideIsToldOnceAndThenTheStateIsClean) {
    Leave_Marker(kNamelessRunning);
    desktop.Expect_Message(kCrashMessage, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
    EXPECT_FALSE(desktop.Ending());
    Terminate();
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, ADoubleClickWithTheProgramRunningStopsTheSecondInstanceAndLeavesTheMarker) {
    const std::string first_instance = "\"Running\"\n\"left by the first\"\n";
    Leave_Marker(first_instance);
    desktop.Expect_Message(kSecondInstance, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Sub_Main("/models/press.vlk");
    EXPECT_TRUE(desktop.Ending());
    EXPECT_EQ(Marked(), first_instance);
    EXPECT_TRUE(desktop.FileTypes.empty());
    EXPECT_EQ(Model.ModelName, "");
    EXPECT_FALSE(Screens::Get("frm_Title").Visible());
}

TEST_F(StartupTest, ADoubleClickAfterTheDeathOfTheOneThatRanIsToldAndStarts) {
    Leave_Marker(Running(Dead()));
    Model.CommandLine = "/models/press.vlk";
    desktop.Expect_Message(kCrashMessage, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    EXPECT_FALSE(desktop.Ending());
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, ADoubleClickWhileTheOneInTheMarkerRunsStopsTheSecond) {
    Leave_Marker(Running(Alive()));
    Model.CommandLine = "/models/press.vlk";
    desktop.Expect_Message(kSecondInstance, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    EXPECT_TRUE(desktop.Ending());
    EXPECT_EQ(Marked(), Running(Alive()));
    Leave("SIGTERM");
    EXPECT_EQ(Marked(), Running(Alive()));
}

TEST_F(StartupTest, ASecondInstanceIsNoCrashAndLeavesTheMarkerToTheFirst) {
    Leave_Marker(Running(Alive()));
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running(Alive()));
    Terminate();
    EXPECT_EQ(Marked(), Running(Alive()));
}

TEST_F(StartupTest, OneThatDiedWhileThisOneRanIsLeftInTheMarkerForTheNextStart) {
    Check_for_Crash();
    Leave_Marker(Running(Dead()));
    Terminate();
    EXPECT_EQ(Marked(), Running(Dead()));
}

TEST_F(StartupTest, AnEndFromOutsideIsWrittenIntoTheMarkerOnceAndToldByNoStart) {
    Check_for_Crash();
    Leave("SIGTERM");
    const std::string ended =
        "\"Ended\"\r\n\"\"\r\n\"This file records an exit from the program by SIGTERM\"\r\n"
        "\"and is checked at each startup.  Please do not move or delete.\"\r\n";
    EXPECT_EQ(Marked(), ended);
    Leave("the loss of the display");
    EXPECT_EQ(Marked(), ended);
    Terminate();
    EXPECT_EQ(Marked(), ended) << "an answer that came too late";
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, AnythingButRunningInTheMarkerIsRenewedWithoutAMessage) {
    Leave_Marker("\"Something else\"\r\n");
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, AfterTerminateTheFirstStringOfTheMarkerIsNormalExit) {
    Check_for_Crash();
    Terminate();
    EXPECT_EQ(Marked(), kNormalExit);
    EXPECT_TRUE(desktop.Ending());
}

TEST_F(StartupTest, TerminateWithoutAMarkerOnlyEndsTheProcess) {
    Terminate();
    EXPECT_TRUE(desktop.Ending());
    EXPECT_FALSE(platform::File_Exists(Folder()));
}

TEST_F(StartupTest, AMarkerThatCannotBeWrittenIsReportedAndDoesNotStopTheProgram) {
    platform::Write_File(Path("file"), "");
    desktop.Documents = Path("file");
    desktop.Expect_Message(
        "Error 76   (Path not found)  has occurred in Write_Checkfile  when writing Checkfile\r\n\r\n" +
            Path("file/VERLINK/Run_Check.txt") + "\rcannot be written: " + Path("file") + " is no folder.",
        Answer::kOk, Icon::kInformation);
    Check_for_Crash();
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(StartupTest, TheContextOfAFailureIsHandedBack) {
    std::string context = "Unknown cause";
    Model.RunMarker = Path("marker");
    Write_Checkfile(context);
    EXPECT_EQ(context, " when writing Checkfile");
    EXPECT_EQ(platform::Read_File(Path("marker")), Running());
}

TEST_F(StartupTest, AMarkerThatCannotBeOpenedIsReported) {
    platform::Make_Folder(Marker());
    desktop.Expect_Message(
        "Error 75   (Path/File access error)  has occurred in Check_for_Crash  when opening Checkfile\r\n\r\n" +
            Marker() + "\rcannot be read: it is a folder.",
        Answer::kOk, Icon::kInformation);
    Check_for_Crash();
    EXPECT_TRUE(std::filesystem::is_directory(Marker()));
}

TEST_F(StartupTest, AnEmptyMarkerIsReportedAndCorrectedByTheNextNormalEnd) {
    Leave_Marker("");
    desktop.Expect_Message(
        "Error 62   (Input past end of file)  has occurred in Check_for_Crash  when reading Checkfile\r\n\r\n",
        Answer::kOk, Icon::kInformation);
    Check_for_Crash();
    Terminate();
    EXPECT_EQ(Marked(), kNormalExit);
}

TEST_F(StartupTest, ATerminateThatCannotWriteTheMarkerEndsTheProcessAllTheSame) {
    Check_for_Crash();  // the session of a test before this one may have been left
    Model.RunMarker = Path("gone/Run_Check.txt");
    desktop.Expect_Message("Error 76   (Path not found)  has occurred in Terminate\r\n\r\n" +
                           Path("gone/Run_Check.txt") + "\rcannot be written: there is no folder " + Path("gone") +
                           ".");
    Terminate();
    EXPECT_TRUE(desktop.Ending());
}

TEST_F(StartupTest, TheStartLeadsFromTheTitleThroughTheUserScreenToTheHomeScreenAndOut) {
    desktop.Expect_Screen("frm_Title", [](Screen& title) {
        EXPECT_EQ(title.Get<Label>("lbl_Version").Caption.Get(), "2008 - Release 9.0 Rev 2.2");
        EXPECT_EQ(title.Get<Label>("Label1").Caption.Get(), "Verlink");
        Press(title, "cmd_Start");
        EXPECT_FALSE(title.Visible());
    });
    desktop.Expect_Screen("frm_User", [](Screen& user) {
        Type(user, "txt_UserName", platform::kNoIndex, "Ada");
        Press(user, "cmd_Done");
    });
    desktop.Expect_Message("Your default path for saved files is: " + Folder(), Answer::kOk, Icon::kInformation);
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& home) { Press(home, "cmd_Quit"); });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(desktop.Ending());
    EXPECT_EQ(Marked(), kNormalExit);
    EXPECT_EQ(Model.UserName, "Ada");
    EXPECT_FALSE(Model.JustStarted);
}

TEST_F(StartupTest, TheStartFixesTheScreenDataTitlesUnitsAndColours) {
    Model.FullScreen = true;
    Model.ProgramTag.clear();
    Expect_Title_And_Abort();
    Sub_Main("");
    EXPECT_EQ(Model.ProgramTag, "VERLINK");
    EXPECT_EQ(Model.AspectRatio, Single(1920.0 / 1080.0));
    EXPECT_FALSE(Model.FullScreen);
    EXPECT_EQ(Model.DateStr, "11/21/2026");
    EXPECT_EQ(Model.AppPath, "/opt/verlink");
    EXPECT_EQ(Screens::Get("frm_Inputnew").Caption().Get(), "Input Screen" + Model.TitleSuffix);
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_EQ(Model.DecMass, 4);
    EXPECT_TRUE(Screens::Get("frm_HomeScreen").Get<MenuEntry>("mnu_pick", 1).Checked);
    EXPECT_EQ(Model.ColorPurple, 0x800080);
    EXPECT_EQ(Model.ColorYellow, 0x00FFFF);
    EXPECT_EQ(Screens::Get("frm_HomeScreen").Get<Label>("lbl_Status", 10).Caption.Get(), "in-lb-bl-s");
    EXPECT_FALSE(Model.DiskFile);
    EXPECT_EQ(Model.NSteps, -435);
}

TEST_F(StartupTest, TheStartTakesBackWhateverTheRecordHeld) {
    Model.AspectCorrection = 1.5;
    Model.AspectActive = true;
    Model.ColorPurple = 0;
    Run_Holds();
    Forces_Hold();
    desktop.Settings = Path("settings");
    desktop.Expect_Screen("frm_Title", [](Screen& title) {
        EXPECT_EQ(Model.AspectCorrection, 1);
        EXPECT_FALSE(Model.AspectActive);
        EXPECT_EQ(Model.ColorPurple, 0x800080);
        EXPECT_FALSE(Model.RunStands);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_TRUE(Model.JustStarted);
        EXPECT_FALSE(Modified());
        EXPECT_FALSE(The_History().Can_Undo());
        Screen& home = Screens::Get("frm_HomeScreen");
        EXPECT_TRUE(home.Caption().Get().ends_with(Model.TitleSuffix));
        EXPECT_EQ(home.Get<Label>("lbl_Status", 0).Caption.Get(), "Calculated");
        EXPECT_EQ(home.Get<Label>("lbl_Status", 7).Caption.Get(), "Cognate 1");
        Press(title, "cmd_Abort");
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
}

TEST_F(StartupTest, WhatWasKeptInTheSettingsIsThereFromTheStart) {
    platform::Settings& settings = platform::The_Settings();
    settings.Open(Path("settings"));
    settings.Put("Tests.word", "kept");
    settings.Save();
    settings.Open("");
    desktop.Settings = Path("settings");
    Expect_Title_And_Abort();
    Sub_Main("");
    EXPECT_EQ(settings.Text("Tests.word"), "kept");
}

TEST_F(StartupTest, AfterTheEndNothingFromOutsideIsWrittenIntoTheMarker) {
    Check_for_Crash();
    Terminate();
    Leave("SIGTERM");
    EXPECT_EQ(Marked(), kNormalExit);
}

TEST_F(StartupTest, ASecondInstanceThatWasRefusedWritesNoEndIntoANamelessMarker) {
    Leave_Marker(kNamelessRunning);
    Model.CommandLine = "/models/press.vlk";
    desktop.Expect_Message(kSecondInstance, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    Leave("SIGTERM");
    EXPECT_EQ(Marked(), kNamelessRunning);
}

TEST_F(StartupTest, AMarkerOfThisProcessIsNoCrashAndNoSecondInstance) {
    Leave_Marker(Running());
    Model.CommandLine = "/models/press.vlk";
    Check_for_Crash();
    EXPECT_FALSE(desktop.Ending());
    EXPECT_EQ(Marked(), Running());
    Leave("SIGTERM");
    EXPECT_NE(Marked(), Running());
}

TEST_F(StartupTest, AMarkerOfAShorterKindNamesNoProcess) {
    Leave_Marker("\"Running\"\r\n\"\"\r\n");
    desktop.Expect_Message(kCrashMessage, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, WhenOneEndsTheMarkerIsTheOthersThatStillRuns) {
    desktop.State = Path("state");
    Check_for_Crash();
    platform::Make_Folder(Path("state/verlink"));
    platform::Write_File(Path("state/verlink/") + platform::Name_Of(Alive()) + ".run", "running\n");
    Terminate();
    EXPECT_EQ(Marked(), Running(Alive()));
}

TEST_F(StartupTest, OneThatRunsWithoutItsMarkerStopsADoubleClickAllTheSame) {
    desktop.State = Path("state");
    platform::Make_Folder(Path("state/verlink"));
    platform::Write_File(Path("state/verlink/") + platform::Name_Of(Alive()) + ".run", "running\n");
    Model.CommandLine = "/models/press.vlk";
    desktop.Expect_Message(kSecondInstance, Answer::kOk, Icon::kInformation, Buttons::kOk);
    Check_for_Crash();
    EXPECT_TRUE(desktop.Ending());
}

TEST_F(StartupTest, BesideOneThatRunsANamelessMarkerIsNoCrash) {
    desktop.State = Path("state");
    platform::Make_Folder(Path("state/verlink"));
    platform::Write_File(Path("state/verlink/") + platform::Name_Of(Alive()) + ".run", "running\n");
    Leave_Marker(kNamelessRunning);
    Check_for_Crash();
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(StartupTest, OneThatDiedAndHadSaidWhyIsNoCrash) {
    desktop.State = Path("state");
    platform::Make_Folder(Path("state/verlink"));
    platform::Write_File(Path("state/verlink/") + platform::Name_Of(Dead()) + ".run", "running\nend SIGTERM\n");
    Leave_Marker(Running(Dead()));
    Check_for_Crash();
    EXPECT_EQ(Marked(), Running());
}

TEST_F(StartupTest, TheFileTypeIsMadeKnownByItsExtensionAndThePlaceOfTheProgram) {
    Expect_Title_And_Abort();
    Sub_Main("");
    ASSERT_EQ(desktop.FileTypes.size(), 1U);
    EXPECT_EQ(desktop.FileTypes[0].type, "Verlink");
    EXPECT_EQ(desktop.FileTypes[0].extension, "vlk");
    EXPECT_EQ(desktop.FileTypes[0].app_path, "/opt/verlink");
}

TEST_F(StartupTest, NoToTheQuestionLeavesTheTitleScreenUp) {
    desktop.Expect_Screen("frm_Title", [this](Screen& title) {
        Press(title, "cmd_Abort");
        EXPECT_TRUE(title.Visible());
        EXPECT_FALSE(desktop.Ending());
        title.Close();
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) {
        EXPECT_EQ(quit.Focus(), quit.Find("cmd_NoQuit"));
        Press(quit, "cmd_NoQuit");
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
}

}  // namespace
}  // namespace verlink::test
