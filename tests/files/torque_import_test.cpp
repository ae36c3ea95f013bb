// The import of a torque table: its length, its dialog, and what it leaves on the dynamics screen.
#include <filesystem>

#include "core/model_on_screens.h"
#include "dynamics/mass_properties.h"
#include "files/in_hand.h"
#include "tests/files/drive_files.h"

namespace verlink::test {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Buttons;
using platform::CommandButton;
using platform::Icon;
using platform::Screens;

namespace {

constexpr char kIncompatible[] = "This file has a different number of data than your current model and is incompatible";

/// A table of so many steps: 0, 0.5, 1, ...
std::string Table(int steps) {
    std::string content = std::to_string(steps) + "\r\n";
    for (int step = 0; step <= steps; ++step) content += std::to_string(step / 2) + (step % 2 ? ".5\r\n" : "\r\n");
    return content;
}

}  // namespace

class TorqueImport : public DriveFiles {
   protected:
    TorqueImport() {
        fs::create_directory(Path("loads"));
        Model.NSteps = 360;
        Model.ExtTorque(4) = 7;
        Model.FilePath = In("model.vlk");
        Model.RunTable.ImportedTorque(1) = 0.25;
        Model_Saved();
        Model_Kept();
        Put_Mass_Properties(form, Model, Model);
        // Typed, and not solved with yet.
        Box().Text = "12.5";
    }
    std::string In(const std::string& name) const { return Path("loads/" + name); }
    std::string File(const std::string& name, const std::string& content) const {
        Put_File(In(name), content);
        return In(name);
    }
    bool Failed(const std::string& content) {
        TextReader reader(content);
        bool Failed = false;
        Import_Torque_Data(reader, Failed);
        return Failed;
    }
    void Expect_Broken(int number, const std::string& words) {
        desktop.Expect_Message("An error has occurred in the Import_Torque_Data routine", Answer::kOk, Icon::kNone);
        Expect_Failure(number, words, "Import_Torque_Data");
    }
    /// Ticks the box, which comes to nothing: record, table, flags and the whole screen are as they were.
    void Tick_For_Nothing() {
        const Moment before;
        Tick(form, "chk_Torque", true);
        EXPECT_EQ(before.Changed(), "");
        EXPECT_FALSE(Chk().Value);
        EXPECT_TRUE(Box().Enabled);
        EXPECT_EQ(Box().Text.Get(), "12.5");
        EXPECT_TRUE(Solve().Enabled);
        EXPECT_FALSE(Model.TorqueImported);
        EXPECT_TRUE(Model.SavedFlag);
    }
    platform::CheckBox& Chk() const { return form.Get<platform::CheckBox>("chk_Torque"); }
    platform::TextBox& Box() const { return form.Text("txt_Torque", 4); }
    CommandButton& Solve() const { return form.Get<CommandButton>("cmd_Solve"); }

