// A study on threads of its own, watched while it goes on.
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "study/study.h"
#include "study/summary.h"

namespace verlink::study {

/// What a study has come to, so far or in the end.
struct Findings {
    Number all = 0, done = 0;
    double seconds = 0;          ///< that it has run
    bool ended = false;          ///< with all linkages, or stopped
    std::vector<float> nominal;  ///< of the model itself; empty until they are known
    /// Of linkage 0 and those that follow, as far as they are done; the first measure, `kNone` where it has none or a
    /// bound leaves it out. Only of studies without tolerances.
    std::vector<float> values;
    Summary summary{{}};
    std::vector<std::vector<Sensitivity>> sensitivities;  ///< known with the nominal ones

    bool Whole() const { return done == all; }
};

/// Where the coupler point of one linkage is at a step.
struct Cloud_Point {
    double x, y;  ///< global frame, shown unit
    Number linkage;
};

/// All calls come from one thread. What goes on beside it shares nothing but what is handed over here, in constant
/// memory but for `values`.
class Aside {
   public:
    Aside() = default;
    /// Stops, and waits for the end.
    ~Aside();
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    /// At most so many linkages of the first ones are in the cloud.
    static constexpr Number kCloud = 2000;

    /// Another one that runs is stopped, and what it found is dropped. The study has no fault; of threads there is one
    /// at least.
    void Begin(Study study, int threads);
    /// Asks it to end with what it has, at once but for the blocks in hand.
    void Stop();
    /// Waits for the end.
    void Await();
    /// Until the end has been seen by `Look`.
    bool Runs() const { return thread_.joinable(); }
    Findings Look();
    std::vector<Cloud_Point> Cloud_At(int step);

    /// The values of `Bench::Moved()` of a linkage of the study, as it was begun; `kNone` where no single holds them.
    std::vector<float> Values_Of(Number linkage) const;
    /// That linkage anew: its values and its measures. False when a bound leaves it out.
    bool Solve(Number linkage, std::vector<float>& fields, std::vector<float>& measures) const;
    const Bench& The_Bench() const { return *bench_; }

   private:
    struct Block;
    class Solver;
    void Run(int threads);
    bool Take(const Block& block);

    std::unique_ptr<Bench> bench_;
    mutable std::mutex hand_over_;
    Findings found_;
    std::vector<Number> cloud_of_;        ///< linkages
    std::vector<std::vector<float>> at_;  ///< their paths: x and y in turn by step, not a number where open
    bool stop_ = false;
    std::chrono::steady_clock::time_point begun_;
    std::thread thread_;
};

}  // namespace verlink::study
