// Files from the screens of a linkage: the menu, its keys, what is dropped, and the files of before.
#include "screens/file_entries.h"

#include <filesystem>
#include <set>

#include "core/model_on_screens.h"
#include "core/results.h"
#include "core/window_sizes.h"
#include "design/task.h"
#include "files/exports.h"
#include "files/in_hand.h"
#include "files/recent_files.h"
#include "platform/file_system.h"
#include "platform/settings.h"
#include "screens/frm_animate.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "screens/frm_massprop.h"
#include "tests/files/model_files.h"

namespace verlink::test {
namespace {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Icon;
using platform::Screen;
using platform::Screens;

constexpr char kUnsaved[] = "The current data has not been saved.  Do you want to save it before resetting?";
constexpr char kConfirm[] = "Please confirm your order to reset all variables to their default values";
constexpr char kSamples[] = VERLINK_SAMPLES;

class FilesTest : public ModelFiles {
   protected:
    FilesTest() { platform::The_Settings().Open(Path("config")); }

    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
    frm_Inputnew& input = dynamic_cast<frm_Inputnew&>(Screens::Get("frm_Inputnew"));

    static std::string Sample(const char* name) { return std::string(kSamples) + "/" + name; }
    void At_Home(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_HomeScreen", [&, user](Screen&) {
            user();
            home.Hide();
        });
        home.ShowModal();
    }
    void On_Input(
        const std::function<void()>& user, const std::function<void()>& afterwards = [] {}) {
        At_Home([&, user, afterwards] {
            desktop.Expect_Screen("frm_Inputnew", [user](Screen& screen) {
                user();
                if (screen.Visible() && Screen::Active() == &screen) Press(screen, "cmd_Cancel");
            });
            Press(home, "cmd_Input");
            afterwards();
        });
    }
    /// The message of a model that was read, and then the input screen with it.
    void Expect_Model(const std::string& path, Single crank) {
        desktop.Expect_Message("File " + path + " successfully read.", Answer::kOk, Icon::kInformation);
        desktop.Expect_Screen("frm_Inputnew", [crank](Screen& screen) {
            EXPECT_EQ(Model.L2, crank);
            EXPECT_EQ(screen.Text("txt_Linkout", 1).Text.Get(), Text_Of(crank)) << "the boxes are those of the file";
            EXPECT_EQ(Screen::Active(), &screen);
            Press(screen, "cmd_Cancel");
        });
    }
    void Take_Saved_Run() {
        Take_Full_Turn();
        Run_Holds();
        Model_Saved();
        Model_Kept();
        Set_Menus();
    }
    /// A model with that crank in a file of its own.
    std::string Model_File(const std::string& name, double crank) {
        const Single before = Model.L2;
        Model.L2 = crank;
        Put_File(Path(name), File_Content());
        Model.L2 = before;
        return Path(name);
    }
};

// The home screen.

TEST_F(FilesTest, RecentFilesAreNumberedAndOpenedWithTheQuestionOfOpen) {
    const std::string a = Model_File("a & b.vlk", 1.25), b = Model_File("b.vlk", 1.5);
    Note_Recent(a);
    Note_Recent(b);
    At_Home([&] {
        home.mnu_Recent.Open();
        EXPECT_TRUE(home.mnu_Recent.Enabled);
        EXPECT_EQ(home.mnu_RecentFile[1].Caption.Get(), "&1  b.vlk  in  " + Path("").substr(0, Path("").size() - 1));
        EXPECT_NE(home.mnu_RecentFile[2].Caption.Get().find("&2  a && b.vlk  in  "), std::string::npos);
        EXPECT_TRUE(home.mnu_RecentFile[2].Visible);
        EXPECT_FALSE(home.mnu_RecentFile[3].Visible);
        Take_Full_Turn();
        Run_Holds();
        Model_Unsaved();
        desktop.Expect_Message(kUnsaved, Answer::kNo);
        Expect_Model(a, 1.25);
        Pick_Menu(home, "mnu_RecentFile", 2);
        home.mnu_Recent.Open();
        EXPECT_NE(home.mnu_RecentFile[1].Caption.Get().find("a && b.vlk"), std::string::npos) << "the latest first";
    });
}

