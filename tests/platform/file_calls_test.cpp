// What the system refuses a reader or writer, call by call; what is no file; and links that others may have put there.
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <set>
#include <thread>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/links.h"
#include "tests/support/failing_system.h"
#include "tests/support/files.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;
using namespace platform;

namespace {

/// The number of the call that comes first under that name when something is written.
template <class Action>
int Number_Of(const std::string& call, Action action) {
    FailingSystem system;
    action();
    for (std::size_t i = 0; i < system.Calls.size(); ++i)
        if (system.Calls[i] == call) return static_cast<int>(i) + 1;
    ADD_FAILURE() << "no " << call;
    return 0;
}

class FileCalls : public Fixture {
   protected:
    FileCalls() { fs::create_directory(Path("files")); }
    std::string In(const std::string& name) const { return Path("files/" + name); }

    /// Tries an action; gives back the number of its failure and, behind a blank, what is the matter.
    template <class Action>
    static std::string Matter(Action action) {
        const auto failure = What_Failed(action);
        return failure ? std::to_string(failure->Number()) + " " + failure->Trouble().matter : "none";
    }
    std::vector<std::string> Told_By(const std::function<void()>& action) {
        if (const auto failure = What_Failed(action)) told_.push_back(failure->Trouble().Words());
        return told_;
    }
    void Expect_Whole(const std::string& path, const std::string& old, const std::function<void()>& write, int most) {
        const int calls = Expect_Whole_Whatever_Fails({.path = path,
                                                       .old = old,
                                                       .write = [&] { Told_By(write); },
                                                       .told = [&] { return std::exchange(told_, {}); }});
        EXPECT_GE(calls, most);
    }

   private:
    std::vector<std::string> told_;
};

}  // namespace

// ---- each call in turn --------------------------------------------------------------------------------------------

TEST_F(FileCalls, EachCallOfAWriteMayFail) {
    Expect_Whole(
        In("a.vlk"), "old", [&] { Write_File(In("a.vlk"), "new"); }, 14);
}

TEST_F(FileCalls, EachCallOfAWriteThatKeepsTheOldFileMayFail) {
    Expect_Whole(
        In("a.vlk"), "old", [&] { Write_File_And_Keep(In("a.vlk"), "new"); }, 17);
}

TEST_F(FileCalls, AFolderThatCouldNotBeFlushedKeepsWhatWasKept) {
    Put_File(In("a.vlk"), "old");
    const auto write = [&] { Write_File_And_Keep(In("a.vlk"), "new"); };
    const int rename = Number_Of("Rename", write);
    fs::remove(In("a.vlk~"));
    Put_File(In("a.vlk"), "old");
    FailingSystem system(rename + 1);
    EXPECT_EQ(Matter(write), "57 the system says \"Input/output error\"");
    EXPECT_EQ(system.Failed(), "Flush");
    EXPECT_EQ(Held(In("a.vlk")), "new");
    EXPECT_EQ(Held(In("a.vlk~")), "old");
}

TEST_F(FileCalls, ARefusedChangeOfModeIsNoReasonToLoseASave) {
    Put_File(In("a.vlk"), "old");
    const auto write = [&] { Write_File(In("a.vlk"), "new"); };
    const int call = Number_Of("Change_Mode", write);
    Put_File(In("a.vlk"), "old");
    FailingSystem system(call, EPERM);
    EXPECT_EQ(Matter(write), "none");
    EXPECT_EQ(system.Failed(), "Change_Mode");
    EXPECT_EQ(Held(In("a.vlk")), "new");
}

TEST_F(FileCalls, WhoIsRefusedIsToldWhatHeMayNot) {
    Put_File(In("a.vlk"), "old");
    const auto read = [&] { Read_File(In("a.vlk")); };
    const auto write = [&](const char* name) { return [this, name] { Write_File(In(name), "new"); }; };
    const auto refused = [&](const char* call, const auto& action) {
        FailingSystem system(Number_Of(call, action), EACCES);
        return Matter(action);
    };
    EXPECT_EQ(refused("Open", read), "75 you may not read it");
    EXPECT_EQ(refused("Open_New", write("a.vlk")), "75 you may not write it, or not in its folder");
    EXPECT_EQ(refused("Rename", write("a.vlk")), "75 you may not write it, or not in its folder");
}

