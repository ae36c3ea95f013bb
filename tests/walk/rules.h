// What must be true whenever the user has a screen before him and may act.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"
#include "tests/walk/action.h"
#include "tests/walk/aside.h"

namespace verlink::walk {

struct Finding {
    std::string rule;
    std::string kind;  ///< tells one finding of the rule from another; no numbers in it
    std::string told;  ///< what was seen
};
using Found = std::optional<Finding>;

/// What was typed and may be ahead of the record.
class Pending {
   public:
    void Note(const platform::Screen& top, const Action& action);
    /// Before the rules are asked: what has been taken over meanwhile is not ahead any more.
    void Settle();
    /// Typed since the screen came up, was calculated or solved.
    bool Typed(const platform::Control& control) const;
    /// Typed, and not left yet.
    bool In_Hand(const platform::Control& control) const;
    bool Any_In_Hand(const platform::Screen& screen) const;

   private:
    std::map<std::string, std::set<std::string>> typed_;
    std::string taken_;  ///< the screen whose button took all its boxes
};

/// The function that was transformed last, as the record had it then.
struct Transformed {
    FunctionSlots slots;
};

// Those that take an `Aside` try something with the record, which is put back before each.

// Rules of the results: rules_results.cpp.
Found Motion_Is_Of_The_Model(const Aside& aside, bool run_aborted);
Found Forces_Are_Of_The_Model(const Aside& aside);
Found Balance_Is_Of_The_Model(const Aside& aside);
Found Transform_Is_Of_The_Model(const Aside& aside, const Transformed& last);
/// Derived values follow the primary ones.
Found Record_Tells_One_Story(const Aside& aside);

// Rules of boxes and options: rules_boxes.cpp.
Found Screen_Shows_The_Record(const platform::Screen& top, const Pending& pending);
/// The screens whose boxes are read back.
bool Is_Read_Back(const platform::Screen& top);
Found Reading_Back_Changes_Nothing(const Aside& aside, platform::Screen& top, const Pending& pending);

// The rule of studies: rules_studies.cpp.
Found Studies_Are_Of_The_Model(platform::Screen& top, const Pending& pending);

// Rules of files: rules_files.cpp.
Found Saved_And_Opened_Is_The_Same(const Aside& aside);

// The rule of undo: rules_undo.cpp.
/// The record with its results as they stand.
struct Standing {
    Standing();
    std::vector<std::pair<std::string, std::string>> record;
    std::unique_ptr<RunResults> table;
    std::unique_ptr<StepArray<Single, 4>> harmonics;
    int last;
    bool on_input;
    std::shared_ptr<Document> document;
    int times_kept;
};
/// A box of the screen was typed into and not taken over.
bool Waits_For_A_Hand(const platform::Screen& top);
/// Undoes the last steps and does them again; after each the record is as it was then.
Found Undo_And_Redo_Bring_Back(const std::vector<std::shared_ptr<const Standing>>& before);

// The rule of kills: rules_copy.cpp.
/// Killed now, the program would offer at its next start what counts of the model as it stands; nothing where that is
/// not modified. Waits for the copy as long as it may take.
Found A_Kill_Would_Lose_Nothing();

// The rule of live plots: rules_live.cpp.
/// What the pane shows is of the run as it stands, and its cursor within it.
Found Live_Plots_Are_Of_The_Run(const platform::Screen& top);

// The rule of checks: rules_checks.cpp.
/// No check of results that count fails, but for positions that a synthesis was asked for.
Found Results_Pass_Their_Checks(const platform::Screen& top);

// Rules of what is told and drawn: rules_telling.cpp.
/// The messages of one action with their answers, in their order.
struct Told {
    platform::Message message;
    platform::Answer answer;
};
Found Messages_Are_Few(const std::vector<Told>& told);
Found Failures_Are_Known(const std::vector<Told>& told);
Found Drawn_Is_Finite(const platform::Screen& top);
/// What the line under a picture says of a position is so of the linkage as it stands.
Found Quiet_Line_Is_Of_The_Model(const platform::Screen& top);

// The rules of linkages for a task: rules_explore.cpp.
/// The screen has the task of the model, and each linkage that it shows as one that does it is followed through all
/// positions by formulas that share nothing with those that found it.
Found Explored_Linkages_Do_It(const platform::Screen& top);
/// Actions there that change nothing of the model.
bool Only_Looks(const platform::Screen& top, const Action& action);

// The rule of the menu View: rules_view.cpp.
Found What_Lies_Over_It_Is_Of_The_Model(const platform::Screen& top);
/// What is marked as a position that the run passes lies on the path of the coupler point in the table.
Found Marked_Positions_Are_Passed();

}  // namespace verlink::walk
