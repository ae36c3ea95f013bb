// File, Open, Save and Save As: dialogs, flags, failures, and the old file that stays.
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>

#include "core/model_on_screens.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"
#include "tests/files/unsaved.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Pointer;
using platform::Screens;

namespace {

std::set<std::string> Names_In(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

}  // namespace

class FileMenu : public ModelFiles {
   protected:
    FileMenu() {
        fs::create_directory(Path("models"));
        Take_Full_Turn();
        Run_Holds();
        Set_Menus();
    }
    std::string In(const std::string& name) const { return Path("models/" + name); }
    void Expect_Saved(const std::string& path) {
        desktop.Expect_Message("File was successfully written to \r" + path, Answer::kOk, Icon::kInformation,
                               Buttons::kOk);
    }
    void Expect_Saved_As(const std::string& path) {
        desktop.Expect_Save(path);
        Expect_Saved(path);
    }
    /// A model with results and tables of every kind that lies in a file, and the screens that show it.
    void Have_A_Saved_Model() {
        Screens::Get("frm_Inputnew").Text("txt_Linkout", 1).Text = "1.115";
        Screens::Get("frm_MassProp").Text("txt_Mass", 2).Text = "0.003";
        Model.RunTable.Theta(3, 0) = 7;
        Model.RunTable.ImportedTorque(3) = 7;
        Model.TorqueImported = true;
        Model.Delta2 = 12;
        Model.CognateEdit = true;
        Model.FilePath = In("a.vlk");
        Model.ModelName = "a";
        Put_File(In("a.vlk"), File_Content());
        Run_Holds();
        Forces_Hold();
        Set_Menus();
        Model_Saved();
        Model_Kept();
        Refresh_Status();
    }
    bool Panel_Shows_Saved() const { return home.Get<platform::Label>("lbl_Status", 8).Visible; }

    platform::Screen& home = Screens::Get("frm_HomeScreen");
};

TEST_F(FileMenu, SaveAsAsksForAFileWritesItAndTakesItsName) {
    Model.ModelName = "Press";
    Model_Unsaved();
    Expect_Saved_As(In("stroke.vlk"));
    Pick_Menu(home, "mnu_Saveas");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Save the Model");
    EXPECT_EQ(desktop.Dialogs[0].filter, "(*.vlk)|*.vlk");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "Press.vlk");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
    EXPECT_EQ(Model.FilePath, In("stroke.vlk"));
    EXPECT_EQ(Model.ModelName, "stroke");
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_TRUE(Model.Calculated);
    EXPECT_FALSE(Model.DiskFile);
    EXPECT_TRUE(Panel_Shows_Saved());
    // The name in the file is the one that the model had when it was written.
    EXPECT_EQ(Lines(Held(In("stroke.vlk")))[2], "\"Press\"");
    EXPECT_EQ(desktop.Pointers, (std::vector{Pointer::kHourglass, Pointer::kDefault}));
}

TEST_F(FileMenu, DialogsBeginWithTheirOwnEntryWhateverWasTakenBefore) {
    auto& dialog = home.Get<platform::CommonDialog>("CommonDialog1");
    Model_Kept();
    for (const bool open : {true, false}) {
        dialog.FilterIndex = 2;
        dialog.OverwritePrompt = false;
        open ? desktop.Expect_Open({}) : desktop.Expect_Save({});
        (open ? Menu_Open : Menu_Saveas)(home);
        EXPECT_EQ(desktop.Dialogs.back().filter_index, 1);
        EXPECT_EQ(desktop.Dialogs.back().warn_before_overwriting, !open);
    }
}

TEST_F(FileMenu, SaveOfASavedModelAsksNothing) {
    Model.FilePath = In("a.vlk");
    Model_Saved();
    Model_Kept();
    Expect_Saved(In("a.vlk"));
    Pick_Menu(home, "mnu_Save");
    EXPECT_EQ(Held(In("a.vlk")), File_Content());
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_TRUE(Panel_Shows_Saved());
    EXPECT_TRUE(desktop.Dialogs.empty());
    EXPECT_EQ(desktop.Pointers, (std::vector{Pointer::kHourglass, Pointer::kDefault}));
}

