// The files that the user has at hand, under names that hold on every machine.
#pragma once

#include <string>
#include <vector>

namespace verlink::walk {

/// A folder of his own with files to open, and places that cannot be written to. Paths of replies begin with
/// "<folder>", "<samples>" or "<fixtures>".
class Places {
   public:
    Places();
    ~Places();
    Places(const Places&) = delete;
    Places& operator=(const Places&) = delete;

    /// Empties the folder and fills it anew, as at the start of a walk.
    void Prepare() const;
    const std::string& Folder() const { return folder_; }
    /// The path on this machine.
    std::string Path(const std::string& written) const;

    // Files to open, by extension with its point.
    static std::vector<std::string> Good(const std::string& extension);
    /// Those that begin well.
    static std::vector<std::string> Broken(const std::string& extension);
    /// Those that are refused whole.
    static std::vector<std::string> Foreign();
    static std::vector<std::string> Writable(const std::string& extension);
    static std::vector<std::string> Unwritable();

   private:
    std::string folder_;
};

}  // namespace verlink::walk
