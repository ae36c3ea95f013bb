// How the calls are counted, and what has to hold when one of them fails.
#include "tests/support/failing_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "tests/support/files.h"

namespace verlink::test {

namespace fs = std::filesystem;

FailingSystem::FailingSystem(int which, int error) : which_(static_cast<std::size_t>(which)), error_(error) {
    platform::Use_System(this);
}

FailingSystem::~FailingSystem() { platform::Use_System(nullptr); }

std::string FailingSystem::Failed() const {
    return which_ > 0 && Calls.size() >= which_ ? Calls[which_ - 1] : std::string();
}

bool FailingSystem::Failed_Behind(const std::string& call) const {
    const auto end = Calls.begin() + static_cast<std::ptrdiff_t>(std::min(which_, Calls.size()));
    return !Failed().empty() && std::find(Calls.begin(), end, call) != end;
}

bool FailingSystem::Fails(const char* call, const std::string& path) {
    Calls.emplace_back(call);
    if (!path.empty()) Paths.insert(path);
    if (Calls.size() != which_) return false;
    errno = error_;
    return true;
}

int FailingSystem::Stat(const std::string& path, struct stat& status) {
    return Fails("Stat", path) ? -1 : System::Stat(path, status);
}
int FailingSystem::Link_Stat(const std::string& path, struct stat& status) {
    return Fails("Link_Stat", path) ? -1 : System::Link_Stat(path, status);
}
int FailingSystem::File_Stat(int file, struct stat& status) {
    return Fails("File_Stat") ? -1 : System::File_Stat(file, status);
}
int FailingSystem::Access(const std::string& path, int mode) {
    return Fails("Access", path) ? -1 : System::Access(path, mode);
}
int FailingSystem::Open(const std::string& path, int flags) {
    return Fails("Open", path) ? -1 : System::Open(path, flags);
}
int FailingSystem::Open_New(std::string& pattern) { return Fails("Open_New") ? -1 : System::Open_New(pattern); }
ssize_t FailingSystem::Read(int file, char* to, std::size_t count) {
    return Fails("Read") ? -1 : System::Read(file, to, count);
}
ssize_t FailingSystem::Write(int file, const char* from, std::size_t count) {
    return Fails("Write") ? -1 : System::Write(file, from, count);
}
int FailingSystem::Change_Owner(int file, uid_t user, gid_t group) {
    return Fails("Change_Owner") ? -1 : System::Change_Owner(file, user, group);
}
int FailingSystem::Change_Mode(int file, mode_t mode) {
    return Fails("Change_Mode") ? -1 : System::Change_Mode(file, mode);
}
ssize_t FailingSystem::List_Attributes(const std::string& path, char* names, std::size_t size) {
    return Fails("List_Attributes") ? -1 : System::List_Attributes(path, names, size);
}
ssize_t FailingSystem::Get_Attribute(const std::string& path, const char* name, char* value, std::size_t size) {
    return Fails("Get_Attribute") ? -1 : System::Get_Attribute(path, name, value, size);
}
int FailingSystem::Set_Attribute(int file, const char* name, const char* value, std::size_t size) {
    return Fails("Set_Attribute") ? -1 : System::Set_Attribute(file, name, value, size);
}
int FailingSystem::Flush(int file) { return Fails("Flush") ? -1 : System::Flush(file); }
int FailingSystem::Close(int file) {
    const bool fails = Fails("Close");
    const int result = System::Close(file);  // a close that fails has closed all the same
    if (fails) errno = error_;
    return fails ? -1 : result;
}
int FailingSystem::Rename(const std::string& from, const std::string& to) {
    return Fails("Rename", to) ? -1 : System::Rename(from, to);
}
int FailingSystem::Link(const std::string& from, const std::string& to) {
    return Fails("Link", to) ? -1 : System::Link(from, to);
}
int FailingSystem::Unlink(const std::string& path) { return Fails("Unlink", path) ? -1 : System::Unlink(path); }

namespace {

std::set<std::string> Names_Beside(const std::string& path) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(path).parent_path()))
        names.insert(entry.path().filename());
    return names;
}

/// Empties the folder and puts the old file there.
void Begin(const Writing& writing) {
    for (const std::string& name : Names_Beside(writing.path)) fs::remove(fs::path(writing.path).parent_path() / name);
    Put_File(writing.path, writing.old);
}

bool Names_File_And_Reason(const std::vector<std::string>& told, const std::string& path) {
    return std::any_of(told.begin(), told.end(), [&](const std::string& text) {
        return text.find(path) != std::string::npos && text.find(" be ") != std::string::npos &&
               text.find("Input/output error") != std::string::npos;
    });
}

/// What may be refused without the save being lost.
bool Is_Optional(const std::string& call) {
    static const std::set<std::string> optional{"Change_Owner", "Change_Mode", "List_Attributes", "Get_Attribute",
                                                "Set_Attribute"};
    return optional.contains(call);
}

}  // namespace

int Expect_Whole_Whatever_Fails(const Writing& writing) {
    Begin(writing);
    writing.write();
    writing.told();
    const auto whole = Names_Beside(writing.path);
    EXPECT_NE(Held(writing.path), writing.old) << "nothing is written";
    for (int which = 1;; ++which) {
        SCOPED_TRACE(which);
        Begin(writing);
        std::string failed;
        bool replaced = false, writing_begun = false, looked_at = false;
        {
            FailingSystem system(which);
            writing.write();
            failed = system.Failed();
            looked_at = system.Failed_Behind("Close");
            writing_begun = system.Failed_Behind("Open_New");
            replaced = system.Failed_Behind("Rename") && failed != "Rename";
        }
        const std::vector<std::string> told = writing.told();
        if (failed.empty()) return which - 1;
        SCOPED_TRACE(failed);
        // Of a file that was only read it does not matter whether it could be closed, or where one is but looked at,
        // read.
        const bool only_read = (failed == "Close" && !writing_begun) || (writing.reads_first && !looked_at);
        const bool lost = !Is_Optional(failed) && !only_read && (!replaced || failed == "Flush");
        EXPECT_EQ(Names_File_And_Reason(told, writing.path), lost);
        // Only where the last step of all failed, the flushing of the folder, the file that is told of is the new one.
        const bool old = lost && !replaced;
        EXPECT_EQ(Held(writing.path) == writing.old, old);
        const auto only = std::set<std::string>{fs::path(writing.path).filename()};
        EXPECT_EQ(Names_Beside(writing.path), old ? only : whole);
        // The program goes on, and the next time it works.
        Begin(writing);
        writing.write();
        EXPECT_FALSE(Names_File_And_Reason(writing.told(), writing.path));
        EXPECT_NE(Held(writing.path), writing.old);
        EXPECT_EQ(Names_Beside(writing.path), whole);
    }
}

}  // namespace verlink::test
