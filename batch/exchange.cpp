// How drive data and torque get from a file into the model.
#include "batch/exchange.h"

#include <algorithm>
#include <cctype>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "files/drive_import.h"
#include "files/exports.h"
#include "platform/file_system.h"

namespace verlink {

namespace {

bool Ends_In(std::string path, const std::string& extension) {
    std::ranges::transform(path, path.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return path.ends_with(extension);
}

/// Hands a file's content to `take`, and notes when either comes to nothing.
template <class Take>
bool Take_File(const std::string& path, std::ostream& notes, Take take) {
    std::string why;
    try {
        const std::string content = platform::Read_File(path);
        TextReader reader(content);
        if (take(reader)) return true;
    } catch (const platform::RuntimeFailure& failure) {
        why = ": " + Why(failure);
    }
    notes << "verlink-batch: " << path << " cannot be imported" << why << '\n';
    return false;
}

}  // namespace

std::string Why(const platform::RuntimeFailure& failure) {
    const std::string& matter = failure.Trouble().matter;
    return failure.what() + (matter.empty() ? "" : " (" + matter + ")");
}

bool Is_Drive_File(const std::string& path) { return Ends_In(path, ".sva") || Ends_In(path, ".out"); }

bool Take_Drive(const std::string& path, std::ostream& notes) {
    const bool cam = Ends_In(path, ".sva");
    return Take_File(path, notes, [&](TextReader& reader) {
        const bool taken = cam ? Read_Cam_Data(reader) : Import_Linkage_Data(reader);
        if (taken) Model.Model5Name = StripFilename(path) + (cam ? ".sva" : ".out");
        return taken;
    });
}

bool Take_Torque(const std::string& path, std::ostream& notes) {
    Model.TorqueFileName = StripFilename(path) + ".trq";
    Model.TorqueImported = Take_File(path, notes, [](TextReader& reader) {
        bool Failed = false;
        Import_Torque_Data(reader, Failed);
        return !Failed;
    });
    return Model.TorqueImported;
}

}  // namespace verlink