TEST_F(FileMenu, SaveOfAnUnsavedModelIsSaveAsAlsoWhenThePathIsTheDefaultFolder) {
    Model.FilePath = Path("models/");
    Model_Unsaved();
    Expect_Saved_As(In("b.vlk"));
    Pick_Menu(home, "mnu_Save");
    EXPECT_EQ(Model.FilePath, In("b.vlk"));
    EXPECT_TRUE(Model.SavedFlag);
}

TEST_F(FileMenu, ACancelledSaveAsLeavesEverything) {
    Model.FilePath = "before";
    Model.ModelName = "Press";
    const std::string content = File_Content();
    desktop.Expect_Save({});
    Pick_Menu(home, "mnu_Saveas");
    EXPECT_EQ(Model.FilePath, "before");
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_EQ(File_Content(), content);
    EXPECT_TRUE(fs::is_empty(Path("models")));
}

TEST_F(FileMenu, AFailedSaveAsIsReportedTheModelIsNotSavedAndKeepsItsName) {
    Model.ModelName = "Press";
    desktop.Expect_Save(In("gone/a.vlk"));
    desktop.Expect_Message("Error 76   (Path not found)  has occurred in Writefile\r\n\r\n" + In("gone/a.vlk") +
                               "\rcannot be written: there is no folder " + In("gone") + ".",
                           Answer::kOk, Icon::kInformation);
    Pick_Menu(home, "mnu_Saveas");
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_FALSE(Panel_Shows_Saved());
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    EXPECT_TRUE(fs::is_empty(Path("models")));
}

TEST_F(FileMenu, AFailedSaveLeavesTheOldFileWholeAndTheModelUnsaved) {
    Model.FilePath = In("a.vlk");
    Put_File(In("a.vlk"), "old");
    Model_Saved();
    Model_Kept();
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit little = before;
    little.rlim_cur = 100;
    ::setrlimit(RLIMIT_FSIZE, &little);
    desktop.Expect_Message(
        "Error 61   (Disk full)  has occurred in Writefile\r\n\r\n"
        " The floppy disk in the drive is full - please substitute another\r\n\r\n" +
            In("a.vlk") + "\rcannot be written: it would be larger than a file may be.",
        Answer::kOk, Icon::kInformation);
    Pick_Menu(home, "mnu_Save");
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_EQ(Names_In(Path("models")), std::set<std::string>{"a.vlk"});
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_FALSE(Panel_Shows_Saved());
    // With the model unsaved the next Save asks where to.
    Expect_Saved_As(In("b.vlk"));
    Pick_Menu(home, "mnu_Save");
    EXPECT_TRUE(Model.SavedFlag);
}

TEST_F(FileMenu, AModelThatCannotBePutIntoAFileLeavesTheOldOneWhole) {
    Model.FilePath = In("a.vlk");
    Put_File(In("a.vlk"), "old");
    Model_Saved();
    Model_Kept();
    Model.Calctype = 4;
    Model.NSteps = 2881;
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in Writefile\r\n\r\n");
    Pick_Menu(home, "mnu_Save");
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_FALSE(Model.SavedFlag);
}

