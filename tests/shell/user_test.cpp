// The file association, and the model named on the command line.
#include "shell/user.h"

#include <filesystem>

#include "dynamics/units.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Icon;
using platform::Label;
using platform::MenuEntry;
using platform::Screen;
using platform::Screens;

class UserTest : public Fixture {
   protected:
    UserTest() {
        Set_Identity();
        Model.JustStarted = true;
    }
    /// A model file with that crank and unit system; the record is fresh afterwards.
    void Leave_Model(const std::string& path, double crank, int units) {
        Initialize();
        Model.L2 = crank;
        Model.Units = units;
        Model.ModelName = "inside";
        platform::Write_File(path, File_Content());
        Reset_Model();
        Set_Identity();
        Model.JustStarted = true;
    }
};

TEST_F(UserTest, TheAssociationNamesTypeExtensionAndFolder) {
    Model.AppPath = "/opt/verlink";
    CreateAssociation("Verlink", "vlk");
    ASSERT_EQ(desktop.FileTypes.size(), 1U);
    EXPECT_EQ(desktop.FileTypes[0].type, "Verlink");
    EXPECT_EQ(desktop.FileTypes[0].extension, "vlk");
    EXPECT_EQ(desktop.FileTypes[0].app_path, "/opt/verlink");
}

TEST_F(UserTest, AnAssociationThatTheDesktopRefusesIsReportedWithItsValuesAndStaysAsItWas) {
    Model.AppPath = "/opt/verlink";
    desktop.FailRegistering = platform::kPathAccess;
    desktop.Expect_Message(
        "In Sub SetKeyValue\r\nsKeyName = Verlink.Document\\shell\\open\\command\r\nsValueName = \r\n"
        "vValueSetting = /opt/verlink\\Verlink.exe %1\r\nlValueType = 1\r\nhKey = -2147483648",
        Answer::kOk, Icon::kInformation);
    CreateAssociation("Verlink", "vlk");
    EXPECT_TRUE(desktop.FileTypes.empty());
}

TEST_F(UserTest, AnAssociationThatCannotBeWrittenIsReportedWithItsFileAndReason) {
    class Refusing : public ScriptedDesktop {
       public:
        void Register_File_Type(const platform::FileType&) override {
            throw platform::RuntimeFailure(platform::kPathAccess,
                                           {"/home/ann/verlink.desktop", true, "the disk is full"});
        }
    } refusing;
    Model.AppPath = "/opt/verlink";
    refusing.Expect_Message(
        "In Sub SetKeyValue\r\nsKeyName = Verlink.Document\\shell\\open\\command\r\nsValueName = \r\n"
        "vValueSetting = /opt/verlink\\Verlink.exe %1\r\nlValueType = 1\r\nhKey = -2147483648\r\n\r\n"
        "/home/ann/verlink.desktop\rcannot be written: the disk is full.");
    CreateAssociation("Verlink", "vlk");
    platform::Use_Desktop(&desktop);
}

TEST_F(UserTest, TheLongPathIsAbsoluteWithoutDetours) {
    platform::Write_File(Path("a model.vlk"), "");
    const std::string folder = std::filesystem::canonical(desktop.Documents).string();
    EXPECT_EQ(GetLongPathFromShortPath(desktop.Documents + "/./a model.vlk"), folder + "/a model.vlk");
}

TEST_F(UserTest, TheLongPathOfAFileThatIsNotThereIsEmpty) {
    EXPECT_EQ(GetLongPathFromShortPath(Path("nothing.vlk")), "");
    EXPECT_EQ(GetLongPathFromShortPath(""), "");
}

TEST_F(UserTest, AnEmptyCommandLineOpensNothing) {
    Initialize();
    Model.FilePath = "before";
    Open_Clicked_File();
    EXPECT_EQ(Model.FilePath, "before");
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_FALSE(Model.DiskFile);
}

TEST_F(UserTest, AFileNameWithBlanksOnTheCommandLineIsTakenWhole) {
    const std::string path = Path("my crank press.vlk");
    Leave_Model(path, 1.25, 1);
    Initialize();
    Model.CommandLine = path;
    desktop.PointerNow = platform::Pointer::kHourglass;
    Open_Clicked_File();
    EXPECT_EQ(Model.L2, 1.25);
    EXPECT_EQ(Model.FilePath, std::filesystem::canonical(path).string());
    EXPECT_EQ(Model.ModelName, "my crank press");
    EXPECT_EQ(desktop.PointerNow, platform::Pointer::kDefault);
}

TEST_F(UserTest, TasksOnTheCommandLineBringTheModelThatTheyLieBeside) {
    const std::string tasks = "{\n  \"format\": \"verlink-design\",\n  \"version\": 1,\n  \"kind\": \"motion\"\n}\n";
    platform::Write_File(Path("press.vld"), tasks);
    Initialize();
    Model.CommandLine = Path("press.vld");
    Open_Clicked_File();
    EXPECT_EQ(Model.DesignTask, tasks);
    EXPECT_EQ(Model.ModelName, "Model_1");
    EXPECT_FALSE(Modified());
    Leave_Model(Path("press.vlk"), 1.25, 1);
    Initialize();
    Model.CommandLine = Path("press.vld");
    Open_Clicked_File();
    EXPECT_EQ(Model.L2, 1.25);
    EXPECT_EQ(Model.ModelName, "press");
    EXPECT_EQ(Model.DesignTask, tasks);
    EXPECT_FALSE(Modified());
}

