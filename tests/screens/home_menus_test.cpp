// The home screen's menus: the tree, File, Units, User, Screen Size.
#include <filesystem>

#include "dynamics/units.h"
#include "files/in_hand.h"
#include "files/model_file.h"
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
using platform::MenuEntry;
using platform::Screen;
using platform::Screens;

constexpr char kUnsaved[] = "The current data has not been saved.  Do you want to save it before resetting?";
constexpr char kConfirm[] = "Please confirm your order to reset all variables to their default values";
constexpr char kAspect[] =
    "Screen aspect ratio is its (width in pixels) / (height in pixels).\r\n"
    "Some aspect ratios make circles appear as ellipses.\r\n"
    "The default in this program is set for a ratio of 1.6.\r\n\r\n"
    "Your aspect ratio is ";

class HomeMenusTest : public Fixture {
   protected:
    HomeMenusTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
    void Expect_Confirmation(Answer answer) {
        desktop.Expect_Message(kConfirm, answer, Icon::kQuestion, Buttons::kOkCancel);
    }
};

void Write_Tree(const MenuEntry& entry, int depth, std::string& out) {
    out += std::string(static_cast<std::size_t>(depth) * 2, ' ') + entry.Caption.Get() + "\n";
    for (const MenuEntry* child : entry.Children()) Write_Tree(*child, depth + 1, out);
}

TEST_F(HomeMenusTest, TheMenuTreeStandsAsDesigned) {
    std::string tree;
    for (platform::Control* control : home.Controls())
        if (auto* entry = dynamic_cast<MenuEntry*>(control); entry && !entry->Parent()) Write_Tree(*entry, 0, tree);
    EXPECT_EQ(
        tree,
        "&File\n  &New\n  &Open\n  \n  &Save\n  Save &as\n  \n"
        "  &Import\n     Lobetra Drive Data\n     Linkage Drive Data\n"
        "  &Export\n     Link 4 Theta-Omega-Alpha Data\n     Link 2 Driving Torque Data\n     Pendrix Input File\n"
        "  \n  &Quit\n"
        "  \n  &Recent Files\n"
        "    Recent File\n    Recent File\n    Recent File\n    Recent File\n    Recent File\n"
        "    Recent File\n    Recent File\n    Recent File\n    Recent File\n    Recent File\n"
        "  \n  Undo\n  Redo\n"
        "&Units\n  &in-lb-s\n  &ft-lb-s\n  m-kg-s (&SI)\n  &cm-kg-s\n  &mm-kg-s\n"
        "&Examples\n  &Grashof Test Linkage\n  &Hoekens Straight Line Linkage\n  &Roberts Straight Line Linkage\n"
        "  &Watts Straight Line Linkage\n  &Chebychev Straight Line Linkage\n  &Synthesis Test Linkage\n"
        "&Cognates\n  Cognate &1\n  Cognate &2\n  Cognate &3\n  Cayley &Diagram\n"
        "&Synthesis\n  T&wo Position\n    Assume Three &Angles\n    Assume Mag and Angle of &Vector\n"
        "  T&hree Position\n    with &Unspecified Fixed Pivots\n    with &Specified Fixed Pivots\n"
        "  \n  &Explore...\n"
        "&FFT\n  &Calculate FFT\n"
        "&User\n  User Name\n  File Path\n  Application Path\n  Change Project/File Name\n"
        "Screen Size\n  Standard\n  Maximize\n  Aspect Ratio\n"
        "Help\n  Copying to Clipboard\n  Menu Items\n    File\n      General\n      Import\n      Export\n"
        "    Units\n    Examples\n    Cognates\n    Synthesis\n    FFT\n"
        "  Buttons\n    Input\n      Linkage Data\n      Calculation\n    Animate\n    Plot\n    Print\n"
        "    Dynamics\n    Balance\n  General\n    User Manual\n    Video Tutorial\n  \n  Files and Undoing\n"
        "  Under the Hand\n  Checks\n  Report\n  Studies\n  Explore\n"
        "  Reference\n    Conventions\n    Theory\n    Verification\n    Messages\n    Keyboard\n"
        "    Without a Screen\n    Glossary\n    Quick Reference\n  Worked Examples\n"
        "&About\n  &About Verlink\n"
        "View\n  Poles I13 and I24\n  Velocities\n  Accelerations\n  Pin Forces\n  Shaking Force\n  Curvature at P\n"
        "  Grid\n  Names of Joints\n  Ghosts at Both Ends\n  \n  Save Drawing...\n"
        "&Tools\n  &Checks...\n  &Report...\n  &Studies...\n");
}

