// The rules of the screen of linkages for a task.
#include <optional>

#include "core/linkage_model.h"
#include "design/task_units.h"
#include "screens/frm_explore.h"
#include "tests/design/follower.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

namespace {

using design::Solution;

Found Of(const std::string& kind, const std::string& told) { return Finding{"explore", kind, told}; }

/// The task of the screen is that of the model, in its units. Except: a text that cannot be read, which the screen
/// tells of, and no text, which stands for the task to begin with.
Found Task_Is_The_Models(const frm_Explore& screen) {
    const design::Task& task = screen.The_Task();
    if (task.units != Model.Units) return Of("units", "the task is in system " + std::to_string(task.units));
    design::Task kept;
    std::string fault;
    if (Model.DesignTask.empty() || !design::Read_Task(Model.DesignTask, kept, fault)) return {};
    if (design::In_Units(kept, Model.Units) == task) return {};
    return Of("task", "the screen has " + design::Task_Text(task) + " where the model has " + Model.DesignTask);
}

std::string Number_Of(std::size_t i, const frm_Explore& screen) {
    return std::to_string(i + 1) + " of " + std::to_string(screen.Shown().size());
}

}  // namespace

Found Explored_Linkages_Do_It(const platform::Screen& top) {
    const auto* screen = dynamic_cast<const frm_Explore*>(&top);
    if (!screen) return {};
    if (Found found = Task_Is_The_Models(*screen)) return found;
    const std::vector<design::Place> places = design::Absolute_Positions(screen->The_Task());
    for (std::size_t i = 0; i < screen->Shown().size(); ++i) {
        const Solution& solution = screen->Shown()[i];
        if (solution.judgement.Good() == screen->chk_ThrownOut.Value.Get())
            return Of("thrown out", Number_Of(i, *screen) + " is shown where it does not belong");
        if (!solution.judgement.Good()) continue;
        const double way = solution.judgement.crank[1] > solution.judgement.crank[0] ? 1 : -1;
        const std::string wrong = test::Follower(solution.linkage).Through(places, solution.linkage, way);
        if (!wrong.empty())
            return Of("positions",
                      Number_Of(i, *screen) + " " + wrong + ", of " + design::Task_Text(screen->The_Task()));
    }
    const Solution* chosen = screen->Chosen();
    if ((chosen == nullptr) != screen->Shown().empty()) return Of("chosen", "none of those shown is in the picture");
    if (screen->cmd_Use.Enabled.Get() != (chosen && chosen->judgement.Good() && screen->Is_Seen()))
        return Of("use", "what can be used is not what is shown");
    return {};
}

bool Only_Looks(const platform::Screen& top, const Action& action) {
    if (top.Name() != "frm_Explore" || action.deed == Deed::kReturn) return false;
    for (const char* looking :
         {"cmd_Search", "cmd_Stop", "cmd_Earlier", "cmd_Later", "cmd_Play", "cmb_Sort", "cmb_Class", "cmb_Circuit",
          "cmb_Map", "chk_ThrownOut", "chk_Curves", "txt_Least", "hsc_Stroke", "pic_", "key_"})
        if (action.control.starts_with(looking)) return true;
    return false;
}

}  // namespace verlink::walk