TEST_F(FileMenu, OpenReadsTheChosenFile) {
    const std::string path = Fixture_File("rev9.vlk");
    Model_Saved();
    Model_Kept();
    Model.CognateEdit = true;
    desktop.Expect_Open(path);
    Expect_Read(path);
    Pick_Menu(home, "mnu_Open");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a model");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Verlink (*.vlk)|*.vlk|All (*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "*.vlk");
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_EQ(Model.ModelName, "rev9") << "the file's base name, not the name in it";
    EXPECT_EQ(Model.L2, 8.25);
    EXPECT_TRUE(Model.DiskFile);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_FALSE(Model.Calculated);
    EXPECT_FALSE(Model.CognateEdit);
    EXPECT_TRUE(home.Get<platform::MenuEntry>("mnu_New").Enabled);
    EXPECT_EQ(desktop.Pointers.front(), Pointer::kHourglass);
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(FileMenu, AModelJustReadDoesNotCountAsSaved) {
    Model_Saved();
    Model_Kept();
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    Expect_Read(Fixture_File("rev9.vlk"));
    Menu_Open(home);
    Expect_Saved_As(In("c.vlk"));
    Menu_Save(home);
    EXPECT_EQ(desktop.Dialogs.back().file_name, "rev9.vlk");
}

TEST_F(FileMenu, OpenClearsThePictureOfTheInputScreen) {
    LogSurface log;
    auto& picture = Screens::Get("frm_Inputnew").Get<platform::PictureBox>("Picture1");
    Model_Saved();
    Model_Kept();
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    desktop.Expect_Message_With("successfully read.");
    desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& screen) {
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault) << "the hand is free there";
        screen.Hide();
        picture.Redirect(&log);
    });
    Menu_Open(home);
    EXPECT_EQ(log.Calls, std::vector<std::string>{"Cls"});
    picture.Redirect(nullptr);
}

TEST_F(FileMenu, MenusAndPanelFollowWhatTheInputScreenHasCalculatedAfterAnOpen) {
    Model_Kept();
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    desktop.Expect_Message_With("successfully read.");
    desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& screen) {
        Run_Holds();
        screen.Hide();
    });
    Menu_Open(home);
    EXPECT_TRUE(home.Get<platform::MenuEntry>("mnu_Save").Enabled);
    EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 0).Visible);
    EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 0).Caption, "Imported");
}

TEST_F(FileMenu, OpenOfAForeignFileKeepsTheModelItsResultsItsPathAndItsName) {
    Put_File(In("note.txt"), "Dear Ada,\r\nno linkage here\r\n");
    Have_A_Saved_Model();
    const Moment before;
    desktop.Expect_Open(In("note.txt"));
    desktop.Expect_Message("This data file is not compatible with VERLINK. ", Answer::kOk, Icon::kQuestion);
    Menu_Open(home);
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    // The next Save still goes to the file of this model.
    Expect_Saved(In("a.vlk"));
    Menu_Save(home);
    EXPECT_EQ(Held(In("note.txt")), "Dear Ada,\r\nno linkage here\r\n");
}

