// The home screen's activation, buttons, and picture of the present linkage.
#include <algorithm>
#include <filesystem>

#include "core/runs.h"
#include "dynamics/units.h"
#include "platform/file_system.h"
#include "platform/settings.h"
#include "screens/frm_homescreen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Screen;
using platform::Screens;

class HomeActivationTest : public Fixture {
   protected:
    HomeActivationTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
    }
    /// A full turn of the default linkage.
    static void Calculate_Turn() {
        Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
        Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
        Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
        Model.NSteps = 36;
        Integer result = 0;
        Crankangle(result);
        Run_Holds();
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
};

TEST_F(HomeActivationTest, ItComesUpInTheMiddleOfTheDisplayAndOthersGoByItsTop) {
    EXPECT_EQ(home.Left(), (desktop.Size.width - home.Width()) / 2);
    EXPECT_EQ(home.Top(), (desktop.Size.height - home.Height()) / 2);
    EXPECT_EQ(Model.HomeTop, home.Top());
    EXPECT_EQ(Model.ScreenWidth, home.Width());
    EXPECT_EQ(Model.ScreenHeight, home.Height());
}

TEST_F(HomeActivationTest, TheSizeThatWasChosenIsKeptFromSessionToSession) {
    EXPECT_TRUE(home.Picture1.Magnifies);
    const auto next_session = [] {
        Screens::Discard();
        Model.FullScreen = Model.AspectActive = false;
        Model.AspectCorrection = 1;
        Screens::Get("frm_HomeScreen");
    };
    platform::Settings& settings = platform::The_Settings();
    settings.Open(Path(""));
    settings.Put("screen.size", "maximized");
    settings.Put("screen.aspect", "corrected");
    Model.AspectRatio = 2;
    next_session();
    EXPECT_TRUE(Model.FullScreen);
    EXPECT_TRUE(Model.AspectActive);
    EXPECT_EQ(Model.AspectCorrection, Single(0.8));
    Model.AspectRatio = 1.6;
    next_session();
    EXPECT_FALSE(Model.AspectActive) << "on such a display there is nothing to correct";
    settings.Put("screen.size", "");
    settings.Put("screen.aspect", "");
    Model.AspectRatio = 2;
    next_session();
    EXPECT_FALSE(Model.FullScreen);
    EXPECT_FALSE(Model.AspectActive);
}

TEST_F(HomeActivationTest, TheFirstActivationTellsThePathForSavedFilesAndTheNextDoesNot) {
    Model.JustStarted = true;
    Model.FilePath = "/home/ada/VERLINK/";
    desktop.Expect_Message("Your default path for saved files is: /home/ada/VERLINK/", Answer::kOk, Icon::kInformation,
                           Buttons::kOk);
    home.Form_Activate();
    EXPECT_FALSE(Model.JustStarted);
    home.Form_Activate();
}

TEST_F(HomeActivationTest, ThePathToldIsTheFolderOfAModelThatCameWithTheStart) {
    Model.JustStarted = true;
    Model.FilePath = "/home/ada/presses/lid.vlk";
    desktop.Expect_Message("Your default path for saved files is: /home/ada/presses/", Answer::kOk, Icon::kInformation);
    home.Form_Activate();
    EXPECT_EQ(Model.FilePath, "/home/ada/presses/lid.vlk");
}

TEST_F(HomeActivationTest, AnActivationRefreshesPanelAndMenusAndTakesTheScreenReturnFlagBack) {
    Calculate_Turn();
    Model.ScreenReturn = true;
    home.Form_Activate();
    EXPECT_TRUE(home.lbl_Status[0].Visible);
    EXPECT_EQ(home.lbl_Status[0].Caption.Get(), "Calculated");
    EXPECT_TRUE(home.cmd_Animate.Enabled);
    EXPECT_TRUE(home.mnu_Save.Enabled);
    EXPECT_FALSE(Model.ScreenReturn);
}

TEST_F(HomeActivationTest, BeforeTheFirstCalculationThePanelShowsOnlyTheUnitsAndTheOutputButtonsAreOff) {
    home.Form_Activate();
    for (int i = 0; i <= 8; ++i) EXPECT_FALSE(home.lbl_Status[i].Visible) << i;
    EXPECT_TRUE(home.lbl_Status[9].Visible);
    EXPECT_TRUE(home.lbl_Status[10].Visible);
    for (auto* button : {&home.cmd_Animate, &home.cmd_Plot, &home.cmd_Print, &home.cmd_Dynamics, &home.cmd_Balance})
        EXPECT_FALSE(button->Enabled) << button->Name();
    for (auto* entry : {&home.mnu_New, &home.mnu_Save, &home.mnu_Saveas, &home.mnu_Cayley, &home.mnu_Export})
        EXPECT_FALSE(entry->Enabled) << entry->Name();
    for (auto* entry :
         {&home.mnu_Open, &home.mnu_File, &home.mnu_Units, &home.mnu_Examples, &home.mnu_Cognate, &home.mnu_Synthesis,
          &home.mnu_FFT, &home.mnu_Version, &home.mnu_User, &home.mnu_Screen, &home.mnu_HelpHeader})
        EXPECT_TRUE(entry->Enabled) << entry->Name();
    EXPECT_TRUE(home.cmd_Input.Enabled);
    EXPECT_TRUE(home.cmd_Quit.Enabled);
}

