// The models opened and saved last, and where file dialogs start.
#include "files/recent_files.h"

#include <filesystem>

#include "files/drive_import.h"
#include "files/exports.h"
#include "files/in_hand.h"
#include "platform/settings.h"
#include "tests/files/model_files.h"

namespace verlink::test {
namespace {

namespace fs = std::filesystem;
using platform::Screens;
using platform::The_Settings;

class RecentFiles : public ModelFiles {
   protected:
    RecentFiles() {
        The_Settings().Open(Path("config"));
        Take_Full_Turn();
        Run_Holds();
        Model_Kept();
    }
    platform::Screen& Home() { return Screens::Get("frm_HomeScreen"); }
    std::string Made(const std::string& name) {
        std::string path = Path(name);
        fs::create_directories(fs::path(path).parent_path());
        Put_File(path, File_Content());
        return path;
    }
    void Save_As(const std::string& path) {
        Model_Unsaved();
        desktop.Expect_Save(path);
        desktop.Expect_Message_With("successfully written");
        Menu_Saveas(Home());
    }
};

TEST_F(RecentFiles, WhatWasOpenedOrSavedStandsFirstAndOnce) {
    const std::string a = Made("a.vlk"), b = Made("b.vlk");
    EXPECT_FALSE(Any_Recent());
    for (const std::string& path : {a, b, a}) {
        desktop.Expect_Open(path);
        Expect_Read(path);
        Menu_Open(Home());
    }
    EXPECT_EQ(Recent_Files(), (std::vector<std::string>{a, b}));
    Save_As(Path("c.vlk"));
    EXPECT_EQ(Recent_Files(), (std::vector<std::string>{Path("c.vlk"), a, b}));
    EXPECT_TRUE(Any_Recent());
}

TEST_F(RecentFiles, AFileThatWasRefusedOrIsNoModelIsNone) {
    Put_File(Path("foreign.vlk"), "something else");
    desktop.Expect_Open(Path("foreign.vlk"));
    desktop.Expect_Message_With("This data file is not compatible");
    Menu_Open(Home());
    Model_Unsaved();
    desktop.Expect_Save(Path("motion.out"));
    desktop.Expect_Message_With("has been written to");
    Menu_Link_Data_Export(Home());
    EXPECT_FALSE(Any_Recent());
}

TEST_F(RecentFiles, TenAreShownAndThoseThatAreGoneLeaveTheirPlaceToOthers) {
    std::vector<std::string> made;
    for (int i = 0; i < 12; ++i) {
        made.insert(made.begin(), Made("m" + std::to_string(i) + ".vlk"));
        Note_Recent(made.front());
    }
    EXPECT_EQ(Recent_Files(), std::vector<std::string>(made.begin(), made.begin() + 10));
    fs::remove(made[0]);
    fs::remove(made[4]);
    fs::create_directory(made[4]);
    made.erase(made.begin() + 4);
    made.erase(made.begin());
    EXPECT_EQ(Recent_Files(), made);
}

TEST_F(RecentFiles, ThirtyAreKeptForWhenThoseBeforeThemAreGone) {
    for (int i = 1; i <= 40; ++i) Note_Recent(Path("m" + std::to_string(i) + ".vlk"));
    const auto kept = The_Settings().List("recent");
    ASSERT_EQ(kept.size(), 30U);
    EXPECT_EQ(kept.front(), Path("m40.vlk"));
    EXPECT_EQ(kept.back(), Path("m11.vlk"));
}

TEST_F(RecentFiles, TheyAreThereInTheNextSessionAndThoseOfAnotherOneAtTheSameTimeToo) {
    const std::string a = Made("a.vlk"), b = Made("b.vlk");
    Note_Recent(a);
    platform::Settings other;
    other.Open(Path("config"));
    EXPECT_EQ(other.List("recent"), std::vector<std::string>{a});
    other.Put("recent", std::vector<std::string>{b, a});
    other.Save();
    Note_Recent(a);
    EXPECT_EQ(Recent_Files(), (std::vector<std::string>{a, b}));
}

TEST_F(RecentFiles, APathIsKeptWhole) {
    const std::string path = Made("sub/a.vlk");
    Note_Recent(fs::relative(path).string());
    EXPECT_EQ(Recent_Files(), std::vector<std::string>{fs::path(path).lexically_normal().string()});
}

// Dialogs.

TEST_F(RecentFiles, ADialogStartsWhereTheLastFileOfItsKindWas) {
    Save_As(Made("models/a.vlk"));
    fs::create_directories(Path("drives"));
    desktop.Expect_Save(Path("drives/a.out"));
    desktop.Expect_Message_With("has been written to");
    Menu_Link_Data_Export(Home());
    EXPECT_EQ(desktop.Dialogs.back().kind, "drive");
    EXPECT_EQ(desktop.Dialogs.back().folder, "") << "nothing of that kind before";

    desktop.Expect_Open(std::nullopt);
    Menu_Open(Home());
    EXPECT_EQ(desktop.Dialogs.back().kind, "model");
    EXPECT_EQ(desktop.Dialogs.back().folder, Path("models"));
    desktop.Expect_Open(std::nullopt);
    Menu_Lobetra(Home());
    EXPECT_EQ(desktop.Dialogs.back().folder, Path("drives")) << "drive data is one kind, coming and going";
    Model_Saved();
    desktop.Expect_Save(std::nullopt);
    Menu_Export_Torque(Home());
    EXPECT_EQ(desktop.Dialogs.back().kind, "torque");
    EXPECT_EQ(desktop.Dialogs.back().folder, "");
}

TEST_F(RecentFiles, ACancelledDialogMovesNothing) {
    The_Settings().Put("folder.model", Path("there"));
    desktop.Expect_Open(std::nullopt);
    Menu_Open(Home());
    EXPECT_EQ(The_Settings().Text("folder.model"), Path("there"));
}

}  // namespace
}  // namespace verlink::test
