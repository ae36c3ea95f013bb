// Files are read whole, and replaced only by whole ones, whatever the disk does.
#include "platform/file_system.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>

#include "platform/failure.h"
#include "tests/support/files.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;
using namespace platform;

namespace {

/// The number of the failure that an action ends in; 0 for none.
template <class Action>
long Failure_Of(Action action) {
    try {
        action();
        return 0;
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
}

std::set<std::string> Names_In(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

/// Runs `action` in a child and gives back what it returned, 0 to 254; 255 when the child died.
template <class Action>
int In_Child(Action action) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(action());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

bool Is_Root() { return ::geteuid() == 0; }

std::string Bytes(std::size_t count) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(i * 7 + i / 251);
    return bytes;
}

}  // namespace

class FileSystem : public Fixture {
   protected:
    FileSystem() { fs::create_directory(Folder()); }
    std::string Folder() const { return Path("models"); }
    std::string In(const std::string& name) const { return Folder() + "/" + name; }
};

TEST_F(FileSystem, EveryByteComesBack) {
    const std::string content = Bytes(200000) + std::string("\0\r\n\xff", 4);
    Write_File(In("a.vlk"), content);
    EXPECT_EQ(Read_File(In("a.vlk")), content);
    EXPECT_EQ(Held(In("a.vlk")), content);
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.vlk"});
}

TEST_F(FileSystem, AnEmptyFileIsAFile) {
    Write_File(In("a.vlk"), "");
    EXPECT_TRUE(File_Exists(In("a.vlk")));
    EXPECT_EQ(Read_File(In("a.vlk")), "");
}

TEST_F(FileSystem, AShorterFileReplacesALongerOneWhole) {
    Put_File(In("a.vlk"), Bytes(5000));
    Write_File(In("a.vlk"), "short");
    EXPECT_EQ(Held(In("a.vlk")), "short");
}

TEST_F(FileSystem, ReadingSaysWhatIsWrong) {
    EXPECT_EQ(Failure_Of([&] { Read_File(In("none.vlk")); }), kFileNotFound);
    EXPECT_EQ(Failure_Of([&] { Read_File(In("no folder/a.vlk")); }), kFileNotFound);
    EXPECT_EQ(Failure_Of([&] { Read_File(Folder()); }), kPathAccess);
    EXPECT_EQ(Failure_Of([&] { Read_File(In(std::string(300, 'n'))); }), kBadFileName);
}

TEST_F(FileSystem, AFileWithoutPermissionCannotBeRead) {
    if (Is_Root()) GTEST_SKIP() << "root may read everything";
    Put_File(In("a.vlk"), "held");
    ::chmod(In("a.vlk").c_str(), 0);
    EXPECT_EQ(Failure_Of([&] { Read_File(In("a.vlk")); }), kPathAccess);
}

TEST_F(FileSystem, ALostFolderIsAPathThatIsNotFound) {
    EXPECT_EQ(Failure_Of([&] { Write_File(In("gone/a.vlk"), "x"); }), kPathNotFound);
    Put_File(In("file"), "held");
    EXPECT_EQ(Failure_Of([&] { Write_File(In("file/a.vlk"), "x"); }), kPathNotFound);
    EXPECT_EQ(Failure_Of([&] { Write_File("", "x"); }), kPathNotFound);
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"file"});
}

TEST_F(FileSystem, AFolderIsNotReplacedByAFile) {
    fs::create_directory(In("sub"));
    EXPECT_EQ(Failure_Of([&] { Write_File(In("sub"), "x"); }), kPathAccess);
    EXPECT_EQ(Failure_Of([&] { Write_File(In("sub") + "/", "x"); }), kPathAccess);
    EXPECT_TRUE(fs::is_directory(In("sub")));
    EXPECT_TRUE(fs::is_empty(In("sub")));
}

TEST_F(FileSystem, ANameAsLongAsTheSystemTakesIsWrittenAndALongerOneRefused) {
    const std::string longest(255, 'n');
    Write_File(In(longest), "held");
    EXPECT_EQ(Held(In(longest)), "held");
    EXPECT_EQ(Failure_Of([&] { Write_File(In(longest + "n"), "x"); }), kBadFileName);
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{longest});
}

TEST_F(FileSystem, NamesInAnyScriptAndWithBlanksAreTakenAsTheyAre) {
    const std::string name = In("Kurbel schwinge \xc3\xa4\xe2\x82\xac \xe6\x9b\xb2.vlk");
    Write_File(name, "held");
    EXPECT_EQ(Read_File(name), "held");
}

