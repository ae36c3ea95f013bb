// Sizes and places of screens on displays of several sizes.
#include "core/window_sizes.h"

#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Screen;
using platform::Screens;

class WindowSizesTest : public Fixture {
   protected:
    WindowSizesTest() { Screens::Get("frm_HomeScreen"); }
    static void Expect_Shape(Screen& screen, long left, long top, long width, long height) {
        EXPECT_EQ(screen.Left().Get(), left);
        EXPECT_EQ(screen.Top().Get(), top);
        EXPECT_EQ(screen.Width().Get(), width);
        EXPECT_EQ(screen.Height().Get(), height);
    }
};

TEST_F(WindowSizesTest, TheHomeScreenCentresItselfWhenItIsMadeAndNotesItsTop) {
    Expect_Shape(Screens::Get("frm_HomeScreen"), 6875, 2460, 11850, 9480);
    EXPECT_EQ(Model.HomeTop, 2460);
    EXPECT_EQ(Model.ScreenHeight, 9480);
    EXPECT_EQ(Model.ScreenWidth, 11850);
    EXPECT_EQ(Model.StatusWidth, 11850);
}

TEST_F(WindowSizesTest, CenterformPutsAScreenAtTheTopOfTheHomeScreen) {
    Screen& screen = Screens::Get("frm_Animate");
    screen.Width() = 11850;
    Centerform(screen);
    EXPECT_EQ(screen.Left().Get(), 6875);
    EXPECT_EQ(screen.Top().Get(), 2460);
}

TEST_F(WindowSizesTest, CenterformUsesTheTopOfTheDisplayWhereTheHomeScreenIsAboveIt) {
    Model.HomeTop = -240;
    Screen& screen = Screens::Get("frm_Animate");
    Centerform(screen);
    EXPECT_EQ(screen.Top().Get(), 0);
}

TEST_F(WindowSizesTest, MaximizeGivesTheHomeScreenTheHeightOfTheDisplayLess400) {
    Screen& home = Screens::Get("frm_HomeScreen");
    Maximize_Screen(home, 11850, 9480);
    Expect_Shape(home, 4050, 200, 17500, 14000);  // 14000 * 1.25
    EXPECT_EQ(Model.ScreenWidth, 17500);
    EXPECT_EQ(Model.ScreenHeight, 14000);
}

TEST_F(WindowSizesTest, MaximizeIsCappedAtTheWidthOfTheDisplay) {
    desktop.Size = {12000, 14400, 900, 1080};
    Screen& home = Screens::Get("frm_HomeScreen");
    Maximize_Screen(home, 11850, 9480);
    Expect_Shape(home, 0, 2400, 12000, 9600);
}

TEST_F(WindowSizesTest, OtherScreensTakeTheWidthOfTheMaximizedHomeScreenAndTheirOwnProportions) {
    Maximize_Screen(Screens::Get("frm_HomeScreen"), 11850, 9480);
    Screen& screen = Screens::Get("frm_Animate");
    Maximize_Screen(screen, 11850, 8950);
    Expect_Shape(screen, 4050, 592, 17500, 13217);  // 17500 * 8950 / 11850 = 13217.3; (14400 - 13217) / 2 = 591.5
}

TEST_F(WindowSizesTest, AScreenHigherThanTheDisplayBeginsAtItsTop) {
    Model.ScreenWidth = 30000;
    Screen& screen = Screens::Get("frm_Animate");
    Maximize_Screen(screen, 11850, 8950);
    EXPECT_EQ(screen.Height().Get(), 22658);  // 30000 * 8950 / 11850 = 22658.2
    EXPECT_EQ(screen.Top().Get(), 0);
}

TEST_F(WindowSizesTest, AnActiveAspectCorrectionIsOnePointSixOverTheRatioOfTheDisplay) {
    Model.AspectRatio = 2;
    Model.AspectActive = true;
    Screen& home = Screens::Get("frm_HomeScreen");
    Maximize_Screen(home, 11850, 9480);
    EXPECT_EQ(Model.AspectCorrection, Single(0.8));
    Expect_Shape(home, 1862, 200, 21875, 14000);  // 17500 / 0.8; 1862.5 rounds to even
    Screen& screen = Screens::Get("frm_Animate");
    Maximize_Screen(screen, 11850, 8950);
    EXPECT_EQ(screen.Width().Get(), 21875);
    EXPECT_EQ(screen.Height().Get(), 13217);  // 21875 * 8950 / 11850 * 0.8
}

