// The file of tasks beside a model: written with it, read with it, and never lost by it.
#include "files/task_file.h"

#include <chrono>
#include <filesystem>

#include "core/model_on_screens.h"
#include "files/in_hand.h"
#include "platform/file_system.h"
#include "tests/files/model_files.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Screens;

/// As screens write them.
const std::string kDesign =
    "{\n  \"format\": \"verlink-design\",\n  \"version\": 1,\n  \"kind\": \"motion\",\n  \"positions\": []\n}\n";
const std::string kStudies = "{\n  \"version\": 1\n}\n";

class TaskFile : public ModelFiles {
   protected:
    TaskFile() {
        std::filesystem::create_directory(Path("models"));
        Take_Full_Turn();
        Model_Came();
        Model_Unsaved();
    }
    std::string In(const std::string& name) const { return Path("models/" + name); }
    void Save_As(const std::string& name) {
        desktop.Expect_Save(In(name));
        desktop.Expect_Message("File was successfully written to \r" + In(name), Answer::kOk, Icon::kInformation,
                               Buttons::kOk);
        Menu_Saveas(home);
    }
    /// Where Save does not ask.
    void Save() {
        Model_Saved();
        desktop.Expect_Message("File was successfully written to \r" + Model.FilePath);
        Menu_Save(home);
    }
    void Open(const std::string& name) {
        desktop.Expect_Open(In(name));
        Expect_Read(In(name));
        Menu_Open(home);
    }
    void Expect_Unread(const std::string& why) {
        desktop.Expect_Message(
            "The tasks beside this model cannot be read: " + why + ". \r" + In("a.vld") + " stays as it is.",
            Answer::kOk, Icon::kExclamation);
    }

    platform::Screen& home = Screens::Get("frm_HomeScreen");
};

}  // namespace

TEST_F(TaskFile, BothTasksAreOneTextAndTwoAgain) {
    EXPECT_EQ(Tasks_Text({}), "");
    for (const Tasks& tasks : {Tasks{kDesign, kStudies}, Tasks{kDesign, ""}, Tasks{"", kStudies}}) {
        Tasks back;
        std::string fault;
        ASSERT_TRUE(Take_Tasks(Tasks_Text(tasks), back, fault)) << fault;
        EXPECT_EQ(back.DesignTask, tasks.DesignTask);
        EXPECT_EQ(back.StudySettings, tasks.StudySettings);
    }
    EXPECT_NE(Tasks_Text({"", kStudies}).find("\"format\": \"verlink-design\""), std::string::npos);
}

TEST_F(TaskFile, LettersStandInItAsTheyAreAndBytesThatAreNoneAsAMark) {
    Tasks tasks, back;
    std::string fault;
    tasks.StudySettings = "{\"title\": \"gr\xC3\xB6\xC3\x9F\"}";
    EXPECT_NE(Tasks_Text(tasks).find("\"title\": \"gr\xC3\xB6\xC3\x9F\"\n"), std::string::npos) << Tasks_Text(tasks);
    ASSERT_TRUE(Take_Tasks(Tasks_Text(tasks), back, fault));
    EXPECT_EQ(back.StudySettings, "{\n  \"title\": \"gr\xC3\xB6\xC3\x9F\"\n}\n");
}

TEST_F(TaskFile, WhatIsNoneOrNewerIsRefusedInWords) {
    const auto fault = [](const std::string& text) {
        Tasks tasks{kDesign, kStudies};
        std::string words;
        EXPECT_FALSE(Take_Tasks(text, tasks, words)) << text;
        EXPECT_EQ(tasks.DesignTask, kDesign);
        EXPECT_EQ(tasks.StudySettings, kStudies);
        return words;
    };
    EXPECT_EQ(fault("{\"format\": \"verl"), "it is no JSON");
    EXPECT_EQ(fault(""), "it is no JSON");
    EXPECT_EQ(fault("[1, 2]"), "it is no file of tasks");
    EXPECT_EQ(fault("{\"format\": \"other\", \"version\": 1}"), "it is no file of tasks");
    EXPECT_EQ(fault("{\"version\": 1}"), "it is no file of tasks");
    EXPECT_EQ(fault("7"), "it is no file of tasks");
    EXPECT_EQ(fault("{\"format\": \"verlink-design\"}"), "the field version is missing");
    EXPECT_EQ(fault("{\"format\": \"verlink-design\", \"version\": 1.5}"), "the field version is missing");
    EXPECT_EQ(fault("{\"format\": \"verlink-design\", \"version\": 2}"), "it was written by a newer program");
    EXPECT_EQ(fault("{\"format\": \"verlink-design\", \"version\": 1, \"studies\": 5}"),
              "the field studies is to be an object");
}

TEST_F(TaskFile, IsSavedWithTheModelAndComesBackWithIt) {
    Model.DesignTask = kDesign;
    Model.StudySettings = kStudies;
    EXPECT_TRUE(Modified());
    Save_As("a.vlk");
    EXPECT_FALSE(Modified());
    EXPECT_EQ(platform::Read_File(In("a.vld")), Tasks_Text(Model));
    static_cast<Tasks&>(Model) = {};
    Model_Came();
    Open("a.vlk");
    EXPECT_EQ(Model.DesignTask, kDesign);
    EXPECT_EQ(Model.StudySettings, kStudies);
    EXPECT_FALSE(Modified());
    Model.StudySettings.clear();
    EXPECT_TRUE(Modified());
    Save();
    EXPECT_EQ(platform::Read_File(In("a.vld")), kDesign);
}