TEST_F(FilesTest, NoMoreRecentFilesAreListedThanKeysHaveDigits) {
    for (int number = 1; number <= kMostRecent + 1; ++number)
        Note_Recent(Model_File(std::to_string(number) + ".vlk", 1.25));
    At_Home([&] {
        home.mnu_Recent.Open();
        for (int entry = 1; entry <= kMostRecent; ++entry) {
            EXPECT_TRUE(home.mnu_RecentFile[entry].Visible) << entry;
            const std::string begin = "&" + std::to_string(entry % 10) + "  " + std::to_string(kMostRecent + 2 - entry);
            EXPECT_TRUE(home.mnu_RecentFile[entry].Caption.Get().starts_with(begin)) << entry;
        }
    });
}

TEST_F(FilesTest, WithoutRecentFilesTheirMenuIsClosed) {
    At_Home([&] { EXPECT_FALSE(home.mnu_Recent.Enabled); });
}

TEST_F(FilesTest, ARecentFileThatHasJustGoneIsAFailureAsByOpenAndLeftOutFromThenOn) {
    const std::string a = Model_File("a.vlk", 1.25);
    Note_Recent(a);
    At_Home([&] {
        home.mnu_Recent.Open();
        fs::remove(a);
        desktop.Expect_Message_With("53");
        Pick_Menu(home, "mnu_RecentFile", 1);
        home.mnu_Recent.Open();
        EXPECT_FALSE(home.mnu_RecentFile[1].Visible);
    });
}

TEST_F(FilesTest, AModelDroppedOnTheHomeScreenOpens) {
    const std::string a = Model_File("a.vlk", 1.25);
    At_Home([&] {
        Expect_Model(a, 1.25);
        home.OnDrop(a);
    });
}

TEST_F(FilesTest, ADroppedFileThatIsNoModelLeavesTheOneInHand) {
    Put_File(Path("notes.txt"), "a shopping list");
    At_Home([&] {
        Take_Saved_Run();
        desktop.Expect_Message_With("This data file is not compatible");
        home.OnDrop(Path("notes.txt"));
        EXPECT_TRUE(Model.Calculated);
        EXPECT_TRUE(Model.SavedFlag);
        EXPECT_FALSE(Any_Recent());
    });
}

TEST_F(FilesTest, DriveDataIsImportedByItsEndInAnyCase) {
    Put_File(Path("Stage.OUT"), platform::Read_File(Sample("first_stage.out")));
    At_Home([&] {
        desktop.Expect_Message("File " + Path("Stage.OUT") + " of Linkage output data successfully read.");
        desktop.Expect_Screen("frm_Inputnew", [](Screen& screen) { Press(screen, "cmd_Cancel"); });
        home.OnDrop(Path("Stage.OUT"));
        EXPECT_TRUE(Model.LinkDriven);
        EXPECT_EQ(Model.Calctype, 5);
    });
}

TEST_F(FilesTest, ATableOfTorquesNeedsARun) {
    At_Home([&] {
        desktop.Expect_Message("A table of torques has a row for each step of a run.  Calculate the linkage first.",
                               Answer::kOk, Icon::kInformation);
        home.OnDrop(Path("a.trq"));
    });
}

TEST_F(FilesTest, ADroppedTableOfTorquesIsImportedOnTheDynamicsScreen) {
    At_Home([&] {
        Take_Saved_Run();
        Put_File(Path("a.trq"), Torque_Content());
        desktop.Expect_Message("File " + Path("a.trq") + " of Torque data successfully read.", Answer::kOk,
                               Icon::kInformation);
        desktop.Expect_Screen("frm_MassProp", [&](Screen& screen) {
            auto& masses = dynamic_cast<frm_MassProp&>(screen);
            EXPECT_TRUE(Model.TorqueImported);
            EXPECT_TRUE(masses.chk_Torque.Value);
            EXPECT_TRUE(masses.cmd_Solve.Enabled);
            EXPECT_FALSE(Model.SavedFlag);
            Press(screen, "cmd_Cancel");
        });
        home.OnDrop(Path("a.trq"));
    });
}

