// Processes are told apart, and what dead ones left is swept: theirs alone.
#include "platform/temporaries.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

#include "platform/file_system.h"
#include "platform/process.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;
using namespace platform;

namespace {

/// A process that waits to be killed, and is looked at while it runs, when it is dead, and when it was waited for.
class Child {
   public:
    Child() : number_(::fork()) {
        if (number_ == 0)
            for (;;) ::pause();
    }
    ~Child() { Reap(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    pid_t Number() const { return number_; }
    void Kill() const {
        ::kill(number_, SIGKILL);
        siginfo_t info{};
        ::waitid(P_PID, static_cast<id_t>(number_), &info, WEXITED | WNOWAIT);
    }
    void Reap() {
        if (number_ <= 0) return;
        Kill();
        ::waitpid(number_, nullptr, 0);
        number_ = 0;
    }

   private:
    pid_t number_;
};

/// What a process of that number is, as the process itself would say.
Process Seen(pid_t number) {
    Process process = This_Process();
    process.number = number;
    // Made after this one, and known to the system by a start that is no earlier.
    for (unsigned long long start = process.start;; ++start) {
        process.start = start;
        if (Runs(process)) return process;
    }
}

std::set<std::string> Names_In(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

class TemporariesTest : public Fixture {
   protected:
    TemporariesTest() { Make_Folder(Path("models")); }
    std::string In(const std::string& name) const { return Path("models/" + name); }
    static std::string Dead() {
        Child child;
        const Process process = Seen(child.Number());
        child.Reap();
        return ".verlink-" + Name_Of(process) + "-a1B2c3";
    }
};

TEST(ProcessTest, ThisProcessRunsAndItsNameReadsBack) {
    const Process self = This_Process();
    EXPECT_EQ(self.number, ::getpid());
    EXPECT_GT(self.start, 0U);
    EXPECT_NE(self.boot, 0U);
    EXPECT_TRUE(Runs(self));
    EXPECT_EQ(Process_Of(Name_Of(self)), self);
}

TEST(ProcessTest, TheStartOfTheMachineIsKnownByTheFirstEightDigitsOfItsName) {
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string name;
    ASSERT_TRUE(std::getline(file, name));
    const std::string own = Name_Of(This_Process());
    EXPECT_EQ(own.substr(own.rfind('-') + 1), name.substr(0, 8));
    Process dead = This_Process();
    dead.number = 1 << 22;
    EXPECT_FALSE(Runs(dead)) << "no machine numbers its processes that far";
}

TEST(ProcessTest, AProcessRunsNoMoreOnceItIsDeadWaitedForOrNot) {
    Child child;
    const Process process = Seen(child.Number());
    EXPECT_TRUE(Runs(process));
    child.Kill();
    EXPECT_FALSE(Runs(process)) << "dead, and not waited for";
    child.Reap();
    EXPECT_FALSE(Runs(process));
}

TEST(ProcessTest, AnotherProcessWithTheSameNumberIsNotIt) {
    Process before = This_Process();
    before.start -= 1;
    EXPECT_FALSE(Runs(before));
    before.start = 0;
    EXPECT_TRUE(Runs(before)) << "of which nobody knew when it began";
    Process earlier = This_Process();
    earlier.boot += 1;
    EXPECT_FALSE(Runs(earlier)) << "the machine was started anew since";
}

TEST(ProcessTest, OnlyTheOneSpellingOfAProcessIsItsName) {
    EXPECT_TRUE(Process_Of("12-345-0000abcd"));
    for (const char* name :
         {"", "12", "12-345", "12-345-abcd", "12-345-0000ABCD", "012-345-0000abcd", "-12-345-0000abcd",
          "0-345-0000abcd", "12-345-0000abcd-", "12-345-0000abcd.vlk", " 12-345-0000abcd"})
        EXPECT_FALSE(Process_Of(name)) << name;
}

TEST_F(TemporariesTest, ASaveSweepsWhatADeadProcessLeftBesideTheFile) {
    Write_File(In(Dead()), "half a mod");
    ASSERT_EQ(Names_In(Path("models")).size(), 1U);
    Write_File(In("press.vlk"), "whole");
    EXPECT_EQ(Names_In(Path("models")), std::set<std::string>{"press.vlk"});
}

TEST_F(TemporariesTest, WhatIsNotSurelyItsOwnStays) {
    const std::string dead = Dead();
    const std::string running = fs::path(Temporary_Beside(In("x"))).filename().string();
    Write_File(In(running), "somebody writes here");
    Write_File(In(".verlink-notes"), "the user's");
    Write_File(In(dead + "~"), "a copy of one");
    Write_File(In(dead.substr(1)), "not hidden");
    Write_File(In("aim"), "what a link points to");
    fs::create_symlink(In("aim"), In(dead));
    const std::string other = dead.substr(0, dead.size() - 6) + "folder";
    Make_Folder(In(other));
    Write_File(In(dead.substr(0, dead.size() - 1)), "a place too few");
    Write_File(In(dead + "4"), "one too many");
    const auto before = Names_In(Path("models"));
    Sweep_Temporaries(Path("models"));
    Sweep_Temporaries(Path("gone"));
    EXPECT_EQ(Names_In(Path("models")), before);
    EXPECT_EQ(before.size(), 9U);
}

TEST_F(TemporariesTest, WhoWatchesHearsOfTheFolderBeforeAnythingLiesInIt) {
    static std::string heard;
    static std::size_t then_there;
    heard.clear();
    Watch_Temporaries([](const std::string& folder) {
        heard = folder;
        then_there = Names_In(folder).size();
    });
    Write_File(In("press.vlk"), "whole");
    Watch_Temporaries(nullptr);
    EXPECT_EQ(heard, Path("models"));
    EXPECT_EQ(then_there, 0U);
}

TEST_F(TemporariesTest, AFileWithAModeOfItsOwnHasItWhateverItHadBefore) {
    const auto mode_of = [](const std::string& path) {
        struct stat status {};
        ::stat(path.c_str(), &status);
        return status.st_mode & 07777;
    };
    Write_File(In("copy"), "1", 0600);
    EXPECT_EQ(mode_of(In("copy")), 0600U);
    ::chmod(In("copy").c_str(), 0644);
    Write_File(In("copy"), "2", 0600);
    EXPECT_EQ(mode_of(In("copy")), 0600U);
    EXPECT_EQ(Read_File(In("copy")), "2");
}

}  // namespace
}  // namespace verlink::test