TEST_F(HomeMenusTest, ButtonsAreCaptionedAsDesigned) {
    std::string captions;
    for (platform::Control* control : home.Controls())
        if (auto* button = dynamic_cast<platform::CommandButton*>(control)) captions += button->Caption.Get() + " ";
    EXPECT_EQ(captions, "&Input &Animate &Plot P&rint &Dynamics &Balance &Quit ");
    EXPECT_EQ(home.pnl_Status.Caption.Get(), " Status:");
}

TEST_F(HomeMenusTest, NewOfAModelThatIsNotModifiedOnlyAsksForTheConfirmation) {
    Run_Holds();
    Model.L2 = 9;
    Model.CamDriven = true;
    Model_Kept();
    Expect_Confirmation(Answer::kOk);
    home.mnu_New.OnClick();
    EXPECT_EQ(Model.L2, Single(1.115));
    EXPECT_FALSE(Model.Calculated);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_EQ(Model.FigureTitle, "");
    EXPECT_FALSE(Model.CamDriven);
    EXPECT_FALSE(home.mnu_New.Enabled);
}

TEST_F(HomeMenusTest, NewThatIsNotConfirmedKeepsTheModelAndItsDrive) {
    Model.L2 = 9;
    Model.CamDriven = true;
    Model_Kept();
    Expect_Confirmation(Answer::kCancel);
    home.mnu_New.OnClick();
    EXPECT_EQ(Model.L2, 9);
    EXPECT_TRUE(Model.CamDriven);
}

TEST_F(HomeMenusTest, NewOffersToSaveAModifiedModelFirst) {
    Model.L2 = 9;
    const std::string path = Path("kept.vlk");
    desktop.Expect_Message(kUnsaved, Answer::kYes, Icon::kQuestion, Buttons::kYesNo);
    desktop.Expect_Save(path);
    desktop.Expect_Message("File was successfully written to \r" + path);
    Expect_Confirmation(Answer::kOk);
    home.mnu_New.OnClick();
    EXPECT_TRUE(platform::File_Exists(path));
    EXPECT_EQ(Model.ModelName, "Model_1");
}

TEST_F(HomeMenusTest, NewWithoutSavingGoesOnToTheConfirmation) {
    Run_Holds();
    Model.L2 = 9;
    desktop.Expect_Message(kUnsaved, Answer::kNo);
    Expect_Confirmation(Answer::kOk);
    home.mnu_New.OnClick();
    EXPECT_FALSE(Model.Calculated);
}

TEST_F(HomeMenusTest, NewAfterAMetricModelBringsBackTheLabelsAndTheMarkOfInches) {
    Use_Units(5);
    Model_Kept();
    home.mnu_pick[5].Checked = true;
    Expect_Confirmation(Answer::kOk);
    home.mnu_New.OnClick();
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_TRUE(home.mnu_pick[1].Checked);
    EXPECT_FALSE(home.mnu_pick[5].Checked);
    EXPECT_EQ(home.lbl_Status[10].Caption.Get(), "in-lb-bl-s");
}

TEST_F(HomeMenusTest, PickingTheUnitSystemInForceChangesNothingAndDoesNotOpenTheInputScreen) {
    Run_Holds();
    Model_Saved();
    home.mnu_pick[1].Click();
    EXPECT_TRUE(Model.Calculated);
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_EQ(Model.L2, Single(1.115));
    EXPECT_TRUE(home.mnu_pick[1].Checked);
}

TEST_F(HomeMenusTest, PickingAnotherUnitSystemConvertsTheModelAndShowsTheInputScreen) {
    Run_Holds();
    Model_Saved();
    desktop.Expect_Screen("frm_Inputnew", [this](Screen& input) {
        EXPECT_FALSE(Model.Calculated);
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_EQ(home.lbl_Status[10].Caption.Get(), "mm-kg-N-s");
        EXPECT_FALSE(home.lbl_Status[0].Visible);
        input.Hide();
    });
    home.mnu_pick[5].Click();
    EXPECT_EQ(Model.Units, 5);
    EXPECT_EQ(Model.UnitLabel(6), "mm");
    // 1.115 * 0.0254 = 0.028321, kept to the 4 decimals of the new system.
    // The input screen has then calculated from its boxes, which hold 28.3.
    EXPECT_NEAR(Model.L2, 0.0283, 1e-8);
    EXPECT_NEAR(Model.LinkArray(2), 0.0283, 1e-8);
    EXPECT_TRUE(home.mnu_pick[5].Checked);
    EXPECT_FALSE(home.mnu_pick[1].Checked);
}

TEST_F(HomeMenusTest, UnitsThatAForceIsTooLargeForAreNotTaken) {
    Model.ExtForceMag(2) = 3e38;
    desktop.Expect_Message_With("Error 6   (Overflow)");
    home.mnu_pick[5].Click();
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_EQ(Model.DecLengthShown, 3);
    EXPECT_TRUE(home.mnu_pick[1].Checked);
    EXPECT_FALSE(home.mnu_pick[5].Checked);
}