TEST_F(FilesTest, DroppedTasksComeToTheModelInHandAndAreShown) {
    design::Task task;
    task.positions = {{{1, 2}, 10}, {{3, 4.5}, 40}};
    Put_File(Path("lid.vld"), design::Task_Text(task));
    At_Home([&] {
        Take_Saved_Run();
        Model.StudySettings = "{}\n";
        desktop.Expect_Screen("frm_Explore", [&](Screen& screen) {
            EXPECT_EQ(screen.Text("txt_Y", 2).Text.Get(), "4.5");
            Press(screen, "cmd_Cancel");
        });
        home.OnDrop(Path("lid.vld"));
        EXPECT_EQ(Model.DesignTask, design::Task_Text(task));
        EXPECT_EQ(Model.StudySettings, "{}\n") << "the file has none";
        EXPECT_TRUE(Model.Calculated);
    });
}

TEST_F(FilesTest, DroppedTasksThatCannotBeReadAreToldAndChangeNothing) {
    Put_File(Path("lid.vld"), "{");
    At_Home([&] {
        desktop.Expect_Message("The tasks in " + Path("lid.vld") + " cannot be read: it is no JSON.", Answer::kOk,
                               Icon::kExclamation);
        home.OnDrop(Path("lid.vld"));
        EXPECT_EQ(Model.DesignTask, "");
    });
}

TEST_F(FilesTest, OnTheDynamicsScreenATableTakesThePlaceOfAnotherAndABrokenOneDoesNot) {
    At_Home([&] {
        Take_Saved_Run();
        std::string rows = "72\r\n";
        for (int step = 0; step <= 72; ++step) rows += "5\r\n";
        Put_File(Path("five.trq"), rows);
        Put_File(Path("short.trq"), "71\r\n1\r\n");
        desktop.Expect_Screen("frm_MassProp", [&](Screen& screen) {
            auto& masses = dynamic_cast<frm_MassProp&>(screen);
            const auto drop = [&](const char* name) { screen.OnDrop(Path(name)); };
            desktop.Expect_Message_With("successfully read.");
            drop("five.trq");
            EXPECT_EQ(Model.RunTable.ImportedTorque(72), Single(5));
            Forces_Hold();

            for (const bool solvable : {false, true}) {
                masses.cmd_Solve.Enabled = solvable;
                desktop.Expect_Message_With("different number of data");
                drop("short.trq");
                EXPECT_EQ(masses.cmd_Solve.Enabled.Get(), solvable) << "as before";
            }
            EXPECT_TRUE(Model.TorqueImported);
            EXPECT_TRUE(masses.chk_Torque.Value);
            EXPECT_EQ(Model.RunTable.ImportedTorque(72), Single(5));
            EXPECT_TRUE(Model.DynamicsDone) << "nothing has changed";

            Put_File(Path("six.trq"), [&] {
                std::string other = "72\r\n";
                for (int step = 0; step <= 72; ++step) other += "6\r\n";
                return other;
            }());
            desktop.Expect_Message_With("successfully read.");
            masses.cmd_Done.Enabled = true;
            drop("six.trq");
            EXPECT_FALSE(masses.cmd_Done.Enabled);
            EXPECT_EQ(Model.RunTable.ImportedTorque(72), Single(6));
            EXPECT_FALSE(Model.DynamicsDone) << "the forces were those of the other table";

            desktop.Expect_Message("Only a table of torques (.trq) can be taken here.", Answer::kOk,
                                   Icon::kInformation);
            drop("a.vlk");
            masses.chk_Torque.Click();
            desktop.Expect_Open({});  // the table that was dropped is not taken a second time
            masses.chk_Torque.Click();
            Press(screen, "cmd_Cancel");
        });
        Show_Centered("frm_MassProp");
    });
}

// The screens of a linkage.