TEST_F(FileCalls, WhereNothingCanBeFlushedAFileIsSavedAllTheSame) {
    Put_File(In("a.vlk"), "old");
    const auto write = [&] { Write_File(In("a.vlk"), "new"); };
    for (const int nothing : {EINVAL, ENOSYS, ENOTSUP, EROFS}) {
        FailingSystem system(Number_Of("Flush", write), nothing);
        EXPECT_EQ(Matter(write), "none") << nothing;
        EXPECT_EQ(system.Failed(), "Flush");
    }
    FailingSystem system(Number_Of("Flush", write), EIO);
    EXPECT_NE(Matter(write), "none");
}

TEST_F(FileCalls, ASignalThatComesInBetweenIsNoFailure) {
    const std::string content(200000, 'x');
    Put_File(In("a.vlk"), content);
    const auto read = [&] { EXPECT_EQ(Read_File(In("a.vlk")), content); };
    const auto write = [&] { Write_File(In("a.vlk"), content); };
    const auto interrupted = [&](const char* call, int behind, const std::function<void()>& action) {
        FailingSystem system(Number_Of(call, action) + behind, EINTR);
        EXPECT_EQ(Matter(action), "none") << call;
        EXPECT_EQ(system.Failed(), call);
        EXPECT_EQ(Held(In("a.vlk")), content) << call;
    };
    for (const int behind : {0, 1}) interrupted("Read", behind, read);
    for (const char* call : {"Write", "Flush", "Close"}) interrupted(call, 0, write);
}

TEST_F(FileCalls, WhereStandardInputIsClosedItsNumberIsAsGoodAsAnyAndClosedAgain) {
    Put_File(In("a.vlk"), "old");
    const int kept = ::dup(0);
    ::close(0);
    const std::string matter = Matter([&] {
        EXPECT_EQ(Read_File(In("a.vlk")), "old");
        Write_File(In("a.vlk"), "new");
    });
    const bool open[] = {::fcntl(0, F_GETFD) != -1, ::fcntl(1, F_GETFD) != -1, ::fcntl(2, F_GETFD) != -1};
    ::dup2(kept, 0);
    ::close(kept);
    EXPECT_EQ(matter, "none");
    EXPECT_EQ(Held(In("a.vlk")), "new");
    EXPECT_FALSE(open[0]);
    EXPECT_TRUE(open[1] && open[2]);
}

TEST_F(FileCalls, AWriteThatTakesNothingIsThatOfAFullDisk) {
    struct : FailingSystem {
        ssize_t Write(int, const char*, std::size_t) override { return 0; }
    } full;
    Put_File(In("a.vlk"), "old");
    EXPECT_EQ(Matter([&] { Write_File(In("a.vlk"), "new"); }), "61 the disk is full");
    EXPECT_EQ(Held(In("a.vlk")), "old");
}

TEST_F(FileCalls, WhatHasTakenAFilesPlaceIsNotTakenAwayAgain) {
    FailingSystem system;
    Write_File(In("a.vlk"), "new");
    EXPECT_EQ(std::ranges::count(system.Calls, "Rename"), 1);
    EXPECT_EQ(std::ranges::count(system.Calls, "Unlink"), 0);
}

TEST_F(FileCalls, WhoMayNotReadAFolderMayStillSaveThere) {
    Put_File(In("a.vlk"), "old");
    const auto write = [&] { Write_File(In("a.vlk"), "new"); };
    FailingSystem system(Number_Of("Open", write), EACCES);
    EXPECT_EQ(Matter(write), "none");
    EXPECT_EQ(system.Failed(), "Open");
    EXPECT_EQ(Held(In("a.vlk")), "new");
}

TEST_F(FileCalls, EachCallOfAReadMayFailAndIsTold) {
    Put_File(In("a.vlk"), "held");
    for (int which = 1;; ++which) {
        FailingSystem system(which);
        const auto failure = What_Failed([&] { Read_File(In("a.vlk")); });
        if (system.Failed().empty()) return;
        EXPECT_EQ(failure.has_value(), system.Failed() != "Close") << system.Failed();
        if (failure) {
            EXPECT_EQ(failure->Trouble().Words(),
                      In("a.vlk") + "\rcannot be read: the system says \"Input/output error\".");
        }
    }
}

