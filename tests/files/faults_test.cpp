// What goes wrong with a file on its way: what is told, what stays, and a program that goes on.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "core/model_on_screens.h"
#include "core/runs.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "files/in_hand.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Pointer;
using platform::Screen;
using platform::Screens;

namespace {

constexpr char kFull[] = "61   (Disk full)";
constexpr char kFullAdvice[] = " The floppy disk in the drive is full - please substitute another";
constexpr char kNotFound[] = "53   (File not found)";
constexpr char kNotFoundAdvice[] = "There are no files with your chosen name in the selected directory";
constexpr char kNoAccess[] = "75   (Path/File access error)";
constexpr char kDevice[] = "57   (Device I/O error)";
constexpr char kDeviceAdvice[] = "Device I/O error- bad drive or disk - please try another";

/// For its life this process, root's too, may not write in a folder, or not read a file.
class Refused {
   public:
    Refused(const std::string& path, mode_t mode) : path_(path), user_(::geteuid()) {
        struct stat status {};
        ::stat(path.c_str(), &status);
        mode_ = status.st_mode & 07777;
        ::chmod(path.c_str(), mode);
        // Root is refused nothing, so that it becomes nobody for a while.
        if (user_ == 0) is_nobody_ = ::seteuid(65534) == 0;
    }
    ~Refused() {
        if (is_nobody_ && ::seteuid(user_) != 0) std::abort();
        ::chmod(path_.c_str(), mode_);
    }
    Refused(const Refused&) = delete;
    Refused& operator=(const Refused&) = delete;
    bool Holds() const { return user_ != 0 || is_nobody_; }

   private:
    std::string path_;
    uid_t user_;
    mode_t mode_ = 0;
    bool is_nobody_ = false;
};

/// For its life no file grows beyond so many bytes.
class Little_Room {
   public:
    explicit Little_Room(rlim_t bytes) {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit little = before_;
        little.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &little);
    }
    ~Little_Room() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    Little_Room(const Little_Room&) = delete;
    Little_Room& operator=(const Little_Room&) = delete;

   private:
    rlimit before_{};
};

class Faults : public ModelFiles {
   protected:
    Faults() {
        fs::create_directory(Path("files"));
        ::chmod(Path("").c_str(), 0755);
        Model_Saved();
        Model_Kept();
        Model.FilePath = In("before.vlk");
        Model.ModelName = "before";
    }
    std::string In(const std::string& name) const { return Path("files/" + name); }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Path("files"))) names.insert(entry.path().filename());
        return names;
    }
    void Expect_Report(const std::string& failure, const std::string& procedure, const std::string& words = "") {
        desktop.Expect_Message("Error " + failure + "  has occurred in " + procedure + "\r\n\r\n" + words,
                               platform::Answer::kOk, platform::Icon::kInformation);
    }
    /// The advice of a failure, if it has any, and behind it the file and what is the matter with it.
    static std::string Words(const std::string& advice, const std::string& path, const std::string& matter) {
        return advice + (advice.empty() ? "" : "\r\n\r\n") + path + "\rcannot be " + matter + ".";
    }

    Screen& home = Screens::Get("frm_HomeScreen");
};

}  // namespace

// ---- writing ------------------------------------------------------------------------------------------------------

/// A way to write a file: the menu's action, the name that failures go by, what it writes, and what it says of it.
struct Writer {
    const char* name;
    void (*act)(Screen&);
    const char* procedure;
    std::string (*content)();
    const char* told;  ///< with % for the path; empty for nothing
};