TEST_F(FilesTest, AModelDroppedOnTheInputScreenIsShownThereAfterTheQuestion) {
    const std::string a = Model_File("a.vlk", 1.25);
    On_Input(
        [&] {
            Type(input, "txt_Linkout", 1, "1.4");
            desktop.Expect_Message(kUnsaved, Answer::kNo);
            Expect_Model(a, 1.25);
            input.OnDrop(a);
        },
        [&] {
            EXPECT_EQ(Model.L2, Single(1.25));
            EXPECT_EQ(Screen::Active(), &home) << "one Back from there";
        });
}

TEST_F(FilesTest, WhatWasTypedIsInTheModelThatTheQuestionSaves) {
    const std::string a = Model_File("a.vlk", 1.25);
    On_Input([&] {
        Type(input, "txt_Linkout", 1, "1.4");
        desktop.Expect_Message(kUnsaved, Answer::kYes);
        for (int i = 0; i < 2; ++i) {
            desktop.Expect_Save(Path("kept.vlk"));
            desktop.Expect_Message_With("successfully written");
        }
        Expect_Model(a, 1.25);
        input.OnDrop(a);
        EXPECT_NE(Held(Path("kept.vlk")).find("1.4"), std::string::npos);
    });
}

TEST_F(FilesTest, AFileThatIsRefusedLeavesTheUserWhereHeIs) {
    Put_File(Path("notes.txt"), "a shopping list");
    On_Input([&] {
        desktop.Expect_Message_With("This data file is not compatible");
        input.OnDrop(Path("notes.txt"));
        EXPECT_EQ(Screen::Active(), &input);
        EXPECT_TRUE(Model.RunStands);
    });
}

TEST_F(FilesTest, FromTheAnimateScreenAModelLeadsToTheInputScreenAndBackHome) {
    const std::string a = Model_File("a.vlk", 1.25);
    On_Input([&] {
        desktop.Expect_Screen("frm_Animate", [&](Screen& animate) {
            Expect_Model(a, 1.25);
            animate.OnDrop(a);
            EXPECT_FALSE(animate.Visible());
        });
        Press(input, "cmd_Done");
        EXPECT_FALSE(input.Visible());
    });
    EXPECT_EQ(Model.L2, Single(1.25));
}

TEST_F(FilesTest, SaveOnTheInputScreenTakesWhatIsBeingTypedAndLeavesTheCursorThere) {
    On_Input([&] {
        Type(input, "txt_Linkout", 1, "1.4");
        desktop.Expect_Save(Path("kept.vlk"));
        desktop.Expect_Message_With("successfully written");
        EXPECT_TRUE(input.Press_Keys("Ctrl+S"));
        EXPECT_EQ(Model.L2, Single(1.4));
        EXPECT_EQ(input.Focus(), &input.txt_Linkout[1]);
        EXPECT_TRUE(Model.SavedFlag);
        desktop.Expect_Message_With("successfully written");
        EXPECT_TRUE(input.Press_Keys("Ctrl+S")) << "to where it lies by now";
        desktop.Expect_Save(Path("other.vlk"));
        desktop.Expect_Message_With("successfully written");
        EXPECT_TRUE(input.Press_Keys("Ctrl+Shift+S"));
        EXPECT_TRUE(fs::exists(Path("other.vlk")));
    });
}

TEST_F(FilesTest, ATitleThatIsBeingTypedIsSavedFromTheAnimateScreen) {
    On_Input([&] {
        desktop.Expect_Screen("frm_Animate", [&](Screen& animate) {
            auto& title = dynamic_cast<frm_Animate&>(animate).txt_Figure;
            title.SetFocus();
            title.Type("A press");
            desktop.Expect_Save(Path("kept.vlk"));
            desktop.Expect_Message_With("successfully written");
            EXPECT_TRUE(animate.Press_Keys("Ctrl+S"));
            EXPECT_EQ(Model.FigureTitle, "A press");
            EXPECT_NE(Held(Path("kept.vlk")).find("A press"), std::string::npos);
            Press(animate, "cmd_Done");
        });
        Press(input, "cmd_Done");
    });
}

