// The one file that sets flags of results.
#include "core/results.h"

#include "core/linkage_model.h"

namespace verlink {

class Results {
   public:
    static void Set(Fact& fact, bool so) { fact.so_ = so; }
};

namespace {

void Set_Run(bool stands, bool counts) {
    Forces_Dropped();
    Results::Set(Model.RunStands, stands);
    Results::Set(Model.Calculated, counts);
}

}  // namespace

void Run_Holds() { Set_Run(true, true); }

void Run_Shown() { Set_Run(true, false); }

void Run_Counts() { Results::Set(Model.Calculated, Model.RunStands); }

void Run_Held_Back() { Results::Set(Model.Calculated, false); }

void Run_Dropped() { Set_Run(false, false); }

void Forces_Hold() {
    Forces_Dropped();
    Results::Set(Model.DynamicsDone, true);
}

void Forces_Dropped() {
    Results::Set(Model.DynamicsDone, false);
    Balance_Dropped();
}

void Balance_Holds() {
    Transform_Dropped();
    Results::Set(Model.BalanceDone, true);
}

void Balance_Dropped() {
    Results::Set(Model.BalanceDone, false);
    Transform_Dropped();
}

void Transform_Holds() { Results::Set(Model.FFTDone, true); }

void Transform_Dropped() { Results::Set(Model.FFTDone, false); }

void Model_Saved() { Results::Set(Model.SavedFlag, true); }

void Model_Unsaved() { Results::Set(Model.SavedFlag, false); }

}  // namespace verlink
