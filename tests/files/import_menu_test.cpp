// The import menu: dialogs, the question about unsaved results, cancelled dialogs, and what an import leaves behind.
#include <filesystem>

#include "core/model_on_screens.h"
#include "files/in_hand.h"
#include "tests/files/drive_files.h"
#include "tests/files/unsaved.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::MenuEntry;
using platform::Pointer;
using platform::Screens;

namespace {

constexpr char kCancelReported[] =
    "Error 32755   (Cancel was selected)  has occurred in frm_Homescreen.mnu_Link_Data_Import\r\n\r\n";

}  // namespace

class ImportMenu : public DriveFiles {
   protected:
    ImportMenu() {
        fs::create_directory(Path("a folder"));
        Take_Full_Turn();
        Model_Saved();
        Model_Kept();
        Set_Menus();
    }
    std::string In(const std::string& name) const { return Path("a folder/" + name); }
    std::string Cam_File(const std::string& name = "press.sva", const CamFile& file = {}) const {
        Put_File(In(name), file.Content());
        return In(name);
    }
    std::string Link_File(const std::string& name = "stage1.out") const {
        Put_File(In(name), LinkFile({"10,1,2", "20,3,4"}));
        return In(name);
    }
    /// Queues a dialog with a file that is in order, and what follows.
    void Expect_Import(const std::string& path, const std::string& kind) {
        desktop.Expect_Open(path);
        desktop.Expect_Message("File " + path + " of " + kind + " data successfully read.", Answer::kOk, Icon::kNone);
        desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& input) { input.Hide(); });
    }
    void Expect_Saved_As(const std::string& path) {
        desktop.Expect_Save(path);
        desktop.Expect_Message("File was successfully written to \r" + path);
    }

    platform::Screen& home = Screens::Get("frm_HomeScreen");
};

TEST_F(ImportMenu, BothEntriesAreOnBeforeAnythingIsCalculated) {
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_Import").Enabled);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_Lobetra").Enabled);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_Link_Data_Import").Enabled);
}

TEST_F(ImportMenu, CamDataAreAskedForByTheirKindAndTheFileIsNamedWithoutItsFolder) {
    Model.ModelName = "Press";
    Model_Kept();
    home.Get<MenuEntry>("mnu_New").Enabled = false;
    platform::The_Desktop().Set_Pointer(Pointer::kHourglass);
    const std::string path = Cam_File();
    Expect_Import(path, "Lobetra S-V-A");
    Pick_Menu(home, "mnu_Lobetra");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a Lobetra export data file");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Lobetra Export (*.sva)|*.sva|(*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "*.sva");
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_EQ(Model.Model5Name, "press.sva");
    EXPECT_EQ(Model.ModelName, "Press");
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_FALSE(Model.LinkImportPending);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_New").Enabled);
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    EXPECT_TRUE(Model.CamDriven);
    EXPECT_EQ(Model.L2, 1.25);
}

TEST_F(ImportMenu, LinkDataAreAskedForByTheirKindAndAnImportIsNoted) {
    home.Get<MenuEntry>("mnu_New").Enabled = false;
    const std::string path = Link_File();
    Expect_Import(path, "Linkage output");
    Pick_Menu(home, "mnu_Link_Data_Import");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a Linkage Drive Data file");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Verlink Export (*.out)|*.out|(*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "*.out");
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_EQ(Model.Model5Name, "stage1.out");
    EXPECT_TRUE(Model.LinkImportPending);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_New").Enabled);
    EXPECT_TRUE(Model.LinkDriven);
    EXPECT_EQ(Row(1), (std::array{20.0, 3.0, 4.0}));
}

TEST_F(ImportMenu, AFileOfAnotherExtensionIsNamedWithTheOneOfItsKind) {
    const std::string path = Link_File("stage1.txt");
    Expect_Import(path, "Linkage output");
    Menu_Link_Data_Import(home);
    EXPECT_EQ(Model.Model5Name, "stage1.out");
}

