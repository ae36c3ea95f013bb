// The file that rows of a study go to as they are solved.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace verlink {

/// What a file of rows is found to be.
struct Rows_There {
    enum class State { kNone, kForeign, kPartly, kWhole } state = State::kNone;
    std::uint64_t rows = 0;   ///< lines behind the head
    std::string last;         ///< the last whole one of them, without its end
    std::uint64_t bytes = 0;  ///< up to the end of that line, or of the head where there is none
};

/// Looks through a file of any size, whose first lines have to be `head`. It is whole when its last line is `end`;
/// without one it is never known to be whole. Failures as `Read_File`.
Rows_There Look_At_Rows(const std::string& path, const std::string& head, const std::string& end);

/// Rows that have their name already are those of a study that is not done again. Failures as `Write_File`.
void Move_Back(const std::string& path, const std::string& part);

/// Rows gather in a file beside the one wanted, ".part" behind its name, which takes that name when all are there; so
/// what the name had before stays until then, and what is stopped can be gone on with. A device or a pipe is written to
/// as it is. What another process is writing is refused. Failures as `Write_File`.
class Row_File {
   public:
    /// Begins with the head or, behind so many bytes of what is there, goes on.
    Row_File(const std::string& path, const std::string& head, std::optional<std::uint64_t> go_on = {});
    ~Row_File();
    Row_File(const Row_File&) = delete;
    Row_File& operator=(const Row_File&) = delete;

    void Add(const std::string& rows);
    /// On the device, and under the name wanted.
    void Close();
    /// Where the rows are until then.
    const std::string& Part() const { return part_; }

    static std::string Part_Of(const std::string& path) { return path + ".part"; }

   private:
    std::string path_, part_;
    int file_ = -1;
};

}  // namespace verlink
