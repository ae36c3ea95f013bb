// The run of a design, many times over: positions, motion and forces into a table that belongs to nobody else.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "core/lanes.h"
#include "core/record/run_table.h"
#include "core/steps_at_once.h"
#include "study/design.h"

namespace verlink::study {

/// How far a run is wanted; each has those before it.
enum class Wanted { kAngles, kPoints, kMotion, kForces, kBalance };

/// By the formulas of `Calculate`, to their bits, without poles and the acceleration on link 3's axes, and by
/// `Solve_Closed_Steps`; for runs of one position, by time and by angle. The balance is that of `Default_Weights`, and
/// the flywheel smooths to `kUsualFluct`; both are of runs by angle alone. What closes nowhere, and what overflows, is
/// a step that does not close. Nothing is told, and nothing is shared: each thread has one.
class Motion {
   public:
    /// Crank angles, global and in degrees, that are solved behind the last step of each run, with the speed and the
    /// acceleration that the model has; not for runs by time.
    explicit Motion(std::vector<double> angles = {}, Lanes lanes = Widest_Lanes());

    /// The whole run of a design, which is derived first. False when no step closes.
    bool Solve(Design& design, Wanted wanted);

    /// Of the last design. `Assembled` says which steps closed; nothing else holds in the others, and nothing that was
    /// not wanted.
    const RunResults& Table() const { return *table_; }
    int Last() const { return last_; }                          ///< of the run
    int Step_At(int angle) const { return last_ + 1 + angle; }  ///< of one of the further angles
    bool Closed(int step) const { return table_->Assembled(step); }
    /// Whether the forces of a closed step were found.
    bool Loaded(int step) const { return loaded_[static_cast<std::size_t>(step)] != 0; }
    /// Whether its balance was found; false where none was wanted.
    bool Balanced(int step) const { return balanced_[static_cast<std::size_t>(step)] != 0; }
    int Closed_Steps() const { return closed_; }  ///< of the run alone

   private:
    void Set_Out(const Design& design);
    void Solve_Steps(const Design& design, Wanted wanted);
    bool Is_Moderate(const Design& design) const;
    bool Solve_One(const at_once::Run& run, int step);
    void Load(const Design& design, Wanted wanted);

    using Way = std::array<double, 12>;  ///< what the crank's angles and speeds depend on

    std::vector<double> angles_;
    std::optional<Way> way_;  ///< of which they are now
    std::unique_ptr<RunResults> table_;
    at_once::Solver solve_;
    std::vector<double> theta2_, omega2_;  ///< by step: radians in the ground link's frame, rad/s
    std::vector<char> loaded_, balanced_;
    int last_ = 0, closed_ = 0, all_ = 0;
    int reached_ = 0;     ///< steps of the run that come before an overshot end
    double fastest_ = 0;  ///< of the crank's speeds
};

}  // namespace verlink::study
