// The desktop without a display: its answers, and how it writes messages.
#include "batch/headless_desktop.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/guard.h"
#include "shell/failure_report.h"

namespace verlink::test {

using namespace platform;

namespace {

struct Headless : testing::Test {
    std::ostringstream messages;
    HeadlessDesktop desktop{messages};
    Headless() {
        Use_Desktop(&desktop);
        Install_Reporter(Report_Error);
    }
    ~Headless() override { Use_Desktop(nullptr); }
    Answer Asked(Buttons buttons) { return desktop.Show_Message({.text = "?", .buttons = buttons}); }
};

}  // namespace

TEST_F(Headless, AnswersOkNoAndIgnore) {
    EXPECT_EQ(Asked(Buttons::kOk), Answer::kOk);
    EXPECT_EQ(Asked(Buttons::kOkCancel), Answer::kOk);
    EXPECT_EQ(Asked(Buttons::kYesNo), Answer::kNo);
    EXPECT_EQ(Asked(Buttons::kAbortRetryIgnore), Answer::kIgnore);
}

TEST_F(Headless, NeverAnswersRetryWhichWouldNotEnd) { EXPECT_EQ(Asked(Buttons::kRetryCancel), Answer::kCancel); }

TEST_F(Headless, WritesEveryLineEndAsALineFeed) {
    Tell("one\rtwo\r\nthree\nfour\r\rsix");
    EXPECT_EQ(messages.str(), "one\ntwo\nthree\nfour\n\nsix\n");
    messages.str("");
    Tell("\r\n\r\none\n\r\ntwo\r\n");
    EXPECT_EQ(messages.str(), "\n\none\n\ntwo\n");
}

TEST_F(Headless, EndsEachMessageWithOneLineFeedAtLeast) {
    Tell("a");
    Tell("b\r");
    Tell("");
    EXPECT_EQ(messages.str(), "a\nb\n\n");
}

TEST_F(Headless, CountsItsMessages) {
    EXPECT_EQ(desktop.Shown(), 0);
    Tell("a");
    Ask_Yes("b");
    EXPECT_EQ(desktop.Shown(), 2);
}

TEST_F(Headless, DialogsAreCancelledAndPrintersRefuse) {
    EXPECT_FALSE(desktop.Ask_Open_File({}));
    EXPECT_FALSE(desktop.Ask_Save_File({}));
    EXPECT_FALSE(desktop.Ask_Printer());
    Screen screen("frm_Any");
    try {
        desktop.Print_Screen(screen);
        FAIL() << "it printed";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), kPrinterError);
    }
}

TEST_F(Headless, AScreenShownIsHiddenAtOnce) {
    Screen screen("frm_Any");
    screen.ShowModal();
    EXPECT_FALSE(screen.Visible());
    EXPECT_EQ(screen.Hidings(), 1);
}

TEST_F(Headless, KnowsNoClockAndNoUser) {
    EXPECT_EQ(desktop.Date_Text() + desktop.Time_Text() + desktop.Session_User(), "");
}

}  // namespace verlink::test
