// A system of which any one call fails, and the test of a writer that meets it at each of its calls.
#pragma once

#include <cerrno>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/system.h"

namespace verlink::test {

/// In force for its life. The call of that number, from 1, fails with an error; all others are the system's.
class FailingSystem : public platform::System {
   public:
    explicit FailingSystem(int which = 0, int error = EIO);
    ~FailingSystem() override;

    /// The calls so far, by name; the one that failed is at `which`.
    std::vector<std::string> Calls;
    /// The paths that were asked about, opened, or written to.
    std::set<std::string> Paths;
    /// The name of the call that failed; empty as long as none did.
    std::string Failed() const;
    /// Whether a call of that name came before the one that failed.
    bool Failed_Behind(const std::string& call) const;

    int Stat(const std::string& path, struct stat& status) override;
    int Link_Stat(const std::string& path, struct stat& status) override;
    int File_Stat(int file, struct stat& status) override;
    int Access(const std::string& path, int mode) override;
    int Open(const std::string& path, int flags) override;
    int Open_New(std::string& pattern) override;
    ssize_t Read(int file, char* to, std::size_t count) override;
    ssize_t Write(int file, const char* from, std::size_t count) override;
    int Change_Owner(int file, uid_t user, gid_t group) override;
    int Change_Mode(int file, mode_t mode) override;
    ssize_t List_Attributes(const std::string& path, char* names, std::size_t size) override;
    ssize_t Get_Attribute(const std::string& path, const char* name, char* value, std::size_t size) override;
    int Set_Attribute(int file, const char* name, const char* value, std::size_t size) override;
    int Flush(int file) override;
    int Close(int file) override;
    int Rename(const std::string& from, const std::string& to) override;
    int Link(const std::string& from, const std::string& to) override;
    int Unlink(const std::string& path) override;

   private:
    bool Fails(const char* call, const std::string& path = {});
    std::size_t which_;
    int error_;
};

/// One way in which the program writes a file.
struct Writing {
    std::string path;                                ///< the file, alone in its folder
    std::string old;                                 ///< what it holds before
    std::function<void()> write;                     ///< what the user does
    std::function<std::vector<std::string>()> told;  ///< what the user was told meanwhile, and is not told again
    bool reads_first = false;                        ///< looks at the old file, and writes whether it could or not
};

/// Does it over and over, with another call failing each time, until none is left. Each time the file is the old one
/// and the user was told its path and what is the matter, or it is the new one; and without a failure the new one
/// comes. Gives back how many calls there were.
int Expect_Whole_Whatever_Fails(const Writing& writing);

}  // namespace verlink::test