TEST_F(ImportMenu, ThePanelShowsImportedOnceTheRunIsUp) {
    const std::string path = Cam_File();
    desktop.Expect_Open(path);
    desktop.Expect_Message_With("successfully read.");
    desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& input) {
        Press(input, "cmd_Calc");
        Press(input, "cmd_Done");
    });
    Menu_Lobetra(home);
    EXPECT_TRUE(Model.Calculated);
    EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 0).Caption, "Imported");
    EXPECT_TRUE(home.Get<platform::Label>("lbl_Status", 2).Visible);
    EXPECT_EQ(home.Get<platform::Label>("lbl_Status", 2).Caption, "Cam Driven");
    EXPECT_FALSE(home.Get<platform::Label>("lbl_Status", 1).Visible);
    EXPECT_FALSE(home.Get<platform::Label>("lbl_Status", 8).Visible) << "an import counts as unsaved";
}

TEST_F(ImportMenu, ThePanelShowsNoMoreOfTheRunBeforeAlsoWhereNoScreenComesUp) {
    Model.JustStarted = true;
    auto& saved = home.Get<platform::Label>("lbl_Status", 8);
    for (const bool cam : {true, false}) {
        const std::string path = cam ? Cam_File() : Link_File();
        Model_Kept();
        Run_Holds();
        Set_Menus();
        ASSERT_TRUE(home.Get<MenuEntry>("mnu_Save").Enabled);
        saved.Visible = true;
        if (cam)
            Import_Cam_File(home, path);
        else
            Import_Link_File(home, path);
        EXPECT_FALSE(saved.Visible) << path;
        EXPECT_FALSE(home.Get<MenuEntry>("mnu_Save").Enabled) << path;
    }
}

TEST_F(ImportMenu, ACancelledDialogEndsTheCamImportSilently) {
    Model.FilePath = "before";
    Model.Model5Name = "before.sva";
    Model_Kept();
    const std::string before = File_Content();
    desktop.Expect_Open({});
    Menu_Lobetra(home);
    EXPECT_EQ(File_Content(), before);
    EXPECT_EQ(Model.FilePath, "before");
    EXPECT_TRUE(Model.SavedFlag);
}

TEST_F(ImportMenu, ACancelledDialogIsReportedByTheLinkImport) {
    Model.FilePath = "before";
    const std::string before = File_Content();
    desktop.Expect_Open({});
    desktop.Expect_Message(kCancelReported, Answer::kOk, Icon::kInformation);
    Menu_Link_Data_Import(home);
    EXPECT_EQ(File_Content(), before);
    EXPECT_EQ(Model.FilePath, "before");
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_FALSE(Model.LinkImportPending);
}

TEST_F(ImportMenu, DialogsBeginWithTheirOwnEntryWhateverWasTakenBefore) {
    for (const bool cam : {true, false}) {
        home.Get<platform::CommonDialog>("CommonDialog1").FilterIndex = 2;
        desktop.Expect_Open({});
        if (!cam) desktop.Expect_Message(kCancelReported);
        (cam ? Menu_Lobetra : Menu_Link_Data_Import)(home);
        EXPECT_EQ(desktop.Dialogs.back().filter_index, 1);
        EXPECT_EQ(desktop.Dialogs.back().kind, "drive");
    }
}

TEST_F(ImportMenu, YesToSavingBeforeAnImportShowsTheSaveDialogTwice) {
    for (const bool cam : {true, false}) {
        Run_Holds();
        Model.L2 = cam ? 1.5 : 1.25;
        Model_Unsaved();
        desktop.Expect_Message(kUnsaved, Answer::kYes, Icon::kQuestion, Buttons::kYesNo);
        Expect_Saved_As(In("one.vlk"));
        Expect_Saved_As(In("two.vlk"));
        desktop.Expect_Open({});
        if (!cam) desktop.Expect_Message(kCancelReported);
        (cam ? Menu_Lobetra : Menu_Link_Data_Import)(home);
        EXPECT_TRUE(fs::exists(In("one.vlk")));
        EXPECT_TRUE(fs::exists(In("two.vlk")));
        EXPECT_TRUE(Model.SavedFlag);
        fs::remove(In("one.vlk"));
        fs::remove(In("two.vlk"));
    }
}