class WritingFaults : public Faults, public testing::WithParamInterface<Writer> {
   protected:
    WritingFaults() {
        Take_Full_Turn();
        Set_Limits();
        Integer Result = 0;
        Calc_Setup(Model.Calctype, Result);
        for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.LinkTorque(step, 0) = step / 8.0;
        Run_Holds();
        Forces_Hold();
    }
    static void Set_Limits() {
        Model.ThetaStartRad = 0;
        Model.ThetaEndRad = 360 * kDegToRad;
        Model.ThetaStepRad = 5 * kDegToRad;
    }
    void Expect_Written(const std::string& path) {
        desktop.Expect_Save(path);
        std::string told = GetParam().told;
        if (told.empty()) return;
        desktop.Expect_Message(told.replace(told.find('%'), 1, path));
    }
    void Write() { GetParam().act(home); }
    /// After a failure: nothing beside the old file, the model unsaved, and the next try succeeds.
    void Expect_Whole_And_Going_On(const std::string& held) {
        EXPECT_EQ(Held(In("a.file")), held);
        EXPECT_EQ(Names(), std::set<std::string>{"a.file"});
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_EQ(Model.ModelName, "before");
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
        Expect_Written(In("a.file"));
        const std::string content = GetParam().content();
        Write();
        EXPECT_EQ(Held(In("a.file")), content);
        EXPECT_TRUE(Model.SavedFlag);
    }
};

TEST_P(WritingFaults, ADiskThatFillsHalfWayLeavesTheOldFileWhole) {
    Put_File(In("a.file"), "old");
    desktop.Expect_Save(In("a.file"));
    Expect_Report(kFull, GetParam().procedure,
                  Words(kFullAdvice, In("a.file"), "written: it would be larger than a file may be"));
    {
        const Little_Room room(GetParam().content().size() / 2);
        Write();
    }
    Expect_Whole_And_Going_On("old");
}

TEST_P(WritingFaults, AFullDeviceIsAFullDisk) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    Put_File(In("a.file"), "old");
    desktop.Expect_Save("/dev/full");
    Expect_Report(kFull, GetParam().procedure, Words(kFullAdvice, "/dev/full", "written: the disk is full"));
    Write();
    Expect_Whole_And_Going_On("old");
}

TEST_P(WritingFaults, AFolderOfThatNameStays) {
    Put_File(In("a.file"), "old");
    fs::create_directories(Path("folder/inner"));
    desktop.Expect_Save(Path("folder"));
    Expect_Report(kNoAccess, GetParam().procedure, Words("", Path("folder"), "written: it is a folder"));
    Write();
    EXPECT_TRUE(fs::is_directory(Path("folder/inner")));
    Expect_Whole_And_Going_On("old");
}

TEST_P(WritingFaults, AFolderThatMayNotBeWrittenInKeepsItsFile) {
    Put_File(In("a.file"), "old");
    desktop.Expect_Save(In("a.file"));
    Expect_Report(kNoAccess, GetParam().procedure,
                  Words("", In("a.file"), "written: you may not write it, or not in its folder"));
    {
        const Refused refused(Path("files"), 0555);
        if (!refused.Holds()) GTEST_SKIP() << "root cannot become anybody else here";
        Write();
    }
    Expect_Whole_And_Going_On("old");
}

TEST_P(WritingFaults, ANameThatTheSystemDoesNotTakeIsReported) {
    Put_File(In("a.file"), "old");
    desktop.Expect_Save(In(std::string(300, 'n')));
    Expect_Report("64   (Bad file name)", GetParam().procedure,
                  Words(kNotFoundAdvice, In(std::string(300, 'n')), "written: its name is too long"));
    Write();
    Expect_Whole_And_Going_On("old");
}

// The system stops the program in the middle of a write, as a crash or a lost power supply would.
TEST_P(WritingFaults, AProgramThatIsStoppedHalfWayLeavesTheOldFileWhole) {
    Put_File(In("a.file"), "old");
    desktop.Expect_Save(In("a.file"));
    const std::string content = GetParam().content();
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        const Little_Room room(content.size() / 2);
        ::signal(SIGXFSZ, SIG_DFL);
        Write();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << "it was not stopped";
    EXPECT_EQ(Held(In("a.file")), "old");
    // The expectation of the dialog is still there: this is the program started anew.
    if (*GetParam().told) {
        std::string told = GetParam().told;
        desktop.Expect_Message(told.replace(told.find('%'), 1, In("a.file")));
    }
    Write();
    EXPECT_EQ(Held(In("a.file")), content);
}

