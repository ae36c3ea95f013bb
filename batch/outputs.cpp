// How two paths are known to be one file.
#include "batch/outputs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "batch/results.h"
#include "platform/links.h"

namespace verlink {

namespace {

namespace fs = std::filesystem;

constexpr char kStandardOutput[] = "standard output";

struct Use {
    std::string who;  ///< the option, or "the model"; of several models each with its path
    std::string path;
    std::string option{}, name{};  ///< of an output: the option alone, and the model's name
};

/// What tells a file from every other; empty for a device, in which nothing is lost.
std::string Identity_Of(const struct stat& status) {
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode)) return {};
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

/// The path that a file will have that is not there yet.
std::string Place_Of(const std::string& path) {
    std::error_code none;
    fs::path target = path;
    for (int links = 0; links < 40 && fs::is_symlink(target, none); ++links)
        target = target.parent_path() / fs::read_symlink(target, none);
    return fs::weakly_canonical(fs::absolute(target, none), none).string();
}

std::string Identity_Of(const std::string& path) {
    struct stat status {};
    const auto open = Is_Standard_Output(path) ? std::optional<int>(STDOUT_FILENO) : platform::Descriptor_Named(path);
    if (open) return ::fstat(*open, &status) == 0 ? Identity_Of(status) : std::string();
    return ::stat(path.c_str(), &status) == 0 ? Identity_Of(status) : Place_Of(path);
}

std::vector<Use> Inputs_Of(const BatchOptions& job, bool several) {
    std::vector<Use> uses;
    if (!job.example) uses.push_back({several ? "the model " + job.model : "the model", job.model});
    if (job.drive) uses.push_back({"--drive", *job.drive});
    if (job.torque) uses.push_back({"--torque", *job.torque});
    return uses;
}

/// Files and devices by option; what is printed is left out.
std::vector<Use> Outputs_Of(const BatchOptions& job) {
    std::vector<Use> uses;
    const auto add = [&](const std::string& option, const std::string& path) {
        uses.push_back({option, path, option, job.Name()});
    };
    for (const WantedResult& result : job.results) add(result.row->option, result.path);
    if (job.save) add("--save", *job.save);
    return uses;
}

/// All files of a call, each with who uses it.
class Files {
   public:
    void Read(const Use& use) { uses_[Identity_Of(use.path)].push_back(use); }
    bool Write(const Use& use, std::string& fault) {
        const std::string identity = Identity_Of(use.path);
        if (identity.empty()) return true;
        std::vector<Use>& others = uses_[identity];
        for (const Use& other : others) {
            // Tables of several models follow each other, and so do what is printed and what is told to go there too.
            if (Tables_Of_All(other, use)) return true;
            if (other.who == kStandardOutput && Is_Standard_Output(use.path)) continue;
            fault = use.who + " and " + other.who + " are one file, " +
                    (use.who == kStandardOutput ? other.path : use.path);
            if (use.path == other.path && use.option == other.option && use.name != other.name)
                fault += "; {name} in it stands for the name of each model";
            return false;
        }
        others.push_back(use);
        return true;
    }

   private:
    static bool Tables_Of_All(const Use& other, const Use& use) {
        return other.option == "--csv" && use.option == "--csv" && Is_Standard_Output(use.path);
    }

    std::unordered_map<std::string, std::vector<Use>> uses_;
};

}  // namespace

bool Is_Standard_Output(const std::string& path) {
    return path == "-" || platform::Descriptor_Named(path) == STDOUT_FILENO;
}

bool Writes_To_Standard_Output(const BatchOptions& job) {
    return job.Prints() || (job.save && Is_Standard_Output(*job.save)) ||
           std::ranges::any_of(job.results, [](const WantedResult& result) { return Is_Standard_Output(result.path); });
}

bool Outputs_Apart(const std::vector<BatchOptions>& jobs, std::string& fault) {
    const bool several = jobs.size() > 1;
    Files files;
    for (const BatchOptions& job : jobs)
        for (const Use& input : Inputs_Of(job, several)) files.Read(input);
    if (jobs.front().Prints() && !files.Write({kStandardOutput, "-"}, fault)) return false;
    for (const BatchOptions& job : jobs)
        for (Use output : Outputs_Of(job)) {
            if (several) output.who += " of " + job.model;
            if (!files.Write(output, fault)) return false;
        }
    return true;
}

bool Folders_There(const std::vector<BatchOptions>& jobs, std::string& fault) {
    if (jobs.size() < 2) return true;
    for (const BatchOptions& job : jobs) {
        for (const Use& output : Outputs_Of(job)) {
            const std::string folder = platform::Folder_Of(output.path);
            std::error_code none;
            if (fs::is_directory(folder, none)) continue;
            fault = output.path + " cannot be written: Path not found (there is no folder " + folder + ")";
            return false;
        }
    }
    return true;
}

}  // namespace verlink