    platform::Screen& form = Screens::Get("frm_MassProp");
};

TEST_F(TorqueImport, ATableOf361ValuesReadsWithARunOf360Steps) {
    EXPECT_FALSE(Failed(Table(360)));
    for (int step = 0; step <= 360; ++step) EXPECT_EQ(Model.RunTable.ImportedTorque(step), step / 2.0) << step;
    Model.NSteps = 0;
    EXPECT_FALSE(Failed("0\r\n-2.5\r\n"));
    EXPECT_EQ(Model.RunTable.ImportedTorque(0), -2.5);
}

TEST_F(TorqueImport, ATableOfAnotherLengthIsRefusedUnread) {
    Model.NSteps = 180;
    const Moment before;
    desktop.Expect_Message(kIncompatible, Answer::kOk, Icon::kExclamation, Buttons::kOk);
    EXPECT_TRUE(Failed(Table(360)));
    EXPECT_EQ(before.Changed(), "");
}

TEST_F(TorqueImport, AnUnreadableTableIsToldReportedAndTheOneOfBeforeStays) {
    const Moment before;
    Expect_Broken(62, "Input past end of file");
    EXPECT_TRUE(Failed(""));
    Expect_Broken(13, "Type mismatch");
    EXPECT_TRUE(Failed("many\r\n"));
    Expect_Broken(6, "Overflow");
    EXPECT_TRUE(Failed("32768\r\n"));
    Expect_Broken(62, "Input past end of file");
    EXPECT_TRUE(Failed("360\r\n1\r\n2\r\n"));
    EXPECT_EQ(before.Changed(), "");
    EXPECT_EQ(Model.RunTable.ImportedTorque(1), 0.25);
}

TEST_F(TorqueImport, TheTorqueOfOneStageIsTheLoadOfAnother) {
    Model.NSteps = 2;
    Model.RunTable.LinkTorque(0, 0) = 1.5;
    Model.RunTable.LinkTorque(2, 0) = -2.0 / 3;
    Forces_Hold();
    EXPECT_FALSE(Failed(Torque_Content()));
    EXPECT_EQ(Model.RunTable.ImportedTorque(0), 1.5);
    EXPECT_EQ(Model.RunTable.ImportedTorque(1), 0);
    EXPECT_EQ(Model.RunTable.ImportedTorque(2), Stored(-0.6666667F));
}

TEST_F(TorqueImport, TheBoxAsksForAFileAndSaysThatItWasRead) {
    form.Get<platform::CommonDialog>("CommonDialog1").FilterIndex = 2;
    const std::string path = File("press.trq", Table(360));
    desktop.Expect_Open(path);
    desktop.Expect_Message("File " + path + " of Torque data successfully read.", Answer::kOk, Icon::kInformation,
                           Buttons::kOk);
    Tick(form, "chk_Torque", true);
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Open a Torque Data file");
    EXPECT_EQ(desktop.Dialogs[0].filter, "Torque Import (*.trq)|*.trq|(*.*)|*.*|");
    EXPECT_EQ(desktop.Dialogs[0].filter_index, 1);
    EXPECT_EQ(desktop.Dialogs[0].file_name, "*.trq");
    EXPECT_EQ(desktop.Dialogs[0].kind, "torque");
    EXPECT_EQ(Model.FilePath, path);
    EXPECT_EQ(Model.TorqueFileName, "press.trq");
    EXPECT_TRUE(Model.TorqueImported);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_TRUE(Chk().Value);
    EXPECT_TRUE(Solve().Enabled);
    EXPECT_EQ(Box().Text, "0");
    EXPECT_FALSE(Box().Enabled);
    EXPECT_EQ(Model.RunTable.ImportedTorque(4), 2);
}

TEST_F(TorqueImport, WithARunOf180StepsEverythingStaysAndTheNextSaveGoesWhereItDid) {
    Model.NSteps = 180;
    const std::string path = File("press.trq", Table(360));
    desktop.Expect_Open(path);
    desktop.Expect_Message(kIncompatible);
    Tick_For_Nothing();
    EXPECT_EQ(Model.FilePath, In("model.vlk"));
    EXPECT_EQ(Model.TorqueFileName, "");
}

TEST_F(TorqueImport, ABrokenTableLeavesEverything) {
    desktop.Expect_Open(File("broken.trq", "360\r\n1\r\n"));
    Expect_Broken(62, "Input past end of file");
    Tick_For_Nothing();
}

TEST_F(TorqueImport, ACancelledDialogLeavesEverythingAndSaysNothing) {
    desktop.Expect_Open({});
    Tick_For_Nothing();
}

TEST_F(TorqueImport, ATableThatIsNoneInPlaceOfOneThatWasUnticksTheBox) {
    desktop.Expect_Open(File("press.trq", Table(360)));
    desktop.Expect_Message_With("of Torque data successfully read.");
    Tick(form, "chk_Torque", true);
    ASSERT_TRUE(Chk().Value);
    Expect_Broken(62, "Input past end of file");
    Import_Torque(4, File("broken.trq", "360\r\n1\r\n"));
    EXPECT_FALSE(Chk().Value);
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_TRUE(Box().Enabled);
}

TEST_F(TorqueImport, ACancelledDialogInPlaceOfATableUnticksTheBox) {
    desktop.Expect_Open(File("press.trq", Table(360)));
    desktop.Expect_Message_With("of Torque data successfully read.");
    Tick(form, "chk_Torque", true);
    ASSERT_TRUE(Chk().Value);
    desktop.Expect_Open({});
    Import_Torque(4);
    EXPECT_FALSE(Chk().Value);
    EXPECT_TRUE(Box().Enabled);
}

TEST_F(TorqueImport, ATableThatIsNoneLeavesNoneAndNothingThatCannotBeTypedOrSolvedAlsoWhereTheBoxIsUnticked) {
    Model.TorqueImported = true;
    Box().Enabled = false;
    Solve().Enabled = false;
    Expect_Broken(62, "Input past end of file");
    Import_Torque(4, File("broken.trq", "360\r\n1\r\n"));
    EXPECT_FALSE(Model.TorqueImported);
    EXPECT_TRUE(Box().Enabled);
    EXPECT_TRUE(Solve().Enabled);
}

TEST_F(TorqueImport, ACancelledDialogLeavesNothingThatCannotBeTypedOrSolved) {
    Box().Enabled = false;
    Solve().Enabled = false;
    desktop.Expect_Open({});
    Import_Torque(4);
    EXPECT_TRUE(Box().Enabled);
    EXPECT_TRUE(Solve().Enabled);
}

TEST_F(TorqueImport, AFileThatIsNotThereIsToldAndReportedAndLeavesEverything) {
    desktop.Expect_Open(In("none.trq"));
    desktop.Expect_Message("An error has occurred in the Import_Torque routine", Answer::kOk, Icon::kInformation,
                           Buttons::kOk);
    desktop.Expect_Message(
        "Error 53   (File not found)  has occurred in Import_Torque\r\n\r\n"
        "There are no files with your chosen name in the selected directory\r\n\r\n" +
            In("none.trq") + "\rcannot be read: there is no such file.",
        Answer::kOk, Icon::kInformation);
    Tick_For_Nothing();
}

TEST_F(TorqueImport, WhileTheProgramStartsNothingIsSaid) {
    Model.JustStarted = true;
    desktop.Expect_Open(File("press.trq", Table(360)));
    Import_Torque(4);
    EXPECT_TRUE(Model.TorqueImported);
}

TEST_F(TorqueImport, ARefreshedPanelShowsThatTheModelIsUnsaved) {
    Run_Holds();
    Model_Saved();
    Refresh_Status();
    const auto& saved = Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 8);
    ASSERT_TRUE(saved.Visible);
    desktop.Expect_Open(File("press.trq", Table(360)));
    desktop.Expect_Message_With("of Torque data successfully read.");
    Import_Torque(4);
    EXPECT_FALSE(saved.Visible);
}

}  // namespace verlink::test
