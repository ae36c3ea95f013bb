// How two paths are known to be one file.
#include "batch/outputs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/links.h"

namespace verlink {

namespace {

namespace fs = std::filesystem;

constexpr char kStandardOutput[] = "standard output";

struct Use {
    std::string who;  ///< the option, or "the model"
    std::string path;
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

void Add(std::vector<Use>& uses, const std::string& who, const std::optional<std::string>& path) {
    if (path) uses.push_back({who, *path});
}

std::vector<Use> Inputs_Of(const BatchOptions& options) {
    std::vector<Use> uses;
    if (!options.example) uses.push_back({"the model", options.model});
    Add(uses, "--drive", options.drive);
    Add(uses, "--torque", options.torque);
    return uses;
}

std::vector<Use> Outputs_Of(const BatchOptions& options) {
    std::vector<Use> uses;
    if (options.Prints()) uses.push_back({kStandardOutput, "-"});
    Add(uses, "--csv", options.csv);
    Add(uses, "--svg", options.svg);
    Add(uses, "--save", options.save);
    Add(uses, "--export-out", options.export_out);
    Add(uses, "--export-trq", options.export_trq);
    Add(uses, "--export-pdx", options.export_pdx);
    return uses;
}

}  // namespace

bool Is_Standard_Output(const std::string& path) {
    return path == "-" || platform::Descriptor_Named(path) == STDOUT_FILENO;
}

bool Outputs_Apart(const BatchOptions& options, std::string& fault) {
    std::vector<Use> before = Inputs_Of(options);
    for (const Use& output : Outputs_Of(options)) {
        const std::string identity = Identity_Of(output.path);
        for (const Use& other : before) {
            // What is printed and what is told to go there too follow each other.
            if (other.who == kStandardOutput && Is_Standard_Output(output.path)) continue;
            if (identity.empty() || Identity_Of(other.path) != identity) continue;
            fault = output.who + " and " + other.who + " are one file, " +
                    (output.who == kStandardOutput ? other.path : output.path);
            return false;
        }
        before.push_back(output);
    }
    return true;
}

}  // namespace verlink