TEST_F(UserTest, TasksOnTheCommandLineThatCannotBeReadAreTold) {
    platform::Write_File(Path("press.vld"), "[]");
    Initialize();
    Model.CommandLine = Path("press.vld");
    desktop.Expect_Message("The tasks in " + std::filesystem::canonical(Path("press.vld")).string() +
                               " cannot be read: it is no file of tasks.",
                           platform::Answer::kOk, platform::Icon::kExclamation);
    Open_Clicked_File();
    EXPECT_EQ(Model.DesignTask, "");
}

TEST_F(UserTest, APathForWhichTheLongFormFailsIsUsedAsGivenAndItsFailureIsNumber52) {
    Initialize();
    Model.CommandLine = "no such folder/model.vlk";
    desktop.Expect_Message(
        "Error 52   (Bad file name or number)  has occurred in Readfile in Open_Clicked_File\r\n\r\n"
        "The filename clicked on has a problem.  Try opening it from within the program.\r\n\r\n"
        "no such folder/model.vlk\rcannot be read: there is no folder no such folder.",
        Answer::kOk, Icon::kInformation);
    Open_Clicked_File();
    EXPECT_EQ(Model.FilePath, "");
    EXPECT_EQ(Model.ModelName, "Model_1");
}

TEST_F(UserTest, AFileThatBreaksOffOnTheCommandLineGetsTheAdviceForFilesThatWereClickedOn) {
    const std::string advice = "The filename clicked on has a problem.  Try opening it from within the program.";
    const std::string path = Path("cut.vlk");
    Leave_Model(path, 1.25, 3);
    const std::string whole = platform::Read_File(path);
    Initialize();
    const std::string before = File_Content();
    Model.CommandLine = path;
    const auto expect = [&](const std::string& content, const std::string& failure) {
        platform::Write_File(path, content);
        desktop.Expect_Message("Error " + failure + "\r\n\r\n" + advice, Answer::kOk, Icon::kInformation);
        Open_Clicked_File();
        EXPECT_EQ(File_Content(), before);
        EXPECT_EQ(Model.FilePath, "");
        EXPECT_FALSE(Model.DiskFile);
        EXPECT_EQ(desktop.PointerNow, platform::Pointer::kDefault);
    };
    expect(whole.substr(0, 300), "62   (Input past end of file)  has occurred in Read_Newfile");
    expect("", "62   (Input past end of file)  has occurred in Readfile");
    expect("\"VERLINK\"\r\n\"9.0\"\r\n\"a\"\r\n\"b\"\r\nmany\r\n",
           "13   (Type mismatch)  has occurred in Read_Newfile");
    // From within the program the same file is reported without the advice.
    desktop.Expect_Message("Error 62   (Input past end of file)  has occurred in Readfile\r\n\r\n");
    EXPECT_FALSE(Readfile("", path));
}

TEST_F(UserTest, AForeignFileOnTheCommandLineIsRefusedWithoutAdvice) {
    Initialize();
    Model.CommandLine = Path("note.txt");
    platform::Write_File(Model.CommandLine, "Dear Ada,\r\nno linkage here\r\n");
    desktop.Expect_Message("This data file is not compatible with VERLINK. ", Answer::kOk, Icon::kQuestion);
    Open_Clicked_File();
    EXPECT_EQ(Model.FilePath, "");
    EXPECT_EQ(Model.ModelName, "Model_1");
}

TEST_F(UserTest, AFolderOnTheCommandLineIsNumber52Too) {
    Initialize();
    Model.CommandLine = desktop.Documents;
    desktop.Expect_Message_With("Error 52   (Bad file name or number)  has occurred in Readfile in Open_Clicked_File");
    Open_Clicked_File();
}

TEST_F(UserTest, AModelOpenedAtTheStartKeepsItsOwnUnitSystem) {
    const std::string path = Path("metric.vlk");
    Leave_Model(path, 0.05, 5);
    desktop.Expect_Screen("frm_Title", [](Screen&) {
        EXPECT_EQ(Model.Units, 5);
        EXPECT_EQ(Model.L2, Single(0.05));
        EXPECT_EQ(Model.UnitLabel(6), "mm");
        EXPECT_EQ(Model.DecLengthShown, 2);
        Screen& home = Screens::Get("frm_HomeScreen");
        EXPECT_TRUE(home.Get<MenuEntry>("mnu_pick", 5).Checked);
        EXPECT_FALSE(home.Get<MenuEntry>("mnu_pick", 1).Checked);
        EXPECT_EQ(home.Get<Label>("lbl_Status", 10).Caption.Get(), "mm-kg-N-s");
        Terminate();
    });
    Sub_Main(path);
    EXPECT_EQ(Model.ModelName, "metric");
    EXPECT_FALSE(Model.DiskFile);
}

}  // namespace
}  // namespace verlink::test
