// What a kind of task gives to the search: candidates by numbers, and their judgement.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "design/judge.h"

namespace verlink::design {

/// What a candidate is made from: choices among a few, which a descent leaves alone, and free numbers with the step
/// with which a descent begins.
struct Genes {
    static constexpr std::size_t kMost = 6;
    std::array<int, 2> sheet{};
    std::array<double, kMost> number{};
    std::array<double, kMost> step{};
    std::size_t count = 0;
};

/// A new kind of task is one of these, and a row in `Problem_Of`. All is safe to use from several threads and gives the
/// same each time.
class Problem {
   public:
    virtual ~Problem() = default;

    /// The scan goes on from coarse to fine: each round has candidates that none before it had. The rounds that take
    /// about a hundredth of the time are `Coarse_Rounds`.
    virtual std::size_t Rounds() const = 0;
    virtual std::size_t Coarse_Rounds() const = 0;
    /// A round falls into chunks, whose order and content depend on the task alone.
    virtual std::size_t Chunks(std::size_t round) const = 0;
    using Take = std::function<void(const Genes&, const FourBar&)>;
    virtual void Each(std::size_t round, std::size_t chunk, const Take& take) const = 0;

    /// The candidate of these numbers, where there is one.
    virtual std::optional<FourBar> Linkage_Of(const Genes& genes) const = 0;
    virtual Judgement Judge_Of(const FourBar& linkage) const = 0;

    /// Whether there is a choice of cranks, so that the twin with the other one is asked for too.
    virtual bool Either_Crank() const = 0;
    /// Two linkages whose pivots all lie within this distance are neighbours; 0 where each stands for itself.
    virtual double Neighbourhood() const = 0;
    /// What is said where no candidate exists; empty where there are some.
    virtual std::string No_Candidates() const = 0;
};

/// Of a task in which nothing is wrong by `Trouble_With`.
std::unique_ptr<Problem> Problem_Of(const Task& task);

/// Motion of a body through two to five positions; what `Problem_Of` gives for such a task.
std::unique_ptr<Problem> Motion_Problem(const Task& task);

}  // namespace verlink::design