TEST_F(TaskFile, ThatHasNotChangedIsNotWrittenAgain) {
    Model.DesignTask = kDesign;
    Save_As("a.vlk");
    const auto long_ago = std::filesystem::last_write_time(In("a.vld")) - std::chrono::hours(5);
    std::filesystem::last_write_time(In("a.vld"), long_ago);
    Save();
    EXPECT_EQ(std::filesystem::last_write_time(In("a.vld")), long_ago);
    Model.StudySettings = kStudies;
    Save();
    EXPECT_GT(std::filesystem::last_write_time(In("a.vld")), long_ago);
}

TEST_F(TaskFile, IsNotThereForAModelWithoutTasksAndGoesWithTheLast) {
    Save_As("a.vlk");
    EXPECT_FALSE(platform::File_Exists(In("a.vld")));
    Model.DesignTask = kDesign;
    Save();
    EXPECT_TRUE(platform::File_Exists(In("a.vld")));
    Model.DesignTask.clear();
    Save();
    EXPECT_FALSE(platform::File_Exists(In("a.vld")));
}

TEST_F(TaskFile, OfAnotherModelIsKeptAndDoesNotComeWithThisOne) {
    Put_File(In("a.vld"), Tasks_Text({kDesign, kStudies}));
    desktop.Expect_Save(In("a.vlk"));
    desktop.Expect_Message("File was successfully written to \r" + In("a.vlk"));
    desktop.Expect_Message("The file of tasks that was there is another one's.  It is kept as \r" + In("a.vld~"),
                           Answer::kOk, Icon::kInformation);
    Menu_Saveas(home);
    EXPECT_FALSE(platform::File_Exists(In("a.vld")));
    EXPECT_EQ(platform::Read_File(In("a.vld~")), Tasks_Text({kDesign, kStudies}));
    // One that somebody else has written meanwhile neither.
    Model.DesignTask = kDesign;
    Put_File(In("a.vld"), "somebody's");
    desktop.Expect_Message("File was successfully written to \r" + In("a.vlk"));
    desktop.Expect_Message("The file of tasks that was there is another one's.  It is kept as \r" + In("a.vld~~"));
    Menu_Save(home);
    EXPECT_EQ(platform::Read_File(In("a.vld")), kDesign);
    EXPECT_EQ(platform::Read_File(In("a.vld~~")), "somebody's");
}

TEST_F(TaskFile, ThatCannotBeReadIsToldAndStaysUntilThereIsATask) {
    Save_As("a.vlk");
    Put_File(In("a.vld"), "{broken");
    desktop.Expect_Open(In("a.vlk"));
    Expect_Unread("it is no JSON");
    Expect_Read(In("a.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.DesignTask, "");
    EXPECT_FALSE(Modified());
    Save();
    Save();
    EXPECT_EQ(platform::Read_File(In("a.vld")), "{broken");
    Model.DesignTask = kDesign;
    desktop.Expect_Message("File was successfully written to \r" + In("a.vlk"));
    desktop.Expect_Message("The file of tasks that was there is another one's.  It is kept as \r" + In("a.vld~"));
    Menu_Save(home);
    EXPECT_EQ(platform::Read_File(In("a.vld~")), "{broken");
    Open("a.vlk");
    EXPECT_EQ(Model.DesignTask, kDesign);
}

TEST_F(TaskFile, ThatCannotBeWrittenLeavesTheModelModified) {
    Save_As("a.vlk");
    std::filesystem::create_directory(In("a.vld"));
    Model.DesignTask = kDesign;
    desktop.Expect_Message("File was successfully written to \r" + In("a.vlk"));
    desktop.Expect_Message("Error 75   (Path/File access error)  has occurred in Writefile\r\n\r\n" + In("a.vld") +
                           "\rcannot be read: it is a folder.");
    Menu_Save(home);
    EXPECT_TRUE(Modified());
    EXPECT_EQ(Model.DesignTask, kDesign);
}

TEST_F(TaskFile, ThatTheSystemDoesNotGiveIsNotReadAndSaysWhy) {
    platform::Write_File(In("a.vld"), kDesign);
    EXPECT_EQ(Find_Tasks(In("a.vlk")).tasks.DesignTask, kDesign);
    class Refusing : public FailingSystem {
       public:
        int Open(const std::string& path, int flags) override {
            if (!path.ends_with(".vld")) return FailingSystem::Open(path, flags);
            errno = EIO;
            return -1;
        }
    } refusing;
    const Tasks_Found found = Find_Tasks(In("a.vlk"));
    EXPECT_EQ(found.tasks.DesignTask, "");
    EXPECT_NE(found.fault.find("a.vld"), std::string::npos) << found.fault;
    EXPECT_NE(found.fault.find("cannot be read"), std::string::npos) << found.fault;
}

}  // namespace verlink::test
