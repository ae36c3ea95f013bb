// How tasks come to lie beside a model, and from there into its record.
#include "files/task_file.h"

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/desktop_services.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

namespace {

using Json = nlohmann::ordered_json;

const char kFormat[] = "verlink-design", kStudies[] = "studies";
constexpr int kVersion = 1;

/// The keys of a file that has no task of design.
const Json kHead{{"format", kFormat}, {"version", kVersion}};

std::string Text_Of_Json(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n'; }

/// Empty where it is sound.
std::string Fault_Of(const Json& file) {
    const auto format = file.find("format");
    if (format == file.end() || *format != kFormat) return "it is no file of tasks";
    if (!file.contains("version") || !file["version"].is_number_integer()) return "the field version is missing";
    if (file["version"] != kVersion) return "it was written by a newer program";
    if (file.contains(kStudies) && !file[kStudies].is_object()) return "the field studies is to be an object";
    return "";
}

}  // namespace

std::string Tasks_Path(const std::string& model_path) {
    return std::filesystem::path(model_path).replace_extension(".vld").string();
}

std::string Tasks_Text(const Tasks& tasks) {
    if (tasks.DesignTask.empty() && tasks.StudySettings.empty()) return "";
    Json file = tasks.DesignTask.empty() ? kHead : Json::parse(tasks.DesignTask);
    if (!tasks.StudySettings.empty()) file[kStudies] = Json::parse(tasks.StudySettings);
    return Text_Of_Json(file);
}

bool Take_Tasks(const std::string& text, Tasks& tasks, std::string& fault) {
    Json file;
    try {
        file = Json::parse(text);
    } catch (const Json::exception&) {
        fault = "it is no JSON";
        return false;
    }
    fault = Fault_Of(file);
    if (!fault.empty()) return false;
    Tasks taken;
    if (file.contains(kStudies)) {
        taken.StudySettings = Text_Of_Json(file[kStudies]);
        file.erase(kStudies);
    }
    if (file.size() > kHead.size()) taken.DesignTask = Text_Of_Json(file);
    tasks = taken;
    return true;
}

Tasks_Found Find_Tasks(const std::string& model_path) {
    const std::string path = Tasks_Path(model_path);
    Tasks_Found found;
    if (!platform::Is_Plain_File(path)) return found;
    if (const auto failure = What_Failed([&] { found.text = platform::Read_File(path); }))
        found.fault = failure->Trouble().Words();
    else
        Take_Tasks(found.text, found.tasks, found.fault);
    return found;
}

std::string Write_Tasks(const Tasks& tasks, const std::string& model_path, const std::string& known, bool unread) {
    const std::string path = Tasks_Path(model_path);
    std::string text = Tasks_Text(tasks);
    const bool there = platform::File_Exists(path);
    if (text.empty() && (!there || unread)) return known;
    const std::string old = there ? platform::Read_File(path) : "";
    if (there && old == text) return text;
    if (there && old != known) {
        platform::Tell("The file of tasks that was there is another one's.  It is kept as \r" +
                           platform::Write_File_And_Keep(path, text),
                       platform::Icon::kInformation);
    } else if (!text.empty()) {
        platform::Write_File(path, text);
    }
    if (text.empty()) std::filesystem::remove(path);
    return text;
}

}  // namespace verlink
