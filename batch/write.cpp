// Writing with signals held back.
#include "batch/write.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "batch/exchange.h"
#include "batch/held_signals.h"
#include "batch/outputs.h"
#include "core/linkage_model.h"
#include "files/model_file.h"
#include "platform/file_system.h"

namespace verlink {

namespace {

/// Whether a file takes the place of what the path names, or is made there.
bool Replaced_Whole(const std::string& path) {
    std::error_code none;
    const auto status = std::filesystem::status(path, none);
    return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

}  // namespace

bool Write_Result(const Made& made, Printout& print, std::ostream& err) {
    if (Is_Standard_Output(made.path)) {
        made.table ? print.Table(made.content) : print.Text(made.content);
        return true;
    }
    print.Flush();
    std::optional<HeldSignals> held;
    if (Replaced_Whole(made.path)) held.emplace();
    try {
        platform::Write_File(made.path, made.content);
    } catch (const platform::RuntimeFailure& failure) {
        if (print.Left_By_Reader(made.path)) return true;
        err << "verlink-batch: " << made.path << " cannot be written: " << Why(failure) << '\n';
        return false;
    }
    return true;
}

bool Save_Model(const std::string& path, const std::string& content, Printout& print, std::ostream& err) {
    if (Is_Standard_Output(path)) return Write_Result({path, content}, print, err);
    Model.FilePath = path;
    std::optional<HeldSignals> held;
    if (Replaced_Whole(path)) held.emplace();
    return Writefile(content);
}

}  // namespace verlink