TEST_F(FileMenu, OpenOfAFileThatIsNotThereSaysSoAndKeepsTheSavedOne) {
    Have_A_Saved_Model();
    const Moment before;
    desktop.Expect_Open(In("none.vlk"));
    desktop.Expect_Message(
        "Error 53   (File not found)  has occurred in frm_Homescreen.Open\r\n\r\n"
        "There are no files with your chosen name in the selected directory\r\n\r\n" +
            In("none.vlk") + "\rcannot be read: there is no such file.",
        Answer::kOk, Icon::kInformation);
    Menu_Open(home);
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(Model.FilePath, In("a.vlk")) << "the next Save still goes to the file of this model";
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(FileMenu, OpenOfAFileCutShortIsReportedAndEverythingStays) {
    auto lines = Lines(Held(Fixture_File("rev9.vlk")));
    lines.resize(100);
    Put_File(In("cut.vlk"), Joined(lines));
    Have_A_Saved_Model();
    const Moment before;
    desktop.Expect_Open(In("cut.vlk"));
    desktop.Expect_Message("Error 62   (Input past end of file)  has occurred in Read_Newfile\r\n\r\n");
    Menu_Open(home);
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
}

TEST_F(FileMenu, OpenAsksAboutUnsavedResultsAndNoGoesOn) {
    desktop.Expect_Message(kUnsaved, Answer::kNo, {}, Buttons::kYesNo);
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    Expect_Read(Fixture_File("rev9.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.ModelName, "rev9");
}

TEST_F(FileMenu, OpenDoesNotAskAboutAModelThatIsNotModifiedCalculatedOrNot) {
    Model_Kept();
    Run_Dropped();
    desktop.Expect_Open({});
    Menu_Open(home);
    Run_Holds();
    desktop.Expect_Open({});
    Menu_Open(home);
    EXPECT_EQ(desktop.Dialogs.size(), 2U);
}

TEST_F(FileMenu, YesToSavingBeforeOpenShowsTheSaveDialogTwice) {
    desktop.Expect_Message(kUnsaved, Answer::kYes);
    Expect_Saved_As(In("one.vlk"));
    Expect_Saved_As(In("two.vlk"));
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    Expect_Read(Fixture_File("rev9.vlk"));
    Menu_Open(home);
    EXPECT_TRUE(fs::exists(In("one.vlk")));
    EXPECT_TRUE(fs::exists(In("two.vlk")));
    EXPECT_EQ(desktop.Dialogs[1].file_name, "one.vlk");
}

TEST_F(FileMenu, ASecondSaveDialogThatIsCancelledLetsOpenGoOn) {
    desktop.Expect_Message(kUnsaved, Answer::kYes);
    Expect_Saved_As(In("one.vlk"));
    desktop.Expect_Save({});
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    Expect_Read(Fixture_File("rev9.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.ModelName, "rev9");
}

TEST_F(FileMenu, CancelBeforeOpenLeavesTheRoutineWithEverythingAsItWas) {
    Model.RunTable.Theta(3, 0) = 7;
    const std::string before = File_Content();
    // A model that was to be saved first and is not.
    desktop.Expect_Message(kUnsaved, Answer::kYes);
    desktop.Expect_Save({}).Expect_Save({});
    Menu_Open(home);
    // The question itself cancelled.
    desktop.Expect_Message(kUnsaved, Answer::kCancel);
    Menu_Open(home);
    EXPECT_EQ(File_Content(), before);
    EXPECT_EQ(Model.RunTable.Theta(3, 0), 7);
    EXPECT_TRUE(Model.Calculated);
}

TEST_F(FileMenu, ACancelledOpenLeavesResultsTablesAndEverythingElse) {
    Have_A_Saved_Model();
    const Moment before;
    desktop.Expect_Open({});
    Menu_Open(home);
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(FileMenu, AnOpenedModelHasNoResultsTorqueOffsetOrCognateOfTheOneBefore) {
    Have_A_Saved_Model();
    Model.JustStarted = true;
    desktop.Expect_Open(Fixture_File("rev6.vlk"));
    Menu_Open(home);
    EXPECT_FALSE(Model.Calculated || Model.DynamicsDone || Model.BalanceDone || Model.FFTDone);
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_EQ(Model.Delta2, 0);
    EXPECT_FALSE(Model.CognateEdit);
    EXPECT_TRUE(Model.CognatesDue);
}

TEST_F(FileMenu, SaveOverAFileThatIsNoModelKeepsTheOldOneBesideItAndSaysSo) {
    for (const char* foreign : {"2\r\n12.5\r\n0\r\n-1\r\n", "Dear Ada", "\"unended", "\r\n\"VERLINK\"\r\n"}) {
        Model.FilePath = In("stage1.trq");
        Put_File(In("stage1.trq"), foreign);
        ::chmod(In("stage1.trq").c_str(), 0640);
        Model_Saved();
        Model_Kept();
        desktop.Expect_Message("File was successfully written to \r" + In("stage1.trq") +
                                   "\r\rThe file that was there is no model.  It is kept as \r" + In("stage1.trq~"),
                               Answer::kOk, Icon::kInformation, Buttons::kOk);
        Pick_Menu(home, "mnu_Save");
        EXPECT_EQ(Held(In("stage1.trq")), File_Content());
        EXPECT_EQ(Held(In("stage1.trq~")), foreign);
        EXPECT_EQ(fs::status(In("stage1.trq~")).permissions(), fs::perms(0640));
        EXPECT_TRUE(Model.SavedFlag);
        EXPECT_EQ(Model.FilePath, In("stage1.trq"));
        // The file is a model now, which the next Save replaces without more words.
        Expect_Saved(In("stage1.trq"));
        Pick_Menu(home, "mnu_Save");
        EXPECT_EQ(Names_In(Path("models")), (std::set<std::string>{"stage1.trq", "stage1.trq~"}));
        fs::remove(In("stage1.trq~"));
    }
}

TEST_F(FileMenu, AnOldFileThatWasKeptStaysWhenAnotherIsKept) {
    Model.FilePath = In("stage1.trq");
    Put_File(In("stage1.trq"), "second");
    Put_File(In("stage1.trq~"), "first");
    Model_Saved();
    Model_Kept();
    desktop.Expect_Message_With("It is kept as \r" + In("stage1.trq~~"));
    Menu_Save(home);
    EXPECT_EQ(Held(In("stage1.trq~")), "first");
    EXPECT_EQ(Held(In("stage1.trq~~")), "second");
}

TEST_F(FileMenu, AModelAnEmptyFileAndOneThatTheUserAgreedToReplaceAreNotKept) {
    Model.FilePath = In("a.vlk");
    for (const char* old : {"\"VERLINK\"\r\n\"6.0\"\r\n", "VERLINK", "\xef\xbb\xbf\"VERLINKED\",1", ""}) {
        Put_File(In("a.vlk"), old);
        Model_Saved();
        Model_Kept();
        Expect_Saved(In("a.vlk"));
        Menu_Save(home);
    }
    Put_File(In("a.vlk"), "foreign, and the dialog has asked about it");
    Expect_Saved_As(In("a.vlk"));
    Menu_Saveas(home);
    EXPECT_EQ(Names_In(Path("models")), std::set<std::string>{"a.vlk"});
}

TEST_F(FileMenu, SavedAndOpenedAgainIsTheSameModel) {
    Model.L2 = 1.25;
    Model.FigureTitle = "A 12\" press";
    Expect_Saved_As(In("press.vlk"));
    Menu_Saveas(home);
    const std::string held = Held(In("press.vlk"));
    Initialize();
    // Without the input screen, which would calculate.
    Model.JustStarted = true;
    desktop.Expect_Open(In("press.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.L2, 1.25);
    EXPECT_EQ(Model.FigureTitle, "A 12\" press");
    EXPECT_EQ(Model.NSteps, 72);
    // All but the name is as it was written; the name is the file's now.
    EXPECT_EQ(File_Content(), With_Line(held, 3, "\"press\""));
}

TEST_F(FileMenu, TheEndOfTheSessionWaitsUntilTheModelLiesInAFileOrNobodyWantsIt) {
    Model_Kept();
    EXPECT_TRUE(May_End_Session(home)) << "nothing was modified, and nobody asked";
    Model.L2 = 9;
    desktop.Expect_Message_With("has not been saved", Answer::kCancel);
    EXPECT_FALSE(May_End_Session(home));
    desktop.Expect_Message_With("has not been saved", Answer::kYes);
    desktop.Expect_Save({});
    EXPECT_FALSE(May_End_Session(home));
    desktop.Expect_Message_With("has not been saved", Answer::kNo);
    EXPECT_TRUE(May_End_Session(home));
    desktop.Expect_Message_With("has not been saved", Answer::kYes);
    desktop.Expect_Save(Path("kept.vlk"));
    desktop.Expect_Message_With("successfully written");
    EXPECT_TRUE(May_End_Session(home));
    EXPECT_TRUE(std::filesystem::exists(Path("kept.vlk")));
}

TEST_F(FileMenu, AHomeScreenWithoutADialogIsAFailureOfEachHandler) {
    platform::Screen bare("frm_HomeScreen");
    Model_Saved();
    Model_Kept();
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in frm_Homescreen.Open\r\n\r\n");
    Menu_Open(bare);
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in frm_Homescreen.SaveAs.vlk\r\n\r\n");
    Menu_Saveas(bare);
}

}  // namespace verlink::test
