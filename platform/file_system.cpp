// Reading files whole, and replacing them only by whole ones.
#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"
#include "platform/guard.h"
#include "platform/temporaries.h"

namespace verlink::platform {

namespace {

/// The failure number for an error of the system, when reading or when writing.
long Number_Of(int error, bool writing) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: return writing ? kDiskNotReady : kFileNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return kDiskFull;
        case ENAMETOOLONG:
        case EINVAL:
        case ELOOP: return kBadFileName;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY: return kPathAccess;
        default: return kDeviceError;
    }
}

class Descriptor {
   public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number_; }
    int Close() {
        const int result = ::close(number_);
        number_ = -1;
        return result;
    }

   private:
    int number_;
};

/// The path with a link at its end followed to what it names, whether that is there or not.
std::string Followed(const std::string& path) {
    constexpr int kMostLinks = 40;
    std::error_code none;
    std::filesystem::path target = path;
    for (int links = 0; std::filesystem::is_symlink(target, none); ++links) {
        if (links == kMostLinks) Raise(kBadFileName);
        target = target.parent_path() / std::filesystem::read_symlink(target, none);
    }
    return target.string();
}

/// What a file that somebody makes anew may be used for. The mask belongs to the process: one thread at a time.
mode_t New_Mode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

std::string Read_File(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.Number() < 0) Raise(Number_Of(errno, false));
    std::string content;
    char block[65536];
    for (;;) {
        const ssize_t count = ::read(file.Number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Raise(Number_Of(errno, false));
        if (count == 0) return content;
        content.append(block, static_cast<std::size_t>(count));
    }
}

void Write_File(const std::string& path, const std::string& content, std::optional<unsigned> own_mode) {
    const std::string target = Followed(path);
    struct stat old {};
    const bool replaces = ::stat(target.c_str(), &old) == 0;
    if (replaces && S_ISDIR(old.st_mode)) Raise(kPathAccess);
    if (replaces && !S_ISREG(old.st_mode)) {
        // A device or a pipe cannot be replaced; it is written to.
        Descriptor device(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
        if (device.Number() < 0) Raise(Number_Of(errno, true));
        std::size_t done = 0;
        while (done < content.size()) {
            const ssize_t count = ::write(device.Number(), content.data() + done, content.size() - done);
            if (count < 0 && errno != EINTR) Raise(Number_Of(errno, true));
            if (count > 0) done += static_cast<std::size_t>(count);
        }
        return;
    }
    if (replaces && ::access(target.c_str(), W_OK) != 0) Raise(Number_Of(errno, true));

    Sweep_Temporaries(std::filesystem::path(target).parent_path().string());
    std::string beside = Temporary_Beside(target);
    Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (file.Number() < 0) Raise(Number_Of(errno, true));
    const auto fail = [&](int error) {
        ::unlink(beside.c_str());
        Raise(Number_Of(error, true));
    };
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t count = ::write(file.Number(), content.data() + done, content.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) fail(count < 0 ? errno : ENOSPC);
        done += static_cast<std::size_t>(count);
    }
    const mode_t mode = own_mode ? *own_mode : replaces ? (old.st_mode & 07777) : New_Mode();
    // The owner stays too where the system allows it; a file of another's that may be written is saved all the same.
    [[maybe_unused]] const bool same_owner = replaces && ::fchown(file.Number(), old.st_uid, old.st_gid) == 0;
    if (::fchmod(file.Number(), mode) != 0 || ::fsync(file.Number()) != 0 || file.Close() != 0) fail(errno);
    if (::rename(beside.c_str(), target.c_str()) != 0) fail(errno);
}

std::string Write_File_And_Keep(const std::string& path, const std::string& content) {
    std::string kept = path + "~";
    while (File_Exists(kept)) kept += "~";
    Write_File(kept, Read_File(path));
    std::error_code none;
    std::filesystem::permissions(kept, std::filesystem::status(path, none).permissions(), none);
    const long failure = Failure_Of([&] { Write_File(path, content); });
    if (failure == 0) return kept;
    std::filesystem::remove(kept, none);
    Raise(failure);
}

bool Is_Plain_File(const std::string& path) {
    std::error_code none;
    return std::filesystem::is_regular_file(path, none);
}

bool File_Exists(const std::string& path) {
    std::error_code none;
    return std::filesystem::exists(path, none);
}

bool Make_Folder(const std::string& path) {
    std::error_code failed;
    std::filesystem::create_directories(path, failed);
    return !failed;
}

}  // namespace verlink::platform