TEST_F(FileSystem, AWriteProtectedFileStays) {
    Put_File(In("a.vlk"), "old");
    ::chmod(In("a.vlk").c_str(), 0444);
    if (Is_Root()) GTEST_SKIP() << "root may write everything";
    EXPECT_EQ(Failure_Of([&] { Write_File(In("a.vlk"), "new"); }), kPathAccess);
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.vlk"});
}

TEST_F(FileSystem, AWriteProtectedFolderKeepsItsFile) {
    if (Is_Root()) GTEST_SKIP() << "root may write everything";
    Put_File(In("a.vlk"), "old");
    ::chmod(Folder().c_str(), 0555);
    EXPECT_EQ(Failure_Of([&] { Write_File(In("a.vlk"), "new"); }), kPathAccess);
    EXPECT_EQ(Failure_Of([&] { Write_File(In("b.vlk"), "new"); }), kPathAccess);
    ::chmod(Folder().c_str(), 0755);
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.vlk"});
}

// As root the two cases above are played by a child that has given its rights up.
TEST_F(FileSystem, WithoutRightsNothingIsReplaced) {
    if (!Is_Root()) GTEST_SKIP() << "only root can give rights up";
    Put_File(In("a.vlk"), "old");
    ::chmod(In("a.vlk").c_str(), 0644);
    ::chmod(Folder().c_str(), 0755);
    ::chmod(fs::path(Folder()).parent_path().c_str(), 0755);
    const int failure = In_Child([&] {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 254;
        return static_cast<int>(Failure_Of([&] { Write_File(In("a.vlk"), "new"); }) == kPathAccess &&
                                Failure_Of([&] { Write_File(In("b.vlk"), "new"); }) == kPathAccess);
    });
    EXPECT_EQ(failure, 1);
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.vlk"});
}

TEST_F(FileSystem, PermissionsAndOwnerOfTheOldFileStay) {
    Put_File(In("a.vlk"), "old");
    for (const mode_t mode : {mode_t{0600}, mode_t{0640}, mode_t{0664}, mode_t{0755}}) {
        ::chmod(In("a.vlk").c_str(), mode);
        if (Is_Root()) {
            ASSERT_EQ(::chown(In("a.vlk").c_str(), 1234, 4321), 0);
            ::chmod(In("a.vlk").c_str(), mode);
        }
        Write_File(In("a.vlk"), "new");
        EXPECT_EQ(Mode_Of(In("a.vlk")), mode);
        struct stat status {};
        ::stat(In("a.vlk").c_str(), &status);
        EXPECT_EQ(status.st_uid, Is_Root() ? 1234U : ::geteuid());
    }
}

TEST_F(FileSystem, ANewFileHasTheUsersUsualPermissions) {
    const mode_t before = ::umask(027);
    Write_File(In("a.vlk"), "new");
    ::umask(before);
    EXPECT_EQ(Mode_Of(In("a.vlk")), mode_t{0640});
}

TEST_F(FileSystem, ALinkStaysALinkAndItsFileIsReplaced) {
    fs::create_directory(In("real"));
    Put_File(In("real/a.vlk"), "old");
    fs::create_symlink("real/a.vlk", In("near.vlk"));
    fs::create_symlink("near.vlk", In("far.vlk"));
    fs::create_symlink(In("real/a.vlk"), In("absolute.vlk"));
    for (const char* link : {"near.vlk", "far.vlk", "absolute.vlk"}) {
        Write_File(In(link), link);
        EXPECT_TRUE(fs::is_symlink(In(link)));
        EXPECT_EQ(Held(In("real/a.vlk")), link);
    }
    EXPECT_EQ(Names_In(In("real")), std::set<std::string>{"a.vlk"});
}

TEST_F(FileSystem, ALinkToNothingYetMakesTheFileItNames) {
    fs::create_directory(In("real"));
    fs::create_symlink("real/a.vlk", In("link.vlk"));
    Write_File(In("link.vlk"), "new");
    EXPECT_TRUE(fs::is_symlink(In("link.vlk")));
    EXPECT_EQ(Held(In("real/a.vlk")), "new");
}

TEST_F(FileSystem, LinksInARingAreABadName) {
    fs::create_symlink("b.vlk", In("a.vlk"));
    fs::create_symlink("a.vlk", In("b.vlk"));
    EXPECT_EQ(Failure_Of([&] { Write_File(In("a.vlk"), "x"); }), kBadFileName);
    EXPECT_EQ(Failure_Of([&] { Read_File(In("a.vlk")); }), kBadFileName);
    EXPECT_EQ(Names_In(Folder()), (std::set<std::string>{"a.vlk", "b.vlk"}));
}

