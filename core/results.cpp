// The one file that sets flags of results.
#include "core/results.h"

#include "core/linkage_model.h"
#include "core/results_turns.h"

namespace verlink {

class Results {
   public:
    static void Set(Fact& fact, bool so) { fact.so_ = so; }
};

namespace {

int turns = 0;

/// A result comes to hold, perhaps another of its kind than before, or falls.
void Turn(Fact& fact, bool so) {
    ++turns;
    Results::Set(fact, so);
}

void Set_Run(bool holds) {
    Forces_Dropped();
    Turn(Model.RunStands, holds);
    Results::Set(Model.Calculated, holds);
}

}  // namespace

void Run_Holds() { Set_Run(true); }

void Run_Counts() { Results::Set(Model.Calculated, Model.RunStands); }

void Run_Held_Back() { Results::Set(Model.Calculated, false); }

void Run_Dropped() { Set_Run(false); }

void Forces_Hold() {
    Forces_Dropped();
    Turn(Model.DynamicsDone, true);
}

void Forces_Dropped() {
    Turn(Model.DynamicsDone, false);
    Balance_Dropped();
}

void Balance_Holds() {
    Transform_Dropped();
    Turn(Model.BalanceDone, true);
}

void Balance_Dropped() {
    Turn(Model.BalanceDone, false);
    Transform_Dropped();
}

void Transform_Holds() { Turn(Model.FFTDone, true); }

void Transform_Dropped() { Turn(Model.FFTDone, false); }

int Results_Turns() { return turns; }

void Results_Put_Back() { ++turns; }

void Model_Saved() { Results::Set(Model.SavedFlag, true); }

void Model_Unsaved() { Results::Set(Model.SavedFlag, false); }

void Take_Task_Text(std::string& kept, const std::string& text) {
    if (kept == text) return;
    kept = text;
    Model_Unsaved();
}

}  // namespace verlink