TEST_F(HomeMenusTest, MetresToMillimetresAltersNoStoredNumberButTheResultsNoLongerCount) {
    Use_Units(3);
    Model.L2 = 0.05125;
    Run_Holds();
    desktop.Expect_Screen("frm_Inputnew", [](Screen& input) { input.Hide(); });
    home.mnu_pick[5].Click();
    EXPECT_EQ(Model.L2, Single(0.05125));
    EXPECT_FALSE(Model.Calculated);
    EXPECT_EQ(Model.DecLengthShown, 2);
}

TEST_F(HomeMenusTest, SaveOfAnUnsavedModelBehavesAsSaveAsAlsoWithTheDefaultFolder) {
    Run_Holds();
    home.Form_Activate();
    Model.FilePath = desktop.Documents + "/";
    const std::string path = Path("press.vlk");
    desktop.Expect_Save(path);
    desktop.Expect_Message("File was successfully written to \r" + path, Answer::kOk, Icon::kInformation);
    home.mnu_Save.Click();
    EXPECT_TRUE(platform::File_Exists(path));
    EXPECT_EQ(Model.ModelName, "press");
    EXPECT_TRUE(home.lbl_Status[8].Visible);
    // Once saved, it asks nothing.
    desktop.Expect_Message("File was successfully written to \r" + path);
    home.mnu_Save.Click();
}

TEST_F(HomeMenusTest, OpenAndSaveAsUseTheirDialogs) {
    desktop.Expect_Open({});
    home.mnu_Open.Click();
    Run_Holds();
    home.Form_Activate();
    desktop.Expect_Save({});
    home.mnu_Saveas.Click();
    ASSERT_EQ(desktop.Dialogs.size(), 2U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a model");
    EXPECT_EQ(desktop.Dialogs[1].title, "Save the Model");
}

TEST_F(HomeMenusTest, UserEntriesTellNamesAndPaths) {
    Model.SessionUser = "ada";
    Model.AppPath = "/opt/verlink";
    Model.FilePath = "/models/press.vlk";
    desktop.Expect_Message("Current user name is ada", Answer::kOk, Icon::kInformation, Buttons::kOk);
    desktop.Expect_Message("Path for saved files is /models/press.vlk", Answer::kOk, Icon::kInformation);
    desktop.Expect_Message("The application path is /opt/verlink", Answer::kOk, Icon::kInformation);
    home.mnu_UserName.Click();
    home.mnu_FilePath.Click();
    home.mnu_AppPath.Click();
}

TEST_F(HomeMenusTest, AnEmptyFilePathIsBuiltFromTheDataFolderAndKept) {
    Model.FilePath.clear();
    const std::string folder = desktop.Documents + "/VERLINK/";
    desktop.Expect_Message("Path for saved files is " + folder);
    home.mnu_FilePath.Click();
    EXPECT_EQ(Model.FilePath, folder);
}

TEST_F(HomeMenusTest, StandardAndMaximizeSetTheSizeAndTheFlag) {
    home.mnu_Fullscreen.Click();
    EXPECT_TRUE(Model.FullScreen);
    EXPECT_EQ(home.Height().Get(), 14000);
    home.mnu_Standardsize.Click();
    EXPECT_FALSE(Model.FullScreen);
    EXPECT_EQ(home.Height().Get(), 9480);
    EXPECT_EQ(home.Width().Get(), 11850);
}

TEST_F(HomeMenusTest, TheSizeAndTheCorrectionAreKeptForTheNextSession) {
    const std::string config = Path("config");
    platform::Settings& settings = platform::The_Settings();
    settings.Open(config);
    const auto kept = [&](const char* setting) {
        settings.Open("");
        settings.Open(config);
        return settings.Text(setting);
    };
    home.mnu_Fullscreen.Click();
    EXPECT_EQ(kept("screen.size"), "maximized");
    home.mnu_Standardsize.Click();
    EXPECT_EQ(kept("screen.size"), "");
    Model.AspectRatio = 2;
    desktop.Expect_Message_With("If your circles appear as ellipses", Answer::kOk);
    home.mnu_Aspect.Click();
    EXPECT_EQ(kept("screen.aspect"), "corrected");
    desktop.Expect_Message_With("An aspect-ratio correction has already been applied.", Answer::kCancel);
    home.mnu_Aspect.Click();
    EXPECT_EQ(kept("screen.aspect"), "");
    settings.Open("");
}

TEST_F(HomeMenusTest, AnAspectRatioOfOnePointSixNeedsNoCorrection) {
    Model.AspectRatio = 1.6;
    desktop.Expect_Message(std::string(kAspect) + "1.6\r\n\r\n", Answer::kOk, Icon::kInformation, Buttons::kOk);
    home.mnu_Aspect.Click();
    EXPECT_FALSE(Model.AspectActive);
}

TEST_F(HomeMenusTest, AnotherAspectRatioOffersACorrectionAndASecondTimeToKeepOrUndoIt) {
    Model.AspectRatio = 2;
    Model.FullScreen = true;
    desktop.Expect_Message(std::string(kAspect) +
                               "2\r\n\r\nIf your circles appear as ellipses you can apply a correction here.\r\n"
                               "Choose OK to correct the aspect ratio and Cancel to not do it.",
                           Answer::kOk, {}, Buttons::kOkCancel);
    home.mnu_Aspect.Click();
    EXPECT_TRUE(Model.AspectActive);
    EXPECT_EQ(Model.AspectCorrection, Single(0.8));
    EXPECT_EQ(home.Width().Get(), 21875);
    const std::string again = std::string(kAspect) +
                              "2\r\n\r\nAn aspect-ratio correction has already been applied.\r\n"
                              "Choose OK to keep the correction and Cancel to undo it.";
    desktop.Expect_Message(again, Answer::kOk, {}, Buttons::kOkCancel);
    home.mnu_Aspect.Click();
    EXPECT_EQ(Model.AspectCorrection, Single(0.8));
    desktop.Expect_Message(again, Answer::kCancel, {}, Buttons::kOkCancel);
    home.mnu_Aspect.Click();
    EXPECT_FALSE(Model.AspectActive);
    EXPECT_EQ(Model.AspectCorrection, 1);
    EXPECT_EQ(home.Width().Get(), 17500);
}

TEST_F(HomeMenusTest, InStandardSizeTooTheSecondTimeOffersToKeepOrUndoTheCorrection) {
    Model.AspectRatio = 2;
    desktop.Expect_Message_With("If your circles appear as ellipses", Answer::kOk);
    home.mnu_Aspect.Click();
    EXPECT_EQ(Model.AspectCorrection, Single(0.8));
    EXPECT_EQ(home.Width().Get(), 11850);
    for (const Answer answer : {Answer::kOk, Answer::kCancel}) {
        desktop.Expect_Message_With("An aspect-ratio correction has already been applied.", answer);
        home.mnu_Aspect.Click();
    }
    EXPECT_EQ(Model.AspectCorrection, 1);
    desktop.Expect_Message_With("If your circles appear as ellipses", Answer::kOk);
    home.mnu_Aspect.Click();
    home.mnu_Fullscreen.Click();
    EXPECT_EQ(home.Width().Get(), 21875) << "it acts as soon as there is something to correct";
}

TEST_F(HomeMenusTest, ACorrectionThatIsDeclinedIsNotMade) {
    Model.AspectRatio = 2;
    Model.FullScreen = true;
    desktop.Expect_Message_With("If your circles appear as ellipses", Answer::kCancel);
    home.mnu_Aspect.Click();
    EXPECT_FALSE(Model.AspectActive);
    EXPECT_EQ(home.Width().Get(), 17500);
}

TEST_F(HomeMenusTest, AFailureInAHandlerIsReportedUnderItsName) {
    // A display without height has no ratio to correct by.
    Model.AspectRatio = 0;
    Model.FullScreen = true;
    desktop.Expect_Message_With("If your circles appear as ellipses", Answer::kOk);
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in frm_Homescreen.Activate\r\n\r\n",
                           Answer::kOk, Icon::kInformation);
    home.mnu_Aspect.Click();
}

