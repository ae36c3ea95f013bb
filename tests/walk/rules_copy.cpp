// The rule of kills: at any moment what is not saved lies in a copy.
#include <algorithm>
#include <chrono>
#include <thread>

#include "files/in_hand.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/process.h"
#include "shell/copy.h"
#include "shell/run_log.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

namespace {

/// The lines of a file's text, without their ends.
std::vector<std::string> Lines(const std::string& content) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < content.size();) {
        const std::size_t end = std::min(content.find("\r\n", at), content.size());
        lines.push_back(content.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

/// Of a run by angle, or of one by time, that counts which the run goes by.
bool Counts_Now(const FileField& field) {
    constexpr int kByAngleSteps = 3;
    switch (field.counts) {
        case verlink::Counts::kYes: return true;
        case verlink::Counts::kNo: return false;
        case verlink::Counts::kByAngle: return Model.Calctype == kByAngleSteps;
        case verlink::Counts::kByTime: return Model.Calctype != kByAngleSteps;
    }
    return true;
}

/// What of the model counts and the copy has otherwise; empty for nothing.
std::string Differs(const std::string& file) {
    std::optional<Model_Copy> copy;
    if (Failure_Of([&] { copy = Copy_Of(platform::Read_File(file)); }) != 0 || !copy) return "there is no copy";
    const std::vector<std::string> now = Lines(File_Content()), kept = Lines(copy->content);
    if (now.size() != kept.size()) return "the copy has " + std::to_string(kept.size()) + " lines";
    for (const FileField& field : File_Fields()) {
        const auto line = static_cast<std::size_t>(field.line - 1);
        if (Counts_Now(field) && now.at(line) != kept.at(line))
            return std::string(field.name) + " is " + now[line] + ", in the copy " + kept[line];
    }
    return "";
}

}  // namespace

Found A_Kill_Would_Lose_Nothing() {
    using std::chrono::steady_clock;
    const std::string folder = State_Folder();
    if (folder.empty()) return {};
    const std::string file = Copy_File(folder, platform::This_Process());
    // As long as a busy machine may take; how long it does take, tools/test-crash tells.
    const auto late = steady_clock::now() + std::chrono::seconds(10);
    std::string differs;
    do {
        if (Modified())
            differs = Differs(file);
        else
            differs = platform::File_Exists(file) ? "a copy of what is not modified" : "";
        if (differs.empty()) return {};
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    } while (steady_clock::now() < late);
    return Finding{"killed", differs.substr(0, differs.find(" is ")), "killed: " + differs};
}

}  // namespace verlink::walk
