// The failure reporter: its words and icon for each number, and what the guard lets through.
#include "shell/failure_report.h"

#include <new>

#include "platform/guard.h"
#include "platform/screen.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class FailureReport : public Fixture {
   protected:
    void Reads(long number, const std::string& words, Icon icon) {
        desktop.Expect_Message(words, Answer::kOk, icon, Buttons::kOk);
        Report_Error(number, "Somewhere");
        desktop.Verify();
    }
};

TEST_F(FailureReport, NumberOutsideTheTableShowsOnlyTheHeader) {
    Reads(11, "Error 11   (Division by zero)  has occurred in Somewhere\r\n\r\n", Icon::kInformation);
    Reads(9, "Error 9   (Subscript out of range)  has occurred in Somewhere\r\n\r\n", Icon::kInformation);
    Reads(4711, "Error 4711   (Application-defined or object-defined error)  has occurred in Somewhere\r\n\r\n",
          Icon::kInformation);
}

TEST_F(FailureReport, OutOfStackSpaceTellsToSave) {
    Reads(28,
          "Error 28   (Out of stack space)  has occurred in Somewhere\r\n\r\n"
          "You should try to save your model from the Home Screen's 'File' pulldown menu, \r\n"
          "then Quit this program and restart it to clear the stacks.\r\n"
          "It may help to close other programs that are running at the same time.\r\n"
          "Good luck! ",
          Icon::kInformation);
}

TEST_F(FailureReport, OutOfMemoryHasNoIconAndShowsTheHomeScreen) {
    platform::Screens::Register("frm_HomeScreen", [] { return std::make_unique<platform::Screen>("frm_HomeScreen"); });
    desktop
        .Expect_Message(
            "Error 7   (Out of memory)  has occurred in Somewhere\r\n\r\n"
            "You should try to save your model from the Home Screen's 'File' pulldown menu, \r\n"
            "then Quit this program and restart it to clear the memory.\r\n"
            "It may help to close other programs that are running at the same time.\r\n"
            "Good luck! ",
            Answer::kOk, Icon::kNone)
        .Expect_Screen("frm_HomeScreen", [](platform::Screen& screen) { screen.Hide(); });
    Report_Error(7, "Somewhere");
}

TEST_F(FailureReport, FilesAndDisksHaveTheirAdvice) {
    Reads(52,
          "Error 52   (Bad file name or number)  has occurred in Somewhere\r\n\r\n"
          "The filename clicked on has a problem.  Try opening it from within the program.",
          Icon::kInformation);
    Reads(53,
          "Error 53   (File not found)  has occurred in Somewhere\r\n\r\n"
          "There are no files with your chosen name in the selected directory",
          Icon::kInformation);
    Reads(57,
          "Error 57   (Device I/O error)  has occurred in Somewhere\r\n\r\n"
          "Device I/O error- bad drive or disk - please try another",
          Icon::kInformation);
    Reads(61,
          "Error 61   (Disk full)  has occurred in Somewhere\r\n\r\n"
          " The floppy disk in the drive is full - please substitute another",
          Icon::kInformation);
    Reads(64,
          "Error 64   (Bad file name)  has occurred in Somewhere\r\n\r\n"
          "There are no files with your chosen name in the selected directory",
          Icon::kInformation);
    Reads(71,
          "Error 71   (Disk not ready)  has occurred in Somewhere\r\n\r\n"
          "Disk not ready - is the drive empty or its door open?",
          Icon::kInformation);
    Reads(32678,
          "Error 32678   (Application-defined or object-defined error)  has occurred in Somewhere\r\n\r\n"
          "Out of memory.  Close other programs and retry.",
          Icon::kInformation);
}

TEST_F(FailureReport, OfAFileEndsWithTheFileAndWhatIsTheMatterWithIt) {
    desktop.Expect_Message(
        "Error 75   (Path/File access error)  has occurred in Here\r\n\r\n"
        "/home/ann/press.vlk\rcannot be read: it is a folder.");
    Guarded("Here", [] { throw platform::RuntimeFailure(75, {"/home/ann/press.vlk", false, "it is a folder"}); });
    // Twice the same is told once, and another file by itself.
    desktop.Expect_Message(
        "Error 61   (Disk full)  has occurred in Here\r\n\r\n"
        " The floppy disk in the drive is full - please substitute another\r\n"
        "It has occurred 2 times in this run.\r\n\r\na\rcannot be written: the disk is full.");
    desktop.Expect_Message(
        "Error 61   (Disk full)  has occurred in Here\r\n\r\n"
        " The floppy disk in the drive is full - please substitute another\r\n\r\nb\rcannot be written: the disk is "
        "full.");
    {
        const Told_As_One together;
        for (const char* path : {"a", "b", "a"})
            Guarded("Here", [&] { throw platform::RuntimeFailure(61, {path, true, "the disk is full"}); });
    }
    desktop.Expect_Message(
        "Error 75   (Path/File access error)  has occurred in Here\r\n\r\n"
        "It has occurred 2 times in this run.\r\n\r\na\rcannot be read: it is a folder.");
    {
        const Told_As_One together;
        for (int i = 0; i < 2; ++i)
            Guarded("Here", [] { throw platform::RuntimeFailure(75, {"a", false, "it is a folder"}); });
    }
    // The next failure is about no file.
    desktop.Expect_Message("Error 75   (Path/File access error)  has occurred in Here\r\n\r\n");
    Guarded("Here", [] { platform::Raise(75); });
}