TEST_F(WindowSizesTest, AnInactiveAspectCorrectionIsLeftAsItIs) {
    Model.AspectRatio = 2;
    Maximize_Screen(Screens::Get("frm_HomeScreen"), 11850, 9480);
    EXPECT_EQ(Model.AspectCorrection, 1.0);
}

TEST_F(WindowSizesTest, ResetRestoresTheDesignSizeAndCentres) {
    Screen& home = Screens::Get("frm_HomeScreen");
    Maximize_Screen(home, 11850, 9480);
    Reset_Screen(home, 11850, 9480);
    Expect_Shape(home, 6875, 2460, 11850, 9480);
}

TEST_F(WindowSizesTest, FitScreenGoesByTheFullScreenFlag) {
    Screen& home = Screens::Get("frm_HomeScreen");
    Model.FullScreen = true;
    Fit_Screen(home, 11850, 9480);
    EXPECT_EQ(home.Height().Get(), 14000);
    Model.FullScreen = false;
    Fit_Screen(home, 11850, 9480);
    EXPECT_EQ(home.Height().Get(), 9480);
}

TEST_F(WindowSizesTest, FitDisplayKeepsTheDesignSizeWhereTheDisplayIsHighEnough) {
    desktop.Size = {16000, 9350, 1067, 623};
    Screen& title = Screens::Get("frm_Title");
    Fit_Display(title);
    Expect_Shape(title, 2075, 2460, 11850, 8950);
    EXPECT_TRUE(Display_Is_High_Enough());
    desktop.Size = {16000, 14400, 1067, 960};
    title.Width() = 100;
    title.Height() = 100;
    Fit_Display(title);
    Expect_Shape(title, 2075, 2460, 11850, 8950);
    desktop.Size = {16000, 9349, 1067, 623};
    EXPECT_FALSE(Display_Is_High_Enough());
}

TEST_F(WindowSizesTest, FitDisplayShrinksAScreenThatIsHigherThanTheDisplay) {
    desktop.Size = {16000, 9349, 1067, 623};
    Screen& title = Screens::Get("frm_Title");
    Fit_Display(title);
    EXPECT_EQ(title.Height().Get(), 8949);
    EXPECT_EQ(title.Width().Get(), 11849);  // 8949 * 11850 / 8950 = 11848.7
}

TEST_F(WindowSizesTest, ShowCenteredPlacesAScreenAndShowsItModally) {
    desktop.Expect_Screen("frm_About", [](Screen& screen) {
        EXPECT_EQ(screen.Left().Get(), 9800);
        EXPECT_EQ(screen.Top().Get(), 2460);
        screen.Hide();
    });
    Screens::Get("frm_About").Left() = 0;
    Screens::Get("frm_About").Top() = 0;
    Show_Centered("frm_About");
}

TEST_F(WindowSizesTest, WhatIsArrivedAtTakesAwayTheScreensAboveHome) {
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& home) {
        Arrive_At("frm_About");
        EXPECT_TRUE(home.Visible());
        home.Hide();
    });
    desktop.Expect_Screen("frm_About", [](Screen&) { Arrive_At("frm_Title"); });
    desktop.Expect_Screen("frm_Title", [](Screen& title) {
        EXPECT_FALSE(Screens::Get("frm_About").Visible());
        title.Hide();
    });
    Screens::Get("frm_HomeScreen").ShowModal();
}

TEST_F(WindowSizesTest, ShowCenteredOfAScreenThatDoesNotExistIsASubscriptFailure) {
    try {
        Show_Centered("frm_Nowhere");
        ADD_FAILURE() << "no failure";
    } catch (const platform::RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), platform::kSubscript);
    }
}

}  // namespace
}  // namespace verlink::test
