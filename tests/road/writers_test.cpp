// Every file that the program writes for itself or for its user: old or new, whatever the system refuses, and told.
#include <algorithm>
#include <filesystem>

#include "core/runs.h"
#include "dynamics/units.h"
#include "files/exports.h"
#include "files/model_file.h"
#include "output/catalogue.h"
#include "output/tables.h"
#include "platform/guard.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/failing_system.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using namespace platform;

constexpr char kName[] = "a.file";

/// A desktop whose user names the same file each time, and remembers what was told.
class Recording : public ScriptedDesktop {
   public:
    std::string Path;
    std::vector<std::string> Told;
    Answer Show_Message(const Message& message) override {
        Told.push_back(message.text);
        return Answer::kOk;
    }
    std::optional<std::string> Ask_Save_File(const FileDialog&) override { return Path; }
};

struct Writer {
    const char* name;
    const char* old;
    void (*write)(const std::string& path);
    bool reads_first = false;
};

Screen& Home() { return Screens::Get("frm_HomeScreen"); }

void Save_Unasked(const std::string& path) {
    Model.FilePath = path;
    Model_Saved();
    Menu_Save(Home());
}

void Write_Table(const std::string& path) {
    Guarded("frm_PrintSelect.cmd_Done", [&] {
        Open_Data_File(path);
        Print_to_File();
        Close_Data_File();
    });
}

void Mark_Running(const std::string& path) {
    Model.RunMarker = path;
    std::string context;
    Write_Checkfile(context);
}

constexpr Writer kWriters[] = {
    {"SaveAs", "old", [](const std::string&) { Menu_Saveas(Home()); }},
    {"Save", "\"VERLINK\",\"9.0\"", Save_Unasked},
    {"SaveOverWhatIsNoModel", "an export of another day", Save_Unasked},
    {"MotionOfLink4", "old", [](const std::string&) { Menu_Link_Data_Export(Home()); }},
    {"DrivingTorque", "old", [](const std::string&) { Menu_Export_Torque(Home()); }},
    {"Pendrix", "old", [](const std::string&) { Menu_pdx(Home()); }},
    {"Table", "old", Write_Table},
    {"MarkerOfARun", "old", Mark_Running},
    {"MarkerOfItsEnd", "old",
     [](const std::string& path) {
         Model.RunMarker = path;
         Terminate();
     },
     true},
};

class Writers : public Fixture, public testing::WithParamInterface<Writer> {
   protected:
    Writers() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.NSteps = 72;
        Model.ThetaStartRad = 0;
        Model.ThetaStepRad = 5 * kDegToRad;
        Model.ThetaEndRad = 360 * kDegToRad;
        Integer Result = 0;
        Calc_Setup(3, Result);
        std::filesystem::create_directory(Path("out"));
        recording.Path = Path("out/") + kName;
        Use_Desktop(&recording);
    }
    ~Writers() override { Use_Desktop(&desktop); }
    Recording recording;
};

}  // namespace

TEST_P(Writers, LeaveTheOldFileOrTheNewOneWholeAndTellWhicheverCallFails) {
    const std::string path = recording.Path;
    const int calls = Expect_Whole_Whatever_Fails({.path = path,
                                                   .old = GetParam().old,
                                                   .write = [&] { GetParam().write(path); },
                                                   .told = [&] { return std::exchange(recording.Told, {}); },
                                                   .reads_first = GetParam().reads_first});
    EXPECT_GE(calls, 10);
}

TEST_P(Writers, TellOfAFullDiskByNameAndReasonBehindTheUsualWords) {
    const std::string path = recording.Path;
    int write = 0;
    {
        FailingSystem system;
        GetParam().write(path);
        const auto first = std::find(system.Calls.begin(), system.Calls.end(), "Write");
        write = static_cast<int>(first - system.Calls.begin()) + 1;
    }
    recording.Told.clear();
    std::filesystem::remove_all(Path("out"));
    std::filesystem::create_directory(Path("out"));
    {
        FailingSystem system(write, ENOSPC);
        GetParam().write(path);
        ASSERT_EQ(system.Failed(), "Write");
    }
    ASSERT_EQ(recording.Told.size(), 1U);
    const std::string& told = recording.Told[0];
    EXPECT_TRUE(told.starts_with("Error 61   (Disk full)  has occurred in ")) << told;
    EXPECT_TRUE(told.ends_with("\r\n\r\n The floppy disk in the drive is full - please substitute another\r\n\r\n" +
                               path + "\rcannot be written: the disk is full."))
        << told;
    EXPECT_FALSE(std::filesystem::exists(path));
}

INSTANTIATE_TEST_SUITE_P(All, Writers, testing::ValuesIn(kWriters),
                         [](const auto& writer) { return std::string(writer.param.name); });

}  // namespace verlink::test
