// Copies of what was not saved, from the process that dies to the one that comes after it.
#include "shell/recovery.h"

#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "core/results.h"
#include "files/model_file.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "platform/temporaries.h"
#include "shell/copy.h"
#include "shell/run_log.h"

namespace verlink {

using platform::CR;
using std::chrono::system_clock;

namespace {

std::unique_ptr<Copy_Keeper> keeper;
std::vector<std::string> refused;

void Remove(const std::string& file) {
    std::error_code none;
    std::filesystem::remove(file, none);
}

/// A path that ends in a separator is only the folder for the model's file.
bool Names_File(const std::string& path) { return !path.empty() && !path.ends_with('/'); }

std::string Question(const Model_Copy& copy) {
    const std::string model = copy.name.empty() ? "A model without a name" : "The model " + copy.name;
    return "   " + model + " was changed and not saved.  A copy of it was kept " +
           Age_In_Words(system_clock::now() - copy.changed) + ".   " + CR +
           (Names_File(copy.path) ? "   Its file is " + copy.path + "   " : "   It has no file yet.   ") + CR + CR +
           "   Do you want to go on with the copy?   " + CR +
           "   If not, it stays until a model is saved, and is offered at each start.   " + CR;
}

bool Take(const Left_Copy& left, LinkageModel& model) {
    const Model_Copy& copy = left.copy;
    if (!Readfile(copy.content, Names_File(copy.path) ? copy.path : std::string())) return false;
    model.ModelName = copy.name;
    std::string fault;
    Tasks tasks;
    if (Take_Tasks(copy.tasks, tasks, fault) || copy.tasks.empty()) static_cast<Tasks&>(model) = tasks;
    Model_Unsaved();
    Keep_Copy(model, true);
    // Not before there is another one.
    if (keeper && keeper->Flush()) Remove(left.file);
    return true;
}

}  // namespace

Left_Behind Look_Around() {
    const std::string folder = State_Folder();
    Left_Behind found;
    found.running = !Other_Runs(folder).empty();
    for (const Past_Run& run : Past_Runs(folder)) found.died |= run.end.empty();
    return found;
}

bool Said_Its_End(const platform::Process& process) {
    for (const Past_Run& run : Past_Runs(State_Folder()))
        if (run.process == process) return !run.end.empty();
    return false;
}

void Begin_Keeping() {
    const std::string folder = State_Folder();
    if (folder.empty()) return;
    for (const Past_Run& run : Past_Runs(folder)) {
        for (const std::string& written : run.folders) platform::Sweep_Temporaries(written);
        Forget_Run(folder, run);
    }
    Guarded("Begin_Keeping", [&] {
        Begin_Run_Log(folder);  // sweeps the folder, too
        keeper = std::make_unique<Copy_Keeper>(Copy_File(folder, platform::This_Process()));
    });
}

bool Offer_Copies(LinkageModel& model) {
    for (const Left_Copy& left : Left_Copies(State_Folder())) {
        if (!platform::Ask_Yes(Question(left.copy)))
            refused.push_back(left.file);
        else if (Take(left, model))
            return true;
    }
    return false;
}

void Drop_Refused() {
    for (const std::string& file : std::exchange(refused, {})) Remove(file);
}

void Keep_Copy(const LinkageModel& model, bool modified) {
    if (!keeper) return;
    Log_Going_On();
    if (modified)
        keeper->Keep({model.FilePath, model.ModelName, Snapshot_Of_File(), model, system_clock::now()});
    else
        keeper->Drop();
}

void Leave_Copy(const char* why) {
    if (!keeper) return;
    Log_End(why);
    keeper->Freeze();
    keeper->Flush();
}

void Prepare_To_Leave(const char* why) {
    if (!keeper) return;
    keeper->Flush();
    Log_End(why);
}

void End_Keeping() {
    if (keeper) keeper->Drop();
    keeper.reset();
    End_Run_Log();
    refused.clear();
}

}  // namespace verlink
