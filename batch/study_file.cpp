// Rows are appended, and the file renamed at the end.
#include "batch/study_file.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <filesystem>
#include <vector>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/file_trouble.h"
#include "platform/system.h"

namespace verlink {

namespace {

namespace fs = std::filesystem;
using platform::The_System;

/// Calls `take` with each whole line of a file, without its end.
void For_Each_Line(const std::string& path, const std::function<void(const std::string&)>& take) {
    const int file = The_System().Open(path, O_RDONLY);
    if (file == -1) platform::Raise_File(path, platform::Way::kReading, errno);
    std::vector<char> block(std::size_t{1} << 16U);
    std::string line;
    ssize_t count = 0;
    while ((count = The_System().Read(file, block.data(), block.size())) > 0 || (count < 0 && errno == EINTR)) {
        for (ssize_t i = 0; i < count; ++i) {
            const char letter = block[static_cast<std::size_t>(i)];
            if (letter == '\n') {
                take(line);
                line.clear();
            } else {
                line += letter;
            }
        }
    }
    const int trouble = errno;
    The_System().Close(file);
    if (count < 0) platform::Raise_File(path, platform::Way::kReading, trouble);
}

/// Whether what the path names is neither there nor a file.
bool Is_Device(const std::string& path) {
    std::error_code none;
    const auto status = fs::status(path, none);
    return fs::exists(status) && !fs::is_regular_file(status);
}

int Open_To_Append(const std::string& path) {
    const int file = The_System().Open(path, O_WRONLY | O_APPEND);
    if (file == -1) platform::Raise_File(path, platform::Way::kWriting, errno);
    return file;
}

/// As long as it is open no other process takes it; one that has it is left alone.
int Open_Alone(const std::string& path) {
    const int file = Open_To_Append(path);
    if (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        The_System().Close(file);
        platform::Refuse_File(path, platform::Way::kWriting, "another process writes it");
    }
    return file;
}

}  // namespace

Rows_There Look_At_Rows(const std::string& path, const std::string& head, const std::string& end) {
    Rows_There there;
    if (!platform::Is_Plain_File(path)) return there;
    std::string begin;
    bool begun = false;
    using State = Rows_There::State;
    For_Each_Line(path, [&](const std::string& line) {
        const bool whole = begun && !end.empty() && line == end;
        there.state = whole ? State::kWhole : State::kPartly;
        if (whole) return;
        there.bytes += line.size() + 1;
        if (!begun) {
            begin += line + '\n';
            begun = begin.size() >= head.size();
            return;
        }
        ++there.rows;
        there.last = line;
    });
    if (begin != head) there.state = head.starts_with(begin) ? State::kNone : State::kForeign;
    return there;
}

void Move_Back(const std::string& path, const std::string& part) {
    if (The_System().Rename(path, part) != 0) platform::Raise_File(path, platform::Way::kWriting, errno);
}

Row_File::Row_File(const std::string& path, const std::string& head, std::optional<std::uint64_t> go_on)
    : path_(path), part_(Is_Device(path) ? path : Part_Of(path)) {
    const bool device = part_ == path_;
    if (!device && platform::Is_Plain_File(part_)) The_System().Close(Open_Alone(part_));
    if (!device && !go_on) platform::Write_File(part_, "");
    file_ = device ? Open_To_Append(part_) : Open_Alone(part_);
    std::error_code trouble;
    if (go_on) fs::resize_file(part_, *go_on, trouble);
    if (trouble) platform::Raise_File(part_, platform::Way::kWriting, trouble.value());
    if (!go_on) Add(head);
}

Row_File::~Row_File() {
    if (file_ >= 0) The_System().Close(file_);
}

void Row_File::Add(const std::string& rows) {
    for (std::size_t done = 0; done < rows.size();) {
        const ssize_t count = The_System().Write(file_, rows.data() + done, rows.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) platform::Raise_File(part_, platform::Way::kWriting, count == 0 ? ENOSPC : errno);
        done += static_cast<std::size_t>(count);
    }
}

void Row_File::Close() {
    const bool device = part_ == path_;
    while (!device && The_System().Flush(file_) != 0)
        if (errno != EINTR) platform::Raise_File(part_, platform::Way::kWriting, errno);
    const int file = std::exchange(file_, -1);
    if (The_System().Close(file) != 0 && errno != EINTR) platform::Raise_File(part_, platform::Way::kWriting, errno);
    if (!device && The_System().Rename(part_, path_) != 0) platform::Raise_File(path_, platform::Way::kWriting, errno);
}

}  // namespace verlink
