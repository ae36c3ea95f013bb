// The log of a process, as a later one reads it.
#include "shell/run_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/file_system.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

/// Runs `life` in a process of its own, which then dies without a word of farewell.
template <class Life>
void Live_And_Die(Life life) {
    const pid_t child = ::fork();
    if (child == 0) {
        life();
        ::kill(::getpid(), SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
}

class RunLogTest : public Fixture {
   protected:
    ~RunLogTest() override { End_Run_Log(); }
    std::string Folder() const { return Path("state/verlink/"); }
    std::size_t Files() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(Folder())) ++count;
        return count;
    }
};

TEST_F(RunLogTest, TheFolderAndTheLogAreTheUsersAlone) {
    Begin_Run_Log(Folder());
    struct stat status {};
    ASSERT_EQ(::stat(Folder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
        ASSERT_EQ(::stat(entry.path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600U);
    }
    EXPECT_EQ(Files(), 1U);
    EXPECT_TRUE(Past_Runs(Folder()).empty());
    EXPECT_TRUE(Other_Runs(Folder()).empty()) << "it is no other than itself";
    End_Run_Log();
    EXPECT_EQ(Files(), 0U);
}

TEST(OneLine, HasWhatBreaksALineAndThePercentItselfByTheirNumbers) {
    EXPECT_EQ(In_One_Line("a \nb%\x01"), "a %0Ab%25%01");
    EXPECT_EQ(From_One_Line("a%0Ab%25%01"), "a\nb%\x01");
    EXPECT_EQ(From_One_Line("%7E%1F%09"), "~\x1F\t");
}

TEST(OneLine, KeepsWhatIsNoNumberOfTwoDigits) {
    for (const char* text : {"%", "%4", "50 %", "%g1", "%1g", "%:0", "%0:", "%@0", "%0G", "%/0"})
        EXPECT_EQ(From_One_Line(text), text);
    EXPECT_EQ(From_One_Line(std::string_view("%41").substr(0, 2)), "%4") << "what lies behind is not read";
}

TEST_F(RunLogTest, AKilledProcessIsAPastRunWithoutAnEnd) {
    Live_And_Die([this] { Begin_Run_Log(Folder()); });
    const auto runs = Past_Runs(Folder());
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].end, "");
    Forget_Run(Folder(), runs[0]);
    EXPECT_TRUE(Past_Runs(Folder()).empty());
}

TEST_F(RunLogTest, AFileThatIsNamedLikeAProcessAndIsNoLogIsNoPastRun) {
    Live_And_Die([this] { Begin_Run_Log(Folder()); });
    for (const auto& entry : std::filesystem::directory_iterator(Folder()))
        std::filesystem::rename(entry.path(), std::filesystem::path(entry.path()).replace_extension(".bak"));
    EXPECT_TRUE(Past_Runs(Folder()).empty());
}

TEST_F(RunLogTest, WhatEndedItIsSaidUnlessItWasTakenBack) {
    Live_And_Die([this] {
        Begin_Run_Log(Folder());
        Log_End("the end of the session");
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].end, "the end of the session");
    Forget_Run(Folder(), Past_Runs(Folder())[0]);

    Live_And_Die([this] {
        Begin_Run_Log(Folder());
        Log_End("the end of the session");
        Log_Going_On();
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].end, "");
}

TEST_F(RunLogTest, FoldersThatWereWrittenToAreNotedOnce) {
    platform::Make_Folder(Path("a\nb"));
    Live_And_Die([this] {
        Begin_Run_Log(Folder());
        for (int i = 0; i < 3; ++i) platform::Write_File(Path("a\nb/press.vlk"), "x");
        platform::Write_File(Path("other.vlk"), "x");
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    const std::vector<std::string> folders = {Path("a\nb"), std::filesystem::path(Path("x")).parent_path().string()};
    EXPECT_EQ(Past_Runs(Folder())[0].folders, folders);
}

TEST_F(RunLogTest, ALogThatIsBegunAnewNotesItsFoldersAnewAndHasSaidNoEnd) {
    Live_And_Die([this] {
        Begin_Run_Log(Folder());
        platform::Write_File(Path("press.vlk"), "x");
        Log_End("SIGTERM");
        Begin_Run_Log(Folder());
        platform::Write_File(Path("press.vlk"), "x");
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].folders.size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].end, "");
}

TEST_F(RunLogTest, EachLineStandsThereOnceAndAnEndIsTakenBackOnlyWhereThereWasOne) {
    Begin_Run_Log(Folder());
    Log_End("SIGTERM");
    Begin_Run_Log(Folder());
    Log_Going_On();
    Log_End("SIGHUP");
    for (int i = 0; i < 3; ++i) Log_Going_On();
    Log_End(std::string(100, 'x').c_str());
    EXPECT_EQ(platform::Read_File(Folder() + platform::Name_Of(platform::This_Process()) + ".run"),
              "running\nend SIGHUP\ngoing on\nend " + std::string(75, 'x') + "\n");
}

TEST_F(RunLogTest, ARunningProcessIsNoPastRun) {
    int ready[2], over[2];
    ASSERT_EQ(::pipe(ready), 0);
    ASSERT_EQ(::pipe(over), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(over[1]);
        Begin_Run_Log(Folder());
        char byte = 'x';
        if (::write(ready[1], &byte, 1) != 1 || ::read(over[0], &byte, 1) < 0) ::_exit(1);
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    ASSERT_EQ(Other_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Other_Runs(Folder())[0].number, child);
    EXPECT_TRUE(Past_Runs(Folder()).empty());
    for (const int end : {over[0], over[1]}) ::close(end);
    ::waitpid(child, nullptr, 0);
    for (const int end : {ready[0], ready[1]}) ::close(end);
    EXPECT_TRUE(Other_Runs(Folder()).empty());
    EXPECT_EQ(Past_Runs(Folder()).size(), 1U);
}

TEST_F(RunLogTest, WithoutALogNothingIsNoted) {
    Log_End("SIGTERM");
    Log_Going_On();
    EXPECT_FALSE(platform::File_Exists(Folder()));
    // Nor into what the process has open.
    const int caught = ::open(Path("caught").c_str(), O_RDWR | O_CREAT, 0600);
    const int kept[] = {::dup(0), ::dup(1)};
    for (const int used : {0, 1}) ::dup2(caught, used);
    Log_End("SIGTERM");
    for (const int used : {0, 1}) {
        ::dup2(kept[used], used);
        ::close(kept[used]);
    }
    ::close(caught);
    EXPECT_EQ(platform::Read_File(Path("caught")), "");
}

TEST_F(RunLogTest, AFolderThatCannotBeMadeIsAFailure) {
    platform::Write_File(Path("state"), "a file");
    EXPECT_THROW(Begin_Run_Log(Folder()), platform::RuntimeFailure);
}

}  // namespace
}  // namespace verlink::test
