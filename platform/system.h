// The calls of the system by which files are read and written.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>

namespace verlink::platform {

/// Each gives what the system's call behind it gives, `errno` included. Whatever reads or writes a file goes by the one
/// in force, so that a test can let any call fail.
class System {
   public:
    System() = default;
    virtual ~System() = default;
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    virtual int Stat(const std::string& path, struct stat& status);
    virtual int Link_Stat(const std::string& path, struct stat& status);
    virtual int File_Stat(int file, struct stat& status);
    virtual int Access(const std::string& path, int mode);
    virtual int Open(const std::string& path, int flags);
    /// A file of its own under a name that begins as `pattern` does, whose last six letters become that name's.
    virtual int Open_New(std::string& pattern);
    virtual ssize_t Read(int file, char* to, std::size_t count);
    virtual ssize_t Write(int file, const char* from, std::size_t count);
    virtual int Change_Owner(int file, uid_t user, gid_t group);
    virtual int Change_Mode(int file, mode_t mode);
    virtual ssize_t List_Attributes(const std::string& path, char* names, std::size_t size);
    virtual ssize_t Get_Attribute(const std::string& path, const char* name, char* value, std::size_t size);
    virtual int Set_Attribute(int file, const char* name, const char* value, std::size_t size);
    virtual int Flush(int file);
    virtual int Close(int file);
    virtual int Rename(const std::string& from, const std::string& to);
    /// A second name for what `from` names, links followed.
    virtual int Link(const std::string& from, const std::string& to);
    virtual int Unlink(const std::string& path);
};

System& The_System();
/// Null for the system itself.
void Use_System(System* system);

/// From now on a write that the system would end the process for is one that fails: beyond the largest size that a file
/// may have, and, with `pipes`, into a pipe that nobody reads any more.
void Let_Writes_Fail(bool pipes);

}  // namespace verlink::platform
