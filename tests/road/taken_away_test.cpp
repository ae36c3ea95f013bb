// What is saved to be taken away, tables and drawings: the old file or the new one, whatever the system refuses, and
// told.
#include "animation/linkage_dxf.h"
#include "files/table_files.h"
#include "output/model_facts.h"
#include "output/table_sheet.h"
#include "platform/file_system.h"
#include "shell/initialize.h"
#include "tests/dynamics/motion.h"
#include "tests/support/failing_system.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using namespace platform;

/// A desktop whose user names the same file each time, and remembers what was told.
class Naming : public ScriptedDesktop {
   public:
    std::string Path;
    std::vector<std::string> Told;
    Answer Show_Message(const Message& message) override {
        Told.push_back(message.text);
        return Answer::kOk;
    }
    std::optional<std::string> Ask_Save_File(const FileDialog&) override { return Path; }
};

class TakenAway : public Fixture, public testing::WithParamInterface<const char*> {
   protected:
    TakenAway() {
        Initialize();
        Run_Scenario({.name = "millimetres", .units = 5});
        EXPECT_TRUE(Make_Folder(Path("out")));
        naming.Path = Path("out/") + GetParam();
        Use_Desktop(&naming);
    }
    ~TakenAway() override { Use_Desktop(&desktop); }

    void Save() const {
        if (std::string(GetParam()).ends_with(".dxf"))
            return Save_Drawing([] { return Linkage_Dxf(Model, 3); }, "press");
        Save_Table({.sheet =
                        [](int every) {
                            return Table_Sheet(Model, {"a", "b", "c", "d"}, {.every = every});
                        },
                    .model = Model_Facts(Model),
                    .author = "Ada",
                    .name = "press"});
    }
    Naming naming;
};

}  // namespace

TEST_P(TakenAway, LeavesTheOldFileOrTheNewOneWholeAndTellsWhicheverCallFails) {
    const int calls = Expect_Whole_Whatever_Fails({.path = naming.Path,
                                                   .old = "old",
                                                   .write = [&] { Save(); },
                                                   .told = [&] { return std::exchange(naming.Told, {}); }});
    EXPECT_GE(calls, 10);
}

INSTANTIATE_TEST_SUITE_P(All, TakenAway, testing::Values("table.xlsx", "table.csv", "table.txt", "linkage.dxf"),
                         [](const auto& file) {
                             std::string name = file.param;
                             name[name.find('.')] = '_';
                             return name;
                         });

}  // namespace verlink::test