TEST_F(FileCalls, WordsNameTheFileAndWhatIsTheMatterWithIt) {
    fs::create_directory(In("sub"));
    Put_File(In("file"), "held");
    fs::create_symlink("nowhere", In("link"));
    const auto writing = [&](const std::string& name) { return Matter([&] { Write_File(In(name), "x"); }); };
    const auto reading = [&](const std::string& name) { return Matter([&] { Read_File(In(name)); }); };
    EXPECT_EQ(writing("gone/deep/a.vlk"), "76 there is no folder " + In("gone"));
    EXPECT_EQ(writing("file/a.vlk"), "76 " + In("file") + " is no folder");
    EXPECT_EQ(writing("sub"), "75 it is a folder");
    EXPECT_EQ(writing(std::string(300, 'n')), "64 its name is too long");
    EXPECT_EQ(Matter([] { Write_File("/dev/full", "x"); }), "61 the disk is full");
    EXPECT_EQ(reading("none.vlk"), "53 there is no such file");
    EXPECT_EQ(Matter([] { Read_File(""); }), "53 it has no name");
    EXPECT_EQ(reading("gone/a.vlk"), "53 there is no folder " + In("gone"));
    EXPECT_EQ(reading("link"), "53 it is a link to nowhere, which is not there");
    EXPECT_EQ(reading("sub"), "75 it is a folder");
    const auto failure = What_Failed([&] { Write_File(In("gone/a.vlk"), "x"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Trouble().Words(),
              In("gone/a.vlk") + "\rcannot be written: there is no folder " + In("gone") + ".");
    EXPECT_EQ(failure->Trouble().Sentence(), "There is no folder " + In("gone") + ".");
    EXPECT_EQ(FileTrouble{}.Words(), "");
}

// ---- what stays of the old file -----------------------------------------------------------------------------------

TEST_F(FileCalls, ExtendedAttributesAndModeStay) {
    Put_File(In("a.vlk"), "old");
    ::chmod(In("a.vlk").c_str(), 0640);
    if (::setxattr(In("a.vlk").c_str(), "user.origin", "the press shop", 14, 0) != 0)
        GTEST_SKIP() << "no attributes on this file system";
    for (const char* other : {"user.one", "user.another"}) ::setxattr(In("a.vlk").c_str(), other, other, 8, 0);
    // Some systems give a new file attributes of their own.
    struct : FailingSystem {
        int Open_New(std::string& pattern) override {
            const int file = FailingSystem::Open_New(pattern);
            ::fsetxattr(file, "user.origin", "elsewhere", 9, 0);
            return file;
        }
    } labels;
    Write_File(In("a.vlk"), "new");
    for (const char* other : {"user.one", "user.another"}) {
        char kept[64];
        ASSERT_EQ(::getxattr(In("a.vlk").c_str(), other, kept, sizeof kept), 8);
        EXPECT_EQ(std::string(kept, 8), std::string(other, 8));
    }
    char value[64];
    ASSERT_EQ(::getxattr(In("a.vlk").c_str(), "user.origin", value, sizeof value), 14);
    EXPECT_EQ(std::string(value, 14), "the press shop");
    EXPECT_EQ(Mode_Of(In("a.vlk")), 0640U);
}

TEST_F(FileCalls, ARightToActAsTheOwnerDoesNotGoOverToAnotherOwner) {
    Put_File(In("a.vlk"), "old");
    ::chmod(In("a.vlk").c_str(), 04755);
    const auto write = [&] { Write_File(In("a.vlk"), "new"); };
    write();
    EXPECT_EQ(Mode_Of(In("a.vlk")), 04755U);
    FailingSystem system(Number_Of("Change_Owner", write), EPERM);
    write();
    EXPECT_EQ(system.Failed(), "Change_Owner");
    EXPECT_EQ(Mode_Of(In("a.vlk")), 0755U);
}

// ---- what is no file ----------------------------------------------------------------------------------------------

TEST_F(FileCalls, PipesDevicesFoldersAndHugeFilesAreRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    Put_File(In("huge"), "");
    fs::resize_file(In("huge"), std::uintmax_t{1} << 40U);
    Put_File(In("large"), "");
    fs::resize_file(In("large"), kLargestFile + 1);
    const int number = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    In("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(number, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0) << In("socket");
    ::close(number);
    const auto start = std::chrono::steady_clock::now();
    const auto reading = [&](const std::string& path) { return Matter([&] { Read_File(path); }); };
    EXPECT_EQ(reading(In("pipe")), "75 it is a pipe and no file");
    EXPECT_EQ(reading(In("socket")), "75 it is a device and no file");
    EXPECT_EQ(reading("/dev/zero"), "75 it is a device and no file");
    EXPECT_EQ(reading("/dev/tty"), "75 it is a device and no file");
    EXPECT_EQ(reading(In("huge")), "75 it is larger than 64 MiB");
    EXPECT_EQ(reading(In("large")), "75 it is larger than 64 MiB");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(Told_By([&] { Read_File(In("pipe")); }).back(),
              In("pipe") + "\rcannot be read: it is a pipe and no file.");
    EXPECT_EQ(Told_By([&] { Write_File(In("pipe"), "x"); }).back(),
              In("pipe") + "\rcannot be written: it is a pipe that nobody reads from.");
    EXPECT_EQ(Read_Beginning(In("huge"), 10), std::string(10, '\0'));
}

TEST_F(FileCalls, TheLargestFileIsReadWhole) {
    Put_File(In("largest"), "");
    fs::resize_file(In("largest"), kLargestFile);
    EXPECT_EQ(Read_File(In("largest")).size(), kLargestFile);
}

TEST_F(FileCalls, AFileThatSaysNothingOfItsSizeIsReadToItsEnd) {
    EXPECT_NE(Read_File("/proc/self/status").find("Name:"), std::string::npos);
}

TEST_F(FileCalls, AFileThatSaysNothingOfItsSizeIsRefusedWhereItTurnsOutTooLarge) {
    struct : FailingSystem {
        int File_Stat(int file, struct stat& status) override {
            const int told = FailingSystem::File_Stat(file, status);
            status.st_size = 0;
            return told;
        }
    } sizeless;
    Put_File(In("large"), "");
    fs::resize_file(In("large"), kLargestFile + 1);
    EXPECT_EQ(Matter([&] { Read_File(In("large")); }), "75 it is larger than 64 MiB");
}

TEST_F(FileCalls, APipeThatNobodyReadsIsRefusedAndOneThatIsReadIsWrittenTo) {
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    const std::string content(300000, 'x');  // more than a pipe holds
    std::string read;
    std::thread reader([&] { read = Held(In("pipe")); });
    EXPECT_EQ(Matter([&] { Write_File(In("pipe"), content); }), "none");
    reader.join();
    EXPECT_EQ(read, content);
    EXPECT_TRUE(fs::is_fifo(In("pipe")));
}

TEST_F(FileCalls, WhatIsOpenAlreadyGoesOnWhereItIs) {
    const int number = ::open(In("log").c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(number, 0);
    ASSERT_EQ(::write(number, "before ", 7), 7);
    fs::create_symlink("/dev/fd/" + std::to_string(number), In("link"));
    for (const std::string& name : {"/dev/fd/" + std::to_string(number), "/proc/self/fd/" + std::to_string(number),
                                    "/dev/../dev/fd/" + std::to_string(number), In("link")}) {
        EXPECT_EQ(Descriptor_Named(name), number) << name;
        Write_File(name, "and ");
    }
    ASSERT_EQ(::write(number, "after", 5), 5);
    ::close(number);
    EXPECT_EQ(Held(In("log")), "before and and and and after");
    EXPECT_EQ(Matter([&] { Write_File("/dev/fd/" + std::to_string(number), "x"); }), "57 it is not open for that");
    EXPECT_EQ(Descriptor_Named("/dev/fd/0"), 0);
    EXPECT_EQ(Descriptor_Named("/dev/stdout"), 1);
    EXPECT_EQ(Descriptor_Named("/dev/stderr"), 2);
    for (const std::string& none :
         {In("log"), std::string("/dev/fd"), std::string("/dev/fd/x"), std::string("-"), std::string("/dev/fd/"),
          std::string("/dev/fd/1x"), std::string("/dev/fd/-1"), std::string("/dev/fd/99999999999")})
        EXPECT_FALSE(Descriptor_Named(none)) << none;
}

TEST_F(FileCalls, FortyLinksAreFollowedAndNotOneMore) {
    Put_File(In("aim"), "old");
    const auto chain = [&](const std::string& name, const std::string& aim) {
        fs::create_symlink(aim, In(name + "1"));
        for (int i = 2; i <= 41; ++i) fs::create_symlink(name + std::to_string(i - 1), In(name + std::to_string(i)));
    };
    chain("file", "aim");
    EXPECT_EQ(Link_Target(In("file40")), In("aim"));
    EXPECT_EQ(Matter([&] { Link_Target(In("file41")); }), "64 its links lead in a circle");
    chain("out", "/dev/stdout");
    EXPECT_EQ(Descriptor_Named(In("out40")), 1);
    EXPECT_FALSE(Descriptor_Named(In("out41")));
}

TEST_F(FileCalls, AFileThatWouldGetTooLargeFailsToBeWrittenAndCallsGoOnBehindTheSignal) {
    struct sigaction file_size {
    }, pipe{}, now{};
    ::sigaction(SIGXFSZ, nullptr, &file_size);
    ::sigaction(SIGPIPE, nullptr, &pipe);
    for (const bool pipes : {false, true}) {
        ::sigaction(SIGPIPE, &pipe, nullptr);
        Let_Writes_Fail(pipes);
        for (const int signal : {SIGXFSZ, SIGPIPE}) {
            ::sigaction(signal, nullptr, &now);
            const bool set = now.sa_handler != pipe.sa_handler && (now.sa_flags & SA_RESTART) != 0;
            EXPECT_EQ(set, signal == SIGXFSZ || pipes) << signal;
        }
    }
    ::sigaction(SIGXFSZ, &file_size, nullptr);
    ::sigaction(SIGPIPE, &pipe, nullptr);
}

// ---- strangers ----------------------------------------------------------------------------------------------------

TEST_F(FileCalls, ALinkToNothingInAFolderThatOthersMayWriteIsNotFollowed) {
    fs::create_directory(In("home"));
    fs::create_directory(In("shared"));
    fs::create_symlink("../home/.profile", In("shared/a.vlk"));
    fs::create_symlink("shared/a.vlk", In("by way of.vlk"));
    for (const mode_t mode : {mode_t{0777}, mode_t{01777}}) {
        ::chmod(In("shared").c_str(), mode);
        for (const char* name : {"shared/a.vlk", "by way of.vlk"})
            EXPECT_EQ(Matter([&] { Write_File(In(name), "x"); }),
                      "75 it is a link to " + In("shared/../home/.profile") +
                          ", which is not there, and others may have put it here");
        EXPECT_TRUE(fs::is_empty(In("home")));
    }
    ::chmod(In("shared").c_str(), 0755);
    Write_File(In("shared/a.vlk"), "x");
    EXPECT_EQ(Held(In("home/.profile")), "x");
    // What is there is known to the user, who was asked about it.
    ::chmod(In("shared").c_str(), 0777);
    Write_File(In("shared/a.vlk"), "y");
    EXPECT_EQ(Held(In("home/.profile")), "y");
}

TEST_F(FileCalls, AFileIsKeptUnderNoNameThatOthersHavePutThere) {
    fs::create_directory(In("home"));
    Put_File(In("a.trq"), "old");
    fs::create_symlink("home/.profile", In("a.trq~"));
    EXPECT_EQ(Write_File_And_Keep(In("a.trq"), "new"), In("a.trq~~"));
    EXPECT_EQ(Held(In("a.trq~~")), "old");
    EXPECT_TRUE(fs::is_empty(In("home")));
}

TEST_F(FileCalls, OthersMayWriteWhereModeOrOwnerLetThem) {
    EXPECT_TRUE(Others_May_Write(In("gone"))) << "nobody knows who will";
    EXPECT_FALSE(Others_May_Write(In("")));
    ::chmod(In("").c_str(), 0777);
    EXPECT_TRUE(Others_May_Write(In("")));
    ::chmod(In("").c_str(), 0775);
    EXPECT_FALSE(Others_May_Write(In(""))) << "the user's own group is the user";
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    ASSERT_EQ(::chown(In("").c_str(), 0, 4321), 0);
    EXPECT_TRUE(Others_May_Write(In("")));
    ::chmod(In("").c_str(), 0755);
    EXPECT_FALSE(Others_May_Write(In("")));
    ASSERT_EQ(::chown(In("").c_str(), 1234, 0), 0);
    EXPECT_TRUE(Others_May_Write(In("")));
    // Who is of another group trusts that and root's.
    ::chmod(In("").c_str(), 0775);
    for (const auto& [group, others] : {std::pair{4321, false}, {0, false}, {77, true}}) {
        ASSERT_EQ(::chown(In("").c_str(), 0, static_cast<gid_t>(group)), 0);
        ASSERT_EQ(::setegid(4321), 0);
        const bool may = Others_May_Write(In(""));
        ASSERT_EQ(::setegid(0), 0);
        EXPECT_EQ(may, others) << group;
    }
}

}  // namespace verlink::test