constexpr Writer kWriters[] = {
    {"Model", Menu_Saveas, "Writefile", File_Content, "File was successfully written to \r%"},
    {"Link4", Menu_Link_Data_Export, "Export_Link4_to_File", Link4_Content,
     "The angular data for link 4 of this linkage has been written to %\rThis file can be imported to program Verlink "
     "or "
     "Corvex\rand used as input data to drive the next stage of a multibar linkage."},
    {"Torque", Menu_Export_Torque, "Export_Torque_Data", Torque_Content, ""},
    {"Pendrix", Menu_pdx, "Write_Pend", Pendrix_Content, "File was successfully written to \r%"},
};

INSTANTIATE_TEST_SUITE_P(All, WritingFaults, testing::ValuesIn(kWriters),
                         [](const auto& writer) { return std::string(writer.param.name); });

// ---- reading ------------------------------------------------------------------------------------------------------

/// A way to read a file: the action, the names that failures of opening and of reading go by, what is told before the
/// reporter speaks, and a file that it takes.
struct Reader_Of {
    const char* name;
    void (*act)(Screen&);
    const char* opening;
    const char* told_at_opening;
    const char* reading;
    const char* told_at_reading;
    std::string (*content)();
};

/// A desktop on which the file that was chosen is gone by the time that the dialog has closed.
class Vanishing : public ScriptedDesktop {
   public:
    explicit Vanishing(std::string gone) : gone_(std::move(gone)) {}
    std::optional<std::string> Ask_Open_File(const platform::FileDialog& dialog) override {
        auto path = ScriptedDesktop::Ask_Open_File(dialog);
        EXPECT_TRUE(fs::exists(path.value_or("")));
        fs::remove_all(gone_);
        return path;
    }

   private:
    std::string gone_;
};

class ReadingFaults : public Faults, public testing::WithParamInterface<Reader_Of> {
   protected:
    ReadingFaults() {
        // Without the screens that come up behind a file that was read.
        Model.JustStarted = true;
        Model.Calctype = 1;
        Model.NSteps = 2;
        Put_File(In("good.file"), GetParam().content());
        Model_Kept();
    }
    ~ReadingFaults() override { platform::Use_Desktop(&desktop); }

    void Read() { GetParam().act(home); }
    void Expect_Not_Opened(ScriptedDesktop& on, const std::string& failure, const std::string& words) {
        if (*GetParam().told_at_opening) on.Expect_Message(GetParam().told_at_opening);
        on.Expect_Message("Error " + failure + "  has occurred in " + GetParam().opening + "\r\n\r\n" + words,
                          platform::Answer::kOk, platform::Icon::kInformation);
    }
    /// After a file that could not be opened: the model is the one it was, and a good file is read.
    void Expect_As_It_Was_And_Going_On(const std::string& before) {
        EXPECT_EQ(File_Content(), before);
        EXPECT_EQ(Model.FilePath, In("before.vlk"));
        EXPECT_EQ(Model.ModelName, "before");
        EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
        Expect_Going_On();
    }
    void Expect_Going_On() {
        desktop.Expect_Open(In("good.file"));
        Read();
        EXPECT_EQ(Model.FilePath, In("good.file"));
        EXPECT_FALSE(Model.SavedFlag);
    }
};

TEST_P(ReadingFaults, AFileThatVanishesBetweenTheDialogAndTheOpeningIsNotFound) {
    const std::string before = File_Content();
    Put_File(In("a.file"), GetParam().content());
    {
        Vanishing vanishing(In("a.file"));
        vanishing.Expect_Open(In("a.file"));
        Expect_Not_Opened(vanishing, kNotFound, Words(kNotFoundAdvice, In("a.file"), "read: there is no such file"));
        Read();
        EXPECT_EQ(vanishing.PointerNow, Pointer::kDefault);
    }
    platform::Use_Desktop(&desktop);
    Expect_As_It_Was_And_Going_On(before);
}