TEST_F(FileSystem, AFullDeviceIsAFullDisk) {
    if (!File_Exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(Failure_Of([] { Write_File("/dev/full", "x"); }), kDiskFull);
}

TEST_F(FileSystem, AFileThatGrowsTooLargeLeavesTheOldOneWhole) {
    Put_File(In("a.vlk"), "old");
    const int failure = In_Child([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 254;
        return static_cast<int>(Failure_Of([&] { Write_File(In("a.vlk"), Bytes(100000)); }));
    });
    EXPECT_EQ(failure, kDiskFull);
    EXPECT_EQ(Held(In("a.vlk")), "old");
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.vlk"});
}

// A file system of its own, of 64 kilobytes, in a mount namespace that goes away with the child.
TEST_F(FileSystem, AFullDiskLeavesTheOldFileWhole) {
    const int outcome = In_Child([&] {
        if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return 254;
        if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return 254;
        if (::mount("tmpfs", Folder().c_str(), "tmpfs", 0, "size=64k") != 0) return 254;
        const std::string old = Bytes(40000);
        Write_File(In("a.vlk"), old);
        if (Failure_Of([&] { Write_File(In("a.vlk"), Bytes(40001)); }) != kDiskFull) return 1;
        if (Held(In("a.vlk")) != old) return 2;
        if (Names_In(Folder()) != std::set<std::string>{"a.vlk"}) return 3;
        // What still fits beside the old file replaces it.
        if (Failure_Of([&] { Write_File(In("a.vlk"), "new"); }) != 0) return 4;
        return Held(In("a.vlk")) == "new" ? 0 : 5;
    });
    if (outcome == 254) GTEST_SKIP() << "no right to mount a small disk";
    EXPECT_EQ(outcome, 0);
}

TEST_F(FileSystem, AFileThatIsToStayIsKeptUnderTheFirstFreeNameWithItsPermissions) {
    Put_File(In("a.trq"), Bytes(5000));
    ::chmod(In("a.trq").c_str(), 0600);
    EXPECT_EQ(Write_File_And_Keep(In("a.trq"), "new"), In("a.trq~"));
    EXPECT_EQ(Write_File_And_Keep(In("a.trq"), "newer"), In("a.trq~~"));
    EXPECT_EQ(Held(In("a.trq")), "newer");
    EXPECT_EQ(Held(In("a.trq~~")), "new");
    EXPECT_EQ(Held(In("a.trq~")), Bytes(5000));
    for (const char* name : {"a.trq", "a.trq~", "a.trq~~"}) EXPECT_EQ(Mode_Of(In(name)), 0600U) << name;
}

TEST_F(FileSystem, AFileThatCannotBeKeptIsNotReplacedAndNoneIsKeptOfOneThatCannotBeReplaced) {
    const std::string longest(255, 'n');  // with one letter more it is no name
    Put_File(In(longest), "old");
    EXPECT_EQ(Failure_Of([&] { Write_File_And_Keep(In(longest), "new"); }), kBadFileName);
    EXPECT_EQ(Held(In(longest)), "old");
    fs::remove(In(longest));

    Put_File(In("a.trq"), "old");
    const int failure = In_Child([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit little{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &little);
        return static_cast<int>(Failure_Of([&] { Write_File_And_Keep(In("a.trq"), Bytes(5000)); }));
    });
    EXPECT_EQ(failure, kDiskFull);
    EXPECT_EQ(Held(In("a.trq")), "old");
    EXPECT_EQ(Names_In(Folder()), std::set<std::string>{"a.trq"});
}

TEST_F(FileSystem, FoldersAndDevicesAreNoPlainFiles) {
    Put_File(In("a.vlk"), "");
    fs::create_symlink("a.vlk", In("link"));
    EXPECT_TRUE(Is_Plain_File(In("a.vlk")));
    EXPECT_TRUE(Is_Plain_File(In("link")));
    for (const std::string& other : {Folder(), In("none"), std::string("/dev/null")})
        EXPECT_FALSE(Is_Plain_File(other));
}

TEST_F(FileSystem, FoldersAreMadeWithThoseAboveThem) {
    EXPECT_TRUE(Make_Folder(In("a/b/c")));
    EXPECT_TRUE(fs::is_directory(In("a/b/c")));
    EXPECT_TRUE(Make_Folder(In("a/b/c")));
    EXPECT_TRUE(Make_Folder(In("a/b/c/")));
    Put_File(In("file"), "held");
    EXPECT_FALSE(Make_Folder(In("file/d")));
    EXPECT_FALSE(File_Exists(In("none")));
    EXPECT_TRUE(File_Exists(In("file")));
}

}  // namespace verlink::test
