// A study: many linkages about one model, and what is measured of each.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "study/design.h"
#include "study/measure.h"
#include "study/motion.h"
#include "study/plan.h"

namespace verlink::study {

struct Study {
    Design design;  ///< the model's own
    Plan plan;
    std::vector<Measure> measures;
    std::vector<Keep> keeps;
};

/// A study made ready: what all linkages have in common, for as many workers as there are. Constant once it is made.
class Bench {
   public:
    /// Fails with 9 where the run and the angles of "at" together have more steps than a table; see `Fault_Of`.
    explicit Bench(Study study);

    const Study& Of() const { return study_; }
    const std::vector<int>& Moved() const { return moved_; }

   private:
    friend class Worker;
    /// A measure that is taken once, whether it is asked for, bounds or does both.
    struct Asked {
        Measure measure;
        int further;  ///< the place of its angle among those of the motion
    };
    std::size_t Ask(const Measure& measure);

    Study study_;
    std::vector<int> moved_;
    std::vector<Single> home_;
    std::vector<double> angles_;
    std::vector<Asked> asked_;
    std::vector<std::size_t> wanted_, bounding_;  ///< places of measures and keeps among those asked
    Wanted solved_ = Wanted::kAngles;
    Path nominal_;
};

/// Why a study of this design cannot be: what its run has no use for. Empty when it can.
std::string Fault_Of(const Study& study);

/// Solves linkages of a bench one after the other; each thread has one.
class Worker {
   public:
    explicit Worker(const Bench& bench);

    /// The values of `Moved()` and those of the measures, `kNone` where there is none. False for a linkage that a bound
    /// leaves out; then the measures mean nothing.
    bool Solve(Number linkage, std::span<float> fields, std::span<float> measures);
    /// The measures of the model itself, with fields of `Moved()` put to other values.
    void Solve_At(std::span<const Single> fields, std::span<float> measures);
    /// The path of the linkage that was solved last.
    Path Last_Path();

   private:
    void Measure_All();

    const Bench& bench_;
    Design design_;
    Motion motion_;
    Meter meter_;
    std::vector<float> found_;
};

}  // namespace verlink::study