TEST_F(FilesTest, NewOnTheInputScreenBeginsThereAnew) {
    On_Input([&] {
        Enter(input, "txt_Linkout", 1, "1.4");
        desktop.Expect_Message(kUnsaved, Answer::kNo);
        desktop.Expect_Message(kConfirm, Answer::kCancel);
        EXPECT_TRUE(input.Press_Keys("Ctrl+N"));
        EXPECT_EQ(Model.L2, Single(1.4)) << "not confirmed";
        desktop.Expect_Message(kUnsaved, Answer::kNo);
        desktop.Expect_Message(kConfirm, Answer::kOk);
        desktop.Expect_Screen("frm_Inputnew", [&](Screen& screen) {
            EXPECT_NE(Model.L2, Single(1.4));
            EXPECT_EQ(screen.Text("txt_Linkout", 1).Text.Get(), Text_Of(Model.L2));
            Press(screen, "cmd_Cancel");
        });
        EXPECT_TRUE(input.Press_Keys("Ctrl+N"));
    });
}

TEST_F(FilesTest, QuitOnTheInputScreenAsksAsAtHome) {
    On_Input([&] {
        Enter(input, "txt_Linkout", 1, "1.4");
        desktop.Expect_Save(std::nullopt);
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
        EXPECT_TRUE(input.Press_Keys("Ctrl+Q"));
        EXPECT_EQ(Screen::Active(), &input);
    });
}

TEST_F(FilesTest, EveryKeyOfTheFileMenuStandsBesideItsEntry) {
    const std::pair<const char*, const char*> entries[] = {{"mnu_New", "Ctrl+N"},
                                                           {"mnu_Open", "Ctrl+O"},
                                                           {"mnu_Save", "Ctrl+S"},
                                                           {"mnu_Saveas", "Ctrl+Shift+S"},
                                                           {"mnu_Quit", "Ctrl+Q"}};
    for (const char* name : {"frm_HomeScreen", "frm_Inputnew", "frm_Animate"})
        for (const auto& [entry, keys] : entries)
            EXPECT_EQ(Screens::Get(name).Get<platform::MenuEntry>(entry).Keys.Get(), keys) << name << " " << entry;
}

TEST_F(FilesTest, F1IsTheHelpOfEveryScreenThatIsWorkedOn) {
    for (const char* name :
         {"frm_Title",       "frm_User",        "frm_HomeScreen",  "frm_Inputnew",    "frm_Animate",
          "frm_PlotType",    "frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3", "frm_PlotSelect4",
          "frm_PrintSelect", "frm_PrintData",   "frm_Plot1",       "frm_Plot2",       "frm_Plot3",
          "frm_Myplot2",     "frm_MyPlot3",     "frm_MyPlot4",     "frm_FFT",         "frm_MassProp",
          "frm_Matrix",      "frm_Balance",     "frm_Cayley",      "frm_Synth2A",     "frm_Synth2B",
          "frm_Synth3"}) {
        desktop.Expect_Screen("frm_Help", [](Screen& help) { help.Hide(); });
        EXPECT_TRUE(Screens::Get(name).Press_Keys("F1")) << name;
        desktop.Verify();
    }
}

TEST_F(FilesTest, NoTwoControlsOfAScreenHaveTheSameKeys) {
    for (const char* name : {"frm_HomeScreen", "frm_Inputnew", "frm_Animate", "frm_MassProp", "frm_PlotSelect1"}) {
        std::vector<std::string> all;
        for (const platform::Control* control : Screens::Get(name).Controls()) {
            std::string keys;
            if (const auto* entry = dynamic_cast<const platform::MenuEntry*>(control)) keys = entry->Keys;
            if (const auto* button = dynamic_cast<const platform::CommandButton*>(control)) keys = button->Keys;
            if (const auto* shortcut = dynamic_cast<const platform::Shortcut*>(control)) keys = shortcut->Keys;
            for (const std::string& single : platform::Single_Keys(keys)) all.push_back(single);
        }
        const std::set<std::string> different(all.begin(), all.end());
        EXPECT_EQ(different.size(), all.size()) << name;
        EXPECT_TRUE(different.contains("F1")) << name;
    }
}

}  // namespace
}  // namespace verlink::test
