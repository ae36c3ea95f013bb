// The rule of undo: what was done can be undone and done again, and record, flags and results are as they were.
#include <algorithm>
#include <set>

#include "platform/controls.h"
#include "shell/history.h"
#include "tests/walk/record.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using namespace platform;

Standing::Standing()
    : record(Record_Words()),
      table(std::make_unique<RunResults>(Model.RunTable)),
      harmonics(std::make_unique<StepArray<Single, 4>>(Model.FFTResult)),
      last(std::clamp<int>(Model.NSteps, -1, kLastStep)),
      on_input(Model.InputScreenOpen),
      document(Document_In_Hand()),
      times_kept(document->times_kept) {}

namespace {

/// What of the results a flag vouches for, now as before. The mass centres in the table are those that were solved for
/// last, which may have been those of a balance that has fallen.
Difference Results_Differ(const Standing& before) {
    Difference difference;
    const auto compare = [&](bool vouched, Results which) {
        if (vouched && !difference.Any())
            difference = Compare_Results(*before.table, Model.RunTable, before.last, which);
    };
    compare(Model.RunStands, Results::kMotion);
    compare(Model.DynamicsDone, Model.BalanceDone ? Results::kForces : Results::kLoads);
    compare(Model.BalanceDone, Results::kBalance);
    if (difference.Any() || !Model.FFTDone) return difference;
    for (int i = 0; i <= kLastStep; ++i)
        for (int row = 0; row <= 3; ++row)
            if ((*before.harmonics)(i, row) != Model.FFTResult(i, row)) return {"FFTResult", "FFTResult differs"};
    return difference;
}

/// Except: on the input screen a run that is shown waits for the user's next action to count, and nowhere else; the
/// action that was undone may have been that one. A save
/// is not undone, and names the model. Which step is shown goes by the screen.
Found Differs(const Standing& before, const std::string& what, const std::string& done) {
    std::set<std::string> other = {"CurrentStep", "RedrawFlag"};
    if (before.on_input != Model.InputScreenOpen || (before.on_input && Model.RunStands)) other.insert("Calculated");
    if (before.times_kept != before.document->times_kept) other.insert({"FilePath", "ModelName", "SavedFlag"});
    Words then = before.record;
    std::erase_if(then, [&](const auto& word) { return other.contains(word.first); });
    Difference difference = Compare(then, Record_Words());
    if (!difference.Any()) difference = Results_Differ(before);
    if (!difference.Any()) return {};
    return Finding{"undo", done + ": " + difference.names, done + " " + what + ": " + difference.values};
}

}  // namespace

bool Waits_For_A_Hand(const Screen& top) {
    return std::ranges::any_of(top.Controls(), [](const Control* control) {
        const auto* box = dynamic_cast<const TextBox*>(control);
        return box && box->Touched();
    });
}

Found Undo_And_Redo_Bring_Back(const std::vector<std::shared_ptr<const Standing>>& before) {
    History& history = The_History();
    std::vector<std::unique_ptr<const Standing>> after;
    for (auto step = before.rbegin(); step != before.rend(); ++step) {
        const std::string what = history.Undo_What();
        after.push_back(std::make_unique<Standing>());
        history.Undo();
        if (Found found = Differs(**step, what, "undone")) return found;
    }
    for (auto step = after.rbegin(); step != after.rend(); ++step) {
        const std::string what = history.Redo_What();
        history.Redo();
        if (Found found = Differs(**step, what, "done again")) return found;
    }
    return {};
}

}  // namespace verlink::walk
