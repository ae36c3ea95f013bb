// What a file that is opened can do, and what it cannot.
#include <algorithm>
#include <filesystem>

#include "core/runs.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Screen;
using platform::Screens;

namespace {

class OpenedFile : public ModelFiles {
   protected:
    OpenedFile() {
        // Without the screens that come up behind a file that was read.
        Model.JustStarted = true;
        fs::create_directory(Path("in"));
        Put_File(In("secret.txt"), "not to be read");
        Put_File(In("press.vlk"), Naming_Paths());
    }
    std::string In(const std::string& name) const { return Path("in/" + name); }

    /// A model each of whose texts is a path, all but those that have to be numbers.
    std::string Naming_Paths() const {
        std::string content = Held(Fixture_File("torque_table.vlk"));
        const auto lines = Lines(content);
        for (std::size_t i = 2; i < lines.size(); ++i) {
            const bool text = lines[i].starts_with('"') && !(i >= 39 && i <= 41) && i != 53;
            if (text) content = With_Line(content, static_cast<int>(i) + 1, '"' + In("secret.txt") + '"');
        }
        return content;
    }
    void Open(const std::string& name) {
        desktop.Expect_Open(In(name));
        Menu_Open(home);
    }
    static bool Has_Call(const FailingSystem& system, const char* call) {
        return std::find(system.Calls.begin(), system.Calls.end(), call) != system.Calls.end();
    }

    Screen& home = Screens::Get("frm_HomeScreen");
};

}  // namespace

TEST_F(OpenedFile, TakesThePlaceOfTheModelWholeOrNotAtAll) {
    Open("press.vlk");
    EXPECT_EQ(Model.L2, 8.25);
    EXPECT_EQ(Model.FigureTitle, In("secret.txt"));
    Run_Holds();
    const Moment before;
    const std::string whole = Held(In("press.vlk"));
    Put_File(In("cut.vlk"), whole.substr(0, whole.size() / 2));
    desktop.Expect_Open(In("cut.vlk"));
    desktop.Expect_Message_With("Error 62");
    Model_Saved();
    Menu_Open(home);
    Model_Unsaved();
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(OpenedFile, NamesNoPathThatIsOpenedOrAskedAbout) {
    FailingSystem system;
    Open("press.vlk");
    EXPECT_EQ(system.Paths, std::set<std::string>{In("press.vlk")});
}

TEST_F(OpenedFile, NamesNoPathThatIsWritten) {
    Open("press.vlk");
    desktop.Expect_Save({});
    Menu_Saveas(home);
    EXPECT_EQ(desktop.Dialogs.back().file_name, "press.vlk") << "the name is that of the file, and no path";
    FailingSystem system;
    desktop.Expect_Save(In("again.vlk"));
    desktop.Expect_Message("File was successfully written to \r" + In("again.vlk"));
    Menu_Saveas(home);
    for (const std::string& path : system.Paths)
        EXPECT_TRUE(path.starts_with(In("again.vlk")) || path.starts_with(In(".verlink-")) || path == Path("in"))
            << path;
    EXPECT_EQ(Held(In("secret.txt")), "not to be read");
}

TEST_F(OpenedFile, WritesNothing) {
    FailingSystem system;
    Open("press.vlk");
    for (const char* call : {"Open_New", "Write", "Rename", "Link", "Unlink", "Change_Mode"})
        EXPECT_FALSE(Has_Call(system, call)) << call;
}

TEST_F(OpenedFile, ChangesNothingOfTheProgramAroundTheModel) {
    Model.RunMarker = In("marker");
    Model.AppPath = "/opt/verlink";
    Model.SessionUser = "ann";
    const auto around = [] {
        return std::make_tuple(std::string(Model.RunMarker), std::string(Model.AppPath), std::string(Model.SessionUser),
                               std::string(Model.ProgramTag), std::string(Model.RevNumber), bool(Model.FullScreen));
    };
    const auto before = around();
    Open("press.vlk");
    EXPECT_EQ(around(), before);
}

TEST_F(OpenedFile, OfADriveOrATorqueNamesNoPathEither) {
    std::string drive = "2\r\n0\r\n1\r\n0.5\r\n";
    for (int i = 0; i < 12; ++i) drive += '"' + In("secret.txt") + "\"\r\n";
    Put_File(In("stage.out"), drive + "0,1,2\r\n3,4,5\r\n6,7,8\r\n");
    Put_File(In("load.trq"), "2\r\n1.5\r\n-2.5\r\n3.5\r\n\"" + In("secret.txt") + "\"\r\n");
    {
        FailingSystem system;
        desktop.Expect_Open(In("stage.out"));
        Menu_Link_Data_Import(home);
        EXPECT_EQ(Model.Model5Name, "stage.out");
        EXPECT_EQ(system.Paths, std::set<std::string>{In("stage.out")});
    }
    FailingSystem system;
    desktop.Expect_Open(In("load.trq"));
    Import_Torque(4);
    EXPECT_EQ(Model.TorqueFileName, "load.trq");
    EXPECT_EQ(system.Paths, std::set<std::string>{In("load.trq")});
}

}  // namespace verlink::test