TEST_F(HomeActivationTest, WithoutALinkageTheProgramsNameAndALineOfAdviceAreShown) {
    home.Form_Activate();
    EXPECT_FALSE(home.Picture1.Visible);
    EXPECT_TRUE(home.lbl_Name.Visible);
    EXPECT_EQ(home.lbl_Name.Caption.Get(), "Verlink");
    EXPECT_TRUE(home.lbl_Advice.Visible);
}

TEST_F(HomeActivationTest, ACalculatedLinkageIsDrawnWithItsCouplerCurveAndNothingOfTheModelChanges) {
    Calculate_Turn();
    Model.ZoomFactor = 0.5;
    Model.ShowCouplerFlag = "N";
    Model.HideLinksFlag = "Y";
    Model.TraceFlag = "Y";
    Model.RedrawFlag = "Y";
    Model.AnimMax = 7;
    Model.AnimMin = -7;
    Model.FlipSum = 1;
    home.Form_Activate();
    EXPECT_TRUE(home.Picture1.Visible);
    EXPECT_FALSE(home.lbl_Name.Visible);
    EXPECT_FALSE(home.lbl_Advice.Visible);
    // A segment of the curve for each of the 36 steps besides the links themselves.
    EXPECT_GT(home.Picture1.Drawing().Alive(), 36U + 5U);
    // The window holds the linkage unzoomed: O2, and O4 at 2.667.
    EXPECT_LT(home.Picture1.Drawing().Left(), 0);
    EXPECT_GT(home.Picture1.Drawing().Right(), 2.667);
    EXPECT_EQ(Model.ZoomFactor, 0.5);
    EXPECT_EQ(Model.ShowCouplerFlag, "N");
    EXPECT_EQ(Model.HideLinksFlag, "Y");
    EXPECT_EQ(Model.TraceFlag, "Y");
    EXPECT_EQ(Model.RedrawFlag, "Y");
    EXPECT_EQ(Model.AnimMax, 7);
    EXPECT_EQ(Model.AnimMin, -7);
    EXPECT_EQ(Model.FlipSum, 1);
}

TEST_F(HomeActivationTest, ThePictureIsWithoutTheCouplerLinesOfTheAnimateScreen) {
    Calculate_Turn();
    home.Form_Activate();
    const auto without = home.Picture1.Drawing().Alive();
    Model.ShowCouplerLinesFlag = "Y";
    home.Form_Activate();
    EXPECT_EQ(home.Picture1.Drawing().Alive(), without);
    EXPECT_EQ(Model.ShowCouplerLinesFlag, "Y");
}

TEST_F(HomeActivationTest, APositionThatDoesNotCloseIsPassedOverInThePicture) {
    Calculate_Turn();
    for (int step = 0; step < 9; ++step) {
        Model.RunTable.Assembled(step) = false;
        for (int row = 0; row < 3; ++row)
            Model.RunTable.PointXY(step, row, 0) = Model.RunTable.PointXY(step, row, 1) = 0;
    }
    home.Form_Activate();
    // Step 9 is at 45 + 9 * 10 = 135 degrees: the crank's line ends at (-0.788, 0.788).
    bool found = false;
    const double flip = home.Picture1.Drawing().Top() + home.Picture1.Drawing().Bottom();
    for (const auto& primitive : home.Picture1.Drawing().Primitives())
        found = found || (primitive.alive && primitive.x1 == 0 && std::abs(primitive.x2 + 0.78842) < 1e-4 &&
                          std::abs(flip - primitive.y2 - 0.78842) < 1e-4);
    EXPECT_TRUE(found);
}

TEST_F(HomeActivationTest, TheActivationSizesTheScreenByTheFullScreenFlag) {
    Model.FullScreen = true;
    home.Form_Activate();
    EXPECT_EQ(home.Height().Get(), 14000);
    EXPECT_EQ(Model.StatusWidth, 17500);
    Model.FullScreen = false;
    home.Form_Activate();
    EXPECT_EQ(home.Height().Get(), 9480);
    EXPECT_EQ(Model.StatusWidth, 11850);
}

TEST_F(HomeActivationTest, InputShowsTheInputScreenModally) {
    desktop.Expect_Screen("frm_Inputnew", [](Screen& input) { input.Hide(); });
    home.cmd_Input.OnClick();
}

