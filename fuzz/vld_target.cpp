// Files of tasks, as they lie beside a model and as the search reads them.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "design/search.h"
#include "files/task_file.h"
#include "fuzz/harness.h"

using namespace verlink;

namespace {

void Check_Beside(const std::string& text) {
    Tasks tasks, again;
    std::string fault;
    const bool taken = Take_Tasks(text, tasks, fault);
    fuzz::Check(taken == fault.empty(), "a file of tasks is taken, or it is told why not");
    if (!taken) {
        fuzz::Check(tasks.DesignTask.empty() && tasks.StudySettings.empty(), "a file that is refused leaves something");
        return;
    }
    const std::string written = Tasks_Text(tasks);
    fuzz::Check(written.empty() || Take_Tasks(written, again, fault), "what was written is taken again");
    fuzz::Check(Tasks_Text(again) == written, "a second round changes something");
}

/// The first moments of a search, which reads the whole task.
void Check_Search(const design::Task& task) {
    for (const design::Place& place : Absolute_Positions(task))
        fuzz::Check(std::isfinite(std::abs(place.at)) && std::isfinite(place.angle), "a position is no number");
    const auto found =
        Find(task, {.best = 3, .threads = 1, .coarse = true}, [](double, const design::Found*) { return false; });
    fuzz::Check(!found.solutions.empty() || !found.words.empty(), "nothing is found, and nothing is said");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Check_Beside(text);
    design::Task task, again;
    std::string fault;
    if (!Read_Task(text, task, fault)) {
        fuzz::Check(!fault.empty() && fault.find('\n') == std::string::npos, "a task is refused in a line");
        fuzz::Check(task == design::Task{}, "a task that is refused leaves something");
        return 0;
    }
    fuzz::Check(Read_Task(Task_Text(task), again, fault) && again == task, "what was written is the same task");
    Check_Search(task);
    return 0;
}
