// The file association, and the model named on the command line.
#include "shell/user.h"

#include <filesystem>
#include <system_error>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "files/task_file.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "shell/failure_report.h"

namespace verlink {

using platform::CRLF;
using platform::The_Desktop;

namespace {

constexpr int kTextValue = 1;
constexpr long kClassesRoot = -2147483647L - 1;

/// What the user is told of a value that the desktop did not take.
void Report_SetKeyValue(const std::string& sKeyName, const std::string& sValueName, const std::string& vValueSetting,
                        const platform::FileTrouble& trouble) {
    std::string text = std::string("In Sub SetKeyValue") + CRLF + "sKeyName = " + sKeyName + CRLF +
                       "sValueName = " + sValueName + CRLF + "vValueSetting = " + vValueSetting + CRLF +
                       "lValueType = " + std::to_string(kTextValue) + CRLF + "hKey = " + std::to_string(kClassesRoot);
    if (const std::string words = trouble.Words(); !words.empty()) text += CRLF + std::string(CRLF) + words;
    platform::Tell(text, platform::Icon::kInformation);
}

/// A file that was clicked on and cannot be read is failure 52, whose advice is for such files.
std::string Clicked_Content(const std::string& path) {
    std::string content;
    const auto failure = What_Failed([&] { content = platform::Read_File(path); });
    if (failure) throw platform::RuntimeFailure(platform::kBadFileNameOrNumber, failure->Trouble());
    return content;
}

/// A file of tasks stands for the model that it lies beside; without one its tasks come alone.
bool Take_Clicked_Tasks(std::string& path) {
    if (!path.ends_with(".vld")) return false;
    const std::string model = std::filesystem::path(path).replace_extension(".vlk").string();
    if (platform::Is_Plain_File(model)) {
        path = model;
        return false;
    }
    std::string fault;
    if (Take_Tasks(Clicked_Content(path), Model, fault))
        Model_Came();
    else
        platform::Tell("The tasks in " + path + " cannot be read: " + fault + ".", platform::Icon::kExclamation);
    return true;
}

}  // namespace

void CreateAssociation(const std::string& Type, const std::string& Extension) {
    const std::string& program = Model.AppPath;
    const auto failure = What_Failed([&] { The_Desktop().Register_File_Type({Type, Extension, program}); });
    // The association stays as it was then, and this message is the only sign.
    if (failure)
        Report_SetKeyValue(Type + R"(.Document\shell\open\command)", "", program + "\\" + Type + ".exe %1",
                           failure->Trouble());
}

std::string GetLongPathFromShortPath(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path full = std::filesystem::canonical(path, failed);
    return failed ? std::string() : full.string();
}

void Open_Clicked_File() {
    const Opening_Clicked_File opening;
    Guarded("Readfile in Open_Clicked_File", [] {
        if (Model.CommandLine.empty()) return;
        const std::string full = GetLongPathFromShortPath(Model.CommandLine);
        std::string path = full.empty() ? Model.CommandLine : full;
        if (Take_Clicked_Tasks(path)) return;
        Readfile(Clicked_Content(path), path);
    });
}

}  // namespace verlink