TEST_F(ImportMenu, NoToSavingGoesOnAndASaveThatCameToNothingDoesNot) {
    Run_Holds();
    Model.L2 = 1.5;
    Model_Unsaved();
    desktop.Expect_Message(kUnsaved, Answer::kNo);
    desktop.Expect_Open({});
    Menu_Lobetra(home);
    desktop.Expect_Message(kUnsaved, Answer::kYes);
    desktop.Expect_Save({}).Expect_Save({});
    Menu_Link_Data_Import(home);
    EXPECT_TRUE(Model.Calculated);
    EXPECT_EQ(desktop.Dialogs.size(), 3U);
}

TEST_F(ImportMenu, SavedResultsOrNoneAreNotAskedAbout) {
    Run_Holds();
    Model_Saved();
    Model_Kept();
    desktop.Expect_Open({});
    Menu_Lobetra(home);
    Run_Dropped();
    Model_Unsaved();
    desktop.Expect_Open({});
    Menu_Lobetra(home);
    EXPECT_EQ(desktop.Dialogs.size(), 2U);
}

TEST_F(ImportMenu, AFileThatIsNotThereIsReportedAndTheModelKeepsItsOwn) {
    const std::string advice = "\r\n\r\nThere are no files with your chosen name in the selected directory";
    Model.FilePath = In("a.vlk");
    Model.Model5Name = "old.sva";
    Model_Kept();
    desktop.Expect_Open(In("none.sva"));
    const auto matter = [](const std::string& path) {
        return "\r\n\r\n" + path + "\rcannot be read: there is no such file.";
    };
    desktop.Expect_Message("Error 53   (File not found)  has occurred in frm_Homescreen.mnu_Lobetra" + advice +
                           matter(In("none.sva")));
    Menu_Lobetra(home);
    desktop.Expect_Open(In("none.out"));
    desktop.Expect_Message("Error 53   (File not found)  has occurred in frm_Homescreen.mnu_Link_Data_Import" + advice +
                           matter(In("none.out")));
    Menu_Link_Data_Import(home);
    EXPECT_EQ(Model.FilePath, In("a.vlk"));
    EXPECT_EQ(Model.Model5Name, "old.sva");
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_FALSE(Model.LinkImportPending);
}

TEST_F(ImportMenu, ARefusedFileLeavesTheModelItsPathAndItsSaving) {
    Have_Results();
    Model.FilePath = In("model.vlk");
    Model.Model5Name = "old.sva";
    Model_Kept();
    Model_Saved();
    Model_Kept();
    Set_Menus();
    const Moment before;
    platform::The_Desktop().Set_Pointer(Pointer::kHourglass);
    CamFile six;
    six.links = "6";
    const std::string path = Cam_File("six.sva", six);
    desktop.Expect_Open(path);
    desktop.Expect_Message_With("Please import it to Program Corvex instead.");
    Menu_Lobetra(home);
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    desktop.Expect_Message("File was successfully written to \r" + In("model.vlk"));
    Menu_Save(home);
    EXPECT_EQ(Held(path), six.Content());
}

TEST_F(ImportMenu, ABrokenFileIsReportedAndLeavesResultsAndButtons) {
    Have_Results();
    Model.FilePath = In("model.vlk");
    Model_Saved();
    Model_Kept();
    Set_Menus();
    const Moment before;
    Put_File(In("broken.out"), LinkFile({"1,2,3", "4,5"}));
    desktop.Expect_Open(In("broken.out"));
    Expect_Failure(62, "Input past end of file", "Import_Linkage_Data");
    Menu_Link_Data_Import(home);
    EXPECT_EQ(before.Changed(), "");
    EXPECT_TRUE(home.Get<MenuEntry>("mnu_Export").Enabled);
}

TEST_F(ImportMenu, AHomeScreenWithoutADialogIsAFailureOfEachHandler) {
    platform::Screen bare("frm_HomeScreen");
    Expect_Failure(9, "Subscript out of range", "frm_Homescreen.mnu_Lobetra");
    Menu_Lobetra(bare);
    Expect_Failure(9, "Subscript out of range", "frm_Homescreen.mnu_Link_Data_Import");
    Menu_Link_Data_Import(bare);
}

}  // namespace verlink::test