TEST_F(HomeActivationTest, AnimateStartsAtStep0) {
    Calculate_Turn();
    Model.CurrentStep = 17;
    desktop.Expect_Screen("frm_Animate", [](Screen& animate) { animate.Hide(); });
    home.cmd_Animate.OnClick();
    EXPECT_LT(Model.CurrentStep, 2);
}

TEST_F(HomeActivationTest, BalanceAfterARunThatIsNotByAngleShowsTheMessageAndDoesNotOpenTheScreen) {
    for (const int run : {1, 2, 4, 5}) {
        Model.Calctype = run;
        desktop.Expect_Message("You must calculate the linkage for a constant Omega2 in order to balance it.",
                               Answer::kOk, Icon::kInformation, Buttons::kOk);
        home.cmd_Balance_Click();
    }
}

TEST_F(HomeActivationTest, ButtonsOpenTheirScreens) {
    struct Way {
        std::function<void()> click;
        const char* screen;
        bool returns;
    };
    const Way ways[] = {{[this] { home.cmd_Plot.OnClick(); }, "frm_PlotType", true},
                        {[this] { home.cmd_Print.OnClick(); }, "frm_PrintSelect", true},
                        {[this] { home.cmd_Dynamics.OnClick(); }, "frm_MassProp", false},
                        {[this] { home.cmd_Balance_Click(); }, "frm_Balance", false},
                        {[this] { home.mnu_CalcFFT.OnClick(); }, "frm_FFT", false}};
    for (const Way& way : ways) {
        const bool added = !Screens::Knows(way.screen);
        if (added) Screens::Register(way.screen, [&] { return std::make_unique<Screen>(way.screen); });
        Model.Calctype = 3;
        Model.ScreenReturn = false;
        bool marked = false;
        desktop.Expect_Screen(way.screen, [&marked](Screen& screen) {
            marked = Model.ScreenReturn;
            screen.Hide();
        });
        way.click();
        EXPECT_EQ(marked, way.returns) << way.screen;
        if (added) Screens::Register(way.screen, nullptr);
    }
}

TEST_F(HomeActivationTest, QuitAsksAndNoKeepsTheProgramRunning) {
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
    home.cmd_Quit_Click();
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(HomeActivationTest, QuitOffersToSaveAModelThatIsModifiedCalculatedOrNot) {
    Model.L2 = 9;
    desktop.Expect_Save({});
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_YesQuit"); });
    home.cmd_Quit_Click();
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Save the Model");
    EXPECT_TRUE(desktop.Ending());
}

TEST_F(HomeActivationTest, QuitDoesNotOfferToSaveAModelThatIsNotModified) {
    Run_Holds();
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
    home.mnu_Quit.Click();
}

TEST_F(HomeActivationTest, ClosingTheWindowRunsQuitAndKeepsTheWindow) {
    desktop.Expect_Screen("frm_HomeScreen", [](Screen& screen) {
        screen.Close();
        EXPECT_TRUE(screen.Visible());
        screen.Hide();
    });
    desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
    home.ShowModal();
    EXPECT_FALSE(desktop.Ending());
}

TEST_F(HomeActivationTest, AnUnloadAllTheSameTerminates) {
    Model.RunMarker = Path("Run_Check.txt");
    home.Form_Unload();
    EXPECT_TRUE(desktop.Ending());
    EXPECT_EQ(platform::Read_File(Path("Run_Check.txt")).substr(0, 13), "\"Normal Exit\"");
}

TEST_F(HomeActivationTest, ThePictureHasRoomForCounterweightsWhereverTheyTurn) {
    Calculate_Turn();
    Forces_Hold();
    Balance_Holds();
    Model.BerkCG(2, 0) = 1.5;
    Model.BerkCG(4, 0) = 4.25;
    for (const double angle : {0.0, 1.6, 3.1, 4.7}) {
        Model.BerkCG(2, 1) = Model.BerkCG(4, 1) = angle;
        home.Form_Activate();
        const auto& picture = home.Picture1.Drawing();
        for (const auto& drawn : picture.Primitives()) {
            if (!drawn.alive || drawn.kind != platform::Picture::Primitive::Kind::kPin) continue;
            EXPECT_GE(drawn.x1 - drawn.x2, std::min(picture.Left(), picture.Right())) << angle;
            EXPECT_LE(drawn.x1 + drawn.x2, std::max(picture.Left(), picture.Right())) << angle;
            EXPECT_GE(drawn.y1 - drawn.x2, std::min(picture.Top(), picture.Bottom())) << angle;
            EXPECT_LE(drawn.y1 + drawn.x2, std::max(picture.Top(), picture.Bottom())) << angle;
        }
    }
}

}  // namespace
}  // namespace verlink::test