TEST_F(HomeMenusTest, UnitsAndCognateOfAnotherModelAreMarkedAsSoonAsTheScreenIsBack) {
    Use_Units(4);
    Model.CognateNumber = 3;
    home.Form_Return();
    for (int entry = 1; entry <= 5; ++entry) EXPECT_EQ(home.mnu_pick[entry].Checked.Get(), entry == 4) << entry;
    for (int entry = 1; entry <= 3; ++entry) EXPECT_EQ(home.mnu_Cog[entry].Checked.Get(), entry == 3) << entry;
}

TEST_F(HomeMenusTest, EntriesOfWhatIsNotThereYetAreOff) {
    Run_Holds();
    home.Form_Activate();
    for (auto* entry :
         {&home.mnu_Lobetra, &home.mnu_Link_Data_Import, &home.mnu_Link_Data_Export, &home.mnu_Export_Torque,
          &home.mnu_pdx, &home.mnu_Grashof, &home.mnu_Hoekens, &home.mnu_Roberts, &home.mnu_Watts, &home.mnu_Cheby,
          &home.mnu_Syntest, &home.mnu_Twopos1, &home.mnu_Twopos2, &home.mnu_Unspec, &home.mnu_Spec})
        EXPECT_EQ(entry->Enabled.Get(), static_cast<bool>(entry->OnClick)) << entry->Name();
}

}  // namespace
}  // namespace verlink::test
