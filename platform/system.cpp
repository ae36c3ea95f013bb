// The system itself behind the calls, and the one in force.
#include "platform/system.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace verlink::platform {

namespace {

System& The_Real_System() {
    static System system;
    return system;
}

System* in_force = nullptr;

}  // namespace

System& The_System() { return in_force ? *in_force : The_Real_System(); }

void Use_System(System* system) { in_force = system; }

void Let_Writes_Fail(bool pipes) {
    // A handler, since a signal that is ignored would stay so in the programs that are started from here.
    struct sigaction nothing {};
    nothing.sa_handler = [](int) {};
    nothing.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &nothing, nullptr);
    if (pipes) ::sigaction(SIGPIPE, &nothing, nullptr);
}

int System::Stat(const std::string& path, struct stat& status) { return ::stat(path.c_str(), &status); }
int System::Link_Stat(const std::string& path, struct stat& status) { return ::lstat(path.c_str(), &status); }
int System::File_Stat(int file, struct stat& status) { return ::fstat(file, &status); }
int System::Access(const std::string& path, int mode) { return ::access(path.c_str(), mode); }
int System::Open(const std::string& path, int flags) { return ::open(path.c_str(), flags | O_CLOEXEC); }
int System::Open_New(std::string& pattern) { return ::mkostemp(pattern.data(), O_CLOEXEC); }
ssize_t System::Read(int file, char* to, std::size_t count) { return ::read(file, to, count); }
ssize_t System::Write(int file, const char* from, std::size_t count) { return ::write(file, from, count); }
int System::Change_Owner(int file, uid_t user, gid_t group) { return ::fchown(file, user, group); }
int System::Change_Mode(int file, mode_t mode) { return ::fchmod(file, mode); }

ssize_t System::List_Attributes(const std::string& path, char* names, std::size_t size) {
    return ::listxattr(path.c_str(), names, size);
}

ssize_t System::Get_Attribute(const std::string& path, const char* name, char* value, std::size_t size) {
    return ::getxattr(path.c_str(), name, value, size);
}

int System::Set_Attribute(int file, const char* name, const char* value, std::size_t size) {
    return ::fsetxattr(file, name, value, size, 0);
}

int System::Flush(int file) { return ::fsync(file); }
int System::Close(int file) { return ::close(file); }
int System::Rename(const std::string& from, const std::string& to) { return ::rename(from.c_str(), to.c_str()); }

int System::Link(const std::string& from, const std::string& to) {
    return ::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), AT_SYMLINK_FOLLOW);
}

int System::Unlink(const std::string& path) { return ::unlink(path.c_str()); }

}  // namespace verlink::platform
