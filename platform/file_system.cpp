// Reading files whole, and replacing them only by whole ones.
#include "platform/file_system.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/failure.h"
#include "platform/file_trouble.h"
#include "platform/guard.h"
#include "platform/links.h"
#include "platform/system.h"
#include "platform/temporaries.h"

namespace verlink::platform {

namespace {

namespace fs = std::filesystem;

class Descriptor {
   public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) The_System().Close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number_; }
    bool Is_Open() const { return number_ >= 0; }
    /// Where a signal came in between it is closed all the same.
    bool Close() {
        const int number = std::exchange(number_, -1);
        return The_System().Close(number) == 0 || errno == EINTR;
    }

   private:
    int number_;
};

/// A file beside another that takes its place, or goes again.
class Beside {
   public:
    Beside(const std::string& target, const std::string& path)
        : name_(Temporary_Beside(target)), file_(The_System().Open_New(name_)) {
        if (!file_.Is_Open()) Raise_File(path, Way::kWriting, errno);
    }
    ~Beside() {
        if (!name_.empty()) The_System().Unlink(name_);
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;
    int Number() const { return file_.Number(); }
    bool Close() { return file_.Close(); }
    bool Becomes(const std::string& target) {
        if (The_System().Rename(name_, target) != 0) return false;
        name_.clear();
        return true;
    }

   private:
    std::string name_;
    Descriptor file_;
};

/// Some file systems have nothing to flush, and say so.
bool Flushed(int file) {
    while (The_System().Flush(file) != 0) {
        if (errno == EINTR) continue;
        return errno == EINVAL || errno == ENOSYS || errno == ENOTSUP || errno == EROFS;
    }
    return true;
}

/// False with the error in `errno`.
bool Written(int file, const std::string& content) {
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t count = The_System().Write(file, content.data() + done, content.size() - done);
        if (count > 0) {
            done += static_cast<std::size_t>(count);
        } else if (count == 0) {
            errno = ENOSPC;
            return false;
        } else if (errno == EAGAIN) {
            pollfd room{file, POLLOUT, 0};
            ::ppoll(&room, 1, nullptr, nullptr);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

void Refuse_What_Is_No_File(const std::string& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) Raise_File(path, Way::kReading, EISDIR);
    if (S_ISFIFO(status.st_mode)) Refuse_File(path, Way::kReading, "it is a pipe and no file");
    if (!S_ISREG(status.st_mode)) Refuse_File(path, Way::kReading, "it is a device and no file");
}

[[noreturn]] void Refuse_What_Is_Too_Large(const std::string& path) {
    Refuse_File(path, Way::kReading, "it is larger than " + std::to_string(kLargestFile >> 20U) + " MiB");
}

enum class Part { kBeginning, kWhole };

/// The content, or as much of it as `most`; where all of it is wanted, what is larger is refused.
std::string Read_Up_To(const std::string& path, std::size_t most, Part part) {
    struct stat status {};
    // Opening a device may do something to it already.
    if (The_System().Stat(path, status) != 0) Raise_File(path, Way::kReading, errno);
    Refuse_What_Is_No_File(path, status);
    const Descriptor file(The_System().Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY));
    if (!file.Is_Open() || The_System().File_Stat(file.Number(), status) != 0) Raise_File(path, Way::kReading, errno);
    Refuse_What_Is_No_File(path, status);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (part == Part::kWhole && size > most) Refuse_What_Is_Too_Large(path);
    std::string content;
    std::array<char, 65536> block{};
    while (content.size() <= most) {
        const ssize_t count = The_System().Read(file.Number(), block.data(), block.size());
        if (count == 0) break;
        if (count != -1)
            content.append(block.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            Raise_File(path, Way::kReading, errno);
    }
    // Some files say nothing of their size.
    if (part == Part::kWhole && content.size() > most) Refuse_What_Is_Too_Large(path);
    content.resize(std::min(content.size(), most));
    return content;
}

void Write_Open_One(int file, const std::string& path, const std::string& content) {
    if (!Written(file, content)) Raise_File(path, Way::kWriting, errno);
}

/// A pipe that nobody reads from would hold whoever opens it: a reader has a second to come.
void Write_Device(const std::string& target, const std::string& path, bool pipe, const std::string& content) {
    using std::chrono::steady_clock;
    const auto patience = steady_clock::now() + std::chrono::seconds(1);
    int number = The_System().Open(target, O_WRONLY | O_NONBLOCK | O_NOCTTY);
    while (number < 0 && errno == ENXIO && pipe && steady_clock::now() < patience) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        number = The_System().Open(target, O_WRONLY | O_NONBLOCK | O_NOCTTY);
    }
    Descriptor device(number);
    if (!device.Is_Open() && errno == ENXIO && pipe)
        Refuse_File(path, Way::kWriting, "it is a pipe that nobody reads from");
    if (!device.Is_Open() || !Written(device.Number(), content) || !device.Close())
        Raise_File(path, Way::kWriting, errno);
}

/// Whatever else the system keeps with the old file, as far as it lets the new one have it.
void Take_Attributes(const std::string& old, int file) {
    std::array<char, 65536> names{}, value{};
    const ssize_t length = The_System().List_Attributes(old, names.data(), names.size());
    for (ssize_t at = 0; at < length;) {
        const std::string name(names.data() + at);
        const ssize_t size = The_System().Get_Attribute(old, name.c_str(), value.data(), value.size());
        if (size >= 0) The_System().Set_Attribute(file, name.c_str(), value.data(), static_cast<std::size_t>(size));
        at += static_cast<ssize_t>(name.size()) + 1;
    }
}

/// What a file that somebody makes anew may be used for. The mask belongs to the process: one thread at a time.
mode_t New_Mode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// Owner, attributes and mode of the old file, each if the system allows it: a file of another's that may be written is
/// saved all the same.
mode_t Taken_After(const std::string& target, const struct stat& old, int file) {
    const bool same_owner = The_System().Change_Owner(file, old.st_uid, old.st_gid) == 0;
    Take_Attributes(target, file);
    return old.st_mode & (same_owner ? 07777 : 0777);
}

}  // namespace