TEST_F(FailureReport, BringsTheMousePointerBack) {
    desktop.PointerNow = platform::Pointer::kHourglass;
    Reads(11, "Error 11   (Division by zero)  has occurred in Somewhere\r\n\r\n", Icon::kInformation);
    EXPECT_EQ(desktop.PointerNow, platform::Pointer::kDefault);
}

TEST_F(FailureReport, AfterOutOfMemoryThePointerIsBackBeforeTheHomeScreenComesUp) {
    platform::Screens::Register("frm_HomeScreen", [] { return std::make_unique<platform::Screen>("frm_HomeScreen"); });
    desktop.PointerNow = platform::Pointer::kHourglass;
    bool came_up = false;
    desktop.Expect_Message_With("Error 7   (Out of memory)")
        .Expect_Screen("frm_HomeScreen", [&](platform::Screen& screen) {
            came_up = true;
            EXPECT_EQ(desktop.PointerNow, platform::Pointer::kDefault);
            screen.Hide();
        });
    Report_Error(7, "Somewhere");
    EXPECT_TRUE(came_up);
}

TEST_F(FailureReport, FailuresOfARunAreToldWithTheirCount) {
    const auto fail = [](int times, long number) {
        const Told_As_One told;
        for (int i = 0; i < times; ++i) Guarded("Calculate", [number] { platform::Raise(number); });
    };
    desktop.Expect_Message(
        "Error 11   (Division by zero)  has occurred in Calculate\r\n\r\nIt has occurred 2881 times in this run.",
        Answer::kOk, Icon::kInformation, Buttons::kOk);
    fail(2881, 11);
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Calculate\r\n\r\n", Answer::kOk,
                           Icon::kInformation, Buttons::kOk);
    fail(1, 11);
    desktop.Expect_Message(
        "Error 57   (Device I/O error)  has occurred in Calculate\r\n\r\n"
        "Device I/O error- bad drive or disk - please try another\r\nIt has occurred 3 times in this run.",
        Answer::kOk, Icon::kInformation, Buttons::kOk);
    fail(3, 57);
}

TEST_F(FailureReport, GuardReportsUnderTheProceduresNameAndGoesOn) {
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Calculate\r\n\r\n");
    int reached = 0;
    EXPECT_FALSE(Guarded("Calculate", [&] {
        reached = 1;
        platform::Raise(platform::kOverflow);
    }));
    EXPECT_EQ(reached, 1);
    EXPECT_TRUE(Guarded("Calculate", [&] { reached = 2; }));
    EXPECT_EQ(reached, 2);
}

TEST_F(FailureReport, MemoryThatCannotBeHadIsNumberSeven) {
    platform::Screens::Register("frm_HomeScreen", nullptr);
    desktop.Expect_Message_With("Error 7   (Out of memory)  has occurred in Here");
    EXPECT_FALSE(Guarded("Here", [] { throw std::bad_alloc(); }));
}

TEST_F(FailureReport, CancelledDialogIsSilentOnlyWhereDialogsAreExpected) {
    EXPECT_FALSE(Guarded_Unless_Cancelled("Opening", [] { platform::Raise(platform::kDialogCancelled); }));
    desktop.Expect_Message("Error 32755   (Cancel was selected)  has occurred in Printing\r\n\r\n");
    EXPECT_FALSE(Guarded("Printing", [] { platform::Raise(platform::kDialogCancelled); }));
    desktop.Expect_Message_With("Error 53   (File not found)  has occurred in Opening");
    EXPECT_FALSE(Guarded_Unless_Cancelled("Opening", [] { platform::Raise(platform::kFileNotFound); }));
}

}  // namespace
}  // namespace verlink::test