TEST_P(ReadingFaults, AFolderThatVanishesWithItsFileIsNotFoundEither) {
    const std::string before = File_Content();
    fs::create_directory(In("stick"));
    Put_File(In("stick/a.file"), GetParam().content());
    {
        Vanishing vanishing(In("stick"));
        vanishing.Expect_Open(In("stick/a.file"));
        Expect_Not_Opened(vanishing, kNotFound,
                          Words(kNotFoundAdvice, In("stick/a.file"), "read: there is no folder " + In("stick")));
        Read();
    }
    platform::Use_Desktop(&desktop);
    Expect_As_It_Was_And_Going_On(before);
}

TEST_P(ReadingFaults, AFolderIsNoFile) {
    const std::string before = File_Content();
    desktop.Expect_Open(Path("files"));
    Expect_Not_Opened(desktop, kNoAccess, Words("", Path("files"), "read: it is a folder"));
    Read();
    Expect_As_It_Was_And_Going_On(before);
}

TEST_P(ReadingFaults, AFileThatMayNotBeReadIsReported) {
    const std::string before = File_Content();
    Put_File(In("a.file"), GetParam().content());
    desktop.Expect_Open(In("a.file"));
    Expect_Not_Opened(desktop, kNoAccess, Words("", In("a.file"), "read: you may not read it"));
    {
        const Refused refused(In("a.file"), 0);
        if (!refused.Holds()) GTEST_SKIP() << "root cannot become anybody else here";
        Read();
    }
    Expect_As_It_Was_And_Going_On(before);
}

TEST_P(ReadingFaults, ADeviceThatFailsIsReported) {
    // Reading this file where no memory is mapped is a device error.
    constexpr char kFailing[] = "/proc/self/mem";
    if (::access(kFailing, R_OK) != 0) GTEST_SKIP() << "no file here that fails when it is read";
    const std::string before = File_Content();
    desktop.Expect_Open(kFailing);
    Expect_Not_Opened(desktop, kDevice, Words(kDeviceAdvice, kFailing, "read: the system says \"Input/output error\""));
    Read();
    Expect_As_It_Was_And_Going_On(before);
}

TEST_P(ReadingFaults, AFileCutOffHalfWayIsReportedAndLeavesEverythingAsItWas) {
    Run_Holds();
    Model_Saved();
    Model_Kept();
    Refresh_Status();
    const Moment before;
    const std::string content = GetParam().content();
    Put_File(In("cut.file"), content.substr(0, content.find('\n', content.size() / 2) + 1));
    desktop.Expect_Open(In("cut.file"));
    if (*GetParam().told_at_reading) desktop.Expect_Message(GetParam().told_at_reading);
    Expect_Report("62   (Input past end of file)", GetParam().reading);
    Read();
    EXPECT_EQ(before.Changed(), "");
    EXPECT_TRUE(Model.SavedFlag);
    EXPECT_EQ(desktop.PointerNow, Pointer::kDefault);
    Expect_Going_On();
}

constexpr Reader_Of kReaders[] = {
    {"Model", Menu_Open, "frm_Homescreen.Open", "", "Read_Newfile", "",
     [] { return Held(std::string(VERLINK_TESTS) + "/fixtures/rev9.vlk"); }},
    {"Cam", Menu_Lobetra, "frm_Homescreen.mnu_Lobetra", "", "Read_Cam_Data", "",
     [] { return Held(std::string(VERLINK_TESTS) + "/fixtures/found/units_below_1.sva"); }},
    {"Link", Menu_Link_Data_Import, "frm_Homescreen.mnu_Link_Data_Import", "", "Import_Linkage_Data", "",
     [] {
         return std::string(
             "2\r\n0\r\n1\r\n0.5\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n0,1,2\r\n3,4,5\r\n6,7,8\r\n");
     }},
    {"Torque", [](Screen&) { Import_Torque(4); }, "Import_Torque", "An error has occurred in the Import_Torque routine",
     "Import_Torque_Data", "An error has occurred in the Import_Torque_Data routine",
     [] { return std::string("2\r\n1.5\r\n-2.5\r\n3.5\r\n"); }},
};

INSTANTIATE_TEST_SUITE_P(All, ReadingFaults, testing::ValuesIn(kReaders),
                         [](const auto& reader) { return std::string(reader.param.name); });

}  // namespace verlink::test