std::string Read_File(const std::string& path) { return Read_Up_To(path, kLargestFile, Part::kWhole); }

std::string Read_Beginning(const std::string& path, std::size_t most) {
    return Read_Up_To(path, most, Part::kBeginning);
}

void Write_File(const std::string& path, const std::string& content, std::optional<unsigned> own_mode) {
    if (const auto open = Descriptor_Named(path)) return Write_Open_One(*open, path, content);
    const std::string target = Link_Target(path);
    const auto fail = [&] { Raise_File(path, Way::kWriting, errno); };
    struct stat old {};
    const bool replaces = The_System().Stat(target, old) == 0;
    if (!replaces && errno != ENOENT) fail();
    if (replaces && S_ISDIR(old.st_mode)) Raise_File(path, Way::kWriting, EISDIR);
    if (replaces && !S_ISREG(old.st_mode)) return Write_Device(target, path, S_ISFIFO(old.st_mode), content);
    if (replaces && The_System().Access(target, W_OK) != 0) fail();

    Sweep_Temporaries(fs::path(target).parent_path().string());
    Beside file(target, path);
    if (!Written(file.Number(), content)) fail();
    The_System().Change_Mode(file.Number(), own_mode   ? *own_mode
                                            : replaces ? Taken_After(target, old, file.Number())
                                                       : New_Mode());
    if (!Flushed(file.Number()) || !file.Close()) fail();
    // Opened before, so that afterwards as little as possible can fail. Who may not read a folder cannot flush it.
    const Descriptor folder(The_System().Open(Folder_Of(target), O_RDONLY | O_DIRECTORY));
    if (!folder.Is_Open() && errno != EACCES) fail();
    if (!file.Becomes(target)) fail();
    if (folder.Is_Open() && !Flushed(folder.Number())) fail();
}

namespace {

/// A second name where the system has such, else a copy.
void Keep(const std::string& path, const std::string& kept) {
    if (The_System().Link(path, kept) == 0) return;
    const int error = errno;
    for (const int none : {EPERM, EXDEV, EMLINK, ENOSYS, ENOTSUP})
        if (error == none) return Write_File(kept, Read_File(path));
    Raise_File(kept, Way::kWriting, error);
}

}  // namespace

std::string Write_File_And_Keep(const std::string& path, const std::string& content) {
    std::string kept = path + "~";
    struct stat before {
    }, after{};
    while (The_System().Link_Stat(kept, after) == 0) kept += "~";
    if (errno != ENOENT) Raise_File(kept, Way::kWriting, errno);
    if (The_System().Stat(path, before) != 0) Raise_File(path, Way::kWriting, errno);
    Keep(path, kept);
    const auto failure = What_Failed([&] { Write_File(path, content); });
    if (!failure) return kept;
    const bool still_there = The_System().Stat(path, after) == 0 && after.st_ino == before.st_ino;
    if (still_there) The_System().Unlink(kept);
    throw RuntimeFailure(*failure);
}

bool Is_Plain_File(const std::string& path) {
    std::error_code none;
    return fs::is_regular_file(path, none);
}

bool File_Exists(const std::string& path) {
    std::error_code none;
    return fs::exists(path, none);
}

bool Make_Folder(const std::string& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    return !failed;
}

}  // namespace verlink::platform
